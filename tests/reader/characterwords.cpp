#include "ORVRtfProperties.h"
#include "ORVTextFormat.h"
#include "QtFontCompat_p.h"
#include "rtftesthelpers.h"

#include <QtGui/QFontDatabase>
#include <QtTest/QtTest>

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
    return reading.status == 0 ? reading.format(QStringLiteral("x")) : notFoundFormat();
}

} // namespace

/*! The control words of characters. */
class TestCharacterwords : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void togglesSwitch_data();
    void togglesSwitch();
    void characterWords_data();
    void characterWords();
    void colorIndexes_data();
    void colorIndexes();
    void whiteAsColorOneClearsTheBackground();
    void outline_data();
    void outline();
    void boldOffAsksTheFamily();
    void plainResetsEverything_data();
    void plainResetsEverything();
    void plainKeepsTheRestOfTheDefault();
    void plainKeepsNoteFlags();
    void plainResetsTheCodePage();
    void fontSelection_data();
    void fontSelection();
    void specialCharacters_data();
    void specialCharacters();
    void codePages_data();
    void codePages();
    void badEscapes_data();
    void badEscapes();
    void allBytesAsEscapes();
    void equalFormattingGivesOneFragment();
};

void TestCharacterwords::initTestCase()
{
    QVERIFY(QFontDatabase::addApplicationFont(QStringLiteral(TEST_DATA_DIR "/fonts/QuibbleBrick.ttf")) >= 0);
}

void TestCharacterwords::togglesSwitch_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<QString>("expected");

    for (const Toggle& toggle : toggles()) {
        const QByteArray word = "\\" + QByteArray(toggle.word);
        const QString on = dump(Properties{{toggle.property, toggle.on}});
        const QString off = dump(Properties{{toggle.property, toggle.off}});
        QTest::newRow(word.constData()) << word << on;
        QTest::newRow(QByteArray(word + "1").constData()) << word + "1" << on;
        QTest::newRow(QByteArray(word + "2").constData()) << word + "2" << on;
        QTest::newRow(QByteArray(word + "-1").constData()) << word + "-1" << on;
        QTest::newRow(QByteArray(word + "0").constData()) << word + "0" << off;
        QTest::newRow(QByteArray(word + "-0").constData()) << word + "-0" << off;
        QTest::newRow(QByteArray(word + " off").constData()) << word + word + "0" << off;
        QTest::newRow(QByteArray(word + " on").constData()) << word + "0" + word << on;
    }
}

void TestCharacterwords::togglesSwitch()
{
    QFETCH(QByteArray, words);
    QFETCH(QString, expected);
    QCOMPARE(dump(formatAfter(words)), expected);
}

void TestCharacterwords::characterWords_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<QString>("expected");
    const auto row = [](const QByteArray& words, const Properties& expected) {
        QTest::newRow(words.constData()) << words << dump(expected);
    };

    const int underline = QTextFormat::TextUnderlineStyle;
    row("\\uld", {{underline, 3}});
    row("\\uldash", {{underline, 2}});
    row("\\uldashd", {{underline, 4}});
    row("\\uldashdd", {{underline, 5}});
    row("\\ulwave", {{underline, 6}});
    // Only the plain underline words can be switched off by a number.
    row("\\uld0", {{underline, 3}});
    row("\\ulwave0", {{underline, 6}});
    row("\\ul\\ulwave", {{underline, 6}});
    row("\\ulwave\\ul0", {{underline, 0}});
    row("\\ul\\ulc1\\ulnone", {});
    row("\\ulnone", {});

    const int align = QTextFormat::TextVerticalAlignment;
    row("\\super\\nosupersub", {});
    row("\\sub\\nosupersub", {});
    row("\\super\\sub", {{align, 2}});
    row("\\up6", {{align, 3}, {ORVRtfProperty::BaselineShift, 6}});
    row("\\dn6", {{align, 3}, {ORVRtfProperty::BaselineShift, -6}});
    row("\\up", {{align, 3}, {ORVRtfProperty::BaselineShift, 0}});
    row("\\up0", {{align, 3}, {ORVRtfProperty::BaselineShift, 0}});
    row("\\up-6", {{align, 3}, {ORVRtfProperty::BaselineShift, -6}});
    row("\\dn-6", {{align, 3}, {ORVRtfProperty::BaselineShift, 6}});
    row("\\up6\\nosupersub", {{ORVRtfProperty::BaselineShift, 6}});

    const int size = QTextFormat::FontPointSize;
    row("\\fs", {{size, 10.0}});
    row("\\fs-1", {{size, 10.0}});
    row("\\fs0", {{size, 10.0}});
    row("\\fs1", {{size, 10.0}});
    row("\\fs2", {{size, 10.0}});
    row("\\fs3", {{size, 1.5}});
    row("\\fs21", {{size, 10.5}});
    row("\\fs24", {{size, 12.0}});
    row("\\fs3276", {{size, 1638.0}});

    const int pitch = QTextFormat::FontFixedPitch;
    row("\\fprq1", {{pitch, true}});
    row("\\fprq2", {{pitch, false}});
    row("\\fprq1\\fprq0", {});
    row("\\fprq1\\fprq3", {});
    row("\\fprq1\\fprq", {});
    row("\\fprq1\\fprq-1", {});

    row("\\orvrevlvl3", {{ORVRtfProperty::RevisionLevel, 3}});
    row("\\orvrevlvl0", {{ORVRtfProperty::RevisionLevel, 0}});
    row("\\orvrevlvl-7", {{ORVRtfProperty::RevisionLevel, -7}});
    row("\\orvrevlvl", {{ORVRtfProperty::RevisionLevel, 0}});
    row("\\annotation", {{ORVRtfProperty::InAnnotation, true}});
    row("\\footnote", {{ORVRtfProperty::InFootnote, true}});
    row("\\b\\i\\fs24",
        {{QTextFormat::FontWeight, int(QFont::Bold)}, {QTextFormat::FontItalic, true}, {size, 12.0}});
}

void TestCharacterwords::characterWords()
{
    QFETCH(QByteArray, words);
    QFETCH(QString, expected);
    QCOMPARE(dump(formatAfter(words)), expected);
}

// Colour 0 is the default colour; 1 to 4 are red, green, blue and white.
void TestCharacterwords::colorIndexes_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<QString>("expected");
    const auto row = [](const QByteArray& words, const Properties& expected) {
        QTest::newRow(words.constData()) << words << dump(expected);
    };

    const int foreground = QTextFormat::ForegroundBrush;
    const int background = QTextFormat::BackgroundBrush;
    const int underline = QTextFormat::TextUnderlineColor;
    row("\\cf0", {{foreground, solid(Qt::black)}});
    row("\\cf", {{foreground, solid(Qt::black)}});
    row("\\cf1", {{foreground, solid(Qt::red)}});
    row("\\cf4", {{foreground, solid(Qt::white)}});
    row("\\cf5", {});
    row("\\cf-1", {});
    row("\\cf2147483647", {});
    row("\\cf1\\cf5", {{foreground, solid(Qt::red)}});
    row("\\cb2", {{background, solid(Qt::green)}});
    row("\\cb4", {{background, solid(Qt::white)}});
    row("\\cb5", {});
    row("\\cb-1", {});
    row("\\cb1", {{background, solid(Qt::red)}});
    row("\\highlight3", {{background, solid(Qt::blue)}});
    row("\\highlight0", {{background, solid(Qt::black)}});
    row("\\highlight5", {});
    row("\\highlight-1", {});
    row("\\ulc2", {{underline, QColor(Qt::green)}});
    row("\\ulc5", {});
    row("\\ulc-1", {});
    row("\\ulc2\\ulc5", {{underline, QColor(Qt::green)}});
    row("\\cf1\\cb2\\ulc3",
        {{foreground, solid(Qt::red)}, {background, solid(Qt::green)}, {underline, QColor(Qt::blue)}});
}

void TestCharacterwords::colorIndexes()
{
    QFETCH(QByteArray, words);
    QFETCH(QString, expected);
    QCOMPARE(dump(formatAfter(words)), expected);
}

// Colour 1 is what word processors write for "no background" when it is white.
void TestCharacterwords::whiteAsColorOneClearsTheBackground()
{
    const QByteArray table = "{\\colortbl;\\red255\\green255\\blue255;\\red255\\green255\\blue255;"
                             "\\red255\\green0\\blue0;}";
    const auto after = [&table](const QByteArray& words) {
        return dump(readBody(table + words + " x").format(QStringLiteral("x")));
    };
    const QString white = dump(Properties{{QTextFormat::BackgroundBrush, solid(Qt::white)}});
    for (const QByteArray& word : {QByteArray("\\cb"), QByteArray("\\highlight")}) {
        QCOMPARE(after(word + "1"), QString());
        QCOMPARE(after(word + "3" + word + "1"), QString());
        QCOMPARE(after(word + "2"), white);
        QCOMPARE(after(word + "1" + word + "2"), white);
    }
}

void TestCharacterwords::outline_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<QString>("outline");
    QTest::addColumn<QString>("foreground");

    const QString none;
    const QString clear = describe(solid(Qt::transparent));
    const auto pen = [](const QColor& color) { return describe(QPen(color)); };
    QTest::newRow("on") << QByteArray("\\outl") << pen(Qt::black) << clear;
    QTest::newRow("on with 1") << QByteArray("\\outl1") << pen(Qt::black) << clear;
    QTest::newRow("on and off") << QByteArray("\\outl\\outl0") << none << describe(solid(Qt::black));
    QTest::newRow("coloured") << QByteArray("\\cf1\\outl") << pen(Qt::red) << clear;
    QTest::newRow("coloured, on and off")
        << QByteArray("\\cf1\\outl\\outl0") << none << describe(solid(Qt::red));
    QTest::newRow("colour afterwards") << QByteArray("\\outl\\cf2") << pen(Qt::green) << clear;
    QTest::newRow("colour afterwards, off")
        << QByteArray("\\outl\\cf2\\outl0") << none << describe(solid(Qt::green));
    QTest::newRow("two colours") << QByteArray("\\cf1\\outl\\cf2") << pen(Qt::green) << clear;
    QTest::newRow("colour out of range") << QByteArray("\\cf1\\outl\\cf9") << pen(Qt::red) << clear;
    QTest::newRow("colour after off")
        << QByteArray("\\outl\\outl0\\cf2") << none << describe(solid(Qt::green));
    QTest::newRow("off without on") << QByteArray("\\cf1\\outl0") << none << describe(solid(Qt::black));
    QTest::newRow("plain") << QByteArray("\\cf1\\outl\\plain") << none << none;
}

void TestCharacterwords::outline()
{
    QFETCH(QByteArray, words);
    QFETCH(QString, outline);
    QFETCH(QString, foreground);

    const QTextCharFormat format = formatAfter(words);
    const auto value = [&format](int id) {
        return format.hasProperty(id) ? describe(format.property(id)) : QString();
    };
    QCOMPARE(value(QTextFormat::TextOutline), outline);
    QCOMPARE(value(QTextFormat::ForegroundBrush), foreground);
}

// A family without a normal face: switching bold off leaves the face it has.
void TestCharacterwords::boldOffAsksTheFamily()
{
    const QByteArray fonts = "{\\fonttbl{\\f0 Quibble Sans;}{\\f1 Quibble Brick;}}";
    const auto weight = [&fonts](const QByteArray& words) {
        const Reading reading = readBody(fonts + words + " x");
        return reading.format(QStringLiteral("x")).property(QTextFormat::FontWeight).toInt();
    };
    QCOMPARE(weight("\\f1\\b0"), int(QFont::Bold));
    QCOMPARE(weight("\\f0\\b0"), int(QFont::Normal));
    QCOMPARE(weight("\\b0"), int(QFont::Normal));
    QCOMPARE(weight("\\b0\\f1"), int(QFont::Normal));
}

void TestCharacterwords::plainResetsEverything_data()
{
    QTest::addColumn<QByteArray>("words");
    for (const Toggle& toggle : toggles())
        QTest::newRow(toggle.word) << "\\" + QByteArray(toggle.word);
    for (const char* words :
         {"\\outl", "\\cf1", "\\cb2", "\\ulc1", "\\f2", "\\fs80", "\\up4", "\\fprq1", "\\orvrevlvl2"})
        QTest::newRow(words) << QByteArray(words);
}

void TestCharacterwords::plainResetsEverything()
{
    QFETCH(QByteArray, words);

    Properties properties = propertiesOf(formatAfter(words + "\\plain"));
    QVERIFY(!properties.take(QTextFormat::FontStrikeOut).toBool());
    QVERIFY(!properties.take(QTextFormat::FontOverline).toBool());
    QCOMPARE(dump(properties),
             dump(Properties{{Family, QLatin1String(DefaultFamily)},
                             {QTextFormat::FontPointSize, DefaultPointSize}}));
}

// The default format of the document gives family, size and everything else, but no emphasis and no colour.
void TestCharacterwords::plainKeepsTheRestOfTheDefault()
{
    const QSharedPointer<QTextDocument> document = newDocument();
    QTextCharFormat format;
    compat::setFontFamily(format, QStringLiteral("Quibble Tall"));
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
    Properties properties = propertiesOf(reading.format(QStringLiteral("x")));
    QVERIFY(!properties.take(QTextFormat::FontStrikeOut).toBool());
    QVERIFY(!properties.take(QTextFormat::FontOverline).toBool());
    QCOMPARE(dump(properties),
             dump(Properties{{Family, QStringLiteral("Quibble Tall")},
                             {QTextFormat::FontPointSize, 17.0},
                             {QTextFormat::FontLetterSpacing, 3.0},
                             {QTextFormat::FontCapitalization, 3}}));
}

void TestCharacterwords::plainKeepsNoteFlags()
{
    const QTextCharFormat footnote = formatAfter("\\footnote\\b\\plain");
    QVERIFY(footnote.boolProperty(ORVRtfProperty::InFootnote));
    QVERIFY(!footnote.hasProperty(ORVRtfProperty::InAnnotation));
    QVERIFY(!footnote.hasProperty(QTextFormat::FontWeight));
    const QTextCharFormat annotation = formatAfter("\\annotation\\b\\plain");
    QVERIFY(annotation.boolProperty(ORVRtfProperty::InAnnotation));
    QVERIFY(!annotation.hasProperty(ORVRtfProperty::InFootnote));
    const QTextCharFormat both = formatAfter("\\annotation\\footnote\\plain");
    QVERIFY(both.boolProperty(ORVRtfProperty::InAnnotation));
    QVERIFY(both.boolProperty(ORVRtfProperty::InFootnote));
    const QTextCharFormat none = formatAfter("\\plain");
    QVERIFY(!none.boolProperty(ORVRtfProperty::InAnnotation));
    QVERIFY(!none.boolProperty(ORVRtfProperty::InFootnote));
}

void TestCharacterwords::plainResetsTheCodePage()
{
    const QByteArray fonts = "{\\fonttbl{\\f0 Quibble Sans;}{\\f1\\fcharset204 Quibble Serif;}}";
    QCOMPARE(readBody(fonts + "\\f1\\'e9\\plain\\'e9").text(), QString::fromUtf8("?é"));
}

void TestCharacterwords::fontSelection_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<QString>("expected");
    const auto row = [](const QByteArray& words, const Properties& expected) {
        QTest::newRow(words.constData()) << words << dump(expected);
    };

    const Properties serif{{Family, QStringLiteral("Quibble Serif")}, {QTextFormat::FontFixedPitch, false}};
    const Properties mono{{Family, QStringLiteral("Quibble Mono")}, {QTextFormat::FontFixedPitch, true}};
    row("\\f1", serif);
    row("\\f2", mono);
    row("\\f2\\f1", serif);
    row("\\f9", {});
    row("\\f", {});
    row("\\f-1", {});
    row("\\f2\\f9", mono);
    row("\\f2\\fprq2\\f2", mono);
}

void TestCharacterwords::fontSelection()
{
    QFETCH(QByteArray, words);
    QFETCH(QString, expected);
    QCOMPARE(dump(formatAfter(words)), expected);
}

void TestCharacterwords::specialCharacters_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::addColumn<int>("unit");

    QTest::newRow("tab") << QByteArray("\\tab ") << 0x0009;
    QTest::newRow("line") << QByteArray("\\line ") << 0x2028;
    QTest::newRow("non-breaking space") << QByteArray("\\~") << 0x00A0;
    QTest::newRow("optional hyphen") << QByteArray("\\-") << 0x002D;
    QTest::newRow("non-breaking hyphen") << QByteArray("\\_") << 0x002D;
    QTest::newRow("backslash") << QByteArray("\\\\") << 0x005C;
    QTest::newRow("opening brace") << QByteArray("\\{") << 0x007B;
    QTest::newRow("closing brace") << QByteArray("\\}") << 0x007D;
    QTest::newRow("endash") << QByteArray("\\endash ") << 0x2013;
    QTest::newRow("emdash") << QByteArray("\\emdash ") << 0x2014;
    QTest::newRow("bullet") << QByteArray("\\bullet ") << 0x2022;
    QTest::newRow("lquote") << QByteArray("\\lquote ") << 0x2018;
    QTest::newRow("rquote") << QByteArray("\\rquote ") << 0x2019;
    QTest::newRow("ldblquote") << QByteArray("\\ldblquote ") << 0x201C;
    QTest::newRow("rdblquote") << QByteArray("\\rdblquote ") << 0x201D;
}

void TestCharacterwords::specialCharacters()
{
    QFETCH(QByteArray, word);
    QFETCH(int, unit);

    const QString character{QChar(ushort(unit))};
    const Reading reading = readBody("a" + word + "b{\\b " + word + "}");
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.blockCount(), 1);
    QCOMPARE(reading.text(), "a" + character + "b" + character);
    QCOMPARE(fragmentsOf(*reading.document).size(), 2);
    QCOMPARE(fragmentsOf(*reading.document).last().text(), character);
}

void TestCharacterwords::codePages_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("text");

    QTest::newRow("1252 by default") << QByteArray("{\\'e4\\'80}") << QString::fromUtf8("ä€");
    QTest::newRow("upper case digits") << QByteArray("{\\'E4\\'eF}") << QString::fromUtf8("äï");
    QTest::newRow("ASCII") << QByteArray("{\\'41\\'7b\\'5c}") << QStringLiteral("A{\\");
    QTest::newRow("0x98") << QByteArray("{\\'98}") << QString(QChar(0x20DC));
    QTest::newRow("a byte without a character") << QByteArray("{a\\'81b}") << "a" + QString(QChar(0)) + "b";
    QTest::newRow("1252 named") << QByteArray("{\\ansicpg1252\\'e4}") << QString::fromUtf8("ä");
    QTest::newRow("1251 named") << QByteArray("{\\ansicpg1251\\'e4\\'e5 x}") << QStringLiteral("?? x");
    QTest::newRow("932 named") << QByteArray("{\\ansicpg932\\'82\\'a0 x}") << QStringLiteral("?? x");
    QTest::newRow("no number is 1252")
        << QByteArray("{\\ansicpg1251\\ansicpg\\'e4}") << QString::fromUtf8("ä");
    QTest::newRow("0 is 1252") << QByteArray("{\\ansicpg1251\\ansicpg0\\'e4}") << QString::fromUtf8("ä");
    QTest::newRow("negative is 1252")
        << QByteArray("{\\ansicpg1251\\ansicpg-1\\'e4}") << QString::fromUtf8("ä");
    QTest::newRow("1 is another code page") << QByteArray("{\\ansicpg1\\'e4}") << QStringLiteral("?");
    QTest::newRow("raw bytes are not of the code page")
        << QByteArray("{\\ansicpg1251\xE4}") << QString::fromUtf8("ä");

    const QByteArray fonts = "{\\fonttbl{\\f0 Quibble Sans;}{\\f1\\fcharset204 Quibble Serif;}"
                             "{\\f2\\cpg1251 Quibble Mono;}{\\f3\\fcharset0 Quibble Tall;}}";
    QTest::newRow("charset of the font") << "{" + fonts + "\\f1\\'e4}" << QStringLiteral("?");
    QTest::newRow("code page of the font") << "{" + fonts + "\\f2\\'e4}" << QStringLiteral("?");
    QTest::newRow("font before document")
        << "{\\ansicpg1251" + fonts + "\\f3\\'e4}" << QString::fromUtf8("ä");
    QTest::newRow("document where the font says nothing")
        << "{\\ansicpg1251" + fonts + "\\f3\\'e4\\f0\\'e4}" << QString::fromUtf8("ä?");
    QTest::newRow("unknown font changes nothing") << "{" + fonts + "\\f1\\f9\\'e4}" << QStringLiteral("?");
    QTest::newRow("charset outside the font table")
        << "{" + fonts + "\\f0\\fcharset204\\'e4\\f0\\'e4}" << QString::fromUtf8("ää");
    QTest::newRow("code page outside the font table")
        << "{" + fonts + "\\f0\\cpg1251\\'e4\\f0\\'e4}" << QString::fromUtf8("ää");
}

void TestCharacterwords::codePages()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, text);

    const Reading reading = read(rtf);
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.text(), text);
}

void TestCharacterwords::badEscapes_data()
{
    QTest::addColumn<QByteArray>("escape");
    QTest::newRow("no digits") << QByteArray("\\'zz");
    QTest::newRow("second no digit") << QByteArray("\\'4z");
    QTest::newRow("first no digit") << QByteArray("\\'z4");
    QTest::newRow("space") << QByteArray("\\' 41");
    QTest::newRow("line end") << QByteArray("\\'4\n1");
    QTest::newRow("sign") << QByteArray("\\'+4");
    QTest::newRow("brace") << QByteArray("\\'4{}");
    QTest::newRow("other code page") << QByteArray("\\ansicpg1251\\'zz");
}

void TestCharacterwords::badEscapes()
{
    QFETCH(QByteArray, escape);

    const Reading reading = readBody("a" + escape + "{\\b b}");
    QCOMPARE(reading.status, 9);
    QVERIFY(reading.text().startsWith(QLatin1Char('a')));
    QVERIFY(reading.text().endsWith(QLatin1Char('b')));
}

void TestCharacterwords::allBytesAsEscapes()
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
            QCOMPARE(lower.text(), QStringLiteral("ab"));
        else if (byte < 0x80 || byte >= 0xA0)
            QCOMPARE(lower.text(), "a" + QString(QChar(ushort(byte))) + "b");
        else
            QCOMPARE(lower.text().size(), 3);
    }
}

void TestCharacterwords::equalFormattingGivesOneFragment()
{
    const Reading reading = readBody("{\\b one}{\\b  two}\\b  three");
    QCOMPARE(fragmentsOf(*reading.document).size(), 1);
    QCOMPARE(reading.text(), QStringLiteral("one two three"));
}

QTEST_MAIN(TestCharacterwords)
#include "tst_characterwords.moc"
