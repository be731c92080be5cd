#include "htmlhelpers.h"

#include "ORVTextBorder.h"
#include "QtFontCompat_p.h"

using namespace rtftest;

namespace {

/*! The rules of a document whose paragraphs are in a font of their own, but for that of the body. */
QByteArray rulesOf(const Story& story)
{
    const QByteArray rules = htmlRules(html(*story.document()));
    return rules.mid(rules.indexOf("}\n") + 2);
}

QByteArray bodyOf(const Story& story)
{
    return htmlBody(html(*story.document()));
}

} // namespace

/*! The style sheet of HTML, and which elements have its classes. */
class TestHtmlStyles : public QObject {
    Q_OBJECT

private slots:
    /*! The rule for a run of text that is not like the rest of its paragraph. */
    ORV_ROWS(text)
    {
        const Rows add([](const QTextCharFormat& format, const QByteArray& css) {
            Story story;
            story.add("plain text "_s).add("text"_s, format);
            QCOMPARE(rulesOf(story), "p { margin: 0 }\n.t1 { " + css + " }\n");
            QCOMPARE(bodyOf(story), "<p>plain text <span class=\"t1\">text</span></p>\n"_b);
        });
        QTextCharFormat format;
        format.setForeground(QColor(255, 0, 16));
        add("colour", format, "color: #ff0010");
        format = QTextCharFormat();
        format.setForeground(QColor(1, 2, 3, 51));
        add("transparent colour", format, "color: rgba(1, 2, 3, 0.2)");
        format = QTextCharFormat();
        format.setForeground(Qt::transparent);
        format.setTextOutline(QPen(QColor(0, 128, 0)));
        add("outlined text is visible", format, "color: #008000");
        format = QTextCharFormat();
        format.setBackground(Qt::yellow);
        add("background", format, "background-color: #ffff00");
        format = QTextCharFormat();
        format.setFontPointSize(10.5);
        add("size", format, "font-size: 10.5pt");
        format = QTextCharFormat();
        format.setProperty(QTextFormat::FontPixelSize, 20);
        add("size in pixels", format, "font-size: 20px");
        format = QTextCharFormat();
        format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
        format.setFontLetterSpacing(2);
        add("letter spacing", format, "letter-spacing: 2px");
        format = QTextCharFormat();
        format.setFontStretch(150);
        add("stretch", format, "font-stretch: 150%");
        const auto capitals = [&](const char* name, QFont::Capitalization capitalization,
                                  const QByteArray& css) {
            QTextCharFormat capitalized;
            capitalized.setFontCapitalization(capitalization);
            add(name, capitalized, css);
        };
        capitals("capitals", QFont::AllUppercase, "text-transform: uppercase");
        capitals("small capitals", QFont::SmallCaps, "font-variant: small-caps");
        capitals("small letters", QFont::AllLowercase, "text-transform: lowercase");
        const auto underline = [&](const char* name, QTextCharFormat::UnderlineStyle style,
                                   const QByteArray& css) {
            QTextCharFormat underlined;
            underlined.setUnderlineStyle(style);
            add(name, underlined, css);
        };
        underline("dashes", QTextCharFormat::DashUnderline, "text-decoration: underline dashed");
        underline("dots", QTextCharFormat::DotLine, "text-decoration: underline dotted");
        underline("wave", QTextCharFormat::WaveUnderline, "text-decoration: underline wavy");
        format = QTextCharFormat();
        format.setFontUnderline(true);
        format.setUnderlineColor(Qt::blue);
        add("underline in a colour", format, "text-decoration: underline #0000ff");
        format = QTextCharFormat();
        format.setFontOverline(true);
        add("overline", format, "text-decoration: overline");
        format.setFontUnderline(true);
        add("overline and underline", format, "text-decoration: overline underline");
    }

    /*! The rule for a paragraph, and what it is shown as. */
    ORV_ROWS(paragraph)
    {
        const Rows add([](const QTextBlockFormat& format, const QByteArray& css) {
            Story story;
            story.format(format).add("text"_s);
            ORVStockFormats::toStock(story.document());
            QCOMPARE(rulesOf(story), "p { " + css + " }\n");
            QCOMPARE(bodyOf(story), "<p>text</p>\n"_b);
        });
        // Lengths are points there, and come out as points.
        add("plain", QTextBlockFormat(), "margin: 0");
        add("space above", blockFormat({{QTextFormat::BlockTopMargin, 6.0}}), "margin: 6pt 0 0");
        add("space above and below",
            blockFormat({{QTextFormat::BlockTopMargin, 6.0}, {QTextFormat::BlockBottomMargin, 6.0}}),
            "margin: 6pt 0");
        add("indents", blockFormat({{ORVRtfProperty::LeftIndent, 36.0}, {QTextFormat::TextIndent, 18.0}}),
            "text-indent: -18pt; margin: 0 0 0 36pt");
        add("centred", blockFormat({{QTextFormat::BlockAlignment, int(Qt::AlignHCenter)}}),
            "text-align: center; margin: 0");
        add("right", blockFormat({{QTextFormat::BlockAlignment, int(Qt::AlignRight)}}),
            "text-align: right; margin: 0");
        add("justified", blockFormat({{QTextFormat::BlockAlignment, int(Qt::AlignJustify)}}),
            "text-align: justify; margin: 0");
        add("exact line height", blockFormat({{ORVRtfProperty::LineSpacing, -24.0}}),
            "line-height: 24pt; margin: 0");
        add("least line height", blockFormat({{ORVRtfProperty::LineSpacing, 24.0}}),
            "line-height: 32px; margin: 0");
        add("multiple of the line",
            blockFormat({{ORVRtfProperty::LineSpacing, 18.0}, {ORVRtfProperty::LineMultiple, 12.0}}),
            "line-height: 150%; margin: 0");
        add("page break",
            blockFormat({{QTextFormat::PageBreakPolicy, int(QTextFormat::PageBreak_AlwaysBefore)}}),
            "margin: 0; break-before: page");
        add("background", blockFormat({{QTextFormat::BackgroundBrush, QBrush(Qt::green)}}),
            "background-color: #00ff00; margin: 0");
        ORVTextBorder border;
        border.style = QTextFrameFormat::BorderStyle_Solid;
        border.width = 0.5;
        border.spacing = 4;
        border.color = Qt::red;
        QTextBlockFormat bordered;
        border.setToParagraph(bordered, ORVTextBorder::Bottom);
        add("border below", bordered, "margin: 0; padding: 0 0 4pt; border-bottom: 0.5pt solid #ff0000");
        for (const ORVTextBorder::Side side : {ORVTextBorder::Top, ORVTextBorder::Left, ORVTextBorder::Right})
            border.setToParagraph(bordered, side);
        add("box", bordered, "margin: 0 -4.5pt; padding: 4pt; border: 0.5pt solid #ff0000");
    }

    /*! Blanks that HTML would leave out. */
    ORV_ROWS(whiteSpace)
    {
        const Rows add([](const QString& text, bool isKept) {
            Story story;
            story.add(text);
            QCOMPARE(rulesOf(story),
                     isKept ? "p { white-space: pre-wrap; margin: 0 }\n"_b : "p { margin: 0 }\n"_b);
        });
        add("single blanks", " a"_s.mid(1) + " b c "_s, false);
        add("two blanks", "a  b"_s, true);
        add("blank in front", " a"_s, true);
        add("tab", "a\tb"_s, true);
        add("blank behind a line break", "a\u2028 b"_s, true);
    }

    /*! The most frequent format is that of the element, the others are classes in the order of the document. */
    void mostFrequent()
    {
        Story story;
        QTextBlockFormat indented;
        indented.setTextIndent(20);
        QTextBlockFormat centred;
        centred.setAlignment(Qt::AlignHCenter);
        story.format(centred).add("title"_s).paragraph().format(indented).add("one"_s).paragraph().add(
            "two"_s);
        story.paragraph().format(QTextBlockFormat()).add("three"_s);
        QCOMPARE(rulesOf(story),
                 "p { text-indent: 15pt; margin: 0 }\n"
                 ".p1 { text-align: center; text-indent: 0 }\n"
                 ".p2 { text-indent: 0 }\n"_b);
        QCOMPARE(bodyOf(story),
                 "<p class=\"p1\">title</p>\n<p>one</p>\n<p>two</p>\n<p class=\"p2\">three</p>\n"_b);
    }

    /*! What most of the text has is that of the body; a paragraph states what most of its own text has. */
    void fonts()
    {
        const QByteArray text = htmlOf("one long text\\par{\\f1\\fs20\\cf1 two {\\b and} {\\f0 three} and}");
        QCOMPARE(between(htmlRules(text), "; font-family:", " }\n"), " \"Alpha\"; font-size: 12pt"_b);
        QVERIFY2(text.contains(".p1 { font-family: \"Beta\"; font-size: 10pt; color: #ff0000 }\n"),
                 text.constData());
        QVERIFY2(text.contains(".t1 { font-family: \"Alpha\" }\n"), text.constData());
        QCOMPARE(htmlBody(text),
                 "<p>one long text</p>\n"
                 "<p class=\"p1\">two <strong>and</strong> <span class=\"t1\">three</span> and</p>\n"_b);
    }

    /*! Automatic text within coloured text is black. */
    void automaticColor()
    {
        QTextCharFormat red;
        red.setForeground(Qt::red);
        Story story;
        story.add("red text "_s, red).add("black"_s);
        QCOMPARE(rulesOf(story), "p { margin: 0 }\n.t1 { color: black }\n"_b);
    }

    /*! Text in the language of the document does not state it. */
    void languages()
    {
        QTextCharFormat english;
        english.setProperty(ORVRtfProperty::Language, "en-GB"_s);
        QTextCharFormat french;
        french.setProperty(ORVRtfProperty::Language, "fr-FR"_s);
        Story story;
        story.add("most of the text "_s, english).add("bonjour"_s, french);
        QVERIFY(html(*story.document()).startsWith("<!DOCTYPE html>\n<html lang=\"en-GB\">\n"));
        QCOMPARE(bodyOf(story), "<p>most of the text <span lang=\"fr-FR\">bonjour</span></p>\n"_b);
        story.document()->setProperty("language", "fr-FR"_s);
        QVERIFY(html(*story.document()).startsWith("<!DOCTYPE html>\n<html lang=\"fr-FR\">\n"));
        QCOMPARE(bodyOf(story), "<p><span lang=\"en-GB\">most of the text </span>bonjour</p>\n"_b);
    }

    /*! Items of an inner list inherit nothing from the item around it. */
    void itemsWithinItems()
    {
        Story story;
        QTextListFormat outer;
        outer.setStyle(QTextListFormat::ListDisc);
        outer.setIndent(1);
        QTextListFormat inner = outer;
        inner.setIndent(2);
        QTextBlockFormat centred;
        centred.setAlignment(Qt::AlignHCenter);
        story.format(centred).add("outer"_s);
        story.cursor().createList(outer);
        story.paragraph().format(QTextBlockFormat()).add("inner"_s);
        story.cursor().createList(inner);
        const QByteArray text = html(*story.document());
        QVERIFY2(text.contains("<li><p>outer</p>\n<ul>\n<li>inner</li>\n</ul>\n</li>\n"), text.constData());
        QVERIFY2(text.contains("p { text-align: center; margin: 0 }\n"), text.constData());
        QVERIFY2(!text.contains("li {"), text.constData());
    }

    /*! A heading states its own weight. */
    void headings()
    {
        const QByteArray text =
            htmlOf("\\pard\\outlinelevel1{\\b\\fs32 Title {\\b0 of} it}\\par\\pard text, more of it");
        QVERIFY2(text.contains("h2 { font-size: 16pt; font-weight: bold; margin: 0 }\n"), text.constData());
        QVERIFY2(text.contains("<h2>Title <span class=\"t1\">of</span> it</h2>\n"), text.constData());
        QVERIFY2(text.contains(".t1 { font-weight: normal }\n"), text.constData());
    }

    /*! The text of a note in line has its classes where it is written, and none where its mark is. */
    void noteInLine()
    {
        QTextCharFormat note;
        note.setProperty(ORVRtfProperty::InFootnote, true);
        QTextCharFormat red = note;
        red.setForeground(Qt::red);
        Story story;
        story.add("more text than the note has "_s).add("red text"_s, red).add("x"_s, note);
        const QByteArray rules = rulesOf(story);
        QCOMPARE(rules.count("{ color: #ff0000 }"), 1);
    }

    /*! A link states its colour and line itself. */
    void links()
    {
        const QByteArray text =
            htmlOf("some text {\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt{\\ul\\cf2 link}}}");
        QVERIFY2(text.contains("a { color: #0000ff; text-decoration: underline }\n"), text.constData());
        QVERIFY2(text.contains("<p>some text <a href=\"x\">link</a></p>\n"), text.constData());
    }

    ORV_ROWS(markers)
    {
        const Rows add([](const QByteArray& level, const QByteArray& rule, const QByteArray& tag) {
            const QByteArray text =
                htmlOf("{\\*\\listtable{\\list{\\listlevel\\levelstartat1" + level
                       + "}\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}"
                         "\\pard\\li720\\fi-360\\ls1\\ilvl0 item\\par");
            QVERIFY2(htmlRules(text).contains(rule), text.constData());
            QVERIFY2(htmlBody(text).startsWith(tag), text.constData());
        });
        const QByteArray indent = "{ margin: 0; padding: 0 0 0 36pt";
        add("decimal", "\\levelnfc0{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}", "ol " + indent + " }\n",
            "<ol>\n");
        add("letters", "\\levelnfc3{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}", "ol " + indent + " }\n",
            "<ol type=\"A\">\n");
        add("parentheses", "\\levelnfc2{\\leveltext\\'03(\\'00);}{\\levelnumbers\\'02;}",
            "@counter-style marker1 { system: extends lower-roman; prefix: \"(\"; suffix: \") \" }\n",
            "<ol type=\"i\">\n");
        add("parentheses, by name", "\\levelnfc2{\\leveltext\\'03(\\'00);}{\\levelnumbers\\'02;}",
            "ol " + indent + "; list-style-type: marker1 }\n", "<ol type=\"i\">\n");
        add("bullet", "\\levelnfc23{\\leveltext\\'01\\u8226?;}{\\levelnumbers;}",
            "ul " + indent + "; list-style-type: disc }\n", "<ul>\n");
        add("bullet of another kind", "\\levelnfc23{\\leveltext\\'01\\u8211?;}{\\levelnumbers;}",
            "ul " + indent + "; list-style-type: \"\u2013 \" }\n", "<ul>\n");
        add("East Asian numbers", "\\levelnfc12{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}",
            "li { list-style-type: \"\u30a2. \"", "<ol>\n<li>item");
    }

    /*! A class cannot restore letters that the rule of all numbered lists replaces. */
    void markersOfOtherLists()
    {
        const QByteArray decimal = "{\\listlevel\\levelnfc0\\levelstartat1{\\leveltext\\'02\\'00.;}"
                                   "{\\levelnumbers\\'01;}}";
        const QByteArray own = "{\\listlevel\\levelnfc0\\levelstartat1{\\leveltext\\'02\\'00);}"
                               "{\\levelnumbers\\'01;}}";
        const QByteArray text =
            htmlOf("{\\*\\listtable{\\list" + own + "\\listid1}{\\list" + decimal
                   + "\\listid2}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}"
                     "{\\listoverride\\listid2\\ls2}}"
                     "\\pard\\ls1 a\\par\\pard x\\par\\pard\\ls1 b\\par\\pard\\ls2 c\\par");
        QVERIFY2(text.contains("ol { margin: 0; padding: 0 }\n.ol1 { list-style-type: marker1 }\n"),
                 text.constData());
        QVERIFY2(htmlBody(text).contains("<ol>\n<li>c</li>\n</ol>\n"), text.constData());
    }

    /*! An inner list can begin further left than the text of the outer one, but padding cannot be negative. */
    void innerListFurtherLeft()
    {
        Story story;
        QTextListFormat outer;
        outer.setStyle(QTextListFormat::ListDisc);
        QTextListFormat inner = outer;
        inner.setIndent(2);
        QTextBlockFormat wide;
        wide.setLeftMargin(400);
        story.format(wide).add("outer"_s);
        story.cursor().createList(outer);
        story.paragraph().format(QTextBlockFormat()).add("inner"_s);
        story.cursor().createList(inner);
        const QByteArray rules = htmlRules(html(*story.document()));
        QVERIFY2(rules.contains("margin: 0 0 0 -"), rules.constData());
        QVERIFY2(!rules.contains("padding: 0 0 0 -"), rules.constData());
    }

    /*! The rule of most cells is undone where others have what browsers do not do by themselves. */
    void cellsUnlikeMost()
    {
        Story story;
        QTextTable* const table = story.cursor().insertTable(1, 3);
        for (int column = 0; column < 3; ++column) {
            QTextTableCellFormat format;
            format.setVerticalAlignment(column < 2 ? QTextCharFormat::AlignMiddle
                                                   : QTextCharFormat::AlignTop);
            ORVTextBorder border;
            border.style = QTextFrameFormat::BorderStyle_Solid;
            border.width = 1;
            border.color = Qt::red;
            for (int side = 0; side < (column < 2 ? 1 : int(ORVTextBorder::SideCount)); ++side)
                border.setToCell(format, ORVTextBorder::Side(side));
            table->cellAt(0, column).setFormat(format);
        }
        const QByteArray rules = htmlRules(html(*story.document()));
        QVERIFY2(rules.contains("td { vertical-align: middle;"), rules.constData());
        QVERIFY2(rules.contains(".td1 { vertical-align: top; border: 0.75pt solid #ff0000 }\n"),
                 rules.constData());
    }

    /*! Documents can have numbers that CSS has no notation for. */
    void numbersThatAreNone()
    {
        for (const double number : {qInf(), -qInf(), qQNaN(), 1e300}) {
            QTextBlockFormat format;
            format.setTextIndent(number);
            Story story;
            story.format(format).add("text"_s);
            const QByteArray rules = htmlRules(html(*story.document()));
            QVERIFY2(!rules.contains("inf") && !rules.contains("nan"), rules.constData());
            QVERIFY2(rules.size() < 200, rules.constData());
        }
    }

    /*! CSS ignores lengths below 0 that are no margins, and text must not vanish. */
    void negativeLengths()
    {
        Story story;
        QTextBlockFormat block;
        block.setLineHeight(-5, QTextBlockFormat::FixedHeight);
        QTextCharFormat text;
        text.setFontPointSize(-1);
        QTextTableFormat tableFormat;
        tableFormat.setCellPadding(-3);
        tableFormat.setWidth(QTextLength(QTextLength::FixedLength, -10));
        tableFormat.setColumnWidthConstraints({QTextLength(QTextLength::PercentageLength, -10)});
        story.format(block).add("text"_s, text);
        story.cursor().insertTable(1, 1, tableFormat);
        const QByteArray result = html(*story.document());
        QVERIFY2(!result.contains(" -"), result.constData());
    }

    /*! Documents from hostile sources must not leave the style sheet. */
    void familyName()
    {
        QTextCharFormat format;
        compat::setFontFamily(format, "a\"b</style>\\\n\u0085"_s);
        Story story;
        story.add("text"_s, format);
        const QByteArray text = html(*story.document());
        QCOMPARE(text.count("</style>"), 1);
        QVERIFY2(text.contains("font-family: \"a\\22 b\\3c /style>\\5c \\a \\85 \"; "), text.constData());
    }

    /*! Elements around nothing but blanks are left out, unless they show. */
    ORV_ROWS(blanks)
    {
        const Rows add([](const QTextCharFormat& before, const QTextCharFormat& blanks,
                          const QTextCharFormat& after, const QByteArray& text) {
            Story story;
            story.add("most of the text, "_s).add("one"_s, before).add("  "_s, blanks).add("two"_s, after);
            const QByteArray body = bodyOf(story);
            QCOMPARE(between(body, "most of the text, ", "</p>"), text);
            QVERIFY2(!rulesOf(story).contains(".t2"), rulesOf(story).constData());
        });
        QTextCharFormat italic;
        italic.setFontItalic(true);
        QTextCharFormat boldItalic = bold();
        boldItalic.setFontItalic(true);
        QTextCharFormat underlined;
        underlined.setFontUnderline(true);
        QTextCharFormat struck;
        struck.setFontStrikeOut(true);
        QTextCharFormat red;
        red.setForeground(Qt::red);
        QTextCharFormat marked;
        marked.setBackground(Qt::yellow);
        const QTextCharFormat plain;
        add("bold", plain, bold(), plain, "one  two");
        add("in a colour", plain, red, plain, "one  two");
        add("with the words around", bold(), bold(), bold(), "<strong>one  two</strong>");
        add("with what the words around have in common", boldItalic, bold(), italic,
            "<strong><em>one</em>  </strong><em>two</em>");
        add("between other formats", bold(), red, italic, "<strong>one</strong>  <em>two</em>");
        add("underlined", plain, underlined, plain, "one<u>  </u>two");
        add("struck out", bold(), struck, plain, "<strong>one</strong><s>  </s>two");
        add("with a background", plain, marked, plain, "one<span class=\"t1\">  </span>two");
    }

    /*! Text of a fixed pitch is code where that is all that it is. */
    ORV_ROWS(code)
    {
        const Rows add([](const QTextCharFormat& format, const QByteArray& text, const QByteArray& rules) {
            Story story;
            story.add("most of the text, "_s).add("x = 1"_s, format);
            QCOMPARE(between(bodyOf(story), "most of the text, ", "</p>"), text);
            QCOMPARE(rulesOf(story), "p { margin: 0 }\n" + rules);
        });
        QTextCharFormat format;
        compat::setFontFamily(format, "Courier New"_s);
        const QByteArray family = "font-family: \"Courier New\", monospace";
        add("family", format, "<code>x = 1</code>", "code { " + family + "; font-size: inherit }\n");
        format.setFontPointSize(10);
        add("family and size", format, "<code>x = 1</code>", "code { " + family + "; font-size: 10pt }\n");
        format.setFontWeight(QFont::Bold);
        add("bold", format, "<code><strong>x = 1</strong></code>",
            "code { " + family + "; font-size: 10pt }\n");
        format.setForeground(Qt::red);
        add("in a colour", format, "<span class=\"t1\"><strong>x = 1</strong></span>",
            ".t1 { " + family + "; font-size: 10pt; color: #ff0000 }\n");
        format = QTextCharFormat();
        format.setFontPointSize(10);
        add("size alone", format, "<span class=\"t1\">x = 1</span>", ".t1 { font-size: 10pt }\n");
        compat::setFontFamily(format, "Arial"_s);
        add("another family", format, "<span class=\"t1\">x = 1</span>",
            ".t1 { font-family: \"Arial\", sans-serif; font-size: 10pt }\n");
    }

    /*! Space between paragraphs of the same style: 10 and 5 points, or none. */
    void contextualSpacing()
    {
        const QByteArray styled = "\\pard\\s1\\contextualspace\\sa200 ";
        const QByteArray rtf = "{\\stylesheet{\\s1 One;}}" + styled
            + "a\\par b\\par\\pard\\sa100 c\\par d\\par e\\par e\\par" + styled
            + "f\\par\\pard\\s1\\contextualspace\\qc g";
        QCOMPARE(htmlRules(htmlOf(rtf)),
                 "body { max-width: 432pt; margin: 2em auto; padding: 0 1em; font-family: \"Alpha\"; "
                 "font-size: 12pt }\n"
                 "p { margin: 0 0 5pt }\n"
                 ".p1 { margin: 0 0 10pt }\n.p1 + .p1 { margin-top: -10pt }\n"
                 ".p2 { text-align: center; margin: 0 }\n.p2 + .p2 { margin-top: 0 }\n"_b);
        QCOMPARE(htmlBody(htmlOf(rtf)),
                 "<p class=\"p1\">a</p>\n<p class=\"p1\">b</p>\n<p>c</p>\n<p>d</p>\n<p>e</p>\n<p>e</p>\n<p "
                 "class=\"p1\">f</p>\n"
                 "<p class=\"p2\">g</p>\n"_b);
        const QByteArray most = styled + "a\\par b\\par\\pard c";
        QVERIFY(htmlRules(htmlOf(most))
                    .contains("p { margin: 0 0 10pt }\np:not([class]) + p:not([class]) { margin-top: -10pt "
                              "}\n.p1 { margin: 0 }\n"));
    }

    /*! Qt has the widths of columns as parts of the text's width, 432 points, HTML as parts of the table's. */
    void columns()
    {
        const QByteArray text =
            htmlOf("\\trowd\\cellx2160\\cellx6480\\pard\\intbl a\\cell b\\cell\\row\\pard c");
        QVERIFY2(htmlRules(text).contains("\ntable { width: 75%; border-collapse: collapse }\n"),
                 text.constData());
        QVERIFY2(htmlBody(text).contains(
                     "<colgroup><col style=\"width: 33.33%\"><col style=\"width: 66.67%\"></colgroup>"),
                 text.constData());
    }

    /*! Most links of the text, not most kinds of links, have the rule of the element. */
    void mostLinks()
    {
        const auto link = [](const QColor& color, const QString& target) {
            QTextCharFormat format;
            format.setAnchor(true);
            format.setAnchorHref(target);
            format.setForeground(color);
            return format;
        };
        Story story;
        story.add("text "_s).add("a"_s, link(Qt::red, "r:1"_s)).add(" "_s).add("b"_s, link(Qt::red, "r:2"_s));
        for (int i = 0; i < 3; ++i)
            story.add(" "_s).add("c"_s, link(Qt::blue, "b:1"_s));
        QVERIFY2(
            rulesOf(story).contains("a { color: #0000ff; text-decoration: none }\n.a1 { color: #ff0000 }\n"),
            rulesOf(story).constData());
    }

    void minimalStyle()
    {
        Story story;
        QTextBlockFormat format;
        format.setAlignment(Qt::AlignHCenter);
        format.setLeftMargin(20);
        QTextCharFormat red;
        red.setForeground(Qt::red);
        story.format(format).add("text "_s).add("red"_s, red).add(" bold"_s, bold());
        const QByteArray text = html(*story.document(), ORVHtmlWriter::MinimalStyle);
        QCOMPARE(htmlRules(text), "p { text-align: center }\n"_b);
        QCOMPARE(htmlBody(text), "<p>text red<strong> bold</strong></p>\n"_b);
    }
};

ORV_TEST("htmlstyles", TestHtmlStyles, QGuiApplication)
#include "htmlstyles.moc"
