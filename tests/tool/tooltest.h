#ifndef TOOLTEST_H
#define TOOLTEST_H

#include "testsupport.h"
#include "toolpaths.h"

/*! What a run of the tool ended with. */
struct ToolRun {
    int exitCode = -1;
    QByteArray out;
    QByteArray err;
};

inline bool operator==(const ToolRun& left, const ToolRun& right)
{
    return left.exitCode == right.exitCode && left.out == right.out && left.err == right.err;
}

/*! How QCOMPARE shows a run. */
inline char* toString(const ToolRun& run)
{
    const QByteArray text = "exit code " + QByteArray::number(run.exitCode) + ", output \"" + run.out
        + "\", errors \"" + run.err + '"';
    return qstrdup(text.constData());
}

/*! A run that wrote \a out to the standard output, and nothing else. */
inline ToolRun success(const QByteArray& out = QByteArray())
{
    return {0, out, QByteArray()};
}

/*! A run that failed and wrote \a err to the standard error, and nothing else. */
inline ToolRun failure(const QByteArray& err)
{
    return {1, QByteArray(), err};
}

/*! A run with a command line that the tool refused with \a message. */
inline ToolRun refusal(const QByteArray& message)
{
    return {2, QByteArray(), "orvrtf: " + message + "; see orvrtf --help\n"};
}

/*! Waits for the end of the tool. */
inline ToolRun finished(QProcess& process)
{
    ToolRun result;
    if (!process.waitForFinished(120000))
        qFatal("orvrtf does not end");
    if (process.exitStatus() == QProcess::NormalExit)
        result.exitCode = process.exitCode();
    result.out = process.readAllStandardOutput();
    result.err = process.readAllStandardError();
    return result;
}

inline QStringList words(const QString& line)
{
    return line.split(QLatin1Char(' '));
}

inline QStringList words(const char* line)
{
    return words(QString::fromUtf8(line));
}

inline bool isOneLineAboutTool(const QByteArray& text)
{
    return text.startsWith("orvrtf: ") && text.endsWith('\n') && text.count('\n') == 1;
}

/*! \a run ended with \a exitCode, no output and one line of error that has \a text in it. */
inline void verifyError(const ToolRun& run, int exitCode, const QByteArray& text)
{
    QCOMPARE(run.exitCode, exitCode);
    QCOMPARE(run.out, QByteArray());
    QVERIFY2(isOneLineAboutTool(run.err), run.err.constData());
    QVERIFY2(run.err.contains(text), run.err.constData());
}

inline void verifyFailure(const ToolRun& run, const QByteArray& text)
{
    verifyError(run, 1, text);
}

/*! \a run was refused for its command line, with a message that has \a text in it. */
inline void verifyRefusal(const ToolRun& run, const QByteArray& text)
{
    verifyError(run, 2, text);
    QVERIFY2(run.err.endsWith("see orvrtf --help\n"), run.err.constData());
}

/*! What the tests of the command line tool share: an empty folder for each, and runs of the tool in it. */
class ToolTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_dir.reset(new QTemporaryDir);
        QVERIFY(m_dir->isValid());
        m_environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            m_environment.remove(QLatin1String(name));
        m_environment.insert("LC_ALL"_s, "C.UTF-8"_s);
    }

protected:
    QString path(const char* name) const { return m_dir->filePath(QString::fromUtf8(name)); }

    QString write(const char* name, const QByteArray& data) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        return file.fileName();
    }

    QByteArray read(const QString& path) const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file ") + path.toUtf8();
    }

    /*! Names of all that is in \a folder of the test's own, sorted. */
    QStringList files(const char* folder = "") const
    {
        return QDir(path(folder))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    void start(QProcess& process, const QStringList& arguments) const
    {
        process.setProcessEnvironment(m_environment);
        process.setWorkingDirectory(m_dir->path());
        process.start(QString::fromUtf8(ORVRTF_TOOL), arguments);
    }

    ToolRun finish(QProcess& process) const
    {
        process.closeWriteChannel();
        return finished(process);
    }

    ToolRun run(const QStringList& arguments, const QByteArray& input = QByteArray()) const
    {
        QProcess process;
        start(process, arguments);
        process.write(input);
        return finish(process);
    }

    QScopedPointer<QTemporaryDir> m_dir;
    QProcessEnvironment m_environment;
};

#endif
