#include "interchangehelpers.h"
#include "testsupport.h"

using namespace rtftest;

/*! Which text of a file is shown. */
class TestInterchangeSyntax : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(texts)
    {
        const Rows add([](const QByteArray& body, const QString& text) {
            const Reading reading = importBody(body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), text);
        });
        // The fallback of a Unicode character is counted in characters.
        add("one character", "\\u946 ?x", "βx");
        add("none", "\\uc0\\u946 x", "βx");
        add("two characters", "\\uc2\\u946 ??x", "βx");
        add("two in two pieces", "\\uc2\\u946 ?\n?x", "βx");
        add("escaped byte", "\\u946\\'62x", "βx");
        add("two escaped bytes", "\\uc2\\u946\\'82\\'d5x", "βx");
        add("escaped byte and character", "\\uc2\\u946\\'82?x", "βx");
        add("control symbol", "\\u946\\~x", "βx");
        add("control word", "\\u946\\emdash x", "βx");
        add("ends at a brace", "\\uc3\\u946 ?{x}y", "βxy");
        add("ends with the group", "{\\uc3\\u946 ?}xyz", "βxyz");
        add("ends at the next Unicode character", "\\u946\\u947 ?x", "βγx");
        add("ends with an opening group", "\\uc2\\u946 ?{\\b ?}x", "β?x");
        add("bytes of one character", "\\ansicpg932\\uc2\\u26085 \x93\xfax", "日x");
        add("two control words", "\\uc2\\u946\\emdash\\fs99 x", "βx");
        add("escaped sign", "\\u946\\{x", "βx");
        add("on the next line", "\\u946\r\n?x", "βx");
        add("negative count", "\\uc-1\\u946 x", "βx");
        add("the count ends with its group", "{\\uc0\\u946 }\\u946 ?x", "ββx");
        add("surrogates in groups", "{\\u-10179 ?}\\b\\u-8704 ?", "😀");
        add("more than 16 bits", "\\u128512 ?\\u1114112 ?x", "😀\ufffdx");
        add("surrogates", "\\u-10179 ?\\u-8704 ?", "😀");
        add("binary data", "\\u946\\bin3 abcx", "βx");

        // Binary data count wherever they stand.
        add("data in the text", "a\\bin3 {}}b", "ab");
        add("data in a skipped group", "{\\*\\unknown\\bin3 }}}}b", "b");
        add("data longer than the look-ahead", "{\\*\\unknown\\bin5000 " + QByteArray(5000, '}') + "}b", "b");
        add("no data", "a\\bin0 b\\bin c\\bin-4 d", "abcd");
        add("data and a character", "\\uc2\\u946\\bin3 }}}?x", "βx");
        add("data in a font's name", "{\\fonttbl{\\f1 A\\bin2 }};}}x", "x");

        // Ends of paragraphs.
        add("backslash and line feed", "a\\\nb", "a\nb");
        add("backslash and carriage return", "a\\\rb", "a\nb");
        add("backslash and both", "a\\\r\nb", "a\nb");
        add("two in a row", "a\\\r\n\\\r\nb", "a\n\nb");
        add("line feed without a backslash", "a\nb\r\nc", "abc");
        add("section", "a\\sect b", "a\nb");
        add("column", "a\\column b", "a\nb");

        // Characters.
        add("optional hyphen", "a\\-b", "a\u00adb");
        add("non-breaking hyphen", "a\\_b", "a\u2011b");
        add("spaces", "\\emspace\\enspace\\qmspace x", "\u2003\u2002\u2005x");
        add("joiners", "\\zwj\\zwnj\\zwbo\\zwnbo x", "\u200d\u200c\u200b\u2060x");
        add("marks of direction", "\\ltrmark\\rtlmark x", "\u200e\u200fx");

        // What is not shown.
        add("hidden text", "a{\\v b}c\\v d\\v0 e", "ace");
        add("hidden text until it is plain", "a\\v b\\plain c", "ac");
        add("hidden paragraph", "a\\par{\\v b\\par}c", "a\nc");
        add("end of a paragraph that is partly hidden", "a{\\v b\\par}c", "a\nc");
        add("hidden or not, in turn", "a{\\v1 b{\\v0 c}d}e", "ace");
        add("hidden characters", "a{\\v\\tab\\line\\u946 ?\\'e4}b", "ab");
        add("hidden page", "a{\\v\\page}b\\page{\\v c\\par}d", "ab\nd");
        add("hidden link", "a{\\v{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt b}}}c", "ac");
        add("hidden symbol", "a{\\v{\\field{\\*\\fldinst SYMBOL 65}{\\fldrslt}}}b", "ab");
        add("hidden note", "a{\\v{\\footnote b}}c", "ac");
        add("hidden row", "{\\v\\trowd\\cellx900\\cellx1800 a\\cell b\\cell\\row}\\pard c", "\n\n\nc");
        add("hidden paragraph in a cell", "\\trowd\\cellx9 a\\par{\\v b\\par}c\\cell\\row\\pard d",
            "\na\nc\nd");
        add("deleted whatever is hidden", "a{\\deleted b\\v c\\v0 d\\deleted0 e}f", "aef");
        add("deleted text", "a{\\deleted b}c", "ac");
        add("inserted text", "a{\\revised b}c", "abc");
        add("index entry", "a{\\xe b{\\*\\rxe c}{\\txe d}{\\bxe e}}f", "af");
        add("entry of contents", "a{\\tc b}c", "ac");
        add("separators of notes", "{\\ftnsep a}{\\*\\ftnsepc b}{\\*\\aftnsep c}{\\*\\aftnsepc d}e", "e");
        add("notices of continued notes", "{\\ftncn a}{\\*\\aftncn b}{\\aftncn c}d", "d");
        add("paragraphs where no text is",
            "a{\\fonttbl\\par}{\\*\\listtable\\cell}{\\info\\page}{\\field{\\*\\fldinst x\\par "
            "y\\row}{\\fldrslt b}}",
            "ab");
        add("paragraphs of a field", "{\\field{\\*\\fldinst x}{\\fldrslt a\\par b}\\par}c", "a\nb\nc");
        add("private data", "{\\private a}b", "b");
        add("result of a field that another one uses",
            "{\\field{\\*\\fldinst IF {\\field{\\*\\fldinst MERGEFIELD a}{\\fldrslt b}} = c}{\\fldrslt d}}",
            "d");
    }

    void textBehindTheLastWordIsDrawn()
    {
        QCOMPARE(import("{\\rtf1 a\\par b").text(), "a\nb"_s);
        QCOMPARE(import("{\\rtf1 a{\\b b\\u946 ?c").text(), "abβc"_s);
        QCOMPARE(import("\\rtf1 a").text(), "a"_s);
        QCOMPARE(import("{\\rtf1 a\\bin2000000000 b").text(), "a"_s);
    }

    void textBehindTheDocumentIsNotDrawn()
    {
        QCOMPARE(import(QByteArray("{\\rtf1 a}\r\n\0", 13)).text(), "a"_s);
    }

    ORV_ROWS(paragraphFormatsEndWithTheirGroup)
    {
        const Rows add([](const QByteArray& body, const QString& alignments) {
            const Reading reading = importBody(body);
            QString found;
            for (QTextBlock block = reading.document->begin(); block.isValid(); block = block.next())
                found +=
                    block.blockFormat().alignment() == Qt::AlignHCenter ? QLatin1Char('c') : QLatin1Char('l');
            QCOMPARE(found, alignments);
        });
        add("a paragraph in a group", "{\\qc a\\par}b\\par", "cll");
        add("the paragraph goes on behind the group", "{\\qc a}b\\par c", "cl");
        add("groups in groups", "\\qc{\\pard a\\par{\\qc b\\par}c\\par}d", "lclc");
        add("no group", "\\qc a\\par b", "cc");
    }
};

ORV_TEST("interchange_syntax", TestInterchangeSyntax, QGuiApplication)
#include "syntax.moc"
