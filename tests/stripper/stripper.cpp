#include "ORVTextRtfStripper.h"

#include <QtCore/QBuffer>
#include <QtGui/QTextDocument>
#include <QtTest/QtTest>

namespace {

const int unmatchedOpeningBrace = 2;
const int noDocument = 6;
const int couldNotOpenDevice = 10;

QByteArray stripped(QByteArray rtf)
{
    QBuffer input(&rtf);
    QByteArray result;
    QBuffer output(&result);
    input.open(QIODevice::ReadOnly);
    output.open(QIODevice::WriteOnly);
    ORVTextRtfStripper stripper;
    stripper.setDevice(&input);
    stripper.setOutput(&output);
    stripper.process();
    return result;
}

/*! An output that refuses everything. */
class FullDevice : public QIODevice {
protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64) override { return -1; }
};

} // namespace

/*! RTF copied in a lighter form. */
class TestStripper : public QObject {
    Q_OBJECT

private slots:
    void copies_data();
    void copies();
    void everyByteOutsideWordsIsCopied();
    void longLines();
    void wordsAcrossTheBuffer_data();
    void wordsAcrossTheBuffer();
    void binaryDataBeyondTheLookAheadIsLeft();
    void deepGroups();
    void missingDevices();
    void closedDevices_data();
    void closedDevices();
    void devicesAreNeitherOpenedNorClosed();
    void startsAtTheCurrentPosition();
    void refusedOutput();
    void everyPassBeginsAnew();
    void readsWithoutOutput_data();
    void readsWithoutOutput();
    void readsWithoutDevices();
    void readsIntoNoDocument();
    void copiesAfterReadingWithoutOutput();
};

void TestStripper::copies_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("nothing") << QByteArray() << QByteArray();
    QTest::newRow("text outside groups") << QByteArray("plain text") << QByteArray("plain text");

    // Control words
    QTest::newRow("leading zeros") << QByteArray("{\\rtf1\\ansi\\fs024 Hello}")
                                   << QByteArray("\n{\\rtf1\\ansi\\fs24 Hello}\n");
    QTest::newRow("negative number") << QByteArray("\\fi-0360 x") << QByteArray("\\fi-360 x");
    QTest::newRow("plus sign is text") << QByteArray("\\fs+3") << QByteArray("\\fs +3");
    QTest::newRow("hyphen without number") << QByteArray("\\b-x") << QByteArray("\\b x");
    QTest::newRow("zero") << QByteArray("\\b0 x") << QByteArray("\\b0 x");
    QTest::newRow("no delimiter needed between words") << QByteArray("\\b \\i x") << QByteArray("\\b\\i x");
    QTest::newRow("second blank is text") << QByteArray("\\b  x") << QByteArray("\\b  x");
    QTest::newRow("no delimiter before a brace") << QByteArray("\\b {x}") << QByteArray("\\b\n{x}\n");
    QTest::newRow("no delimiter before a closing brace") << QByteArray("{\\b }x") << QByteArray("\n{\\b}\nx");
    QTest::newRow("line end is the delimiter") << QByteArray("\\b\nx") << QByteArray("\\b\nx");
    QTest::newRow("carriage return is no delimiter") << QByteArray("\\b\rx") << QByteArray("\\b x");
    QTest::newRow("nothing owed at the end") << QByteArray("x\\b ") << QByteArray("x\\b");
    QTest::newRow("unknown word") << QByteArray("a\\foo42 b") << QByteArray("ab");
    QTest::newRow("unknown word after a known one") << QByteArray("\\b\\foo42 x") << QByteArray("\\b x");
    QTest::newRow("unknown symbol") << QByteArray("a\\!b") << QByteArray("ab");
    QTest::newRow("case counts") << QByteArray("\\B x") << QByteArray("x");

    // Groups
    QTest::newRow("groups on lines of their own")
        << QByteArray("a{b}c{{d}}") << QByteArray("a\n{b}\nc\n{\n{d}\n}\n");
    QTest::newRow("unmatched braces") << QByteArray("}{") << QByteArray("}\n\n{");
    QTest::newRow("line ends are copied") << QByteArray("{a\r\n\r\nb}\n") << QByteArray("\n{a\n\nb}\n\n");

    // Symbols
    QTest::newRow("escaped brace") << QByteArray("\\{a\\}") << QByteArray("\\{ a\\}");
    QTest::newRow("no-break space") << QByteArray("a\\~b") << QByteArray("a\\~ b");
    QTest::newRow("byte") << QByteArray("caf\\'e9s") << QByteArray("caf\\'e9s");
    QTest::newRow("byte keeps its case") << QByteArray("\\'E9") << QByteArray("\\'E9");
    QTest::newRow("bytes that are no digits") << QByteArray("\\'{}x") << QByteArray("\\'{}x");
    QTest::newRow("byte does not pay what is owed") << QByteArray("\\b\\'e9x") << QByteArray("\\b\\'e9 x");
    QTest::newRow("byte with one digit") << QByteArray("\\'e") << QByteArray("\\'e");
    QTest::newRow("byte without digits") << QByteArray("x\\'") << QByteArray("x\\'");
    QTest::newRow("Unicode character") << QByteArray("\\u-3913?x") << QByteArray("\\u-3913 ?x");
    QTest::newRow("unknown destination") << QByteArray("{\\*\\foo text}") << QByteArray("\n{\\* text}\n");
    QTest::newRow("known destination")
        << QByteArray("{\\*\\bkmkstart a}") << QByteArray("\n{\\*\\bkmkstart a}\n");

    // Tables
    QTest::newRow("cell") << QByteArray("a\\cell b") << QByteArray("a\\cell\nb");
    QTest::newRow("row") << QByteArray("\\row b") << QByteArray("\\row\nb");
    QTest::newRow("nested cell") << QByteArray("\\nestcell b") << QByteArray("\\nestcell\nb");
    QTest::newRow("nested row") << QByteArray("\\nestrow b") << QByteArray("\\nestrow\nb");
    QTest::newRow("cell boundary") << QByteArray("\\cellx720 b") << QByteArray("\\cellx720\nb");
    QTest::newRow("cell with a number") << QByteArray("\\cell1 b") << QByteArray("\\cell1\nb");

    // Skipped groups
    QTest::newRow("picture") << QByteArray("{\\pict\\pngblip 89504e47}") << QByteArray("\n{\\pict}\n");
    QTest::newRow("number of a picture") << QByteArray("{\\pict01 89}") << QByteArray("\n{\\pict1}\n");
    QTest::newRow("list number") << QByteArray("{\\listtext 1.\\tab}x") << QByteArray("\n{\\listtext}\nx");
    QTest::newRow("old list number") << QByteArray("{\\pntext\\'b7}x") << QByteArray("\n{\\pntext}\nx");
    QTest::newRow("groups within a picture")
        << QByteArray("{\\pict{\\*\\blipuid 00}{a{b}}\\b\n89}tail") << QByteArray("\n{\\pict}\ntail");
    QTest::newRow("words before a picture")
        << QByteArray("{\\b\\pict 89}x") << QByteArray("\n{\\b\\pict}\nx");
    QTest::newRow("picture outside groups") << QByteArray("\\pict 89}x") << QByteArray("\\pict}\nx");
    QTest::newRow("picture without end") << QByteArray("{\\pict 89") << QByteArray("\n{\\pict");
    QTest::newRow("escaped brace within a picture")
        << QByteArray("{\\pict\\}89}x") << QByteArray("\n{\\pict}\nx");

    // Binary data
    QTest::newRow("binary data") << QByteArray("\\bin3 }{\\x") << QByteArray("\\bin3}{\\x");
    QTest::newRow("binary line ends") << QByteArray("\\bin2 \r\nx") << QByteArray("\\bin2\r\nx");
    QTest::newRow("no binary data") << QByteArray("\\bin0 {x}") << QByteArray("\\bin0\n{x}\n");
    QTest::newRow("negative count") << QByteArray("\\bin-5 {x}") << QByteArray("\\bin-5\n{x}\n");
    QTest::newRow("one byte too few") << QByteArray("\\bin3 {x}") << QByteArray("\\bin3\n{x}\n");
    QTest::newRow("largest count") << QByteArray("\\bin2147483647 {x}")
                                   << QByteArray("\\bin2147483647\n{x}\n");

    // Damage
    QTest::newRow("backslash at the end") << QByteArray("x\\") << QByteArray("x");
    QTest::newRow("word at the end") << QByteArray("x\\b") << QByteArray("xb");
    QTest::newRow("longest word") << "a\\" + QByteArray(62, 'q') + " b" << QByteArray("ab");
    QTest::newRow("word too long") << "a\\" + QByteArray(63, 'q') + " b"
                                   << "a" + QByteArray(63, 'q') + " b";
}

void TestStripper::copies()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QByteArray, expected);

    QCOMPARE(stripped(rtf), expected);
}

void TestStripper::everyByteOutsideWordsIsCopied()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '\\' && byte != '{' && byte != '}' && byte != '\r')
            bytes += char(byte);
    }

    QCOMPARE(stripped(bytes), bytes);
}

void TestStripper::longLines()
{
    // Lines longer than any buffer, and more output than is held back.
    QByteArray rtf;
    QByteArray expected;
    for (int i = 0; i < 40; ++i) {
        const QByteArray text(900 + 37 * i, char('a' + i % 26));
        rtf += "{\\b " + text + "\\i0" + text + "}";
        expected += "\n{\\b " + text + "\\i0 " + text + "}\n";
    }

    QCOMPARE(stripped(rtf), expected);
}

void TestStripper::wordsAcrossTheBuffer_data()
{
    QTest::addColumn<int>("length");

    for (int length = 1000; length < 1060; ++length)
        QTest::newRow(QByteArray::number(length).constData()) << length;
}

void TestStripper::wordsAcrossTheBuffer()
{
    QFETCH(int, length);
    const QByteArray text(length, 'a');

    QCOMPARE(stripped(text + "\\fs024 " + text + "\\'e9" + text), text + "\\fs24 " + text + "\\'e9" + text);
}

void TestStripper::binaryDataBeyondTheLookAheadIsLeft()
{
    // The word's look-ahead has fetched the second line, that for the data fetches the third, and no more: so
    // the data are taken for text, and their brace counts.
    QCOMPARE(stripped("\\bin8 a\nb\nc\n{cd"), QByteArray("\\bin8a\nb\nc\n\n{cd"));
    QCOMPARE(stripped("\\bin6 a\nb\n{cd"), QByteArray("\\bin6a\nb\n{cd"));
}

void TestStripper::deepGroups()
{
    const int depth = 100000;
    QByteArray expected;
    for (int i = 0; i < depth; ++i)
        expected += "\n{";
    for (int i = 0; i < depth; ++i)
        expected += "}\n";

    QCOMPARE(stripped(QByteArray(depth, '{') + QByteArray(depth, '}')), expected);
}

void TestStripper::missingDevices()
{
    QByteArray rtf("{x}");
    QBuffer buffer(&rtf);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QByteArray result;
    QBuffer output(&result);
    QVERIFY(output.open(QIODevice::WriteOnly));

    ORVTextRtfStripper withoutDevices;
    withoutDevices.process();

    ORVTextRtfStripper withoutOutput;
    withoutOutput.setDevice(&buffer);
    withoutOutput.process();
    QCOMPARE(buffer.pos(), qint64(0));

    ORVTextRtfStripper withoutInput;
    withoutInput.setOutput(&output);
    withoutInput.process();
    QCOMPARE(result, QByteArray());
}

void TestStripper::closedDevices_data()
{
    QTest::addColumn<bool>("inputOpen");
    QTest::addColumn<bool>("outputOpen");

    QTest::newRow("both closed") << false << false;
    QTest::newRow("input closed") << false << true;
    QTest::newRow("output closed") << true << false;
}

void TestStripper::closedDevices()
{
    QFETCH(bool, inputOpen);
    QFETCH(bool, outputOpen);
    QByteArray rtf("{x}");
    QBuffer input(&rtf);
    QByteArray result;
    QBuffer output(&result);
    if (inputOpen)
        QVERIFY(input.open(QIODevice::ReadOnly));
    if (outputOpen)
        QVERIFY(output.open(QIODevice::WriteOnly));
    if (inputOpen)
        QTest::ignoreMessage(QtWarningMsg, "QIODevice::write (QBuffer): device not open");

    ORVTextRtfStripper stripper;
    stripper.setDevice(&input);
    stripper.setOutput(&output);
    stripper.process();

    QCOMPARE(result, QByteArray());
    QCOMPARE(input.isOpen(), inputOpen);
    QCOMPARE(output.isOpen(), outputOpen);
}

void TestStripper::devicesAreNeitherOpenedNorClosed()
{
    QByteArray rtf("{x}");
    QBuffer input(&rtf);
    QByteArray result;
    QBuffer output(&result);
    QVERIFY(input.open(QIODevice::ReadOnly));
    QVERIFY(output.open(QIODevice::WriteOnly));
    {
        ORVTextRtfStripper stripper;
        stripper.setDevice(&input);
        stripper.setOutput(&output);
        QCOMPARE(stripper.device(), static_cast<QIODevice*>(&input));
        stripper.process();
    }

    QVERIFY(input.isOpen());
    QVERIFY(output.isOpen());
    QCOMPARE(result, QByteArray("\n{x}\n"));
}

void TestStripper::startsAtTheCurrentPosition()
{
    QByteArray rtf("{skipped}{x}");
    QBuffer input(&rtf);
    QByteArray result("before");
    QBuffer output(&result);
    QVERIFY(input.open(QIODevice::ReadOnly));
    QVERIFY(input.seek(9));
    QVERIFY(output.open(QIODevice::Append));

    ORVTextRtfStripper stripper;
    stripper.setDevice(&input);
    stripper.setOutput(&output);
    stripper.process();

    QCOMPARE(result, QByteArray("before\n{x}\n"));
}

void TestStripper::refusedOutput()
{
    QByteArray rtf(100000, '{');
    QBuffer input(&rtf);
    QVERIFY(input.open(QIODevice::ReadOnly));
    FullDevice output;
    QVERIFY(output.open(QIODevice::WriteOnly));

    ORVTextRtfStripper stripper;
    stripper.setDevice(&input);
    stripper.setOutput(&output);
    stripper.process();

    QVERIFY(input.atEnd());
}

void TestStripper::everyPassBeginsAnew()
{
    QByteArray first("{\\pict 89");
    QByteArray second("x\\b");
    QByteArray third(" y");
    QByteArray result;
    QBuffer output(&result);
    QVERIFY(output.open(QIODevice::WriteOnly));
    ORVTextRtfStripper stripper;
    stripper.setOutput(&output);
    for (QByteArray* rtf : {&first, &second, &third}) {
        QBuffer input(rtf);
        QVERIFY(input.open(QIODevice::ReadOnly));
        stripper.setDevice(&input);
        stripper.process();
    }

    QCOMPARE(result, QByteArray("\n{\\pictxb y"));
}

void TestStripper::readsWithoutOutput_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("text");

    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("text without words") << QByteArray("{text}") << QString::fromLatin1("text");
    QTest::newRow("words and text") << QByteArray("{\\rtf1 one\\par two}") << QString::fromLatin1("onetwo");
    // More than is held back for an output, in words, in numbers and in bytes.
    const int count = 20000;
    QTest::newRow("many words") << "{\\rtf1" + QByteArray("\\b").repeated(count) + " text}"
                                << QString::fromLatin1("text");
    QTest::newRow("many numbers") << "{\\rtf1" + QByteArray("\\fs24").repeated(count) + " text}"
                                  << QString::fromLatin1("text");
    QTest::newRow("many words between text")
        << "{\\rtf1" + QByteArray("\\b x").repeated(count) + "}" << QString(count, QLatin1Char('x'));
    QTest::newRow("many escaped bytes")
        << "{\\rtf1" + QByteArray("\\'e9").repeated(count) + "text}" << QString::fromLatin1("text");
    QTest::newRow("much binary data") << QByteArray("\\bin200 " + QByteArray(200, 'x')).repeated(count / 200)
            + "{text}" << QString::fromLatin1("text");
    QTest::newRow("damage") << QByteArray("}{\\rtf1 text{") << QString::fromLatin1("text");
}

/*! The inherited read() has nowhere to write what it copies: it reads all the same, and fails. */
void TestStripper::readsWithoutOutput()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, text);
    QBuffer input(&rtf);
    QVERIFY(input.open(QIODevice::ReadOnly));
    QTextDocument document;

    ORVTextRtfStripper stripper;
    stripper.setDevice(&input);

    QVERIFY(!stripper.read(&document));
    QCOMPARE(stripper.error(), couldNotOpenDevice);
    QCOMPARE(stripper.errorString(), QString::fromLatin1("Could not open device"));
    QVERIFY(input.atEnd());
    QCOMPARE(document.toPlainText(), text);
}

void TestStripper::readsWithoutDevices()
{
    QTextDocument document;
    ORVTextRtfStripper stripper;

    QVERIFY(!stripper.read(&document));
    QCOMPARE(stripper.error(), couldNotOpenDevice);
}

void TestStripper::readsIntoNoDocument()
{
    QByteArray rtf("{x}");
    QBuffer input(&rtf);
    QVERIFY(input.open(QIODevice::ReadOnly));
    ORVTextRtfStripper stripper;
    stripper.setDevice(&input);

    QVERIFY(!stripper.read(nullptr));
    QCOMPARE(stripper.error(), noDocument);
}

void TestStripper::copiesAfterReadingWithoutOutput()
{
    QByteArray first("{\\rtf1\\b first");
    QByteArray second("{\\b second}");
    QBuffer input(&first);
    QVERIFY(input.open(QIODevice::ReadOnly));
    QTextDocument document;
    QByteArray result;
    QBuffer output(&result);
    QVERIFY(output.open(QIODevice::WriteOnly));

    ORVTextRtfStripper stripper;
    stripper.setDevice(&input);
    QVERIFY(!stripper.read(&document));
    QBuffer inputOfCopy(&second);
    QVERIFY(inputOfCopy.open(QIODevice::ReadOnly));
    stripper.setDevice(&inputOfCopy);
    stripper.setOutput(&output);
    stripper.process();
    QCOMPARE(result, QByteArray("\n{\\b second}\n"));

    // With an output the status is that of the input again.
    QVERIFY(input.seek(0));
    stripper.setDevice(&input);
    QVERIFY(!stripper.read(&document));
    QCOMPARE(stripper.error(), unmatchedOpeningBrace);
}

QTEST_MAIN(TestStripper)
#include "tst_stripper.moc"
