#include "ORVRtfOutputColors_p.h"
#include "ORVRtfOutputFonts_p.h"
#include "bufferedoutput.h"
#include "writerhelpers.h"

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

Escaping verbatim(Escaping escaping = Escaping())
{
    escaping.verbatim = true;
    return escaping;
}

Escaping referringTo(const QString& bookmark)
{
    Escaping escaping;
    escaping.bookmark = bookmark;
    return escaping;
}

Escaping exportingText(Escaping escaping = Escaping())
{
    escaping.exportingMode = true;
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

QFont fontOf(const char* family, bool fixedPitch = false)
{
    QFont font;
    compat::setFamily(font, QLatin1String(family));
    font.setFixedPitch(fixedPitch);
    return font;
}

QByteArray document(const QByteArray& body)
{
    return "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 A;}{\\f1 B;}}{\\colortbl;\\red0\\green0\\blue0;}"
           "{\\*\\listtable{\\list\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}"
        + body + '}';
}

} // namespace

/*!
    What the writer is built on: text, words and structure as bytes, the numbering of fonts and colours; and
    whether the check that the other tests of writing use sees what is wrong.
*/
class TestRtfOutput : public QObject {
    Q_OBJECT

private slots:
    // The output takes the spellings from the table that readers and writers build.
    void initTestCase() { ORVTextRtfCommon::initHash(); }

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
        add("quotation marks", "\xe2\x80\x98\xe2\x80\x99\xe2\x80\x9c\xe2\x80\x9d"_s, plain,
            preamble() + "\\u8216\\'91\\u8217\\'92\\u8220\\'93\\u8221\\'94");
        add("surrogates", "\xf0\x9f\x98\x80"_s, plain, preamble() + "\\u55357\\'3F\\u56832\\'3F");

        add("page of a bookmark", unit(0xe002), referringTo("intro"_s), pageReference("intro"));
        add("current page beside a bookmark", unit(0xe000), referringTo("intro"_s), QByteArray(PageNumber));

        const QString tags = "<$p>/<$pagecount>"_s;
        add("tags", tags, plain, "<$p>/<$pagecount>");
        add("tags with a bookmark", tags, referringTo("intro"_s), "<$p>/<$pagecount>");
        add("exported tags", tags, exportingText(), QByteArray(PageNumber) + '/' + QByteArray(PageCount));
        add("exported tags with a bookmark", QString(tags + tags), exportingText(referringTo("intro"_s)),
            pageReference("intro") + '/' + PageCount + pageReference("intro") + '/' + PageCount);
        add("exported tags in other letters", "<$P><$PageCount><$page><p>", exportingText(),
            "<$P><$PageCount><$page><p>");
        add("exported characters", QString(unit(0xe000) + unit(0xe001) + unit(0xe002)),
            exportingText(referringTo("b"_s)), PageNumber + QByteArray(PageCount) + pageReference("b"));
        add("bookmark with structure", "<$p>", exportingText(referringTo("a{\\}"_s)),
            pageReference("a\\{\\\\\\}"));
        add("bookmark beyond ASCII", "<$p>", exportingText(referringTo("caf\xc3\xa9\xe2\x82\xac"_s)),
            pageReference("caf\xe9?"));

        add("verbatim", "{\\b x}"_s, verbatim(), "{\\b x}");
        add("verbatim tab", "a\tb"_s, verbatim(), "a\\'09b");
        add("verbatim no-break space", unit(0xa0), verbatim(inFont(3)), preamble(3) + "\\u160\\'A0");
        add("verbatim dashes and bullet", QString(unit(0x2013) + unit(0x2014) + unit(0x2022)), verbatim(),
            preamble() + "\\u8211\\'96\\u8212\\'97\\u8226\\'95");
        add("verbatim exported tag", "<$p>", verbatim(exportingText()), preamble() + "\\u57344\\'3F");
    }

    void everyUnit()
    {
        for (int code = 0; code < UnitCount; ++code) {
            QCOMPARE(escape(unit(code)), ordinaryForm(code));
            QCOMPARE(escape(unit(code), verbatim()), generalForm(code));
        }
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
        QByteArray all;
        QByteArray digits;
        for (int byte = 0; byte < 256; ++byte) {
            all.append(char(byte));
            digits += QByteArray::number(byte, 16).rightJustified(2, '0');
        }
        BufferedOutput output;
        QVERIFY(output.writeHexadecimalCharacters(QByteArray()));
        // Its result compares the digits with the bytes.
        QVERIFY(!output.writeHexadecimalCharacters(all.repeated(100)));
        QCOMPARE(output.bytes(), digits.repeated(100));
    }

    ORV_ROWS(documentText)
    {
        const Rows add([](const Story& story, const WriteSettings& settings, const QByteArray& body) {
            QCOMPARE(story.body(settings), firstParagraph() + body);
        });
        const WriteSettings stored;
        add("example", Story().add("Caf\xc3\xa9 {x}"), stored,
            run("Caf" + preamble() + "\\u233\\'E9 \\{x\\}"));
        const Story tags = Story().add("<$p> of <$pagecount>");
        add("exported tags", tags, exporting(), run(QByteArray(PageNumber) + " of " + PageCount));
        const Story reference =
            Story().add("see <$p>", charFormat({{ORVRtfProperty::PageReference, "intro"_s}}));
        add("page reference", reference, stored, run("see <$p>"));
        add("exported page reference", reference, exporting(), run("see " + pageReference("intro")));
        add("text has the number of its font", Story().add("\xc3\xa9\xe2\x80\x94", family("Quibble Serif")),
            stored, "{\\f1\\fs24 " + preamble(1) + "\\u233\\'E9\\hich\\f1 \\emdash \\loch\\f1 }");
        add("each run has its own preamble",
            Story().add("\xc3\xa9").add("\xc3\xa8\xc3\xa9", charFormat({{QTextFormat::FontItalic, true}})),
            stored,
            run(preamble() + "\\u233\\'E9") + "{\\f0\\fs24\\i1 " + preamble() + "\\u232\\'E8\\u233\\'E9}");
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

    ORV_ROWS(numbers)
    {
        const Rows add([](int number, const QByteArray& rtf) {
            BufferedOutput output;
            QVERIFY(output.write("\\fs", number));
            QVERIFY(output.isKeywordPending());
            QVERIFY(output.write(ORVTextRtfCommon::FontSize, number));
            QVERIFY(output.isKeywordPending());
            QCOMPARE(output.bytes(), rtf + rtf);
        });
        add("24", 24, "\\fs24");
        add("0", 0, "\\fs0");
        add("-1", -1, "\\fs-1");
        add("-360", -360, "\\fs-360");
        add("10", 10, "\\fs10");
        add("greatest", std::numeric_limits<int>::max(), "\\fs2147483647");
        add("least", std::numeric_limits<int>::min(), "\\fs-2147483648");
    }

    ORV_ROWS(structureEndsAWord)
    {
        const Rows add([](const std::function<void(ORVRtfOutput&)>& write, const QByteArray& rtf) {
            BufferedOutput output;
            output.endKeyword();
            QVERIFY(!output.isKeywordPending());
            QVERIFY(output.write("\\b"));
            QVERIFY(output.isKeywordPending());
            write(output);
            QVERIFY(!output.isKeywordPending());
            writeText(output, "x"_s);
            QCOMPARE(output.bytes(), "\\b" + rtf + 'x');
        });
        for (const char character : {'{', '}', ';', '\n'}) {
            const auto write = [character](ORVRtfOutput& output) { output.writeStructure(character); };
            add("structure " + QByteArray::number(character), write, QByteArray(1, character));
        }
        const auto endKeywordTwice = [](ORVRtfOutput& output) {
            output.endKeyword();
            output.endKeyword();
        };
        add("the blank that is owed, once", endKeywordTwice, " ");
        const auto writeKeyWord = [](ORVRtfOutput& output) {
            QVERIFY(output.write(ORVTextRtfCommon::ResetFormat));
            QVERIFY(output.isKeywordPending());
            output.endKeyword();
        };
        add("another word", writeKeyWord, "\\plain ");
        const auto writeIgnorableGroup = [](ORVRtfOutput& output) {
            output.openIgnorableGroup(ORVTextRtfCommon::ListTable);
            output.closeGroup();
        };
        add("ignorable group", writeIgnorableGroup, "{\\*\\listtable}");
    }

    void refusedBytes()
    {
        QBuffer closed;
        ORVRtfOutput output;
        output.setDevice(&closed);
        output.begin();
        output.writeStructure('{');
        QTest::ignoreMessage(QtWarningMsg, "QIODevice::write (QBuffer): device not open");
        QVERIFY(!output.flush());
        QVERIFY(!output.flush());
        QCOMPARE(closed.data(), QByteArray());

        QVERIFY(closed.open(QIODevice::WriteOnly));
        output.begin();
        output.writeStructure('}');
        QVERIFY(output.flush());
        QCOMPARE(closed.data(), "}"_b);
    }

    void fontsOfFormats()
    {
        ORVRtfOutputFonts fonts;
        fonts.appendMissing(family("Quibble Sans"));
        fonts.appendMissing(fixedPitch(family("Quibble Sans")));
        fonts.appendMissing(family("quibble sans"));
        fonts.appendMissing(family("Quibble Sans"));
        QCOMPARE(fonts.fonts().size(), 3);
        QCOMPARE(fonts.number(family("Quibble Sans")), 0);
        QCOMPARE(fonts.number(fixedPitch(family("Quibble Sans"))), 1);
        QCOMPARE(fonts.number(family("quibble sans")), 2);
        QCOMPARE(fonts.number(fixedPitch(family("quibble sans"))), 0);
        QCOMPARE(fonts.number(fontOf("Quibble Sans", true)), 1);
        QCOMPARE(fonts.number(fontOf("QUIBBLE SANS")), 0);
        QVERIFY(fonts.contains(fontOf("quibble sans")));
        QVERIFY(!fonts.contains(fontOf("quibble sans", true)));
        QVERIFY(!fonts.contains(fontOf("Quibble")));
    }

    void formatWithoutFamily()
    {
        ORVRtfOutputFonts fonts;
        QVERIFY(fonts.fonts().isEmpty());
        QCOMPARE(fonts.number(QTextCharFormat()), 0);
        // Only an empty table takes it.
        fonts.appendMissing(QTextCharFormat());
        QCOMPARE(fonts.fonts().size(), 1);
        fonts.appendMissing(QTextCharFormat());
        fonts.appendMissing(fixedPitch(QTextCharFormat()));
        QCOMPARE(fonts.fonts().size(), 1);
        fonts.append(fontOf("Quibble Mono", true));
        QCOMPARE(fonts.number(QTextCharFormat()), 0);
        QCOMPARE(fonts.number(fixedPitch(QTextCharFormat())), 0);
    }

    void equalFontsHaveTheLowestNumber()
    {
        ORVRtfOutputFonts fonts;
        for (const char* name : {"Quibble Serif", "Quibble Sans", "Quibble Sans", "Quibble Mono"})
            fonts.append(fontOf(name));
        QCOMPARE(fonts.number(fontOf("Quibble Sans")), 1);
        QCOMPARE(fonts.number(fontOf("Quibble Mono")), 3);
        fonts.insertFirst(fontOf("Quibble Sans"));
        QCOMPARE(fonts.fonts().size(), 5);
        QCOMPARE(fonts.number(fontOf("Quibble Sans")), 0);
        QCOMPARE(fonts.number(fontOf("Quibble Serif")), 1);
        QCOMPARE(fonts.number(fontOf("Quibble Mono")), 4);
    }

    void colorsOfAnEmptyTable()
    {
        ORVRtfOutputColors colors;
        QCOMPARE(colors.number(Qt::red), 1);
        QCOMPARE(colors.number(Qt::white), 1);
        colors.appendMissing(QColor());
        QVERIFY(colors.colors().isEmpty());
        colors.appendMissing(Qt::white);
        QCOMPARE(colors.colors(), QList<QRgb>() << qRgb(0, 0, 0) << qRgb(255, 255, 255));
    }

    ORV_ROWS(checkSeesWhatIsWrong)
    {
        const Rows add(
            [](const QByteArray& rtf, const QString& problem) { QCOMPARE(checkWellFormed(rtf), problem); });
        add("nothing", document("\\ls1{\\f1\\fs24\\cf1\\ulc0 a\\{b\\}\\\\c\\'E9\\~}"), QString());
        add("nothing, with a line end", document("\n\\pard\\plain \\af0 x"), QString());
        add("empty", QByteArray(), "does not begin as RTF");
        add("no RTF", "{\\ansi}", "does not begin as RTF");
        add("open group", document("{x"), "1 groups are not closed");
        add("closed too often", document("x}"), "content after the last group");
        add("text at the end", document("x") + 'y', "content after the last group");
        add("font", document("\\f2 x"), "font 2 is not in its table");
        add("associated font", document("\\af2 x"), "font 2 is not in its table");
        add("no default font", "{\\rtf1\\ansi\\deff0}", "font 0 is not in its table");
        add("font twice", document("{\\fonttbl{\\f1 C;}}"), "font 1 is defined twice");
        for (const char* word : {"cf", "cb", "highlight", "ulc", "clcbpat", "chcbpat", "brdrcf"})
            add(word, document('\\' + QByteArray(word) + "2 x"), "colour 2 is not in the table");
        add("negative colour", document("\\cf-1 x"), "colour -1 is not in the table");
        add("list", document("\\ls2 x"), "list 2 is not in its table");
        add("list of an override", document("{\\*\\listoverridetable{\\listoverride\\listid2\\ls2}}"),
            "list of an override 2 is not in its table");
        add("word with text glued to it", document("\\plainx"), "unknown word \\plainx");
        add("symbol", document("\\?"), "unknown symbol \\?");
        add("byte", document("\\'4x"), "an escaped byte without two hexadecimal digits");
    }
};

ORV_TEST("rtfoutput", TestRtfOutput, QGuiApplication)
#include "rtfoutput.moc"
