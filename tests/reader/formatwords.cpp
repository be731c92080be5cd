#include "runhelpers.h"
#include "testpaths.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

QBrush solid(const QColor& color)
{
    return QBrush(color, Qt::SolidPattern);
}

/*! An on/off word: the property it sets and the values for on and off. */
struct Toggle {
    const char* word;
    int property;
    QVariant on;
    QVariant off;
};

const QList<Toggle>& toggles()
{
    const int align = QTextFormat::TextVerticalAlignment;
    static const QList<Toggle> all = {
        {"b", QTextFormat::FontWeight, int(QFont::Bold), int(QFont::Normal)},
        {"i", QTextFormat::FontItalic, true, false},
        {"strike", QTextFormat::FontStrikeOut, true, false},
        {"scaps", QTextFormat::FontCapitalization, 3, 0},
        {"ul", QTextFormat::TextUnderlineStyle, 1, 0},
        {"ulw", QTextFormat::TextUnderlineStyle, 1, 0},
        {"uldb", QTextFormat::TextUnderlineStyle, 1, 0},
        {"super", align, 1, 0},
        {"sub", align, 2, 0},
        {"vertalt", align, 4, 0},
        {"vertalc", align, 3, 0},
        {"vertal", align, 5, 0},
        {"vertalb", align, 5, 0},
        {"vertalj", align, 6, 0},
    };
    return all;
}

/*! The format of the text "x" behind \a words, in a document with the font and colour tables of the tests. */
QTextCharFormat formatAfter(const QByteArray& words)
{
    const Reading reading = readBody(fontTable() + colorTable() + words + " x");
    return reading.status == 0 ? reading.format("x"_s) : notFoundFormat();
}

const int leftIndent = ORVRtfProperty::LeftIndent;
const int rightIndent = ORVRtfProperty::RightIndent;
const int pageBreak = QTextFormat::PageBreakPolicy;

} // namespace

/*! The control words of characters, paragraphs and pages, and those that are accepted without effect. */
class TestFormatWords : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(QFontDatabase::addApplicationFont(QStringLiteral(TEST_DATA_DIR "/fonts/QuibbleBrick.ttf"))
                >= 0);
    }

    ORV_ROWS(characterWords)
    {
        const Rows add([](const Properties& expected) {
            QCOMPARE(dump(formatAfter(QTest::currentDataTag())), dump(expected));
        });
        for (const Toggle& toggle : toggles()) {
            const QByteArray word = "\\" + QByteArray(toggle.word);
            for (const char* on : {"", "1", "2", "-1"})
                add(word + on, {{toggle.property, toggle.on}});
            add(word + "0" + word, {{toggle.property, toggle.on}});
            for (const QByteArray& off : {"0"_b, "-0"_b, word + "0"})
                add(word + off, {{toggle.property, toggle.off}});
        }

        const auto words = [&add](const QByteArray& all, const Properties& expected) {
            addWords(add, all, expected);
        };

        const int underline = QTextFormat::TextUnderlineStyle;
        // Only the plain underline words can be switched off by a number.
        words("\\uld \\uld0", {{underline, 3}});
        words("\\uldash", {{underline, 2}});
        words("\\uldashd", {{underline, 4}});
        words("\\uldashdd", {{underline, 5}});
        words("\\ulwave \\ulwave0 \\ul\\ulwave", {{underline, 6}});
        words("\\ulwave\\ul0", {{underline, 0}});

        const int align = QTextFormat::TextVerticalAlignment;
        const int shift = ORVRtfProperty::BaselineShift;
        words("\\super\\sub", {{align, 2}});
        words("\\up6 \\dn-6", {{align, 3}, {shift, 6}});
        words("\\dn6 \\up-6", {{align, 3}, {shift, -6}});
        words("\\up \\up0", {{align, 3}, {shift, 0}});
        words("\\up6\\nosupersub", {{shift, 6}});

        const int size = QTextFormat::FontPointSize;
        words("\\fs \\fs-1 \\fs0 \\fs1 \\fs2", {{size, 10.0}});
        words("\\fs3", {{size, 1.5}});
        words("\\fs21", {{size, 10.5}});
        words("\\fs24", {{size, 12.0}});
        words("\\fs3276", {{size, 1638.0}});
        words("\\fprq1", {{QTextFormat::FontFixedPitch, true}});
        words("\\fprq2", {{QTextFormat::FontFixedPitch, false}});

        words("\\orvrevlvl3", {{ORVRtfProperty::RevisionLevel, 3}});
        words("\\orvrevlvl0 \\orvrevlvl", {{ORVRtfProperty::RevisionLevel, 0}});
        words("\\orvrevlvl-7", {{ORVRtfProperty::RevisionLevel, -7}});
        words("\\annotation", {{ORVRtfProperty::InAnnotation, true}});
        words("\\footnote", {{ORVRtfProperty::InFootnote, true}});
        words("\\b\\i\\fs24", with(size, 12.0, with(QTextFormat::FontItalic, true, boldRun)));

        // Colour 0 is the default colour; 1 to 4 are red, green, blue and white.
        const int foreground = QTextFormat::ForegroundBrush;
        const int background = QTextFormat::BackgroundBrush;
        const int lineColor = QTextFormat::TextUnderlineColor;
        words("\\cf0 \\cf", {{foreground, solid(Qt::black)}});
        words("\\cf1 \\cf1\\cf5", {{foreground, solid(Qt::red)}});
        words("\\cf4", {{foreground, solid(Qt::white)}});
        words("\\cb1", {{background, solid(Qt::red)}});
        words("\\cb2", {{background, solid(Qt::green)}});
        words("\\cb4", {{background, solid(Qt::white)}});
        words("\\highlight3", {{background, solid(Qt::blue)}});
        words("\\highlight0", {{background, solid(Qt::black)}});
        words("\\ulc2 \\ulc2\\ulc5", {{lineColor, QColor(Qt::green)}});
        words("\\cf1\\cb2\\ulc3",
              {{foreground, solid(Qt::red)}, {background, solid(Qt::green)}, {lineColor, QColor(Qt::blue)}});

        const Properties serif{{Family, "Quibble Serif"_s}, {QTextFormat::FontFixedPitch, false}};
        const Properties mono{{Family, "Quibble Mono"_s}, {QTextFormat::FontFixedPitch, true}};
        words("\\f1 \\f2\\f1", serif);
        words("\\f1\\b0 \\b0\\f1", with(QTextFormat::FontWeight, int(QFont::Normal), serif));
        // A family without a normal face: switching bold off leaves the face it has.
        add("{\\fonttbl{\\f3 Quibble Brick;}}\\f3\\b0",
            with(Family, "Quibble Brick"_s, with(QTextFormat::FontWeight, int(QFont::Bold), serif)));
        words("\\f2 \\f2\\f9 \\f2\\fprq2\\f2", mono);

        words(
            "\\ul\\ulc1\\ulnone \\ulnone \\super\\nosupersub \\sub\\nosupersub \\fprq1\\fprq0 \\fprq1\\fprq3 "
            "\\fprq1\\fprq \\fprq1\\fprq-1 \\cf5 \\cf-1 \\cf2147483647 \\cb5 \\cb-1 \\highlight5 "
            "\\highlight-1 "
            "\\ulc5 \\ulc-1 \\f9 \\f \\f-1",
            plainRun);
    }

    // Colour 1 is what word processors write for "no background" when it is white.
    void whiteAsColorOneClearsTheBackground()
    {
        const QByteArray table = "{\\colortbl;\\red255\\green255\\blue255;\\red255\\green255\\blue255;"
                                 "\\red255\\green0\\blue0;}";
        const auto after = [&table](const QByteArray& words) {
            return dump(readBody(table + words + " x").format("x"_s));
        };
        const QString white = dump(Properties{{QTextFormat::BackgroundBrush, solid(Qt::white)}});
        for (const QByteArray& word : {"\\cb"_b, "\\highlight"_b}) {
            QCOMPARE(after(word + "1"), QString());
            QCOMPARE(after(word + "3" + word + "1"), QString());
            QCOMPARE(after(word + "2"), white);
            QCOMPARE(after(word + "1" + word + "2"), white);
        }
    }

    ORV_ROWS(outline)
    {
        const Rows add([](const QByteArray& words, const QString& outline, const QString& foreground) {
            const QTextCharFormat format = formatAfter(words);
            const auto value = [&format](int id) {
                return format.hasProperty(id) ? describe(format.property(id)) : QString();
            };
            QCOMPARE(value(QTextFormat::TextOutline), outline);
            QCOMPARE(value(QTextFormat::ForegroundBrush), foreground);
        });
        const QString none;
        const QString clear = describe(solid(Qt::transparent));
        const auto pen = [](const QColor& color) { return describe(QPen(color)); };
        add("on", "\\outl", pen(Qt::black), clear);
        add("on with 1", "\\outl1", pen(Qt::black), clear);
        add("on and off", "\\outl\\outl0", none, describe(solid(Qt::black)));
        add("coloured", "\\cf1\\outl", pen(Qt::red), clear);
        add("coloured, on and off", "\\cf1\\outl\\outl0", none, describe(solid(Qt::red)));
        add("colour afterwards", "\\outl\\cf2", pen(Qt::green), clear);
        add("colour afterwards, off", "\\outl\\cf2\\outl0", none, describe(solid(Qt::green)));
        add("two colours", "\\cf1\\outl\\cf2", pen(Qt::green), clear);
        add("colour out of range", "\\cf1\\outl\\cf9", pen(Qt::red), clear);
        add("colour after off", "\\outl\\outl0\\cf2", none, describe(solid(Qt::green)));
        add("off without on", "\\cf1\\outl0", none, describe(solid(Qt::black)));
        add("plain", "\\cf1\\outl\\plain", none, none);
    }

    /*! The default format resets everything but the flags of notes. */
    ORV_ROWS(plain)
    {
        const Rows add([](const Properties& flags) {
            Properties properties = propertiesOf(formatAfter(QTest::currentDataTag() + "\\plain"_b));
            QVERIFY(!properties.take(QTextFormat::FontStrikeOut).toBool());
            QVERIFY(!properties.take(QTextFormat::FontOverline).toBool());
            const Properties font = with(Family, QLatin1String(DefaultFamily), flags);
            QCOMPARE(dump(properties), dump(with(QTextFormat::FontPointSize, DefaultPointSize, font)));
        });
        for (const Toggle& toggle : toggles())
            add("\\" + QByteArray(toggle.word), {});
        addWords(add, "\\outl \\cf1 \\cb2 \\ulc1 \\f2 \\fs80 \\up4 \\fprq1 \\orvrevlvl2", plainRun);
        const Properties footnote = with(ORVRtfProperty::InFootnote, true);
        add("\\footnote\\b", footnote);
        add("\\annotation\\b", with(ORVRtfProperty::InAnnotation, true));
        add("\\annotation\\footnote", with(ORVRtfProperty::InAnnotation, true, footnote));
    }

    // The default format of the document gives family, size and everything else, but no emphasis and no
    // colour.
    void plainKeepsTheRestOfTheDefault()
    {
        const QSharedPointer<QTextDocument> document = newDocument();
        QTextCharFormat format;
        compat::setFontFamily(format, "Quibble Tall"_s);
        format.setProperty(QTextFormat::FontPointSize, 17.0);
        format.setProperty(QTextFormat::FontWeight, int(QFont::Bold));
        format.setProperty(QTextFormat::FontItalic, true);
        format.setProperty(QTextFormat::FontUnderline, true);
        format.setProperty(QTextFormat::TextUnderlineStyle, 1);
        format.setProperty(QTextFormat::FontOverline, true);
        format.setProperty(QTextFormat::FontStrikeOut, true);
        format.setProperty(QTextFormat::TextOutline, QPen(Qt::red));
        format.setProperty(QTextFormat::ForegroundBrush, solid(Qt::red));
        format.setProperty(QTextFormat::BackgroundBrush, solid(Qt::green));
        format.setProperty(QTextFormat::FontLetterSpacing, 3.0);
        format.setProperty(QTextFormat::FontCapitalization, 3);
        ORVTextFormat::setDefaultCharFormat(document.data(), format);

        const Reading reading = readInto(document, "{\\rtf1\\plain x}");
        Properties properties = propertiesOf(reading.format("x"_s));
        QVERIFY(!properties.take(QTextFormat::FontStrikeOut).toBool());
        QVERIFY(!properties.take(QTextFormat::FontOverline).toBool());
        QCOMPARE(dump(properties),
                 dump(Properties{{Family, "Quibble Tall"_s},
                                 {QTextFormat::FontPointSize, 17.0},
                                 {QTextFormat::FontLetterSpacing, 3.0},
                                 {QTextFormat::FontCapitalization, 3}}));
    }

    ORV_ROWS(specialCharacters)
    {
        const Rows add([](const QByteArray& word, int unit) {
            const QString character{QChar(ushort(unit))};
            const Reading reading = readBody("a" + word + "b{\\b " + word + "}");
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.blockCount(), 1);
            QCOMPARE(reading.text(), "a" + character + "b" + character);
            QCOMPARE(fragmentsOf(*reading.document).size(), 2);
            QCOMPARE(fragmentsOf(*reading.document).last().text(), character);
        });
        add("tab", "\\tab ", 0x0009);
        add("line", "\\line ", 0x2028);
        add("non-breaking space", "\\~", 0x00A0);
        add("optional hyphen", "\\-", 0x002D);
        add("non-breaking hyphen", "\\_", 0x002D);
        add("backslash", "\\\\", 0x005C);
        add("opening brace", "\\{", 0x007B);
        add("closing brace", "\\}", 0x007D);
        add("endash", "\\endash ", 0x2013);
        add("emdash", "\\emdash ", 0x2014);
        add("bullet", "\\bullet ", 0x2022);
        add("lquote", "\\lquote ", 0x2018);
        add("rquote", "\\rquote ", 0x2019);
        add("ldblquote", "\\ldblquote ", 0x201C);
        add("rdblquote", "\\rdblquote ", 0x201D);
    }

    void allBytesAsEscapes()
    {
        for (int byte = 0x20; byte < 0x100; ++byte) {
            const QByteArray digits = QByteArray::number(byte, 16);
            const Reading reading = read("{a\\'" + digits + "b}");
            QCOMPARE(reading.status, 0);
            QCOMPARE(read("{a\\'" + digits.toUpper() + "b}").text(), reading.text());
            const char ansi = char(byte);
            const QChar character(ORVTextRtfCommon::unicodeFromAnsi1252(&ansi));
            QCOMPARE(reading.text(), byte == 0x7F ? "ab"_s : "a" + QString(character) + "b");
        }
    }

    ORV_ROWS(paragraphWords)
    {
        const Rows add([](const Properties& expected) {
            const Reading reading = readBody(QTest::currentDataTag() + " one\\par two"_b);
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), "one\ntwo"_s);
            // Paragraph formatting holds until it is reset.
            for (int i = 0; i < 2; ++i)
                QCOMPARE(dump(reading.blockFormat(i)), dump(expected));
        });
        const auto words = [&add](const QByteArray& all, const Properties& expected) {
            addWords(add, all, expected);
        };
        const int align = QTextFormat::BlockAlignment;
        words("\\ql \\qc\\ql", {{align, 1}});
        words("\\qr", {{align, 2}});
        words("\\qc \\qc0", {{align, 4}});
        words("\\qj", {{align, 8}});

        const int direction = QTextFormat::LayoutDirection;
        words("\\ltrpar \\rtlpar\\ltrpar", {{direction, 0}});
        words("\\rtlpar", {{direction, 1}});

        const int above = QTextFormat::BlockTopMargin;
        const int below = QTextFormat::BlockBottomMargin;
        words("\\sb240", {{above, 12.0}});
        words("\\sa120", {{below, 6.0}});
        words("\\sb1", {{above, 0.05}});
        words("\\sb", {{above, 0.0}});
        words("\\sa-20", {{below, -1.0}});
        words("\\sb240\\sa120\\sb0", {{above, 0.0}, {below, 6.0}});

        const int spacing = ORVRtfProperty::LineSpacing;
        const int multiple = ORVRtfProperty::LineMultiple;
        words("\\sl360", {{spacing, 18.0}});
        words("\\sl-360", {{spacing, -18.0}});
        words("\\sl0", {{spacing, 0.0}});
        words("\\slmult1", {{multiple, 12.0}});
        words("\\sl360\\slmult1 \\slmult1\\sl360", {{spacing, 18.0}, {multiple, 12.0}});

        const int first = QTextFormat::TextIndent;
        words("\\li720 \\lin720 \\li720\\lin720", {{leftIndent, 36.0}, {first, 36.0}});
        words("\\rtlpar\\lin720", {{direction, 1}, {leftIndent, 36.0}, {first, 36.0}});
        words("\\fi360", {{first, 18.0}});
        words("\\fi-360", {{first, -18.0}});
        words("\\li720\\fi-360 \\fi-360\\li720", {{leftIndent, 36.0}, {first, 18.0}});
        words("\\li720\\fi-360\\li1440", {{leftIndent, 72.0}, {first, 54.0}});
        words("\\li720\\fi-360\\fi200", {{leftIndent, 36.0}, {first, 46.0}});
        words("\\li720\\fi-360\\pard\\li1440", {{leftIndent, 72.0}, {first, 72.0}});
        words("\\li-720", {{leftIndent, -36.0}, {first, -36.0}});
        words("\\li5", {{leftIndent, 0.25}, {first, 0.25}});
        words("\\li720\\li0 \\li\\fi", {{leftIndent, 0.0}, {first, 0.0}});
        // The right indent is where the right edge of the text is, measured from the left margin. The page
        // is 12240 wide, its margins 1800 each.
        words("\\ri0", {{rightIndent, 432.0}});
        words("\\ri360 \\rin360", {{rightIndent, 414.0}});
        words("\\ri-360", {{rightIndent, 450.0}});
        words("\\rtlpar\\rin360", {{direction, 1}, {rightIndent, 414.0}});
        words("\\li720\\ri360", {{leftIndent, 36.0}, {rightIndent, 414.0}, {first, 36.0}});

        words("\\keep \\keep\\keep", {{pageBreak, 0x200}});
        words("\\keepn", {{pageBreak, 0x20}});
        words("\\pagebb", {{pageBreak, 0x01}});
        words("\\keep\\keepn\\pagebb", {{pageBreak, 0x221}});

        words(
            "\\slmult1\\slmult0 \\slmult1\\slmult \\slmult1\\slmult2 \\slmult0 \\li720\\fi-360\\ri360\\pard "
            "\\footnote\\li720\\fi-360\\ri360 \\annotation\\li720\\fi-360\\ri360 "
            "\\qc\\rtlpar\\sb240\\sa120\\sl360"
            "\\slmult1\\li720\\fi360\\ri360\\keep\\keepn\\pagebb\\tx720\\pard",
            {});
    }

    ORV_ROWS(pageGeometry)
    {
        const Rows add([](const QByteArray& words, double edge) {
            const Reading reading = readBody(words + " x");
            QCOMPARE(dump(reading.blockFormat(0)), dump(Properties{{rightIndent, edge}}));
        });
        add("defaults", "\\ri0", 432.0);
        add("paper", "\\paperw10000\\ri0", 320.0);
        add("left margin", "\\margl800\\ri0", 482.0);
        add("right margin", "\\margr800\\ri0", 482.0);
        add("all", "\\paperw11906\\margl1134\\margr1134\\ri567", 453.55);
        add("height does not count", "\\paperh1\\margt1\\margb1\\ri0", 432.0);
        add("too late", "\\ri0\\paperw10000", 432.0);
        add("no number", "\\margl\\ri0", 522.0);
        add("narrower than its margins", "\\paperw0\\ri0", -180.0);
        add("in a group before", "{\\paperw10000}\\ri0", 320.0);
    }

    // The direction that counts is the one of the characters, which only a default format can give.
    void indentsOfRightToLeftText()
    {
        const auto after = [](Qt::LayoutDirection direction, const QByteArray& words) {
            QTextCharFormat format;
            format.setProperty(QTextFormat::LayoutDirection, int(direction));
            const QSharedPointer<QTextDocument> document = newDocument();
            ORVTextFormat::setDefaultCharFormat(document.data(), format);
            return dump(readInto(document, "{\\rtf1\\plain" + words + " x}").blockFormat(0));
        };
        const QString left = dump(Properties{{leftIndent, 18.0}, {QTextFormat::TextIndent, 18.0}});
        const QString right = dump(Properties{{rightIndent, 414.0}});
        QCOMPARE(after(Qt::RightToLeft, "\\lin360"), right);
        QCOMPARE(after(Qt::RightToLeft, "\\rin360"), left);
        QCOMPARE(after(Qt::RightToLeft, "\\li360"), left);
        QCOMPARE(after(Qt::RightToLeft, "\\ri360"), right);
        QCOMPARE(after(Qt::LeftToRight, "\\lin360"), left);
        QCOMPARE(after(Qt::LeftToRight, "\\rin360"), right);
    }

    ORV_ROWS(pageBreaks)
    {
        const Rows add([](const QByteArray& body, const QString& text, const QList<int>& breaks) {
            const Reading reading = readBody(body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), text);
            QList<int> actual;
            for (int i = 0; i < reading.blockCount(); ++i)
                actual << reading.blockFormat(i).intProperty(pageBreak);
            QCOMPARE(actual, breaks);
        });
        // All breaks end up as breaks before a paragraph.
        add("none", "a\\par b", "a\nb", QList<int>{0, 0});
        add("between", "a\\page b\\par c", "a\nb\nc", QList<int>{0, 1, 0});
        add("after an end", "a\\par\\page b", "a\n\nb", QList<int>{0, 0, 1});
        add("first", "\\page a", "\na", QList<int>{0, 1});
        add("last", "a\\page", "a\n", QList<int>{0, 1});
        add("twice", "a\\page\\page b\\par c", "a\n\nb\nc", QList<int>{0, 1, 1, 0});
        add("before", "\\pagebb a\\par\\pard b", "a\nb", QList<int>{1, 0});
        add("before holds on", "a\\par\\pagebb b\\par c", "a\nb\nc", QList<int>{0, 1, 1});
        add("reset in between", "\\pard a\\page\\pard b\\par\\pard c", "a\nb\nc", QList<int>{0, 1, 0});
        add("bits of keeping", "\\keep\\keepn\\qc a\\page b", "a\nb", QList<int>{0x220, 0x221});
        add("in a group", "{\\b a\\page}b\\par c", "a\nb\nc", QList<int>{0, 1, 0});
    }

    // Nothing comes that would give the last paragraph its format.
    void pageBreakBeforeTheEndOfTheInput()
    {
        QCOMPARE(read("{a\\page").status, 8);
        const Reading complete = read("{a\\page ");
        QCOMPARE(complete.status, 2);
        QCOMPARE(complete.text(), "a\n"_s);
        QCOMPARE(complete.blockFormat(0).intProperty(pageBreak), 0);
        QCOMPARE(complete.blockFormat(1).intProperty(pageBreak), 1);
    }

    ORV_ROWS(tabs)
    {
        const Rows add([](const QString& expected) {
            const Reading reading = readBody(QTest::currentDataTag() + " one\\par two"_b);
            QCOMPARE(tabsOf(reading.blockFormat(0)), expected);
            QCOMPARE(tabsOf(reading.blockFormat(1)), expected);
        });
        add("\\tx720", "36 0");
        add("\\tx720\\tx1440\\tx2165", "36 0, 72 0, 108.25 0");
        add("\\tx1440\\tx720", "72 0, 36 0");
        add("\\tqr\\tx720", "36 1");
        add("\\tqc\\tx720", "36 2");
        add("\\tqdec\\tx720", "36 3.");
        add("\\tqr\\tx720\\tx1440", "36 1, 72 0");
        add("\\tqdec\\tx720\\tx1440", "36 3., 72 0");
        add("\\tqdec\\tx720\\tqr\\tx1440", "36 3., 72 1");
        add("\\tqr\\tqc\\tx720", "36 2");
        add("\\tqr", "");
        add("\\tx", "0 0");
        add("\\tx-720", "-36 0");
        add("\\tx720\\pard", "");
        add("\\tx720\\pard\\tx1440", "72 0");
        add("{\\tx720}", "36 0");
    }

    ORV_ROWS(wordsInNotes)
    {
        const Rows add([](const Properties& expected) {
            const Properties centred{{QTextFormat::BlockAlignment, 4}};
            for (const QByteArray& note : {"\\footnote"_b, "\\annotation"_b}) {
                const Reading reading =
                    readBody("\\qc one{" + note + QTest::currentDataTag() + " two}\\par three");
                QCOMPARE(reading.text(), "onetwo\nthree"_s);
                QCOMPARE(dump(reading.blockFormat(0)), dump(centred));
                QCOMPARE(dump(reading.blockFormat(1)), dump(expected));
            }
        });
        const int align = QTextFormat::BlockAlignment;
        addWords(add,
                 "\\pard \\ql \\qr \\qj \\ltrpar \\rtlpar \\sb240 \\sa240 \\sl240 \\slmult1 "
                 "\\li720 \\fi360 \\ri360 \\lin720 \\rin360",
                 Properties{{align, 4}});
        add("\\keep", {{align, 4}, {pageBreak, 0x200}});
        add("\\keepn", {{align, 4}, {pageBreak, 0x20}});
        add("\\pagebb", {{align, 4}, {pageBreak, 0x01}});
        add("\\ilvl2", {{align, 4}, {ORVRtfProperty::ListLevel, 2}});
    }

    void tabsAndListsInNotes()
    {
        const Reading reading = readBody("one{\\footnote\\tx720\\ls3 two}\\par three");
        QCOMPARE(tabsOf(reading.blockFormat(1)), "36 0"_s);
        QVERIFY(!reading.block(0).textList());
        QVERIFY(reading.block(1).textList());
    }

    // A note's content may be read with the note's own format as the default: \\plain makes it a note's then.
    void wordsInTextThatIsANoteByDefault()
    {
        for (const int flag : {ORVRtfProperty::InFootnote, ORVRtfProperty::InAnnotation}) {
            QTextCharFormat format;
            format.setProperty(flag, true);
            QByteArray rtf = "{\\rtf1\\ansi\\qc one\\par\\pard\\plain\\qr two\\par{\\pard\\qj three}}";
            QBuffer buffer(&rtf);
            ORVTextRtfReader reader(&buffer);
            QTextDocument document;
            QVERIFY(reader.read(&document, true, format));
            const int alignment = QTextFormat::BlockAlignment;
            QCOMPARE(document.begin().blockFormat().property(alignment), QVariant(int(Qt::AlignHCenter)));
            QVERIFY(!document.begin().next().blockFormat().hasProperty(alignment));
            QVERIFY(!document.lastBlock().blockFormat().hasProperty(alignment));
        }
    }

    ORV_ROWS(wordsWithoutEffect)
    {
        const Rows add([] {
            for (const char* parameter : {"", "1", "0", "-5"}) {
                const QByteArray words = QTest::currentDataTag() + QByteArray(parameter);
                const Reading reading =
                    readBody("a" + words + " b{" + words + " c}{\\*" + words + " d}\\par e");
                QCOMPARE(reading.status, 0);
                QCOMPARE(runsOf(reading), QStringList({run("abcd", plainRun), "|"_s, run("e", plainRun)}));
                QCOMPARE(dump(reading.blockFormat(0)), QString());
                QCOMPARE(dump(reading.blockFormat(1)), QString());
                QVERIFY(!reading.block(1).textList());
            }
        });
        // The last ones mean nothing outside their tables.
        addWords(
            add,
            "\\ud \\absw \\absh \\nowrap \\posxl \\posxc \\posxr \\strokewidth \\strokec \\strikec \\fet "
            "\\ftnbj \\aenddoc \\chatn \\chftn \\ftnalt \\ltrch \\rtlch \\loch \\hich \\dbch \\af "
            "\\shppict \\cs \\header \\headerf \\headerl \\headerr \\footer \\footerf \\footerl \\footerr "
            "\\titlepg \\pgnrestart \\pgnstarts \\chpgn \\listsimple \\leveltemplateid \\levelnumbers "
            "\\leveljc \\leveljcn \\levelfollow \\levelstartat \\levelspace \\levelindent "
            "\\listoverridecount \\trowd \\nesttableprops \\trautofit \\trleft \\clmgf \\clvmgf \\clpadt "
            "\\clpadl \\clpadr \\clpadb \\rtf \\ansi "
            "\\froman \\fnil \\fswiss \\fmodern \\fscript \\fdecor \\ftech \\fbidi \\red \\green \\blue "
            "\\list \\listid \\listtemplateid \\listhybrid \\listlevel \\levelnfc \\levelnfcn "
            "\\listoverride");
    }

    ORV_ROWS(ignoredGroups)
    {
        const Rows add([] {
            const QByteArray word = QTest::currentDataTag();
            for (const QByteArray& opening : {"{" + word, "{\\*" + word, "{" + word + "1"}) {
                const Reading reading =
                    readBody("\\b a" + opening + " b\\par{c{\\i d}}\\'zz\\pard\\qc e}f\\par g");
                QCOMPARE(reading.status, 0);
                QCOMPARE(runsOf(reading), QStringList({run("af", boldRun), "|"_s, run("g", boldRun)}));
                QCOMPARE(dump(reading.blockFormat(1)), QString());
            }
            // Text before the word belongs to the group around it.
            QCOMPARE(readBody("a{b" + word + " c}d").text(), "abd"_s);
        });
        addWords(
            add,
            "\\atnid \\atnauthor \\bkmkstart \\bkmkend \\nonesttables \\nonshppict \\listname \\listtext "
            "\\levelmarker \\pntext \\lfolevel \\stylesheet \\info");
    }
};

ORV_TEST("formatwords", TestFormatWords, QGuiApplication)
#include "formatwords.moc"
