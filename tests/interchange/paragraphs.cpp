#include "ORVHeading_p.h"
#include "ORVRtfProperties.h"
#include "ORVTabStops_p.h"
#include "ORVUnit.h"
#include "interchangehelpers.h"
#include "testsupport.h"

#include <QTextTable>

using namespace rtftest;

namespace {

QTextBlockFormat formatOfParagraph(const QByteArray& body, int number = 0)
{
    return importBody(colorTable() + body).blockFormat(number);
}

/*! The paragraphs of \a document, each behind "^" if it begins on a new page; tables likewise, in brackets. */
QString pagesOf(const QTextDocument& document)
{
    QString text;
    const QTextTable* last = nullptr;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QTextTable* const table = QTextCursor(block).currentTable();
        if (table && table != last)
            text += table->format().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore ? "^["_s : "["_s;
        last = table;
        if (block.blockFormat().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore)
            text += '^';
        text += block.text() + (table ? ']' : '|');
    }
    return text;
}

} // namespace

/*! Formats of paragraphs that the storage form does not know, and the sections they stand in. */
class TestInterchangeParagraphs : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(headings)
    {
        const Rows add([](const QByteArray& words, int level, double spacing) {
            const QTextBlockFormat format = formatOfParagraph("\\pard" + words + " x");
            QCOMPARE(ORVHeading::level(format), level);
            QCOMPARE(format.doubleProperty(ORVRtfProperty::LineSpacing), spacing);
            const bool isOfQt = format.property(compat::headingLevel).userType() == QMetaType::Int;
            QCOMPARE(isOfQt, level > 0 && spacing == 0);
        });
        add("none", "", 0, 0);
        add("first level", "\\outlinelevel0", 1, 0);
        add("last level", "\\outlinelevel5", 6, 0);
        add("beyond", "\\outlinelevel6", 0, 0);
        add("body text", "\\outlinelevel9", 0, 0);
        add("below", "\\outlinelevel-1", 0, 0);
        add("ended", "\\outlinelevel1\\outlinelevel9", 0, 0);
        add("with line spacing", "\\sl360\\outlinelevel1", 2, 18);
        add("in front of line spacing", "\\outlinelevel1\\sl360\\slmult1", 2, 18);
        add("between two of them", "\\sl240\\outlinelevel1\\sl360", 2, 18);
        add("line spacing, ended", "\\sl360\\outlinelevel1\\outlinelevel9", 0, 18);
        add("reset", "\\outlinelevel1\\pard", 0, 0);
    }

    // The break of a page or section in front of a heading is none.
    ORV_ROWS(headingsBehindBreaks)
    {
        const Rows add([](const QByteArray& words) {
            const Reading reading = importBody("\\pard\\outlinelevel0" + words + " x");
            QCOMPARE(ORVHeading::level(reading.blockFormat(0)), 0);
            QCOMPARE(ORVHeading::level(reading.blockFormat(1)), 1);
            QCOMPARE(reading.blockFormat(1).doubleProperty(ORVRtfProperty::LineSpacing),
                     words.contains("\\sl") ? 18.0 : 0.0);
        });
        add("page", "\\page");
        add("section", "\\sect");
        add("column", "\\column");
        add("with line spacing", "\\sl360\\page");
    }

    ORV_ROWS(shading)
    {
        const Rows add([](const QByteArray& words, const QString& color) {
            const QBrush brush = formatOfParagraph("\\pard" + words + " x").background();
            QCOMPARE(brush.style() == Qt::NoBrush ? "-"_s : brush.color().name(), color);
        });
        add("none", "", "-");
        add("background", "\\cbpat1", "#ff0000");
        add("automatic", "\\cbpat0", "-");
        add("pattern", "\\shading5000\\cfpat1\\cbpat3", "#800080");
        add("in another order", "\\cbpat3\\cfpat1\\shading5000", "#800080");
        add("without colours", "\\shading2000", "#cccccc");
        add("reset", "\\shading5000\\cbpat1\\pard\\cfpat2", "-");
        add("group", "{\\cbpat1}", "-");
        add("state of the group", "{\\shading10000}\\cfpat2\\cbpat1", "#ff0000");
    }

    ORV_ROWS(contextualSpacing)
    {
        const Rows add([](const QByteArray& words, int value) {
            const QTextBlockFormat format = formatOfParagraph("\\pard" + words + " x");
            QCOMPARE(format.hasProperty(ORVRtfProperty::ContextualSpacing), value != 0);
            QCOMPARE(format.intProperty(ORVRtfProperty::ContextualSpacing), value);
        });
        add("style only", "\\s4", 0);
        add("no style", "\\contextualspace", 1);
        add("style", "\\s4\\contextualspace", 5);
        add("style behind it", "\\contextualspace\\s4", 5);
        add("off", "\\s4\\contextualspace\\contextualspace0", 0);
        add("reset", "\\s4\\contextualspace\\pard", 0);
        add("greatest style", "\\s2147483647\\contextualspace", 2147483647);
        add("style below nothing", "\\s-3\\contextualspace", 1);
        add("style of the group", "{\\s4}\\contextualspace", 1);
        add("style reset", "\\s4\\pard\\contextualspace", 1);
    }

    ORV_ROWS(tabLeaders)
    {
        const Rows add([](const QByteArray& words, const QVariant& leaders) {
            QCOMPARE(formatOfParagraph("\\pard" + words + " x").property(ORVRtfProperty::TabLeaders),
                     leaders);
        });
        add("none", "\\tx100\\tqr\\tx200", QVariant());
        add("dots", "\\tldot\\tx100", "."_s);
        add("kind of tab between", "\\tldot\\tqr\\tx100", "."_s);
        add("others", "\\tlmdot\\tx1\\tlhyph\\tx2\\tlul\\tx3\\tlth\\tx4\\tleq\\tx5", u8"\u00b7-__="_s);
        add("one each", "\\tx100\\tldot\\tx200\\tx300", " . "_s);
        add("reset", "\\tldot\\tx100\\pard\\tx200", QVariant());
        add("reset before its tab stop", "\\tldot\\pard\\tx200", QVariant());
        add("group before its tab stop", "{\\tldot}\\tx200", QVariant());
        add("no tab stop", "\\tldot", QVariant());
    }

    void tabLeadersAreParallelToTabStops()
    {
        const QTextBlockFormat format = formatOfParagraph("\\pard\\tx100\\tldot\\tqr\\tx200\\tx300 x");
        QCOMPARE(format.tabPositions().size(), format.stringProperty(ORVRtfProperty::TabLeaders).size());
        QCOMPARE(format.tabPositions().at(1).type, QTextOption::RightTab);
    }

    ORV_ROWS(defaultTabs)
    {
        const Rows add([](const QByteArray& words, double twips) {
            const Reading reading = importBody(words + " x");
            QCOMPARE(ORVTabStops::distance(reading.document->defaultTextOption()),
                     twips * ORVUnit::screenResolution() / 1440);
        });
        add("not stated", "", 720);
        add("stated", "\\deftab1134", 1134);
        add("nothing", "\\deftab0", 720);
        add("below nothing", "\\deftab-7", 720);
        add("too small", "\\deftab1", 20);
        add("too large", "\\deftab2147483647", 31680);
    }

    void storageFormKeepsTheTabsOfQt()
    {
        QCOMPARE(readBody("\\deftab1134 x").document->defaultTextOption().tabStopDistance(),
                 QTextDocument().defaultTextOption().tabStopDistance());
    }

    ORV_ROWS(sections)
    {
        const Rows add([](const QByteArray& body, const QString& pages) {
            const Reading reading = importBody(body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(pagesOf(*reading.document), pages);
        });
        add("nothing stated", "a\\sect b\\par c", "a|^b|c|");
        add("reset", "a\\sect\\sectd b\\par c", "a|^b|c|");
        addSections(add, "\\sbkpage \\sbkodd \\sbkeven", "a|^b|");
        addSections(add, "\\sbknone \\sbkcol", "a|b|");
        add("kind goes on", "\\sbknone a\\sect b\\sect c", "a|b|c|");
        add("until it is reset", "\\sbknone a\\sect b\\sect\\sectd c", "a|b|^c|");
        add("the last kind counts", "a\\sect\\sbknone\\sbkpage b", "a|^b|");
        add("at the beginning", "\\sect a", "|a|");
        add("at the end", "a\\par\\sect", "a|||");
        add("several", "a\\sect\\sect b", "a|^|^b|");
        add("group", "a\\sect{\\pard b}\\par c", "a|^b|c|");
        add("ends in the group", "a\\sect{\\pard b\\par}c", "a|^b|c|");
        add("empty paragraph first", "a\\sect\\par b", "a|^|b|");
        add("break of its own", "a\\sect\\pard\\pagebb b\\par\\pard c", "a|^b|c|");
        add("section of a paragraph that begins a page", "\\pard\\pagebb a\\par\\sect\\sbknone\\pard b",
            "^a||b|");
        add("table", "a\\sect\\trowd\\cellx900\\intbl b\\cell\\row\\pard c", "a|^[b]c|");
        add("table with an empty cell",
            "a\\sect\\trowd\\cellx900\\cellx1800\\intbl\\cell b\\cell\\row\\pard c", "a|^[]b]c|");
        add("table without break", "a\\sect\\sbknone\\trowd\\cellx900\\intbl b\\cell\\row\\pard c",
            "a|[b]c|");
        add("behind a table", "\\trowd\\cellx900\\intbl a\\cell\\row\\pard\\sect b", "|[a]|^b|");
        add("header", "a\\sect{\\header h}b", "a|^b|");
        add("note", "a\\sect{\\footnote n}b", u8"a|^1b|");
    }

    ORV_ROWS(columns)
    {
        const Rows add([](const QByteArray& body, const QString& pages) {
            QCOMPARE(pagesOf(*importBody(body).document), pages);
        });
        add("one", "a\\column b", "a|^b|");
        add("two", "\\cols2 a\\column b", "a|b|");
        add("reset", "\\cols2 a\\sect\\sectd\\sbknone b\\column c", "a|b|^c|");
    }

    ORV_ROWS(directions)
    {
        const Rows add([](const QByteArray& body, const QVariant& direction) {
            QCOMPARE(importBody(body).blockFormat(0).property(QTextFormat::LayoutDirection), direction);
        });
        const QByteArray hebrew = "\\u1488?";
        add("text from left to right", "a" + hebrew, QVariant());
        add("text from right to left", hebrew + "a", int(Qt::LeftToRight));
        add("signs first", "{1. }\\b " + hebrew, int(Qt::LeftToRight));
        add("stated", "\\rtlpar " + hebrew, int(Qt::RightToLeft));
        add("stated of text from left to right", "\\rtlpar a", int(Qt::RightToLeft));
        add("no text", "", QVariant());
    }

    void storageFormKnowsNone()
    {
        const QByteArray words = "\\outlinelevel0\\cbpat1\\shading500\\s4\\contextualspace\\tldot";
        QCOMPARE(dump(readBody(colorTable() + "\\pard" + words + "\\tx100 x").blockFormat(0)),
                 dump(readBody("\\pard\\tx100 x").blockFormat(0)));
    }

private:
    template <typename Add>
    static void addSections(const Add& add, const QByteArray& words, const char* pages)
    {
        for (const QByteArray& word : words.split(' '))
            add(word, "a\\sect\\sectd" + word + " b", pages);
    }
};

ORV_TEST("interchange_paragraphs", TestInterchangeParagraphs, QGuiApplication)
#include "paragraphs.moc"
