#include "markdownhelpers.h"

using namespace rtftest;

namespace {

/*! The Markdown of \a text as one paragraph. */
QByteArray markdownOfText(const QString& text)
{
    return markdown(*Story().add(text).document());
}

QByteArray linkTo(const QByteArray& target, const QByteArray& text)
{
    return "{\\field{\\*\\fldinst HYPERLINK \"" + target + "\"}{\\fldrslt " + text + "}}";
}

} // namespace

/*! Paragraphs of Markdown: escapes, emphasis and links. */
class TestMarkdownText : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(escaped)
    {
        const Rows add([](const QString& text, const QByteArray& expected) {
            QCOMPARE(markdownOfText(text), expected + '\n');
        });
        for (const char* plain : {"snake_case_name",
                                  "2 * 3",
                                  "a < b > c",
                                  "AT&T",
                                  "a & b",
                                  "100 %",
                                  "(1) (a)",
                                  "x = y",
                                  "1.5 and 2.",
                                  "end.",
                                  "a-b - c",
                                  "#tag",
                                  "a # b",
                                  "C:\\Users",
                                  "~5",
                                  "a|b",
                                  "it's \"so\"",
                                  "12345678901. x",
                                  "1.x",
                                  "-x",
                                  "+1",
                                  "a! b",
                                  "$5",
                                  "x^2",
                                  "@name",
                                  "a: b",
                                  "a]b",
                                  "a____b",
                                  "a __ b",
                                  "https://example.org/a_b?c=d&e=f",
                                  "www.example.org"})
            add(plain, plain, plain);
        add("asterisks", "*a* **b**", "\\*a\\* \\*\\*b\\*\\*");
        add("underscores", "_a_ b_ (_c)", "\\_a\\_ b\\_ (\\_c)");
        add("backticks", "`a`", "\\`a\\`");
        add("backslashes", "\\* a\\", "\\\\\\* a\\\\");
        add("brackets", "[a](b) [c] ![d]", "\\[a](b) \\[c] !\\[d]");
        add("tags", "<b> </b> <!-- <?x < 1", "\\<b> \\</b> \\<!-- \\<?x < 1");
        add("character references", "&amp; &#35; &#x23; &; &amp", "\\&amp; \\&#35; \\&#x23; &; &amp");
        add("tildes", "~~a~~ ~b~", "\\~\\~a\\~\\~ \\~b\\~");
        add("heading", "# a", "\\# a");
        add("only number signs", "######", "\\######");
        add("too many number signs", "####### a", "####### a");
        add("quotation", "> a", "\\> a");
        add("bullets", "- a", "\\- a");
        add("plus", "+ a", "\\+ a");
        add("asterisk as a bullet", "* a", "\\* a");
        add("bullet alone", "-", "\\-");
        add("number", "1. a", "1\\. a");
        add("number with a parenthesis", "23) a", "23\\) a");
        add("number alone", "7.", "7\\.");
        add("thematic breaks", "---", "\\---");
        add("thematic breaks with blanks", "- - -", "\\- - -");
        add("of underscores", "___", "\\_\\_\\_");
        add("fence", "```", "\\`\\`\\`");
        add("fence of tildes", "~~~", "\\~\\~\\~");
        add("equals signs", "===", "===");
        add("second lines", "a\u2028# b\u2028- c\u2028===\u2028---\u2028| - | - |",
            "a\\\n\\# b\\\n\\- c\\\n\\===\\\n\\---\\\n\\| - | - |");
        add("blanks around lines", "    a  \u2028\tb  ", "a\\\nb");
        add("no-break spaces stay", "a\u00a0b\u00adc", "a\u00a0b\u00adc");
        add("addresses that would be damaged", "http://a.b/*x* www.a_ https://a\\*",
            "http\\://a.b/\\*x\\* www\\.a\\_ https\\://a\\\\\\*");
        add("characters that no text has", "a\u0001b\u007fc\ufffcd\u0085e\ufffef", "abcdef");
        add("zero", "a"_s + QChar(0) + "b"_s, "ab");
    }

    /*! Half a pair has no place in UTF-8, and does no harm to what is around it. */
    void surrogates()
    {
        const QByteArray text = markdownOfText("a"_s + QChar(0xd83d) + "b"_s);
        QVERIFY2(text.startsWith('a') && text.endsWith("b\n"), text.constData());
        QCOMPARE(markdownOfText("\U0001f600*"_s), "\U0001f600\\*\n"_b);
    }

    ORV_ROWS(emphasis)
    {
        const Rows add([](const QByteArray& rtf, const QByteArray& expected) {
            QCOMPARE(markdownOf(rtf), expected + '\n');
        });
        add("bold and italic", "a {\\b b} {\\i c} {\\b\\i d}", "a **b** *c **d***");
        add("within each other", "a {\\b b {\\i c}} d", "a **b *c*** d");
        add("bold within italic", "{\\i a {\\b b} c}", "*a **b** c*");
        add("other order", "{\\i a {\\b b}}{\\b  c}", "*a **b*** **c**");
        add("white space at the ends", "a{\\b  b }c", "a **b** c");
        add("only white space", "a{\\b  }b", "a b");
        add("within a word", "a{\\b b}c{\\i d}e", "a**b**c*d*e");
        add("punctuation at the ends", "a {\\b (b)}, {\\i \"c\"}.", "a **(b)**, *\"c\"*.");
        add("punctuation within a word", "a{\\i (b)}c", "a<em>(b)</em>c");
        add("bold punctuation behind a word", "word{\\b :} more", "word<strong>:</strong> more");
        add("side by side", "{\\i a}{\\b b}", "*a***b**");
        add("over line breaks", "{\\b a\\line b}", "**a\\\nb**");
        add("asterisks in it", "{\\b *a*}", "**\\*a\\***");
        add("strike-out", "a {\\strike b} c", "a ~~b~~ c");
        add("tilde beside strike-out", "~ {\\strike b}", "\\~ ~~b~~");
        add("underline and others", "{\\ul a} x{\\super 2} y{\\sub 3}",
            "<u>a</u> x<sup>2</sup> y<sub>3</sub>");
        add("bold underline", "{\\b\\ul a}", "**<u>a</u>**");
        add("code", "text of some length {\\f1 a*b} {\\b\\f1 `c} {\\f1 d``e}",
            "text of some length `a*b` **`` `c ``** ```d``e```");
        add("symbols", "{\\b \\u8364?5} a{\\b \\u8364?}b", "**\u20ac5** a<strong>\u20ac</strong>b");
        add("invisible characters", "a{\\b \\u8203?}b {\\i c\\u173?}d {\\b \\u173?e}",
            "a<strong>\u200b</strong>b <em>c\u00ad</em>d **\u00ade**");
        add("combining marks", "{\\b e\\u769?}a", "**e\u0301**a");
    }

    ORV_ROWS(links)
    {
        const Rows add([](const QByteArray& rtf, const QByteArray& expected) {
            QCOMPARE(markdownOf(rtf), expected + '\n');
        });
        const QByteArray address = "https://example.org/";
        add("link", "a " + linkTo(address + "?a=1&b=2", "here") + " b",
            "a [here](https://example.org/?a=1&b=2) b");
        add("address", linkTo(address, address), "<https://example.org/>");
        add("relative address", linkTo("a.txt", "a.txt"), "[a.txt](a.txt)");
        add("of several formats", linkTo(address, "a {\\b b} c"), "[a **b** c](https://example.org/)");
        add("in bold text", "{\\b a " + linkTo(address, "b") + " c}", "**a [b](https://example.org/) c**");
        add("bold text that ends in a link", "{\\b a }" + linkTo(address, "{\\b b} c"),
            "**a** [**b** c](https://example.org/)");
        add("underlined", linkTo(address, "{\\ul here}"), "[here](https://example.org/)");
        add("brackets", linkTo(address, "[a] b]"), "[\\[a\\] b\\]](https://example.org/)");
        add("blanks", "a" + linkTo(address, " here ") + "b", "a [here](https://example.org/) b");
        add("without text", "a" + linkTo(address, " ") + "b", "a b");
        add("behind an exclamation mark", "a!" + linkTo(address, "b"), "a\\![b](https://example.org/)");
        add("parentheses", linkTo("a(b).txt", "x"), "[x](<a(b).txt>)");
        add("blank in the target", linkTo("a b.txt", "x"), "[x](a%20b.txt)");
        add("character reference in the target", linkTo("a&amp;b", "x"), "[x](a\\&amp;b)");
        add("program", linkTo(" java\tScript:alert(1)", "x"), "x");
        add("within the document",
            "{\\*\\bkmkstart a b}text{\\*\\bkmkend a b}{\\*\\bkmkstart other}{\\*\\bkmkend other} "
            "{\\field{\\*\\fldinst HYPERLINK \\\\l \"a b\"}{\\fldrslt there}}",
            "<a id=\"a_b\"></a>text [there](#a_b)");
        add("plain address beside bold text", address + "{\\b x}", "https\\://example.org/**x**");
    }

    /*! In headings and cells other characters matter. */
    ORV_ROWS(places)
    {
        const Rows add(
            [](const QByteArray& rtf, const QByteArray& expected) { QCOMPARE(markdownOf(rtf), expected); });
        add("number signs behind a heading", "\\outlinelevel0 a ##", "# a \\##\n");
        add("number signs within a heading", "\\outlinelevel0 a # b C#", "# a # b C#\n");
        add("only number signs", "\\outlinelevel0 #", "# \\#\n");
        add("list in a heading", "\\outlinelevel0 1. a", "# 1. a\n");
        const QByteArray row = "\\trowd\\cellx2000\\cellx4000\\pard\\intbl ";
        add("cells", row + "- a | b\\cell text {\\f1 x|y}\\cell\\row",
            "|          |             |\n| -------- | ----------- |\n| - a \\| b | text `x\\|y` |\n");
    }

    /*! Neither formats that alternate nor addresses take more than linear time. */
    void manyRuns()
    {
        QByteArray rtf;
        for (int i = 0; i < 20000; ++i)
            rtf += "{\\b a(}{\\i )b}";
        QElapsedTimer timer;
        timer.start();
        const QByteArray text = markdownOf(rtf);
        QCOMPARE(text.count("a("), 20000);
        const QByteArray addresses = markdownOfText("http://"_s.repeated(100000));
        QVERIFY(addresses.size() >= 700000);
        QVERIFY2(timer.elapsed() < 60000, "more than linear time");
    }
};

ORV_TEST("markdowntext", TestMarkdownText, QGuiApplication)
#include "markdowntext.moc"
