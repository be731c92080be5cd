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

inline QStringList words(const char* line)
{
    return QString::fromUtf8(line).split(QLatin1Char(' '));
}

inline bool isOneLineAboutTool(const QByteArray& text)
{
    return text.startsWith("orvrtf: ") && text.endsWith('\n') && text.count('\n') == 1;
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
        const char* const displayVariables[] = {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"};
        for (const char* name : displayVariables)
            m_environment.remove(QString::fromLatin1(name));
        m_environment.insert(QLatin1String("LC_ALL"), QLatin1String("C.UTF-8"));
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
