#include "BatchPlan.h"
#include "tooltest.h"

#include <csignal>

namespace {

QByteArray rtf(const QByteArray& text)
{
    return "{\\rtf1 " + text + "}";
}

/*! A command line for a batch of \a arguments into the directory out, as plain text. */
QStringList batch(const Text& arguments)
{
    return words("convert --output-dir out --to txt") + words(arguments);
}

/*! The end by a signal, after \a err. */
ToolRun interruption(const QByteArray& err = QByteArray())
{
    return {-1, QByteArray(), err};
}

/*! The end of a batch that went well, with \a summary as its last line. */
ToolRun batchSuccess(const QByteArray& summary)
{
    return {0, QByteArray(), "orvrtf: " + summary + '\n'};
}

/*! A bar of \a done and \a left parts, as it is drawn in place, and its removal. */
QByteArray bar(int done, int left, const QByteArray& numbers)
{
    return "\r[" + QByteArray(done, '#') + QByteArray(left, '.') + "] " + numbers + "\x1b[K";
}

const char* const NoBar = "\r\x1b[K";

} // namespace

/*! Conversion of many files by one command. */
class TestToolBatch : public ToolTest {
    Q_OBJECT

private slots:
    ORV_ROWS(batches)
    {
        const auto add = commandRows();
        const auto row = [&](const QByteArray& name, const QByteArray& arguments, const Files& files,
                             const ToolRun& expected, const Files& outputs) {
            add(name, "convert --to txt --output-dir " + arguments, files, "", expected, outputs);
        };
        Files inputs;
        Files outputs;
        QByteArray many = "out";
        for (int i = 10; i < 20; ++i) {
            const QByteArray number = QByteArray::number(i);
            inputs["in" + number + ".rtf"] = rtf("Text " + number);
            outputs["out/in" + number + ".txt"] = "Text " + number + "\n";
            many += " in" + number + ".rtf";
        }
        for (const char* option :
             {"", "--jobs 1", "--jobs 4", "--jobs 1000000", "--jobs 0", "--jobs=auto", "--timeout 0"})
            row("ten files "_b + option, many + ' ' + option, inputs, batchSuccess("10 converted"), outputs);
        row("folders are made", "new/below/it a.rtf", letters("a"), batchSuccess("1 converted"),
            {{"new/below/it/a.txt", "a\n"}});
        row("folder cannot be made", "a.rtf/out a.rtf", letters("a"),
            failure("orvrtf: cannot make the directory a.rtf/out\n"), {});

        const QByteArray missing = "orvrtf: cannot read missing.rtf: No such file or directory\n";
        const Files converted = {{"out/a.txt", "a\n"}, {"out/c.txt", "c\n"}, {"out/d.txt", "d\n"}};
        row("stops at the first failure", "out a.rtf missing.rtf c.rtf d.rtf --timeout 300", letters("acd"),
            failure(missing + "orvrtf: 1 converted, 1 failed, 2 not tried\n"), {{"out/a.txt", "a\n"}});
        for (const char* jobs : {"1", "4"})
            row("keeps going, jobs: "_b + jobs,
                "out a.rtf missing.rtf c.rtf d.rtf --keep-going --jobs "_b + jobs, letters("acd"),
                failure(missing + "orvrtf: 3 converted, 1 failed\n"), converted);
        // A new output is told from an old one of the same name that a failure has left as it was.
        row("damaged file is written and counted", "out --keep-going a.rtf missing.rtf",
            {{"a.rtf", "{\\rtf1 kept}}"}, {"out/a.txt", "old"}, {"out/missing.txt", "old"}},
            failure("orvrtf: a.rtf: Unmatched '{' in Rich Text file\n" + missing
                    + "orvrtf: 0 converted, 1 converted with errors, 1 failed\n"),
            {{"out/a.txt", "kept\n"}});
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
            for (int i = 0; i < running; ++i)
                writers << openReadPipe(pipes[i]);
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

    ORV_ROWS(outputNames)
    {
        const Rows add([this](const QString& input, const QString& to, const QString& output) {
            write(input, rtf("Text"));
            QCOMPARE(run({"convert"_s, "--output-dir=out"_s, "--to"_s, to, "--"_s, input}),
                     batchSuccess("1 converted"));
            QCOMPARE(files("out"), QStringList(output));
            QVERIFY(read("out/" + output).contains("Text"));
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
        const QString input = write("in.html", "<a href=\"https://example.org/\">here</a>");
        const QStringList options = words("--from html --to rtf --decorate-links --storage");
        QCOMPARE(run(words("convert --output-dir out") + options + QStringList(input)),
                 batchSuccess("1 converted"));
        QCOMPARE(run(words("convert in.html single.rtf") + options), success());
        QCOMPARE(read("out/in.rtf"), read("single.rtf"));
        QCOMPARE(run("convert in.html plain.rtf"), success());
        QVERIFY(read("plain.rtf") != read("single.rtf"));
    }

    /*! Among files that are no RTF, only RTF is read in its storage form. */
    void storageGoesToRtf()
    {
        write("a.rtf", "{\\rtf1 shown{\\v  hidden}}");
        write("b.html", "text");
        QCOMPARE(run("convert --output-dir out --to txt --storage a.rtf b.html"),
                 batchSuccess("2 converted"));
        QCOMPARE(read("out/a.txt"), QByteArray("shown hidden\n"));
        QCOMPARE(read("out/b.txt"), QByteArray("text\n"));
    }

    /*! Among files that need no engine, only those that need one get it. */
    void engineGoesToFilesThatNeedIt()
    {
        write("in.rtf", rtf("Text"));
        write("letter.docx", "no document");
        const ToolRun result =
            run("convert --output-dir out --to html --engine pandoc in.rtf letter.docx --keep-going");
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.err.contains("pandoc"), result.err.constData());
        QVERIFY2(result.err.endsWith("\norvrtf: 1 converted, 1 failed\n"), result.err.constData());
        QCOMPARE(files("out"), words("in.html"));
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

    void outputCannotBeWritten()
    {
        writeFiles("ab");
        makeFolder("out/a.txt");
        const ToolRun result = run(batch("a.rtf b.rtf --keep-going"));
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.err.startsWith("orvrtf: cannot write out/a.txt: "), result.err.constData());
        QVERIFY2(result.err.endsWith("\norvrtf: 1 converted, 1 failed\n"), result.err.constData());
        QCOMPARE(files("out"), words("a.txt b.txt"));
    }

    ORV_ROWS(hurtsOneFile)
    {
        const Rows add([this](const QString& options, bool isKilled, const QByteArray& reason) {
            makePipe("a.rtf");
            writeFiles("b");
            QProcess process;
            start(process, batch("a.rtf b.rtf --keep-going") + words(options));
            qint64 worker = 0;
            QTRY_VERIFY_WITH_TIMEOUT((worker = childOf(process.processId())) != 0, patience);
            if (isKilled)
                QCOMPARE(::kill(pid_t(worker), SIGKILL), 0);
            QCOMPARE(
                finish(process),
                failure("orvrtf: cannot convert a.rtf: " + reason + "\norvrtf: 1 converted, 1 failed\n"));
            QCOMPARE(files("out"), words("b.txt"));
        });
        add("crash", "", true, "the conversion crashed");
        add("hang", "--timeout 5", false, "not done within 5 seconds");
    }

    ORV_ROWS(interruptionLeavesWholeFilesOnly)
    {
        const Rows add([this](int signal) {
            writeFiles("ac");
            makePipe("b.rtf");
            QProcess process;
            const int writer = startReading(process, batch("a.rtf b.rtf c.rtf --keep-going"), "b.rtf");
            QCOMPARE(interrupt(process, writer, signal),
                     interruption("orvrtf: 1 converted, 1 interrupted, 1 not tried\n"));
            QCOMPARE(files("out"), words("a.txt"));
            QCOMPARE(read("out/a.txt"), "a\n"_b);
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
        writeFiles("b");
        QProcess process;
        const int writer = startReading(process, batch("a.rtf b.rtf --keep-going"), "a.rtf");
        const qint64 worker = childOf(process.processId());
        QVERIFY(worker != 0);
        // While it is stopped the program gets both, the signal and the end of the conversion, in any order.
        QCOMPARE(::kill(pid_t(process.processId()), SIGSTOP), 0);
        QCOMPARE(::kill(pid_t(worker), SIGINT), 0);
        QCOMPARE(::kill(pid_t(process.processId()), SIGINT), 0);
        QCOMPARE(interrupt(process, writer, SIGCONT),
                 interruption("orvrtf: 0 converted, 1 interrupted, 1 not tried\n"));
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
            feed(writer, beginning());
            QVERIFY(!isNamed || files().size() == 3);
            QCOMPARE(interrupt(process, writer, signal), interruption());
            QCOMPARE(files(), words("in.rtf out.rtf"));
            QCOMPARE(read("out.rtf"), "old"_b);
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
        startByShell(process, "trap '' INT"_s, words("strip in.rtf out.rtf"));
        const int writer = openReadPipe("in.rtf");
        feed(writer, beginning());
        QCOMPARE(::kill(pid_t(process.processId()), SIGINT), 0);
        ::close(writer);
        // The end of the group is missing, which does not matter here.
        QCOMPARE(finish(process), success());
        QCOMPARE(files(), words("in.rtf out.rtf"));
    }

    /*! The program that converts for us is ended, too, and its folder is removed. */
    ORV_ROWS(interruptedEngine)
    {
        const Rows add([this](const QString& program, const QString& in, const QString& arguments) {
            fake(program, "cat '" + path("wait").toUtf8() + "'");
            makeFolder("temp");
            makePipe("wait");
            write(in, "{\\rtf1 document}");
            m_environment.insert("TMPDIR"_s, path("temp"));
            const auto foldersOfEngines = [this] { return files("temp").filter("orvrtf-"_s); };
            QProcess process;
            const int writer = startReading(process, words(arguments), "wait");
            QVERIFY(!foldersOfEngines().isEmpty());
            QCOMPARE(interrupt(process, writer, SIGTERM), interruption());
            QTRY_VERIFY_WITH_TIMEOUT(!isRead("wait"), patience);
            QCOMPARE(foldersOfEngines().size(), 0);
            QCOMPARE(files(), QStringList({in, "temp"_s, "wait"_s}));
        });
        add("reading", "pandoc", "in.docx", "convert in.docx out.txt --engine pandoc");
        add("writing", "soffice", "in.rtf", "convert in.rtf out.odt --engine libreoffice");
    }

    /*! The bar is drawn in place, taken away for the line of an error, and in the end. */
    ORV_ROWS(terminal)
    {
        const Rows add(
            [this](const QString& kind, int columns, const QString& inputs, const QByteArray& expected) {
                m_environment.insert("TERM"_s, kind);
                writeFiles("a");
                QCOMPARE(onTerminal(batch(inputs), columns), expected);
            });
        const QByteArray end = NoBar + "orvrtf: 1 converted\r\n"_b;
        add("bar with an error", "xterm", 40, "missing.rtf a.rtf --keep-going",
            bar(0, 33, "0/2") + NoBar + "orvrtf: cannot read missing.rtf: No such file or directory\r\n"
                + bar(16, 17, "1/2") + bar(33, 0, "2/2") + NoBar + "orvrtf: 1 converted, 1 failed\r\n");
        add("no room for a bar", "xterm", 9, "a.rtf", "\r0/1\x1b[K\r1/1\x1b[K" + end);
        add("smallest bar", "xterm", 10, "a.rtf", bar(0, 3, "0/1") + bar(3, 0, "1/1") + end);
        add("wide terminal", "xterm", 500, "a.rtf", bar(0, 48, "0/1") + bar(48, 0, "1/1") + end);
        add("unknown width", "xterm", 0, "a.rtf", bar(0, 48, "0/1") + bar(48, 0, "1/1") + end);
        add("dumb terminal", "dumb", 80, "a.rtf", "orvrtf: 1 converted\r\n");
    }

private:
    /*! For each of \a names, which are letters, an RTF file with the name as text. */
    static Files letters(const char* names)
    {
        Files files;
        for (const char* name = names; *name != '\0'; ++name)
            files[*name + ".rtf"_b] = rtf(QByteArray(1, *name));
        return files;
    }

    void writeFiles(const char* names) const
    {
        for (const auto& file : letters(names))
            write(file.first.constData(), file.second);
    }

    /*! The beginning of some RTF: when all is read, a command has begun to write its output. */
    static QByteArray beginning() { return "{\\rtf1 " + QByteArray(30000, 'a'); }

    /*! Opens \a pipe for writing as soon as somebody reads it. */
    int openReadPipe(const char* pipe) const
    {
        int writer = -1;
        const auto isOpen = [&] { return (writer = openPipe(pipe, O_WRONLY | O_NONBLOCK)) >= 0; };
        if (!QTest::qWaitFor(isOpen, patience))
            qFatal("%s is not read", pipe);
        return writer;
    }

    /*! Starts the tool, and opens \a pipe for writing as soon as the tool reads it. */
    int startReading(QProcess& process, const QStringList& arguments, const char* pipe) const
    {
        start(process, arguments);
        return openReadPipe(pipe);
    }

    /*! Sends \a signal to the tool, which reads what \a writer writes, and waits for its end. */
    ToolRun interrupt(QProcess& process, int writer, int signal) const
    {
        ::kill(pid_t(process.processId()), signal);
        const ToolRun result = finish(process);
        ::close(writer);
        return result;
    }

    bool isRead(const char* pipe) const
    {
        const int writer = openPipe(pipe, O_WRONLY | O_NONBLOCK);
        ::close(writer);
        return writer >= 0;
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
    QByteArray onTerminal(const QStringList& arguments, int columns)
    {
        const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
        if (terminal < 0 || ::grantpt(terminal) != 0 || ::unlockpt(terminal) != 0)
            qFatal("no terminal");
        const QByteArray name = ::ptsname(terminal);
        // Without a program at the other end, what is written could get lost.
        const int otherEnd = ::open(name.constData(), O_RDWR | O_NOCTTY | O_CLOEXEC);
        const struct winsize size = {24, ushort(columns), 0, 0};
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
