#include "ORVRtfProperties.h"
#include "ORVTextPage.h"
#include "QtFontCompat_p.h"
#include "bufferedoutput.h"
#include "rtfwritinghelpers.h"

#include <QtTest/QtTest>

using namespace rtftest;

namespace {

/*! How one text is escaped. */
struct Escaping {
    int fontNumber = 0;
    bool leadingSpace = true;
    bool verbatim = false;
    bool exportingMode = false;
    QString bookmark;
};

Escaping inFont(int number)
{
    Escaping escaping;
    escaping.fontNumber = number;
    return escaping;
}

Escaping verbatim(int fontNumber = 0)
{
    Escaping escaping = inFont(fontNumber);
    escaping.verbatim = true;
    return escaping;
}

Escaping exportingText(const QString& bookmark = QString())
{
    Escaping escaping;
    escaping.exportingMode = true;
    escaping.bookmark = bookmark;
    return escaping;
}

bool writeText(ORVRtfOutput& output, const QString& text, const Escaping& escaping = Escaping())
{
    output.setExportingMode(escaping.exportingMode);
    return output.writePrintableCharacters(text, escaping.fontNumber, escaping.leadingSpace,
                                           escaping.verbatim, escaping.bookmark);
}

QByteArray escape(const QString& text, const Escaping& escaping = Escaping())
{
    BufferedOutput output;
    if (!writeText(output, text, escaping))
        QTest::qFail("writing text gives true", __FILE__, __LINE__);
    if (output.isKeywordPending())
        QTest::qFail("nothing is owed after text", __FILE__, __LINE__);
    return output.bytes();
}

QString fromUtf8(const char* text)
{
    return QString::fromUtf8(text);
}

QString unit(int code)
{
    return QString(QChar(ushort(code)));
}

QByteArray preamble(int fontNumber = 0)
{
    const QByteArray number = QByteArray::number(fontNumber);
    return "\\loch\\af" + number + "\\hich\\af" + number + "\\dbch\\af" + number + "\\uc1";
}

const char* const PageNumber = "{\\chpgn}";
const char* const PageCount = "{\\field{\\*\\fldinst{NUMPAGES}}{\\fldrslt 1}}";

QByteArray pageReference(const QByteArray& bookmark)
{
    return "{\\field{\\*\\fldinst{PAGEREF " + bookmark + " \\h}}{\\fldrslt ?}}";
}

/*! The byte of code page 1252 that stands for \a code, as the library has that code page; 0x3F without one.
 */
int ansiByte(int code)
{
    // 0x80 to 0x9F; 0x98 is the library's own choice.
    static const ushort specials[32] = {0x20ac, 0,      0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021,
                                        0x02c6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017d, 0,
                                        0,      0x2018, 0x2019, 0x201c, 0x201d, 0x2022, 0x2013, 0x2014,
                                        0x20dc, 0x2122, 0x0161, 0x203a, 0x0153, 0,      0x017e, 0x0178};
    if (code >= 0xa0 && code <= 0xff)
        return code;
    for (int i = 0; i < 32; ++i) {
        if (specials[i] == code)
            return 0x80 + i;
    }
    return 0x3f;
}

QByteArray hexEscape(int byte)
{
    return "\\'" + QByteArray::number(byte, 16).rightJustified(2, '0').toUpper();
}

/*! How a unit goes out where it has no control word of its own. */
QByteArray generalForm(int code)
{
    if (code >= 0x20 && code <= 0x7f)
        return QByteArray(1, char(code));
    if (code < 0x20)
        return hexEscape(code);
    return preamble() + "\\u" + QByteArray::number(code) + hexEscape(ansiByte(code));
}

/*! How a unit of ordinary text goes out. */
QByteArray ordinaryForm(int code)
{
    switch (code) {
    case 0x09: return "\\tab ";
    case '\\': return "\\\\";
    case '{': return "\\{";
    case '}': return "\\}";
    case 0xa0: return "\\~";
    case 0x2013: return "\\endash ";
    case 0x2014: return "\\hich\\f0 \\emdash \\loch\\f0 ";
    case 0x2022: return "\\bullet ";
    case 0x2028: return "\\line ";
    case 0xe000: return PageNumber;
    case 0xe001: return PageCount;
    case 0xe002: return pageReference(QByteArray());
    default: return generalForm(code);
    }
}

/*! The paragraphs that "A", a unit and "B" are after a document with them was written and read back. */
QStringList paragraphsReadBack(int code)
{
    const QString a = QStringLiteral("A");
    const QString b = QStringLiteral("B");
    switch (code) {
    // What ends a paragraph when it is inserted into a document never gets as far as the writer.
    case 0x0a:
    case 0x0d:
    case 0x2029:
    case 0xfdd0:
    case 0xfdd1: return {a, b};
    // Fields come back as their results, but for the current page, which has none.
    case 0xe000: return {a + b};
    case 0xe001: return {QStringLiteral("A1B")};
    case 0xe002: return {QStringLiteral("A?B")};
    default: break;
    }
    // The reader drops these control characters.
    if (code >= 0x7f && code <= 0x9f)
        return {a + b};
    return {a + unit(code) + b};
}

const int UnitCount = 0x10000;
const int UnitsPerDocument = 0x1000;

} // namespace

Q_DECLARE_METATYPE(Escaping)

class TestWriterEscaping : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void text_data();
    void text();
    void everyUnit();
    void everyUnitVerbatim();
    void leadingSpace_data();
    void leadingSpace();
    void preambleOncePerCall();
    void hexadecimal();

    void documentText_data();
    void documentText();
    void textHasTheNumberOfItsFont();
    void eachRunHasItsOwnPreamble();
    void pageReferencesOfARun();
    void headerText();
    void everyUnitReadsBack_data();
    void everyUnitReadsBack();
};

void TestWriterEscaping::initTestCase()
{
    // The output takes the spellings from the table that readers and writers build.
    ORVTextRtfCommon::initHash();
}

void TestWriterEscaping::text_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Escaping>("escaping");
    QTest::addColumn<QByteArray>("rtf");
    const Escaping plain;

    QTest::newRow("nothing") << QString() << plain << QByteArray();
    QTest::newRow("ASCII") << fromUtf8("Hello, World 123~!") << plain << QByteArray("Hello, World 123~!");
    QTest::newRow("blanks stay") << fromUtf8("  a  ") << plain << QByteArray("  a  ");
    QTest::newRow("braces and backslash") << fromUtf8("{\\b x}") << plain << QByteArray("\\{\\\\b x\\}");
    QTest::newRow("tab") << fromUtf8("a\tb\t\t") << plain << QByteArray("a\\tab b\\tab \\tab ");
    QTest::newRow("no-break space") << fromUtf8("a\xc2\xa0 b") << plain << QByteArray("a\\~ b");
    QTest::newRow("en dash") << fromUtf8("A\xe2\x80\x93"
                                         "B")
                             << plain << QByteArray("A\\endash B");
    QTest::newRow("em dash") << fromUtf8("A\xe2\x80\x94"
                                         "B")
                             << inFont(12) << QByteArray("A\\hich\\f12 \\emdash \\loch\\f12 B");
    QTest::newRow("bullet and line") << fromUtf8("\xe2\x80\xa2 x\xe2\x80\xa8y") << plain
                                     << QByteArray("\\bullet  x\\line y");
    QTest::newRow("line feed, return, NUL")
        << QString(unit('\n') + unit('\r') + unit(0)) << plain << QByteArray("\\'0A\\'0D\\'00");
    QTest::newRow("delete") << unit(0x7f) << plain << QByteArray("\x7f");
    QTest::newRow("paragraph separator") << unit(0x2029) << plain << preamble() + "\\u8233\\'3F";
    QTest::newRow("quotation marks") << fromUtf8("\xe2\x80\x98\xe2\x80\x99\xe2\x80\x9c\xe2\x80\x9d") << plain
                                     << preamble() + "\\u8216\\'91\\u8217\\'92\\u8220\\'93\\u8221\\'94";
    QTest::newRow("euro sign") << fromUtf8("\xe2\x82\xac") << plain << preamble() + "\\u8364\\'80";
    QTest::newRow("small tilde has no byte") << unit(0x2dc) << plain << preamble() + "\\u732\\'3F";
    QTest::newRow("byte 0x98") << unit(0x20dc) << plain << preamble() + "\\u8412\\'98";
    QTest::newRow("control character of Latin-1") << unit(0x85) << plain << preamble() + "\\u133\\'3F";
    QTest::newRow("above 32767") << unit(0xfffd) << plain << preamble() + "\\u65533\\'3F";
    QTest::newRow("surrogates") << fromUtf8("\xf0\x9f\x98\x80") << plain
                                << preamble() + "\\u55357\\'3F\\u56832\\'3F";
    QTest::newRow("lone surrogate") << unit(0xdc00) << plain << preamble() + "\\u56320\\'3F";

    QTest::newRow("current page") << unit(0xe000) << plain << QByteArray(PageNumber);
    QTest::newRow("number of pages") << unit(0xe001) << plain << QByteArray(PageCount);
    Escaping referring;
    referring.bookmark = QStringLiteral("intro");
    QTest::newRow("page of a bookmark") << unit(0xe002) << referring << pageReference("intro");
    QTest::newRow("current page beside a bookmark") << unit(0xe000) << referring << QByteArray(PageNumber);
    QTest::newRow("next private character") << unit(0xe003) << plain << preamble() + "\\u57347\\'3F";

    const QString tags = QStringLiteral("<$p>/<$pagecount>");
    QTest::newRow("tags") << tags << plain << QByteArray("<$p>/<$pagecount>");
    QTest::newRow("tags with a bookmark") << tags << referring << QByteArray("<$p>/<$pagecount>");
    QTest::newRow("exported tags") << tags << exportingText()
                                   << QByteArray(PageNumber) + '/' + QByteArray(PageCount);
    QTest::newRow("exported tags with a bookmark")
        << QString(tags + tags) << exportingText(QStringLiteral("intro"))
        << pageReference("intro") + '/' + PageCount + pageReference("intro") + '/' + PageCount;
    QTest::newRow("exported tags in other letters")
        << QStringLiteral("<$P><$PageCount><$page><p>") << exportingText()
        << QByteArray("<$P><$PageCount><$page><p>");
    QTest::newRow("exported characters")
        << QString(unit(0xe000) + unit(0xe001) + unit(0xe002)) << exportingText(QStringLiteral("b"))
        << PageNumber + QByteArray(PageCount) + pageReference("b");
    QTest::newRow("bookmark with structure")
        << QStringLiteral("<$p>") << exportingText(fromUtf8("a{\\}")) << pageReference("a\\{\\\\\\}");
    QTest::newRow("bookmark beyond ASCII")
        << QStringLiteral("<$p>") << exportingText(fromUtf8("caf\xc3\xa9\xe2\x82\xac"))
        << pageReference("caf\xe9?");

    QTest::newRow("verbatim") << fromUtf8("{\\b x}") << verbatim() << QByteArray("{\\b x}");
    QTest::newRow("verbatim tab") << fromUtf8("a\tb") << verbatim() << QByteArray("a\\'09b");
    QTest::newRow("verbatim no-break space") << unit(0xa0) << verbatim(3) << preamble(3) + "\\u160\\'A0";
    QTest::newRow("verbatim dashes and bullet")
        << QString(unit(0x2013) + unit(0x2014) + unit(0x2022)) << verbatim()
        << preamble() + "\\u8211\\'96\\u8212\\'97\\u8226\\'95";
    QTest::newRow("verbatim placeholder") << unit(0xe001) << verbatim() << preamble() + "\\u57345\\'3F";
    Escaping verbatimExport = exportingText();
    verbatimExport.verbatim = true;
    QTest::newRow("verbatim exported tag")
        << QStringLiteral("<$p>") << verbatimExport << preamble() + "\\u57344\\'3F";
}

void TestWriterEscaping::text()
{
    QFETCH(QString, text);
    QFETCH(Escaping, escaping);
    QFETCH(QByteArray, rtf);
    QCOMPARE(escape(text, escaping), rtf);
}

void TestWriterEscaping::everyUnit()
{
    for (int code = 0; code < UnitCount; ++code)
        QCOMPARE(escape(unit(code)), ordinaryForm(code));
}

void TestWriterEscaping::everyUnitVerbatim()
{
    for (int code = 0; code < UnitCount; ++code)
        QCOMPARE(escape(unit(code), verbatim()), generalForm(code));
}

void TestWriterEscaping::leadingSpace_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("pending");
    QTest::addColumn<bool>("asked");
    QTest::addColumn<QByteArray>("rtf");
    const QString x = QStringLiteral("x");
    QTest::newRow("owed and asked for") << x << true << true << QByteArray("{\\b x");
    QTest::newRow("owed, not asked for") << x << true << false << QByteArray("{\\bx");
    QTest::newRow("not owed") << x << false << true << QByteArray("{x");
    QTest::newRow("neither") << x << false << false << QByteArray("{x");
    QTest::newRow("empty text, owed") << QString() << true << true << QByteArray("{\\b ");
    QTest::newRow("empty text, not owed") << QString() << false << true << QByteArray("{");
    QTest::newRow("blank") << QStringLiteral(" x") << true << true << QByteArray("{\\b  x");
    QTest::newRow("before a control word")
        << QStringLiteral("\tx") << true << true << QByteArray("{\\b \\tab x");
    QTest::newRow("before an escape")
        << fromUtf8("\xc3\xa9") << true << true << "{\\b " + preamble() + "\\u233\\'E9";
    QTest::newRow("before a field") << unit(0xe000) << true << true << QByteArray("{\\b {\\chpgn}");
}

void TestWriterEscaping::leadingSpace()
{
    QFETCH(QString, text);
    QFETCH(bool, pending);
    QFETCH(bool, asked);
    QFETCH(QByteArray, rtf);
    BufferedOutput output;
    output.openGroup();
    if (pending)
        output.write("\\b");
    QCOMPARE(output.isKeywordPending(), pending);
    Escaping escaping;
    escaping.leadingSpace = asked;
    QVERIFY(writeText(output, text, escaping));
    QVERIFY(!output.isKeywordPending());
    QCOMPARE(output.bytes(), rtf);
}

void TestWriterEscaping::preambleOncePerCall()
{
    const QString text = fromUtf8("\xc3\xa9\xe2\x80\x94 {\xc3\xa8}");
    QCOMPARE(escape(text, inFont(2)),
             preamble(2) + "\\u233\\'E9\\hich\\f2 \\emdash \\loch\\f2  \\{\\u232\\'E8\\}");
    BufferedOutput output;
    writeText(output, fromUtf8("\xc3\xa9"), inFont(2));
    writeText(output, fromUtf8("\xc3\xa9"), inFont(3));
    QCOMPARE(output.bytes(), preamble(2) + "\\u233\\'E9" + preamble(3) + "\\u233\\'E9");
}

void TestWriterEscaping::hexadecimal()
{
    BufferedOutput output;
    // Its result compares the digits with the bytes.
    QVERIFY(!output.writeHexadecimalCharacters(QByteArray("\x00\xab\xff", 3)));
    QCOMPARE(output.bytes(), QByteArray("00abff"));
    QVERIFY(output.writeHexadecimalCharacters(QByteArray()));
    QCOMPARE(output.bytes(), QByteArray("00abff"));

    QByteArray all;
    QByteArray digits;
    for (int byte = 0; byte < 256; ++byte) {
        all.append(char(byte));
        digits += QByteArray::number(byte, 16).rightJustified(2, '0');
    }
    BufferedOutput whole;
    whole.writeHexadecimalCharacters(all.repeated(100));
    QCOMPARE(whole.bytes(), digits.repeated(100));
}

void TestWriterEscaping::documentText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("exportingMode");
    QTest::addColumn<QByteArray>("rtf");
    QTest::newRow("example") << fromUtf8("Caf\xc3\xa9 {x}") << false
                             << "Caf" + preamble() + "\\u233\\'E9 \\{x\\}";
    QTest::newRow("begins with a blank") << QStringLiteral(" x") << false << QByteArray(" x");
    QTest::newRow("digits") << QStringLiteral("12") << false << QByteArray("12");
    QTest::newRow("tags") << QStringLiteral("<$p> of <$pagecount>") << false
                          << QByteArray("<$p> of <$pagecount>");
    QTest::newRow("exported tags") << QStringLiteral("<$p> of <$pagecount>") << true
                                   << QByteArray(PageNumber) + " of " + PageCount;
}

void TestWriterEscaping::documentText()
{
    QFETCH(QString, text);
    QFETCH(bool, exportingMode);
    QFETCH(QByteArray, rtf);
    WriteSettings settings;
    settings.exportingMode = exportingMode;
    QCOMPARE(writeBody(*textDocument(text), settings), firstParagraph() + "{\\f0\\fs24 " + rtf + '}');
}

void TestWriterEscaping::textHasTheNumberOfItsFont()
{
    QTextCharFormat format;
    compat::setFontFamily(format, QStringLiteral("Quibble Serif"));
    QCOMPARE(writeBody(*textDocument(fromUtf8("\xc3\xa9\xe2\x80\x94"), format)),
             firstParagraph() + "{\\f1\\fs24 " + preamble(1) + "\\u233\\'E9\\hich\\f1 \\emdash \\loch\\f1 }");
}

void TestWriterEscaping::eachRunHasItsOwnPreamble()
{
    const QSharedPointer<QTextDocument> document = textDocument(fromUtf8("\xc3\xa9"));
    QTextCharFormat italic;
    italic.setFontItalic(true);
    QTextCursor cursor(document.data());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(fromUtf8("\xc3\xa8\xc3\xa9"), italic);
    QCOMPARE(writeBody(*document),
             firstParagraph() + "{\\f0\\fs24 " + preamble() + "\\u233\\'E9}{\\f0\\fs24\\i1 " + preamble()
                 + "\\u232\\'E8\\u233\\'E9}");
}

void TestWriterEscaping::pageReferencesOfARun()
{
    QTextCharFormat format;
    format.setProperty(ORVRtfProperty::PageReference, QStringLiteral("intro"));
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("see <$p>"), format);
    QCOMPARE(writeBody(*document, exporting()),
             firstParagraph() + "{\\f0\\fs24 see " + pageReference("intro") + '}');
    QCOMPARE(writeBody(*document), firstParagraph() + "{\\f0\\fs24 see <$p>}");
}

void TestWriterEscaping::headerText()
{
    const QSharedPointer<QTextDocument> document = newDocument();
    ORVTextPage page;
    page.text = fromUtf8("{\xc3\xa9\xe2\x80\x94\t\\}");
    page.font = QFont(QStringLiteral("Quibble Head"), 10);
    document->setProperty("header", QVariant::fromValue(page));
    // The font around the text is number 1, but its escapes name the default font.
    const QByteArray header = "{\\header{\\pard\\ql{\\f1\\fs20 \\{" + preamble()
        + "\\u233\\'E9\\hich\\f0 \\emdash \\loch\\f0 \\tab \\\\\\}\\par}}}\n";
    QCOMPARE(writeBody(*document), header + firstParagraph() + "\\f0\\fs24");
}

void TestWriterEscaping::everyUnitReadsBack_data()
{
    QTest::addColumn<int>("first");
    for (int first = 0; first < UnitCount; first += UnitsPerDocument)
        QTest::newRow(qPrintable(QStringLiteral("from U+%1").arg(first, 4, 16, QLatin1Char('0')))) << first;
}

void TestWriterEscaping::everyUnitReadsBack()
{
    QFETCH(int, first);
    const QSharedPointer<QTextDocument> document = newDocument();
    QTextCursor cursor(document.data());
    cursor.beginEditBlock();
    QStringList expected;
    for (int code = first; code < first + UnitsPerDocument; ++code) {
        if (code > first)
            cursor.insertBlock();
        cursor.insertText(QLatin1Char('A') + unit(code) + QLatin1Char('B'));
        expected += paragraphsReadBack(code);
    }
    cursor.endEditBlock();
    const Reading reading = read(write(*document));
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.blockCount(), expected.size());
    for (int i = 0; i < expected.size(); ++i)
        QCOMPARE(reading.block(i).text(), expected.at(i));
}

QTEST_MAIN(TestWriterEscaping)
#include "tst_writer_escaping.moc"
