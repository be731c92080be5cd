#include "Interruption.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

const int endingSignals[] = {SIGHUP, SIGINT, SIGTERM};

// What the handlers use; the path changes only while the signals are kept back.
char unfinishedPath[PATH_MAX];
char childrenPath[PATH_MAX];
volatile std::sig_atomic_t lastSignal = 0;
int blockCount = 0;

sigset_t endingSignalSet()
{
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : endingSignals)
        sigaddset(&set, signal);
    return set;
}

void removeFileAndEnd(int signal)
{
    ::unlink(unfinishedPath);
    Interruption::endBy(signal);
}

/*! Kills the process groups that the processes in \a list, ids with a blank behind each, lead. */
void killGroups(const char* list, qint64 length)
{
    pid_t id = 0;
    for (qint64 i = 0; i < length; ++i) {
        if (list[i] >= '0' && list[i] <= '9') {
            id = id * 10 + (list[i] - '0');
        } else if (id > 1) {
            // A process that was started just now leads no group yet.
            if (::kill(-id, SIGKILL) != 0)
                ::kill(id, SIGKILL);
            id = 0;
        }
    }
}

void killPrograms(int signal)
{
    const int oldError = errno;
    if (signal != SIGALRM)
        lastSignal = signal;
    const int file = ::open(childrenPath, O_RDONLY | O_CLOEXEC);
    // Not every system tells the children.
    if (file < 0)
        Interruption::endBy(lastSignal);
    char list[4096];
    killGroups(list, ::read(file, list, sizeof(list)));
    ::close(file);
    // Again in a second: another program may be about to be started.
    std::signal(SIGALRM, killPrograms);
    ::alarm(1);
    errno = oldError;
}

} // namespace

UnfinishedFile::~UnfinishedFile()
{
    const InterruptionBlock block;
    if (unfinishedPath[0] != '\0')
        Interruption::stopHandling();
    unfinishedPath[0] = '\0';
}

void UnfinishedFile::watch(int descriptor)
{
    char link[64];
    std::snprintf(link, sizeof(link), "/proc/self/fd/%d", descriptor);
    const ssize_t length = ::readlink(link, unfinishedPath, sizeof(unfinishedPath) - 1);
    // Of a file without a name, this is one that no file has.
    unfinishedPath[qMax(ssize_t(0), length)] = '\0';
    if (length > 0)
        Interruption::handle(removeFileAndEnd);
}

StartedPrograms::StartedPrograms()
{
    const long id = long(::getpid());
    std::snprintf(childrenPath, sizeof(childrenPath), "/proc/%ld/task/%ld/children", id, id);
    Interruption::handle(killPrograms);
}

StartedPrograms::~StartedPrograms()
{
    Interruption::stopHandling();
    ::alarm(0);
    if (lastSignal != 0)
        Interruption::endBy(lastSignal);
}

InterruptionBlock::InterruptionBlock() : m_isOutermost(blockCount++ == 0)
{
    const sigset_t set = endingSignalSet();
    if (m_isOutermost)
        pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

InterruptionBlock::~InterruptionBlock()
{
    --blockCount;
    const sigset_t set = endingSignalSet();
    if (m_isOutermost)
        pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

bool InterruptionBlock::isInterrupted()
{
    sigset_t pending;
    sigpending(&pending);
    for (const int signal : endingSignals) {
        struct sigaction action = {};
        // What is ignored is kept back all the same.
        if (sigismember(&pending, signal) == 1 && sigaction(signal, nullptr, &action) == 0
            && action.sa_handler != SIG_IGN)
            return true;
    }
    return false;
}

void Interruption::handle(Handler handler)
{
    struct sigaction action = {};
    action.sa_handler = handler;
    // The second signal ends the program whatever the first has led to.
    action.sa_flags = int(SA_RESETHAND) | SA_NODEFER | SA_RESTART;
    for (const int signal : endingSignals) {
        struct sigaction old = {};
        // Programs in the background and those of nohup are started with signals ignored.
        if (sigaction(signal, nullptr, &old) == 0 && old.sa_handler != SIG_IGN)
            sigaction(signal, &action, nullptr);
    }
}

void Interruption::stopHandling()
{
    handle(SIG_DFL);
}

void Interruption::endBy(int signal)
{
    std::signal(signal, SIG_DFL);
    ::raise(signal);
}
