#ifndef ORVRTF_INTERRUPTION_H
#define ORVRTF_INTERRUPTION_H

#include <QtGlobal>

/*!
    While an object of this class lives, SIGHUP, SIGINT and SIGTERM remove a file before they end the program.
    There is one at a time.
*/
class UnfinishedFile {
public:
    UnfinishedFile() = default;
    ~UnfinishedFile();
    /*!
        From now on it is the file open as \a descriptor. Does nothing where the system does not tell its
        path.
    */
    void watch(int descriptor);

private:
    Q_DISABLE_COPY(UnfinishedFile)
};

/*!
    While an object of this class lives, SIGHUP, SIGINT and SIGTERM kill the programs that this one has
    started, and what they started, so that whoever waits for them can clear up behind them; the destructor
    then ends this program. When the signal comes again, it ends this program at once.
*/
class StartedPrograms {
public:
    StartedPrograms();
    ~StartedPrograms();

private:
    Q_DISABLE_COPY(StartedPrograms)
};

/*! Keeps SIGHUP, SIGINT and SIGTERM back while it lives, and lets them come when the last one ends. */
class InterruptionBlock {
public:
    InterruptionBlock();
    ~InterruptionBlock();

    /*! Whether one that is kept back will end the program. */
    static bool isInterrupted();

private:
    Q_DISABLE_COPY(InterruptionBlock)
    bool m_isOutermost;
};

namespace Interruption {

typedef void (*Handler)(int signal);

/*!
    Lets \a handler be called on SIGHUP, SIGINT and SIGTERM, but for those that the program was started to
    ignore.
*/
void handle(Handler handler);
/*! Lets them end the program again. */
void stopHandling();
/*! Ends the program by \a signal. */
void endBy(int signal);

} // namespace Interruption

#endif
