#ifndef ORVRTF_STREAMS_H
#define ORVRTF_STREAMS_H

#include "Interruption.h"

#include <QByteArray>
#include <QFile>
#include <QSaveFile>
#include <QString>
#include <QTemporaryFile>

/*!
    The input of a command: a file, or the standard input for the path "-".

    A device whose end is unknown until more data arrives, such as a pipe, needs care: a reader
    would take a pause of the writing program for the end.
*/
class InputStream {
public:
    enum Pipes {
        /*! Pipes are copied to a temporary file first. */
        Spooled,
        /*! Pipes are read as they come; asking for their end waits until it is known. */
        Streamed
    };

    /*! Opens \a path; false, with errorString() set, when it cannot be read. */
    bool open(const QString& path, Pipes pipes = Spooled);
    /*! The device to read, open and owned by this object. */
    QIODevice* device();
    /*! Whether a reader that reads all it gets has got all there is; if not, errorString() is set. */
    bool isReadToEnd();
    QString errorString() const { return m_errorString; }

private:
    /*! A file whose end, if it is a pipe, is known only when the other side has closed it. */
    class PatientFile : public QFile {
    public:
        bool atEnd() const override;
    };

    bool spool();

    PatientFile m_file;
    QTemporaryFile m_spool;
    bool m_spooled = false;
    QString m_errorString;
};

/*!
    The output of a command: a file, which appears whole or not at all, or the standard output for the path
    "-".
*/
class OutputStream {
public:
    /*! Opens \a path; false, with errorString() set, when it cannot be written. */
    bool open(const QString& path);
    /*! The device to write to, open and owned by this object. */
    QIODevice* device() { return &m_device; }
    /*! Completes the output; false, with errorString() set, when any of it could not be written. */
    bool finish();
    /*! Writes \a data, then completes the output like finish(). */
    bool finishWith(const QByteArray& data);
    QString errorString() const { return m_errorString; }

private:
    /*! Hands bytes on to a file and remembers that it did not take them all. */
    class FailureKeeper : public QIODevice {
    public:
        QFileDevice* target = nullptr;
        QString failure;

    protected:
        qint64 readData(char*, qint64) override { return -1; }
        qint64 writeData(const char* data, qint64 length) override;
    };

    bool opened(QFileDevice& file, bool isOpen);

    // Devices and pipes are written directly, as a file renamed into place would replace them.
    QFile m_direct;
    UnfinishedFile m_unfinished;
    QSaveFile m_file;
    FailureKeeper m_device;
    QString m_errorString;
};

/*!
    Writes \a data to the file \a path, or to the standard output for "-". A file appears whole or not at
    all. Returns false on failure, with the reason in \a errorString.
*/
bool writeOutput(const QString& path, const QByteArray& data, QString* errorString);

/*! How messages name the input \a path. */
QString shownInput(const QString& path);

/*! How messages name the output \a path. */
QString shownOutput(const QString& path);

/*!
    "orvrtf: ", \a message and a line feed, in the encoding of the locale; one line whatever line breaks it
    has.
*/
QByteArray errorLine(const QString& message);

/*! Writes the errorLine() of \a message to the standard error. */
void printError(const QString& message);

/*! Prints that the output \a path could not be written, and why. */
void printUnwritten(const QString& path, const QString& errorString);

#endif
