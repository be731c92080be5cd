#include "runhelpers.h"
#include "testpaths.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

const Properties centred{{QTextFormat::BlockAlignment, int(Qt::AlignHCenter)}};
const Properties rightAligned{{QTextFormat::BlockAlignment, int(Qt::AlignRight)}};

/*! The formats of a paragraph and of the characters typed there. */
QString paragraph(const Properties& format, const Properties& characters = plainRun)
{
    return dump(format) + " / "_s + dump(characters);
}

} // namespace

/*! What the reader keeps between control words: groups, formats, fonts, colours and pending text. */
class TestReaderState : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(QFontDatabase::addApplicationFont(QStringLiteral(TEST_DATA_DIR "/fonts/QuibbleBrick.ttf"))
                >= 0);
        QVERIFY(!QFontDatabase().families().contains("Quibble Serif"_s));
    }

    ORV_ROWS(runs)
    {
        const Rows add([](const QByteArray& body, int status, const QStringList& runs) {
            const Reading reading = readBody(body);
            QCOMPARE(reading.status, status);
            QCOMPARE(runsOf(reading), runs);
        });
        add("groups restore the format", "{\\b bold{\\i both}again} plain", 0,
            {run("bold", boldRun), run("both", with(QTextFormat::FontItalic, true, boldRun)),
             run("again", boldRun), run(" plain", plainRun)});
        add("skipped groups only count braces", "\\b a{\\i\\*\\unknown\\b0 {\\plain x{y}\\par}{}z}b", 0,
            {run("ab", boldRun)});
        add("equal formats are one run", "{\\b one}{\\b  two}\\b  three", 0, {run("one two three", boldRun)});
        add("formats after an error", "one\\'zz{\\b two}}{three}", 9,
            {run("onezz", plainRun), run("two", boldRun), run("three", plainRun)});
    }

    // Also beside U+FFFF and U+FFFE, and between characters that are none.
    void invalidCharactersAtAnyPlace()
    {
        for (const char* const neighbour : {"x", "\\u-1?", "\\u-2?", "\\u160?"}) {
            const QString kept = read("{\\rtf1 "_b + neighbour + '}', true).text();
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

    ORV_ROWS(invalidCharacters)
    {
        const Rows add([](const QByteArray& rtf, const QString& removed, const QString& replaced) {
            QCOMPARE(read(rtf, true).text(), removed);
            QCOMPARE(read(rtf, false).text(), replaced);
        });
        const QString replacement(QChar(0xFFFD));
        for (int unit = 0x70; unit <= 0xB0; ++unit) {
            const QByteArray number = QByteArray::number(unit);
            const QString kept = "a" + QString(QChar(ushort(unit))) + "b";
            const bool invalid = unit >= 0x7F && unit <= 0x9F;
            add("unit " + number, "{a\\u" + number + "?b}", invalid ? "ab"_s : kept,
                invalid ? "a\uFFFDb"_s : kept);
        }
        add("raw byte", "{a\x85{}b}", "ab", "a" + replacement + "b");
        add("raw byte 0xE9 is text", "{\xE9}", "é", "é");
        add("escape of 0x7F", "{a\\'7fb}", "ab", "a" + replacement + "b");
        add("escape of 0x85 is another character", "{a\\'85b}", "a…b", "a…b");
        add("several", "{\x80\x81 \x9F\x7F}", " ",
            replacement + replacement + " " + replacement + replacement);
        add("nothing else", "{\\u133?}", "", replacement);
        add("in a level of groups", "{{{\x90}}}", "", replacement);
    }

    ORV_ROWS(paragraphs)
    {
        const Rows add([](const QByteArray& body, const QStringList& paragraphs) {
            const Reading reading = readBody(body);
            QStringList actual;
            for (int i = 0; i < reading.blockCount(); ++i)
                actual << paragraph(propertiesOf(reading.blockFormat(i)),
                                    propertiesOf(reading.block(i).charFormat()));
            QCOMPARE(actual, paragraphs);
        });
        const Properties none, italic = with(QTextFormat::FontItalic, true);
        add("empty ones keep their formats", "{\\b\\qc\\par}\\i\\qr\\par\\pard x",
            {paragraph(centred, boldRun), paragraph(rightAligned, italic), paragraph(none, italic)});
        add("the first text fixes the format", "\\b one\\qc\\b0\\i two\\par three",
            {paragraph(none, boldRun),
             paragraph(centred, with(QTextFormat::FontWeight, int(QFont::Normal), italic))});
        add("reset in the middle", "\\qc one\\pard two\\par three", {paragraph(centred), paragraph(none)});
        add("the format outlives its group", "{\\qc one\\par}two\\par three",
            {paragraph(centred), paragraph(centred), paragraph(centred)});
    }

    // An empty paragraph takes the formats in force at each brace and control word of the body.
    ORV_ROWS(lastEmptyParagraph)
    {
        const Rows add([](const QByteArray& rtf, const QString& charFormat, const QString& blockFormat) {
            const Reading reading = read(rtf);
            QCOMPARE(reading.text(), "a\n"_s);
            QCOMPARE(dump(reading.block(1).charFormat()), charFormat);
            QCOMPARE(dump(reading.blockFormat(1)), blockFormat);
        });
        const QString none;
        const QString right = dump(rightAligned);
        add("at the last brace", "{a\\par\\qr\\b}", dump(boldRun), right);
        add("in a group before", "{a\\par{\\qr\\b}}", none, right);
        add("in the last group", "{a\\par{\\qr\\b}", dump(boldRun), right);
        add("before the end of the input", "{a\\par\\b\\qr ", dump(boldRun), none);
        add("before text that nothing follows", "{a\\par\\b\\qr " + QByteArray(2000, 'x'), dump(boldRun),
            none);
        add("before many lines that nothing follows", "{a\\par\\b\\qr " + "text\n"_b.repeated(4000),
            dump(boldRun), none);
        add("before a tab stop", "{a\\par\\b\\tx720", dump(boldRun), none);
        add("in a field", "{a\\par{\\field\\qr\\b}", none, none);
        add("in a field, then text's end", "{a\\par{\\field\\qr\\b}}", none, right);
        add("in a field's result", "{a\\par{\\field{\\fldrslt\\qr\\b}", dump(boldRun), right);
        add("in a skipped group", "{a\\par{\\*\\unknown\\qr\\b}", none, none);
        add("removed text", "{a\\par\\qr\\b\x85{}", dump(boldRun), right);
        add("dropped picture", "{a\\par{\\pict\\qr\\pngblip 00}", none, right);
    }

    ORV_ROWS(colorTables)
    {
        const Rows add([](const QByteArray& definition, const QStringList& colors) {
            const Reading reading =
                readBody("{\\colortbl" + definition + "}{\\cf0 a}{\\cf1 b}{\\cf2 c}{\\cf3 d}");
            QStringList actual;
            for (const char* text : {"a", "b", "c", "d"}) {
                const QTextCharFormat format = reading.format(QLatin1String(text));
                if (format.hasProperty(QTextFormat::ForegroundBrush))
                    actual << format.foreground().color().name();
            }
            QCOMPARE(actual, colors);
        });
        const QString black = "#000000"_s;
        const QString red = "#ff0000"_s;
        const QString green = "#00ff00"_s;
        add("empty", QByteArray(), QStringList());
        add("default only", ";", QStringList{black});
        add("default and red", ";\\red255\\green0\\blue0;", QStringList{black, red});
        add("without a default", "\\red255\\green0\\blue0;", QStringList{red});
        add("two", "\\red255\\green0\\blue0;\\red0\\green255\\blue0;", QStringList{red, green});
        add("other order of channels", ";\\blue3\\red1\\green2;", QStringList{black, "#010203"_s});
        add("channels start anew", "\\red255;\\green255;", QStringList{red, green});
        add("no number is 255", "\\red\\green0\\blue0;", QStringList{red});
        add("above 255 is 255", "\\red300\\green0\\blue0;", QStringList{red});
        add("below 0 is 0", "\\red255\\green-5\\blue-300;", QStringList{red});
        add("missing semicolon", "\\red255\\green0\\blue0", QStringList());
        add("missing last semicolon", ";\\red255\\green0\\blue0", QStringList{black});
        add("one piece of text is one colour", ";;;\\red255;", QStringList{black, red});
        add("pieces apart", ";{};{};", QStringList{black, black, black});
        add("other text before", "\\red255 abc;", QStringList{red});
        add("other text", "\\red255 abc\\green0 ;", QStringList{red});
        add("line ends", ";\r\n\\red255\r\n;\r\n", QStringList{black, red});
        add("unknown words", ";\\red255\\ctint255\\cshade12;", QStringList{black, red});
        add("skipped group", ";{\\*\\unknown ;}\\red255;", QStringList{black, red});
    }

    void colorTableStartsFromTheDefaultColor()
    {
        const QSharedPointer<QTextDocument> document = newDocument();
        QTextCharFormat format;
        format.setForeground(QColor(0, 0, 200));
        ORVTextFormat::setDefaultCharFormat(document.data(), format);
        const Reading reading =
            readInto(document, "{\\rtf1{\\colortbl;\\red255;\\green9;}{\\cf0 a}{\\cf1 b}{\\cf2 c}}");
        QCOMPARE(reading.format("a"_s).foreground().color(), QColor(0, 0, 200));
        QCOMPARE(reading.format("b"_s).foreground().color(), QColor(255, 0, 200));
        QCOMPARE(reading.format("c"_s).foreground().color(), QColor(0, 9, 200));
    }

    void colorTableSetsTheDefaultColor()
    {
        const Reading reading = readBody("{\\colortbl\\red1\\green2\\blue3;\\red255;}x");
        const QTextCharFormat format = ORVTextFormat::defaultCharFormat(reading.document.data());
        QCOMPARE(format.foreground().style(), Qt::SolidPattern);
        QCOMPARE(format.foreground().color(), QColor(1, 2, 3));
        QCOMPARE(compat::fontFamily(format), QLatin1String(DefaultFamily));
        QCOMPARE(dump(reading.format("x"_s)), QString());
        // An empty table sets nothing.
        const Reading empty = readBody("{\\colortbl}x");
        QVERIFY(!ORVTextFormat::defaultCharFormat(empty.document.data())
                     .hasProperty(QTextFormat::ForegroundBrush));
    }

    ORV_ROWS(fonts)
    {
        const Rows add([](const QByteArray& body, const QString& family) {
            QCOMPARE(compat::fontFamily(readBody(body).format("x"_s)), family);
        });
        const auto table = [&add](const char* name, const QByteArray& entries, int number,
                                  const Text& family) {
            add(name, "\\deff99{\\fonttbl " + entries + "}\\f" + QByteArray::number(number) + " x", family);
        };
        const QString serif = "Quibble Serif"_s;
        const QString mono = "Quibble Mono"_s;
        const QByteArray groups = "{\\f0 Quibble Serif;}{\\f1 Quibble Mono;}";
        table("groups, first", groups, 0, serif);
        table("groups, second", groups, 1, mono);
        table("groups, none", groups, 2, QString());
        const QByteArray flat = "\\f0 Quibble Serif;\\f1 Quibble Mono;";
        table("flat, first", flat, 0, serif);
        table("flat, last", flat, 1, mono);
        table("flat, words before the names",
              "\\f3\\froman\\fcharset0 Quibble Serif;\\f4\\fmodern Quibble Mono;", 3, serif);
        table("flat, a number without a name", "\\f0\\f1 Quibble Serif;\\f2 Quibble Mono;", 1, serif);
        table("no number", "Quibble Serif;", 0, serif);
        table("negative number", "{\\f-4 Quibble Serif;}", -4, serif);
        table("without a semicolon", "{\\f1 Quibble Serif}", 1, serif);
        table("two semicolons, one dropped", "{\\f1 Quibble Serif;;}", 1, serif + ";");
        table("white space around", "{\\f1  \t Quibble Serif; \\tab}", 1, serif);
        table("name in pieces", "{\\f1 Qui\\'62ble \\u83?erif;}", 1, serif);
        table("name over lines", "{\\f1 Quibble\r\n Serif;}", 1, serif);
        table("words after the name", "{\\f1 Quibble Serif\\froman;}", 1, serif);
        table("panose before", "{\\f1{\\*\\panose 02020603}Quibble Serif;}", 1, serif);
        table("panose after", "{\\f1 Quibble Serif{\\*\\panose 02020603};}", 1, serif);
        table("alternative name", "{\\f1 Quibble Serif{\\*\\falt Quibble Mono};}", 1, serif);
        table("alternative name, then another font",
              "{\\f1 Quibble Serif{\\*\\falt Quibble Tall};}{\\f2 Quibble Mono;}", 2, mono);
        table("alternative name, flat", "\\f1 Quibble Serif{\\*\\falt Quibble Tall};\\f2 Quibble Mono;", 1,
              serif);
        table("replaced", "{\\f1 Quibble Serif;}{\\f1 Quibble Mono;}", 1, mono);
        table("not replaced by nothing", "{\\f1 Quibble Serif;}{\\f1;}", 1, serif);
        table("not replaced by spaces", "{\\f1 Quibble Serif;}{\\f1   ; }", 1, serif);
        table("flat, a number that has its font: names run together",
              "\\f0 Quibble Serif;\\f1 Quibble Mono;\\f0 Tall;\\f2 Wide;", 2, "Tall;Wide");
        table("two tables", "{\\f1 Quibble Serif;}}{\\fonttbl{\\f2 Quibble Mono;}", 1, serif);
        table("installed, in any case", "{\\f1 QUIBBLE brick;}", 1, "Quibble Brick");
        table("not installed", "{\\f1 QUIBBLE serif;}", 1, "QUIBBLE serif");

        // A font table that names its only font without a number: the entry goes to the current number.
        add("number outlives its group", "{\\f5 a}{\\fonttbl Quibble Serif;}\\f5 x", serif);
        add("number after the default format", "\\deff3\\f5\\plain{\\fonttbl Quibble Serif;}\\f3 x", serif);
        add("number before the default format", "\\deff3\\f5\\plain{\\fonttbl Quibble Serif;}{\\f5 x}",
            QLatin1String(DefaultFamily));
        const QByteArray reset = "\\f7{\\fonttbl{\\f2 Quibble Mono;}}{\\fonttbl Quibble Tall;}";
        add("number before a font table", reset + "{\\f7 x}", QString());
        add("number after a font table", reset + "{\\f0 x}", "Quibble Tall");
    }

    ORV_ROWS(fontTableSetsTheDefaultFont)
    {
        const Rows add([](const QByteArray& rtf, const QString& expected) {
            const Reading reading = read(rtf);
            QCOMPARE(dump(ORVTextFormat::defaultCharFormat(reading.document.data())), expected);
            // Text that says nothing of its font has none of its own.
            QCOMPARE(dump(reading.format("x"_s)), QString());
        });
        const Properties unchanged{{Family, QLatin1String(DefaultFamily)},
                                   {QTextFormat::FontPointSize, DefaultPointSize}};
        // The weight 0 stands for normal.
        const Properties serif{{Family, "Quibble Serif"_s},
                               {QTextFormat::FontPointSize, DefaultPointSize},
                               {QTextFormat::FontWeight, 0},
                               {QTextFormat::FontFixedPitch, false}};
        const Properties mono =
            with(Family, "Quibble Mono"_s, with(QTextFormat::FontFixedPitch, true, serif));

        const QByteArray fonts = "{\\fonttbl{\\f0 Quibble Serif;}{\\f1\\fprq1 Quibble Mono;}}";
        add("none named", "{\\rtf1" + fonts + "x}", dump(serif));
        add("0", "{\\rtf1\\deff0" + fonts + "x}", dump(serif));
        add("1", "{\\rtf1\\deff1" + fonts + "x}", dump(mono));
        add("named twice", "{\\rtf1\\deff0\\deff1" + fonts + "x}", dump(mono));
        add("not in the table", "{\\rtf1\\deff7" + fonts + "x}", dump(unchanged));
        add("named too late", "{\\rtf1\\deff7" + fonts + "\\deff1 x}", dump(unchanged));
        add("no table", "{\\rtf1\\deff0 x}", dump(unchanged));
        add("flat", "{\\rtf1\\deff1{\\fonttbl\\f0 Quibble Mono;\\f1 Quibble Serif;}x}", dump(serif));
        Properties brick = with(Family, "Quibble Brick"_s, serif);
        brick.insert(QTextFormat::FontWeight, int(QFont::Bold));
        add("bold", "{\\rtf1{\\fonttbl{\\f0 Quibble Brick;}}x}", dump(brick));
    }

    ORV_ROWS(groupLimit)
    {
        const Rows add([](const QByteArray& inside, const QByteArray& behind, const QString& text) {
            const int limit = 1000000;
            const Reading reading = read(QByteArray(limit, '{') + inside + QByteArray(limit, '}') + behind);
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), text);
        });
        add("up to the limit", "a", "", "a");
        add("beyond the limit", "a{b{c}\\par d}e", "{f}", "aef");
    }
};

ORV_TEST("readerstate", TestReaderState, QGuiApplication)
#include "state.moc"
