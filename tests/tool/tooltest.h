#ifndef TOOLTEST_H
#define TOOLTEST_H

#include "conversionhelpers.h"
#include "testsupport.h"
#include "toolpaths.h"

#include <map>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

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

inline QStringList words(const Text& line)
{
    return line.text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/*! \a run failed, with no output and one line of error that has \a text in it. */
inline void verifyFailure(const ToolRun& run, const QByteArray& text)
{
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, QByteArray());
    QVERIFY2(run.err.startsWith("orvrtf: ") && run.err.contains(text), run.err.constData());
    QCOMPARE(run.err.indexOf('\n'), run.err.size() - 1);
}

/*! Picture data of one colour in the format \a type. */
inline QByteArray picture(const char* type, QRgb colour)
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray data;
    QBuffer buffer(&data);
    image.save(&buffer, type);
    return data;
}

/*! A picture of one colour, as a group in RTF. */
inline QByteArray pngGroup(QRgb colour)
{
    return "{\\pict\\pngblip " + picture("PNG", colour).toHex() + '}';
}

/*! The files of a test, by name, and what is in them. */
typedef std::map<QByteArray, QByteArray> Files;

/*! What the tests of the command line tool share: an empty folder for each, and runs of the tool in it. */
class ToolTest : public QObject {
    Q_OBJECT

protected slots:
    void init()
    {
        m_dir.reset(new QTemporaryDir);
        m_programs.reset(new QTemporaryDir);
        QVERIFY(m_dir->isValid() && m_programs->isValid());
        m_environment = QProcessEnvironment::systemEnvironment();
        for (const char* name :
             {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY", "LANGUAGE", "LC_MESSAGES", "LC_CTYPE", "LANG"})
            m_environment.remove(QLatin1String(name));
        m_environment.insert("LC_ALL"_s, "C.UTF-8"_s);
    }

protected:
    QString path(const Text& name) const { return m_dir->filePath(name); }

    /*! Writes a file, and makes the folder that it is in. */
    QString write(const Text& name, const QByteArray& data) const
    {
        QFile file(path(name));
        if (!QFileInfo(file).dir().mkpath("."_s) || !file.open(QIODevice::WriteOnly)
            || file.write(data) != data.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        return file.fileName();
    }

    void makeFolder(const Text& name) const { QVERIFY(QDir().mkpath(path(name))); }

    QByteArray read(const Text& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "no file " + name.text.toUtf8();
    }

    /*! Names of all that is in \a folder of the test's own, sorted. */
    QStringList files(const Text& folder = QString()) const
    {
        return QDir(path(folder))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    void start(QProcess& process, const QStringList& arguments,
               const QString& program = QString::fromUtf8(ORVRTF_TOOL)) const
    {
        process.setProcessEnvironment(m_environment);
        process.setWorkingDirectory(m_dir->path());
        process.start(program, arguments);
    }

    /*! Starts the tool after \a preparation by the shell. */
    void startByShell(QProcess& process, const QString& preparation, const QStringList& arguments) const
    {
        const QString script = preparation + "; exec \"$0\" \"$@\""_s;
        start(process, QStringList{"-c"_s, script, QString::fromUtf8(ORVRTF_TOOL)} + arguments, "/bin/sh"_s);
    }

    ToolRun finish(QProcess& process) const
    {
        process.closeWriteChannel();
        ToolRun result;
        if (!process.waitForFinished(120000))
            qFatal("orvrtf does not end");
        if (process.exitStatus() == QProcess::NormalExit)
            result.exitCode = process.exitCode();
        result.out = process.readAllStandardOutput();
        result.err = process.readAllStandardError();
        return result;
    }

    ToolRun run(const QStringList& arguments, const QByteArray& input = QByteArray()) const
    {
        QProcess process;
        start(process, arguments);
        process.write(input);
        return finish(process);
    }

    ToolRun run(const char* arguments, const QByteArray& input = QByteArray()) const
    {
        return run(words(arguments), input);
    }

    /*! Names of all that is in the folder of the test and below. */
    QStringList all() const
    {
        QStringList names;
        QDirIterator files(m_dir->path(),
                           QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                           QDirIterator::Subdirectories);
        while (files.hasNext())
            names << QDir(m_dir->path()).relativeFilePath(files.next());
        names.sort();
        return names;
    }

    /*! Names of \a files, and of the folders that they are in, as all() has them. */
    static QStringList withFolders(const Files& files)
    {
        QSet<QString> names;
        for (const auto& file : files) {
            for (QString name = QString::fromUtf8(file.first); name != "."_s; name = QFileInfo(name).path())
                names << name;
        }
        QStringList sorted = names.values();
        sorted.sort();
        return sorted;
    }

    /*! Runs the tool beside \a files; in the end there are these and \a outputs, which may replace some. */
    void verifyRun(const QByteArray& arguments, const Files& files, const QByteArray& input,
                   const ToolRun& expected, Files outputs) const
    {
        for (const auto& file : files)
            write(file.first.constData(), file.second);
        QCOMPARE(run(arguments.constData(), input), expected);
        outputs.insert(files.begin(), files.end());
        for (const auto& file : outputs)
            QCOMPARE(read(file.first.constData()), file.second);
        QCOMPARE(all(), withFolders(outputs));
    }

    /*! For rows of verifyRun(). */
    auto commandRows() const
    {
        return Rows([this](const QByteArray& arguments, const Files& files, const QByteArray& input,
                           const ToolRun& expected,
                           const Files& outputs) { verifyRun(arguments, files, input, expected, outputs); });
    }

    /*! Lets the tool find programs in a folder of the test only, and makes \a name there of \a commands. */
    void fake(const Text& name, const QByteArray& commands)
    {
        m_environment.insert("PATH"_s, m_programs->path());
        conversiontest::writeScript(m_programs->filePath(name), "PATH=/usr/bin:/bin\n" + commands);
    }

    /*! Makes an input that a conversion waits for as long as nobody writes it. */
    void makePipe(const Text& name) const
    {
        if (::mkfifo(QFile::encodeName(path(name)).constData(), 0600) != 0)
            qFatal("no named pipe");
    }

    int openPipe(const Text& name, int flags) const
    {
        return ::open(QFile::encodeName(path(name)).constData(), flags | O_CLOEXEC);
    }

    /*! Writes \a data into a pipe, and waits until all is read. */
    static void feed(int writer, const QByteArray& data)
    {
        QCOMPARE(::write(writer, data.constData(), size_t(data.size())), ssize_t(data.size()));
        int unread = -1;
        QTRY_VERIFY_WITH_TIMEOUT(::ioctl(writer, FIONREAD, &unread) == 0 && unread == 0, patience);
    }

    // Milliseconds that a process may need to come as far as it is to, on a busy computer.
    static const int patience = 30000;

    QScopedPointer<QTemporaryDir> m_dir;
    QScopedPointer<QTemporaryDir> m_programs;
    QProcessEnvironment m_environment;
};

#endif
