#include "transformtest.h"

using namespace conversiontest;

namespace {

const QString OldText = "as before"_s;
} // namespace

class TestLoadFile : public TransformTest {
    Q_OBJECT

private slots:
    void initTestCase() { m_documents.reset(new RealDocuments); }

    void init()
    {
        TransformTest::init();
        m_document.reset(new QTextDocument(OldText));
    }

    ORV_ROWS(suffixDecides)
    {
        const Rows add([this](const QString& name, const QByteArray& bytes, const QString& text) {
            fake(ORVImportExport::LibreOfficeEngine, "printf '{\\\\rtf1 converted}' >output/source.rtf");
            writeFile(path(name), bytes);
            QVERIFY(load(name, ORVImportExport::LibreOfficeEngine));
            QCOMPARE(m_errors, QStringList());
            QCOMPARE(m_document->toPlainText(), text);
        });
        const auto addSuffix = [&add](const char* name, const char* file, const char* text) {
            add(name, file, "{\\rtf1 <b>bold</b>}", text);
        };
        addSuffix("txt", "notes.txt", "{\\rtf1 <b>bold</b>}");
        addSuffix("TXT", "notes.TXT", "{\\rtf1 <b>bold</b>}");
        addSuffix("Txt after another suffix", "a.rtf.Txt", "{\\rtf1 <b>bold</b>}");
        addSuffix("html", "page.html", "{\\rtf1 bold}");
        addSuffix("HtmL", "page.HtmL", "{\\rtf1 bold}");
        addSuffix("rtf", "letter.rtf", "<b>bold</b>");
        addSuffix("RTF", "LETTER.RTF", "<b>bold</b>");
        addSuffix("doc", "letter.doc", "converted");
        addSuffix("docx", "letter.docx", "converted");
        addSuffix("odt", "letter.odt", "converted");
        addSuffix("DOC", "LETTER.DOC", "converted");
        addSuffix("DocX", "letter.DocX", "converted");
        addSuffix("ODT", "letter.ODT", "converted");
        addSuffix("suffix only", ".odt", "converted");
        add("plainTextIsLatin1WithLineFeeds", "a.txt", "caf\xe9 \xc3\xa9 <b>\r\nnext\nlast",
            "caf\xc3\xa9 \xc3\x83\xc2\xa9 <b>\nnext\nlast");
        add("zeroBytesEndNoText", "text.txt", "a\0b"_b, "a\0b"_s);
        add("htmlIsUtf8", "a.html", "<p>caf\xc3\xa9 <b>bold</b></p><p>next</p>", "caf\xc3\xa9 bold\nnext");
    }

    ORV_ROWS(otherSuffixGivesFalseAndNoMessage)
    {
        const Rows add([this](const QString& name) {
            fake(ORVImportExport::PandocEngine, "printf '{\\\\rtf1 converted}' >output/source.rtf");
            writeFile(path(name), "{\\rtf1 text}");
            QVERIFY(!load(name));
            QCOMPARE(m_errors, QStringList("old message"_s));
            QCOMPARE(m_document->toPlainText(), OldText);
        });
        add("htm", "page.htm");
        add("none", "letter");
        add("no dot", "txt");
        add("other", "letter.pdf");
        add("known suffix before another", "letter.docx.bak");
        add("docm", "letter.docm");
        add("dot at the end", "letter.rtf.");
    }

    void missingTextOrHtmlGivesTrue()
    {
        QVERIFY(QDir().mkdir(path("folder.txt"_s)));
        QVERIFY(QDir().mkdir(path("folder.html"_s)));
        for (const char* name : {"missing.txt", "missing.html", "folder.txt", "folder.html"}) {
            QVERIFY2(load(QLatin1String(name)), name);
            QCOMPARE(m_errors, QStringList());
            QCOMPARE(m_document->toPlainText(), OldText);
        }
    }

    void textAndHtmlForNoDocument()
    {
        m_document.reset();
        for (const QString& name : {"a.txt"_s, "a.html"_s}) {
            writeFile(path(name), "text");
            QVERIFY2(load(name), qPrintable(name));
            QCOMPARE(m_errors, QStringList());
        }
    }

    ORV_ROWS(rtfFailure)
    {
        const Rows add([this](const QString& name, const QString& text) {
            writeFile(path("damaged.rtf"_s), "{\\rtf1 half\\par and");
            QVERIFY(QDir().mkdir(path("folder.rtf"_s)));
            QVERIFY(!load(name));
            QCOMPARE(m_errors, QStringList("Failed loading RTF file '"_s + path(name) + QLatin1Char('\'')));
            QCOMPARE(m_document->toPlainText(), text);
        });
        add("missing", "missing.rtf", OldText);
        add("damaged", "damaged.rtf", "half\n");
        add("folder", "folder.rtf", OldText);
        add("name with a placeholder", "%1 missing.RTF", OldText);
    }

    ORV_ROWS(realDocuments)
    {
        const Rows add([this](const QString& suffix, int engine) {
            QVERIFY(ORVTextRtf::loadFileIntoDocument(m_documents->path(suffix), m_document.data(),
                                                     ORVImportExport::Engine(engine), &m_errors));
            const QString text = m_document->toPlainText();
            QVERIFY2(missingWord(text).isEmpty(), qPrintable(text));
            QVERIFY(!text.contains(OldText));
            const QTextCursor strong = m_document->find("strong"_s);
            QVERIFY(strong.charFormat().fontWeight() >= QFont::Bold);
        });
        add("doc, automatic", "doc", ORVImportExport::AutomaticEngine);
        add("doc, LibreOffice", "doc", ORVImportExport::LibreOfficeEngine);
        add("docx, LibreOffice", "docx", ORVImportExport::LibreOfficeEngine);
        add("odt, LibreOffice", "odt", ORVImportExport::LibreOfficeEngine);
        add("doc, AbiWord", "doc", ORVImportExport::AbiWordEngine);
        add("docx, AbiWord", "docx", ORVImportExport::AbiWordEngine);
        add("odt, AbiWord", "odt", ORVImportExport::AbiWordEngine);
        add("docx, pandoc", "docx", ORVImportExport::PandocEngine);
        add("odt, pandoc", "odt", ORVImportExport::PandocEngine);
    }

    ORV_ROWS(engineIsPassedOn)
    {
        const Rows add([this](int engine, const QString& text) {
            fake(ORVImportExport::LibreOfficeEngine, "printf '{\\\\rtf1 LibreOffice}' >output/source.rtf");
            fake(ORVImportExport::AbiWordEngine, "printf '{\\\\rtf1 AbiWord}' >output/source.rtf");
            fake(ORVImportExport::PandocEngine, "printf '{\\\\rtf1 pandoc}' >output/source.rtf");
            writeFile(path("a.docx"_s), "content");
            QVERIFY(load("a.docx"_s, ORVImportExport::Engine(engine)));
            QCOMPARE(m_document->toPlainText(), text);
        });
        add("automatic", ORVImportExport::AutomaticEngine, "LibreOffice");
        add("LibreOffice", ORVImportExport::LibreOfficeEngine, "LibreOffice");
        add("AbiWord", ORVImportExport::AbiWordEngine, "AbiWord");
        add("pandoc", ORVImportExport::PandocEngine, "pandoc");
    }

    ORV_ROWS(failedConversion)
    {
        const Rows add([this](const QString& name, const QByteArray& commands, const QString& kind, int error,
                              const QString& detail) {
            fake(ORVImportExport::PandocEngine, commands);
            writeFile(path(name), "content");
            QVERIFY(!load(name));
            const QString first = "Failed loading "_s + kind + " file '"_s + path(name) + "'\nError: "_s
                + TextTransform::errorDescription(TextTransform::Error(error));
            QCOMPARE(m_errors, QStringList({first, detail}));
            QCOMPARE(m_document->toPlainText(), OldText);
        });
        add("docx", "a.docx", "echo bad >&2; exit 2", "DOCX", TextTransform::ToolFailed,
            "pandoc ended with exit status 2\nbad");
        add("odt", "a.odt", "true", "ODT", TextTransform::NoOutput, "pandoc wrote nothing");
        add("doc", "a.doc", "true", "DOC", TextTransform::UnsupportedFormat,
            "Cannot convert '.doc' files to this format: pandoc");
        add("empty file", "a.odt", ": >output/source.rtf", "ODT", TextTransform::NoOutput,
            "pandoc wrote nothing");
        add("mixed case", "a.DocX", "exit 1", "DOCX", TextTransform::ToolFailed,
            "pandoc ended with exit status 1");
        add("placeholders in the name", "%3 %2 %1.docx", "exit 1", "DOCX", TextTransform::ToolFailed,
            "pandoc ended with exit status 1");
        add("crash", "a.docx", "kill -KILL $$", "DOCX", TextTransform::ToolFailed, "pandoc crashed");
    }

    void damagedConversion()
    {
        fake(ORVImportExport::PandocEngine, "echo warning >&2; printf '{\\\\rtf1 half' >output/source.rtf");
        writeFile(path("a.docx"_s), "content");
        QVERIFY(!load("a.docx"_s));
        QCOMPARE(m_errors.size(), 1);
        const QString start = "Failed loading converted RTF file '"_s;
        const QString end = ".rtf'\nError: "_s + "Unmatched '}' in Rich Text file"_s;
        QVERIFY2(m_errors.first().startsWith(start + temporary()), qPrintable(m_errors.first()));
        QVERIFY2(m_errors.first().endsWith(end), qPrintable(m_errors.first()));
    }

    ORV_ROWS(readerKnowsThePage)
    {
        const Rows add([this](const QString& name, int paperWidth) {
            fake(ORVImportExport::PandocEngine, "printf '{\\\\rtf1\\\\paperw8400 text}' >output/source.rtf");
            writeFile(path(name), "{\\rtf1\\paperw8400 text}");
            ORVTextRtfReader reader;
            QVERIFY(ORVTextRtf::loadFileIntoDocument(path(name), m_document.data(),
                                                     ORVImportExport::PandocEngine, &m_errors, reader));
            QVERIFY(m_document->toPlainText().contains("text"_s));
            QCOMPARE(reader.paperWidth(), paperWidth);
            QVERIFY(!reader.device());
        });
        add("converted", "a.docx", 8400);
        add("rtf", "a.rtf", 8400);
        add("other format", "a.html", 12240);
    }

    ORV_ROWS(contextsOfMessages)
    {
        const Rows add([this](const QString& name, const QByteArray& commands, const QString& begin) {
            if (!name.startsWith("missing"_s))
                writeFile(path(name), "content");
            fake(ORVImportExport::PandocEngine, commands);
            ContextTranslator translator;
            QVERIFY(QCoreApplication::installTranslator(&translator));
            load(name);
            QCoreApplication::removeTranslator(&translator);
            const QString message = m_errors.value(0);
            QVERIFY2(message.startsWith(begin), qPrintable(message));
        });
        add("library", "missing.rtf", "true", "[ORVTextRtf] Failed loading RTF file '");
        add("document support", "a.odt", "exit 1", "[TextDocSupport] Failed loading ODT file '");
        add("document support, damaged RTF", "a.odt", "printf '{' >output/source.rtf",
            "[TextDocSupport] Failed loading converted RTF file '");
    }

    void messagesReplaceOldOnesAndMayBeUnwanted()
    {
        const QString missing = path("missing.docx"_s);
        writeFile(path("a.rtf"_s), "{\\rtf1 text}");
        QVERIFY(!load("missing.docx"_s));
        QCOMPARE(
            m_errors,
            QStringList({"Failed loading DOCX file '%1'\nError: The file could not be read"_s.arg(missing),
                         "Could not read '%1': No such file or directory"_s.arg(missing)}));
        QVERIFY(load("a.rtf"_s));
        QCOMPARE(m_errors, QStringList());
        for (const QString& name : {"missing.rtf"_s, "missing.docx"_s, "a.rtf"_s})
            QCOMPARE(ORVTextRtf::loadFileIntoDocument(path(name), m_document.data(),
                                                      ORVImportExport::PandocEngine, nullptr),
                     name == "a.rtf"_s);
        QCOMPARE(m_document->toPlainText(), "text"_s);
    }

private:
    void fake(ORVImportExport::Engine engine, const QByteArray& commands) const
    {
        TextTransform::setToolPath(engine, writeScript(path("tool%1"_s.arg(int(engine))), commands));
    }

    /*! Loads the file \a name into m_document; m_errors holds something else before. */
    bool load(const QString& name, ORVImportExport::Engine engine = ORVImportExport::PandocEngine)
    {
        m_errors = QStringList("old message"_s);
        return ORVTextRtf::loadFileIntoDocument(path(name), m_document.data(), engine, &m_errors);
    }

    QScopedPointer<RealDocuments> m_documents;
    QScopedPointer<QTextDocument> m_document;
    QStringList m_errors;
};

ORV_TEST_WITH("soffice pandoc", "loadfile", TestLoadFile, QGuiApplication)
#include "loadfile.moc"
