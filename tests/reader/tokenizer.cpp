#include "testsupport.h"

using namespace rtftest;

namespace {

/*! An unknown word of \a letters letters. */
QByteArray unknownWord(int letters)
{
    return "\\" + QByteArray(letters, 'q');
}

} // namespace

/*! How bytes become groups, control words, text and data. */
class TestTokenizer : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(statuses)
    {
        const Rows add([](const QByteArray& rtf, int status, const QString& text) {
            const Reading reading = read(rtf);
            QCOMPARE(reading.status, status);
            QCOMPARE(reading.ok, status == 0);
            QCOMPARE(reading.text(), text);
        });
        add("empty", QByteArray(), 0, QString());
        add("text without a group is never flushed", "abc", 0, QString());
        add("no header needed", "{abc}", 0, "abc");
        add("balanced", "{\\rtf1 abc}", 0, "abc");
        add("text behind the last brace", "{\\rtf1 abc}def", 0, "abc");
        add("text between groups", "{\\rtf1 abc}def{}", 0, "abcdef");
        add("text before a word", "abc\\b def", 0, "abc");
        add("group left open", "{\\rtf1 abc", 2, QString());
        add("two groups left open", "{\\rtf1 a{b", 2, "a");
        add("group left open in a skipped one", "{\\rtf1 a{\\*\\unknown b{c}", 2, "a");
        add("closing brace too many", "{\\rtf1 abc}}", 1, "abc");
        add("closing brace only", "}", 1, QString());
        add("text after a closing brace too many", "{a}}b{}", 1, "ab");
        add("skipping ends without a group", "\\*\\unknown abc}def{}", 1, "def");
        add("a known destination ends without a group, too", "\\stylesheet a}{b}", 1, "b");
        add("closing before opening", "}{", 1, QString());
        add("backslash last", "{\\rtf1 abc\\", 7, "abc");
        add("backslash alone", "\\", 7, QString());
        add("word cut off", "{\\rtf1 abc\\b", 8, "abc");
        add("word cut off in a skipped group", "{\\rtf1 a{\\*\\unknown b\\b", 8, "a");
        add("parameter cut off", "{\\rtf1 abc\\b1", 2, "abc");
        add("sign cut off", "{\\rtf1 abc\\b-", 2, "abc");
        add("escape cut off", "{\\rtf1 abc\\'", 9, "abc");
        add("escape cut off after a digit", "{\\rtf1 abc\\'e", 9, "abc");
        add("first error is kept, 9 before 1", "{a\\bin9 }}}", 9, "a");
        add("first error is kept, 1 before 9", "{a}}\\bin9 ", 1, "a");
        add("first error is kept, 9 before 2", "{a{\\bin9 ", 9, "a");
        add("first error is kept, 1 before 7", "}\\", 1, QString());
        add("NUL bytes are text", QByteArray("{a\0b}", 5), 0, "a" + QString(QChar(0)) + "b");

        // Text is drawn by what follows it: what stands behind the last control word or brace never is.
        add("Unicode character", "ab\\u233?cd", 0, "ab");
        add("two Unicode characters", "ab\\u233?c\\u234?d", 0, "ab\u00e9c");
        add("byte", "ab\\'e9cd", 0, "ab");
        add("byte at the end", "ab\\'e9c\\'e9", 0, "ab\u00e9c");
        add("damaged byte", "ab\\'zzcd", 9, "ab");
        add("character first", "\\'e9cd", 0, QString());
        add("no-break space", "ab\\~cd", 0, "ab");
        add("unknown word", "ab\\'e9cd\\zzz ef", 0, "ab\u00e9cd");
        add("brace", "ab\\'e9cd{", 2, "ab\u00e9cd");
        add("skipped group", "ab\\'e9{\\*\\zzz cd}ef", 0, "ab\u00e9");

        // Unicode fallback.
        const QString dash(QChar(0x2014));
        add("question mark", "{\\u8212?x}", 0, dash + "x");
        add("delimiter and question mark", "{\\u8212 ?x}", 0, dash + "x");
        add("any byte", "{\\u8212 ax}", 0, dash + "x");
        add("escape", "{\\u8212\\'97x}", 0, dash + "x");
        add("only one escape", "{\\u8212\\'97\\'97x}", 0, dash + dash + "x");
        add("two escapes", "{\\uc2\\u8212\\'97\\'97x}", 0, dash + "x");
        add("two bytes", "{\\uc2\\u8212 abx}", 0, dash + "x");
        add("a question mark counts for all", "{\\uc2\\u8212??x}", 0, dash + "?x");
        add("each escape counts four bytes", "{\\uc2\\u8212\\'97x\\'97}", 0, dash + "7");
        add("an escape not first counts bytes", "{\\uc2\\u8212 a\\'97x}", 0, dash + "'97x");
        add("0, any byte", "{\\uc0\\u8212 ax}", 0, dash + "ax");
        add("0, question mark", "{\\uc0\\u8212?x}", 0, dash + "x");
        add("0, escape", "{\\uc0\\u8212\\'97x}", 0, dash + dash + "x");
        add("no number counts 0", "{\\uc\\u8212 ax}", 0, dash + "ax");
        add("negative counts 0", "{\\uc-1\\u8212 ax}", 0, dash + "ax");
        add("negative, escape", "{\\uc-1\\u8212\\'97x}", 0, dash + dash + "x");
        add("most negative, escape", "{\\uc-2147483648\\u8212\\'97x}", 0, dash + dash + "x");
        add("line ends count", "{\\uc3\\u8212 a\nbcx}", 0, dash + "cx");
        add("over many lines", "{\\uc9\\u8212 a\nb\nc\nd\neex}", 0, dash + "ex");
        add("braces count", "{\\uc3\\u8212 a}bcx}", 0, dash + "cx");
        add("longer than the buffer", "{\\uc5000\\u8212 " + QByteArray(5000, 'a') + "x}", 0, dash + "x");
        add("many escapes, longer than the buffer", "{\\uc2000\\u8212" + "\\'97"_b.repeated(2000) + "x}", 0,
            dash + "x");
        add("beyond the end", "{\\uc9\\u8212 ax}", 2, QString());
        add("beyond the end, last line of one byte", "{a\\uc99\\u8212 b\nc\nd\ne\n}", 2, "a");
        add("most, any byte", "{a\\uc2147483647\\u8212 bcx}", 2, "a");
        add("most, escape", "{a\\uc2147483647\\u8212\\'97bcx}", 2, "a");
        add("four times wraps no more", "{a\\uc1073741825\\u8212\\'97bcx}", 2, "a");
        add("most, without a group", "\\uc2000000000\\u65 tail", 0, QString());
        add("end of the input", "{a\\u8212", 2, "a");
        add("backslash at the end", "{a\\uc0\\u8212\\", 7, "a" + dash);
        add("without a number", "{\\u axy}", 0, "?xy");
        add("the count is restored with the group", "{{\\uc0\\u8212 a}\\u8212 ax}", 0,
            dash + "a" + dash + "x");
        add("the count is handed down to groups", "{\\uc0{\\u8212 a}x}", 0, dash + "ax");

        // Bytes of code pages.
        add("1252 by default", "{\\'e4\\'80}", 0, "ä€");
        add("upper case digits", "{\\'E4\\'eF}", 0, "äï");
        add("ASCII", "{\\'41\\'7b\\'5c}", 0, "A{\\");
        add("0x98", "{\\'98}", 0, QString(QChar(0x20DC)));
        add("a byte without a character", "{a\\'81b}", 0, "a" + QString(QChar(0)) + "b");
        add("1252 named", "{\\ansicpg1252\\'e4}", 0, "ä");
        add("1251 named", "{\\ansicpg1251\\'e4\\'e5 x}", 0, "?? x");
        add("932 named", "{\\ansicpg932\\'82\\'a0 x}", 0, "?? x");
        add("no number is 1252", "{\\ansicpg1251\\ansicpg\\'e4}", 0, "ä");
        add("0 is 1252", "{\\ansicpg1251\\ansicpg0\\'e4}", 0, "ä");
        add("negative is 1252", "{\\ansicpg1251\\ansicpg-1\\'e4}", 0, "ä");
        add("1 is another code page", "{\\ansicpg1\\'e4}", 0, "?");
        add("raw bytes are not of the code page", "{\\ansicpg1251\xE4}", 0, "ä");

        const QByteArray fonts = "{\\fonttbl{\\f0 Quibble Sans;}{\\f1\\fcharset204 Quibble Serif;}"
                                 "{\\f2\\cpg1251 Quibble Mono;}{\\f3\\fcharset0 Quibble Tall;}}";
        add("charset of the font", "{" + fonts + "\\f1\\'e4}", 0, "?");
        add("code page of the font", "{" + fonts + "\\f2\\'e4}", 0, "?");
        add("font before document", "{\\ansicpg1251" + fonts + "\\f3\\'e4}", 0, "ä");
        add("document where the font says nothing", "{\\ansicpg1251" + fonts + "\\f3\\'e4\\f0\\'e4}", 0,
            "ä?");
        add("unknown font changes nothing", "{" + fonts + "\\f1\\f9\\'e4}", 0, "?");
        add("font table resets the code page", "{\\f7" + fonts + "\\'e9}", 0, "é");
        add("plain resets the code page", "{" + fonts + "\\f1\\'e9\\plain\\'e9}", 0, "?é");
        add("groups restore the code page", "{" + fonts + "\\'e9{\\f1\\'e9}\\'e9}", 0, "é?é");
        add("groups restore that of another font", "{" + fonts + "\\f1\\'e9{\\f0\\'e9}\\'e9}", 0, "?é?");
        add("charset outside the font table", "{" + fonts + "\\f0\\fcharset204\\'e4\\f0\\'e4}", 0, "ää");
        add("code page outside the font table", "{" + fonts + "\\f0\\cpg1251\\'e4\\f0\\'e4}", 0, "ää");

        // Escapes that are none.
        add("bad escape: no digits", "{a\\'zzb}", 9, "azzb");
        add("bad escape: second no digit", "{a\\'4zb}", 9, "a4zb");
        add("bad escape: first no digit", "{a\\'z4b}", 9, "az4b");
        add("bad escape: space", "{a\\' 41b}", 9, "a 41b");
        add("bad escape: line end", "{a\\'4\n1b}", 9, "a41b");
        add("bad escape: sign", "{a\\'+4b}", 9, "a+4b");
        add("bad escape: brace", "{a\\'4{}b}", 9, "a4b");
        add("bad escape: other code page", "{a\\ansicpg1251\\'zzb}", 9, "azzb");

        // Binary data.
        add("taken", "{a\\bin3 bcdx}", 0, "ax");
        add("braces and backslashes", "{a\\bin5 {\\}}\\x}", 0, "ax");
        add("NUL bytes", QByteArray("{a\\bin3 \0\0\0x}", 13), 0, "ax");
        add("0", "{a\\bin0 bx}", 0, "abx");
        add("no number", "{a\\bin bx}", 0, "abx");
        add("negative", "{a\\bin-3 bx}", 0, "abx");
        add("as many bytes as are left", "{a\\bin3 bx}", 9, "abx");
        add("one byte more is left", "{a\\bin2 bx}", 0, "a");
        add("more than is left", "{a\\bin4 bx}", 9, "abx");
        add("far more than is left", "{a\\bin2147483647 bx}", 9, "abx");
        add("nothing left", "{a\\bin1", 9, "a");

        // Binary data within the look ahead.
        // The first refill holds 255 bytes and the one for the data at most 1023 more; ten of these bytes are
        // the brace and the word, and one byte has to follow the data.
        add("largest", "{\\bin1267 " + QByteArray(1267, 'a') + "}", 0, QString());
        add("one too large", "{\\bin1268 " + QByteArray(1268, 'a') + "}", 9, QString(1268, QLatin1Char('a')));
        // Each refill ends with a line: one for the brace, one for the word and one for the data.
        add("three lines", "{\\bin5 a\nb\ncx}", 0, "x");
        add("end of the third line", "{\\bin5 a\nb\nc\nx}", 0, "x");
        add("four lines", "{\\bin6 a\nb\nc\ndx}", 9, "abcdx");
    }

    ORV_ROWS(controlWords)
    {
        const Rows add([](const QByteArray& body, int status, const QString& text) {
            const Reading reading = readBody(body);
            QCOMPARE(reading.status, status);
            QCOMPARE(reading.text(), text);
        });
        add("space ends a word and vanishes", "a\\b b", 0, "ab");
        add("only one space vanishes", "a\\b  b", 0, "a b");
        add("space after a parameter vanishes", "a\\b0 b", 0, "ab");
        add("other bytes end a word and stay", "a\\b;b", 0, "a;b");
        add("a symbol takes no space", "a\\{ b", 0, "a{ b");
        add("a symbol takes no digits", "a\\{1", 0, "a{1");
        add("an escape takes no space", "a\\'e9 b", 0, "aé b");
        add("unknown word", "a\\unknown b", 0, "ab");
        add("unknown word with a parameter", "a\\unknown-12 b", 0, "ab");
        add("unknown word opens nothing", "a{\\unknown b}c", 0, "abc");
        add("unknown symbol", "a\\|b", 0, "ab");
        add("a digit makes a symbol", "a\\1b", 0, "ab");
        add("a byte above 0x7F makes a symbol", "a\\\xE9\xE9", 0, "aé");
        add("a byte above 0x7F ends a word", "a\\b\xE9", 0, "aé");
        add("upper case is another word", "a\\PAR b", 0, "ab");
        add("62 letters", "a" + unknownWord(62) + " b", 0, "ab");
        add("63 letters", "a" + unknownWord(63) + " b", 8, "a" + QString(63, QLatin1Char('q')) + " b");
        add("64 letters", "a" + unknownWord(64) + " b", 8, "a" + QString(64, QLatin1Char('q')) + " b");
        add("300 letters", "a" + unknownWord(300) + " b", 8, "a" + QString(300, QLatin1Char('q')) + " b");

        // Units of UTF-16.
        add("unit ASCII", "a\\u65?b", 0, "aAb");
        add("unit euro sign", "a\\u8364?b", 0, "a€b");
        add("unit negative", "a\\u-4064?b", 0, "a\uF020b");
        add("unit -1", "a\\u-1?b", 0, "a\uFFFFb");
        add("unit above 32767", "a\\u61472?b", 0, "a\uF020b");
        add("unit 65536 wraps", "a\\u65601?b", 0, "aAb");
        add("unit surrogates", "a\\u55357?\\u56832?b", 0, "a\U0001F600b");
        add("unit negative surrogates", "a\\u-10179?\\u-8704?b", 0, "a\U0001F600b");
        add("unit 0", "a\\u0?b", 0, "a" + QString(QChar(0)) + "b");

        // Line ends.
        add("line feed", "a\nb", 0, "ab");
        add("carriage return", "a\rb", 0, "ab");
        add("both", "a\r\n\r\nb", 0, "ab");
        add("ends a word", "a\\b\nb", 0, "ab");
        add("ends a parameter", "a\\b0\r\nb", 0, "ab");
        add("the space on the next line is text", "a\\b\n b", 0, "a b");
        add("a word is not continued", "a\\pa\nrb", 0, "arb");
        add("escaped line feed is a paragraph end", "a\\\nb", 0, "a\nb");
        add("escaped carriage return is nothing", "a\\\rb", 0, "ab");
        add("escaped CR LF is nothing", "a\\\r\nb", 0, "ab");
        add("not even inside a skipped group", "a{\\*\\unknown\n b\r\n\\\n}c", 0, "ac");

        // Ends of paragraphs.
        add("one paragraph end", "a\\par b", 0, "a\nb");
        add("paragraph end as a symbol", "a\\\nb", 0, "a\nb");
        add("last paragraph end", "a\\par", 0, "a\n");
        add("first paragraph end", "\\par a", 0, "\na");
        add("only a paragraph end", "\\par", 0, "\n");
        add("several paragraph ends", "a\\par\\par\\par b", 0, "a\n\n\nb");
        add("parameters of a paragraph end do not count", "a\\par0 b", 0, "a\nb");
        add("paragraph end in groups", "{a{\\par}b}", 0, "a\nb");
        add("paragraph end in a note", "a{\\footnote b\\par c}d", 0, "ab\ncd");
        add("reset is no end", "a\\pard b", 0, "ab");
        add("encoded line feed", "a\\'0ab", 0, "a\nb");

        QByteArray lines, pieces;
        QString lineTexts, pieceTexts;
        for (int i = 0; i < 1500; ++i) {
            lines += "line " + QByteArray::number(i) + "\\par\n";
            lineTexts += "line %1\n"_s.arg(i);
            pieces += QByteArray(i % 7, 'x') + "\\u8212?{\\b0 y}\\'e9";
            pieceTexts += QString(i % 7, QLatin1Char('x')) + QChar(0x2014) + "y" + QChar(0xE9);
        }
        add("many lines", lines, 0, lineTexts);
        // Words at every position relative to the limits of the buffer.
        add("one long line", pieces, 0, pieceTexts);

        // Ignorable destinations.
        add("unknown", "a{\\*\\unknown b}c", 0, "ac");
        add("nested groups", "a{\\*\\unknown {b}c{d{e}}f}g", 0, "ag");
        add("known word", "a{\\*\\b b}c", 0, "abc");
        add("known word clears the mark", "a{\\*\\b\\unknown b}c", 0, "abc");
        add("mark twice", "a{\\*\\*\\unknown b}c", 0, "ac");
        add("text between", "a{\\*b\\unknown c}d", 0, "abd");
        add("group between: the inner one is skipped", "a{\\*{\\unknown b}c}d", 0, "acd");
        add("unknown symbol after the mark", "a{\\*\\|b}c", 0, "ac");
        add("words have no effect", "a{\\*\\unknown\\par\\tab}b", 0, "ab");
        add("escaped braces do not count", "a{\\*\\unknown \\{b\\}}c", 0, "ac");
        add("bad escapes are not looked at", "a{\\*\\unknown \\'zz}b", 0, "ab");
        // These braces close more groups than are open.
        add("binary data is not looked at", "a{\\*\\unknown \\bin3 }}}b", 1, "ab");
        add("text before the mark stays", "a{b\\*\\unknown c}d", 0, "abd");
        add("one after the other", "a{\\*\\unknown b}{\\*\\unknown c}d", 0, "ad");
    }

    ORV_ROWS(parameters)
    {
        const Rows add([](const QByteArray& body, double pointSize, const QString& text) {
            const Reading reading = readBody(body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), text);
            QCOMPARE(reading.format(text).doubleProperty(QTextFormat::FontPointSize), pointSize);
        });
        // \fs N is N / 2 points, and 10 points up to 2.
        const QByteArray zeros(60, '0');
        add("plain", "\\fs24 x", 12.0, "x");
        add("none", "\\fs x", 10.0, "x");
        add("a letter follows", "\\fs24x", 12.0, "x");
        add("leading zeros", "\\fs0024 x", 12.0, "x");
        add("a plus sign is text", "\\fs+24 x", 10.0, "+24 x");
        add("a space ends the word", "\\fs 24 x", 10.0, "24 x");
        add("negative", "\\fs-24 x", 10.0, "x");
        add("sign without digits", "\\fs-x", 10.0, "x");
        add("sign and space", "\\fs- x", 10.0, "x");
        add("two signs", "\\fs--24 x", 10.0, "-24 x");
        add("wraps at 32 bits", "\\fs4294967320 x", 12.0, "x");
        add("negative wraps to positive", "\\fs-4294967272 x", 12.0, "x");
        add("digits end at 64 bytes", "\\fs" + zeros + "24 x", 10.0, "4 x");
        add("digits up to 64 bytes", "\\fs" + zeros.mid(1) + "24 x", 12.0, "x");
        add("sign as byte 64", "\\fs24" + unknownWord(62) + "-5 x", 12.0, "5 x");
        add("space after a sign as byte 64", "\\fs24" + unknownWord(62) + "- x", 12.0, "x");
        add("digits after byte 64 are text", "\\fs24" + unknownWord(60) + "123456 x", 12.0, "456 x");
    }

    // Grey-scale pictures in their plain binary form: a header that is text, then one byte a pixel.
    ORV_ROWS(hexadecimalData)
    {
        const Rows add([](int width, const QByteArray& digits, const QByteArray& pixels) {
            const QByteArray header = "P5 " + QByteArray::number(width) + " 1 255 ";
            const Reading reading = readBody("{\\pict\\wmetafile8 " + header.toHex() + digits + "}");
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.images().size(), 1);
            const QImage image = reading.picture(reading.images().first());
            QCOMPARE(image.size(), QSize(width, 1));
            for (int x = 0; x < width; ++x)
                QCOMPARE(qGray(image.pixel(x, 0)), int(uchar(pixels.at(x))));
        });
        add("one run", 2, "0a41", "\x0a\x41");
        add("upper case", 2, "0AfF", "\x0a\xff");
        add("spaces between bytes", 2, "0a 41", "\x0a\x41");
        add("line ends between bytes", 2, "0a\r\n41\n", "\x0a\x41");
        add("other bytes between bytes", 2, "0a,xyz-41;", "\x0a\x41");
        add("an odd run is padded in front", 2, " abc", "\x0a\xbc");
        add("a line end ends a run", 2, " a\nb", "\x0a\x0b");
        add("a run ends after 1024 digits", 513, " " + "5a"_b.repeated(512) + "d",
            QByteArray(512, 0x5A) + "\x0d");
        add("a space ends a run", 3, " a b 1c", "\x0a\x0b\x1c");
    }
};

ORV_TEST("tokenizer", TestTokenizer, QGuiApplication)
#include "tokenizer.moc"
