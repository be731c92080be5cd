#include "ORVRtfProperties.h"
#include "ORVTextFormat.h"
#include "QtFontCompat_p.h"
#include "rtftesthelpers.h"

#include <QtGui/QFontDatabase>
#include <QtTest/QtTest>

using namespace rtftest;

namespace {

const Properties bold{{QTextFormat::FontWeight, int(QFont::Bold)}};

/*! The family that font \a number of a font table with \a entries has, null when there is no such font. */
QString familyOf(int number, const QByteArray& entries)
{
    const Reading reading =
        read("{\\rtf1\\deff99{\\fonttbl " + entries + "}\\f" + QByteArray::number(number) + " x}");
    return compat::fontFamily(reading.format(QStringLiteral("x")));
}

/*! The colours of the table that \a definition makes, as far as it has any. */
QStringList colorsOf(const QByteArray& definition)
{
    QByteArray uses;
    for (int i = 0; i < 6; ++i)
        uses += "{\\cf" + QByteArray::number(i) + " " + char('a' + i) + "}";
    const Reading reading = read("{\\rtf1{\\colortbl" + definition + "}" + uses + "}");
    QStringList colors;
    for (int i = 0; i < 6; ++i) {
        const QTextCharFormat format = reading.format(QString(QChar('a' + i)));
        if (format.hasProperty(QTextFormat::ForegroundBrush))
            colors << format.foreground().color().name();
    }
    return colors;
}

} // namespace

/*! What the reader keeps between control words: groups, formats, fonts, colours and pending text. */
class TestReaderstate : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void groupsRestoreTheCharacterFormat();
    void groupsRestoreTheCodePage();
    void groupsRestoreTheDestination();
    void paragraphFormatOutlivesItsGroup();
    void fontNumberOutlivesItsGroup();
    void fontNumberAfterPlainIsTheDefaultFont();
    void indents_data();
    void indents();
    void invalidCharacters();
    void invalidCharactersAtAnyPlace();
    void invalidCharactersEverywhere_data();
    void invalidCharactersEverywhere();
    void emptyParagraphsKeepTheirFormats();
    void paragraphFormatIsFixedByTheFirstText();
    void lastEmptyParagraph_data();
    void lastEmptyParagraph();
    void colorTables_data();
    void colorTables();
    void colorTableStartsFromTheDefaultColor();
    void colorTableSetsTheDefaultColor();
    void emptyColorTableSetsNothing();
    void fontTables_data();
    void fontTables();
    void fontTableSetsTheDefaultFont_data();
    void fontTableSetsTheDefaultFont();
    void boldFontMakesABoldDefault();
    void installedFontIsFoundInAnyCase();
    void fontTableResetsFontAndCodePage();
    void pitchOfAFontIsItsOwn();
    void fontLimit();
    void skippedGroupsOnlyCountBraces();
    void groupsUpToTheLimitAreRead();
    void groupsBeyondTheLimitAreSkipped();
};

void TestReaderstate::initTestCase()
{
    QVERIFY(QFontDatabase::addApplicationFont(QStringLiteral(TEST_DATA_DIR "/fonts/QuibbleBrick.ttf")) >= 0);
    QVERIFY(!QFontDatabase().families().contains(QStringLiteral("Quibble Serif")));
}

void TestReaderstate::groupsRestoreTheCharacterFormat()
{
    const Reading reading = readBody("{\\b bold{\\i both}again} plain");
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.text(), QStringLiteral("boldbothagain plain"));
    Properties boldItalic = bold;
    boldItalic.insert(QTextFormat::FontItalic, true);
    QCOMPARE(dump(reading.format(QStringLiteral("bold"))), dump(bold));
    QCOMPARE(dump(reading.format(QStringLiteral("both"))), dump(boldItalic));
    QCOMPARE(dump(reading.format(QStringLiteral("again"))), dump(bold));
    QCOMPARE(dump(reading.format(QStringLiteral("plain"))), QString());
}

void TestReaderstate::groupsRestoreTheCodePage()
{
    const QByteArray fonts = "{\\fonttbl{\\f0 Quibble Sans;}{\\f1\\fcharset204 Quibble Serif;}}";
    QCOMPARE(readBody(fonts + "\\'e9{\\f1\\'e9}\\'e9").text(), QString::fromUtf8("é?é"));
    QCOMPARE(readBody(fonts + "\\f1\\'e9{\\f0\\'e9}\\'e9").text(), QString::fromUtf8("?é?"));
}

void TestReaderstate::groupsRestoreTheDestination()
{
    QCOMPARE(readBody("a{\\fonttbl{\\f0 b;}}c{\\colortbl d;}e{\\field f{\\fldrslt g}h}i").text(),
             QStringLiteral("acegi"));
}

void TestReaderstate::paragraphFormatOutlivesItsGroup()
{
    const Reading reading = readBody("{\\qc\\li720 one\\par}two\\par three");
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(reading.blockFormat(i).intProperty(QTextFormat::BlockAlignment), int(Qt::AlignHCenter));
        QCOMPARE(reading.blockFormat(i).doubleProperty(ORVRtfProperty::LeftIndent), 36.0);
    }
}

// A font table names its only font without a number: the entry goes to the current font number.
void TestReaderstate::fontNumberOutlivesItsGroup()
{
    const Reading reading = readBody("{\\f5 a}{\\fonttbl Quibble Serif;}\\f5 b");
    QCOMPARE(compat::fontFamily(reading.format(QStringLiteral("b"))), QStringLiteral("Quibble Serif"));
}

void TestReaderstate::fontNumberAfterPlainIsTheDefaultFont()
{
    const Reading reading = readBody("\\deff3\\f5\\plain{\\fonttbl Quibble Serif;}{\\f5 a}{\\f3 b}");
    QCOMPARE(compat::fontFamily(reading.format(QStringLiteral("a"))), QLatin1String(DefaultFamily));
    QCOMPARE(compat::fontFamily(reading.format(QStringLiteral("b"))), QStringLiteral("Quibble Serif"));
}

void TestReaderstate::indents_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<QString>("expected");

    const int left = ORVRtfProperty::LeftIndent;
    const int right = ORVRtfProperty::RightIndent;
    const int first = QTextFormat::TextIndent;
    QTest::newRow("left") << QByteArray("\\li720") << dump(Properties{{left, 36.0}, {first, 36.0}});
    QTest::newRow("first line") << QByteArray("\\fi360") << dump(Properties{{first, 18.0}});
    QTest::newRow("negative first line") << QByteArray("\\fi-360") << dump(Properties{{first, -18.0}});
    QTest::newRow("hanging") << QByteArray("\\li720\\fi-360")
                             << dump(Properties{{left, 36.0}, {first, 18.0}});
    QTest::newRow("hanging, other order")
        << QByteArray("\\fi-360\\li720") << dump(Properties{{left, 36.0}, {first, 18.0}});
    QTest::newRow("left twice") << QByteArray("\\li720\\fi-360\\li1440")
                                << dump(Properties{{left, 72.0}, {first, 54.0}});
    QTest::newRow("left and back") << QByteArray("\\li720\\li0")
                                   << dump(Properties{{left, 0.0}, {first, 0.0}});
    QTest::newRow("first line twice")
        << QByteArray("\\li720\\fi-360\\fi200") << dump(Properties{{left, 36.0}, {first, 46.0}});
    QTest::newRow("negative left") << QByteArray("\\li-720")
                                   << dump(Properties{{left, -36.0}, {first, -36.0}});
    QTest::newRow("fraction of a point")
        << QByteArray("\\li5") << dump(Properties{{left, 0.25}, {first, 0.25}});
    QTest::newRow("without numbers") << QByteArray("\\li\\fi") << dump(Properties{{left, 0.0}, {first, 0.0}});
    // 12240 wide, two margins of 1800.
    QTest::newRow("right") << QByteArray("\\ri360") << dump(Properties{{right, 414.0}});
    QTest::newRow("right 0") << QByteArray("\\ri0") << dump(Properties{{right, 432.0}});
    QTest::newRow("negative right") << QByteArray("\\ri-360") << dump(Properties{{right, 450.0}});
    QTest::newRow("reset") << QByteArray("\\li720\\fi-360\\ri360\\pard") << QString();
    QTest::newRow("left after a reset")
        << QByteArray("\\li720\\fi-360\\pard\\li1440") << dump(Properties{{left, 72.0}, {first, 72.0}});
    QTest::newRow("in a footnote") << QByteArray("\\footnote\\li720\\fi-360\\ri360") << QString();
    QTest::newRow("in an annotation") << QByteArray("\\annotation\\li720\\fi-360\\ri360") << QString();
}

void TestReaderstate::indents()
{
    QFETCH(QByteArray, words);
    QFETCH(QString, expected);

    const Reading reading = readBody(words + " text");
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.text(), QStringLiteral("text"));
    QCOMPARE(dump(reading.blockFormat(0)), expected);
}

void TestReaderstate::invalidCharacters()
{
    for (int unit = 0x70; unit <= 0xB0; ++unit) {
        const bool invalid = unit >= 0x7F && unit <= 0x9F;
        const QByteArray rtf = "{a\\u" + QByteArray::number(unit) + "?b}";
        const QString kept = "a" + QString(QChar(ushort(unit))) + "b";
        QCOMPARE(read(rtf, true).text(), invalid ? QStringLiteral("ab") : kept);
        QCOMPARE(read(rtf, false).text(), invalid ? QStringLiteral("a\uFFFDb") : kept);
    }
}

// Also beside U+FFFF and U+FFFE, and between characters that are none.
void TestReaderstate::invalidCharactersAtAnyPlace()
{
    for (const char* const neighbour : {"x", "\\u-1?", "\\u-2?", "\\u160?"}) {
        const QString kept = read(QByteArray("{\\rtf1 ") + neighbour + '}', true).text();
        QCOMPARE(kept.size(), 1);
        for (int place = 0; place < 20; ++place) {
            for (const char* const invalid : {"\\u127?", "\\u128?", "\\u159?"}) {
                QByteArray rtf = "{\\rtf1 ";
                QString expected;
                for (int i = 0; i < 20; ++i) {
                    rtf += i == place ? invalid : neighbour;
                    expected += i == place ? QString() : kept;
                }
                QCOMPARE(read(rtf + '}', true).text(), expected);
                expected.insert(place, QChar(QChar::ReplacementCharacter));
                QCOMPARE(read(rtf + '}', false).text(), expected);
            }
        }
    }
}

void TestReaderstate::invalidCharactersEverywhere_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("removed");
    QTest::addColumn<QString>("replaced");

    const QString replacement(QChar(0xFFFD));
    QTest::newRow("raw byte") << QByteArray("{a\x85"
                                            "b}")
                              << "ab"
                              << "a" + replacement + "b";
    QTest::newRow("raw byte 0xE9 is text")
        << QByteArray("{\xE9}") << QString::fromUtf8("é") << QString::fromUtf8("é");
    QTest::newRow("escape of 0x7F") << QByteArray("{a\\'7fb}") << "ab"
                                    << "a" + replacement + "b";
    QTest::newRow("escape of 0x85 is another character")
        << QByteArray("{a\\'85b}") << QString::fromUtf8("a…b") << QString::fromUtf8("a…b");
    QTest::newRow("several") << QByteArray("{\x80\x81 \x9F\x7F}") << " "
                             << replacement + replacement + " " + replacement + replacement;
    QTest::newRow("nothing else") << QByteArray("{\\u133?}") << "" << replacement;
    QTest::newRow("in a level of groups") << QByteArray("{{{\x90}}}") << "" << replacement;
}

void TestReaderstate::invalidCharactersEverywhere()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, removed);
    QFETCH(QString, replaced);

    QCOMPARE(read(rtf, true).text(), removed);
    QCOMPARE(read(rtf, false).text(), replaced);
}

void TestReaderstate::emptyParagraphsKeepTheirFormats()
{
    const Reading reading = readBody("{\\b\\qc\\par}\\i\\qr\\par\\pard x");
    QCOMPARE(reading.blockCount(), 3);
    QCOMPARE(dump(reading.block(0).charFormat()), dump(bold));
    QCOMPARE(dump(reading.blockFormat(0)),
             dump(Properties{{QTextFormat::BlockAlignment, int(Qt::AlignHCenter)}}));
    QCOMPARE(dump(reading.block(1).charFormat()), dump(Properties{{QTextFormat::FontItalic, true}}));
    QCOMPARE(dump(reading.blockFormat(1)),
             dump(Properties{{QTextFormat::BlockAlignment, int(Qt::AlignRight)}}));
    QCOMPARE(dump(reading.block(2).charFormat()), dump(Properties{{QTextFormat::FontItalic, true}}));
    QCOMPARE(dump(reading.blockFormat(2)), QString());
}

void TestReaderstate::paragraphFormatIsFixedByTheFirstText()
{
    const Reading reading = readBody("\\b one\\qc\\b0\\i two\\par three");
    QCOMPARE(dump(reading.block(0).charFormat()), dump(bold));
    QCOMPARE(dump(reading.blockFormat(0)), QString());
    QCOMPARE(dump(reading.blockFormat(1)),
             dump(Properties{{QTextFormat::BlockAlignment, int(Qt::AlignHCenter)}}));
}

// An empty paragraph takes the formats in force at each brace and control word of the body.
void TestReaderstate::lastEmptyParagraph_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("charFormat");
    QTest::addColumn<QString>("blockFormat");

    const QString none;
    const QString right = dump(Properties{{QTextFormat::BlockAlignment, int(Qt::AlignRight)}});
    QTest::newRow("at the last brace") << QByteArray("{a\\par\\qr\\b}") << dump(bold) << right;
    QTest::newRow("in a group before") << QByteArray("{a\\par{\\qr\\b}}") << none << right;
    QTest::newRow("in the last group") << QByteArray("{a\\par{\\qr\\b}") << dump(bold) << right;
    QTest::newRow("before the end of the input") << QByteArray("{a\\par\\b\\qr ") << dump(bold) << none;
    QTest::newRow("in a field") << QByteArray("{a\\par{\\field\\qr\\b}") << none << none;
    QTest::newRow("in a field, then text's end") << QByteArray("{a\\par{\\field\\qr\\b}}") << none << right;
    QTest::newRow("in a field's result")
        << QByteArray("{a\\par{\\field{\\fldrslt\\qr\\b}") << dump(bold) << right;
    QTest::newRow("in a skipped group") << QByteArray("{a\\par{\\*\\unknown\\qr\\b}") << none << none;
    QTest::newRow("removed text") << QByteArray("{a\\par\\qr\\b\x85{}") << dump(bold) << right;
    QTest::newRow("dropped picture") << QByteArray("{a\\par{\\pict\\qr\\pngblip 00}") << none << right;
}

void TestReaderstate::lastEmptyParagraph()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, charFormat);
    QFETCH(QString, blockFormat);

    const Reading reading = read(rtf);
    QCOMPARE(reading.text(), QStringLiteral("a\n"));
    QCOMPARE(dump(reading.block(1).charFormat()), charFormat);
    QCOMPARE(dump(reading.blockFormat(1)), blockFormat);
}

void TestReaderstate::colorTables_data()
{
    QTest::addColumn<QByteArray>("definition");
    QTest::addColumn<QStringList>("colors");

    const QString black = QStringLiteral("#000000");
    const QString red = QStringLiteral("#ff0000");
    const QString green = QStringLiteral("#00ff00");
    QTest::newRow("empty") << QByteArray() << QStringList();
    QTest::newRow("default only") << QByteArray(";") << QStringList{black};
    QTest::newRow("default and red") << QByteArray(";\\red255\\green0\\blue0;") << QStringList{black, red};
    QTest::newRow("without a default") << QByteArray("\\red255\\green0\\blue0;") << QStringList{red};
    QTest::newRow("two") << QByteArray("\\red255\\green0\\blue0;\\red0\\green255\\blue0;")
                         << QStringList{red, green};
    QTest::newRow("other order of channels")
        << QByteArray(";\\blue3\\red1\\green2;") << QStringList{black, QStringLiteral("#010203")};
    QTest::newRow("channels start anew") << QByteArray("\\red255;\\green255;") << QStringList{red, green};
    QTest::newRow("no number is 255") << QByteArray("\\red\\green0\\blue0;") << QStringList{red};
    QTest::newRow("above 255 is 255") << QByteArray("\\red300\\green0\\blue0;") << QStringList{red};
    QTest::newRow("below 0 is 0") << QByteArray("\\red255\\green-5\\blue-300;") << QStringList{red};
    QTest::newRow("missing semicolon") << QByteArray("\\red255\\green0\\blue0") << QStringList();
    QTest::newRow("missing last semicolon") << QByteArray(";\\red255\\green0\\blue0") << QStringList{black};
    QTest::newRow("one piece of text is one colour") << QByteArray(";;;\\red255;") << QStringList{black, red};
    QTest::newRow("pieces apart") << QByteArray(";{};{};") << QStringList{black, black, black};
    QTest::newRow("other text before") << QByteArray("\\red255 abc;") << QStringList{red};
    QTest::newRow("other text") << QByteArray("\\red255 abc\\green0 ;") << QStringList{red};
    QTest::newRow("line ends") << QByteArray(";\r\n\\red255\r\n;\r\n") << QStringList{black, red};
    QTest::newRow("unknown words") << QByteArray(";\\red255\\ctint255\\cshade12;") << QStringList{black, red};
    QTest::newRow("skipped group") << QByteArray(";{\\*\\unknown ;}\\red255;") << QStringList{black, red};
}

void TestReaderstate::colorTables()
{
    QFETCH(QByteArray, definition);
    QFETCH(QStringList, colors);
    QCOMPARE(colorsOf(definition), colors);
}

void TestReaderstate::colorTableStartsFromTheDefaultColor()
{
    const QSharedPointer<QTextDocument> document = newDocument();
    QTextCharFormat format;
    format.setForeground(QColor(0, 0, 200));
    ORVTextFormat::setDefaultCharFormat(document.data(), format);
    const Reading reading =
        readInto(document, "{\\rtf1{\\colortbl;\\red255;\\green9;}{\\cf0 a}{\\cf1 b}{\\cf2 c}}");
    QCOMPARE(reading.format(QStringLiteral("a")).foreground().color(), QColor(0, 0, 200));
    QCOMPARE(reading.format(QStringLiteral("b")).foreground().color(), QColor(255, 0, 200));
    QCOMPARE(reading.format(QStringLiteral("c")).foreground().color(), QColor(0, 9, 200));
}

void TestReaderstate::colorTableSetsTheDefaultColor()
{
    const Reading reading = readBody("{\\colortbl\\red1\\green2\\blue3;\\red255;}x");
    const QTextCharFormat format = ORVTextFormat::defaultCharFormat(reading.document.data());
    QCOMPARE(format.foreground().style(), Qt::SolidPattern);
    QCOMPARE(format.foreground().color(), QColor(1, 2, 3));
    QCOMPARE(compat::fontFamily(format), QLatin1String(DefaultFamily));
    QCOMPARE(dump(reading.format(QStringLiteral("x"))), QString());
}

void TestReaderstate::emptyColorTableSetsNothing()
{
    const Reading reading = readBody("{\\colortbl}x");
    const QTextCharFormat format = ORVTextFormat::defaultCharFormat(reading.document.data());
    QVERIFY(!format.hasProperty(QTextFormat::ForegroundBrush));
}

void TestReaderstate::fontTables_data()
{
    QTest::addColumn<QByteArray>("entries");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("family");

    const QString serif = QStringLiteral("Quibble Serif");
    const QString mono = QStringLiteral("Quibble Mono");
    const QByteArray groups = "{\\f0 Quibble Serif;}{\\f1 Quibble Mono;}";
    QTest::newRow("groups, first") << groups << 0 << serif;
    QTest::newRow("groups, second") << groups << 1 << mono;
    QTest::newRow("groups, none") << groups << 2 << QString();
    const QByteArray flat = "\\f0 Quibble Serif;\\f1 Quibble Mono;";
    QTest::newRow("flat, first") << flat << 0 << serif;
    QTest::newRow("flat, last") << flat << 1 << mono;
    QTest::newRow("flat, words before the names")
        << QByteArray("\\f3\\froman\\fcharset0 Quibble Serif;\\f4\\fmodern Quibble Mono;") << 3 << serif;
    QTest::newRow("flat, a number without a name")
        << QByteArray("\\f0\\f1 Quibble Serif;\\f2 Quibble Mono;") << 1 << serif;
    QTest::newRow("no number") << QByteArray("Quibble Serif;") << 0 << serif;
    QTest::newRow("negative number") << QByteArray("{\\f-4 Quibble Serif;}") << -4 << serif;
    QTest::newRow("without a semicolon") << QByteArray("{\\f1 Quibble Serif}") << 1 << serif;
    QTest::newRow("two semicolons, one dropped") << QByteArray("{\\f1 Quibble Serif;;}") << 1 << serif + ";";
    QTest::newRow("white space around") << QByteArray("{\\f1  \t Quibble Serif; \\tab}") << 1 << serif;
    QTest::newRow("name in pieces") << QByteArray("{\\f1 Qui\\'62ble \\u83?erif;}") << 1 << serif;
    QTest::newRow("name over lines") << QByteArray("{\\f1 Quibble\r\n Serif;}") << 1 << serif;
    QTest::newRow("words after the name") << QByteArray("{\\f1 Quibble Serif\\froman;}") << 1 << serif;
    QTest::newRow("panose before") << QByteArray("{\\f1{\\*\\panose 02020603}Quibble Serif;}") << 1 << serif;
    QTest::newRow("panose after") << QByteArray("{\\f1 Quibble Serif{\\*\\panose 02020603};}") << 1 << serif;
    QTest::newRow("alternative name")
        << QByteArray("{\\f1 Quibble Serif{\\*\\falt Quibble Mono};}") << 1 << serif;
    QTest::newRow("alternative name, then another font")
        << QByteArray("{\\f1 Quibble Serif{\\*\\falt Quibble Tall};}{\\f2 Quibble Mono;}") << 2 << mono;
    QTest::newRow("alternative name, flat")
        << QByteArray("\\f1 Quibble Serif{\\*\\falt Quibble Tall};\\f2 Quibble Mono;") << 1 << serif;
    QTest::newRow("replaced") << QByteArray("{\\f1 Quibble Serif;}{\\f1 Quibble Mono;}") << 1 << mono;
    QTest::newRow("not replaced by nothing") << QByteArray("{\\f1 Quibble Serif;}{\\f1;}") << 1 << serif;
    QTest::newRow("not replaced by spaces") << QByteArray("{\\f1 Quibble Serif;}{\\f1   ; }") << 1 << serif;
    QTest::newRow("flat, a number that has its font: names run together")
        << QByteArray("\\f0 Quibble Serif;\\f1 Quibble Mono;\\f0 Tall;\\f2 Wide;") << 2 << "Tall;Wide";
    QTest::newRow("two tables") << QByteArray("{\\f1 Quibble Serif;}}{\\fonttbl{\\f2 Quibble Mono;}") << 1
                                << serif;
}

void TestReaderstate::fontTables()
{
    QFETCH(QByteArray, entries);
    QFETCH(int, number);
    QFETCH(QString, family);
    QCOMPARE(familyOf(number, entries), family);
}

void TestReaderstate::fontTableSetsTheDefaultFont_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("expected");

    const Properties unchanged{{Family, QLatin1String(DefaultFamily)},
                               {QTextFormat::FontPointSize, DefaultPointSize}};
    // The weight 0 stands for normal.
    const Properties serif{{Family, QStringLiteral("Quibble Serif")},
                           {QTextFormat::FontPointSize, DefaultPointSize},
                           {QTextFormat::FontWeight, 0},
                           {QTextFormat::FontFixedPitch, false}};
    Properties mono = serif;
    mono.insert(Family, QStringLiteral("Quibble Mono"));
    mono.insert(QTextFormat::FontFixedPitch, true);

    const QByteArray fonts = "{\\fonttbl{\\f0 Quibble Serif;}{\\f1\\fprq1 Quibble Mono;}}";
    QTest::newRow("none named") << "{\\rtf1" + fonts + "x}" << dump(serif);
    QTest::newRow("0") << "{\\rtf1\\deff0" + fonts + "x}" << dump(serif);
    QTest::newRow("1") << "{\\rtf1\\deff1" + fonts + "x}" << dump(mono);
    QTest::newRow("named twice") << "{\\rtf1\\deff0\\deff1" + fonts + "x}" << dump(mono);
    QTest::newRow("not in the table") << "{\\rtf1\\deff7" + fonts + "x}" << dump(unchanged);
    QTest::newRow("named too late") << "{\\rtf1\\deff7" + fonts + "\\deff1 x}" << dump(unchanged);
    QTest::newRow("no table") << QByteArray("{\\rtf1\\deff0 x}") << dump(unchanged);
    QTest::newRow("flat") << QByteArray("{\\rtf1\\deff1{\\fonttbl\\f0 Quibble Mono;\\f1 Quibble Serif;}x}")
                          << dump(serif);
}

void TestReaderstate::fontTableSetsTheDefaultFont()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, expected);

    const Reading reading = read(rtf);
    QCOMPARE(dump(ORVTextFormat::defaultCharFormat(reading.document.data())), expected);
    // Text that says nothing of its font has none of its own.
    QCOMPARE(dump(reading.format(QStringLiteral("x"))), QString());
}

void TestReaderstate::boldFontMakesABoldDefault()
{
    const Reading reading = readBody("{\\fonttbl{\\f0 Quibble Brick;}}x");
    const QTextCharFormat format = ORVTextFormat::defaultCharFormat(reading.document.data());
    QCOMPARE(format.property(QTextFormat::FontWeight).toInt(), int(QFont::Bold));
    QCOMPARE(compat::fontFamily(format), QStringLiteral("Quibble Brick"));
}

void TestReaderstate::installedFontIsFoundInAnyCase()
{
    QCOMPARE(familyOf(1, "{\\f1 QUIBBLE brick;}"), QStringLiteral("Quibble Brick"));
    QCOMPARE(familyOf(1, "{\\f1 QUIBBLE serif;}"), QStringLiteral("QUIBBLE serif"));
}

void TestReaderstate::fontTableResetsFontAndCodePage()
{
    const QByteArray fonts = "\\f7{\\fonttbl{\\f1\\fcharset204 Quibble Serif;}{\\f2 Quibble Mono;}}";
    QCOMPARE(readBody(fonts + "\\'e9").text(), QString::fromUtf8("é"));
    const Reading reading = readBody(fonts + "{\\fonttbl Quibble Tall;}{\\f7 a}{\\f0 b}");
    QCOMPARE(compat::fontFamily(reading.format(QStringLiteral("a"))), QString());
    QCOMPARE(compat::fontFamily(reading.format(QStringLiteral("b"))), QStringLiteral("Quibble Tall"));
}

void TestReaderstate::pitchOfAFontIsItsOwn()
{
    const Reading reading = readBody(fontTable() + "{\\f1 a}{\\f2 b}");
    QCOMPARE(
        dump(reading.format(QStringLiteral("a"))),
        dump(Properties{{Family, QStringLiteral("Quibble Serif")}, {QTextFormat::FontFixedPitch, false}}));
    QCOMPARE(dump(reading.format(QStringLiteral("b"))),
             dump(Properties{{Family, QStringLiteral("Quibble Mono")}, {QTextFormat::FontFixedPitch, true}}));
}

void TestReaderstate::fontLimit()
{
    QByteArray entries;
    for (int i = 1; i <= 10002; ++i)
        entries += "{\\f" + QByteArray::number(i) + " Quibble Serif;}";
    const Reading reading =
        readBody("{\\fonttbl" + entries + "}{\\f1 a}{\\f10000 b}{\\f10001 c}{\\f10002 d}");
    const auto family = [&reading](const char* text) {
        return compat::fontFamily(reading.format(QString::fromLatin1(text)));
    };
    QCOMPARE(reading.status, 0);
    QCOMPARE(family("a"), QStringLiteral("Quibble Serif"));
    QCOMPARE(family("b"), QStringLiteral("Quibble Serif"));
    QCOMPARE(family("c"), QString());
    QCOMPARE(family("d"), QString());
}

void TestReaderstate::skippedGroupsOnlyCountBraces()
{
    const Reading reading = readBody("\\b a{\\i\\*\\unknown\\b0 {\\plain x{y}\\par}{}z}b");
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.text(), QStringLiteral("ab"));
    QCOMPARE(fragmentsOf(*reading.document).size(), 1);
    QCOMPARE(dump(reading.format(QStringLiteral("ab"))), dump(bold));
}

void TestReaderstate::groupsUpToTheLimitAreRead()
{
    const int limit = 1000000;
    const Reading reading = read(QByteArray(limit, '{') + "a" + QByteArray(limit, '}'));
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.text(), QStringLiteral("a"));
}

void TestReaderstate::groupsBeyondTheLimitAreSkipped()
{
    const int limit = 1000000;
    const Reading reading = read(QByteArray(limit, '{') + "a{b{c}\\par d}e" + QByteArray(limit, '}') + "{f}");
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.text(), QStringLiteral("aef"));
}

QTEST_MAIN(TestReaderstate)
#include "tst_readerstate.moc"
