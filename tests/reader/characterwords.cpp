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

} // namespace

/*! The control words of characters. */
class TestCharacterWords : public QObject {
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

        const int underline = QTextFormat::TextUnderlineStyle;
        add("\\uld", {{underline, 3}});
        add("\\uldash", {{underline, 2}});
        add("\\uldashd", {{underline, 4}});
        add("\\uldashdd", {{underline, 5}});
        add("\\ulwave", {{underline, 6}});
        // Only the plain underline words can be switched off by a number.
        add("\\uld0", {{underline, 3}});
        add("\\ulwave0", {{underline, 6}});
        add("\\ul\\ulwave", {{underline, 6}});
        add("\\ulwave\\ul0", {{underline, 0}});
        add("\\ul\\ulc1\\ulnone", {});
        add("\\ulnone", {});

        const int align = QTextFormat::TextVerticalAlignment;
        add("\\super\\nosupersub", {});
        add("\\sub\\nosupersub", {});
        add("\\super\\sub", {{align, 2}});
        add("\\up6", {{align, 3}, {ORVRtfProperty::BaselineShift, 6}});
        add("\\dn6", {{align, 3}, {ORVRtfProperty::BaselineShift, -6}});
        add("\\up", {{align, 3}, {ORVRtfProperty::BaselineShift, 0}});
        add("\\up0", {{align, 3}, {ORVRtfProperty::BaselineShift, 0}});
        add("\\up-6", {{align, 3}, {ORVRtfProperty::BaselineShift, -6}});
        add("\\dn-6", {{align, 3}, {ORVRtfProperty::BaselineShift, 6}});
        add("\\up6\\nosupersub", {{ORVRtfProperty::BaselineShift, 6}});

        const int size = QTextFormat::FontPointSize;
        add("\\fs", {{size, 10.0}});
        add("\\fs-1", {{size, 10.0}});
        add("\\fs0", {{size, 10.0}});
        add("\\fs1", {{size, 10.0}});
        add("\\fs2", {{size, 10.0}});
        add("\\fs3", {{size, 1.5}});
        add("\\fs21", {{size, 10.5}});
        add("\\fs24", {{size, 12.0}});
        add("\\fs3276", {{size, 1638.0}});

        const int pitch = QTextFormat::FontFixedPitch;
        add("\\fprq1", {{pitch, true}});
        add("\\fprq2", {{pitch, false}});
        add("\\fprq1\\fprq0", {});
        add("\\fprq1\\fprq3", {});
        add("\\fprq1\\fprq", {});
        add("\\fprq1\\fprq-1", {});

        add("\\orvrevlvl3", {{ORVRtfProperty::RevisionLevel, 3}});
        add("\\orvrevlvl0", {{ORVRtfProperty::RevisionLevel, 0}});
        add("\\orvrevlvl-7", {{ORVRtfProperty::RevisionLevel, -7}});
        add("\\orvrevlvl", {{ORVRtfProperty::RevisionLevel, 0}});
        add("\\annotation", {{ORVRtfProperty::InAnnotation, true}});
        add("\\footnote", {{ORVRtfProperty::InFootnote, true}});
        add("\\b\\i\\fs24",
            {{QTextFormat::FontWeight, int(QFont::Bold)}, {QTextFormat::FontItalic, true}, {size, 12.0}});

        // Colour 0 is the default colour; 1 to 4 are red, green, blue and white.
        const int foreground = QTextFormat::ForegroundBrush;
        const int background = QTextFormat::BackgroundBrush;
        const int lineColor = QTextFormat::TextUnderlineColor;
        add("\\cf0", {{foreground, solid(Qt::black)}});
        add("\\cf", {{foreground, solid(Qt::black)}});
        add("\\cf1", {{foreground, solid(Qt::red)}});
        add("\\cf4", {{foreground, solid(Qt::white)}});
        add("\\cf5", {});
        add("\\cf-1", {});
        add("\\cf2147483647", {});
        add("\\cf1\\cf5", {{foreground, solid(Qt::red)}});
        add("\\cb2", {{background, solid(Qt::green)}});
        add("\\cb4", {{background, solid(Qt::white)}});
        add("\\cb5", {});
        add("\\cb-1", {});
        add("\\cb1", {{background, solid(Qt::red)}});
        add("\\highlight3", {{background, solid(Qt::blue)}});
        add("\\highlight0", {{background, solid(Qt::black)}});
        add("\\highlight5", {});
        add("\\highlight-1", {});
        add("\\ulc2", {{lineColor, QColor(Qt::green)}});
        add("\\ulc5", {});
        add("\\ulc-1", {});
        add("\\ulc2\\ulc5", {{lineColor, QColor(Qt::green)}});
        add("\\cf1\\cb2\\ulc3",
            {{foreground, solid(Qt::red)}, {background, solid(Qt::green)}, {lineColor, QColor(Qt::blue)}});

        const Properties serif{{Family, "Quibble Serif"_s}, {QTextFormat::FontFixedPitch, false}};
        const Properties mono{{Family, "Quibble Mono"_s}, {QTextFormat::FontFixedPitch, true}};
        add("\\f1", serif);
        add("\\f2", mono);
        add("\\f2\\f1", serif);
        add("\\f9", {});
        add("\\f", {});
        add("\\f-1", {});
        add("\\f2\\f9", mono);
        add("\\f2\\fprq2\\f2", mono);
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

    // A family without a normal face: switching bold off leaves the face it has.
    void boldOffAsksTheFamily()
    {
        const QByteArray fonts = "{\\fonttbl{\\f0 Quibble Sans;}{\\f1 Quibble Brick;}}";
        const auto weight = [&fonts](const QByteArray& words) {
            const Reading reading = readBody(fonts + words + " x");
            return reading.format("x"_s).property(QTextFormat::FontWeight).toInt();
        };
        QCOMPARE(weight("\\f1\\b0"), int(QFont::Bold));
        QCOMPARE(weight("\\f0\\b0"), int(QFont::Normal));
        QCOMPARE(weight("\\b0"), int(QFont::Normal));
        QCOMPARE(weight("\\b0\\f1"), int(QFont::Normal));
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
        for (const char* words :
             {"", "\\outl", "\\cf1", "\\cb2", "\\ulc1", "\\f2", "\\fs80", "\\up4", "\\fprq1", "\\orvrevlvl2"})
            add(words, {});
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
            const Reading lower = read("{a\\'" + digits + "b}");
            const Reading upper = read("{a\\'" + digits.toUpper() + "b}");
            QCOMPARE(lower.status, 0);
            QCOMPARE(upper.status, 0);
            QCOMPARE(upper.text(), lower.text());
            // The bytes from 0x80 to 0x9F are other characters, which the tests of code pages spell out.
            if (byte == 0x7F)
                QCOMPARE(lower.text(), "ab"_s);
            else if (byte < 0x80 || byte >= 0xA0)
                QCOMPARE(lower.text(), "a" + QString(QChar(ushort(byte))) + "b");
            else
                QCOMPARE(lower.text().size(), 3);
        }
    }
};

ORV_TEST("characterwords", TestCharacterWords, QGuiApplication)
#include "characterwords.moc"
