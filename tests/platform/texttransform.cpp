#include "transformtest.h"

#include <csignal>

#include <sys/stat.h>

using namespace ORVImportExport;
using namespace TextTransform;
using namespace conversiontest;

namespace {

/*! Milliseconds within which a program that hangs is killed. */
const int ShortTimeout = 300;

bool isAlive(const QByteArray& processId)
{
    const int id = processId.trimmed().toInt();
    if (id <= 1)
        qFatal("no process id");
    // One that was killed and not yet collected by the system's first process is dead as well.
    const QByteArray status = readFile("/proc/%1/stat"_s.arg(id));
    return kill(id, 0) == 0 && !status.mid(status.lastIndexOf(')')).startsWith(") Z");
}

} // namespace

class TestTextTransform : public TransformTest {
    Q_OBJECT

private slots:
    ORV_ROWS(automaticEngineTakesFirstInstalled)
    {
        const Rows add([this](const QStringList& installed, const QString& suffix, const QByteArray& used) {
            const QString bin = path("bin");
            QVERIFY(QDir().mkdir(bin));
            for (const QString& name : installed)
                writeScript(bin + QLatin1Char('/') + name, "echo " + name.toLatin1() + " >output/source.rtf");
            const Environment environment("PATH", QFile::encodeName(bin));
            const QString source = path("in."_s + suffix);
            writeFile(source, "content");
            QCOMPARE(toRtf(source, path("target.rtf"), nullptr, AutomaticEngine), NoError);
            QCOMPARE(readFile(path("target.rtf")), used + '\n');
        });
        add("all", {"pandoc"_s, "abiword"_s, "libreoffice"_s, "soffice"_s}, "docx", "soffice");
        add("LibreOffice by its other name", {"pandoc"_s, "abiword"_s, "libreoffice"_s}, "docx",
            "libreoffice");
        add("AbiWord and pandoc", {"pandoc"_s, "abiword"_s}, "docx", "abiword");
        add("pandoc", {"pandoc"_s}, "docx", "pandoc");
        add("suffix in upper case", {"pandoc"_s}, "DocX", "pandoc");
        add("doc with all", {"pandoc"_s, "abiword"_s}, "doc", "abiword");
    }

    void failureOfFirstInstalledIsFinal()
    {
        fake("exit 1", LibreOfficeEngine);
        fake("echo >output/source.rtf", AbiWordEngine);
        checkFailure(ToolFailed, "LibreOffice ended with exit status 1", source(), AutomaticEngine);
    }

    ORV_ROWS(toolPath)
    {
        const Rows add([this](const QString& toolPath, const QByteArray& used) {
            QVERIFY(QDir().mkdir(path("bin")) && QDir().mkdir(path("near")));
            writeScript(path("bin/other"), "echo bin >output/source.rtf");
            writeScript(path("bin/pandoc"), "echo usual >output/source.rtf");
            writeScript(path("near/other"), "echo near >output/source.rtf");
            writeScript(path("other"), "echo here >output/source.rtf");
            const Environment environment("PATH", QFile::encodeName(path("bin")));
            const WorkingFolder folder(path(""));
            setToolPath(PandocEngine, "/nowhere"_s);
            setToolPath(PandocEngine, toolPath);
            QCOMPARE(runFake(), NoError);
            QCOMPARE(readFile(path("target.rtf")), used + '\n');
        });
        add("name in PATH", "other", "bin");
        add("relative path", "near/other", "near");
        add("relative path with dot", "./other", "here");
        add("usual name again", "", "usual");
    }

    void toolPathOfAutomaticEngineChangesNothing()
    {
        fake("exit 1", AutomaticEngine);
        fake("echo used >output/source.rtf", LibreOfficeEngine);
        QCOMPARE(runFake(nullptr, AutomaticEngine), NoError);
        QCOMPARE(readFile(path("target.rtf")), "used\n"_b);
    }

    // The program sees only its own names.
    ORV_ROWS(fileNames)
    {
        const Rows add([this](const QString& name) {
            fake("printf '%s\\n' \"$@\" >'" + QFile::encodeName(path("arguments"))
                 + "'; cp source.docx output/source.rtf");
            const WorkingFolder folder(path(""));
            writeFile(name, "content");
            QCOMPARE(toRtf(name, name + ".rtf"_s), NoError);
            QCOMPARE(readFile(name + ".rtf"_s), "content"_b);
            QCOMPARE(readFile(path("arguments")),
                     "--sandbox\n--standalone\n--from=docx\n--to=rtf\n--output=output/source.rtf\n"
                     "source.docx\n"_b);
            QCOMPARE(QDir().entryList(QDir::Files | QDir::Hidden).size(), 4); // the tool as well
        });
        add("blanks", " a  b .docx");
        add("quotes", "it's \"so\" `so`.docx");
        add("dash", "-o.docx");
        add("two dashes", "--output=x.docx");
        add("line feed", "a\nb.docx");
        add("letters beyond ASCII", u8"Gr\u00fc\u00dfe \u6587.docx");
        add("shell characters", "a;$(b)&|*?<>\\c.docx");
        add("command", "$(touch oops) -x.docx");
        add("placeholders", "%1 %2.docx");
        add("nothing but the suffix", ".docx");
        add("more dots", "a.rtf.docx");
        add("upper case", "LETTER.DOCX");
    }

    void programHasHomeAndTemporaryFilesOfItsOwn()
    {
        fake("exec >'" + QFile::encodeName(path("record"))
             + "'; touch \"$HOME/h\" \"$TMPDIR/t\"; "
               "cd \"$HOME/..\"; pwd -P; cd \"$TMPDIR/..\"; pwd -P; echo \"$DISPLAY$XDG_CONFIG_HOME\"; cat; "
               "echo >output/source.rtf");
        const Environment display("DISPLAY", ":7");
        const Environment config("XDG_CONFIG_HOME", "/etc");
        QCOMPARE(runFake(), NoError);
        const QList<QByteArray> lines = readFile(path("record")).split('\n');
        const QByteArray parent = QFile::encodeName(QFileInfo(temporary()).canonicalFilePath()) + '/';
        QVERIFY2(lines.at(0).startsWith(parent), lines.at(0).constData());
        QCOMPARE(lines, (QList<QByteArray>{lines.at(0), lines.at(0), "", ""}));
    }

    ORV_ROWS(failure)
    {
        const Rows add([this](const QByteArray& commands, Error error, const QString& message) {
            fake(commands);
            if (error == ToolTimedOut)
                setTimeout(ShortTimeout);
            checkFailure(error, message);
            writeFile(path("target.rtf"), "old");
            QCOMPARE(runFake(), error);
            QCOMPARE(readFile(path("target.rtf")), "old"_b);
        });
        add("exit status", "exit 3", ToolFailed, "pandoc ended with exit status 3");
        add("exit status and words", "echo 'no such thing %1 \xc3\xbc' >&2; echo unheard; exit 64",
            ToolFailed, "pandoc ended with exit status 64\nno such thing %1 \xc3\xbc");
        add("exit status although there is a file", "echo x >output/source.rtf; exit 1", ToolFailed,
            "pandoc ended with exit status 1");
        add("crash", "echo bad >&2; kill -SEGV $$", ToolFailed, "pandoc crashed\nbad");
        add("killed", "kill -KILL $$", ToolFailed, "pandoc crashed");
        add("no file", "true", NoOutput, "pandoc wrote nothing");
        add("no file and words", "echo nothing to do >&2", NoOutput, "pandoc wrote nothing\nnothing to do");
        add("empty file", ": >output/source.rtf", NoOutput, "pandoc wrote nothing");
        add("folder instead of a file", "mkdir output/source.rtf", NoOutput, "pandoc wrote nothing");
        const QString late = "pandoc did not end within 0.3 seconds"_s;
        add("hangs", "while :; do sleep 1000; done", ToolTimedOut, late);
        add("hangs after words", "echo wait >&2; echo x >output/source.rtf; sleep 1000", ToolTimedOut,
            late + "\nwait"_s);
        add("cannot be told to end", "trap '' TERM INT HUP; while :; do sleep 1000; done", ToolTimedOut,
            late);
        add("long error output, which keeps its end",
            "i=0; while [ $i -lt 3000 ]; do echo 'ninechars'; i=$((i + 1)); done >&2; printf END >&2; exit 1",
            ToolFailed,
            "pandoc ended with exit status 1\n"_s + ("ninechars\n"_s.repeated(200) + "END"_s).right(2000));
    }

    void programThatCannotBeStarted()
    {
        fake("exit 0");
        writeFile(path("tool3"), "#!/no/such/interpreter\n");
        QString message;
        QCOMPARE(runFake(&message), ToolFailed);
        QVERIFY2(message.startsWith("pandoc could not be started\n"_s), qPrintable(message));
        QVERIFY(!QFile::exists(path("target.rtf")));
    }

    void noFolderForTemporaryFiles()
    {
        fake("echo >output/source.rtf");
        const Environment environment("TMPDIR", QFile::encodeName(path("missing")));
        checkFailure(NoOutput, "There is no folder for temporary files");
    }

    void plainTextMayBeEmpty()
    {
        fake(": >output/source.txt");
        QCOMPARE(convert(source(), path("target.txt"), ORVFormat::PlainText, PandocEngine), NoError);
        QCOMPARE(readFile(path("target.txt")), QByteArray());
    }

    void hangingProgramIsKilledWithChildren()
    {
        const QByteArray child = QFile::encodeName(path("child"));
        const QByteArray grandchild = QFile::encodeName(path("grandchild"));
        fake("sh -c 'echo $$ >\"" + child + "\"; sleep 1000 & echo $! >\"" + grandchild + ".new\"; mv \""
             + grandchild + ".new\" \"" + grandchild + "\"; wait'");
        setTimeout(ShortTimeout);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(runFake(), ToolTimedOut);
        QVERIFY(timer.elapsed() >= ShortTimeout);
        QVERIFY2(timer.elapsed() < 60000, qPrintable(QString::number(timer.elapsed())));
        QTRY_VERIFY(!isAlive(readFile(path("child"))));
        QTRY_VERIFY(!isAlive(readFile(path("grandchild"))));
    }

    void childrenDoNotOutliveProgram()
    {
        const QByteArray child = QFile::encodeName(path("child"));
        fake("sleep 1000 & echo $! >'" + child + "'; echo >output/source.rtf");
        QCOMPARE(runFake(), NoError);
        QTRY_VERIFY(!isAlive(readFile(path("child"))));
    }

    void noLimitBelowOne()
    {
        fake("echo >output/source.rtf");
        for (const int timeout : {0, -1}) {
            setTimeout(timeout);
            QCOMPARE(runFake(), NoError);
        }
    }

    ORV_ROWS(unsupported)
    {
        const Rows add([this](const QString& name, int format, int engine, const QString& programs) {
            writeFile(path(name), "content");
            checkFailure(
                UnsupportedFormat,
                "Cannot convert '.%1' files to this format: %2"_s.arg(QFileInfo(name).suffix(), programs),
                path(name), Engine(engine), ORVFormat::Format(format));
        });
        const QString all = "LibreOffice, AbiWord, pandoc"_s;
        const int rtf = ORVFormat::Rtf;
        add("no suffix", "in", rtf, AutomaticEngine, all);
        add("plain text", "in.txt", rtf, AutomaticEngine, all);
        add("PDF", "in.pdf", rtf, AutomaticEngine, all);
        add("HTML with AbiWord", "in.html", rtf, AbiWordEngine, "AbiWord");
        add("no such format", "in.docx", 0, AutomaticEngine, all);
        add("format below all", "in.docx", -1, AutomaticEngine, all);
        add("format above all", "in.docx", 5, AutomaticEngine, all);
        add("doc with pandoc", "in.doc", rtf, PandocEngine, "pandoc");
        add("ODT from pandoc", "in.docx", ORVFormat::Odt, PandocEngine, "pandoc");
        add("ODT from AbiWord", "in.docx", ORVFormat::Odt, AbiWordEngine, "AbiWord");
        add("HTML from pandoc", "in.docx", ORVFormat::Html, PandocEngine, "pandoc");
        add("HTML from AbiWord", "in.docx", ORVFormat::Html, AbiWordEngine, "AbiWord");
        add("unknown engine", "in.docx", rtf, 17, "");
    }

    ORV_ROWS(toolNotFound)
    {
        const Rows add(
            [this](const QString& suffix, Engine engine, const QString& toolPath, const QString& tools) {
                const Environment environment("PATH", QByteArray());
                setToolPath(PandocEngine, toolPath);
                writeFile(path("in."_s + suffix), "content");
                checkFailure(ToolNotFound, "Looked for: "_s + tools, path("in."_s + suffix), engine);
            });
        const QString office = "LibreOffice (soffice, libreoffice)"_s;
        add("docx", "docx", AutomaticEngine, "", office + ", AbiWord (abiword), pandoc (pandoc)"_s);
        add("doc", "doc", AutomaticEngine, "", office + ", AbiWord (abiword)"_s);
        add("LibreOffice", "docx", LibreOfficeEngine, "", office);
        add("AbiWord", "docx", AbiWordEngine, "", "AbiWord (abiword)");
        add("pandoc", "docx", PandocEngine, "", "pandoc (pandoc)");
        add("path of nothing", "docx", PandocEngine, "/no/such/tool", "pandoc (/no/such/tool)");
        add("path of a folder", "docx", PandocEngine, "/usr", "pandoc (/usr)");
        add("path of a file that is no program", "docx", PandocEngine, "/etc/passwd", "pandoc (/etc/passwd)");
    }

    ORV_ROWS(sourceNotReadable)
    {
        const Rows add([this](const QString& name, const QString& reason) {
            fake("echo >output/source.rtf");
            writeFile(path("file"), "content");
            QVERIFY(QDir().mkdir(path("folder.docx")));
            QCOMPARE(mkfifo(QFile::encodeName(path("pipe.docx")).constData(), 0600), 0);
            checkFailure(SourceNotReadable, "Could not read '%1': %2"_s.arg(path(name), reason), path(name));
        });
        add("missing", "missing.docx", "No such file or directory");
        add("below a file", "file/in.docx", "Not a directory");
        add("folder", "folder.docx", "not a file");
        add("named pipe", "pipe.docx", "not a file");
    }

    void sourceIsReadBeforeToolsAreLookedFor()
    {
        const Environment environment("PATH", QByteArray());
        QCOMPARE(toRtf(path("missing.docx"), path("target.rtf")), SourceNotReadable);
    }

    void successfulConversion()
    {
        fake("echo warning >&2; cp source.docx output/source.rtf; chmod 644 output/source.rtf");
        QString message = "as before"_s;
        QCOMPARE(runFake(&message), NoError);
        QCOMPARE(message, "as before"_s);
        QCOMPARE(int(QFile::permissions(path("target.rtf"))
                     & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther)),
                 0);
        QCOMPARE(readFile(path("target.rtf")), "content"_b);
    }

    void oldTargetIsReplaced()
    {
        fake("cp source.docx output/source.rtf");
        writeFile(path("target.rtf"), "old, and longer than the new content");
        QVERIFY(QFile::setPermissions(path("target.rtf"),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
        QCOMPARE(runFake(), NoError);
        QCOMPARE(readFile(path("target.rtf")), "content"_b);
        QVERIFY(QFile::permissions(path("target.rtf")) & QFile::ReadGroup);
    }

    void targetBelowMissingFolder()
    {
        fake("cp source.docx output/source.rtf");
        const QString target = path("missing/target.rtf");
        QString message;
        QCOMPARE(toRtf(source(), target, &message), NoOutput);
        QCOMPARE(message, "Could not write '%1': No such file or directory"_s.arg(target));
        QVERIFY(!QFile::exists(path("missing")));
    }

    void targetIsFolder()
    {
        fake("cp source.docx output/source.rtf");
        QVERIFY(QDir().mkdir(path("target.rtf")));
        QString message;
        QCOMPARE(runFake(&message), NoOutput);
        QVERIFY2(message.startsWith("Could not write '%1': "_s.arg(path("target.rtf"))), qPrintable(message));
        QVERIFY(QDir(path("target.rtf")).isEmpty());
    }

    void targetMayBeSource()
    {
        fake("tr a-z A-Z <source.rtf >output/source.rtf");
        writeFile(path("in.rtf"), "content");
        QCOMPARE(toRtf(path("in.rtf"), path("in.rtf")), NoError);
        QCOMPARE(readFile(path("in.rtf")), "CONTENT"_b);
    }

    ORV_ROWS(errorDescriptions)
    {
        const Rows add([](int error, const QString& description) {
            QCOMPARE(errorDescription(Error(error)), description);
        });
        add("none", 0, QString());
        add("UnsupportedFormat", 1, "No program for this conversion is known");
        add("SourceNotReadable", 2, "The file could not be read");
        add("ToolNotFound", 3, "No program for this conversion is installed");
        add("ToolFailed", 4, "The conversion program failed");
        add("ToolTimedOut", 5, "The conversion program took too long");
        add("NoOutput", 6, "The converted file was not written");
        add("unknown", 7, QString());
    }

    void messagesAreTranslated()
    {
        ContextTranslator translator;
        QVERIFY(QCoreApplication::installTranslator(&translator));
        fake("exit 2");
        QString message;
        runFake(&message);
        const QString description = errorDescription(ToolFailed);
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(message, "[TextTransform] pandoc ended with exit status 2"_s);
        QCOMPARE(description, "[TextTransform] The conversion program failed"_s);
    }

private:
    /*! A program for \a engine that runs \a commands. */
    void fake(const QByteArray& commands, Engine engine = PandocEngine) const
    {
        setToolPath(engine, writeScript(path("tool%1"_s.arg(engine)), commands));
    }

    /*! A document that a program could convert. */
    QString source() const
    {
        writeFile(path("in.docx"), "content");
        return path("in.docx");
    }

    /*! Runs what was set by fake() from a source of its own to "target.rtf". */
    Error runFake(QString* message = nullptr, Engine engine = PandocEngine) const
    {
        return toRtf(source(), path("target.rtf"), message, engine);
    }

    /*! Checks that converting fails, and makes no file. */
    void checkFailure(Error error, const QString& message) const { checkFailure(error, message, source()); }
    void checkFailure(Error error, const QString& message, const QString& source,
                      Engine engine = PandocEngine, ORVFormat::Format format = ORVFormat::Rtf) const
    {
        QString given;
        QCOMPARE(convert(source, path("target.rtf"), format, engine, &given), error);
        QCOMPARE(given, message);
        QVERIFY(!QFile::exists(path("target.rtf")));
    }
};

ORV_TEST("texttransform", TestTextTransform, QCoreApplication)
#include "texttransform.moc"
