#include "diff/SequenceMatch.h"
#include "testpaths.h"
#include "tooltest.h"

namespace {

/*! RTF with the fonts Alpha and Beta, of which no machine has one, and the colours red and green. */
QByteArray rtf(const QByteArray& content, const QByteArray& head = QByteArray())
{
    return "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0 Alpha;}{\\f1 Beta;}}"
           "{\\colortbl;\\red255\\green0\\blue0;\\red0\\green128\\blue0;}"
        + head + "\\plain\\f0\\fs24 " + content + "}";
}

/*! A run that found differences, of which the report has \a lines between the names of the files and \a counts. */
ToolRun different(const QByteArray& lines, const QByteArray& counts)
{
    return {1, "--- a.rtf\n+++ b.rtf\n" + lines + counts + '\n', QByteArray()};
}

QByteArray counts(int removed, int added, int others)
{
    return "words removed: " + QByteArray::number(removed) + ", words added: " + QByteArray::number(added)
        + ", other changes: " + QByteArray::number(others);
}

/*! Cells of equal width, one row. */
QByteArray row(const QList<QByteArray>& cells, const QByteArray& words = QByteArray())
{
    QByteArray result = "\\trowd\\trgaph0" + words;
    for (int i = 1; i <= cells.size(); ++i)
        result += "\\cellx" + QByteArray::number(2000 * i);
    for (const QByteArray& cell : cells)
        result += "\\pard\\intbl " + cell + "\\cell";
    return result + "\\row\\pard ";
}

const char* const list =
    "{\\*\\listtable{\\list{\\listlevel\\levelnfc0\\levelstartat1{\\leveltext\\'02\\'00.;}"
    "{\\levelnumbers\\'01;}}\\listid1}{\\list{\\listlevel\\levelnfc0\\levelstartat1"
    "{\\leveltext\\'02\\'00);}{\\levelnumbers\\'01;}}\\listid2}}"
    "{\\*\\listoverridetable{\\listoverride\\listid1\\listoverridecount0\\ls1}"
    "{\\listoverride\\listid2\\listoverridecount0\\ls2}}";

QByteArray item(const QByteArray& text, int number = 1)
{
    return "\\pard\\ls" + QByteArray::number(number) + "\\fi-360\\li720 " + text + "\\par ";
}

QByteArray numbered(int count, const char* word)
{
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += word + QByteArray::number(i) + "\\par ";
    return text;
}

QByteArray picture(const QColor& color, int size, const QByteArray& goal)
{
    QImage image(size, size, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    image.save(&buffer, "PNG");
    return "{\\pict\\pngblip" + goal + ' ' + buffer.data().toHex() + '}';
}

} // namespace

/*! What orvrtf diff reports. */
class TestDiff : public ToolTest {
    Q_OBJECT

private slots:
    /*! Text and its formats, in documents that are otherwise the same. */
    ORV_ROWS(text)
    {
        const Rows add(
            [this](const QByteArray& before, const QByteArray& after, const QByteArray& lines,
                   const QByteArray& summary) { verifyReport(rtf(before), rtf(after), lines, summary); });
        add("word", "one old word", "one new word", "paragraph 1:\n  one [-old-]{+new+} word\n",
            counts(1, 1, 0));
        add("added word", "one word", "one more word", "paragraph 1:\n  one {+more +}word\n",
            counts(0, 1, 0));
        add("removed sign", "a, b", "a b", "paragraph 1:\n  a[-,-] b\n", counts(0, 0, 1));
        add("several words", "w x y z", "w a b z", "paragraph 1:\n  w [-x y-]{+a b+} z\n", counts(2, 2, 0));
        add("blank", "a  b", "a b", "paragraph 1:\n  a [-\xe2\x90\xa3-]b\n", counts(0, 0, 1));
        add("no-break space", "a b", "a\\~b", "paragraph 1:\n  a[-\xe2\x90\xa3-]{+<U+00A0>+}b\n",
            counts(0, 0, 1));
        add("soft hyphen", "ab", "a\\-b", "paragraph 1:\n  [-ab-]{+a<U+00AD>b+}\n", counts(1, 1, 0));
        add("zero-width space", "a b", "a\\u8203?x b", "paragraph 1:\n  a{+<U+200B>x+} b\n", counts(0, 1, 0));
        add("line break", "a\\line b", "a b", "paragraph 1:\n  a[-\xe2\x86\xb5-]{+\xe2\x90\xa3+}b\n",
            counts(0, 0, 1));
        add("long equal text",
            "one two three four five six seven eight nine ten eleven twelve thirteen fourteen fifteen "
            "sixteen x "
            "one two three four five six seven eight nine ten eleven twelve thirteen fourteen fifteen "
            "sixteen "
            "one two three four five six seven eight nine ten eleven twelve thirteen fourteen fifteen "
            "sixteen y",
            "one two three four five six seven eight nine ten eleven twelve thirteen fourteen fifteen "
            "sixteen z "
            "one two three four five six seven eight nine ten eleven twelve thirteen fourteen fifteen "
            "sixteen "
            "one two three four five six seven eight nine ten eleven twelve thirteen fourteen fifteen "
            "sixteen v",
            "paragraph 1:\n"
            "  \xe2\x80\xa6 twelve thirteen fourteen fifteen sixteen [-x-]{+z+} one two three four five six "
            "seven "
            "eight \xe2\x80\xa6 twelve thirteen fourteen fifteen sixteen [-y-]{+v+}\n",
            counts(2, 2, 0));
        add("ideographs", "\\u26085?\\u26412?", "\\u26085?\\u20013?",
            "paragraph 1:\n  \xe6\x97\xa5[-\xe6\x9c\xac-]{+\xe4\xb8\xad+}\n", counts(1, 1, 0));
        add("character beyond 16 bits", "a\\u-10179?\\u-8704?", "a\\u-10179?\\u-8703?",
            "paragraph 1:\n  a[-\xf0\x9f\x98\x80-]{+\xf0\x9f\x98\x81+}\n", counts(0, 0, 1));
        add("removed paragraphs", "a\\par b\\par c\\par d", "a\\par d",
            "paragraphs 2\xe2\x80\x93"
            "3, removed:\n  [-b-]\n  [-c-]\n",
            counts(2, 0, 0));
        add("added paragraph", "a\\par b", "a\\par c d\\par b", "paragraph 2, added:\n  {+c d+}\n",
            counts(0, 2, 0));
        add("replaced paragraph", "a\\par b\\par c", "a\\par x\\par c", "paragraph 2:\n  [-b-]{+x+}\n",
            counts(1, 1, 0));
        add("similar paragraph behind a new one", "one two three four\\par z",
            "new\\par one two three five\\par z",
            "paragraph 1, added:\n  {+new+}\nparagraph 1:\n  one two three [-four-]{+five+}\n",
            counts(1, 2, 0));
        add("divided paragraph", "one two three four five\\par z", "one two three\\par four five\\par z",
            "paragraph 1:\n  one two three[- four five-]\nparagraph 2, added:\n  {+four five+}\n",
            counts(2, 2, 0));
        add("empty paragraph", "a\\par\\par b", "a\\par b", "paragraph 2:\n  empty paragraph removed\n",
            counts(0, 0, 1));
        add("empty paragraph among others", "a\\par b", "a\\par\\par c d\\par b",
            "paragraphs 2\xe2\x80\x93"
            "3, added:\n  {+\xc2\xb6+}\n  {+c d+}\n",
            counts(0, 2, 0));

        add("paragraph of blanks", "a\\par b", "a\\par  \\tab\\par b",
            "paragraph 2, added:\n  {+ <U+0009>+}\n", counts(0, 0, 1));

        add("bold", "a {\\b word} more", "a word more", "paragraph 1:\n  \"word\": bold removed\n",
            counts(0, 0, 1));
        add("two formats of the same words", "a these words", "a {\\b\\fs28 these words}",
            "paragraph 1:\n  \"these words\": size 12 pt \xe2\x86\x92 14 pt, bold added\n", counts(0, 0, 1));
        add("blank between bold words", "{\\b a} {\\b b} c", "a b c",
            "paragraph 1:\n  \"a b\": bold removed\n", counts(0, 0, 1));
        add("words that are not next to one another", "{\\b a} b {\\b c}", "a b c",
            "paragraph 1:\n  \"a\": bold removed\n  \"c\": bold removed\n", counts(0, 0, 2));
        add("all of a paragraph", "a\\par {\\b b c}\\par d", "a\\par b c\\par d",
            "paragraph 2:\n  bold removed\n", counts(0, 0, 1));
        add("paragraphs in a row", "a\\par {\\i b\\par c\\par d\\par}e", "a\\par b\\par c\\par d\\par e",
            "paragraphs 2\xe2\x80\x93"
            "4:\n  italic removed\n",
            counts(0, 0, 1));
        add("empty paragraph in a row", "{\\i a\\par\\par b}\\par c", "a\\par\\par b\\par c",
            "paragraphs 1\xe2\x80\x93"
            "3:\n  italic removed\n",
            counts(0, 0, 1));
        add("long words",
            "x {\\b one two three four five six seven eight nine ten eleven twelve thirteen fourteen}",
            "x one two three four five six seven eight nine ten eleven twelve thirteen fourteen",
            "paragraph 1:\n  \"one two three four five \xe2\x80\xa6 twelve thirteen fourteen\": bold "
            "removed\n",
            counts(0, 0, 1));
        add("format of a text that is changed", "{\\b one two three four} x", "one two three new x",
            "paragraph 1:\n  one two three [-four-]{+new+} x\n  \"one two three\": bold removed\n",
            counts(1, 1, 1));

        const auto format = [&add](const char* words, const char* change) {
            add(words, "a word more", "a {" + QByteArray(words) + " word} more",
                "paragraph 1:\n  \"word\": " + QByteArray(change) + '\n', counts(0, 0, 1));
        };
        format("\\f1", "font Alpha \xe2\x86\x92 Beta");
        format("\\fs21", "size 12 pt \xe2\x86\x92 10.5 pt");
        format("\\i", "italic added");
        format("\\ul", "underline single added");
        format("\\uld", "underline dotted added");
        format("\\ulwave", "underline wavy added");
        format("\\ol", "overline added");
        format("\\strike", "strike-out added");
        format("\\caps", "capitals all letters added");
        format("\\scaps", "capitals small ones added");
        format("\\cf1", "text colour #ff0000 added");
        format("\\highlight2", "text background #008000 added");
        format("\\super", "position superscript added");
        format("\\sub", "position subscript added");
        format("\\up7", "position raised by 3.5 pt added");
        format("\\expndtw30", "letter spacing 1.5 pt added");
        format("\\charscalex150", "stretch 150 % added");
        format("\\kerning0", "no kerning added");
        format("\\lang1031", "language en-US \xe2\x86\x92 de-DE");
        add("underline colour", "a {\\ul word} more", "a {\\ul\\ulc1 word} more",
            "paragraph 1:\n  \"word\": underline single \xe2\x86\x92 single #ff0000\n", counts(0, 0, 1));
        add("link", "a word more", "a {\\field{\\*\\fldinst HYPERLINK \"b\"}{\\fldrslt word}} more",
            "paragraph 1:\n  \"word\": link \"b\" added\n", counts(0, 0, 1));
        add("target of a link", "{\\field{\\*\\fldinst HYPERLINK \"a\"}{\\fldrslt word}} more",
            "{\\field{\\*\\fldinst HYPERLINK \"b\"}{\\fldrslt word}} more",
            "paragraph 1:\n  \"word\": link \"a\" \xe2\x86\x92 \"b\"\n", counts(0, 0, 1));
        add("bookmark", "a word", "a {\\*\\bkmkstart x}word{\\*\\bkmkend x}",
            "paragraph 1:\n  \"w\": bookmark \"x\" added\n", counts(0, 0, 1));
        add("size of an empty paragraph", "a\\par\\fs40\\par\\fs24 b", "a\\par\\par b",
            "paragraph 2:\n  size 20 pt \xe2\x86\x92 12 pt\n", counts(0, 0, 1));
    }

    ORV_ROWS(paragraph)
    {
        const Rows add([this](const QByteArray& before, const QByteArray& after, const QByteArray& change) {
            const QByteArray lines = "paragraph 2:\n  " + change + '\n';
            verifyReport(rtf("x\\par\\pard" + before + " a\\par\\pard y"),
                         rtf("x\\par\\pard" + after + " a\\par\\pard y"), lines, counts(0, 0, 1));
        });
        const auto word = [&add](const char* words, const char* change) { add(words, "", words, change); };
        word("\\qc", "alignment left \xe2\x86\x92 centred");
        word("\\qr", "alignment left \xe2\x86\x92 right");
        word("\\qj", "alignment left \xe2\x86\x92 justified");
        word("\\li720", "left indent 0 pt \xe2\x86\x92 36 pt");
        word("\\ri720", "right indent 0 pt \xe2\x86\x92 36 pt");
        word("\\fi-360\\li360",
             "left indent 0 pt \xe2\x86\x92 18 pt, first-line indent 0 pt \xe2\x86\x92 -18 pt");
        word("\\sb100", "space above 0 pt \xe2\x86\x92 5 pt");
        word("\\sa100", "space below 0 pt \xe2\x86\x92 5 pt");
        word("\\sl360\\slmult1", "line height 100 % \xe2\x86\x92 150 %");
        word("\\sl-400\\slmult0", "line height 100 % \xe2\x86\x92 exactly 20 pt");
        word("\\sl400\\slmult0", "line height 100 % \xe2\x86\x92 at least 20 pt");
        word("\\outlinelevel1", "heading level 2 added");
        word("\\tx720\\tqr\\tldot\\tx1440", "tab stops 36 pt left 72 pt right \".\" added");
        word("\\cbpat1", "background #ff0000 added");
        word("\\brdrb\\brdrs\\brdrw20\\brsp40",
             "border below solid 1 pt #000000 at a distance of 2 pt added");
        word("\\box\\brdrdb\\brdrw20\\brdrcf1", "borders double 3 pt #ff0000 at a distance of 0 pt added");
        word("\\pagebb", "page break before added");
        word("\\keepn", "keep with next added");
        word("\\keep", "keep lines together added");
        word("\\contextualspace\\s1", "no space between equal styles added");
        word("\\rtlpar", "alignment left \xe2\x86\x92 right, right-to-left added");
        add("heading with a line height", "\\outlinelevel0\\sl360\\slmult1", "\\sl360\\slmult1",
            "heading level 1 removed");
    }

    /*! What looks the same is no difference, however the files state it. */
    ORV_ROWS(equal)
    {
        const Rows add([this](const QByteArray& before, const QByteArray& after) {
            verifyReport(rtf(before), rtf(after), "", "");
        });
        add("same", "a {\\b b}\\par c", "a {\\b b}\\par c");
        add("default stated", "a", "\\cf0\\b0\\i0\\ulnone\\ql\\li0\\ri0\\sl0\\slmult0 a");
        add("black", "\\cf0 a", "\\cf3 a");
        add("colour of the text under it", "\\cf1\\ul a", "\\cf1\\ul\\ulc1 a");
        add("format of blanks that shows nothing", "a{\\b\\i\\cf1 \\~ }b", "a\\~ b");
        add("format of the end of a paragraph with text", "a\\b\\par\\b0 b", "a\\par b");
        add("single line height", "\\sl240\\slmult1 a", "a");
        add("length within a twip", "\\li720 a", "\\li721 a");
        add("tab stop where the text begins", "\\li720\\tx720 a", "\\li720 a");
        add("runs", "{a b}{ c}", "a b c");
        add("font in another place of the table", "{\\fonttbl{\\f7 Alpha;}}\\f7 a", "a");
        add("page break behind a paragraph", "a\\page b", "a\\par\\pard\\pagebb b");
        add("line between cells stated by the other one",
            "\\trowd\\trgaph0\\clbrdrr\\brdrs\\brdrw20\\cellx2000\\cellx4000 a\\cell b\\cell\\row",
            "\\trowd\\trgaph0\\cellx2000\\clbrdrl\\brdrs\\brdrw20\\cellx4000 a\\cell b\\cell\\row");
    }

    ORV_ROWS(lengthBeyondTwip)
    {
        const Rows add([this](const QByteArray& before, const QByteArray& after, const QByteArray& change) {
            verifyReport(rtf(before), rtf(after), "paragraph 1:\n  " + change + '\n', counts(0, 0, 1));
        });
        add("two twips", "\\li720 a", "\\li722 a", "left indent 36 pt \xe2\x86\x92 36.1 pt");
    }

    ORV_ROWS(lists)
    {
        const Rows add([this](const QByteArray& before, const QByteArray& after, const QByteArray& lines,
                              const QByteArray& summary) {
            verifyReport(rtf(before, list), rtf(after, list), lines, summary);
        });
        add("label", item("a") + item("b"), item("a", 2) + item("b", 2),
            "paragraph 1:\n  label \"1.\" \xe2\x86\x92 \"1)\"\nparagraph 2:\n  label \"2.\" \xe2\x86\x92 "
            "\"2)\"\n",
            counts(0, 0, 2));
        add("new item", item("a") + item("c") + item("d"), item("a") + item("b b") + item("c") + item("d"),
            "paragraph 2, added:\n  {+b b+}\nparagraph 2:\n  label \"2.\" \xe2\x86\x92 \"3.\"\n",
            counts(0, 2, 1));
        add("no list", item("a"), "\\pard\\li720\\fi-360 a\\par ",
            "paragraph 1:\n  label \"1.\" removed, list level 1 removed, behind the label tab removed, "
            "label alignment left removed\n  first-line indent -18 pt added, label position 18 pt removed\n",
            counts(0, 0, 2));
        add("indent", item("a"), "\\pard\\ls1\\fi-360\\li1080 a\\par ",
            "paragraph 1:\n  left indent 36 pt \xe2\x86\x92 54 pt, label position 18 pt \xe2\x86\x92 36 pt\n",
            counts(0, 0, 1));
        // A label has the format of the first text behind it.
        add("format of the label", item("a b"), item("{\\b a} b"),
            "paragraph 1:\n  \"a\": bold added\n  label: bold added\n", counts(0, 0, 2));
    }

    ORV_ROWS(tables)
    {
        const Rows add([this](const QByteArray& before, const QByteArray& after, const QByteArray& lines,
                              const QByteArray& summary) {
            verifyReport(rtf("x\\par " + before + " y"), rtf("x\\par " + after + " y"), lines, summary);
        });
        const QByteArray two = row({"a", "b"}) + row({"c", "d"});
        add("text of a cell", two, row({"a", "b"}) + row({"c", "e"}),
            "table 1, row 2, column 2:\n  [-d-]{+e+}\n", counts(1, 1, 0));
        add("text of a cell of several paragraphs", row({"a\\par b"}), row({"a\\par c"}),
            "table 1, row 1, column 1, paragraph 2:\n  [-b-]{+c+}\n", counts(1, 1, 0));
        add("text in another cell", row({"a", ""}), row({"", "a"}),
            "table 1, row 1, column 1:\n  [-a-]\ntable 1, row 1, column 2:\n  {+a+}\n", counts(1, 1, 0));
        add("format in a cell", two, row({"a", "b"}) + row({"c", "{\\b d}"}),
            "table 1, row 2, column 2:\n  bold added\n", counts(0, 0, 1));
        add("new row", two, row({"a", "b"}) + row({"e", "f"}) + row({"c", "d"}),
            "table 1:\n  rows 2 \xe2\x86\x92 3\ntable 1, row 2, column 1 to column 2, added:\n  {+e+}\n  "
            "{+f+}\n",
            counts(0, 2, 1));
        add("new column", row({"a", "b"}), row({"a", "e", "b"}),
            "table 1:\n  columns 2 \xe2\x86\x92 3, column widths 100 pt 100 pt \xe2\x86\x92 100 pt 100 pt "
            "100 pt\n"
            "table 1, row 1, column 2, added:\n  {+e+}\n",
            counts(0, 1, 1));
        add("table that became paragraphs", row({"one word", "two words"}), "one word\\par two words\\par ",
            "table 1:\n  table of rows \xc3\x97 columns 1 \xc3\x97 2 removed\n", counts(0, 0, 1));
        add("lost table", row({"one word", "two words"}), "",
            "table 1:\n  table of rows \xc3\x97 columns 1 \xc3\x97 2 removed\n"
            "table 1, row 1, column 1 to column 2, removed:\n  [-one word-]\n  [-two words-]\n",
            counts(4, 0, 1));
        add("new table", "", row({"one word"}),
            "table 1:\n  table of rows \xc3\x97 columns 1 \xc3\x97 1 added\n"
            "table 1, row 1, column 1, added:\n  {+one word+}\n",
            counts(0, 2, 1));
        add("column width", row({"a"}), "\\trowd\\trgaph0\\cellx2400 a\\cell\\row\\pard ",
            "table 1:\n  column widths 100 pt \xe2\x86\x92 120 pt\n", counts(0, 0, 1));
        add("padding", row({"a", "b"}), row({"a", "b"}, "\\trpaddl100\\trpaddfl3"),
            "table 1, row 1, column 1 to column 2:\n  padding on the left 0 pt \xe2\x86\x92 5 pt\n",
            counts(0, 0, 1));
        add("place", row({"a"}), row({"a"}, "\\trqc"), "table 1:\n  alignment left \xe2\x86\x92 centred\n",
            counts(0, 0, 1));
        add("header row", two, row({"a", "b"}, "\\trhdr") + row({"c", "d"}),
            "table 1:\n  header rows 1 added\n", counts(0, 0, 1));
        const QByteArray line = "\\brdrs\\brdrw20";
        add("lines around a cell", row({"a"}),
            "\\trowd\\trgaph0\\clbrdrt" + line + "\\clbrdrl" + line + "\\clbrdrb" + line + "\\clbrdrr" + line
                + "\\cellx2000\\pard\\intbl a\\cell\\row\\pard ",
            "table 1, row 1, column 1:\n  borders solid 1 pt #000000 added\n", counts(0, 0, 1));
        add("background", row({"a"}),
            "\\trowd\\trgaph0\\clcbpat1\\cellx2000\\pard\\intbl a\\cell\\row\\pard ",
            "table 1, row 1, column 1:\n  background #ff0000 added\n", counts(0, 0, 1));
        add("vertical alignment", row({"a"}),
            "\\trowd\\trgaph0\\clvertalb\\cellx2000\\pard\\intbl a\\cell\\row\\pard ",
            "table 1, row 1, column 1:\n  vertical alignment top \xe2\x86\x92 bottom\n", counts(0, 0, 1));
        add("merged cells", row({"a", ""}) + row({"b", "c"}),
            "\\trowd\\trgaph0\\clmgf\\cellx2000\\clmrg\\cellx4000\\pard\\intbl a\\cell\\cell\\row\\pard "
                + row({"b", "c"}),
            "table 1, row 1, column 1:\n  columns of the cell 1 \xe2\x86\x92 2\n", counts(0, 0, 1));
        add("second table", row({"a"}) + "x\\par " + row({"b"}), row({"a"}) + "x\\par " + row({"c"}),
            "table 2, row 1, column 1:\n  [-b-]{+c+}\n", counts(1, 1, 0));
        add("table in a table", nested("b"), nested("c"),
            "table 1, row 1, column 1, table 1, row 1, column 1:\n  [-b-]{+c+}\n", counts(1, 1, 0));
    }

    ORV_ROWS(notes)
    {
        const Rows add(
            [this](const QByteArray& before, const QByteArray& after, const QByteArray& lines,
                   const QByteArray& summary) { verifyReport(rtf(before), rtf(after), lines, summary); });
        const QByteArray note = "{\\super\\chftn{\\footnote {\\super\\chftn} ";
        add("text", "a" + note + "one}} b" + note + "two}}", "a" + note + "one}} b" + note + "three}}",
            "footnote 2:\n  [-two-]{+three+}\n", counts(1, 1, 0));
        add("format", "a" + note + "one}}", "a" + note + "{\\b one}}}", "footnote 1:\n  bold added\n",
            counts(0, 0, 1));
        add("lost", "a" + note + "one two}} b", "a b", "paragraph 1:\n  a[-[footnote: one two]-] b\n",
            counts(2, 0, 0));
        add("second paragraph", "a" + note + "one\\par two}}", "a" + note + "one\\par six}}",
            "footnote 1, paragraph 2:\n  [-two-]{+six+}\n", counts(1, 1, 0));
        add("kind", "a" + note + "one}} b", "a{\\super\\chftn{\\footnote\\ftnalt {\\super\\chftn} one}} b",
            "paragraph 1:\n  a[-[footnote: one]-]{+[endnote: one]+} b\n", counts(1, 1, 0));
        add("mark", "a" + note + "one}} b", "a{\\super *{\\footnote {\\super *} one}} b",
            "footnote 1:\n  mark \"*\" added\n", counts(0, 0, 1));
        add("number of a note behind a new one", "a b" + note + "two}}",
            "a" + note + "one}} b" + note + "two}}", "paragraph 1:\n  a{+[footnote: one]+} b[1]\n",
            counts(0, 1, 0));
        const QByteArray comment = "{\\chatn{\\*\\annotation one}}";
        add("author of a comment", "a{\\*\\atnauthor Ann}" + comment, "a{\\*\\atnauthor Bea}" + comment,
            "comment 1:\n  author \"Ann\" \xe2\x86\x92 \"Bea\"\n", counts(0, 0, 1));
        add("same", "a" + note + "one{\\b  two}}}", "a" + note + "one{\\b\\i0  two}}}", "", "");
    }

    ORV_ROWS(pictures)
    {
        const Rows add([this](const QByteArray& before, const QByteArray& after, const QByteArray& lines) {
            verifyReport(rtf("a " + before), rtf("a " + after), lines, counts(0, 0, 1));
        });
        const QByteArray goal = "\\picwgoal300\\pichgoal600";
        const QByteArray red = picture(Qt::red, 4, goal);
        const QByteArray place = "paragraph 1, picture 1:\n  ";
        add("pixels", red, picture(Qt::blue, 4, goal), place + "image changed\n");
        add("size of the image", red, picture(Qt::red, 8, goal),
            place + "pixels 4 \xc3\x97 4 \xe2\x86\x92 8 \xc3\x97 8\n");
        add("shown size", red, picture(Qt::red, 4, "\\picwgoal600\\pichgoal600"),
            place + "width 15 pt \xe2\x86\x92 30 pt\n");
        add("link", red, "{\\field{\\*\\fldinst HYPERLINK \"b\"}{\\fldrslt " + red + "}}",
            "paragraph 1:\n  \"[picture]\": link \"b\" added\n");
    }

    void lostPicture()
    {
        verifyReport(rtf("a " + picture(Qt::red, 4, "") + "b"), rtf("a b"),
                     "paragraph 1:\n  a [-[picture]-]b\n", counts(0, 0, 1));
    }

    ORV_ROWS(document)
    {
        const Rows add([this](const QByteArray& before, const QByteArray& after, const QByteArray& change) {
            verifyReport(rtf("a", before), rtf("a", after), "document:\n  " + change + '\n', counts(0, 0, 1));
        });
        add("title", "{\\info{\\title One}}", "{\\info{\\title Two}}", "title \"One\" \xe2\x86\x92 \"Two\"");
        add("author", "{\\info{\\author One}}", "", "author \"One\" removed");
        add("keywords", "", "{\\info{\\keywords One}}", "keywords \"One\" added");
        add("header", "{\\header\\f0\\fs24 One}", "{\\header\\f0\\fs24 Two}",
            "header \"One\" \xe2\x86\x92 \"Two\"");
        add("look of the footer", "{\\footer\\f0\\fs24 One}", "{\\footer\\qc\\f0\\fs20 One}",
            "look of the footer left Alpha 12 pt \xe2\x86\x92 centred Alpha 10 pt");
        add("paper", "", "\\paperw11906\\paperh16838",
            "page size 612 pt \xc3\x97 792 pt \xe2\x86\x92 595.3 pt \xc3\x97 841.9 pt");
        add("margin", "", "\\margl1440", "left margin 90 pt \xe2\x86\x92 72 pt");
        add("tab distance", "", "\\deftab360", "tab distance 36 pt \xe2\x86\x92 18 pt");
    }

    /*! Nobody reads a line for each of them. */
    void changesOfManyPlacesArePutTogether()
    {
        QByteArray before;
        for (int i = 1; i <= 9; ++i)
            before += "{\\b one} two\\par ";
        QByteArray after = before;
        after.replace("{\\b one}", "one");
        verifyReport(rtf(before), rtf(after),
                     "in many places:\n  bold removed: 9 places, the first ones are: paragraph 1 \"one\"; "
                     "paragraph 2 \"one\"; paragraph 3 \"one\"\n",
                     counts(0, 0, 9));
    }

    void changesOfFewPlacesAreListed()
    {
        QByteArray before;
        QByteArray lines;
        for (int i = 1; i <= 8; ++i) {
            before += "{\\b one} two\\par ";
            lines += "paragraph " + QByteArray::number(i) + ":\n  \"one\": bold removed\n";
        }
        QByteArray after = before;
        after.replace("{\\b one}", "one");
        verifyReport(rtf(before), rtf(after), lines, counts(0, 0, 8));
    }

    /*! Plain text has no formats, and labels and notes as convert writes them. */
    ORV_ROWS(plainText)
    {
        const Rows add([this](const QByteArray& document, const QByteArray& text, const QByteArray& lines,
                              const QByteArray& summary) {
            write("a.rtf", document);
            write("b.txt", text);
            const ToolRun expected = lines.isEmpty()
                ? success()
                : ToolRun{1, "--- a.rtf\n+++ b.txt\n" + lines + summary + '\n', ""};
            QCOMPARE(run("diff a.rtf b.txt"), expected);
        });
        add("same", rtf("{\\b a}\\par\\qc b"), "a\nb\n", "", "");
        add("no line feed at the end", rtf("a\\par b"), "a\nb", "", "");
        add("text", rtf("a\\par b"), "a\nc\n", "paragraph 2:\n  [-b-]{+c+}\n", counts(1, 1, 0));
        add("cells", rtf("x\\par " + row({"a", "b"}) + "c"), "x\na\nb\nc\n", "", "");
        add("label", rtf(item("a"), list), "1. a\n", "", "");
        add("note", rtf("a{\\super\\chftn{\\footnote {\\super\\chftn} one}}"), "a[1]\n\n[1] one\n", "", "");
        add("empty", rtf(""), "", "", "");
    }

    void twoPlainTexts()
    {
        verifyRun("diff a.txt b.txt", {{"a.txt", "a b\n"}, {"b.txt", "a c\n"}}, "",
                  {1, "--- a.txt\n+++ b.txt\nparagraph 1:\n  a [-b-]{+c+}\n" + counts(1, 1, 0) + '\n', ""},
                  {});
    }

    void html()
    {
        const Files files = {{"a.html", "<p>one <b>two</b></p>"}, {"b.html", "<p>one two</p>"}};
        verifyRun("diff a.html b.html", files, "",
                  {1,
                   "--- a.html\n+++ b.html\nparagraph 1:\n  \"two\": bold removed\n" + counts(0, 0, 1) + '\n',
                   ""},
                  {});
    }

    /*! A document is the same in RTF that convert makes of HTML. */
    void rtfOfHtml()
    {
        write("a.html",
              "<p style='margin-left: 40px; text-indent: 10px; line-height: 150%'>a <i>b</i></p>"
              "<ol start='3'><li>c<li>d</ol><ul><li>e</ul><p align='right'>f</p>");
        QCOMPARE(run("convert a.html b.rtf --storage"), success());
        QCOMPARE(run("diff a.html b.rtf --storage").out, QByteArray());
    }

    /*! The storage form keeps all of these. */
    ORV_ROWS(storageRoundTrip)
    {
        const Rows add([this](const QString& path) {
            QCOMPARE(run({"convert"_s, "--storage"_s, path, "copy.rtf"_s}), success());
            QCOMPARE(run({"diff"_s, "--storage"_s, path, "copy.rtf"_s}), success());
        });
        for (const char* name : {"abiword-paragraphs", "libreoffice-grids", "libreoffice-languages",
                                 "libreoffice-nested", "libreoffice-outline", "libreoffice-paragraphs",
                                 "libreoffice-pictures", "libreoffice-revisions", "pandoc-charformats"})
            add(name, testFile(name));
        add("strip", QString::fromLatin1(FUZZ_SEEDS_DIR "/strip.rtf"));
    }

    /*! Every file has what it has, also after it has been read twice. */
    ORV_ROWS(sameFile)
    {
        const Rows add([this](const QString& path) {
            QCOMPARE(run({"diff"_s, path, path}), success());
            QCOMPARE(run({"diff"_s, "--storage"_s, path, path}), success());
        });
        for (const char* folder : {TEST_DATA_DIR, FUZZ_SEEDS_DIR}) {
            QDirIterator files(QString::fromUtf8(folder), {"*.rtf"_s}, QDir::Files);
            while (files.hasNext()) {
                const QString path = files.next();
                add(QFileInfo(path).fileName().toUtf8(), path);
            }
        }
    }

    ORV_ROWS(errors)
    {
        const Rows add([this](const QByteArray& arguments, const Files& files, const QByteArray& input,
                              const ToolRun& expected) {
            for (const auto& file : files)
                write(file.first.constData(), file.second);
            QCOMPARE(run(arguments.constData(), input), expected);
        });
        const Files both = {{"a.rtf", "{\\rtf1 a}"}, {"b.rtf", "{\\rtf1 b}"}};
        const QByteArray report =
            "--- a.rtf\n+++ b.rtf\nparagraph 1:\n  [-a-]{+b+}\n" + counts(1, 1, 0) + '\n';
        add("difference", "diff a.rtf b.rtf", both, "", {1, report, ""});
        add("damaged file", "diff a.rtf b.rtf", {{"a.rtf", "{\\rtf1 a"}, {"b.rtf", "{\\rtf1 b}"}}, "",
            {2, report, "orvrtf: a.rtf: Unmatched '}' in Rich Text file\n"});
        add("damaged file without a difference", "diff a.rtf b.rtf",
            {{"a.rtf", "{\\rtf1 a}"}, {"b.rtf", "{\\rtf1 a"}}, "",
            {2, "", "orvrtf: b.rtf: Unmatched '}' in Rich Text file\n"});
        add("missing file", "diff a.rtf b.rtf", {{"a.rtf", "{\\rtf1 a}"}}, "",
            {2, "", "orvrtf: cannot read b.rtf: No such file or directory\n"});
        add("two missing files", "diff a.rtf b.rtf", {}, "",
            {2, "",
             "orvrtf: cannot read a.rtf: No such file or directory\n"
             "orvrtf: cannot read b.rtf: No such file or directory\n"});
        add("report to a missing folder", "diff a.rtf b.rtf missing/out.html", both, "",
            {2, "", "orvrtf: cannot write missing/out.html: No such file or directory\n"});
        add("report to a missing folder, without a difference", "diff a.rtf a.rtf missing/out.txt", both, "",
            {2, "", "orvrtf: cannot write missing/out.txt: No such file or directory\n"});
        add("report to a full device", "diff a.rtf b.rtf /dev/full --to txt", both, "",
            {2, "", "orvrtf: cannot write /dev/full: No space left on device\n"});
        add("standard input is the first file", "diff - b.rtf", both, "{\\rtf1 a}",
            {1, "--- standard input\n+++ b.rtf\nparagraph 1:\n  [-a-]{+b+}\n" + counts(1, 1, 0) + '\n', ""});
        add("standard input is the second file", "diff a.rtf -", both, "{\\rtf1 a}", success());
        add("standard input has HTML", "diff a.rtf - --from html", {{"a.rtf", "x"}}, "x", success());
    }

    /*! Nothing of what a document has may control a terminal. */
    void reportHasNoControlCharacters()
    {
        write("a.txt", "a");
        write("b.txt", "b \x1b[31m \xc2\x9b \r\n");
        const ToolRun result = run("diff a.txt b.txt");
        QCOMPARE(result.exitCode, 1);
        QVERIFY(!result.out.contains('\x1b') && !result.out.contains("\xc2\x9b")
                && !result.out.contains('\r'));
    }

    void textReportIsWrittenToFile()
    {
        write("a.rtf", rtf("a"));
        write("b.rtf", rtf("b"));
        QCOMPARE(run("diff a.rtf b.rtf out.txt"), (ToolRun{1, "", ""}));
        QCOMPARE(read("out.txt"), different("paragraph 1:\n  [-a-]{+b+}\n", counts(1, 1, 0)).out);
        QCOMPARE(run("diff a.rtf a.rtf out.txt"), success());
        QCOMPARE(read("out.txt"), QByteArray());
    }

    void htmlReport()
    {
        write("a.rtf", rtf("one <old> & \\par {\\b two} x"));
        write("b&.rtf", rtf("one <new> & \\par two x"));
        QCOMPARE(run("diff a.rtf b&.rtf out.html"), (ToolRun{1, "", ""}));
        const QByteArray html = read("out.html");
        QVERIFY(html.startsWith("<!DOCTYPE html>\n<html lang=\"en\">\n"));
        const int begin = html.indexOf("<h1>");
        QCOMPARE(html.mid(begin),
                 "<h1>Differences</h1>\n"
                 "<dl>\n<dt>before</dt><dd>a.rtf</dd>\n<dt>after</dt><dd>b&amp;.rtf</dd>\n</dl>\n"
                 "<p>"
                     + counts(1, 1, 1)
                     + "</p>\n"
                       "<h2>paragraph 1</h2>\n"
                       "<p>one &lt;<del>old</del><ins>new</ins>&gt; &amp; </p>\n"
                       "<h2>paragraph 2</h2>\n"
                       "<ul>\n<li>&quot;two&quot;: bold removed</li>\n</ul>\n"
                       "</body>\n</html>\n");
    }

    void htmlReportWithoutDifference()
    {
        write("a.rtf", rtf("a"));
        const ToolRun result = run("diff a.rtf a.rtf --to html");
        QCOMPARE(result.exitCode, 0);
        QVERIFY(result.out.startsWith("<!DOCTYPE html>") && result.out.contains("<p>no difference</p>"));
    }

    void reportIsInLanguageOfUser()
    {
        m_environment.insert("LC_ALL"_s, "de_DE.UTF-8"_s);
        write("a.rtf", rtf("a {\\b b}"));
        write("b.rtf", rtf("c b"));
        QCOMPARE(
            run("diff a.rtf b.rtf").out,
            "--- a.rtf\n+++ b.rtf\nAbsatz 1:\n  [-a-]{+c+} b\n  fett entfernt\n"
            "W\xc3\xb6rter entfernt: 1, W\xc3\xb6rter hinzugef\xc3\xbcgt: 1, andere \xc3\x84nderungen: 1\n"_b);
        QVERIFY(run("diff a.rtf b.rtf --to html").out.contains("<html lang=\"de\">"));
    }

    /*! Files that have little in common are still compared to the end. */
    void unrelatedFiles()
    {
        const int count = 20000;
        write("a.rtf", rtf(numbered(count, "one ")));
        write("b.rtf", rtf(numbered(count, "two ")));
        const ToolRun result = run("diff a.rtf b.rtf");
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.err, QByteArray());
        // Each paragraph has two words, of which the number is the same.
        QVERIFY(result.out.endsWith(counts(count, count, 0) + '\n'));
    }

    /*! The sequences have no pattern in common. */
    void stepsOfMatching_data()
    {
        QTest::addColumn<int>("symbols");
        QTest::newRow("few symbols") << 2;
        QTest::newRow("many symbols") << 5000;
    }

    void stepsOfMatching()
    {
        QFETCH(int, symbols);
        for (const int length : {1000, 100000}) {
            const QVector<int> before = sequence(length, symbols, 1);
            const QVector<int> after = sequence(length, symbols, 2);
            qint64 steps = 0;
            const QVector<int> partners = SequenceMatch::partners(before, after, &steps);
            verifyMatching(before, after, partners);
            // What the search for the middle of one box can do beyond the limit.
            const qint64 lastSearch = 2 * 256 * 256 + 2 * 2 * length;
            QVERIFY2(steps <= SequenceMatch::mostSteps(2 * length) + lastSearch,
                     qPrintable(QString::number(steps)));
        }
    }

    /*! Short sequences, for which the longest matching is known by another, slow method. */
    void matchingIsLongest()
    {
        for (int seed = 0; seed < 200; ++seed) {
            const QVector<int> before = sequence(seed % 23, 4, 2 * uint(seed) + 1);
            const QVector<int> after = sequence(seed % 17 + seed % 5, 4, 2 * uint(seed) + 2);
            const QVector<int> partners = SequenceMatch::partners(before, after);
            verifyMatching(before, after, partners);
            QCOMPARE(int(partners.size()) - int(partners.count(-1)), longestMatching(before, after));
        }
    }

private:
    void verifyReport(const QByteArray& before, const QByteArray& after, const QByteArray& lines,
                      const QByteArray& summary) const
    {
        write("a.rtf", before);
        write("b.rtf", after);
        QCOMPARE(run("diff a.rtf b.rtf"), lines.isEmpty() ? success() : different(lines, summary));
    }

    static QString testFile(const char* name)
    {
        return QString::fromUtf8(TEST_DATA_DIR "/") + QString::fromLatin1(name) + ".rtf"_s;
    }

    /*! A table in a cell, with \a text in its own cell. */
    static QByteArray nested(const QByteArray& text)
    {
        return "\\pard\\intbl\\itap2 " + text
            + "\\nestcell{\\*\\nesttableprops\\trowd\\trgaph0\\cellx1000\\nestrow}\\pard\\intbl\\itap1 "
              "z\\cell"
              "{\\trowd\\trgaph0\\cellx4000\\row}\\pard ";
    }

    static QVector<int> sequence(int length, int symbols, uint seed)
    {
        QRandomGenerator random(seed);
        QVector<int> result;
        for (int i = 0; i < length; ++i)
            result.append(random.bounded(symbols));
        return result;
    }

    /*! Partners are equal and ascend. */
    static void verifyMatching(const QVector<int>& before, const QVector<int>& after,
                               const QVector<int>& partners)
    {
        QCOMPARE(partners.size(), before.size());
        int last = -1;
        for (int i = 0; i < partners.size(); ++i) {
            if (partners.at(i) < 0)
                continue;
            QVERIFY(partners.at(i) > last && partners.at(i) < after.size());
            last = partners.at(i);
            QCOMPARE(before.at(i), after.at(last));
        }
    }

    static int longestMatching(const QVector<int>& before, const QVector<int>& after)
    {
        QVector<int> lengths(after.size() + 1, 0);
        for (const int element : before) {
            int diagonal = 0;
            for (int j = 0; j < after.size(); ++j) {
                const int above = lengths.at(j + 1);
                lengths[j + 1] = element == after.at(j) ? diagonal + 1 : qMax(above, lengths.at(j));
                diagonal = above;
            }
        }
        return lengths.last();
    }
};

ORV_TEST("tool_diff", TestDiff, QCoreApplication)

#include "diff.moc"
