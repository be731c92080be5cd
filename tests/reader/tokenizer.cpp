#include "rtftesthelpers.h"

#include <QtTest/QtTest>

using namespace rtftest;

namespace {

/*! An unknown word of \a letters letters. */
QByteArray unknownWord(int letters)
{
    return "\\" + QByteArray(letters, 'q');
}

QString fromUtf16(const QList<int>& units)
{
    QString text;
    for (int unit : units)
        text += QChar(ushort(unit));
    return text;
}

} // namespace

/*! How bytes become groups, control words, text and data. */
class TestTokenizer : public QObject {
    Q_OBJECT

private slots:
    void statuses_data();
    void statuses();
    void controlWords_data();
    void controlWords();
    void parameters_data();
    void parameters();
    void lineEnds_data();
    void lineEnds();
    void ignorableDestinations_data();
    void ignorableDestinations();
    void unicodeFallback_data();
    void unicodeFallback();
    void unicodeUnits_data();
    void unicodeUnits();
    void binaryData_data();
    void binaryData();
    void binaryDataWithinTheLookAhead_data();
    void binaryDataWithinTheLookAhead();
    void hexadecimalData_data();
    void hexadecimalData();
    void hexadecimalRunsEndAfter1024Digits();
    void textWithoutEnd_data();
    void textWithoutEnd();
    void textOnManyLines();
    void longInput();
};

void TestTokenizer::statuses_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << QByteArray() << 0 << QString();
    QTest::newRow("text without a group is never flushed") << QByteArray("abc") << 0 << QString();
    QTest::newRow("no header needed") << QByteArray("{abc}") << 0 << QStringLiteral("abc");
    QTest::newRow("balanced") << QByteArray("{\\rtf1 abc}") << 0 << QStringLiteral("abc");
    QTest::newRow("text behind the last brace")
        << QByteArray("{\\rtf1 abc}def") << 0 << QStringLiteral("abc");
    QTest::newRow("text between groups") << QByteArray("{\\rtf1 abc}def{}") << 0 << QStringLiteral("abcdef");
    QTest::newRow("text before a word") << QByteArray("abc\\b def") << 0 << QStringLiteral("abc");
    QTest::newRow("group left open") << QByteArray("{\\rtf1 abc") << 2 << QString();
    QTest::newRow("two groups left open") << QByteArray("{\\rtf1 a{b") << 2 << QStringLiteral("a");
    QTest::newRow("group left open in a skipped one")
        << QByteArray("{\\rtf1 a{\\*\\unknown b{c}") << 2 << QStringLiteral("a");
    QTest::newRow("closing brace too many") << QByteArray("{\\rtf1 abc}}") << 1 << QStringLiteral("abc");
    QTest::newRow("closing brace only") << QByteArray("}") << 1 << QString();
    QTest::newRow("text after a closing brace too many")
        << QByteArray("{a}}b{}") << 1 << QStringLiteral("ab");
    QTest::newRow("skipping ends without a group")
        << QByteArray("\\*\\unknown abc}def{}") << 1 << QStringLiteral("def");
    QTest::newRow("closing before opening") << QByteArray("}{") << 1 << QString();
    QTest::newRow("backslash last") << QByteArray("{\\rtf1 abc\\") << 7 << QStringLiteral("abc");
    QTest::newRow("backslash alone") << QByteArray("\\") << 7 << QString();
    QTest::newRow("word cut off") << QByteArray("{\\rtf1 abc\\b") << 8 << QStringLiteral("abc");
    QTest::newRow("word cut off in a skipped group")
        << QByteArray("{\\rtf1 a{\\*\\unknown b\\b") << 8 << QStringLiteral("a");
    QTest::newRow("parameter cut off") << QByteArray("{\\rtf1 abc\\b1") << 2 << QStringLiteral("abc");
    QTest::newRow("sign cut off") << QByteArray("{\\rtf1 abc\\b-") << 2 << QStringLiteral("abc");
    QTest::newRow("escape cut off") << QByteArray("{\\rtf1 abc\\'") << 9 << QStringLiteral("abc");
    QTest::newRow("escape cut off after a digit")
        << QByteArray("{\\rtf1 abc\\'e") << 9 << QStringLiteral("abc");
    QTest::newRow("first error is kept, 9 before 1")
        << QByteArray("{a\\bin9 }}}") << 9 << QStringLiteral("a");
    QTest::newRow("first error is kept, 1 before 9") << QByteArray("{a}}\\bin9 ") << 1 << QStringLiteral("a");
    QTest::newRow("first error is kept, 9 before 2") << QByteArray("{a{\\bin9 ") << 9 << QStringLiteral("a");
    QTest::newRow("first error is kept, 1 before 7") << QByteArray("}\\") << 1 << QString();
    QTest::newRow("NUL bytes are text") << QByteArray("{a\0b}", 5) << 0 << fromUtf16({'a', 0, 'b'});
}

void TestTokenizer::statuses()
{
    QFETCH(QByteArray, rtf);
    QFETCH(int, status);
    QFETCH(QString, text);

    const Reading reading = read(rtf);
    QCOMPARE(reading.status, status);
    QCOMPARE(reading.ok, status == 0);
    QCOMPARE(reading.text(), text);
}

void TestTokenizer::controlWords_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("text");

    QTest::newRow("space ends a word and vanishes") << QByteArray("a\\b b") << 0 << QStringLiteral("ab");
    QTest::newRow("only one space vanishes") << QByteArray("a\\b  b") << 0 << QStringLiteral("a b");
    QTest::newRow("space after a parameter vanishes") << QByteArray("a\\b0 b") << 0 << QStringLiteral("ab");
    QTest::newRow("other bytes end a word and stay") << QByteArray("a\\b;b") << 0 << QStringLiteral("a;b");
    QTest::newRow("a symbol takes no space") << QByteArray("a\\{ b") << 0 << QStringLiteral("a{ b");
    QTest::newRow("a symbol takes no digits") << QByteArray("a\\{1") << 0 << QStringLiteral("a{1");
    QTest::newRow("an escape takes no space") << QByteArray("a\\'e9 b") << 0 << QString::fromUtf8("aé b");
    QTest::newRow("unknown word") << QByteArray("a\\unknown b") << 0 << QStringLiteral("ab");
    QTest::newRow("unknown word with a parameter")
        << QByteArray("a\\unknown-12 b") << 0 << QStringLiteral("ab");
    QTest::newRow("unknown word opens nothing")
        << QByteArray("a{\\unknown b}c") << 0 << QStringLiteral("abc");
    QTest::newRow("unknown symbol") << QByteArray("a\\|b") << 0 << QStringLiteral("ab");
    QTest::newRow("a digit makes a symbol") << QByteArray("a\\1b") << 0 << QStringLiteral("ab");
    QTest::newRow("a byte above 0x7F makes a symbol")
        << QByteArray("a\\\xE9\xE9") << 0 << QString::fromUtf8("aé");
    QTest::newRow("a byte above 0x7F ends a word") << QByteArray("a\\b\xE9") << 0 << QString::fromUtf8("aé");
    QTest::newRow("upper case is another word") << QByteArray("a\\PAR b") << 0 << QStringLiteral("ab");
    QTest::newRow("62 letters") << "a" + unknownWord(62) + " b" << 0 << QStringLiteral("ab");
    QTest::newRow("63 letters") << "a" + unknownWord(63) + " b" << 8
                                << "a" + QString(63, QLatin1Char('q')) + " b";
    QTest::newRow("64 letters") << "a" + unknownWord(64) + " b" << 8
                                << "a" + QString(64, QLatin1Char('q')) + " b";
    QTest::newRow("300 letters") << "a" + unknownWord(300) + " b" << 8
                                 << "a" + QString(300, QLatin1Char('q')) + " b";
}

void TestTokenizer::controlWords()
{
    QFETCH(QByteArray, body);
    QFETCH(int, status);
    QFETCH(QString, text);

    const Reading reading = readBody(body);
    QCOMPARE(reading.status, status);
    QCOMPARE(reading.text(), text);
}

void TestTokenizer::parameters_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<double>("pointSize");
    QTest::addColumn<QString>("text");

    // \fs N is N / 2 points, and 10 points up to 2.
    const QByteArray zeros(60, '0');
    QTest::newRow("plain") << QByteArray("\\fs24 x") << 12.0 << QStringLiteral("x");
    QTest::newRow("none") << QByteArray("\\fs x") << 10.0 << QStringLiteral("x");
    QTest::newRow("a letter follows") << QByteArray("\\fs24x") << 12.0 << QStringLiteral("x");
    QTest::newRow("leading zeros") << QByteArray("\\fs0024 x") << 12.0 << QStringLiteral("x");
    QTest::newRow("a plus sign is text") << QByteArray("\\fs+24 x") << 10.0 << QStringLiteral("+24 x");
    QTest::newRow("a space ends the word") << QByteArray("\\fs 24 x") << 10.0 << QStringLiteral("24 x");
    QTest::newRow("negative") << QByteArray("\\fs-24 x") << 10.0 << QStringLiteral("x");
    QTest::newRow("sign without digits") << QByteArray("\\fs-x") << 10.0 << QStringLiteral("x");
    QTest::newRow("sign and space") << QByteArray("\\fs- x") << 10.0 << QStringLiteral("x");
    QTest::newRow("two signs") << QByteArray("\\fs--24 x") << 10.0 << QStringLiteral("-24 x");
    QTest::newRow("wraps at 32 bits") << QByteArray("\\fs4294967320 x") << 12.0 << QStringLiteral("x");
    QTest::newRow("negative wraps to positive")
        << QByteArray("\\fs-4294967272 x") << 12.0 << QStringLiteral("x");
    QTest::newRow("digits end at 64 bytes") << "\\fs" + zeros + "24 x" << 10.0 << QStringLiteral("4 x");
    QTest::newRow("digits up to 64 bytes") << "\\fs" + zeros.mid(1) + "24 x" << 12.0 << QStringLiteral("x");
    QTest::newRow("sign as byte 64") << "\\fs24" + unknownWord(62) + "-5 x" << 12.0 << QStringLiteral("5 x");
    QTest::newRow("space after a sign as byte 64")
        << "\\fs24" + unknownWord(62) + "- x" << 12.0 << QStringLiteral("x");
    QTest::newRow("digits after byte 64 are text")
        << "\\fs24" + unknownWord(60) + "123456 x" << 12.0 << QStringLiteral("456 x");
}

void TestTokenizer::parameters()
{
    QFETCH(QByteArray, body);
    QFETCH(double, pointSize);
    QFETCH(QString, text);

    const Reading reading = readBody(body);
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.text(), text);
    QCOMPARE(reading.format(text).doubleProperty(QTextFormat::FontPointSize), pointSize);
}

void TestTokenizer::lineEnds_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("text");

    QTest::newRow("line feed") << QByteArray("a\nb") << QStringLiteral("ab");
    QTest::newRow("carriage return") << QByteArray("a\rb") << QStringLiteral("ab");
    QTest::newRow("both") << QByteArray("a\r\n\r\nb") << QStringLiteral("ab");
    QTest::newRow("ends a word") << QByteArray("a\\b\nb") << QStringLiteral("ab");
    QTest::newRow("ends a parameter") << QByteArray("a\\b0\r\nb") << QStringLiteral("ab");
    QTest::newRow("the space on the next line is text") << QByteArray("a\\b\n b") << QStringLiteral("a b");
    QTest::newRow("a word is not continued") << QByteArray("a\\pa\nrb") << QStringLiteral("arb");
    QTest::newRow("escaped line feed is a paragraph end") << QByteArray("a\\\nb") << QStringLiteral("a\nb");
    QTest::newRow("escaped carriage return is nothing") << QByteArray("a\\\rb") << QStringLiteral("ab");
    QTest::newRow("escaped CR LF is nothing") << QByteArray("a\\\r\nb") << QStringLiteral("ab");
    QTest::newRow("not even inside a skipped group")
        << QByteArray("a{\\*\\unknown\n b\r\n\\\n}c") << QStringLiteral("ac");
}

void TestTokenizer::lineEnds()
{
    QFETCH(QByteArray, body);
    QFETCH(QString, text);

    const Reading reading = readBody(body);
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.text(), text);
}

void TestTokenizer::ignorableDestinations_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("text");

    QTest::newRow("unknown") << QByteArray("a{\\*\\unknown b}c") << QStringLiteral("ac");
    QTest::newRow("nested groups") << QByteArray("a{\\*\\unknown {b}c{d{e}}f}g") << QStringLiteral("ag");
    QTest::newRow("known word") << QByteArray("a{\\*\\b b}c") << QStringLiteral("abc");
    QTest::newRow("known word clears the mark")
        << QByteArray("a{\\*\\b\\unknown b}c") << QStringLiteral("abc");
    QTest::newRow("mark twice") << QByteArray("a{\\*\\*\\unknown b}c") << QStringLiteral("ac");
    QTest::newRow("text between") << QByteArray("a{\\*b\\unknown c}d") << QStringLiteral("abd");
    QTest::newRow("group between: the inner one is skipped")
        << QByteArray("a{\\*{\\unknown b}c}d") << QStringLiteral("acd");
    QTest::newRow("unknown symbol") << QByteArray("a{\\*\\|b}c") << QStringLiteral("ac");
    QTest::newRow("words have no effect") << QByteArray("a{\\*\\unknown\\par\\tab}b") << QStringLiteral("ab");
    QTest::newRow("escaped braces do not count")
        << QByteArray("a{\\*\\unknown \\{b\\}}c") << QStringLiteral("ac");
    QTest::newRow("bad escapes are not looked at")
        << QByteArray("a{\\*\\unknown \\'zz}b") << QStringLiteral("ab");
    QTest::newRow("binary data is not looked at")
        << QByteArray("a{\\*\\unknown \\bin3 }}}b") << QStringLiteral("ab");
    QTest::newRow("text before the mark stays") << QByteArray("a{b\\*\\unknown c}d") << QStringLiteral("abd");
    QTest::newRow("one after the other")
        << QByteArray("a{\\*\\unknown b}{\\*\\unknown c}d") << QStringLiteral("ad");
}

void TestTokenizer::ignorableDestinations()
{
    QFETCH(QByteArray, body);
    QFETCH(QString, text);

    const Reading reading = readBody(body);
    QCOMPARE(reading.text(), text);
    // The braces that stand for binary data in one row close more groups than are open.
    QCOMPARE(reading.status, body.contains("\\bin") ? 1 : 0);
}

void TestTokenizer::unicodeFallback_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("text");

    const QString dash(QChar(0x2014));
    QTest::newRow("question mark") << QByteArray("{\\u8212?x}") << 0 << dash + "x";
    QTest::newRow("delimiter and question mark") << QByteArray("{\\u8212 ?x}") << 0 << dash + "x";
    QTest::newRow("any byte") << QByteArray("{\\u8212 ax}") << 0 << dash + "x";
    QTest::newRow("escape") << QByteArray("{\\u8212\\'97x}") << 0 << dash + "x";
    QTest::newRow("only one escape") << QByteArray("{\\u8212\\'97\\'97x}") << 0 << dash + dash + "x";
    QTest::newRow("two escapes") << QByteArray("{\\uc2\\u8212\\'97\\'97x}") << 0 << dash + "x";
    QTest::newRow("two bytes") << QByteArray("{\\uc2\\u8212 abx}") << 0 << dash + "x";
    QTest::newRow("a question mark counts for all") << QByteArray("{\\uc2\\u8212??x}") << 0 << dash + "?x";
    QTest::newRow("each escape counts four bytes")
        << QByteArray("{\\uc2\\u8212\\'97x\\'97}") << 0 << dash + "7";
    QTest::newRow("an escape not first counts bytes")
        << QByteArray("{\\uc2\\u8212 a\\'97x}") << 0 << dash + "'97x";
    QTest::newRow("0, any byte") << QByteArray("{\\uc0\\u8212 ax}") << 0 << dash + "ax";
    QTest::newRow("0, question mark") << QByteArray("{\\uc0\\u8212?x}") << 0 << dash + "x";
    QTest::newRow("0, escape") << QByteArray("{\\uc0\\u8212\\'97x}") << 0 << dash + dash + "x";
    QTest::newRow("no number counts 0") << QByteArray("{\\uc\\u8212 ax}") << 0 << dash + "ax";
    QTest::newRow("negative counts 0") << QByteArray("{\\uc-1\\u8212 ax}") << 0 << dash + "ax";
    QTest::newRow("negative, escape") << QByteArray("{\\uc-1\\u8212\\'97x}") << 0 << dash + dash + "x";
    QTest::newRow("most negative, escape")
        << QByteArray("{\\uc-2147483648\\u8212\\'97x}") << 0 << dash + dash + "x";
    QTest::newRow("line ends count") << QByteArray("{\\uc3\\u8212 a\nbcx}") << 0 << dash + "cx";
    QTest::newRow("over many lines") << QByteArray("{\\uc9\\u8212 a\nb\nc\nd\neex}") << 0 << dash + "ex";
    QTest::newRow("braces count") << QByteArray("{\\uc3\\u8212 a}bcx}") << 0 << dash + "cx";
    QTest::newRow("longer than the buffer")
        << "{\\uc5000\\u8212 " + QByteArray(5000, 'a') + "x}" << 0 << dash + "x";
    QTest::newRow("many escapes, longer than the buffer")
        << "{\\uc2000\\u8212" + QByteArray("\\'97").repeated(2000) + "x}" << 0 << dash + "x";
    QTest::newRow("beyond the end") << QByteArray("{\\uc9\\u8212 ax}") << 2 << QString();
    QTest::newRow("beyond the end, last line of one byte")
        << QByteArray("{a\\uc99\\u8212 b\nc\nd\ne\n}") << 2 << QStringLiteral("a");
    QTest::newRow("most, any byte") << QByteArray("{a\\uc2147483647\\u8212 bcx}") << 2 << QStringLiteral("a");
    QTest::newRow("most, escape") << QByteArray("{a\\uc2147483647\\u8212\\'97bcx}") << 2
                                  << QStringLiteral("a");
    QTest::newRow("four times wraps no more")
        << QByteArray("{a\\uc1073741825\\u8212\\'97bcx}") << 2 << QStringLiteral("a");
    QTest::newRow("end of the input") << QByteArray("{a\\u8212") << 2 << QStringLiteral("a");
    QTest::newRow("backslash at the end") << QByteArray("{a\\uc0\\u8212\\") << 7 << "a" + dash;
    QTest::newRow("without a number") << QByteArray("{\\u axy}") << 0 << QStringLiteral("?xy");
    QTest::newRow("the count is restored with the group")
        << QByteArray("{{\\uc0\\u8212 a}\\u8212 ax}") << 0 << dash + "a" + dash + "x";
    QTest::newRow("the count is handed down to groups")
        << QByteArray("{\\uc0{\\u8212 a}x}") << 0 << dash + "ax";
}

void TestTokenizer::unicodeFallback()
{
    QFETCH(QByteArray, rtf);
    QFETCH(int, status);
    QFETCH(QString, text);

    const Reading reading = read(rtf);
    QCOMPARE(reading.status, status);
    QCOMPARE(reading.text(), text);
}

void TestTokenizer::unicodeUnits_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<QString>("text");

    QTest::newRow("ASCII") << QByteArray("\\u65?") << QStringLiteral("A");
    QTest::newRow("euro sign") << QByteArray("\\u8364?") << fromUtf16({0x20AC});
    QTest::newRow("negative") << QByteArray("\\u-4064?") << fromUtf16({0xF020});
    QTest::newRow("-1") << QByteArray("\\u-1?") << fromUtf16({0xFFFF});
    QTest::newRow("above 32767") << QByteArray("\\u61472?") << fromUtf16({0xF020});
    QTest::newRow("65536 wraps") << QByteArray("\\u65601?") << QStringLiteral("A");
    QTest::newRow("surrogates") << QByteArray("\\u55357?\\u56832?") << fromUtf16({0xD83D, 0xDE00});
    QTest::newRow("negative surrogates") << QByteArray("\\u-10179?\\u-8704?") << fromUtf16({0xD83D, 0xDE00});
    QTest::newRow("0") << QByteArray("\\u0?") << fromUtf16({0});
}

void TestTokenizer::unicodeUnits()
{
    QFETCH(QByteArray, words);
    QFETCH(QString, text);

    const Reading reading = readBody("a" + words + "b");
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.text(), "a" + text + "b");
}

void TestTokenizer::binaryData_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("text");

    QTest::newRow("taken") << QByteArray("{a\\bin3 bcdx}") << 0 << QStringLiteral("ax");
    QTest::newRow("braces and backslashes") << QByteArray("{a\\bin5 {\\}}\\x}") << 0 << QStringLiteral("ax");
    QTest::newRow("NUL bytes") << QByteArray("{a\\bin3 \0\0\0x}", 13) << 0 << QStringLiteral("ax");
    QTest::newRow("0") << QByteArray("{a\\bin0 bx}") << 0 << QStringLiteral("abx");
    QTest::newRow("no number") << QByteArray("{a\\bin bx}") << 0 << QStringLiteral("abx");
    QTest::newRow("negative") << QByteArray("{a\\bin-3 bx}") << 0 << QStringLiteral("abx");
    QTest::newRow("as many bytes as are left") << QByteArray("{a\\bin3 bx}") << 9 << QStringLiteral("abx");
    QTest::newRow("one byte more is left") << QByteArray("{a\\bin2 bx}") << 0 << QStringLiteral("a");
    QTest::newRow("more than is left") << QByteArray("{a\\bin4 bx}") << 9 << QStringLiteral("abx");
    QTest::newRow("far more than is left")
        << QByteArray("{a\\bin2147483647 bx}") << 9 << QStringLiteral("abx");
    QTest::newRow("nothing left") << QByteArray("{a\\bin1") << 9 << QStringLiteral("a");
}

void TestTokenizer::binaryData()
{
    QFETCH(QByteArray, rtf);
    QFETCH(int, status);
    QFETCH(QString, text);

    const Reading reading = read(rtf);
    QCOMPARE(reading.status, status);
    QCOMPARE(reading.text(), text);
}

void TestTokenizer::binaryDataWithinTheLookAhead_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("text");

    // The first refill holds 255 bytes and the one for the data at most 1023 more; ten of these bytes are
    // the brace and the word, and one byte has to follow the data.
    QTest::newRow("largest") << "{\\bin1267 " + QByteArray(1267, 'a') + "}" << 0 << QString();
    QTest::newRow("one too large") << "{\\bin1268 " + QByteArray(1268, 'a') + "}" << 9
                                   << QString(1268, QLatin1Char('a'));
    // Each refill ends with a line: one for the brace, one for the word and one for the data.
    QTest::newRow("three lines") << QByteArray("{\\bin5 a\nb\ncx}") << 0 << QStringLiteral("x");
    QTest::newRow("end of the third line") << QByteArray("{\\bin5 a\nb\nc\nx}") << 0 << QStringLiteral("x");
    QTest::newRow("four lines") << QByteArray("{\\bin6 a\nb\nc\ndx}") << 9 << QStringLiteral("abcdx");
}

void TestTokenizer::binaryDataWithinTheLookAhead()
{
    QFETCH(QByteArray, rtf);
    QFETCH(int, status);
    QFETCH(QString, text);

    const Reading reading = read(rtf);
    QCOMPARE(reading.status, status);
    QCOMPARE(reading.text(), text);
}

// Grey-scale pictures in their plain binary form: a header that is text, then one byte a pixel.
void TestTokenizer::hexadecimalData_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QByteArray>("digits");
    QTest::addColumn<QByteArray>("pixels");

    QTest::newRow("one run") << 2 << QByteArray("0a41") << QByteArray("\x0a\x41");
    QTest::newRow("upper case") << 2 << QByteArray("0AfF") << QByteArray("\x0a\xff");
    QTest::newRow("spaces between bytes") << 2 << QByteArray("0a 41") << QByteArray("\x0a\x41");
    QTest::newRow("line ends between bytes") << 2 << QByteArray("0a\r\n41\n") << QByteArray("\x0a\x41");
    QTest::newRow("other bytes between bytes") << 2 << QByteArray("0a,xyz-41;") << QByteArray("\x0a\x41");
    QTest::newRow("an odd run is padded in front") << 2 << QByteArray(" abc") << QByteArray("\x0a\xbc");
    QTest::newRow("a line end ends a run") << 2 << QByteArray(" a\nb") << QByteArray("\x0a\x0b");
    QTest::newRow("a space ends a run") << 3 << QByteArray(" a b 1c") << QByteArray("\x0a\x0b\x1c");
}

void TestTokenizer::hexadecimalData()
{
    QFETCH(int, width);
    QFETCH(QByteArray, digits);
    QFETCH(QByteArray, pixels);

    const QByteArray header = "P5 " + QByteArray::number(width) + " 1 255 ";
    const Reading reading = readBody("{\\pict\\wmetafile8 " + header.toHex() + digits + "}");
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.images().size(), 1);
    const QUrl url(reading.images().first().name());
    const QImage image = reading.document->resource(QTextDocument::ImageResource, url).value<QImage>();
    QCOMPARE(image.size(), QSize(width, 1));
    for (int x = 0; x < width; ++x)
        QCOMPARE(qGray(image.pixel(x, 0)), int(uchar(pixels.at(x))));
}

void TestTokenizer::hexadecimalRunsEndAfter1024Digits()
{
    const QByteArray header = QByteArray("P5 513 1 255 ").toHex();
    const QByteArray digits = QByteArray("5a").repeated(512) + "d";
    const Reading reading = readBody("{\\pict\\wmetafile8 " + header + " " + digits + "}");
    QCOMPARE(reading.images().size(), 1);
    const QUrl url(reading.images().first().name());
    const QImage image = reading.document->resource(QTextDocument::ImageResource, url).value<QImage>();
    QCOMPARE(image.width(), 513);
    QCOMPARE(qGray(image.pixel(0, 0)), 0x5A);
    QCOMPARE(qGray(image.pixel(511, 0)), 0x5A);
    QCOMPARE(qGray(image.pixel(512, 0)), 0x0D);
}

// Text is drawn by what follows it: what stands behind the last control word or brace never is.
void TestTokenizer::textWithoutEnd_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("text");

    QTest::newRow("text only") << QByteArray("abc") << QString();
    QTest::newRow("Unicode character") << QByteArray("ab\\u233?cd") << QStringLiteral("ab");
    QTest::newRow("two Unicode characters")
        << QByteArray("ab\\u233?c\\u234?d") << QStringLiteral("ab\u00e9c");
    QTest::newRow("byte") << QByteArray("ab\\'e9cd") << QStringLiteral("ab");
    QTest::newRow("byte at the end") << QByteArray("ab\\'e9c\\'e9") << QStringLiteral("ab\u00e9c");
    QTest::newRow("damaged byte") << QByteArray("ab\\'zzcd") << QStringLiteral("ab");
    QTest::newRow("character first") << QByteArray("\\'e9cd") << QString();
    QTest::newRow("no-break space") << QByteArray("ab\\~cd") << QStringLiteral("ab");
    QTest::newRow("unknown word") << QByteArray("ab\\'e9cd\\zzz ef") << QStringLiteral("ab\u00e9cd");
    QTest::newRow("brace") << QByteArray("ab\\'e9cd{") << QStringLiteral("ab\u00e9cd");
    QTest::newRow("skipped group") << QByteArray("ab\\'e9{\\*\\zzz cd}ef") << QStringLiteral("ab\u00e9");
}

void TestTokenizer::textWithoutEnd()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, text);

    QCOMPARE(read(rtf).text(), text);
}

void TestTokenizer::textOnManyLines()
{
    QByteArray body;
    QString expected;
    for (int i = 0; i < 1000; ++i) {
        body += "line " + QByteArray::number(i) + "\\par\n";
        expected += QStringLiteral("line %1\n").arg(i);
    }
    const Reading reading = readBody(body);
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.text(), expected);
}

// Words at every position relative to the limits of the buffer, on one line.
void TestTokenizer::longInput()
{
    QByteArray body;
    QString expected;
    for (int i = 0; i < 1500; ++i) {
        body += QByteArray(i % 7, 'x') + "\\u8212?{\\b0 y}\\'e9";
        expected += QString(i % 7, QLatin1Char('x')) + QChar(0x2014) + "y" + QChar(0xE9);
    }
    const Reading reading = readBody(body);
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.text(), expected);
}

QTEST_MAIN(TestTokenizer)
#include "tst_tokenizer.moc"
