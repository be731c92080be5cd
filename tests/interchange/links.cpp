#include "interchangehelpers.h"
#include "runhelpers.h"
#include "tabletesthelpers.h"
#include "testsupport.h"

#include <QTextList>

using namespace rtftest;

namespace {

QByteArray field(const QByteArray& instruction, const QByteArray& result = "b")
{
    return "{\\field{\\*\\fldinst " + instruction + "}{\\fldrslt " + result + "}}";
}

/*! The text with "[target: text]" for links. */
QString linksIn(const QTextDocument& document)
{
    QString text;
    const QList<QTextFragment> fragments = fragmentsOf(document);
    for (const QTextFragment& fragment : fragments) {
        const QTextCharFormat format = fragment.charFormat();
        const bool isLink = format.isAnchor() && format.hasProperty(QTextFormat::AnchorHref);
        text += isLink ? QString::fromLatin1("[%1: %2]").arg(format.anchorHref(), fragment.text())
                       : fragment.text();
    }
    return text;
}

/*! The text with "<names: text>" for what has names. */
QString anchorsIn(const QTextDocument& document)
{
    QString text;
    const QList<QTextFragment> fragments = fragmentsOf(document);
    for (const QTextFragment& fragment : fragments) {
        const QStringList names = fragment.charFormat().anchorNames();
        text += names.isEmpty()
            ? fragment.text()
            : QString::fromLatin1("<%1: %2>").arg(names.join(QLatin1String(",")), fragment.text());
    }
    return text;
}

QByteArray box(const QByteArray& content)
{
    return "{\\shp{\\*\\shpinst\\shpleft0{\\sp{\\sn shapeType}{\\sv 202}}{\\shptxt " + content
        + "}}{\\shprslt{\\*\\do{\\dptxbxtext fallback}}}}";
}

} // namespace

/*! Links, bookmarks, and text that stands where other programs would not look for it. */
class TestInterchangeLinks : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(links)
    {
        const Rows add([](const QByteArray& body, const QString& text) {
            const Reading reading = importBody("a" + body + "c");
            QCOMPARE(reading.status, 0);
            QCOMPARE(linksIn(*reading.document), text);
        });
        add("in quotation marks", field("HYPERLINK \"http://x/y z\""), "a[http://x/y z: b]c");
        add("without quotation marks", field("HYPERLINK http://x/y"), "a[http://x/y: b]c");
        add("in small letters", field("hyperlink \"x\""), "a[x: b]c");
        add("blanks", field("  HYPERLINK   \"x\"  "), "a[x: b]c");
        add("in groups", field("{HYPERLINK }{\\b \"x}{y\"}"), "a[xy: b]c");
        add("place", field("HYPERLINK \\\\l \"name\""), "a[#name: b]c");
        add("place without quotation marks", field("HYPERLINK \\\\l name"), "a[#name: b]c");
        add("target and place", field("HYPERLINK \"x.rtf\" \\\\l \"name\""), "a[x.rtf#name: b]c");
        add("place and target", field("HYPERLINK \\\\l \"name\" \"x.rtf\""), "a[x.rtf#name: b]c");
        add("target with a place", field("HYPERLINK \"#name\""), "a[#name: b]c");
        add("tip", field("HYPERLINK \"x\" \\\\o \"tip\""), "a[x: b]c");
        add("tip first", field("HYPERLINK \\\\o \"tip\" \"x\""), "a[x: b]c");
        add("window", field("HYPERLINK \"x\" \\\\t \"_blank\" \\\\n"), "a[x: b]c");
        add("format", field("HYPERLINK \"x\" \\\\* MERGEFORMAT"), "a[x: b]c");
        add("escaped backslashes", field("HYPERLINK \"C:\\\\\\\\dir\\\\\\\\x.rtf\""),
            "a[C:\\dir\\x.rtf: b]c");
        add("single backslashes", field("HYPERLINK \"C:\\\\dir\\\\x.rtf\""), "a[C:\\dir\\x.rtf: b]c");
        add("escaped quotation mark", field("HYPERLINK \"x\\\\\"y\""), "a[x\"y: b]c");
        add("closing quotation mark missing", field("HYPERLINK \"x y"), "a[x y: b]c");
        add("typographic quotation marks", field("HYPERLINK \\'93x y\\'94"), "a[x y: b]c");
        add("other characters", field("HYPERLINK \"http://x/\\'e9\\u946?\""), "a[http://x/éβ: b]c");
        add("empty target", field("HYPERLINK \"\""), "abc");
        add("no target", field("HYPERLINK"), "abc");
        add("another word", field("HYPERLINKS \"x\""), "abc");
        add("result in groups", field("HYPERLINK \"x\"", "{\\cs1 b}{\\b b}"), "a[x: b][x: b]c");
        add("plain text in the result", field("HYPERLINK \"x\"", "\\plain b{\\plain b}"), "a[x: bb]c");
        add("paragraphs in the result", field("HYPERLINK \"x\"", "b\\par\\pard\\plain b"), "a[x: b][x: b]c");
        add("instruction without an asterisk", "{\\field{\\fldinst HYPERLINK \"x\"}{\\fldrslt b}}",
            "a[x: b]c");
        add("changed by the user", "{\\field\\fldedit{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt b}}",
            "a[x: b]c");
        add("data of the field",
            field("HYPERLINK \"x\"{\\*\\datafield 00d0c9ea79f9bace118c8200aa004ba90b02}"), "a[x: b]c");
        add("two", field("HYPERLINK \"x\"") + field("HYPERLINK \"y\""), "a[x: b][y: b]c");
        add("field in the result", field("HYPERLINK \\\\l \"x\"", "b\\tab " + field("PAGEREF x \\\\h", "7")),
            "a[#x: b\t7]c");
        add("link behind another field in the result",
            field("TOC \\\\o", field("HYPERLINK \\\\l \"x\"", "b") + "d"), "a[#x: b]dc");
        add("page reference", field("PAGEREF name"), "a[#name: b]c");
        add("page reference with a switch", field("PAGEREF name \\\\h \\\\* MERGEFORMAT"), "a[#name: b]c");
        add("reference with a link", field("REF name \\\\h"), "a[#name: b]c");
        add("reference without a link", field("REF name"), "abc");
        add("format of a reference", field("REF name \\\\* Charformat"), "abc");
        add("reference to a note", field("NOTEREF name \\\\h"), "a[#name: b]c");
        add("reference to nothing", field("PAGEREF \\\\h"), "abc");
        add("field of a field's instruction",
            field("IF {\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt y}} = 1"), "abc");
        add("very long", field("HYPERLINK \"" + QByteArray(20000, 'x') + "\""),
            "a[" + QString(8192 - 11, 'x') + ": b]c");
        add("no instruction", "{\\field{\\fldrslt b}}", "abc");
        add("instruction outside of a field", "{\\*\\fldinst HYPERLINK \"x\"}b", "abc");
    }

    ORV_ROWS(bookmarks)
    {
        const Rows add([](const QByteArray& body, const QString& text) {
            const Reading reading = importBody(body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(anchorsIn(*reading.document), text);
        });
        add("around text", "a{\\*\\bkmkstart x}bc{\\*\\bkmkend x}d", "a<x: b>cd");
        add("at a place", "a{\\*\\bkmkstart x}{\\*\\bkmkend x}bc", "a<x: b>c");
        add("two", "a{\\*\\bkmkstart x}{\\*\\bkmkstart y z}bc", "a<x,y z: b>c");
        add("in groups", "a{\\b{\\*\\bkmkstart x}}{\\i b}c", "a<x: b>c");
        add("in the next paragraph", "a{\\*\\bkmkstart x}\\par b", "a<x: b>");
        add("hidden text behind it", "a{\\*\\bkmkstart x}{\\v b}cd", "a<x: c>d");
        add("two code units", "a{\\*\\bkmkstart x}\\u-10179?\\u-8704?b", "a<x: 😀>b");
        add("nothing behind it", "a{\\*\\bkmkstart x}", "a");
        add("no name", "a{\\*\\bkmkstart }b", "ab");
        add("white space", "a{\\*\\bkmkstart  x \n}b", "a<x: b>");
        add("other characters", "a{\\*\\bkmkstart \\'e9\\u946?}b", "a<éβ: b>");
        add("columns of a table", "a{\\*\\bkmkstart\\bkmkcolf0\\bkmkcoll1 x}b", "a<x: b>");
        add("long name", "a{\\*\\bkmkstart " + QByteArray(1000, 'x') + "}b",
            "a<" + QString(255, 'x') + ": b>");
        add("in a link", "a{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt{\\*\\bkmkstart y}bc}}d",
            "a<y: b>cd");
        add("end of a paragraph in the name", "a{\\*\\bkmkstart x\\par}b", "a<x: b>");
        add("in a header", "{\\header{\\*\\bkmkstart x}H}ab", "ab");
        add("in front of a note", "a{\\*\\bkmkstart x}{\\footnote N}b", "a<x: 1>b");
        add("in front of a picture",
            "a{\\*\\bkmkstart x}{\\pict\\pngblip " + encoded(solidImage(1, 1, Qt::red)).toHex() + "}b",
            QString::fromUtf8("a<x: \ufffc>b"));
    }

    void bookmarkOfALink()
    {
        const Reading reading =
            importBody("{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt{\\*\\bkmkstart y}bc}}d");
        const QTextCharFormat format = fragmentsOf(*reading.document).value(0).charFormat();
        QCOMPARE(format.anchorHref(), QLatin1String("x"));
        QCOMPARE(format.anchorNames(), QStringList("y"));
        QVERIFY(!formatOf(*reading.document, QLatin1String("d")).isAnchor());
    }

    /*! Formats with different names are found by their numbers: Qt hashes lists by their type only. */
    void manyBookmarks()
    {
        QByteArray body;
        for (int i = 0; i < 20000; ++i)
            body += "{\\*\\bkmkstart x" + QByteArray::number(i) + "}a{\\b b}";
        const Reading reading = importBody(body);
        const QList<QTextFragment> fragments = fragmentsOf(*reading.document);
        QCOMPARE(fragments.size(), 40000);
        QCOMPARE(fragments.value(39998).charFormat().anchorNames(), QStringList("x19999"));
    }

    ORV_ROWS(textBoxes)
    {
        const Rows add([](const QByteArray& body, const QString& content) {
            const Reading reading = importBody(body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(contentOf(*reading.document), content);
        });
        add("in a paragraph", "a" + box("B") + "b\\par c", "ab|B|c");
        add("several paragraphs", "a" + box("B\\par C\\par") + "b\\par c", "ab|B|C|c");
        add("two", "a" + box("B") + box("C") + "\\par c", "a|B|C|c");
        add("in the last paragraph", "a" + box("B") + "b", "ab|B");
        add("in an empty paragraph", box("B") + "\\par c", "|B|c");
        add("in a cell", "\\trowd\\cellx4000\\pard\\intbl a" + box("B") + "b\\cell\\row\\pard c",
            "|{1: ab|B}|c");
        add("in a cell without its end", "\\trowd\\cellx4000\\pard\\intbl a" + box("B") + "\\row\\pard c",
            "|{1: a|B}|c");
        add("with a table", "a" + box("\\trowd\\cellx500 B\\cell\\row\\pard C") + "b\\par c",
            "ab|{1: B}|C|c");
        add("in a box", "a" + box("B" + box("C") + "\\par D") + "\\par c", "a|B|C|D|c");
        add("in a note", "a{\\footnote N" + box("B") + "}\\par c", "a1|c");
        add("at a page break", "a" + box("B") + "\\page b", "a|B|b");
        add("nothing in it", "a" + box("\\pard\\par") + "b\\par c", "ab|fallback|c");
        add("hidden", "a{\\v" + box("B") + "}b\\par c", "ab|c");
        add("drawn", "a{\\*\\do\\dobxpage{\\dptxbx\\dptxlrtb{\\dptxbxtext\\pard B\\par}}}b\\par c", "ab|B|c");
        add("fallback without a text", "a{\\shp{\\*\\shpinst{\\shptxt }}{\\shprslt\\par B\\par}}b\\par c",
            "a|B|b|c");
        add("note in it", "a" + box("B{\\footnote N}") + "\\par c", "a|B1|c");
    }

    void inputEndsInATextBox()
    {
        const Reading reading = import("{\\rtf1 a{\\shp{\\*\\shpinst{\\shptxt B");
        QCOMPARE(reading.status, 2);
        QCOMPARE(reading.text(), QLatin1String("a\nB"));
    }

    void formatsOfATextBox()
    {
        const Reading reading = importBody("\\qr\\b a" + box("\\pard\\plain\\qc\\i B\\par C") + "b\\par c");
        QTextBlock block = reading.document->begin();
        QCOMPARE(block.blockFormat().alignment(), Qt::AlignRight);
        block = block.next();
        QCOMPARE(block.text(), QLatin1String("B"));
        QCOMPARE(block.blockFormat().alignment(), Qt::AlignHCenter);
        QVERIFY(block.begin().fragment().charFormat().fontItalic());
        block = block.next();
        QCOMPARE(block.blockFormat().alignment(), Qt::AlignHCenter);
        block = block.next();
        QCOMPARE(block.text(), QLatin1String("c"));
        QCOMPARE(block.blockFormat().alignment(), Qt::AlignRight);
        QCOMPARE(block.begin().fragment().charFormat().fontWeight(), int(QFont::Bold));
    }

    void pictureInATextBox()
    {
        const QByteArray picture = "{\\pict\\pngblip " + encoded(solidImage(1, 1, Qt::red)).toHex() + "}";
        const Reading reading = importBody("a" + box(picture) + "\\par c");
        const QList<QTextImageFormat> images = imagesOf(*reading.document);
        QCOMPARE(images.size(), 1);
        QVERIFY(
            !reading.document->resource(QTextDocument::ImageResource, QUrl(images.value(0).name())).isNull());
    }

    void nestedTextBoxes()
    {
        QByteArray body = "a";
        for (int i = 0; i < 40; ++i)
            body += "{\\shp{\\*\\shpinst{\\shptxt B" + QByteArray::number(i) + "\\par ";
        body += QByteArray(120, '}');
        const Reading reading = importBody(body);
        QCOMPARE(reading.status, 0);
        QVERIFY(reading.text().startsWith(QLatin1String("a\nB0\n\nB1\n\nB2\n")));
        QVERIFY(!reading.text().contains(QLatin1String("B16")));
    }

    /*! A program writes items of lists in the groups of their labels. */
    ORV_ROWS(labels)
    {
        const Rows add(
            [](const QByteArray& body, const QString& text) { QCOMPARE(importedText(body), text); });
        add("label", "{\\listtext 1.\\tab}a", "a");
        add("label with formats", "{\\listtext\\pard\\plain\\f0 1.\\tab}a", "a");
        add("paragraph", "{\\listtext\\pard\\li720{\\b\\tab a}{\\par}\n}{\\listtext b{\\par}}c", "\ta\nb\nc");
        add("paragraph in several lines", "{\\listtext\n\\pard\n{\\b a\n}{\n\\par\n}\n}b", "a\nb");
        add("a longer word", "{\\listtext 1.\\parx\\pard0}a", "a");
        add("escaped brace", "{\\listtext 1.\\}\\tab}a\\par b", "a\nb");
        add("behind the group", "{\\listtext 1.}\\par a", "\na");
        add("at the end of the input", "{\\listtext 1.", "");
        add("far away", "{\\listtext " + QByteArray(70000, '1') + "\\par}a", "a");
    }
};

ORV_TEST("interchange_links", TestInterchangeLinks, QGuiApplication)
#include "links.moc"
