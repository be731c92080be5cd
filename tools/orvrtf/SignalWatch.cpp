#include "SignalWatch.h"

#include "Interruption.h"

#include <QEvent>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

int pipeEnds[] = {-1, -1};
volatile std::sig_atomic_t lastWatchedSignal = 0;

void tellEventLoop(int signal)
{
    const int oldError = errno;
    lastWatchedSignal = signal;
    const char byte = 0;
    const ssize_t written = ::write(pipeEnds[1], &byte, 1);
    Q_UNUSED(written);
    errno = oldError;
}

/*! Makes the pipe, which no started program gets, and gives the end to read from. */
int openPipe()
{
    if (::pipe(pipeEnds) != 0)
        qFatal("no pipe for signals");
    for (const int end : pipeEnds)
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
    return pipeEnds[0];
}

} // namespace

SignalWatch::Notifier::Notifier(int descriptor, const std::function<void()>& callback)
    : QSocketNotifier(descriptor, QSocketNotifier::Read), m_callback(callback)
{
}

bool SignalWatch::Notifier::event(QEvent* event)
{
    if (event->type() != QEvent::SockAct)
        return QSocketNotifier::event(event);
    char byte = 0;
    if (::read(pipeEnds[0], &byte, 1) == 1)
        m_callback();
    return true;
}

SignalWatch::SignalWatch(const std::function<void()>& callback) : m_notifier(openPipe(), callback)
{
    Interruption::handle(tellEventLoop);
}

SignalWatch::~SignalWatch()
{
    Interruption::stopHandling();
    m_notifier.setEnabled(false);
    for (const int end : pipeEnds)
        ::close(end);
}

int SignalWatch::signal() const
{
    return lastWatchedSignal;
}
