#include "ORVRtfOutputColors_p.h"
#include "ORVRtfOutputFonts_p.h"
#include "QtFontCompat_p.h"
#include "bufferedoutput.h"
#include "rtfwritinghelpers.h"

#include <QtTest/QtTest>

#include <limits>

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

} // namespace

/*! What the writer is built on: words and structure as bytes, the numbering of fonts and colours; and whether
    the check that the other tests of writing use sees what is wrong. */
class TestRtfoutput : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void numbers_data();
    void numbers();
    void keyWords();
    void structureEndsAWord_data();
    void structureEndsAWord();
    void owedBlankIsWrittenOnce();
    void ignorableGroup();
    void refusedBytes();

    void fontsOfFormats();
    void formatWithoutFamily();
    void firstFontMovesTheOthers();
    void equalFontsHaveTheLowestNumber();
    void colorNumbers();
    void colorsOfAnEmptyTable();

    void checkSeesWhatIsWrong_data();
    void checkSeesWhatIsWrong();
    void checkTakesWhatIsRight();
};

void TestRtfoutput::initTestCase()
{
    ORVTextRtfCommon::initHash();
}

void TestRtfoutput::numbers_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("rtf");
    QTest::newRow("24") << 24 << QByteArray("\\fs24");
    QTest::newRow("0") << 0 << QByteArray("\\fs0");
    QTest::newRow("-1") << -1 << QByteArray("\\fs-1");
    QTest::newRow("-360") << -360 << QByteArray("\\fs-360");
    QTest::newRow("10") << 10 << QByteArray("\\fs10");
    QTest::newRow("greatest") << std::numeric_limits<int>::max() << QByteArray("\\fs2147483647");
    QTest::newRow("least") << std::numeric_limits<int>::min() << QByteArray("\\fs-2147483648");
}

void TestRtfoutput::numbers()
{
    QFETCH(int, number);
    QFETCH(QByteArray, rtf);
    BufferedOutput output;
    QVERIFY(output.write("\\fs", number));
    QVERIFY(output.isKeywordPending());
    QVERIFY(output.write(ORVTextRtfCommon::FontSize, number));
    QVERIFY(output.isKeywordPending());
    QCOMPARE(output.bytes(), rtf + rtf);
}

void TestRtfoutput::keyWords()
{
    BufferedOutput output;
    QVERIFY(!output.isKeywordPending());
    QVERIFY(output.write("\\ftnbj"));
    QVERIFY(output.isKeywordPending());
    QVERIFY(output.write(ORVTextRtfCommon::ResetFormat));
    QVERIFY(output.isKeywordPending());
    QCOMPARE(output.bytes(), QByteArray("\\ftnbj\\plain"));
}

void TestRtfoutput::structureEndsAWord_data()
{
    QTest::addColumn<char>("character");
    QTest::newRow("opening brace") << '{';
    QTest::newRow("closing brace") << '}';
    QTest::newRow("semicolon") << ';';
    QTest::newRow("line feed") << '\n';
}

void TestRtfoutput::structureEndsAWord()
{
    QFETCH(char, character);
    BufferedOutput output;
    output.write("\\b");
    output.writeStructure(character);
    QVERIFY(!output.isKeywordPending());
    output.writePrintableCharacters(QStringLiteral("x"), 0, true, false, QString());
    QCOMPARE(output.bytes(), "\\b" + QByteArray(1, character) + 'x');
}

void TestRtfoutput::owedBlankIsWrittenOnce()
{
    BufferedOutput output;
    output.endKeyword();
    output.write("\\b", 0);
    output.endKeyword();
    output.endKeyword();
    QVERIFY(!output.isKeywordPending());
    output.writePrintableCharacters(QStringLiteral("x"), 0, true, false, QString());
    QCOMPARE(output.bytes(), QByteArray("\\b0 x"));
}

void TestRtfoutput::ignorableGroup()
{
    BufferedOutput output;
    output.openIgnorableGroup(ORVTextRtfCommon::ListTable);
    output.closeGroup();
    QCOMPARE(output.bytes(), QByteArray("{\\*\\listtable}"));
}

void TestRtfoutput::refusedBytes()
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
    QCOMPARE(closed.data(), QByteArray("}"));
}

void TestRtfoutput::fontsOfFormats()
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

void TestRtfoutput::formatWithoutFamily()
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

void TestRtfoutput::firstFontMovesTheOthers()
{
    ORVRtfOutputFonts fonts;
    fonts.append(fontOf("Quibble Sans"));
    fonts.append(fontOf("Quibble Mono"));
    fonts.insertFirst(fontOf("Quibble Serif"));
    QCOMPARE(fonts.number(fontOf("Quibble Serif")), 0);
    QCOMPARE(fonts.number(fontOf("Quibble Sans")), 1);
    QCOMPARE(fonts.number(fontOf("Quibble Mono")), 2);
}

void TestRtfoutput::equalFontsHaveTheLowestNumber()
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

void TestRtfoutput::colorNumbers()
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

void TestRtfoutput::colorsOfAnEmptyTable()
{
    ORVRtfOutputColors colors;
    QCOMPARE(colors.number(Qt::red), 1);
    QCOMPARE(colors.number(Qt::white), 1);
    colors.appendMissing(QColor());
    QVERIFY(colors.colors().isEmpty());
    colors.appendMissing(Qt::white);
    QCOMPARE(colors.colors(), QList<QRgb>() << qRgb(0, 0, 0) << qRgb(255, 255, 255));
}

namespace {

QByteArray document(const QByteArray& body)
{
    return "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 A;}{\\f1 B;}}{\\colortbl;\\red0\\green0\\blue0;}"
           "{\\*\\listtable{\\list\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}"
        + body + '}';
}

} // namespace

void TestRtfoutput::checkSeesWhatIsWrong_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("problem");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("does not begin as RTF");
    QTest::newRow("no RTF") << QByteArray("{\\ansi}") << QStringLiteral("does not begin as RTF");
    QTest::newRow("open group") << document("{x") << QStringLiteral("1 groups are not closed");
    QTest::newRow("closed too often") << document("x}") << QStringLiteral("content after the last group");
    QTest::newRow("text at the end") << document("x") + 'y' << QStringLiteral("content after the last group");
    QTest::newRow("font") << document("\\f2 x") << QStringLiteral("font 2 is not in its table");
    QTest::newRow("associated font") << document("\\af2 x") << QStringLiteral("font 2 is not in its table");
    QTest::newRow("no default font") << QByteArray("{\\rtf1\\ansi\\deff0}")
                                     << QStringLiteral("font 0 is not in its table");
    QTest::newRow("font twice") << document("{\\fonttbl{\\f1 C;}}")
                                << QStringLiteral("font 1 is defined twice");
    for (const char* word : {"cf", "cb", "highlight", "ulc", "clcbpat", "chcbpat", "brdrcf"}) {
        QTest::newRow(word) << document('\\' + QByteArray(word) + "2 x")
                            << QStringLiteral("colour 2 is not in the table");
    }
    QTest::newRow("negative colour") << document("\\cf-1 x")
                                     << QStringLiteral("colour -1 is not in the table");
    QTest::newRow("list") << document("\\ls2 x") << QStringLiteral("list 2 is not in its table");
    QTest::newRow("list of an override") << document("{\\*\\listoverridetable{\\listoverride\\listid2\\ls2}}")
                                         << QStringLiteral("list of an override 2 is not in its table");
    QTest::newRow("word with text glued to it")
        << document("\\plainx") << QStringLiteral("unknown word \\plainx");
    QTest::newRow("symbol") << document("\\?") << QStringLiteral("unknown symbol \\?");
    QTest::newRow("byte") << document("\\'4x")
                          << QStringLiteral("an escaped byte without two hexadecimal digits");
}

void TestRtfoutput::checkSeesWhatIsWrong()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, problem);
    QCOMPARE(checkWellFormed(rtf), problem);
}

void TestRtfoutput::checkTakesWhatIsRight()
{
    QCOMPARE(checkWellFormed(document("\\ls1{\\f1\\fs24\\cf1\\ulc0 a\\{b\\}\\\\c\\'E9\\~}")), QString());
    QCOMPARE(checkWellFormed(document("\n\\pard\\plain \\af0 x")), QString());
}

QTEST_MAIN(TestRtfoutput)
#include "tst_rtfoutput.moc"
