#include "TextTransform.h"
#include "conversionhelpers.h"
#include "testsupport.h"

#include <csignal>

#include <sys/stat.h>

using namespace conversiontest;

namespace {

/*! Milliseconds within which a program that hangs is killed. */
const int ShortTimeout = 300;
const int DefaultTimeout = 120000;

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

class TestTextTransform : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_folders.reset(new Folders);
        TextTransform::setTimeout(DefaultTimeout);
        for (int engine = ORVImportExport::AutomaticEngine; engine <= ORVImportExport::PandocEngine; ++engine)
            TextTransform::setToolPath(ORVImportExport::Engine(engine), QString());
    }

    void cleanup()
    {
        const QStringList leftovers = m_folders->leftovers();
        m_folders.reset();
        QCOMPARE(leftovers, QStringList());
    }

    ORV_ROWS(automaticEngineTakesFirstInstalled)
    {
        const Rows add([this](const QStringList& installed, const QString& suffix, const QByteArray& used) {
            const QString bin = path("bin");
            QVERIFY(QDir().mkdir(bin));
            for (const QString& name : installed)
                writeScript(bin + QLatin1Char('/') + name, "echo " + name.toLatin1() + " >output/source.rtf");
            const Environment environment("PATH", QFile::encodeName(bin));
            const QString source = m_folders->path("in."_s + suffix);
            writeFile(source, "content");
            QCOMPARE(toRtf(source, path("target.rtf"), nullptr, ORVImportExport::AutomaticEngine),
                     TextTransform::NoError);
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
        fake("exit 1", ORVImportExport::LibreOfficeEngine);
        fake("echo >output/source.rtf", ORVImportExport::AbiWordEngine);
        QString message;
        QCOMPARE(runFake(&message, ORVImportExport::AutomaticEngine), TextTransform::ToolFailed);
        QCOMPARE(message, "LibreOffice ended with exit status 1"_s);
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
            const QString current = QDir::currentPath();
            QVERIFY(QDir::setCurrent(m_folders->path(QString())));
            TextTransform::setToolPath(ORVImportExport::PandocEngine, "/nowhere"_s);
            TextTransform::setToolPath(ORVImportExport::PandocEngine, toolPath);
            const Error error = runFake();
            QVERIFY(QDir::setCurrent(current));
            QCOMPARE(error, TextTransform::NoError);
            QCOMPARE(readFile(path("target.rtf")), used + '\n');
        });
        add("name in PATH", "other", "bin");
        add("relative path", "near/other", "near");
        add("relative path with dot", "./other", "here");
        add("usual name again", "", "usual");
    }

    void toolPathOfAutomaticEngineChangesNothing()
    {
        fake("exit 1", ORVImportExport::AutomaticEngine);
        fake("echo used >output/source.rtf", ORVImportExport::LibreOfficeEngine);
        QCOMPARE(runFake(nullptr, ORVImportExport::AutomaticEngine), TextTransform::NoError);
        QCOMPARE(readFile(path("target.rtf")), "used\n"_b);
    }

    void programSeesOnlyItsOwnNames()
    {
        const QByteArray record = QFile::encodeName(path("arguments"));
        fake("printf '%s\\n' \"$@\" >'" + record + "'; cp source.docx output/source.rtf");
        writeFile(path("$(touch oops) -x.docx"), "content");
        QCOMPARE(toRtf(path("$(touch oops) -x.docx"), path("target.rtf")), TextTransform::NoError);
        QCOMPARE(readFile(path("arguments")),
                 "--sandbox\n--standalone\n--from=docx\n--to=rtf\n--output=output/source.rtf\n"
                 "source.docx\n"_b);
        QCOMPARE(readFile(path("target.rtf")), "content"_b);
    }

    ORV_ROWS(fileNames)
    {
        const Rows add([this](const QString& name) {
            fake("cp source.docx output/source.rtf");
            const QString current = QDir::currentPath();
            QVERIFY(QDir::setCurrent(m_folders->path(QString())));
            writeFile(name, "content");
            const Error error = toRtf(name, name + ".rtf"_s);
            const QByteArray content = readFile(name + ".rtf"_s);
            const QStringList names = QDir().entryList(QDir::Files | QDir::Hidden, QDir::Name);
            QVERIFY(QDir::setCurrent(current));
            QCOMPARE(error, TextTransform::NoError);
            QCOMPARE(content, "content"_b);
            QCOMPARE(names.size(), 3); // the tool as well
        });
        add("blanks", " a  b .docx");
        add("quotes", "it's \"so\" `so`.docx");
        add("dash", "-o.docx");
        add("two dashes", "--output=x.docx");
        add("line feed", "a\nb.docx");
        add("letters beyond ASCII",
            "Gr\xc3\xbc\xc3\x9f"
            "e \xe6\x96\x87.docx");
        add("shell characters", "a;$(b)&|*?<>\\c.docx");
        add("placeholders", "%1 %2.docx");
        add("nothing but the suffix", ".docx");
        add("more dots", "a.rtf.docx");
        add("upper case", "LETTER.DOCX");
    }

    void programHasHomeAndTemporaryFilesOfItsOwn()
    {
        const QByteArray record = QFile::encodeName(path("record"));
        fake("touch \"$HOME/h\" \"$TMPDIR/t\"; cd \"$HOME/..\"; pwd -P >'" + record
             + "'; cd \"$TMPDIR/..\"; pwd -P >>'" + record + "'; echo \"$DISPLAY$XDG_CONFIG_HOME\" >>'"
             + record + "'; cat >>'" + record + "'; echo >output/source.rtf");
        const Environment display("DISPLAY", ":7");
        const Environment config("XDG_CONFIG_HOME", "/etc");
        QCOMPARE(runFake(), TextTransform::NoError);
        const QList<QByteArray> lines = readFile(path("record")).split('\n');
        QCOMPARE(lines.size(), 4);
        const QByteArray temporary =
            QFile::encodeName(QFileInfo(m_folders->temporary()).canonicalFilePath()) + '/';
        QVERIFY2(lines.at(0).startsWith(temporary), lines.at(0).constData());
        QCOMPARE(lines.at(1), lines.at(0));
        QCOMPARE(lines.at(2), QByteArray());
        QCOMPARE(lines.at(3), QByteArray());
    }

    ORV_ROWS(failure)
    {
        const Rows add([this](const QByteArray& commands, int error, const QString& message) {
            fake(commands);
            if (error == TextTransform::ToolTimedOut)
                TextTransform::setTimeout(ShortTimeout);
            QString given;
            QCOMPARE(int(runFake(&given)), error);
            QCOMPARE(given, message);
            QVERIFY(!QFile::exists(path("target.rtf")));
            writeFile(path("target.rtf"), "old");
            QCOMPARE(int(runFake()), error);
            QCOMPARE(readFile(path("target.rtf")), "old"_b);
        });
        add("exit status", "exit 3", TextTransform::ToolFailed, "pandoc ended with exit status 3");
        add("exit status and words", "echo 'no such thing %1 \xc3\xbc' >&2; echo unheard; exit 64",
            TextTransform::ToolFailed, "pandoc ended with exit status 64\nno such thing %1 \xc3\xbc");
        add("exit status although there is a file", "echo x >output/source.rtf; exit 1",
            TextTransform::ToolFailed, "pandoc ended with exit status 1");
        add("crash", "echo bad >&2; kill -SEGV $$", TextTransform::ToolFailed, "pandoc crashed\nbad");
        add("killed", "kill -KILL $$", TextTransform::ToolFailed, "pandoc crashed");
        add("no file", "true", TextTransform::NoOutput, "pandoc wrote nothing");
        add("no file and words", "echo nothing to do >&2", TextTransform::NoOutput,
            "pandoc wrote nothing\nnothing to do");
        add("empty file", ": >output/source.rtf", TextTransform::NoOutput, "pandoc wrote nothing");
        add("folder instead of a file", "mkdir output/source.rtf", TextTransform::NoOutput,
            "pandoc wrote nothing");
        add("hangs", "while :; do sleep 1000; done", TextTransform::ToolTimedOut,
            "pandoc did not end within 0.3 seconds");
        add("hangs after words", "echo wait >&2; echo x >output/source.rtf; sleep 1000",
            TextTransform::ToolTimedOut, "pandoc did not end within 0.3 seconds\nwait");
        add("cannot be told to end", "trap '' TERM INT HUP; while :; do sleep 1000; done",
            TextTransform::ToolTimedOut, "pandoc did not end within 0.3 seconds");
    }

    void programThatCannotBeStarted()
    {
        fake("exit 0");
        writeFile(path("tool3"), "#!/no/such/interpreter\n");
        QString message;
        QCOMPARE(runFake(&message), TextTransform::ToolFailed);
        QVERIFY2(message.startsWith("pandoc could not be started\n"_s), qPrintable(message));
        QVERIFY(!QFile::exists(path("target.rtf")));
    }

    void noFolderForTemporaryFiles()
    {
        fake("echo >output/source.rtf");
        const Environment temporary("TMPDIR", QFile::encodeName(path("missing")));
        QString message;
        QCOMPARE(runFake(&message), TextTransform::NoOutput);
        QCOMPARE(message, "There is no folder for temporary files"_s);
        QVERIFY(!QFile::exists(path("target.rtf")));
    }

    void longErrorOutputKeepsItsEnd()
    {
        fake("i=0; while [ $i -lt 3000 ]; do echo 'ninechars'; i=$((i + 1)); done >&2; printf END >&2; exit "
             "1");
        QString message;
        QCOMPARE(runFake(&message), TextTransform::ToolFailed);
        const QString start = "pandoc ended with exit status 1\n"_s;
        QVERIFY(message.startsWith(start));
        QVERIFY(message.endsWith("\nninechars\nEND"_s));
        QCOMPARE(message.size(), start.size() + 2000);
    }

    void plainTextMayBeEmpty()
    {
        fake(": >output/source.txt");
        writeFile(path("in.docx"), "content");
        QCOMPARE(TextTransform::transformFileViaTools(path("in.docx"), path("target.txt"),
                                                      ORVFormat::PlainText, ORVImportExport::PandocEngine,
                                                      nullptr, true),
                 TextTransform::NoError);
        QCOMPARE(readFile(path("target.txt")), QByteArray());
    }

    void successLeavesErrorStringAlone()
    {
        fake("echo warning >&2; echo >output/source.rtf");
        QString message = "as before"_s;
        QCOMPARE(runFake(&message), TextTransform::NoError);
        QCOMPARE(message, "as before"_s);
    }

    void hangingProgramIsKilledWithChildren()
    {
        const QByteArray child = QFile::encodeName(path("child"));
        const QByteArray grandchild = QFile::encodeName(path("grandchild"));
        fake("sh -c 'echo $$ >\"" + child + "\"; sleep 1000 & echo $! >\"" + grandchild + ".new\"; mv \""
             + grandchild + ".new\" \"" + grandchild + "\"; wait'");
        TextTransform::setTimeout(ShortTimeout);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(runFake(), TextTransform::ToolTimedOut);
        QVERIFY(timer.elapsed() >= ShortTimeout);
        QVERIFY2(timer.elapsed() < 60000, qPrintable(QString::number(timer.elapsed())));
        QTRY_VERIFY(!isAlive(readFile(path("child"))));
        QTRY_VERIFY(!isAlive(readFile(path("grandchild"))));
    }

    void childrenDoNotOutliveProgram()
    {
        const QByteArray child = QFile::encodeName(path("child"));
        fake("sleep 1000 & echo $! >'" + child + "'; echo >output/source.rtf");
        QCOMPARE(runFake(), TextTransform::NoError);
        QTRY_VERIFY(!isAlive(readFile(path("child"))));
    }

    void noLimitBelowOne()
    {
        fake("echo >output/source.rtf");
        TextTransform::setTimeout(0);
        QCOMPARE(runFake(), TextTransform::NoError);
        TextTransform::setTimeout(-1);
        QCOMPARE(runFake(), TextTransform::NoError);
    }

    ORV_ROWS(unsupported)
    {
        const Rows add([this](const QString& name, int format, int engine, const QString& message) {
            const QString source = m_folders->path(name);
            writeFile(source, "content");
            QString given;
            QCOMPARE(TextTransform::transformFileViaTools(source, path("target"), ORVFormat::Format(format),
                                                          ORVImportExport::Engine(engine), &given, true),
                     TextTransform::UnsupportedFormat);
            QCOMPARE(given, message);
            QVERIFY(!QFile::exists(path("target")));
        });
        const QString all = "LibreOffice, AbiWord, pandoc"_s;
        const QString text = "Cannot convert '.%1' files to this format: %2"_s;
        const int automatic = ORVImportExport::AutomaticEngine;
        const int abiword = ORVImportExport::AbiWordEngine;
        const int pandoc = ORVImportExport::PandocEngine;
        const int rtf = ORVFormat::Rtf;
        add("no suffix", "in", rtf, automatic, text.arg(QString(), all));
        add("plain text", "in.txt", rtf, automatic, text.arg("txt"_s, all));
        add("PDF", "in.pdf", rtf, automatic, text.arg("pdf"_s, all));
        add("HTML with AbiWord", "in.html", rtf, abiword, text.arg("html"_s, "AbiWord"_s));
        add("no such format", "in.docx", 0, automatic, text.arg("docx"_s, all));
        add("format below all", "in.docx", -1, automatic, text.arg("docx"_s, all));
        add("format above all", "in.docx", 5, automatic, text.arg("docx"_s, all));
        add("doc with pandoc", "in.doc", rtf, pandoc, text.arg("doc"_s, "pandoc"_s));
        add("ODT from pandoc", "in.docx", ORVFormat::Odt, pandoc, text.arg("docx"_s, "pandoc"_s));
        add("ODT from AbiWord", "in.docx", ORVFormat::Odt, abiword, text.arg("docx"_s, "AbiWord"_s));
        add("HTML from pandoc", "in.docx", ORVFormat::Html, pandoc, text.arg("docx"_s, "pandoc"_s));
        add("HTML from AbiWord", "in.docx", ORVFormat::Html, abiword, text.arg("docx"_s, "AbiWord"_s));
        add("unknown engine", "in.docx", rtf, 17, text.arg("docx"_s, QString()));
    }

    ORV_ROWS(toolNotFound)
    {
        const Rows add(
            [this](const QString& name, int engine, const QString& toolPath, const QString& message) {
                const Environment environment("PATH", QByteArray());
                TextTransform::setToolPath(ORVImportExport::PandocEngine, toolPath);
                const QString source = m_folders->path(name);
                writeFile(source, "content");
                QString given;
                QCOMPARE(toRtf(source, path("target.rtf"), &given, ORVImportExport::Engine(engine)),
                         TextTransform::ToolNotFound);
                QCOMPARE(given, message);
                QVERIFY(!QFile::exists(path("target.rtf")));
            });
        const int automatic = ORVImportExport::AutomaticEngine;
        const int libreOffice = ORVImportExport::LibreOfficeEngine;
        const int abiword = ORVImportExport::AbiWordEngine;
        const int pandoc = ORVImportExport::PandocEngine;
        const QString none;
        add("docx", "in.docx", automatic, none,
            "Looked for: LibreOffice (soffice, libreoffice), AbiWord (abiword), pandoc (pandoc)");
        add("doc", "in.doc", automatic, none,
            "Looked for: LibreOffice (soffice, libreoffice), AbiWord (abiword)");
        add("LibreOffice", "in.docx", libreOffice, none, "Looked for: LibreOffice (soffice, libreoffice)");
        add("AbiWord", "in.docx", abiword, none, "Looked for: AbiWord (abiword)");
        add("pandoc", "in.docx", pandoc, none, "Looked for: pandoc (pandoc)");
        add("path of nothing", "in.docx", pandoc, "/no/such/tool", "Looked for: pandoc (/no/such/tool)");
        add("path of a folder", "in.docx", pandoc, "/usr", "Looked for: pandoc (/usr)");
        add("path of a file that is no program", "in.docx", pandoc, "/etc/passwd",
            "Looked for: pandoc (/etc/passwd)");
    }

    ORV_ROWS(sourceNotReadable)
    {
        const Rows add([this](const QString& name, const QString& reason) {
            fake("echo >output/source.rtf");
            writeFile(path("file"), "content");
            QVERIFY(QDir().mkdir(path("folder.docx")));
            QCOMPARE(mkfifo(QFile::encodeName(path("pipe.docx")).constData(), 0600), 0);
            const QString source = m_folders->path(name);
            QString message;
            QCOMPARE(toRtf(source, path("target.rtf"), &message), TextTransform::SourceNotReadable);
            QCOMPARE(message, "Could not read '%1': %2"_s.arg(source, reason));
            QVERIFY(!QFile::exists(path("target.rtf")));
        });
        add("missing", "missing.docx", "No such file or directory");
        add("below a file", "file/in.docx", "Not a directory");
        add("folder", "folder.docx", "not a file");
        add("named pipe", "pipe.docx", "not a file");
    }

    void sourceIsReadBeforeToolsAreLookedFor()
    {
        const Environment environment("PATH", QByteArray());
        QCOMPARE(toRtf(path("missing.docx"), path("target.rtf")), TextTransform::SourceNotReadable);
    }

    void newTargetIsPrivate()
    {
        fake("cp source.docx output/source.rtf; chmod 644 output/source.rtf");
        QCOMPARE(runFake(), TextTransform::NoError);
        QCOMPARE(int(QFile::permissions(path("target.rtf"))
                     & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther)),
                 0);
        QCOMPARE(readFile(path("target.rtf")), "content"_b);
    }

    void oldTargetIsReplaced()
    {
        fake("cp source.docx output/source.rtf");
        writeFile(path("target.rtf"), "old, and longer than the new content");
        const QFile::Permissions permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
        QVERIFY(QFile::setPermissions(path("target.rtf"), permissions));
        QCOMPARE(runFake(), TextTransform::NoError);
        QCOMPARE(readFile(path("target.rtf")), "content"_b);
        QVERIFY(QFile::permissions(path("target.rtf")) & QFile::ReadGroup);
    }

    void targetBelowMissingFolder()
    {
        fake("cp source.docx output/source.rtf");
        writeFile(path("in.docx"), "content");
        QString message;
        QCOMPARE(toRtf(path("in.docx"), path("missing/target.rtf"), &message), TextTransform::NoOutput);
        QCOMPARE(message,
                 "Could not write '%1': No such file or directory"_s.arg(path("missing/target.rtf")));
        QVERIFY(!QFile::exists(path("missing")));
    }

    void targetIsFolder()
    {
        fake("cp source.docx output/source.rtf");
        QVERIFY(QDir().mkdir(path("target.rtf")));
        QString message;
        QCOMPARE(runFake(&message), TextTransform::NoOutput);
        QVERIFY2(message.startsWith("Could not write '%1': "_s.arg(path("target.rtf"))), qPrintable(message));
        QVERIFY(QDir(path("target.rtf")).isEmpty());
    }

    void targetMayBeSource()
    {
        fake("tr a-z A-Z <source.rtf >output/source.rtf");
        writeFile(path("in.rtf"), "content");
        QCOMPARE(toRtf(path("in.rtf"), path("in.rtf")), TextTransform::NoError);
        QCOMPARE(readFile(path("in.rtf")), "CONTENT"_b);
    }

    ORV_ROWS(errorDescriptions)
    {
        const Rows add([](int error, const QString& description) {
            QCOMPARE(TextTransform::errorDescription(Error(error)), description);
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
        const QString description = TextTransform::errorDescription(TextTransform::ToolFailed);
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(message, "[TextTransform] pandoc ended with exit status 2"_s);
        QCOMPARE(description, "[TextTransform] The conversion program failed"_s);
    }

private:
    typedef TextTransform::Error Error;
    QString path(const char* name) const { return m_folders->path(QString::fromUtf8(name)); }

    /*! A program for \a engine that runs \a commands. */
    void fake(const QByteArray& commands,
              ORVImportExport::Engine engine = ORVImportExport::PandocEngine) const
    {
        TextTransform::setToolPath(engine,
                                   writeScript(m_folders->path("tool%1"_s.arg(int(engine))), commands));
    }

    Error toRtf(const QString& source, const QString& target, QString* message = nullptr,
                ORVImportExport::Engine engine = ORVImportExport::PandocEngine) const
    {
        return TextTransform::transformFileViaTools(source, target, ORVFormat::Rtf, engine, message, true);
    }

    /*! Runs what was set by fake() from a source of its own to "target.rtf". */
    Error runFake(QString* message = nullptr,
                  ORVImportExport::Engine engine = ORVImportExport::PandocEngine) const
    {
        writeFile(path("in.docx"), "content");
        return toRtf(path("in.docx"), path("target.rtf"), message, engine);
    }

    QScopedPointer<Folders> m_folders;
};

ORV_TEST("texttransform", TestTextTransform, QCoreApplication)
#include "texttransform.moc"
