#include "ORVTextPage.h"
#include "bufferedoutput.h"
#include "testsupport.h"

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

/*!
    The byte of code page 1252 that stands for \a code, as the library has that code page; 0x3F without one.
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
    const QString a = "A"_s;
    const QString b = "B"_s;
    switch (code) {
    // What ends a paragraph when it is inserted into a document never gets as far as the writer.
    case 0x0a:
    case 0x0d:
    case 0x2029:
    case 0xfdd0:
    case 0xfdd1: return {a, b};
    // Fields come back as their results, but for the current page, which has none.
    case 0xe000: return {a + b};
    case 0xe001: return {"A1B"_s};
    case 0xe002: return {"A?B"_s};
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
    void initTestCase()
    {
        // The output takes the spellings from the table that readers and writers build.
        ORVTextRtfCommon::initHash();
    }

    ORV_ROWS(text)
    {
        const Rows add([](const QString& text, const Escaping& escaping, const QByteArray& rtf) {
            QCOMPARE(escape(text, escaping), rtf);
        });
        const Escaping plain;

        add("nothing", QString(), plain, QByteArray());
        add("ASCII", "Hello, World 123~!"_s, plain, "Hello, World 123~!");
        add("blanks stay", "  a  "_s, plain, "  a  ");
        add("braces and backslash", "{\\b x}"_s, plain, "\\{\\\\b x\\}");
        add("tab", "a\tb\t\t"_s, plain, "a\\tab b\\tab \\tab ");
        add("no-break space", "a\xc2\xa0 b"_s, plain, "a\\~ b");
        add("en dash", "A\u2013B"_s, plain, "A\\endash B");
        add("em dash", "A\u2014B"_s, inFont(12), "A\\hich\\f12 \\emdash \\loch\\f12 B");
        add("bullet and line", "\xe2\x80\xa2 x\xe2\x80\xa8y"_s, plain, "\\bullet  x\\line y");
        add("line feed, return, NUL", QString(unit('\n') + unit('\r') + unit(0)), plain, "\\'0A\\'0D\\'00");
        add("delete", unit(0x7f), plain, "\x7f");
        add("paragraph separator", unit(0x2029), plain, preamble() + "\\u8233\\'3F");
        add("quotation marks", "\xe2\x80\x98\xe2\x80\x99\xe2\x80\x9c\xe2\x80\x9d"_s, plain,
            preamble() + "\\u8216\\'91\\u8217\\'92\\u8220\\'93\\u8221\\'94");
        add("euro sign", "\xe2\x82\xac"_s, plain, preamble() + "\\u8364\\'80");
        add("small tilde has no byte", unit(0x2dc), plain, preamble() + "\\u732\\'3F");
        add("byte 0x98", unit(0x20dc), plain, preamble() + "\\u8412\\'98");
        add("control character of Latin-1", unit(0x85), plain, preamble() + "\\u133\\'3F");
        add("above 32767", unit(0xfffd), plain, preamble() + "\\u65533\\'3F");
        add("surrogates", "\xf0\x9f\x98\x80"_s, plain, preamble() + "\\u55357\\'3F\\u56832\\'3F");
        add("lone surrogate", unit(0xdc00), plain, preamble() + "\\u56320\\'3F");

        add("current page", unit(0xe000), plain, QByteArray(PageNumber));
        add("number of pages", unit(0xe001), plain, QByteArray(PageCount));
        Escaping referring;
        referring.bookmark = "intro"_s;
        add("page of a bookmark", unit(0xe002), referring, pageReference("intro"));
        add("current page beside a bookmark", unit(0xe000), referring, QByteArray(PageNumber));
        add("next private character", unit(0xe003), plain, preamble() + "\\u57347\\'3F");

        const QString tags = "<$p>/<$pagecount>"_s;
        add("tags", tags, plain, "<$p>/<$pagecount>");
        add("tags with a bookmark", tags, referring, "<$p>/<$pagecount>");
        add("exported tags", tags, exportingText(), QByteArray(PageNumber) + '/' + QByteArray(PageCount));
        add("exported tags with a bookmark", QString(tags + tags), exportingText("intro"_s),
            pageReference("intro") + '/' + PageCount + pageReference("intro") + '/' + PageCount);
        add("exported tags in other letters", "<$P><$PageCount><$page><p>", exportingText(),
            "<$P><$PageCount><$page><p>");
        add("exported characters", QString(unit(0xe000) + unit(0xe001) + unit(0xe002)), exportingText("b"_s),
            PageNumber + QByteArray(PageCount) + pageReference("b"));
        add("bookmark with structure", "<$p>", exportingText("a{\\}"_s), pageReference("a\\{\\\\\\}"));
        add("bookmark beyond ASCII", "<$p>", exportingText("caf\xc3\xa9\xe2\x82\xac"_s),
            pageReference("caf\xe9?"));

        add("verbatim", "{\\b x}"_s, verbatim(), "{\\b x}");
        add("verbatim tab", "a\tb"_s, verbatim(), "a\\'09b");
        add("verbatim no-break space", unit(0xa0), verbatim(3), preamble(3) + "\\u160\\'A0");
        add("verbatim dashes and bullet", QString(unit(0x2013) + unit(0x2014) + unit(0x2022)), verbatim(),
            preamble() + "\\u8211\\'96\\u8212\\'97\\u8226\\'95");
        add("verbatim placeholder", unit(0xe001), verbatim(), preamble() + "\\u57345\\'3F");
        Escaping verbatimExport = exportingText();
        verbatimExport.verbatim = true;
        add("verbatim exported tag", "<$p>", verbatimExport, preamble() + "\\u57344\\'3F");
    }

    void everyUnit()
    {
        for (int code = 0; code < UnitCount; ++code)
            QCOMPARE(escape(unit(code)), ordinaryForm(code));
    }

    void everyUnitVerbatim()
    {
        for (int code = 0; code < UnitCount; ++code)
            QCOMPARE(escape(unit(code), verbatim()), generalForm(code));
    }

    ORV_ROWS(leadingSpace)
    {
        const Rows add([](const QString& text, bool pending, bool asked, const QByteArray& rtf) {
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
        });
        const QString x = "x"_s;
        add("owed and asked for", x, true, true, "{\\b x");
        add("owed, not asked for", x, true, false, "{\\bx");
        add("not owed", x, false, true, "{x");
        add("neither", x, false, false, "{x");
        add("empty text, owed", QString(), true, true, "{\\b ");
        add("empty text, not owed", QString(), false, true, "{");
        add("blank", " x", true, true, "{\\b  x");
        add("before a control word", "\tx", true, true, "{\\b \\tab x");
        add("before an escape", "\xc3\xa9"_s, true, true, "{\\b " + preamble() + "\\u233\\'E9");
        add("before a field", unit(0xe000), true, true, "{\\b {\\chpgn}");
    }

    void preambleOncePerCall()
    {
        const QString text = "\xc3\xa9\xe2\x80\x94 {\xc3\xa8}"_s;
        QCOMPARE(escape(text, inFont(2)),
                 preamble(2) + "\\u233\\'E9\\hich\\f2 \\emdash \\loch\\f2  \\{\\u232\\'E8\\}");
        BufferedOutput output;
        writeText(output, "\xc3\xa9"_s, inFont(2));
        writeText(output, "\xc3\xa9"_s, inFont(3));
        QCOMPARE(output.bytes(), preamble(2) + "\\u233\\'E9" + preamble(3) + "\\u233\\'E9");
    }

    void hexadecimal()
    {
        BufferedOutput output;
        // Its result compares the digits with the bytes.
        QVERIFY(!output.writeHexadecimalCharacters(QByteArray("\x00\xab\xff", 3)));
        QCOMPARE(output.bytes(), "00abff"_b);
        QVERIFY(output.writeHexadecimalCharacters(QByteArray()));
        QCOMPARE(output.bytes(), "00abff"_b);

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

    ORV_ROWS(documentText)
    {
        const Rows add([](const QString& text, bool exportingMode, const QByteArray& rtf) {
            WriteSettings settings;
            settings.exportingMode = exportingMode;
            QCOMPARE(writeBody(*textDocument(text), settings), firstParagraph() + "{\\f0\\fs24 " + rtf + '}');
        });
        add("example", "Caf\xc3\xa9 {x}"_s, false, "Caf" + preamble() + "\\u233\\'E9 \\{x\\}");
        add("begins with a blank", " x", false, " x");
        add("digits", "12", false, "12");
        add("tags", "<$p> of <$pagecount>", false, "<$p> of <$pagecount>");
        add("exported tags", "<$p> of <$pagecount>", true, QByteArray(PageNumber) + " of " + PageCount);
    }

    void textHasTheNumberOfItsFont()
    {
        QTextCharFormat format;
        compat::setFontFamily(format, "Quibble Serif"_s);
        QCOMPARE(writeBody(*textDocument("\xc3\xa9\xe2\x80\x94"_s, format)),
                 firstParagraph() + "{\\f1\\fs24 " + preamble(1)
                     + "\\u233\\'E9\\hich\\f1 \\emdash \\loch\\f1 }");
    }

    void eachRunHasItsOwnPreamble()
    {
        const QSharedPointer<QTextDocument> document = textDocument("\xc3\xa9"_s);
        QTextCharFormat italic;
        italic.setFontItalic(true);
        QTextCursor cursor(document.data());
        cursor.movePosition(QTextCursor::End);
        cursor.insertText("\xc3\xa8\xc3\xa9"_s, italic);
        QCOMPARE(writeBody(*document),
                 firstParagraph() + "{\\f0\\fs24 " + preamble() + "\\u233\\'E9}{\\f0\\fs24\\i1 " + preamble()
                     + "\\u232\\'E8\\u233\\'E9}");
    }

    void pageReferencesOfARun()
    {
        QTextCharFormat format;
        format.setProperty(ORVRtfProperty::PageReference, "intro"_s);
        const QSharedPointer<QTextDocument> document = textDocument("see <$p>"_s, format);
        QCOMPARE(writeBody(*document, exporting()),
                 firstParagraph() + "{\\f0\\fs24 see " + pageReference("intro") + '}');
        QCOMPARE(writeBody(*document), firstParagraph() + "{\\f0\\fs24 see <$p>}");
    }

    void headerText()
    {
        const QSharedPointer<QTextDocument> document = newDocument();
        ORVTextPage page;
        page.text = "{\xc3\xa9\xe2\x80\x94\t\\}"_s;
        page.font = QFont("Quibble Head"_s, 10);
        document->setProperty("header", QVariant::fromValue(page));
        // The font around the text is number 1, but its escapes name the default font.
        const QByteArray header = "{\\header{\\pard\\ql{\\f1\\fs20 \\{" + preamble()
            + "\\u233\\'E9\\hich\\f0 \\emdash \\loch\\f0 \\tab \\\\\\}\\par}}}\n";
        QCOMPARE(writeBody(*document), header + firstParagraph() + "\\f0\\fs24");
    }

    ORV_ROWS(everyUnitReadsBack)
    {
        const Rows add([](int first) {
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
        });
        for (int first = 0; first < UnitCount; first += UnitsPerDocument)
            add(qPrintable("from U+%1"_s.arg(first, 4, 16, QLatin1Char('0'))), first);
    }
};

ORV_TEST("writer_escaping", TestWriterEscaping, QGuiApplication)
#include "escaping.moc"
