#include "ORVToolProcess_p.h"

#include "QtStringCompat_p.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QProcessEnvironment>

#ifdef Q_OS_UNIX
#include <csignal>
#include <unistd.h>
#endif

namespace {

const char* const homeFolder = "home";
const char* const temporaryFolder = "temp";
const char* const errorFile = "errors.txt";

// Bytes of the error output that are kept. The reason of a failure is at its end.
const qint64 maxErrorOutput = 2000;

// Milliseconds to wait for a killed process. Only the kernel can delay its end.
const int killTimeout = 5000;

QProcessEnvironment environment(const QString& home, const QString& temporary)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS",
                                   "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
        environment.remove(QLatin1String(name));
    environment.insert(QLatin1String("HOME"), home);
    environment.insert(QLatin1String("XDG_RUNTIME_DIR"), home);
    for (const char* const name : {"TMPDIR", "TMP", "TEMP"})
        environment.insert(QLatin1String(name), temporary);
    // In the "C" locale LibreOffice takes paths beyond ASCII for others, and would write there.
    environment.insert(QLatin1String("LC_ALL"), QLatin1String("C.UTF-8"));
    return environment;
}

/*! The file that is always empty and takes everything. */
QString nullDevice()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 2, 0)
    return QProcess::nullDevice();
#elif defined(Q_OS_WIN)
    return QLatin1String("NUL");
#else
    return QLatin1String("/dev/null");
#endif
}

/*! The system's number of \a process, which is running. */
qint64 processId(const QProcess& process)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 3, 0)
    return process.processId();
#elif defined(Q_OS_WIN)
    return process.pid()->dwProcessId;
#else
    return process.pid();
#endif
}

/*! A process that leads a process group of its own, where the system has such, see killGroup(). */
class GroupProcess : public QProcess {
#ifdef Q_OS_UNIX
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
public:
    GroupProcess()
    {
        setChildProcessModifier([] { ::setpgid(0, 0); });
    }
#else
protected:
    void setupChildProcess() override
    {
        ::setpgid(0, 0);
    }
#endif
#endif
};

/*! Kills what is left of the process group of \a leader, which may have ended: all that it started. */
void killGroup(qint64 leader)
{
#ifdef Q_OS_UNIX
    if (leader > 1)
        ::kill(-pid_t(leader), SIGKILL);
#else
    Q_UNUSED(leader);
#endif
}

} // namespace

ORVToolProcess::Outcome ORVToolProcess::run(const QStringList& arguments, int timeout)
{
    const QDir dir(m_folder);
    dir.mkdir(QLatin1String(homeFolder));
    dir.mkdir(QLatin1String(temporaryFolder));
    GroupProcess process;
    process.setWorkingDirectory(m_folder);
    process.setProcessEnvironment(environment(path(homeFolder), path(temporaryFolder)));
    process.setStandardInputFile(nullDevice());
    process.setStandardOutputFile(nullDevice());
    process.setStandardErrorFile(path(errorFile));
    process.start(m_program, arguments);
    if (!process.waitForStarted(-1)) {
        m_errorOutput = process.errorString();
        return NotStarted;
    }
    const qint64 id = processId(process);
    const bool isFinished = process.waitForFinished(timeout > 0 ? timeout : -1);
    killGroup(id);
    if (!isFinished) {
        process.kill();
        process.waitForFinished(killTimeout);
    }
    m_errorOutput = printedErrors();
    if (!isFinished)
        return TimedOut;
    if (process.exitStatus() == QProcess::CrashExit)
        return Crashed;
    m_exitCode = process.exitCode();
    return m_exitCode == 0 ? Succeeded : Failed;
}

QString ORVToolProcess::path(const char* name) const
{
    return QDir(m_folder).absoluteFilePath(QLatin1String(name));
}

QString ORVToolProcess::printedErrors() const
{
    QFile file(path(errorFile));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    file.seek(qMax(qint64(0), file.size() - maxErrorOutput));
    return compat::fromUtf8(file.read(maxErrorOutput)).trimmed();
}
