#include "ORVRtfOutputColors_p.h"
#include "ORVRtfOutputFonts_p.h"
#include "bufferedoutput.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

QFont fontOf(const char* family, bool fixedPitch = false)
{
    QFont font;
    compat::setFamily(font, QLatin1String(family));
    font.setFixedPitch(fixedPitch);
    return font;
}

QTextCharFormat familyFormat(const char* family)
{
    QTextCharFormat format;
    compat::setFontFamily(format, QLatin1String(family));
    return format;
}

QTextCharFormat fixedPitch(QTextCharFormat format)
{
    format.setFontFixedPitch(true);
    return format;
}

QByteArray document(const QByteArray& body)
{
    return "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 A;}{\\f1 B;}}{\\colortbl;\\red0\\green0\\blue0;}"
           "{\\*\\listtable{\\list\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}"
        + body + '}';
}

} // namespace

/*!
    What the writer is built on: words and structure as bytes, the numbering of fonts and colours; and whether
    the check that the other tests of writing use sees what is wrong.
*/
class TestRtfOutput : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { ORVTextRtfCommon::initHash(); }

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

    void keyWords()
    {
        BufferedOutput output;
        QVERIFY(!output.isKeywordPending());
        QVERIFY(output.write("\\ftnbj"));
        QVERIFY(output.isKeywordPending());
        QVERIFY(output.write(ORVTextRtfCommon::ResetFormat));
        QVERIFY(output.isKeywordPending());
        QCOMPARE(output.bytes(), "\\ftnbj\\plain"_b);
    }

    ORV_ROWS(structureEndsAWord)
    {
        const Rows add([](char character) {
            BufferedOutput output;
            output.write("\\b");
            output.writeStructure(character);
            QVERIFY(!output.isKeywordPending());
            output.writePrintableCharacters("x"_s, 0, true, false, QString());
            QCOMPARE(output.bytes(), "\\b" + QByteArray(1, character) + 'x');
        });
        add("opening brace", '{');
        add("closing brace", '}');
        add("semicolon", ';');
        add("line feed", '\n');
    }

    void owedBlankIsWrittenOnce()
    {
        BufferedOutput output;
        output.endKeyword();
        output.write("\\b", 0);
        output.endKeyword();
        output.endKeyword();
        QVERIFY(!output.isKeywordPending());
        output.writePrintableCharacters("x"_s, 0, true, false, QString());
        QCOMPARE(output.bytes(), "\\b0 x"_b);
    }

    void ignorableGroup()
    {
        BufferedOutput output;
        output.openIgnorableGroup(ORVTextRtfCommon::ListTable);
        output.closeGroup();
        QCOMPARE(output.bytes(), "{\\*\\listtable}"_b);
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
        fonts.appendMissing(familyFormat("Quibble Sans"));
        fonts.appendMissing(fixedPitch(familyFormat("Quibble Sans")));
        fonts.appendMissing(familyFormat("quibble sans"));
        fonts.appendMissing(familyFormat("Quibble Sans"));
        QCOMPARE(fonts.fonts().size(), 3);
        QCOMPARE(fonts.number(familyFormat("Quibble Sans")), 0);
        QCOMPARE(fonts.number(fixedPitch(familyFormat("Quibble Sans"))), 1);
        QCOMPARE(fonts.number(familyFormat("quibble sans")), 2);
        QCOMPARE(fonts.number(fixedPitch(familyFormat("quibble sans"))), 0);
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

    void firstFontMovesTheOthers()
    {
        ORVRtfOutputFonts fonts;
        fonts.append(fontOf("Quibble Sans"));
        fonts.append(fontOf("Quibble Mono"));
        fonts.insertFirst(fontOf("Quibble Serif"));
        QCOMPARE(fonts.number(fontOf("Quibble Serif")), 0);
        QCOMPARE(fonts.number(fontOf("Quibble Sans")), 1);
        QCOMPARE(fonts.number(fontOf("Quibble Mono")), 2);
    }

    void equalFontsHaveTheLowestNumber()
    {
        ORVRtfOutputFonts fonts;
        fonts.append(fontOf("Quibble Serif"));
        fonts.append(fontOf("Quibble Sans"));
        fonts.append(fontOf("Quibble Sans"));
        QCOMPARE(fonts.number(fontOf("Quibble Sans")), 1);
        fonts.insertFirst(fontOf("Quibble Sans"));
        QCOMPARE(fonts.fonts().size(), 4);
        QCOMPARE(fonts.number(fontOf("Quibble Sans")), 0);
        QCOMPARE(fonts.number(fontOf("Quibble Serif")), 1);
    }

    void colorNumbers()
    {
        ORVRtfOutputColors colors;
        colors.appendMissing(Qt::red);
        colors.appendMissing(QColor(255, 0, 0, 7));
        colors.appendMissing(Qt::black);
        colors.appendMissing(QColor());
        colors.appendMissing(Qt::blue);
        QCOMPARE(colors.colors(),
                 QList<QRgb>() << qRgb(0, 0, 0) << qRgb(255, 255, 255) << qRgb(255, 0, 0) << qRgb(0, 0, 255));
        QCOMPARE(colors.number(Qt::black), 1);
        QCOMPARE(colors.number(Qt::white), 2);
        QCOMPARE(colors.number(QColor(255, 0, 0, 0)), 3);
        QCOMPARE(colors.number(Qt::blue), 4);
        QCOMPARE(colors.number(Qt::green), 1);
        QCOMPARE(colors.number(QColor()), 1);
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
        add("empty", QByteArray(), "does not begin as RTF");
        add("no RTF", "{\\ansi}", "does not begin as RTF");
        add("open group", document("{x"), "1 groups are not closed");
        add("closed too often", document("x}"), "content after the last group");
        add("text at the end", document("x") + 'y', "content after the last group");
        add("font", document("\\f2 x"), "font 2 is not in its table");
        add("associated font", document("\\af2 x"), "font 2 is not in its table");
        add("no default font", "{\\rtf1\\ansi\\deff0}", "font 0 is not in its table");
        add("font twice", document("{\\fonttbl{\\f1 C;}}"), "font 1 is defined twice");
        for (const char* word : {"cf", "cb", "highlight", "ulc", "clcbpat", "chcbpat", "brdrcf"}) {
            add(word, document('\\' + QByteArray(word) + "2 x"), "colour 2 is not in the table");
        }
        add("negative colour", document("\\cf-1 x"), "colour -1 is not in the table");
        add("list", document("\\ls2 x"), "list 2 is not in its table");
        add("list of an override", document("{\\*\\listoverridetable{\\listoverride\\listid2\\ls2}}"),
            "list of an override 2 is not in its table");
        add("word with text glued to it", document("\\plainx"), "unknown word \\plainx");
        add("symbol", document("\\?"), "unknown symbol \\?");
        add("byte", document("\\'4x"), "an escaped byte without two hexadecimal digits");
    }

    void checkTakesWhatIsRight()
    {
        QCOMPARE(checkWellFormed(document("\\ls1{\\f1\\fs24\\cf1\\ulc0 a\\{b\\}\\\\c\\'E9\\~}")), QString());
        QCOMPARE(checkWellFormed(document("\n\\pard\\plain \\af0 x")), QString());
    }
};

ORV_TEST("rtfoutput", TestRtfOutput, QGuiApplication)
#include "rtfoutput.moc"
