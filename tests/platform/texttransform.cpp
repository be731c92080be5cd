#include "conversionhelpers.h"

#include "TextTransform.h"

#include <QElapsedTimer>
#include <QTranslator>
#include <QtTest>

#include <csignal>
#include <sys/stat.h>

using namespace conversiontest;

namespace {

/*! Milliseconds within which a program that hangs is killed. */
const int ShortTimeout = 300;
const int DefaultTimeout = 120000;

class ContextTranslator : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QLatin1Char('[') + QString::fromLatin1(context) + QLatin1String("] ")
            + QString::fromLatin1(text);
    }
};

bool isAlive(const QByteArray& processId)
{
    const int id = processId.trimmed().toInt();
    if (id <= 1)
        qFatal("no process id");
    // One that was killed and not yet collected by the system's first process is dead as well.
    const QByteArray status = readFile(QStringLiteral("/proc/%1/stat").arg(id));
    return kill(id, 0) == 0 && !status.mid(status.lastIndexOf(')')).startsWith(") Z");
}

} // namespace

class TestTextTransform : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void automaticEngineTakesFirstInstalled_data();
    void automaticEngineTakesFirstInstalled();
    void failureOfFirstInstalledIsFinal();
    void toolPath_data();
    void toolPath();
    void toolPathOfAutomaticEngineChangesNothing();

    void programSeesOnlyItsOwnNames();
    void fileNames_data();
    void fileNames();
    void programHasHomeAndTemporaryFilesOfItsOwn();

    void failure_data();
    void failure();
    void programThatCannotBeStarted();
    void noFolderForTemporaryFiles();
    void longErrorOutputKeepsItsEnd();
    void plainTextMayBeEmpty();
    void successLeavesErrorStringAlone();
    void hangingProgramIsKilledWithChildren();
    void childrenDoNotOutliveProgram();
    void noLimitBelowOne();

    void unsupported_data();
    void unsupported();
    void toolNotFound_data();
    void toolNotFound();
    void sourceNotReadable_data();
    void sourceNotReadable();
    void sourceIsReadBeforeToolsAreLookedFor();

    void newTargetIsPrivate();
    void oldTargetIsReplaced();
    void targetBelowMissingFolder();
    void targetIsFolder();
    void targetMayBeSource();

    void errorDescriptions_data();
    void errorDescriptions();
    void messagesAreTranslated();

private:
    typedef TextTransform::Error Error;

    QString path(const char* name) const { return m_folders->path(QString::fromUtf8(name)); }
    /*! A program for \a engine that runs \a commands. */
    void fake(const QByteArray& commands,
              ORVImportExport::Engine engine = ORVImportExport::PandocEngine) const
    {
        TextTransform::setToolPath(
            engine, writeScript(m_folders->path(QStringLiteral("tool%1").arg(int(engine))), commands));
    }
    Error toRtf(const QString& source, const QString& target, QString* message = nullptr,
                ORVImportExport::Engine engine = ORVImportExport::PandocEngine) const
    {
        return TextTransform::transformFileViaTools(source, target, ORVFormat::Rtf, engine, message, true);
    }
    /*! Runs what was set by fake() from a source of its own to "target.rtf". */
    Error runFake(QString* message = nullptr) const
    {
        writeFile(path("in.docx"), "content");
        return toRtf(path("in.docx"), path("target.rtf"), message);
    }

    QScopedPointer<Folders> m_folders;
};

void TestTextTransform::init()
{
    m_folders.reset(new Folders);
    TextTransform::setTimeout(DefaultTimeout);
    for (int engine = ORVImportExport::AutomaticEngine; engine <= ORVImportExport::PandocEngine; ++engine)
        TextTransform::setToolPath(ORVImportExport::Engine(engine), QString());
}

void TestTextTransform::cleanup()
{
    const QStringList leftovers = m_folders->leftovers();
    m_folders.reset();
    QCOMPARE(leftovers, QStringList());
}

void TestTextTransform::automaticEngineTakesFirstInstalled_data()
{
    QTest::addColumn<QStringList>("installed");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QByteArray>("used");

    const QString soffice = QStringLiteral("soffice");
    const QString libreoffice = QStringLiteral("libreoffice");
    const QString abiword = QStringLiteral("abiword");
    const QString pandoc = QStringLiteral("pandoc");
    const QString docx = QStringLiteral("docx");
    QTest::newRow("all") << QStringList({pandoc, abiword, libreoffice, soffice}) << docx
                         << QByteArray("soffice");
    QTest::newRow("LibreOffice by its other name")
        << QStringList({pandoc, abiword, libreoffice}) << docx << QByteArray("libreoffice");
    QTest::newRow("AbiWord and pandoc") << QStringList({pandoc, abiword}) << docx << QByteArray("abiword");
    QTest::newRow("pandoc") << QStringList({pandoc}) << docx << QByteArray("pandoc");
    QTest::newRow("suffix in upper case")
        << QStringList({pandoc}) << QStringLiteral("DocX") << QByteArray("pandoc");
    QTest::newRow("doc with all") << QStringList({pandoc, abiword}) << QStringLiteral("doc")
                                  << QByteArray("abiword");
}

void TestTextTransform::automaticEngineTakesFirstInstalled()
{
    QFETCH(QStringList, installed);
    QFETCH(QString, suffix);
    QFETCH(QByteArray, used);
    const QString bin = path("bin");
    QVERIFY(QDir().mkdir(bin));
    for (const QString& name : installed)
        writeScript(bin + QLatin1Char('/') + name, "echo " + name.toLatin1() + " >output/source.rtf");
    const Environment environment("PATH", QFile::encodeName(bin));
    const QString source = m_folders->path(QStringLiteral("in.") + suffix);
    writeFile(source, "content");
    QCOMPARE(toRtf(source, path("target.rtf"), nullptr, ORVImportExport::AutomaticEngine),
             TextTransform::NoError);
    QCOMPARE(readFile(path("target.rtf")), used + '\n');
}

void TestTextTransform::failureOfFirstInstalledIsFinal()
{
    fake("exit 1", ORVImportExport::LibreOfficeEngine);
    fake("echo >output/source.rtf", ORVImportExport::AbiWordEngine);
    writeFile(path("in.docx"), "content");
    QString message;
    QCOMPARE(toRtf(path("in.docx"), path("target.rtf"), &message, ORVImportExport::AutomaticEngine),
             TextTransform::ToolFailed);
    QCOMPARE(message, QStringLiteral("LibreOffice ended with exit status 1"));
}

void TestTextTransform::toolPath_data()
{
    QTest::addColumn<QString>("toolPath");
    QTest::addColumn<QByteArray>("used");

    QTest::newRow("name in PATH") << "other" << QByteArray("bin");
    QTest::newRow("relative path") << "near/other" << QByteArray("near");
    QTest::newRow("relative path with dot") << "./other" << QByteArray("here");
    QTest::newRow("usual name again") << "" << QByteArray("usual");
}

void TestTextTransform::toolPath()
{
    QFETCH(QString, toolPath);
    QFETCH(QByteArray, used);
    QVERIFY(QDir().mkdir(path("bin")) && QDir().mkdir(path("near")));
    writeScript(path("bin/other"), "echo bin >output/source.rtf");
    writeScript(path("bin/pandoc"), "echo usual >output/source.rtf");
    writeScript(path("near/other"), "echo near >output/source.rtf");
    writeScript(path("other"), "echo here >output/source.rtf");
    const Environment environment("PATH", QFile::encodeName(path("bin")));
    const QString current = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folders->path(QString())));
    TextTransform::setToolPath(ORVImportExport::PandocEngine, QStringLiteral("/nowhere"));
    TextTransform::setToolPath(ORVImportExport::PandocEngine, toolPath);
    const Error error = runFake();
    QVERIFY(QDir::setCurrent(current));
    QCOMPARE(error, TextTransform::NoError);
    QCOMPARE(readFile(path("target.rtf")), used + '\n');
}

void TestTextTransform::toolPathOfAutomaticEngineChangesNothing()
{
    fake("exit 1", ORVImportExport::AutomaticEngine);
    fake("echo used >output/source.rtf", ORVImportExport::LibreOfficeEngine);
    writeFile(path("in.docx"), "content");
    QCOMPARE(toRtf(path("in.docx"), path("target.rtf"), nullptr, ORVImportExport::AutomaticEngine),
             TextTransform::NoError);
    QCOMPARE(readFile(path("target.rtf")), QByteArray("used\n"));
}

void TestTextTransform::programSeesOnlyItsOwnNames()
{
    const QByteArray record = QFile::encodeName(path("arguments"));
    fake("printf '%s\\n' \"$@\" >'" + record + "'; cp source.docx output/source.rtf");
    writeFile(path("$(touch oops) -x.docx"), "content");
    QCOMPARE(toRtf(path("$(touch oops) -x.docx"), path("target.rtf")), TextTransform::NoError);
    QCOMPARE(readFile(path("arguments")),
             QByteArray("--sandbox\n--standalone\n--from=docx\n--to=rtf\n--output=output/source.rtf\n"
                        "source.docx\n"));
    QCOMPARE(readFile(path("target.rtf")), QByteArray("content"));
}

void TestTextTransform::fileNames_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("blanks") << " a  b .docx";
    QTest::newRow("quotes") << "it's \"so\" `so`.docx";
    QTest::newRow("dash") << "-o.docx";
    QTest::newRow("two dashes") << "--output=x.docx";
    QTest::newRow("line feed") << "a\nb.docx";
    QTest::newRow("letters beyond ASCII") << QString::fromUtf8("Gr\xc3\xbc\xc3\x9f"
                                                               "e \xe6\x96\x87.docx");
    QTest::newRow("shell characters") << "a;$(b)&|*?<>\\c.docx";
    QTest::newRow("placeholders") << "%1 %2.docx";
    QTest::newRow("nothing but the suffix") << ".docx";
    QTest::newRow("more dots") << "a.rtf.docx";
    QTest::newRow("upper case") << "LETTER.DOCX";
}

void TestTextTransform::fileNames()
{
    QFETCH(QString, name);
    fake("cp source.docx output/source.rtf");
    const QString current = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folders->path(QString())));
    writeFile(name, "content");
    const Error error = toRtf(name, name + QLatin1String(".rtf"));
    const QByteArray content = readFile(name + QLatin1String(".rtf"));
    const QStringList names = QDir().entryList(QDir::Files | QDir::Hidden, QDir::Name);
    QVERIFY(QDir::setCurrent(current));
    QCOMPARE(error, TextTransform::NoError);
    QCOMPARE(content, QByteArray("content"));
    QCOMPARE(names.size(), 3); // the tool as well
}

void TestTextTransform::programHasHomeAndTemporaryFilesOfItsOwn()
{
    const QByteArray record = QFile::encodeName(path("record"));
    fake("touch \"$HOME/h\" \"$TMPDIR/t\"; cd \"$HOME/..\"; pwd -P >'" + record
         + "'; cd \"$TMPDIR/..\"; pwd -P >>'" + record + "'; echo \"$DISPLAY$XDG_CONFIG_HOME\" >>'" + record
         + "'; cat >>'" + record + "'; echo >output/source.rtf");
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

void TestTextTransform::failure_data()
{
    QTest::addColumn<QByteArray>("commands");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("message");

    QTest::newRow("exit status") << QByteArray("exit 3") << int(TextTransform::ToolFailed)
                                 << "pandoc ended with exit status 3";
    QTest::newRow("exit status and words")
        << QByteArray("echo 'no such thing %1 \xc3\xbc' >&2; echo unheard; exit 64")
        << int(TextTransform::ToolFailed)
        << QString::fromUtf8("pandoc ended with exit status 64\nno such thing %1 \xc3\xbc");
    QTest::newRow("exit status although there is a file")
        << QByteArray("echo x >output/source.rtf; exit 1") << int(TextTransform::ToolFailed)
        << "pandoc ended with exit status 1";
    QTest::newRow("crash") << QByteArray("echo bad >&2; kill -SEGV $$") << int(TextTransform::ToolFailed)
                           << "pandoc crashed\nbad";
    QTest::newRow("killed") << QByteArray("kill -KILL $$") << int(TextTransform::ToolFailed)
                            << "pandoc crashed";
    QTest::newRow("no file") << QByteArray("true") << int(TextTransform::NoOutput) << "pandoc wrote nothing";
    QTest::newRow("no file and words") << QByteArray("echo nothing to do >&2") << int(TextTransform::NoOutput)
                                       << "pandoc wrote nothing\nnothing to do";
    QTest::newRow("empty file") << QByteArray(": >output/source.rtf") << int(TextTransform::NoOutput)
                                << "pandoc wrote nothing";
    QTest::newRow("folder instead of a file")
        << QByteArray("mkdir output/source.rtf") << int(TextTransform::NoOutput) << "pandoc wrote nothing";
    QTest::newRow("hangs") << QByteArray("while :; do sleep 1000; done") << int(TextTransform::ToolTimedOut)
                           << "pandoc did not end within 0.3 seconds";
    QTest::newRow("hangs after words")
        << QByteArray("echo wait >&2; echo x >output/source.rtf; sleep 1000")
        << int(TextTransform::ToolTimedOut) << "pandoc did not end within 0.3 seconds\nwait";
    QTest::newRow("cannot be told to end")
        << QByteArray("trap '' TERM INT HUP; while :; do sleep 1000; done")
        << int(TextTransform::ToolTimedOut) << "pandoc did not end within 0.3 seconds";
}

void TestTextTransform::failure()
{
    QFETCH(QByteArray, commands);
    QFETCH(int, error);
    QFETCH(QString, message);
    fake(commands);
    if (error == TextTransform::ToolTimedOut)
        TextTransform::setTimeout(ShortTimeout);
    QString given;
    QCOMPARE(int(runFake(&given)), error);
    QCOMPARE(given, message);
    QVERIFY(!QFile::exists(path("target.rtf")));

    writeFile(path("target.rtf"), "old");
    QCOMPARE(int(runFake()), error);
    QCOMPARE(readFile(path("target.rtf")), QByteArray("old"));
}

void TestTextTransform::programThatCannotBeStarted()
{
    fake("exit 0");
    writeFile(path("tool3"), "#!/no/such/interpreter\n");
    QString message;
    QCOMPARE(runFake(&message), TextTransform::ToolFailed);
    QVERIFY2(message.startsWith(QLatin1String("pandoc could not be started\n")), qPrintable(message));
    QVERIFY(!QFile::exists(path("target.rtf")));
}

void TestTextTransform::noFolderForTemporaryFiles()
{
    fake("echo >output/source.rtf");
    const Environment temporary("TMPDIR", QFile::encodeName(path("missing")));
    QString message;
    QCOMPARE(runFake(&message), TextTransform::NoOutput);
    QCOMPARE(message, QStringLiteral("There is no folder for temporary files"));
    QVERIFY(!QFile::exists(path("target.rtf")));
}

void TestTextTransform::longErrorOutputKeepsItsEnd()
{
    fake("i=0; while [ $i -lt 3000 ]; do echo 'ninechars'; i=$((i + 1)); done >&2; printf END >&2; exit 1");
    QString message;
    QCOMPARE(runFake(&message), TextTransform::ToolFailed);
    const QString start = QStringLiteral("pandoc ended with exit status 1\n");
    QVERIFY(message.startsWith(start));
    QVERIFY(message.endsWith(QLatin1String("\nninechars\nEND")));
    QCOMPARE(message.size(), start.size() + 2000);
}

void TestTextTransform::plainTextMayBeEmpty()
{
    fake(": >output/source.txt");
    writeFile(path("in.docx"), "content");
    QCOMPARE(TextTransform::transformFileViaTools(path("in.docx"), path("target.txt"), ORVFormat::PlainText,
                                                  ORVImportExport::PandocEngine, nullptr, true),
             TextTransform::NoError);
    QCOMPARE(readFile(path("target.txt")), QByteArray());
}

void TestTextTransform::successLeavesErrorStringAlone()
{
    fake("echo warning >&2; echo >output/source.rtf");
    QString message = QStringLiteral("as before");
    QCOMPARE(runFake(&message), TextTransform::NoError);
    QCOMPARE(message, QStringLiteral("as before"));
}

void TestTextTransform::hangingProgramIsKilledWithChildren()
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

void TestTextTransform::childrenDoNotOutliveProgram()
{
    const QByteArray child = QFile::encodeName(path("child"));
    fake("sleep 1000 & echo $! >'" + child + "'; echo >output/source.rtf");
    QCOMPARE(runFake(), TextTransform::NoError);
    QTRY_VERIFY(!isAlive(readFile(path("child"))));
}

void TestTextTransform::noLimitBelowOne()
{
    fake("echo >output/source.rtf");
    TextTransform::setTimeout(0);
    QCOMPARE(runFake(), TextTransform::NoError);
    TextTransform::setTimeout(-1);
    QCOMPARE(runFake(), TextTransform::NoError);
}

void TestTextTransform::unsupported_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("engine");
    QTest::addColumn<QString>("message");

    const QString all = QStringLiteral("LibreOffice, AbiWord, pandoc");
    const QString text = QStringLiteral("Cannot convert '.%1' files to this format: %2");
    const int automatic = ORVImportExport::AutomaticEngine;
    const int rtf = ORVFormat::Rtf;
    QTest::newRow("no suffix") << "in" << rtf << automatic << text.arg(QString(), all);
    QTest::newRow("plain text") << "in.txt" << rtf << automatic << text.arg(QStringLiteral("txt"), all);
    QTest::newRow("PDF") << "in.pdf" << rtf << automatic << text.arg(QStringLiteral("pdf"), all);
    QTest::newRow("HTML with AbiWord") << "in.html" << rtf << int(ORVImportExport::AbiWordEngine)
                                       << text.arg(QStringLiteral("html"), QStringLiteral("AbiWord"));
    QTest::newRow("no such format") << "in.docx" << 0 << automatic << text.arg(QStringLiteral("docx"), all);
    QTest::newRow("format below all")
        << "in.docx" << -1 << automatic << text.arg(QStringLiteral("docx"), all);
    QTest::newRow("format above all") << "in.docx" << 5 << automatic << text.arg(QStringLiteral("docx"), all);
    QTest::newRow("doc with pandoc") << "in.doc" << rtf << int(ORVImportExport::PandocEngine)
                                     << text.arg(QStringLiteral("doc"), QStringLiteral("pandoc"));
    QTest::newRow("ODT from pandoc") << "in.docx" << int(ORVFormat::Odt) << int(ORVImportExport::PandocEngine)
                                     << text.arg(QStringLiteral("docx"), QStringLiteral("pandoc"));
    QTest::newRow("ODT from AbiWord")
        << "in.docx" << int(ORVFormat::Odt) << int(ORVImportExport::AbiWordEngine)
        << text.arg(QStringLiteral("docx"), QStringLiteral("AbiWord"));
    QTest::newRow("HTML from pandoc")
        << "in.docx" << int(ORVFormat::Html) << int(ORVImportExport::PandocEngine)
        << text.arg(QStringLiteral("docx"), QStringLiteral("pandoc"));
    QTest::newRow("HTML from AbiWord")
        << "in.docx" << int(ORVFormat::Html) << int(ORVImportExport::AbiWordEngine)
        << text.arg(QStringLiteral("docx"), QStringLiteral("AbiWord"));
    QTest::newRow("unknown engine") << "in.docx" << rtf << 17 << text.arg(QStringLiteral("docx"), QString());
}

void TestTextTransform::unsupported()
{
    QFETCH(QString, name);
    QFETCH(int, format);
    QFETCH(int, engine);
    QFETCH(QString, message);
    const QString source = m_folders->path(name);
    writeFile(source, "content");
    QString given;
    QCOMPARE(TextTransform::transformFileViaTools(source, path("target"), ORVFormat::Format(format),
                                                  ORVImportExport::Engine(engine), &given, true),
             TextTransform::UnsupportedFormat);
    QCOMPARE(given, message);
    QVERIFY(!QFile::exists(path("target")));
}

void TestTextTransform::toolNotFound_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("engine");
    QTest::addColumn<QString>("toolPath");
    QTest::addColumn<QString>("message");

    const int automatic = ORVImportExport::AutomaticEngine;
    const QString none;
    QTest::newRow("docx") << "in.docx" << automatic << none
                          << "Looked for: LibreOffice (soffice, libreoffice), AbiWord (abiword), "
                             "pandoc (pandoc)";
    QTest::newRow("doc") << "in.doc" << automatic << none
                         << "Looked for: LibreOffice (soffice, libreoffice), AbiWord (abiword)";
    QTest::newRow("LibreOffice") << "in.docx" << int(ORVImportExport::LibreOfficeEngine) << none
                                 << "Looked for: LibreOffice (soffice, libreoffice)";
    QTest::newRow("AbiWord") << "in.docx" << int(ORVImportExport::AbiWordEngine) << none
                             << "Looked for: AbiWord (abiword)";
    QTest::newRow("pandoc") << "in.docx" << int(ORVImportExport::PandocEngine) << none
                            << "Looked for: pandoc (pandoc)";
    QTest::newRow("path of nothing") << "in.docx" << int(ORVImportExport::PandocEngine) << "/no/such/tool"
                                     << "Looked for: pandoc (/no/such/tool)";
    QTest::newRow("path of a folder") << "in.docx" << int(ORVImportExport::PandocEngine) << "/usr"
                                      << "Looked for: pandoc (/usr)";
    QTest::newRow("path of a file that is no program")
        << "in.docx" << int(ORVImportExport::PandocEngine) << "/etc/passwd"
        << "Looked for: pandoc (/etc/passwd)";
}

void TestTextTransform::toolNotFound()
{
    QFETCH(QString, name);
    QFETCH(int, engine);
    QFETCH(QString, toolPath);
    QFETCH(QString, message);
    const Environment environment("PATH", QByteArray());
    TextTransform::setToolPath(ORVImportExport::PandocEngine, toolPath);
    const QString source = m_folders->path(name);
    writeFile(source, "content");
    QString given;
    QCOMPARE(toRtf(source, path("target.rtf"), &given, ORVImportExport::Engine(engine)),
             TextTransform::ToolNotFound);
    QCOMPARE(given, message);
    QVERIFY(!QFile::exists(path("target.rtf")));
}

void TestTextTransform::sourceNotReadable_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");

    QTest::newRow("missing") << "missing.docx"
                             << "No such file or directory";
    QTest::newRow("below a file") << "file/in.docx"
                                  << "Not a directory";
    QTest::newRow("folder") << "folder.docx"
                            << "not a file";
    QTest::newRow("named pipe") << "pipe.docx"
                                << "not a file";
}

void TestTextTransform::sourceNotReadable()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    fake("echo >output/source.rtf");
    writeFile(path("file"), "content");
    QVERIFY(QDir().mkdir(path("folder.docx")));
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe.docx")).constData(), 0600), 0);
    const QString source = m_folders->path(name);
    QString message;
    QCOMPARE(toRtf(source, path("target.rtf"), &message), TextTransform::SourceNotReadable);
    QCOMPARE(message, QStringLiteral("Could not read '%1': %2").arg(source, reason));
    QVERIFY(!QFile::exists(path("target.rtf")));
}

void TestTextTransform::sourceIsReadBeforeToolsAreLookedFor()
{
    const Environment environment("PATH", QByteArray());
    QCOMPARE(toRtf(path("missing.docx"), path("target.rtf")), TextTransform::SourceNotReadable);
}

void TestTextTransform::newTargetIsPrivate()
{
    fake("cp source.docx output/source.rtf; chmod 644 output/source.rtf");
    QCOMPARE(runFake(), TextTransform::NoError);
    QCOMPARE(int(QFile::permissions(path("target.rtf"))
                 & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther)),
             0);
    QCOMPARE(readFile(path("target.rtf")), QByteArray("content"));
}

void TestTextTransform::oldTargetIsReplaced()
{
    fake("cp source.docx output/source.rtf");
    writeFile(path("target.rtf"), "old, and longer than the new content");
    const QFile::Permissions permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    QVERIFY(QFile::setPermissions(path("target.rtf"), permissions));
    QCOMPARE(runFake(), TextTransform::NoError);
    QCOMPARE(readFile(path("target.rtf")), QByteArray("content"));
    QVERIFY(QFile::permissions(path("target.rtf")) & QFile::ReadGroup);
}

void TestTextTransform::targetBelowMissingFolder()
{
    fake("cp source.docx output/source.rtf");
    writeFile(path("in.docx"), "content");
    QString message;
    QCOMPARE(toRtf(path("in.docx"), path("missing/target.rtf"), &message), TextTransform::NoOutput);
    QCOMPARE(
        message,
        QStringLiteral("Could not write '%1': No such file or directory").arg(path("missing/target.rtf")));
    QVERIFY(!QFile::exists(path("missing")));
}

void TestTextTransform::targetIsFolder()
{
    fake("cp source.docx output/source.rtf");
    QVERIFY(QDir().mkdir(path("target.rtf")));
    QString message;
    QCOMPARE(runFake(&message), TextTransform::NoOutput);
    QVERIFY2(message.startsWith(QStringLiteral("Could not write '%1': ").arg(path("target.rtf"))),
             qPrintable(message));
    QVERIFY(QDir(path("target.rtf")).isEmpty());
}

void TestTextTransform::targetMayBeSource()
{
    fake("tr a-z A-Z <source.rtf >output/source.rtf");
    writeFile(path("in.rtf"), "content");
    QCOMPARE(toRtf(path("in.rtf"), path("in.rtf")), TextTransform::NoError);
    QCOMPARE(readFile(path("in.rtf")), QByteArray("CONTENT"));
}

void TestTextTransform::errorDescriptions_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("description");

    QTest::newRow("none") << 0 << QString();
    QTest::newRow("UnsupportedFormat") << 1 << "No program for this conversion is known";
    QTest::newRow("SourceNotReadable") << 2 << "The file could not be read";
    QTest::newRow("ToolNotFound") << 3 << "No program for this conversion is installed";
    QTest::newRow("ToolFailed") << 4 << "The conversion program failed";
    QTest::newRow("ToolTimedOut") << 5 << "The conversion program took too long";
    QTest::newRow("NoOutput") << 6 << "The converted file was not written";
    QTest::newRow("unknown") << 7 << QString();
}

void TestTextTransform::errorDescriptions()
{
    QFETCH(int, error);
    QFETCH(QString, description);
    QCOMPARE(TextTransform::errorDescription(Error(error)), description);
}

void TestTextTransform::messagesAreTranslated()
{
    ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    fake("exit 2");
    QString message;
    runFake(&message);
    const QString description = TextTransform::errorDescription(TextTransform::ToolFailed);
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(message, QStringLiteral("[TextTransform] pandoc ended with exit status 2"));
    QCOMPARE(description, QStringLiteral("[TextTransform] The conversion program failed"));
}

QTEST_GUILESS_MAIN(TestTextTransform)
#include "tst_texttransform.moc"
