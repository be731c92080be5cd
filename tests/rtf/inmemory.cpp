#include "testsupport.h"

using namespace rtftest;

namespace {

const QByteArray sample = "{\\rtf1\\ansi One {\\b two}\\par th\\'e9 three}";
const QByteArray damaged = "{\\rtf1\\ansi One {\\b two}";

} // namespace

/*! The conversions from bytes that an application calls. */
class TestInMemory : public QObject {
    Q_OBJECT

private slots:
    void exportStyles()
    {
        QCOMPARE(int(ORVTextRtf::ExportAsAnnotation), 0);
        QCOMPARE(int(ORVTextRtf::ExportAsFootnote), 1);
        QCOMPARE(int(ORVTextRtf::ExportAsAlternateFootnote), 2);
    }

    void fromRtfData()
    {
        QTextDocument document;
        document.setPlainText("old"_s);
        QString message = "untouched"_s;
        QVERIFY(ORVTextRtf::fromRtfData(sample, &document, &message));
        QCOMPARE(textOf(document), "One two\nthé three"_s);
        QCOMPARE(formatOf(document, "two"_s).property(QTextFormat::FontWeight).toInt(), int(QFont::Bold));
        QCOMPARE(message, "untouched"_s);
    }

    ORV_ROWS(fromRtfDataMessages)
    {
        const Rows add([](const QByteArray& rtf, const QString& message, const QString& text) {
            QTextDocument document;
            QString actual = "old message"_s;
            QVERIFY(!ORVTextRtf::fromRtfData(rtf, &document, &actual));
            QCOMPARE(actual, message);
            QCOMPARE(textOf(document), text);
        });
        add("brace missing", damaged, "Unmatched '}' in Rich Text file", "One two");
        add("brace too many", sample + "}", "Unmatched '{' in Rich Text file", "One two\nthé three");
        add("cut off", "{a\\", "Unexpected end of file", "a");
        add("bad escape", "{a\\'", "Invalid control word parameter encountered", "a");
    }

    void fromRtfDataWithoutAMessage()
    {
        QTextDocument document;
        QVERIFY(!ORVTextRtf::fromRtfData(damaged, &document, nullptr));
        QCOMPARE(textOf(document), "One two"_s);
        QVERIFY(ORVTextRtf::fromRtfData(sample, &document, nullptr));
    }

    void fromRtfDataNullDocument()
    {
        QString message = "untouched"_s;
        QVERIFY(!ORVTextRtf::fromRtfData(sample, nullptr, &message));
        QVERIFY(!ORVTextRtf::fromRtfData(damaged, nullptr, &message));
        QVERIFY(!ORVTextRtf::fromRtfData(sample, nullptr, nullptr));
        QVERIFY(!ORVTextRtf::fromRtfCData(sample, nullptr));
        QCOMPARE(message, "untouched"_s);
    }

    void fromRtfDataEmptyBytes()
    {
        for (const QByteArray& bytes : {QByteArray(), ""_b}) {
            QTextDocument document;
            document.setPlainText("old"_s);
            QVERIFY(ORVTextRtf::fromRtfData(bytes, &document, nullptr));
            QVERIFY(document.isEmpty());
        }
    }

    void fromRtfDataUsesTheStaticDefaults()
    {
        QTextDocument document;
        QVERIFY(ORVTextRtf::fromRtfData("{a\\u133?b}", &document, nullptr));
        QCOMPARE(textOf(document), "ab"_s);
        QCOMPARE(ORVTextFormat::defaultCharFormat(&document).intProperty(QTextFormat::FontHintingPreference),
                 int(QFont::PreferNoHinting));

        ORVTextRtfReader::DefaultRemoveInvalidRtfChars = false;
        ORVTextRtfReader::DefaultFontHinting = true;
        const bool ok = ORVTextRtf::fromRtfData("{a\\u133?b}", &document, nullptr);
        ORVTextRtfReader::DefaultRemoveInvalidRtfChars = true;
        ORVTextRtfReader::DefaultFontHinting = false;
        QVERIFY(ok);
        QCOMPARE(textOf(document), "a\uFFFDb"_s);
        QCOMPARE(ORVTextFormat::defaultCharFormat(&document).intProperty(QTextFormat::FontHintingPreference),
                 int(QFont::PreferFullHinting));
    }

    void fromRtfCData()
    {
        QTextDocument document;
        QVERIFY(ORVTextRtf::fromRtfCData(sample, &document));
        QCOMPARE(textOf(document), "One two\nthé three"_s);
        QVERIFY(!ORVTextRtf::fromRtfCData(damaged, &document));
        QCOMPARE(textOf(document), "One two"_s);
    }

    ORV_ROWS(rtfCDataText)
    {
        const Rows add([](const QByteArray& rtf, const QString& text, bool null) {
            QCOMPARE(ORVTextRtf::rtfCDataText(rtf), text);
            QCOMPARE(ORVTextRtf::rtfCDataText(rtf).isNull(), null);
            QCOMPARE(ORVTextRtf::rtfCDataText(QByteArray()), QString());
        });
        add("text", sample, "One two\nthé three", false);
        // As plain text, not as stored: spaces and line ends are ordinary ones.
        add("plain characters", "{a\\~b\\line c}", "a b\nc", false);
        add("damaged", damaged, QString(), true);
        add("damaged behind the text", sample + "}", QString(), true);
    }

    ORV_ROWS(rtfPropertyAsText)
    {
        const Rows add([](const QVariant& value, const QString& text, bool null) {
            QTextCharFormat format;
            format.setProperty(ORVRtfProperty::NoteContent, value);
            QCOMPARE(ORVTextRtf::rtfProperty(ORVRtfProperty::NoteContent, format, false), text);
            QCOMPARE(ORVTextRtf::rtfProperty(ORVRtfProperty::NoteContent, format, false).isNull(), null);
            QCOMPARE(ORVTextRtf::rtfProperty(ORVRtfProperty::NoteContent, format, true).isNull(), null);
            // Another property is another text.
            QVERIFY(ORVTextRtf::rtfProperty(ORVRtfProperty::PdfData, format, false).isNull());
        });
        add("bytes", QVariant(sample), "One two\nthé three", false);
        add("string", QVariant("{\\rtf1 abc}"_s), "abc", false);
        add("missing", QVariant(), QString(), true);
        add("empty", QVariant(""_b), QString(), true);
        add("no bytes", QVariant(QSize(1, 2)), QString(), true);
        add("damaged", QVariant(damaged), QString(), true);
    }

    void rtfPropertyAsHtml()
    {
        QTextCharFormat format;
        format.setProperty(ORVRtfProperty::NoteContent, sample);
        QTextDocument document;
        QVERIFY(ORVTextRtf::fromRtfCData(sample, &document));
        const QString html = ORVTextRtf::rtfProperty(ORVRtfProperty::NoteContent, format, true);
        QCOMPARE(html, document.toHtml());
        QVERIFY(html.contains(">two</span>"_s));
    }
};

ORV_TEST("inmemory", TestInMemory, QGuiApplication)
#include "inmemory.moc"
