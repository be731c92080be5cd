#include "conversionhelpers.h"

#include <QtTest>

using namespace conversiontest;

/*! What a run of the tool ended with. */
struct ToolRun {
    int exitCode = -1;
    QByteArray out;
    QByteArray err;
};

/*! What orvrtf makes of files of word processors. */
class TestToolFormats : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void realDocumentToText_data();
    void realDocumentToText();
    void rtfOpensInLibreOfficeWithSameWords();
    void htmlFromDocument();
    void engineOption_data();
    void engineOption();
    void suffixInUpperCase();
    void anyFileName();

    void noProgramInstalled();
    void everyMessageIsShown();
    void missingInput_data();
    void missingInput();
    void failureKeepsOldOutput();
    void fromOptionNeedsNoProgram();
    void usageErrors_data();
    void usageErrors();
    void helpNamesEngines();

private:
    QString path(const char* name) const { return m_folders->path(QString::fromUtf8(name)); }
    ToolRun run(const QStringList& arguments) const;
    /*! Lets the tool find programs in a folder of the test only, and makes \a name there. */
    void fake(const QString& name, const QByteArray& commands);

    QScopedPointer<Folders> m_folders;
    QScopedPointer<RealDocuments> m_documents;
    QProcessEnvironment m_environment;
};

void TestToolFormats::initTestCase()
{
    m_documents.reset(new RealDocuments);
}

void TestToolFormats::init()
{
    m_folders.reset(new Folders);
    QVERIFY(QDir().mkdir(path("bin")) && QDir().mkdir(path("runtime")));
    // Qt itself takes a folder for its sockets, but none that others can enter.
    QFile::setPermissions(path("runtime"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_environment = QProcessEnvironment::systemEnvironment();
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), path("runtime"));
}

void TestToolFormats::cleanup()
{
    const QStringList leftovers = m_folders->leftovers();
    m_folders.reset();
    QCOMPARE(leftovers, QStringList());
}

ToolRun TestToolFormats::run(const QStringList& arguments) const
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setWorkingDirectory(m_folders->path(QString()));
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(QString::fromUtf8(ORVRTF_TOOL), arguments);
    ToolRun result;
    if (!process.waitForFinished(120000))
        qFatal("orvrtf does not end");
    if (process.exitStatus() == QProcess::NormalExit)
        result.exitCode = process.exitCode();
    result.out = process.readAllStandardOutput();
    result.err = process.readAllStandardError();
    return result;
}

void TestToolFormats::fake(const QString& name, const QByteArray& commands)
{
    m_environment.insert(QStringLiteral("PATH"), path("bin"));
    writeScript(path("bin/") + name, "PATH=/usr/bin:/bin\n" + commands);
}

static QStringList words(const char* line)
{
    return QString::fromUtf8(line).split(QLatin1Char(' '));
}

void TestToolFormats::realDocumentToText_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("engine");

    QTest::newRow("doc") << "doc" << QString();
    QTest::newRow("docx") << "docx" << QString();
    QTest::newRow("odt") << "odt" << QString();
    QTest::newRow("odt, auto") << "odt"
                               << "auto";
    QTest::newRow("docx, LibreOffice") << "docx"
                                       << "libreoffice";
    QTest::newRow("doc, AbiWord") << "doc"
                                  << "abiword";
    QTest::newRow("docx, pandoc") << "docx"
                                  << "pandoc";
}

void TestToolFormats::realDocumentToText()
{
    QFETCH(QString, suffix);
    QFETCH(QString, engine);
    QStringList arguments = {QStringLiteral("convert"), m_documents->path(suffix), QStringLiteral("-"),
                             QStringLiteral("--to"), QStringLiteral("txt")};
    if (!engine.isEmpty())
        arguments << QStringLiteral("--engine") << engine;
    const ToolRun result = run(arguments);
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(missingWord(QString::fromUtf8(result.out)).isEmpty(), result.out.constData());
}

void TestToolFormats::rtfOpensInLibreOfficeWithSameWords()
{
    const ToolRun result =
        run({QStringLiteral("convert"), m_documents->path(QStringLiteral("docx")), path("letter.rtf")});
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QVERIFY(readFile(path("letter.rtf")).startsWith("{\\rtf1"));
    QVERIFY(QDir().mkdir(path("libreoffice")));
    const Environment temporary("TMPDIR", QFile::encodeName(path("libreoffice")));
    convertWithLibreOffice(path("letter.rtf"), QStringLiteral("txt:Text (encoded):UTF8"), path("runtime"));
    const QString text = QString::fromUtf8(readFile(path("runtime/letter.txt")));
    QVERIFY2(missingWord(text).isEmpty(), qPrintable(text));
}

void TestToolFormats::htmlFromDocument()
{
    fake(QStringLiteral("soffice"), "printf '{\\\\rtf1 a {\\\\b strong}}' >output/source.rtf");
    writeFile(path("in.odt"), "content");
    const ToolRun result = run(words("convert in.odt out.html"));
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QVERIFY(readFile(path("out.html")).contains(">strong</span>"));
}

void TestToolFormats::engineOption_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("out");

    QTest::newRow("none") << "" << QByteArray("by soffice\n");
    QTest::newRow("auto") << " --engine auto" << QByteArray("by soffice\n");
    QTest::newRow("libreoffice") << " --engine libreoffice" << QByteArray("by soffice\n");
    QTest::newRow("abiword") << " --engine abiword" << QByteArray("by abiword\n");
    QTest::newRow("pandoc") << " --engine=pandoc" << QByteArray("by pandoc\n");
}

void TestToolFormats::engineOption()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, out);
    for (const QString& name : words("soffice abiword pandoc"))
        fake(name, "printf '{\\\\rtf1 by " + name.toUtf8() + "}' >output/source.rtf");
    writeFile(path("in.docx"), "content");
    const ToolRun result =
        run((QLatin1String("convert in.docx - --to txt") + arguments).split(QLatin1Char(' ')));
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out, out);
}

void TestToolFormats::suffixInUpperCase()
{
    fake(QStringLiteral("abiword"), "printf '{\\\\rtf1 text}' >output/source.rtf");
    writeFile(path("IN.DOC"), "content");
    const ToolRun result = run(words("convert IN.DOC - --to txt"));
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.out, QByteArray("text\n"));
}

void TestToolFormats::anyFileName()
{
    fake(QStringLiteral("soffice"), "cp source.docx output/source.rtf");
    const QString name = QString::fromUtf8("-o 'x'\n\xc3\xbc.docx");
    writeFile(m_folders->path(name), "{\\rtf1 text}");
    const ToolRun result =
        run({QStringLiteral("convert"), QStringLiteral("--"), name, name + QStringLiteral(".txt")});
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(readFile(m_folders->path(name) + QStringLiteral(".txt")), QByteArray("text\n"));
}

void TestToolFormats::noProgramInstalled()
{
    m_environment.insert(QStringLiteral("PATH"), QString());
    writeFile(path("in.docx"), "content");
    const ToolRun result = run(words("convert in.docx out.rtf"));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.err,
             QByteArray("orvrtf: Failed loading DOCX file 'in.docx' Error: No program for this conversion is "
                        "installed\n"
                        "orvrtf: Looked for: LibreOffice (soffice, libreoffice), AbiWord (abiword), pandoc "
                        "(pandoc)\n"));
    QVERIFY(!QFile::exists(path("out.rtf")));
}

void TestToolFormats::everyMessageIsShown()
{
    fake(QStringLiteral("pandoc"), "echo 'first line' >&2; echo second >&2; exit 5");
    writeFile(path("in.odt"), "content");
    const ToolRun result = run(words("convert in.odt out.rtf --engine pandoc"));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.err,
             QByteArray("orvrtf: Failed loading ODT file 'in.odt' Error: The conversion program failed\n"
                        "orvrtf: pandoc ended with exit status 5 first line second\n"));
}

void TestToolFormats::missingInput_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("error");

    QTest::newRow("docx") << "missing.docx"
                          << QByteArray("orvrtf: Failed loading DOCX file 'missing.docx' Error: The file "
                                        "could not be read\n"
                                        "orvrtf: Could not read 'missing.docx': No such file or directory\n");
    QTest::newRow("folder") << "folder.odt"
                            << QByteArray(
                                   "orvrtf: Failed loading ODT file 'folder.odt' Error: The file could "
                                   "not be read\n"
                                   "orvrtf: Could not read 'folder.odt': not a file\n");
    QTest::newRow("txt") << "missing.txt"
                         << QByteArray("orvrtf: cannot read missing.txt: No such file or directory\n");
    QTest::newRow("html") << "missing.html"
                          << QByteArray("orvrtf: cannot read missing.html: No such file or directory\n");
}

void TestToolFormats::missingInput()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, error);
    QVERIFY(QDir().mkdir(path("folder.odt")));
    const ToolRun result = run({QStringLiteral("convert"), name, QStringLiteral("out.rtf")});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.err, error);
    QVERIFY(!QFile::exists(path("out.rtf")));
}

void TestToolFormats::failureKeepsOldOutput()
{
    fake(QStringLiteral("soffice"), "printf '{\\\\rtf1 half' >output/source.rtf");
    writeFile(path("in.docx"), "content");
    writeFile(path("out.txt"), "old");
    const ToolRun result = run(words("convert in.docx out.txt"));
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.err.startsWith("orvrtf: Failed loading converted RTF file '"), result.err.constData());
    QCOMPARE(result.err.count('\n'), 1);
    QCOMPARE(readFile(path("out.txt")), QByteArray("old"));
}

void TestToolFormats::fromOptionNeedsNoProgram()
{
    m_environment.insert(QStringLiteral("PATH"), QString());
    writeFile(path("in.doc"), "{\\rtf1 text}");
    const ToolRun result = run(words("convert in.doc - --from rtf --to txt"));
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out, QByteArray("text\n"));
}

void TestToolFormats::usageErrors_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("error");

    const QByteArray inputOnly = "--engine goes with .doc, .docx and .odt input only";
    QTest::newRow("unknown engine")
        << "convert in.docx out.rtf --engine word"
        << QByteArray("unknown engine \"word\", known are auto, libreoffice, abiword and pandoc");
    QTest::newRow("engine for RTF") << "convert in.rtf out.html --engine pandoc" << inputOnly;
    QTest::newRow("engine for HTML") << "convert in.html out.rtf --engine pandoc" << inputOnly;
    QTest::newRow("engine for standard input") << "convert - out.rtf --engine pandoc" << inputOnly;
    QTest::newRow("engine with --from") << "convert in.docx out.html --from rtf --engine pandoc" << inputOnly;
    QTest::newRow("engine for check")
        << "check in.docx --engine pandoc" << QByteArray("--engine does not go with check");
    QTest::newRow("docx output") << "convert in.docx out.docx"
                                 << QByteArray("cannot tell the format of \"out.docx\" by its suffix, known "
                                               "are .rtf, .html, .htm, .txt, .odt, .pdf and .png");
    QTest::newRow("docx for --from") << "convert in out.rtf --from docx"
                                     << QByteArray(
                                            "unknown input format \"docx\", known are rtf, html and txt");
}

void TestToolFormats::usageErrors()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, error);
    writeFile(path("in.docx"), "content");
    const ToolRun result = run(arguments.split(QLatin1Char(' ')));
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.err, "orvrtf: " + error + "; see orvrtf --help\n");
}

void TestToolFormats::helpNamesEngines()
{
    const ToolRun result = run(words("--help"));
    QCOMPARE(result.exitCode, 0);
    for (const char* const topic : {"--engine", ".docx", ".odt", "libreoffice", "abiword", "pandoc"})
        QVERIFY2(result.out.contains(topic), topic);
}

QTEST_GUILESS_MAIN(TestToolFormats)
#include "tst_tool_formats.moc"
