#include "ORVRtfProperties.h"
#include "ORVTextFormat.h"
#include "ORVTextRtf.h"
#include "rtftesthelpers.h"

#include <QtTest/QtTest>

using namespace rtftest;

namespace {

const QByteArray sample = "{\\rtf1\\ansi One {\\b two}\\par th\\'e9 three}";
const QByteArray damaged = "{\\rtf1\\ansi One {\\b two}";

} // namespace

/*! The conversions from bytes that an application calls. */
class TestInmemory : public QObject {
    Q_OBJECT

private slots:
    void exportStyles();
    void fromRtfData();
    void fromRtfDataMessages_data();
    void fromRtfDataMessages();
    void fromRtfDataWithoutAMessage();
    void fromRtfDataNullDocument();
    void fromRtfDataEmptyBytes();
    void fromRtfDataUsesTheStaticDefaults();
    void fromRtfCData();
    void rtfCDataText_data();
    void rtfCDataText();
    void rtfPropertyAsText_data();
    void rtfPropertyAsText();
    void rtfPropertyAsHtml();
};

void TestInmemory::exportStyles()
{
    QCOMPARE(int(ORVTextRtf::ExportAsAnnotation), 0);
    QCOMPARE(int(ORVTextRtf::ExportAsFootnote), 1);
    QCOMPARE(int(ORVTextRtf::ExportAsAlternateFootnote), 2);
}

void TestInmemory::fromRtfData()
{
    QTextDocument document;
    document.setPlainText(QStringLiteral("old"));
    QString message = QStringLiteral("untouched");
    QVERIFY(ORVTextRtf::fromRtfData(sample, &document, &message));
    QCOMPARE(textOf(document), QString::fromUtf8("One two\nthé three"));
    QCOMPARE(formatOf(document, QStringLiteral("two")).property(QTextFormat::FontWeight).toInt(),
             int(QFont::Bold));
    QCOMPARE(message, QStringLiteral("untouched"));
}

void TestInmemory::fromRtfDataMessages_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("text");
    QTest::newRow("brace missing") << damaged << "Unmatched '}' in Rich Text file"
                                   << "One two";
    QTest::newRow("brace too many") << sample + "}"
                                    << "Unmatched '{' in Rich Text file"
                                    << QString::fromUtf8("One two\nthé three");
    QTest::newRow("cut off") << QByteArray("{a\\") << "Unexpected end of file"
                             << "a";
    QTest::newRow("bad escape") << QByteArray("{a\\'") << "Invalid control word parameter encountered"
                                << "a";
}

void TestInmemory::fromRtfDataMessages()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, message);
    QFETCH(QString, text);

    QTextDocument document;
    QString actual = QStringLiteral("old message");
    QVERIFY(!ORVTextRtf::fromRtfData(rtf, &document, &actual));
    QCOMPARE(actual, message);
    QCOMPARE(textOf(document), text);
}

void TestInmemory::fromRtfDataWithoutAMessage()
{
    QTextDocument document;
    QVERIFY(!ORVTextRtf::fromRtfData(damaged, &document, nullptr));
    QCOMPARE(textOf(document), QStringLiteral("One two"));
    QVERIFY(ORVTextRtf::fromRtfData(sample, &document, nullptr));
}

void TestInmemory::fromRtfDataNullDocument()
{
    QString message = QStringLiteral("untouched");
    QVERIFY(!ORVTextRtf::fromRtfData(sample, nullptr, &message));
    QVERIFY(!ORVTextRtf::fromRtfData(damaged, nullptr, &message));
    QVERIFY(!ORVTextRtf::fromRtfData(sample, nullptr, nullptr));
    QVERIFY(!ORVTextRtf::fromRtfCData(sample, nullptr));
    QCOMPARE(message, QStringLiteral("untouched"));
}

void TestInmemory::fromRtfDataEmptyBytes()
{
    for (const QByteArray& bytes : {QByteArray(), QByteArray("")}) {
        QTextDocument document;
        document.setPlainText(QStringLiteral("old"));
        QVERIFY(ORVTextRtf::fromRtfData(bytes, &document, nullptr));
        QVERIFY(document.isEmpty());
    }
}

void TestInmemory::fromRtfDataUsesTheStaticDefaults()
{
    QTextDocument document;
    QVERIFY(ORVTextRtf::fromRtfData("{a\\u133?b}", &document, nullptr));
    QCOMPARE(textOf(document), QStringLiteral("ab"));
    QCOMPARE(ORVTextFormat::defaultCharFormat(&document).intProperty(QTextFormat::FontHintingPreference),
             int(QFont::PreferNoHinting));

    ORVTextRtfReader::DefaultRemoveInvalidRtfChars = false;
    ORVTextRtfReader::DefaultFontHinting = true;
    const bool ok = ORVTextRtf::fromRtfData("{a\\u133?b}", &document, nullptr);
    ORVTextRtfReader::DefaultRemoveInvalidRtfChars = true;
    ORVTextRtfReader::DefaultFontHinting = false;
    QVERIFY(ok);
    QCOMPARE(textOf(document), QStringLiteral("a\uFFFDb"));
    QCOMPARE(ORVTextFormat::defaultCharFormat(&document).intProperty(QTextFormat::FontHintingPreference),
             int(QFont::PreferFullHinting));
}

void TestInmemory::fromRtfCData()
{
    QTextDocument document;
    QVERIFY(ORVTextRtf::fromRtfCData(sample, &document));
    QCOMPARE(textOf(document), QString::fromUtf8("One two\nthé three"));
    QVERIFY(!ORVTextRtf::fromRtfCData(damaged, &document));
    QCOMPARE(textOf(document), QStringLiteral("One two"));
}

void TestInmemory::rtfCDataText_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("null");
    QTest::newRow("text") << sample << QString::fromUtf8("One two\nthé three") << false;
    // As plain text, not as stored: spaces and line ends are ordinary ones.
    QTest::newRow("plain characters") << QByteArray("{a\\~b\\line c}") << "a b\nc" << false;
    QTest::newRow("damaged") << damaged << QString() << true;
    QTest::newRow("damaged behind the text") << sample + "}" << QString() << true;
}

void TestInmemory::rtfCDataText()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, text);
    QFETCH(bool, null);
    QCOMPARE(ORVTextRtf::rtfCDataText(rtf), text);
    QCOMPARE(ORVTextRtf::rtfCDataText(rtf).isNull(), null);
    QCOMPARE(ORVTextRtf::rtfCDataText(QByteArray()), QString());
}

void TestInmemory::rtfPropertyAsText_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("null");
    QTest::newRow("bytes") << QVariant(sample) << QString::fromUtf8("One two\nthé three") << false;
    QTest::newRow("string") << QVariant(QStringLiteral("{\\rtf1 abc}")) << "abc" << false;
    QTest::newRow("missing") << QVariant() << QString() << true;
    QTest::newRow("empty") << QVariant(QByteArray("")) << QString() << true;
    QTest::newRow("no bytes") << QVariant(QSize(1, 2)) << QString() << true;
    QTest::newRow("damaged") << QVariant(damaged) << QString() << true;
}

void TestInmemory::rtfPropertyAsText()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    QFETCH(bool, null);

    QTextCharFormat format;
    format.setProperty(ORVRtfProperty::NoteContent, value);
    QCOMPARE(ORVTextRtf::rtfProperty(ORVRtfProperty::NoteContent, format, false), text);
    QCOMPARE(ORVTextRtf::rtfProperty(ORVRtfProperty::NoteContent, format, false).isNull(), null);
    QCOMPARE(ORVTextRtf::rtfProperty(ORVRtfProperty::NoteContent, format, true).isNull(), null);
    // Another property is another text.
    QVERIFY(ORVTextRtf::rtfProperty(ORVRtfProperty::PdfData, format, false).isNull());
}

void TestInmemory::rtfPropertyAsHtml()
{
    QTextCharFormat format;
    format.setProperty(ORVRtfProperty::NoteContent, sample);
    QTextDocument document;
    QVERIFY(ORVTextRtf::fromRtfCData(sample, &document));
    const QString html = ORVTextRtf::rtfProperty(ORVRtfProperty::NoteContent, format, true);
    QCOMPARE(html, document.toHtml());
    QVERIFY(html.contains(QLatin1String(">two</span>")));
}

QTEST_MAIN(TestInmemory)
#include "tst_inmemory.moc"
