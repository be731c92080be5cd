#ifndef ORVRTF_WORKER_H
#define ORVRTF_WORKER_H

#include "BatchPlan.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QTimer>

#include <functional>
#include <sys/types.h>

/*!
    Converts one file after the other, each in a process of its own, so that what befalls one befalls no
    other.
*/
class Worker {
public:
    enum Outcome {
        Converted,
        /*! The output is written, but the input was damaged. */
        ConvertedWithErrors,
        Failed,
        /*! It was ended by stop(). */
        Stopped
    };
    typedef std::function<void(Worker& worker)> Callback;

    /*!
        \a program is started in \a environment for each file, which may take \a timeout seconds (0 for any
        time).
    */
    Worker(const QString& program, const QProcessEnvironment& environment, int timeout);
    ~Worker();
    /*! Begins to convert \a file and calls \a finished at the end, never from inside this function. */
    void start(const BatchFile& file, const Callback& finished);
    /*! Ends the conversion that is going on. */
    void stop();

    bool isRunning() const { return m_isRunning; }
    /*! How the last conversion went. */
    Outcome outcome() const { return m_outcome; }
    /*! What there is to tell the user about it, as whole lines; empty when it went well. */
    QByteArray message() const { return m_message; }

private:
    Q_DISABLE_COPY(Worker)

    /*! Which file a path stands for; another one as soon as the output is replaced. */
    struct FileId {
        explicit FileId(const QString& path);
        bool operator==(const FileId& other) const { return device == other.device && node == other.node; }
        dev_t device = 0;
        ino_t node = 0;
    };

    void processFinished(int exitCode, QProcess::ExitStatus status);
    void timeOut();
    void end(Outcome outcome, const QByteArray& message = QByteArray());
    void fail(const QString& reason);

    const QString m_program;
    const int m_timeout;
    BatchFile m_file;
    FileId m_oldOutput{QString()};
    Callback m_finished;
    QProcess m_process;
    QTimer m_timer;
    bool m_isRunning = false;
    bool m_isStopped = false;
    bool m_isTimedOut = false;
    Outcome m_outcome = Converted;
    QByteArray m_message;
};

#endif
