#include "Worker.h"

#include "Messages.h"
#include "Streams.h"

#include <sys/stat.h>

namespace {

// Milliseconds that a process gets to clear up in, when it is told to end.
const int endTimeout = 5000;

} // namespace

Worker::FileId::FileId(const QString& path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) == 0) {
        device = status.st_dev;
        node = status.st_ino;
    }
}

Worker::Worker(const QString& program, const QProcessEnvironment& environment, int timeout)
    : m_program(program), m_timeout(timeout)
{
    m_process.setProcessEnvironment(environment);
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_process, [this] { timeOut(); });
    QObject::connect(
        &m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), &m_process,
        [this](int exitCode, QProcess::ExitStatus status) { processFinished(exitCode, status); },
        Qt::QueuedConnection);
    // Queued, as starting a process may fail before start() returns.
    QObject::connect(
        &m_process, &QProcess::errorOccurred, &m_process,
        [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                fail(m_process.errorString());
        },
        Qt::QueuedConnection);
}

Worker::~Worker()
{
    m_process.disconnect();
}

void Worker::start(const BatchFile& file, const Callback& finished)
{
    m_file = file;
    m_finished = finished;
    m_oldOutput = FileId(file.output);
    m_isRunning = true;
    m_isStopped = false;
    m_isTimedOut = false;
    if (m_timeout > 0)
        m_timer.start(m_timeout * 1000);
    const QStringList files{QLatin1String("--"), file.input, file.output};
    m_process.start(m_program, QStringList(QLatin1String("convert")) + file.options + files);
}

void Worker::stop()
{
    if (!m_isRunning)
        return;
    m_isStopped = true;
    m_process.terminate();
    m_timer.start(endTimeout);
}

void Worker::timeOut()
{
    if (m_isStopped || m_isTimedOut) {
        m_process.kill();
        return;
    }
    m_isTimedOut = true;
    m_process.terminate();
    m_timer.start(endTimeout);
}

void Worker::processFinished(int exitCode, QProcess::ExitStatus status)
{
    const QByteArray printed = m_process.readAllStandardError();
    const bool hasExited = status == QProcess::NormalExit;
    if (hasExited && exitCode == 0)
        end(Converted, printed);
    else if (m_isTimedOut)
        fail(Messages::tr("not done within %1 seconds").arg(m_timeout));
    else if (m_isStopped)
        end(Stopped);
    else if (!hasExited)
        fail(Messages::tr("the conversion crashed"));
    else if (printed.isEmpty())
        fail(Messages::tr("exit status %1").arg(exitCode));
    else
        end(FileId(m_file.output) == m_oldOutput ? Failed : ConvertedWithErrors, printed);
}

void Worker::fail(const QString& reason)
{
    end(Failed, errorLine(Messages::tr("cannot convert %1: %2").arg(m_file.input, reason)));
}

void Worker::end(Outcome outcome, const QByteArray& message)
{
    m_timer.stop();
    m_isRunning = false;
    m_outcome = outcome;
    m_message = message;
    // A copy, as the callback may start the next conversion.
    const Callback finished = m_finished;
    finished(*this);
}
