#include "BatchPlan.h"
#include "toolpaths.h"
#include "tooltest.h"

#include <csignal>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

// Milliseconds that a process may need to come as far as it is to, on a busy computer.
static const int patience = 30000;

namespace {

QByteArray rtf(const QByteArray& text)
{
    return "{\\rtf1 " + text + "}";
}

/*! A command line for a batch of \a arguments into the directory out, as plain text. */
QStringList batch(const char* arguments)
{
    return words("convert --output-dir out --to txt") + words(arguments);
}

/*!
    Writes the beginning of some RTF into a pipe: when all is read, a command has begun to write its output.
*/
bool feed(int writer)
{
    const QByteArray data = "{\\rtf1 " + QByteArray(30000, 'a');
    return ::write(writer, data.constData(), size_t(data.size())) == data.size();
}

/*! How many bytes wait in the pipe for their reader. */
int unread(int writer)
{
    int count = -1;
    return ::ioctl(writer, FIONREAD, &count) == 0 ? count : -1;
}

} // namespace

/*! Conversion of many files by one command. */
class TestToolBatch : public ToolTest {
    Q_OBJECT

private slots:
    ORV_ROWS(convertsAllFiles)
    {
        const Rows add([this](const QString& jobs) {
            QStringList arguments = words("convert --output-dir out --to txt");
            if (!jobs.isEmpty())
                arguments += words(jobs);
            QStringList expected;
            for (int i = 10; i < 20; ++i) {
                const QByteArray number = QByteArray::number(i);
                arguments << write(("in" + number + ".rtf").constData(), rtf("Text " + number));
                expected << QString::fromLatin1("in" + number + ".txt");
            }
            const ToolRun result = run(arguments);
            QCOMPARE(result.err, "orvrtf: 10 converted\n"_b);
            QCOMPARE(result.exitCode, 0);
            QCOMPARE(result.out, QByteArray());
            QCOMPARE(files("out"), expected);
            for (int i = 10; i < 20; ++i) {
                const QByteArray number = QByteArray::number(i);
                QCOMPARE(read(path(("out/in" + number + ".txt").constData())), "Text " + number + "\n");
            }
        });
        add("one after the other", "");
        add("one job", "--jobs 1");
        add("four jobs", "--jobs 4");
        add("more jobs than files", "--jobs 1000000");
        add("a job a processor", "--jobs 0");
        add("auto", "--jobs=auto");
        add("no time limit", "--timeout 0");
    }

    /*! As many conversions as were asked for are under way at the same time, and no more. */
    ORV_ROWS(conversionsAtTheSameTime)
    {
        const Rows add([this](const QString& jobs, int running) {
            const char* const pipes[] = {"1.rtf", "2.rtf", "3.rtf", "4.rtf"};
            for (const char* name : pipes)
                makePipe(name);
            QProcess process;
            start(process, batch("1.rtf 2.rtf 3.rtf 4.rtf") + words(jobs));
            QList<int> writers;
            for (int i = 0; i < running; ++i) {
                int writer = -1;
                QTRY_VERIFY_WITH_TIMEOUT(openWriter(pipes[i], &writer), patience);
                writers << writer;
            }
            for (int i = running; i < 4; ++i)
                QVERIFY(!isRead(pipes[i]));
            ::kill(pid_t(process.processId()), SIGTERM);
            finish(process);
            for (const int writer : writers)
                ::close(writer);
        });
        add("usual", "--keep-going", 1);
        add("three", "--jobs 3", 3);
        add("auto", "--jobs auto", qMin(4, QThread::idealThreadCount()));
        add("0", "--jobs 0", qMin(4, QThread::idealThreadCount()));
    }

    void makesDirectories()
    {
        write("in.rtf", rtf("Text"));
        const ToolRun result = run(words("convert in.rtf --to html --output-dir new/below/it"));
        QCOMPARE(result.err, "orvrtf: 1 converted\n"_b);
        QCOMPARE(files("new/below/it"), words("in.html"));
    }

    ORV_ROWS(outputNames)
    {
        const Rows add([this](const QString& input, const QString& to, const QString& output) {
            write(input.toUtf8().constData(), rtf("Text"));
            const ToolRun result = run({"convert"_s, "--output-dir=out"_s, "--to"_s, to, "--"_s, input});
            QCOMPARE(result.err, "orvrtf: 1 converted\n"_b);
            QCOMPARE(files("out"), QStringList(output));
            QVERIFY(read(path("out") + QLatin1Char('/') + output).contains("Text"));
        });
        add("suffix", "in.rtf", "txt", "in.txt");
        add("other spelling of the format", "in.rtf", "HTM", "in.htm");
        add("same suffix", "in.rtf", "rtf", "in.rtf");
        add("dots in the name", "in.2.rtf", "txt", "in.2.txt");
        add("no suffix", "README", "txt", "README.txt");
        add("hidden file", ".rtf", "txt", ".rtf.txt");
        add("spaces", " a  b .rtf", "txt", " a  b .txt");
        add("quotes", "it's \"so\" `x` $HOME.rtf", "txt", "it's \"so\" `x` $HOME.txt");
        add("line break", "a\nb.rtf", "txt", "a\nb.txt");
        add("placeholder", "%1 %2.rtf", "txt", "%1 %2.txt");
        add("leading dash", "-o.rtf", "txt", "-o.txt");
        add("like an option", "--to=html", "txt", "--to=html.txt");
        add("beyond ASCII", "\xc3\xa4 \xe2\x82\xac.rtf", "txt", "\xc3\xa4 \xe2\x82\xac.txt");
    }

    void passesOptionsOn()
    {
        write("in.html", "<a href=\"https://example.org/\">here</a>");
        const QStringList options = words("in.html --from html --to rtf --decorate-links --storage");
        QCOMPARE(run(words("convert --output-dir out") + options).exitCode, 0);
        QStringList single = options;
        single.insert(1, "single.rtf"_s);
        QCOMPARE(run(words("convert") + single).exitCode, 0);
        QCOMPARE(read(path("out/in.rtf")), read(path("single.rtf")));
        QCOMPARE(run(words("convert in.html plain.rtf")).exitCode, 0);
        QVERIFY(read(path("plain.rtf")) != read(path("single.rtf")));
    }

    /*! Among files that need no engine, only those that need one get it. */
    void engineGoesToFilesThatNeedIt()
    {
        write("in.rtf", rtf("Text"));
        write("letter.docx", "no document");
        const QStringList files = words("in.rtf letter.docx --keep-going");
        const ToolRun result = run(words("convert --output-dir out --to html --engine pandoc") + files);
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.err.contains("pandoc"), result.err.constData());
        QVERIFY2(result.err.endsWith("\norvrtf: 1 converted, 1 failed\n"), result.err.constData());
        QCOMPARE(this->files("out"), words("in.html"));
        const ToolRun unknown = run(words("convert --output-dir out --to html --engine abacus") + files);
        QCOMPARE(unknown.exitCode, 2);
        QVERIFY2(unknown.err.contains("\"abacus\""), unknown.err.constData());
    }

    ORV_ROWS(usageErrors)
    {
        const Rows add([this](const QString& arguments, const QByteArray& about) {
            write("in.rtf", rtf("Text"));
            write("in.html", "Text");
            QVERIFY(QDir(m_dir->path()).mkdir("a"_s));
            write("a/in.rtf", rtf("Text"));
            QVERIFY(QFile::link(path("a/in.html"), path("a/link.rtf")));
            write("a/in.html", "Text");
            const QStringList before = files();
            verifyRefusal(run(words("convert") + words(arguments)), about);
            QCOMPARE(files(), before);
            QCOMPARE(files("a"), words("in.html in.rtf link.rtf"));
            QCOMPARE(read(path("in.rtf")), rtf("Text"));
        });
        add("no input", "--output-dir out --to txt", "input files");
        add("no format", "in.rtf --output-dir out", "--to");
        add("unknown format", "in.rtf --output-dir out --to gif", "\"gif\"");
        add("no directory", "in.rtf --to txt --output-dir=", "--output-dir");
        add("standard input", "in.rtf - --output-dir out --to txt", "standard input");
        add("same input twice", "in.rtf in.rtf --output-dir out --to txt", "\"in.rtf\" and \"in.rtf\"");
        add("same name twice", "in.rtf a/in.rtf --output-dir out --to txt",
            "\"in.rtf\" and \"a/in.rtf\" would both become "
            "\"out/in.txt\"");
        add("other suffixes", "in.rtf in.html --output-dir out --to txt", "\"in.rtf\" and \"in.html\"");
        add("onto itself", "in.rtf --output-dir . --to rtf", "both input and output");
        add("onto itself, by another path", "a/../in.rtf --output-dir ./a/.. --to rtf",
            "both input and output");
        add("onto another input", "in.rtf a/link.rtf --output-dir a --to html", "both input and output");
        add("jobs not a number", "in.rtf --output-dir out --to txt --jobs many", "\"many\"");
        add("jobs below 0", "in.rtf --output-dir out --to txt --jobs=-1", "\"-1\"");
        add("jobs with a fraction", "in.rtf --output-dir out --to txt --jobs 1.5", "\"1.5\"");
        add("jobs empty", "in.rtf --output-dir out --to txt --jobs=", "--jobs");
        add("time not a number", "in.rtf --output-dir out --to txt --timeout 5m", "\"5m\"");
        add("time too long", "in.rtf --output-dir out --to txt --timeout 1000001", "\"1000001\"");
        add("RTF option for text", "in.rtf --output-dir out --to txt --storage", "--storage");
        add("engine for RTF", "in.rtf --output-dir out --to txt --engine pandoc", "--engine");
        add("jobs for one file", "in.rtf out.txt --jobs 2", "--jobs goes with");
        add("keep going for one file", "in.rtf out.txt --keep-going", "--keep-going goes with");
        add("time limit for one file", "in.rtf out.txt --timeout 2", "--timeout goes with");
    }

    /*! PNG is a file for each page: "a.png", "a-2.png" and so on, which no other input may become. */
    ORV_ROWS(picturesOfPages)
    {
        const Rows add([](const QString& output, bool isConflict) {
            const BatchFile pages{"a.rtf"_s, "a.png"_s, QStringList()};
            const BatchFile other{"other.rtf"_s, output, QStringList()};
            const QString expected =
                isConflict ? "\"a.rtf\" and \"other.rtf\" would both become \"%1\""_s.arg(output) : QString();
            QCOMPARE(batchConflict({pages, other}), expected);
            QCOMPARE(batchConflict({other, pages}), expected);
        });
        add("second page", "a-2.png", true);
        add("twelfth page", "a-12.png", true);
        add("no first page", "a-1.png", false);
        add("no page of a number below 0", "a--2.png", false);
        add("no number", "a-x.png", false);
        add("leading zero", "a-02.png", false);
        add("sign", "a-+2.png", false);
        add("page of another", "b-2.png", false);
        add("other format", "a-2.txt", false);
    }

    ORV_ROWS(failureAmongOthers)
    {
        const Rows add([this](const QString& options, const QByteArray& result, const QString& outputs) {
            writeFiles("acd");
            QCOMPARE(run(batch("a.rtf missing.rtf c.rtf d.rtf") + words(options)),
                     failure("orvrtf: cannot read missing.rtf: No such file or directory\norvrtf: " + result
                             + "\n"));
            QCOMPARE(files("out"), words(outputs));
        });
        add("stops at the first failure", "--timeout 300", "1 converted, 1 failed, 2 not tried", "a.txt");
        add("keeps going", "--keep-going --jobs 1", "3 converted, 1 failed", "a.txt c.txt d.txt");
        add("keeps going with four jobs", "--keep-going --jobs 4", "3 converted, 1 failed",
            "a.txt c.txt d.txt");
    }

    /*! A new output is told from an old one of the same name that a failure has left as it was. */
    void damagedFileIsWrittenAndCounted()
    {
        write("a.rtf", "{\\rtf1 kept}}");
        QVERIFY(QDir(m_dir->path()).mkdir("out"_s));
        write("out/a.txt", "old");
        write("out/missing.txt", "old");
        QCOMPARE(run(batch("--keep-going a.rtf missing.rtf")),
                 failure("orvrtf: a.rtf: Unmatched '{' in Rich Text file\n"
                         "orvrtf: cannot read missing.rtf: No such file or directory\n"
                         "orvrtf: 0 converted, 1 converted with errors, 1 failed\n"));
        QCOMPARE(read(path("out/a.txt")), "kept\n"_b);
        QCOMPARE(read(path("out/missing.txt")), "old"_b);
    }

    void directoryCannotBeMade()
    {
        write("in.rtf", rtf("Text"));
        verifyFailure(run(words("convert in.rtf --to txt --output-dir in.rtf/out")), "in.rtf/out");
    }

    void outputCannotBeWritten()
    {
        writeFiles("ab");
        QVERIFY(QDir(m_dir->path()).mkpath("out/a.txt"_s));
        const ToolRun result = run(batch("a.rtf b.rtf --keep-going"));
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.err.startsWith("orvrtf: cannot write out/a.txt: "), result.err.constData());
        QVERIFY2(result.err.endsWith("\norvrtf: 1 converted, 1 failed\n"), result.err.constData());
        QCOMPARE(files("out"), words("a.txt b.txt"));
    }

    void crashHurtsOneFile()
    {
        makePipe("a.rtf");
        write("b.rtf", rtf("b"));
        QProcess process;
        start(process, batch("a.rtf b.rtf --keep-going"));
        qint64 worker = 0;
        QTRY_VERIFY_WITH_TIMEOUT((worker = childOf(process.processId())) != 0, patience);
        QCOMPARE(::kill(pid_t(worker), SIGKILL), 0);
        QCOMPARE(finish(process),
                 failure("orvrtf: cannot convert a.rtf: the conversion crashed\n"
                         "orvrtf: 1 converted, 1 failed\n"));
        QCOMPARE(files("out"), words("b.txt"));
    }

    void hangHurtsOneFile()
    {
        makePipe("a.rtf");
        write("b.rtf", rtf("b"));
        QCOMPARE(run(batch("a.rtf b.rtf --keep-going --timeout 5")),
                 failure("orvrtf: cannot convert a.rtf: not done within 5 seconds\n"
                         "orvrtf: 1 converted, 1 failed\n"));
        QCOMPARE(files("out"), words("b.txt"));
    }

    ORV_ROWS(interruptionLeavesWholeFilesOnly)
    {
        const Rows add([this](int signal) {
            write("a.rtf", rtf("a"));
            makePipe("b.rtf");
            write("c.rtf", rtf("c"));
            QProcess process;
            const int writer = startReading(process, batch("a.rtf b.rtf c.rtf --keep-going"), "b.rtf");
            QCOMPARE(::kill(pid_t(process.processId()), signal), 0);
            const ToolRun result = finish(process);
            ::close(writer);
            QCOMPARE(result.err, "orvrtf: 1 converted, 1 interrupted, 1 not tried\n"_b);
            QCOMPARE(process.exitStatus(), QProcess::CrashExit);
            QCOMPARE(files("out"), words("a.txt"));
            QCOMPARE(read(path("out/a.txt")), "a\n"_b);
            // The conversion has ended with the program.
            QTRY_VERIFY_WITH_TIMEOUT(!isRead("b.rtf"), patience);
        });
        add("SIGHUP", SIGHUP);
        add("SIGINT", SIGINT);
        add("SIGTERM", SIGTERM);
    }

    /*! As in a terminal, where the signal reaches the conversions as well. */
    void interruptionOfAllProcesses()
    {
        makePipe("a.rtf");
        write("b.rtf", rtf("b"));
        QProcess process;
        const int writer = startReading(process, batch("a.rtf b.rtf --keep-going"), "a.rtf");
        const qint64 worker = childOf(process.processId());
        QVERIFY(worker != 0);
        // While it is stopped the program gets both, the signal and the end of the conversion, in any order.
        QCOMPARE(::kill(pid_t(process.processId()), SIGSTOP), 0);
        QCOMPARE(::kill(pid_t(worker), SIGINT), 0);
        QCOMPARE(::kill(pid_t(process.processId()), SIGINT), 0);
        QCOMPARE(::kill(pid_t(process.processId()), SIGCONT), 0);
        const ToolRun result = finish(process);
        ::close(writer);
        QCOMPARE(result.err, "orvrtf: 0 converted, 1 interrupted, 1 not tried\n"_b);
        QCOMPARE(process.exitStatus(), QProcess::CrashExit);
        QCOMPARE(files("out"), QStringList());
    }

    /*! What was being written is removed, and what was there before stays. */
    ORV_ROWS(interruptedSingleConversion)
    {
        const Rows add([this](int signal, bool isNamed) {
            makePipe("in.rtf");
            write("out.rtf", "old");
            if (isNamed)
                m_environment.insert("LD_PRELOAD"_s, QString::fromUtf8(NAMED_TEMP_FILES));
            QProcess process;
            const int writer = startReading(process, words("strip in.rtf out.rtf"), "in.rtf");
            QVERIFY(feed(writer));
            QTRY_COMPARE_WITH_TIMEOUT(unread(writer), 0, patience);
            QVERIFY(!isNamed || files().size() == 3);
            QCOMPARE(::kill(pid_t(process.processId()), signal), 0);
            finish(process);
            ::close(writer);
            QCOMPARE(process.exitStatus(), QProcess::CrashExit);
            QCOMPARE(files(), words("in.rtf out.rtf"));
            QCOMPARE(read(path("out.rtf")), "old"_b);
        });
        add("SIGHUP", SIGHUP, true);
        add("SIGINT", SIGINT, true);
        add("SIGTERM", SIGTERM, true);
        add("file without a name", SIGINT, false);
    }

    /*! Programs in the background of a shell are started so. */
    void ignoredSignalStaysIgnored()
    {
        makePipe("in.rtf");
        QProcess process;
        process.setProcessEnvironment(m_environment);
        process.setWorkingDirectory(m_dir->path());
        process.start(
            "/bin/sh"_s,
            {"-c"_s, "trap '' INT; exec \"$0\" strip in.rtf out.rtf"_s, QString::fromUtf8(ORVRTF_TOOL)});
        int writer = -1;
        QTRY_VERIFY_WITH_TIMEOUT(openWriter("in.rtf", &writer), patience);
        QVERIFY(feed(writer));
        QTRY_COMPARE_WITH_TIMEOUT(unread(writer), 0, patience);
        QCOMPARE(::kill(pid_t(process.processId()), SIGINT), 0);
        ::close(writer);
        // The end of the group is missing, which does not matter here.
        QCOMPARE(finish(process).exitCode, 0);
        QCOMPARE(files(), words("in.rtf out.rtf"));
    }

    /*! The program that converts for us is ended, too, and its folder is removed. */
    void interruptedEngine()
    {
        QVERIFY(QDir(m_dir->path()).mkdir("bin"_s));
        QVERIFY(QDir(m_dir->path()).mkdir("temp"_s));
        const QString engine = write("bin/pandoc", "#!/bin/sh\ncat '" + path("wait").toUtf8() + "'\n");
        QVERIFY(QFile::setPermissions(engine, QFile::ReadOwner | QFile::ExeOwner));
        makePipe("wait");
        write("in.docx", "document");
        m_environment.insert("TMPDIR"_s, path("temp"));
        m_environment.insert("PATH"_s, path("bin:") + m_environment.value("PATH"_s));
        const auto foldersOfEngines = [this] { return files("temp").filter("orvrtf-"_s); };
        QProcess process;
        const int writer = startReading(process, words("convert in.docx out.txt --engine pandoc"), "wait");
        QCOMPARE(foldersOfEngines().size(), 1);
        QCOMPARE(::kill(pid_t(process.processId()), SIGTERM), 0);
        finish(process);
        ::close(writer);
        QCOMPARE(process.exitStatus(), QProcess::CrashExit);
        QTRY_VERIFY_WITH_TIMEOUT(!isRead("wait"), patience);
        QCOMPARE(foldersOfEngines().size(), 0);
        QCOMPARE(files(), words("bin in.docx temp wait"));
    }

    /*! The bar is drawn in place, taken away for the line of an error, and in the end. */
    void barOnTerminal()
    {
        m_environment.insert("TERM"_s, "xterm"_s);
        write("b.rtf", rtf("b"));
        const QByteArray text = onTerminal(batch("missing.rtf b.rtf --keep-going"), 40);
        QCOMPARE(text,
                 "\r[" + QByteArray(33, '.') + "] 0/2\x1b[K" + "\r\x1b[K"
                     + "orvrtf: cannot read missing.rtf: No such file or directory\r\n" + "\r["
                     + QByteArray(16, '#') + QByteArray(17, '.') + "] 1/2\x1b[K" + "\r[" + QByteArray(33, '#')
                     + "] 2/2\x1b[K" + "\r\x1b[K" + "orvrtf: 1 converted, 1 failed\r\n");
    }

    ORV_ROWS(barFitsTerminal)
    {
        const Rows add([this](const ushort& columns, const QByteArray& full) {
            m_environment.insert("TERM"_s, "xterm"_s);
            write("a.rtf", rtf("a"));
            const QByteArray text = onTerminal(batch("a.rtf"), columns);
            const QByteArray end = "\r" + full + "\x1b[K\r\x1b[Korvrtf: 1 converted\r\n";
            QCOMPARE(text.right(end.size()), end);
        });
        add("no room for a bar", ushort(9), "1/1");
        add("smallest bar", ushort(10), "[###] 1/1");
        add("wide terminal", ushort(500), '[' + QByteArray(48, '#') + "] 1/1");
        add("unknown width", ushort(0), '[' + QByteArray(48, '#') + "] 1/1");
    }

    void noBarOnDumbTerminal()
    {
        m_environment.insert("TERM"_s, "dumb"_s);
        write("a.rtf", rtf("a"));
        QCOMPARE(onTerminal(batch("a.rtf"), 80), "orvrtf: 1 converted\r\n"_b);
    }

private:
    /*! Writes for each of \a names, which are letters, an RTF file with the name as text. */
    void writeFiles(const char* names) const
    {
        for (const char* name = names; *name != '\0'; ++name)
            write((*name + ".rtf"_b).constData(), rtf(QByteArray(1, *name)));
    }

    /*! Makes an input that a conversion waits for as long as nobody writes it. */
    void makePipe(const char* name) const
    {
        if (::mkfifo(QFile::encodeName(path(name)).constData(), 0600) != 0)
            qFatal("no named pipe");
    }

    /*! Opens \a pipe for writing, unless that is done; this works only while somebody reads it. */
    bool openWriter(const char* pipe, int* writer) const
    {
        if (*writer < 0)
            *writer = ::open(QFile::encodeName(path(pipe)).constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        return *writer >= 0;
    }

    /*! Starts the tool, and opens \a pipe for writing as soon as the tool reads it. */
    int startReading(QProcess& process, const QStringList& arguments, const char* pipe) const
    {
        start(process, arguments);
        int writer = -1;
        if (!QTest::qWaitFor([&] { return openWriter(pipe, &writer); }, patience))
            qFatal("%s is not read", pipe);
        return writer;
    }

    bool isRead(const char* pipe) const
    {
        int writer = -1;
        const bool isOpen = openWriter(pipe, &writer);
        ::close(writer);
        return isOpen;
    }

    /*! The id of a process that \a process has started; 0 while there is none. */
    qint64 childOf(qint64 process) const
    {
        QFile list("/proc/%1/task/%1/children"_s.arg(process));
        if (!list.open(QIODevice::ReadOnly))
            return 0;
        return list.readAll().split(' ').constFirst().toLongLong();
    }

    /*! What the tool writes to a terminal of \a columns columns that is its standard error. */
    QByteArray onTerminal(const QStringList& arguments, unsigned short columns)
    {
        const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
        if (terminal < 0 || ::grantpt(terminal) != 0 || ::unlockpt(terminal) != 0)
            qFatal("no terminal");
        const QByteArray name = ::ptsname(terminal);
        // Without a program at the other end, what is written could get lost.
        const int otherEnd = ::open(name.constData(), O_RDWR | O_NOCTTY | O_CLOEXEC);
        const struct winsize size = {24, columns, 0, 0};
        ::ioctl(terminal, TIOCSWINSZ, &size);
        QProcess process;
        process.setStandardErrorFile(QString::fromLatin1(name));
        start(process, arguments);
        finish(process);
        ::close(otherEnd);
        QByteArray text;
        char part[4096];
        ssize_t length = 0;
        while ((length = ::read(terminal, part, sizeof(part))) > 0)
            text.append(part, int(length));
        ::close(terminal);
        return text;
    }
};

ORV_TEST("tool_batch", TestToolBatch, QCoreApplication)
#include "batch.moc"
