#include "conversionhelpers.h"

#include <ORVTextRtf.h>
#include <ORVTextRtfReader.h>
#include <TextTransform.h>

#include <QTextCursor>
#include <QTextDocument>
#include <QTranslator>
#include <QtTest>

using namespace conversiontest;

namespace {

const char* const OldText = "as before";
const char* const DamagedRtf = "{\\rtf1 half";
const char* const DamagedMessage = "Unmatched '}' in Rich Text file";

class ContextTranslator : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QLatin1Char('[') + QString::fromLatin1(context) + QLatin1String("] ")
            + QString::fromLatin1(text);
    }
};

} // namespace

class TestLoadFile : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void suffixDecides_data();
    void suffixDecides();
    void otherSuffixGivesFalseAndNoMessage_data();
    void otherSuffixGivesFalseAndNoMessage();
    void plainTextIsLatin1WithLineFeeds();
    void zeroBytesEndNoText();
    void htmlIsUtf8();
    void missingTextOrHtmlGivesTrue_data();
    void missingTextOrHtmlGivesTrue();
    void textAndHtmlForNoDocument_data();
    void textAndHtmlForNoDocument();

    void rtfFailure_data();
    void rtfFailure();
    void damagedRtfKeepsWhatCouldBeRead();
    void rtfMessageHasContextOfLibrary();

    void realDocuments_data();
    void realDocuments();
    void engineIsPassedOn_data();
    void engineIsPassedOn();
    void failedConversion_data();
    void failedConversion();
    void damagedConversion();
    void readerKnowsThePage_data();
    void readerKnowsThePage();
    void conversionMessagesHaveContextOfDocumentSupport();
    void messagesReplaceOldOnes();
    void messagesMayBeUnwanted();

private:
    QString path(const QString& name) const { return m_folders->path(name); }
    void fake(ORVImportExport::Engine engine, const QByteArray& commands) const
    {
        TextTransform::setToolPath(engine,
                                   writeScript(path(QStringLiteral("tool%1").arg(int(engine))), commands));
    }
    /*! Loads the file \a name into m_document; m_errors holds something else before. */
    bool load(const QString& name, ORVImportExport::Engine engine = ORVImportExport::PandocEngine)
    {
        m_errors = QStringList(QStringLiteral("old message"));
        return ORVTextRtf::loadFileIntoDocument(path(name), m_document.data(), engine, &m_errors);
    }

    QScopedPointer<Folders> m_folders;
    QScopedPointer<RealDocuments> m_documents;
    QScopedPointer<QTextDocument> m_document;
    QStringList m_errors;
};

void TestLoadFile::initTestCase()
{
    m_documents.reset(new RealDocuments);
}

void TestLoadFile::init()
{
    m_folders.reset(new Folders);
    m_document.reset(new QTextDocument(QString::fromLatin1(OldText)));
    for (int engine = ORVImportExport::LibreOfficeEngine; engine <= ORVImportExport::PandocEngine; ++engine)
        TextTransform::setToolPath(ORVImportExport::Engine(engine), QString());
}

void TestLoadFile::cleanup()
{
    const QStringList leftovers = m_folders->leftovers();
    m_folders.reset();
    QCOMPARE(leftovers, QStringList());
}

void TestLoadFile::suffixDecides_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");

    const QString asText = QStringLiteral("{\\rtf1 <b>bold</b>}");
    const QString asHtml = QStringLiteral("{\\rtf1 bold}");
    const QString asRtf = QStringLiteral("<b>bold</b>");
    const QString asConverted = QStringLiteral("converted");
    QTest::newRow("txt") << "notes.txt" << asText;
    QTest::newRow("TXT") << "notes.TXT" << asText;
    QTest::newRow("Txt after another suffix") << "a.rtf.Txt" << asText;
    QTest::newRow("html") << "page.html" << asHtml;
    QTest::newRow("HtmL") << "page.HtmL" << asHtml;
    QTest::newRow("rtf") << "letter.rtf" << asRtf;
    QTest::newRow("RTF") << "LETTER.RTF" << asRtf;
    QTest::newRow("doc") << "letter.doc" << asConverted;
    QTest::newRow("docx") << "letter.docx" << asConverted;
    QTest::newRow("odt") << "letter.odt" << asConverted;
    QTest::newRow("DOC") << "LETTER.DOC" << asConverted;
    QTest::newRow("DocX") << "letter.DocX" << asConverted;
    QTest::newRow("ODT") << "letter.ODT" << asConverted;
    QTest::newRow("suffix only") << ".odt" << asConverted;
}

void TestLoadFile::suffixDecides()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    fake(ORVImportExport::LibreOfficeEngine, "printf '{\\\\rtf1 converted}' >output/source.rtf");
    writeFile(path(name), "{\\rtf1 <b>bold</b>}");
    QVERIFY(load(name, ORVImportExport::LibreOfficeEngine));
    QCOMPARE(m_errors, QStringList());
    QCOMPARE(m_document->toPlainText(), text);
}

void TestLoadFile::otherSuffixGivesFalseAndNoMessage_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("htm") << "page.htm";
    QTest::newRow("none") << "letter";
    QTest::newRow("no dot") << "txt";
    QTest::newRow("other") << "letter.pdf";
    QTest::newRow("known suffix before another") << "letter.docx.bak";
    QTest::newRow("docm") << "letter.docm";
    QTest::newRow("dot at the end") << "letter.rtf.";
}

void TestLoadFile::otherSuffixGivesFalseAndNoMessage()
{
    QFETCH(QString, name);
    fake(ORVImportExport::PandocEngine, "printf '{\\\\rtf1 converted}' >output/source.rtf");
    writeFile(path(name), "{\\rtf1 text}");
    QVERIFY(!load(name));
    QCOMPARE(m_errors, QStringList(QStringLiteral("old message")));
    QCOMPARE(m_document->toPlainText(), QString::fromLatin1(OldText));
}

void TestLoadFile::plainTextIsLatin1WithLineFeeds()
{
    writeFile(path(QStringLiteral("a.txt")), "caf\xe9 \xc3\xa9 <b>\r\nnext\nlast");
    QVERIFY(load(QStringLiteral("a.txt")));
    QCOMPARE(m_document->toPlainText(), QString::fromUtf8("caf\xc3\xa9 \xc3\x83\xc2\xa9 <b>\nnext\nlast"));
}

void TestLoadFile::zeroBytesEndNoText()
{
    writeFile(path(QStringLiteral("text.txt")), QByteArray("a\0b", 3));
    QVERIFY(load(QStringLiteral("text.txt")));
    QCOMPARE(m_document->toPlainText(), QString::fromLatin1("a\0b", 3));
}

void TestLoadFile::htmlIsUtf8()
{
    writeFile(path(QStringLiteral("a.html")), "<p>caf\xc3\xa9 <b>bold</b></p><p>next</p>");
    QVERIFY(load(QStringLiteral("a.html")));
    QCOMPARE(m_document->toPlainText(), QString::fromUtf8("caf\xc3\xa9 bold\nnext"));
}

void TestLoadFile::missingTextOrHtmlGivesTrue_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("missing txt") << "missing.txt";
    QTest::newRow("missing html") << "missing.html";
    QTest::newRow("folder txt") << "folder.txt";
    QTest::newRow("folder html") << "folder.html";
}

void TestLoadFile::missingTextOrHtmlGivesTrue()
{
    QFETCH(QString, name);
    QVERIFY(QDir().mkdir(path(QStringLiteral("folder.txt"))));
    QVERIFY(QDir().mkdir(path(QStringLiteral("folder.html"))));
    QVERIFY(load(name));
    QCOMPARE(m_errors, QStringList());
    QCOMPARE(m_document->toPlainText(), QString::fromLatin1(OldText));
}

void TestLoadFile::textAndHtmlForNoDocument_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("txt") << "a.txt";
    QTest::newRow("html") << "a.html";
}

void TestLoadFile::textAndHtmlForNoDocument()
{
    QFETCH(QString, name);
    writeFile(path(name), "text");
    m_document.reset();
    QVERIFY(load(name));
    QCOMPARE(m_errors, QStringList());
}

void TestLoadFile::rtfFailure_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("missing") << "missing.rtf";
    QTest::newRow("damaged") << "damaged.rtf";
    QTest::newRow("folder") << "folder.rtf";
    QTest::newRow("name with a placeholder") << "%1 missing.RTF";
}

void TestLoadFile::rtfFailure()
{
    QFETCH(QString, name);
    writeFile(path(QStringLiteral("damaged.rtf")), DamagedRtf);
    QVERIFY(QDir().mkdir(path(QStringLiteral("folder.rtf"))));
    QVERIFY(!load(name));
    QCOMPARE(m_errors,
             QStringList(QLatin1String("Failed loading RTF file '") + path(name) + QLatin1Char('\'')));
}

void TestLoadFile::damagedRtfKeepsWhatCouldBeRead()
{
    writeFile(path(QStringLiteral("a.rtf")), "{\\rtf1 half\\par");
    QVERIFY(!load(QStringLiteral("a.rtf")));
    QVERIFY2(m_document->toPlainText().startsWith(QLatin1String("half")),
             qPrintable(m_document->toPlainText()));
}

void TestLoadFile::rtfMessageHasContextOfLibrary()
{
    ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    load(QStringLiteral("missing.rtf"));
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(m_errors,
             QStringList(QStringLiteral("[ORVTextRtf] Failed loading RTF file '%1'")
                             .arg(path(QStringLiteral("missing.rtf")))));
}

void TestLoadFile::realDocuments_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<int>("engine");

    const int libreOffice = ORVImportExport::LibreOfficeEngine;
    const int abiWord = ORVImportExport::AbiWordEngine;
    const int pandoc = ORVImportExport::PandocEngine;
    QTest::newRow("doc, automatic") << "doc" << int(ORVImportExport::AutomaticEngine);
    QTest::newRow("doc, LibreOffice") << "doc" << libreOffice;
    QTest::newRow("docx, LibreOffice") << "docx" << libreOffice;
    QTest::newRow("odt, LibreOffice") << "odt" << libreOffice;
    QTest::newRow("doc, AbiWord") << "doc" << abiWord;
    QTest::newRow("docx, AbiWord") << "docx" << abiWord;
    QTest::newRow("odt, AbiWord") << "odt" << abiWord;
    QTest::newRow("docx, pandoc") << "docx" << pandoc;
    QTest::newRow("odt, pandoc") << "odt" << pandoc;
}

void TestLoadFile::realDocuments()
{
    QFETCH(QString, suffix);
    QFETCH(int, engine);
    QVERIFY(ORVTextRtf::loadFileIntoDocument(m_documents->path(suffix), m_document.data(),
                                             ORVImportExport::Engine(engine), &m_errors));
    const QString text = m_document->toPlainText();
    QVERIFY2(missingWord(text).isEmpty(), qPrintable(text));
    QVERIFY(!text.contains(QString::fromLatin1(OldText)));
    const QTextCursor strong = m_document->find(QStringLiteral("strong"));
    QVERIFY(strong.charFormat().fontWeight() >= QFont::Bold);
}

void TestLoadFile::engineIsPassedOn_data()
{
    QTest::addColumn<int>("engine");
    QTest::addColumn<QString>("text");

    QTest::newRow("automatic") << int(ORVImportExport::AutomaticEngine) << "LibreOffice";
    QTest::newRow("LibreOffice") << int(ORVImportExport::LibreOfficeEngine) << "LibreOffice";
    QTest::newRow("AbiWord") << int(ORVImportExport::AbiWordEngine) << "AbiWord";
    QTest::newRow("pandoc") << int(ORVImportExport::PandocEngine) << "pandoc";
}

void TestLoadFile::engineIsPassedOn()
{
    QFETCH(int, engine);
    QFETCH(QString, text);
    fake(ORVImportExport::LibreOfficeEngine, "printf '{\\\\rtf1 LibreOffice}' >output/source.rtf");
    fake(ORVImportExport::AbiWordEngine, "printf '{\\\\rtf1 AbiWord}' >output/source.rtf");
    fake(ORVImportExport::PandocEngine, "printf '{\\\\rtf1 pandoc}' >output/source.rtf");
    writeFile(path(QStringLiteral("a.docx")), "content");
    QVERIFY(load(QStringLiteral("a.docx"), ORVImportExport::Engine(engine)));
    QCOMPARE(m_document->toPlainText(), text);
}

void TestLoadFile::failedConversion_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("commands");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("detail");

    QTest::newRow("docx") << "a.docx" << QByteArray("echo bad >&2; exit 2") << "DOCX"
                          << int(TextTransform::ToolFailed) << "pandoc ended with exit status 2\nbad";
    QTest::newRow("odt") << "a.odt" << QByteArray("true") << "ODT" << int(TextTransform::NoOutput)
                         << "pandoc wrote nothing";
    QTest::newRow("doc") << "a.doc" << QByteArray("true") << "DOC" << int(TextTransform::UnsupportedFormat)
                         << "Cannot convert '.doc' files to this format: pandoc";
    QTest::newRow("empty file") << "a.odt" << QByteArray(": >output/source.rtf") << "ODT"
                                << int(TextTransform::NoOutput) << "pandoc wrote nothing";
    QTest::newRow("mixed case") << "a.DocX" << QByteArray("exit 1") << "DOCX"
                                << int(TextTransform::ToolFailed) << "pandoc ended with exit status 1";
    QTest::newRow("placeholders in the name")
        << "%3 %2 %1.docx" << QByteArray("exit 1") << "DOCX" << int(TextTransform::ToolFailed)
        << "pandoc ended with exit status 1";
    QTest::newRow("crash") << "a.docx" << QByteArray("kill -KILL $$") << "DOCX"
                           << int(TextTransform::ToolFailed) << "pandoc crashed";
}

void TestLoadFile::failedConversion()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, commands);
    QFETCH(QString, kind);
    QFETCH(int, error);
    QFETCH(QString, detail);
    fake(ORVImportExport::PandocEngine, commands);
    writeFile(path(name), "content");
    QVERIFY(!load(name));
    const QString first = QLatin1String("Failed loading ") + kind + QLatin1String(" file '") + path(name)
        + QLatin1String("'\nError: ") + TextTransform::errorDescription(TextTransform::Error(error));
    QCOMPARE(m_errors, QStringList({first, detail}));
    QCOMPARE(m_document->toPlainText(), QString::fromLatin1(OldText));
}

void TestLoadFile::damagedConversion()
{
    fake(ORVImportExport::PandocEngine,
         "echo warning >&2; printf '" + QByteArray(DamagedRtf).replace('\\', "\\\\")
             + "' >output/source.rtf");
    writeFile(path(QStringLiteral("a.docx")), "content");
    QVERIFY(!load(QStringLiteral("a.docx")));
    QCOMPARE(m_errors.size(), 1);
    const QString start = QStringLiteral("Failed loading converted RTF file '");
    const QString end = QLatin1String(".rtf'\nError: ") + QString::fromLatin1(DamagedMessage);
    QVERIFY2(m_errors.first().startsWith(start + m_folders->temporary()), qPrintable(m_errors.first()));
    QVERIFY2(m_errors.first().endsWith(end), qPrintable(m_errors.first()));
}

void TestLoadFile::readerKnowsThePage_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("paperWidth");

    QTest::newRow("converted") << "a.docx" << 8400;
    QTest::newRow("rtf") << "a.rtf" << 8400;
    QTest::newRow("other format") << "a.html" << 12240;
}

void TestLoadFile::readerKnowsThePage()
{
    QFETCH(QString, name);
    QFETCH(int, paperWidth);
    fake(ORVImportExport::PandocEngine, "printf '{\\\\rtf1\\\\paperw8400 text}' >output/source.rtf");
    writeFile(path(name), "{\\rtf1\\paperw8400 text}");
    ORVTextRtfReader reader;

    QVERIFY(ORVTextRtf::loadFileIntoDocument(path(name), m_document.data(), ORVImportExport::PandocEngine,
                                             &m_errors, reader));

    QVERIFY(m_document->toPlainText().contains(QStringLiteral("text")));
    QCOMPARE(reader.paperWidth(), paperWidth);
    QVERIFY(!reader.device());
}

void TestLoadFile::conversionMessagesHaveContextOfDocumentSupport()
{
    ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    writeFile(path(QStringLiteral("a.odt")), "content");
    fake(ORVImportExport::PandocEngine, "exit 1");
    load(QStringLiteral("a.odt"));
    const QStringList failed = m_errors;
    fake(ORVImportExport::PandocEngine, "printf '{' >output/source.rtf");
    load(QStringLiteral("a.odt"));
    const QStringList damaged = m_errors;
    QCoreApplication::removeTranslator(&translator);
    QVERIFY2(failed.first().startsWith(QLatin1String("[TextDocSupport] Failed loading ODT file '")),
             qPrintable(failed.first()));
    QVERIFY2(
        damaged.first().startsWith(QLatin1String("[TextDocSupport] Failed loading converted RTF file '")),
        qPrintable(damaged.first()));
}

void TestLoadFile::messagesReplaceOldOnes()
{
    writeFile(path(QStringLiteral("a.rtf")), "{\\rtf1 text}");
    QVERIFY(!load(QStringLiteral("missing.docx")));
    QCOMPARE(m_errors,
             QStringList({QStringLiteral("Failed loading DOCX file '%1'\nError: The file could not be read")
                              .arg(path(QStringLiteral("missing.docx"))),
                          QStringLiteral("Could not read '%1': No such file or directory")
                              .arg(path(QStringLiteral("missing.docx")))}));
    QVERIFY(load(QStringLiteral("a.rtf")));
    QCOMPARE(m_errors, QStringList());
}

void TestLoadFile::messagesMayBeUnwanted()
{
    const ORVImportExport::Engine engine = ORVImportExport::PandocEngine;
    writeFile(path(QStringLiteral("a.rtf")), "{\\rtf1 text}");
    QVERIFY(!ORVTextRtf::loadFileIntoDocument(path(QStringLiteral("missing.rtf")), m_document.data(), engine,
                                              nullptr));
    QVERIFY(!ORVTextRtf::loadFileIntoDocument(path(QStringLiteral("missing.docx")), m_document.data(), engine,
                                              nullptr));
    QVERIFY(
        ORVTextRtf::loadFileIntoDocument(path(QStringLiteral("a.rtf")), m_document.data(), engine, nullptr));
    QCOMPARE(m_document->toPlainText(), QStringLiteral("text"));
}

QTEST_MAIN(TestLoadFile)
#include "tst_loadfile.moc"
