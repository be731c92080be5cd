#include "ORVTextListFormat.h"
#include "interchangehelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

/*! Text by the code points of its characters, in hexadecimal and separated by blanks. */
QString characters(const QByteArray& codePoints)
{
    QString text;
    for (const QByteArray& codePoint : codePoints.split(' ')) {
        const char32_t character = codePoint.toUInt(nullptr, 16);
        text += QString::fromUcs4(&character, 1);
    }
    return text;
}

/*! Bytes by their values, each escaped. */
QByteArray escaped(const QByteArray& bytes)
{
    QByteArray words;
    for (const QByteArray& byte : bytes.split(' '))
        words += "\\'" + byte;
    return words;
}

QByteArray fonts(const QByteArray& entries)
{
    return "{\\fonttbl" + entries + "}";
}

} // namespace

/*! Which characters bytes are. */
class TestInterchangeEncoding : public QObject {
    Q_OBJECT

private slots:
    /*! The first byte above ASCII, one in the middle, and the last one that has a character. */
    ORV_ROWS(codePages)
    {
        const Rows add([](int codePage, const QByteArray& bytes, const QByteArray& codePoints) {
            const QByteArray page = "\\ansicpg" + QByteArray::number(codePage) + ' ';
            QCOMPARE(importedText(page + escaped(bytes)), characters(codePoints));
            QCOMPARE(importedText(page + QByteArray::fromHex(bytes)), characters(codePoints));
        });
        add("DOS, United States", 437, "80 e4 ff", "C7 3A3 A0");
        add("DOS, Arabic of Windows", 720, "82 e4 ff", "E9 63A A0");
        add("DOS, Greek of Windows", 737, "80 e4 ff", "391 3CA A0");
        add("DOS, Baltic", 775, "80 e4 ff", "106 F5 A0");
        add("DOS, Western Europe", 850, "80 e4 ff", "C7 F5 A0");
        add("DOS, Central Europe", 852, "80 e4 ff", "C7 144 A0");
        add("DOS, Cyrillic", 855, "80 e4 ff", "452 421 A0");
        add("DOS, Turkish", 857, "80 e4 ff", "C7 F5 A0");
        add("DOS, Portuguese", 860, "80 e4 ff", "C7 3A3 A0");
        add("DOS, Icelandic", 861, "80 8d ff", "C7 DE A0");
        add("DOS, Hebrew", 862, "80 e4 ff", "5D0 3A3 A0");
        add("DOS, Canadian French", 863, "80 8e ff", "C7 C0 A0");
        add("DOS, Arabic", 864, "80 e4 fe", "B0 FEDF 25A0");
        add("DOS, Nordic", 865, "80 9d ff", "C7 D8 A0");
        add("DOS, Russian", 866, "80 e4 ff", "410 444 A0");
        add("Thai", 874, "80 e4 fb", "20AC E44 E5B");
        add("Central Europe", 1250, "80 e4 ff", "20AC E4 2D9");
        add("Cyrillic", 1251, "80 e4 ff", "402 434 44F");
        add("Western Europe", 1252, "80 98 ff", "20AC 2DC FF");
        add("Greek", 1253, "80 e4 fe", "20AC 3B4 3CE");
        add("Turkish", 1254, "80 f0 ff", "20AC 11F FF");
        add("Hebrew", 1255, "80 e4 fe", "20AC 5D4 200F");
        add("Arabic", 1256, "80 e4 ff", "20AC 646 6D2");
        add("Baltic", 1257, "80 e0 ff", "20AC 105 2D9");
        add("Vietnamese", 1258, "80 f0 ff", "20AC 111 FF");
        add("Macintosh", 10000, "80 a5 ff", "C4 2022 2C7");
        add("Macintosh, Greek", 10006, "80 e4 fe", "C4 3B4 3B0");
        add("Macintosh, Cyrillic", 10007, "80 e4 ff", "410 434 20AC");
        add("Macintosh, Central Europe", 10029, "80 e4 ff", "C4 161 2C7");
        add("Macintosh, Turkish", 10081, "80 da ff", "C4 11E 2C7");
        add("Macintosh, Thai: that of Windows", 10021, "a1 fb", "E01 E5B");
        add("Macintosh, Arabic: that of Windows", 10004, "80 e4 ff", "20AC 646 6D2");
        add("Macintosh, Hebrew: that of Windows", 10005, "80 e4 fe", "20AC 5D4 200F");
        add("Arabic of DOS: ISO 8859-6", 708, "a0 c7 f2", "A0 627 652");
        add("Japanese", 932, "81 40 83 41 fc 4b b1", "3000 30A2 9ED1 FF71");
        add("Japanese, half as wide", 932, "a1 df", "FF61 FF9F");
        add("Japanese of the Macintosh", 10001, "93 fa", "65E5");
        add("Simplified Chinese", 936, "81 40 d6 d0 fe 4f", "4E02 4E2D FA29");
        add("Simplified Chinese of the Macintosh", 10008, "d6 d0", "4E2D");
        add("Korean", 949, "b0 a1 c8 fe", "AC00 D79D");
        add("Korean of the Macintosh", 10003, "b0 a1", "AC00");
        add("Traditional Chinese", 950, "a4 a4 f9 d5", "4E2D 9F98");
        add("Traditional Chinese of the Macintosh", 10002, "a4 a4", "4E2D");
        add("UTF-8", 65001, "c3 9f e2 82 ac f0 9f 98 80", "DF 20AC 1F600");
        add("unknown number: Western Europe", 4711, "80", "20AC");
        add("no number: Western Europe", 0, "80", "20AC");
    }

    /*! What the page of text follows from; byte E4 tells the pages apart. */
    ORV_ROWS(pageInForce)
    {
        const Rows add([](const QByteArray& before, const QByteArray& codePoint) {
            QCOMPARE(importedText(before + "\\'e4"), characters(codePoint));
        });
        add("nothing stated", "", "E4");
        add("page of the document", "\\ansicpg1251 ", "434");
        add("Macintosh", "\\mac ", "2030");
        add("PC", "\\pc ", "3A3");
        add("PS/2", "\\pca ", "F5");
        add("number before the system", "\\ansicpg1251\\mac ", "434");
        add("number behind the system", "\\mac\\ansicpg1251 ", "434");
        add("character set of the font", fonts("{\\f0\\fcharset204 A;}") + "\\f0 ", "434");
        add("character set 0", "\\ansicpg1251" + fonts("{\\f0\\fcharset0 A;}") + "\\f0 ", "E4");
        add("character set 1 says nothing", "\\ansicpg1251" + fonts("{\\f0\\fcharset1 A;}") + "\\f0 ", "434");
        add("unknown character set says nothing", "\\ansicpg1251" + fonts("{\\f0\\fcharset99 A;}") + "\\f0 ",
            "434");
        add("font that says nothing, beside the default one",
            "\\ansicpg1251" + fonts("{\\f0\\fcharset161 A;}{\\f1 B;}") + "\\f1 ", "434");
        add("font that is not in the table", "\\ansicpg1251" + fonts("{\\f0\\fcharset161 A;}") + "\\f9 ",
            "434");
        add("character set of the Macintosh", fonts("{\\f0\\fcharset77 A;}") + "\\f0 ", "2030");
        add("character set of the PC", fonts("{\\f0\\fcharset254 A;}") + "\\f0 ", "3A3");
        add("fonts without groups", fonts("\\f0\\fcharset161 A;\\f1\\fcharset204 B;") + "\\f1 ", "434");
        add("page of the font", fonts("{\\f0\\fcharset204\\cpg1253 A;}") + "\\f0 ", "3B4");
        add("page of the font before its character set", fonts("{\\f0\\cpg1253\\fcharset204 A;}") + "\\f0 ",
            "3B4");
        add("unknown page of the font", fonts("{\\f0\\fcharset204\\cpg4711 A;}") + "\\f0 ", "434");
        add("Cyrillic by name", fonts("{\\f0 Arial Cyr;}") + "\\f0 ", "434");
        add("Central European by name", "\\ansicpg1251" + fonts("{\\f0 Arial CE;}") + "\\f0 ", "E4");
        add("Greek by name", fonts("{\\f0 Arial Greek;}") + "\\f0 ", "3B4");
        add("Turkish by name", "\\ansicpg1251" + fonts("{\\f0 Arial Tur;}") + "\\f0 ", "E4");
        add("Baltic by name", "\\ansicpg1251" + fonts("{\\f0 Arial Baltic;}") + "\\f0 ", "E4");
        add("Hebrew by name", fonts("{\\f0 Arial (Hebrew);}") + "\\f0 ", "5D4");
        add("Arabic by name", fonts("{\\f0 Arial (Arabic);}") + "\\f0 ", "646");
        add("Vietnamese by name", "\\ansicpg1251" + fonts("{\\f0 Arial (Vietnamese);}") + "\\f0 ", "E4");
        add("Thai by name", fonts("{\\f0 Arial (Thai);}") + "\\f0 ", "E44");
        add("name before the page of the document", "\\ansicpg1251" + fonts("{\\f0 Arial Greek;}") + "\\f0 ",
            "3B4");
        add("name where the character set says nothing", fonts("{\\f0\\fcharset1 Arial Cyr;}") + "\\f0 ",
            "434");
        add("not at the end of the name", "\\ansicpg1251" + fonts("{\\f0 Arial Greek Bold;}") + "\\f0 ",
            "434");
        add("part of a word", "\\ansicpg1251" + fonts("{\\f0 NotGreek;}") + "\\f0 ", "434");
        add("character set before the name", fonts("{\\f0\\fcharset161 Arial Cyr;}") + "\\f0 ", "3B4");
        add("default font without a word for it", "\\deff1" + fonts("{\\f0 A;}{\\f1\\fcharset204 B;}"),
            "434");
        add("plain text has the default font",
            "\\deff1" + fonts("{\\f0\\fcharset161 A;}{\\f1\\fcharset204 B;}") + "\\f0\\plain ", "434");
        add("the group of the font has ended", fonts("{\\f0 A;}{\\f1\\fcharset204 B;}") + "{\\f1 x}\\b ",
            "78 E4");
        add("words for kinds of characters change nothing",
            fonts("{\\f0 A;}{\\f1\\fcharset204 B;}") + "\\f1\\loch\\hich\\dbch\\af0 ", "434");
    }

    /*! A character whose bytes are apart: 93 FA of page 932 is one. */
    ORV_ROWS(splitCharacters)
    {
        const Rows add([](const QByteArray& body, const QByteArray& codePoints) {
            const Reading reading = importBody(
                "\\ansicpg932"
                + fonts("{\\f0\\fcharset128 A;}{\\f1\\fcharset0 B;}{\\f2\\fcharset128 C;}{\\f3\\cpg65001 D;}")
                + "\\f0 " + body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), characters(codePoints));
        });
        add("in one word each", "\\'93\\'fa", "65E5");
        add("on two lines", "\\'93\r\n\\'fa", "65E5");
        add("raw", "\x93\xfa", "65E5");
        add("escaped and raw", "\\'93\xfa", "65E5");
        add("trail byte is a letter", "\\'83A", "30A2");
        add("trail byte is a backslash", "\\'83\\\\", "30BD");
        add("trail byte is an opening brace", "\\'83\\{", "30DC");
        add("trail byte is a closing brace", "\\'83\\}", "30DE");
        add("a brace between", "\\'93{\\'fa}", "65E5");
        add("the group ends between", "{\\'93}\\'fa", "65E5");
        add("formats between", "\\'93\\b\\i0\\fs30\\cf1 \\'fa", "65E5");
        add("a font of the same page between", "\\'93\\f2 \\'fa", "65E5");
        add("a font of another page, for nothing", "\\'93{\\f1}\\'fa", "65E5");
        add("data between", "\\'93\\bin2 ab\\'fa", "65E5");
        add("skipped group between", "\\'93{\\*\\unknown \\'41}\\'fa", "65E5");
        add("paragraph end between", "\\'93\\par\\'93\\'fa", "FFFD A 65E5");
        add("tab between", "\\'93\\tab\\'93\\'fa", "FFFD 9 65E5");
        add("section end between", "\\'93\\sect\\'93\\'fa", "FFFD A 65E5");
        add("line end of text between", "\\'93\\\n\\'93\\'fa", "FFFD A 65E5");
        add("line break between", "\\'93\\line\\'93\\'fa", "FFFD 2028 65E5");
        add("space between", "\\'93\\emspace\\'93\\'fa", "FFFD 2003 65E5");
        add("hyphen between", "\\'93\\_\\'93\\'fa", "FFFD 2011 65E5");
        add("cell between", "\\trowd\\cellx9\\intbl\\'93\\cell\\row\\pard\\'93\\'fa", "A FFFD A 65E5");
        const std::pair<const char*, const char*> characters[] = {
            {"\\~", "A0"},           {"\\endash", "2013"},    {"\\emdash", "2014"},
            {"\\bullet", "2022"},    {"\\lquote", "2018"},    {"\\rquote", "2019"},
            {"\\ldblquote", "201C"}, {"\\rdblquote", "201D"}, {"\\page", "A"}};
        for (const auto& [word, character] : characters)
            add(QByteArray(word) + " between", "\\'93" + QByteArray(word) + "\\'93\\'fa",
                "FFFD " + QByteArray(character) + " 65E5");
        add("end of a row between", "\\trowd\\cellx9\\intbl x\\cell\\'93\\row\\pard\\'93\\'fa",
            "A 78 A FFFD A 65E5");
        add("end of a nested cell and row between",
            "\\trowd\\cellx9\\intbl\\itap2\\'93\\nestcell\\'93\\nestrow\\cell\\row\\pard\\'93\\'fa",
            "A A FFFD A FFFD A A 65E5");
        add("longer than need be", "\\f3\\'e0\\'80\\'81x", "FFFD 78");
        add("surrogate", "\\f3\\'ed\\'a0\\'80x", "FFFD 78");
        add("beyond the last character", "\\f3\\'f4\\'90\\'80\\'80x", "FFFD 78");
        add("first byte of no character", "\\f3\\'ff\\'80x", "FFFD FFFD 78");
        add("no digits behind an escaped byte", "\\'41\\b", "41");
        add("Unicode between", "\\'93\\u65 ?\\'93\\'fa", "FFFD 41 65E5");
        add("another page between", "\\'93\\f1 x", "FFFD 78");
        add("the group of another page ends", "\\f1{\\f0\\'93}x", "FFFD 78");
        add("four bytes in groups", "\\f3\\'f0{\\'9f}{\\b\\'98}\\'80", "1F600");
        add("three raw bytes on lines", "\\f3\xe2\n\x82\r\n\xac", "20AC");
        add("too few of four bytes", "\\f3\\'f0\\'9f x", "FFFD 20 78");
        add("no trail byte", "\\'93 x", "FFFD 20 78");
        add("end of the input", "x\\'93", "78 FFFD");
    }

    /*! More than is decoded together, and than is buffered. */
    void longRun()
    {
        const int count = 5000;
        QCOMPARE(importedText("\\ansicpg932 x" + QByteArray("\\'93\\'fa").repeated(count)),
                 'x' + QString(count, QChar(0x65E5)));
    }

    void lastCharacterOfCutInput()
    {
        QCOMPARE(import("{\\rtf1\\ansicpg932 x{\\'93").text(), characters("78 FFFD"));
    }

    ORV_ROWS(fontNames)
    {
        const Rows add([](const QByteArray& font, const QByteArray& codePoints) {
            const Reading reading =
                importBody("\\ansicpg1253" + fonts("{\\f0" + font + ";}{\\f1 B;}") + "\\f0 text\\f1 y");
            QCOMPARE(compat::fontFamily(reading.format("text"_s)), characters(codePoints));
            QCOMPARE(compat::fontFamily(reading.format("y"_s)), "B"_s);
        });
        add("page of the font", "\\fcharset204 \\'c0\\'e4", "410 434");
        add("page of the document", " \\'e4", "3B4");
        add("raw bytes", "\\fcharset128 \x96\xbe", "660E");
        add("trail byte is a brace", "\\fcharset128 \\'83\\}A", "30DE 41");
        add("no trail byte", "\\fcharset128 A\\'83", "41 FFFD");
    }

    /*! The bytes below 0x20 of a level's text are its length and the places of numbers. */
    void levelTexts()
    {
        const Reading reading =
            importBody("\\ansicpg932{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext"
                       "\\'03\\'91\\'e6\\'00\\'8f\\'cd;}}\\listid1}}"
                       "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}\\ls1 x\\par ");
        const QTextListFormat format = reading.block(0).textList()->format();
        QCOMPARE(ORVTextListFormat::levels(format).value(0).text(), characters("7B2C 25 30 7AE0"));
    }

    void invalidCharactersAreRemovedBehindDecoding()
    {
        // 0x98 is no character of page 1250, and U+0098 of none.
        QVERIFY(!importedText("\\ansicpg1250 a\\'98b").contains(QChar(0x98)));
        QCOMPARE(importedText("a\\u152 ?b"), "ab"_s);
        // Bytes that are no characters of page 1252 and ISO 8859-6.
        QCOMPARE(importedText("a\\'81\\'8d\\'9d\x7f\\'7f\x81 b"), "a b"_s);
        QCOMPARE(importedText("\\ansicpg708 a\\'80\\'9fb"), "ab"_s);
    }
};

ORV_TEST("interchange_encoding", TestInterchangeEncoding, QGuiApplication)
#include "encoding.moc"
