#include "ORVHeading_p.h"
#include "ORVPageGeometry.h"
#include "ORVStockFormats.h"
#include "ORVTextBorder.h"
#include "ORVUnit.h"
#include "QtFormatCompat_p.h"
#include "interchangehelpers.h"
#include "tabletesthelpers.h"
#include "testsupport.h"

using rtftest::blockFormat;
using rtftest::documentLines;
using rtftest::dump;
using rtftest::listFormatWith;
using rtftest::Properties;
using namespace ORVRtfProperty;

namespace {

const int LeftMargin = QTextFormat::BlockLeftMargin;
const int RightMargin = QTextFormat::BlockRightMargin;
const int FirstLine = QTextFormat::TextIndent;
const int Above = QTextFormat::BlockTopMargin;
const int Below = QTextFormat::BlockBottomMargin;
const int LineHeight = QTextFormat::LineHeight;
const int LineHeightType = QTextFormat::LineHeightType;

QTextBlockFormat indented(double left, double firstLine)
{
    return blockFormat({{LeftIndent, left}, {FirstLine, firstLine}});
}

/*! The format of the text of a document of one run. */
QTextCharFormat charFormat(const QTextDocument& document)
{
    return document.begin().begin().fragment().charFormat();
}

/*! The left margin and the indent of the first line. */
QPointF placeOf(const QTextBlock& block)
{
    return {block.blockFormat().leftMargin(), block.blockFormat().textIndent()};
}

/*! A document of one paragraph with that format. */
class Paragraph {
public:
    explicit Paragraph(const QTextBlockFormat& format)
    {
        QTextCursor cursor(&document);
        cursor.setBlockFormat(format);
        cursor.insertText("text"_s);
    }

    QTextBlockFormat format() const { return document.begin().blockFormat(); }
    QTextBlockFormat stockFormat()
    {
        ORVStockFormats::toStock(&document);
        return format();
    }
    QTextBlockFormat formatFromStock()
    {
        ORVStockFormats::fromStock(&document);
        return format();
    }
    void merge(const QTextBlockFormat& change) { QTextCursor(&document).mergeBlockFormat(change); }

    QTextDocument document;
};

QTextTableFormat tableFormat(double border, double padding)
{
    QTextTableFormat format;
    format.setCellSpacing(0);
    format.setCellPadding(padding);
    format.setBorder(border);
    return format;
}

QTextTable* insertTable(QTextDocument* document, const QTextTableFormat& format)
{
    QTextCursor cursor(document);
    cursor.movePosition(QTextCursor::End);
    return cursor.insertTable(1, 1, format);
}

QTextTableFormat withWidths(double first, double second, QTextTableFormat format = QTextTableFormat())
{
    format.setColumnWidthConstraints({QTextLength(QTextLength::PercentageLength, first),
                                      QTextLength(QTextLength::PercentageLength, second)});
    return format;
}

ORVTextListLevel level(const QString& text, double indent, double firstLine)
{
    return rtftest::makeLevel(ORVTextListLevel::Decimal, text, indent, firstLine);
}

} // namespace

/*! Formats in the application's form (points) and in Qt's own (pixels, 96 to the inch), both ways. */
class TestStockFormats : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { ORVUnit::setScreenResolution(96); }

    void nullDocumentsAreLeftAlone()
    {
        ORVStockFormats::toStock(nullptr);
        ORVStockFormats::fromStock(nullptr);
    }

    ORV_ROWS(paragraphs)
    {
        const Rows add([](const Properties& application, const Properties& stock) {
            Paragraph paragraph(blockFormat(application));
            const QTextBlockFormat format = paragraph.stockFormat();
            for (Properties::const_iterator it = stock.begin(); it != stock.end(); ++it)
                QCOMPARE(format.property(it.key()), it.value());
        });
        const int least = QTextBlockFormat::MinimumHeight;
        const int exact = QTextBlockFormat::FixedHeight;
        const int proportional = QTextBlockFormat::ProportionalHeight;
        // A point is 4/3 pixels.
        add("left indent", {{LeftIndent, 36.0}, {FirstLine, 36.0}}, {{LeftMargin, 48.0}, {FirstLine, 0.0}});
        add("indented first line", {{LeftIndent, 36.0}, {FirstLine, 54.0}},
            {{LeftMargin, 48.0}, {FirstLine, 24.0}});
        add("first line only", {{FirstLine, 18.0}}, {{FirstLine, 24.0}});
        // 8640 twips of text are 432 points.
        add("right edge", {{RightIndent, 414.0}}, {{RightMargin, 24.0}});
        add("right edge in the margin", {{RightIndent, 450.0}}, {{RightMargin, -24.0}});
        add("space around", {{Above, 12.0}, {Below, 6.0}}, {{Above, 16.0}, {Below, 8.0}});
        add("line multiple", {{LineSpacing, 18.0}, {LineMultiple, 12.0}},
            {{LineHeight, 150.0}, {LineHeightType, proportional}});
        add("least height", {{LineSpacing, 24.0}}, {{LineHeight, 32.0}, {LineHeightType, least}});
        add("exact height", {{LineSpacing, -24.0}}, {{LineHeight, 32.0}, {LineHeightType, exact}});
        add("single lines", {{LineSpacing, 12.0}, {LineMultiple, 12.0}},
            {{LineHeight, QVariant()}, {LineHeightType, QVariant()}});
        // Word processors take 22 inches, which are 1584 points and 2112 pixels.
        add("left indent of miles", {{LeftIndent, 1e7}, {FirstLine, 1e7}},
            {{LeftMargin, 2112.0}, {FirstLine, 0.0}});
        add("first line miles away", {{FirstLine, -1e8}}, {{FirstLine, -2112.0}});
        add("right edge miles away", {{RightIndent, 1e7}}, {{RightMargin, -2112.0}});
        add("miles of space", {{Above, 1e6}, {Below, 1e8}}, {{Above, 2112.0}, {Below, 2112.0}});
        add("22 inches of space", {{Above, 1584.0}, {Below, 1583.25}}, {{Above, 2112.0}, {Below, 2111.0}});
        add("less than no space", {{Above, -12.0}}, {{Above, 0.0}});
        add("least height of miles", {{LineSpacing, 1e7}}, {{LineHeight, 2112.0}});
        add("exact height of miles", {{LineSpacing, -1e7}}, {{LineHeight, 2112.0}});
        add("multiple of miles", {{LineSpacing, 1e8}, {LineMultiple, 12.0}}, {{LineHeight, 13200.0}});
        // Newer Qt versions have a property of the id of the line spacing.
        add("heading level", {{LineSpacing, 2}}, {{LineHeight, QVariant()}});
        // What Qt calls lines that cannot be broken are lines that are never wrapped.
        const int keep = KeepLinesTogether | KeepWithNext | QTextFormat::PageBreak_AlwaysBefore;
        add("keep bits", {{QTextFormat::PageBreakPolicy, keep}},
            {{QTextFormat::PageBreakPolicy, keep}, {QTextFormat::BlockNonBreakableLines, QVariant()}});
    }

    void rightEdgeDependsOnThePage()
    {
        Paragraph paragraph(blockFormat({{RightIndent, 400.0}}));
        ORVPageGeometry page;
        page.paperSize = QSizeF(600, 800);
        page.leftMargin = 100;
        page.rightMargin = 50;
        page.setOn(&paragraph.document);
        QCOMPARE(paragraph.stockFormat().rightMargin(), (450.0 - 400.0) * 4 / 3);
    }

    ORV_ROWS(tabStops)
    {
        const Rows add(
            [](double left, double firstLine, const QList<double>& points, const QList<double>& pixels) {
                QTextBlockFormat format = indented(left, firstLine);
                QList<QTextOption::Tab> tabs;
                for (const double position : points)
                    tabs << QTextOption::Tab(position, QTextOption::RightTab);
                if (!tabs.isEmpty())
                    format.setTabPositions(tabs);
                Paragraph paragraph(format);
                QList<double> found;
                for (const QTextOption::Tab& tab : paragraph.stockFormat().tabPositions())
                    found << tab.position;
                QCOMPARE(found, pixels);
            });
        add("no indent", 0.0, 0.0, {36, 72}, {48, 96});
        add("counted from the left indent", 18.0, 18.0, {9, 36}, {-12, 24});
        add("hanging first line", 36.0, 18.0, {27, 72}, {-12, 0, 48});
        add("hanging, stated", 36.0, 18.0, {36}, {0});
        add("miles away", 0.0, 0.0, {36, 1e7}, {48, 2112});
        add("hanging without tab stops", 36.0, 18.0, {}, {0});
    }

    ORV_ROWS(baselines)
    {
        typedef QTextCharFormat Format;
        const Rows add([](Format::VerticalAlignment alignment, int shift, Format::VerticalAlignment shown) {
            Format format;
            format.setVerticalAlignment(alignment);
            format.setProperty(BaselineShift, shift);
            QTextDocument document;
            QTextCursor(&document).insertText("text"_s, format);
            ORVStockFormats::toStock(&document);
            QCOMPARE(charFormat(document).verticalAlignment(), shown);
        });
        add("up", Format::AlignMiddle, 6, Format::AlignSuperScript);
        add("down", Format::AlignMiddle, -6, Format::AlignSubScript);
        add("back to the baseline", Format::AlignMiddle, 0, Format::AlignMiddle);
        add("subscript after all", Format::AlignSubScript, 6, Format::AlignSubScript);
    }

    // Qt adds 40 pixels for the list, and puts the marker in front of the first line.
    void listItemsStandWhereRtfSays()
    {
        QTextDocument document("hanging\nflat\nstated"_s);
        QTextList* const list = QTextCursor(&document).createList(
            listFormatWith({level("%0."_s, 36, 18), level("%0)"_s, 72, 72)}));
        const QTextBlock second = document.findBlockByNumber(1);
        const QTextBlock third = document.lastBlock();
        list->add(second);
        list->add(third);
        ORVTextListFormat::setBlockLevel(list, document.begin(), 0);
        ORVTextListFormat::setBlockLevel(list, second, 1);
        QTextCursor(third).mergeBlockFormat(indented(54, 18));

        ORVStockFormats::toStock(&document);
        QCOMPARE(placeOf(document.begin()), QPointF(48 - 40, 0));
        // The marker at the left edge, the text 18 points behind it.
        QCOMPARE(placeOf(second), QPointF(96 - 40, 24));
        QCOMPARE(placeOf(third), QPointF(72 - 40, 0));
        QCOMPARE(list->format().indent(), 1);
        QCOMPARE(third.textList(), list);
    }

    void listsOfQtStayWhereTheyAre()
    {
        QTextDocument document;
        QTextCursor(&document).createList(QTextListFormat::ListDisc);
        ORVStockFormats::toStock(&document);
        QCOMPARE(placeOf(document.begin()), QPointF(0, 0));
        ORVStockFormats::fromStock(&document);
        QVERIFY(!document.begin().blockFormat().hasProperty(LeftIndent));
    }

    // A list that the file does not describe: RTF does not indent its items, Qt does.
    void unknownListsIndentNothing()
    {
        const rtftest::Reading reading = rtftest::readBody("\\pard\\ls7 text");
        ORVStockFormats::toStock(reading.document.data());
        QCOMPARE(reading.blockFormat(0).leftMargin(), -40.0);
    }

    void listsWithoutMarkersShowNone()
    {
        QTextDocument document;
        const QTextList* const list =
            QTextCursor(&document).createList(listFormatWith({level(""_s, 0, 0), level(""_s, 36, 36)}));
        const QTextListFormat::Style style = list->format().style();
        QVERIFY(style != QTextListFormat::ListStyleUndefined);
        ORVStockFormats::toStock(&document);
        QCOMPARE(list->format().style(), QTextListFormat::ListStyleUndefined);
        ORVStockFormats::fromStock(&document);
        QCOMPARE(list->format().style(), style);
    }

    void tables()
    {
        QTextDocument document;
        QTextTable* const table = insertTable(&document, tableFormat(1.5, 3));
        QTextTableFormat hairline = tableFormat(0.05, 3);
        hairline.setCellSpacing(2);
        QTextTable* const second = insertTable(&document, hairline);
        QTextTable* const third = insertTable(&document, tableFormat(1, 1e7));
        ORVStockFormats::toStock(&document);
        QCOMPARE(table->format().cellPadding(), 4.0);
        QCOMPARE(table->format().border(), 2.0);
        QCOMPARE(table->format().property(compat::tableBorderCollapse), QVariant(true));
        QCOMPARE(second->format().border(), 1.0);
        QCOMPARE(second->format().property(compat::tableBorderCollapse), QVariant());
        QCOMPARE(third->format().cellPadding(), 2112.0);
    }

    /*! Lines and padding of cells. A line below a pixel is still seen; the distance from the margin is not cut off. */
    void cells()
    {
        QTextDocument document;
        QTextTableFormat format = tableFormat(0, 0);
        format.setLeftMargin(-9);
        QTextTable* const table = insertTable(&document, format);
        format.setLeftMargin(36);
        QTextTable* const right = insertTable(&document, format);
        QTextCharFormat cellFormat = table->cellAt(0, 0).format();
        ORVTextBorder border;
        border.style = QTextFrameFormat::BorderStyle_Dotted;
        border.width = 0.25;
        border.setToCell(cellFormat, ORVTextBorder::Left);
        border.width = 3;
        border.setToCell(cellFormat, ORVTextBorder::Right);
        cellFormat.setProperty(QTextFormat::TableCellLeftPadding, 5.4);
        table->cellAt(0, 0).setFormat(cellFormat);
        const QStringList lines = documentLines(document);
        ORVStockFormats::toStock(&document);
        const QTextCharFormat stock = table->cellAt(0, 0).format();
        QCOMPARE(ORVTextBorder::ofCell(stock, ORVTextBorder::Left).width, 1.0);
        QCOMPARE(ORVTextBorder::ofCell(stock, ORVTextBorder::Right).width, 4.0);
        QCOMPARE(stock.doubleProperty(QTextFormat::TableCellLeftPadding), 7.2);
        QCOMPARE(table->format().leftMargin(), -4.0);
        QCOMPARE(table->format().rightMargin(), 4.0);
        QCOMPARE(right->format().leftMargin(), 48.0);
        QCOMPARE(right->format().rightMargin(), -48.0);
        const QStringList stockLines = documentLines(document);
        ORVStockFormats::toStock(&document);
        QCOMPARE(documentLines(document), stockLines);
        ORVStockFormats::fromStock(&document);
        QCOMPARE(documentLines(document), lines);
    }

    void changedCell()
    {
        QTextDocument document;
        QTextTable* const table = insertTable(&document, tableFormat(0, 0));
        QTextTableCell cell = table->cellAt(0, 0);
        QTextCharFormat format = cell.format();
        format.setProperty(QTextFormat::TableCellLeftPadding, 5.4);
        format.setProperty(QTextFormat::TableCellTopPadding, 0.1);
        cell.setFormat(format);
        ORVStockFormats::toStock(&document);
        format = cell.format();
        format.setProperty(QTextFormat::TableCellLeftPadding, 8.0);
        format.setProperty(QTextFormat::TableCellRightPadding, 4.0);
        cell.setFormat(format);
        ORVStockFormats::fromStock(&document);
        format = cell.format();
        QCOMPARE(format.doubleProperty(QTextFormat::TableCellLeftPadding), 6.0);
        QCOMPARE(format.doubleProperty(QTextFormat::TableCellRightPadding), 3.0);
        QCOMPARE(format.doubleProperty(QTextFormat::TableCellTopPadding), 0.1);
    }

    /*! HTML has pixels; a second conversion leaves the points as they are. */
    void cellsOfHtml()
    {
        QTextDocument document;
        document.setHtml("<table><tr><td style=\"padding-left:8px\">x</td></tr></table>"_s);
        const QTextTable* const table = rtftest::tablesOf(document).first();
        for (int i = 0; i < 2; ++i) {
            ORVStockFormats::fromStock(&document);
            const QTextCharFormat format = table->cellAt(0, 0).format();
            QCOMPARE(format.doubleProperty(QTextFormat::TableCellLeftPadding), 6.0);
        }
    }

    // RTF counts from the page; a view from the cell that the table stands in, which is a half of it here.
    void nestedTableWidths()
    {
        QTextDocument document;
        QTextTable* const table = QTextCursor(&document).insertTable(1, 2, withWidths(50, 50));
        QTextTable* const nested =
            table->cellAt(0, 1).firstCursorPosition().insertTable(1, 2, withWidths(20, 5));
        ORVStockFormats::toStock(&document);
        QCOMPARE(rtftest::widthsOf(table), "50% 50%"_s);
        QCOMPARE(rtftest::widthsOf(nested), "40% 10%"_s);
        nested->setFormat(withWidths(60, 10, nested->format()));
        ORVStockFormats::fromStock(&document);
        QCOMPARE(rtftest::widthsOf(nested), "30% 5%"_s);
    }

    // Twice there is once.
    ORV_ROWS(thereAndBack)
    {
        const Rows add([](const QByteArray& rtf) {
            const rtftest::Reading reading = rtftest::readBody(rtf);
            QTextDocument* const document = reading.document.data();
            document->setProperty("paperSize", QSizeF(595.3, 841.9));
            const QStringList formats = documentLines(*document);
            const QByteArray written = ORVTextRtf::toRtfCData(document, false);
            ORVStockFormats::toStock(document);
            const QStringList stockFormats = documentLines(*document);
            QVERIFY(stockFormats != formats);
            ORVStockFormats::toStock(document);
            QCOMPARE(documentLines(*document), stockFormats);
            ORVStockFormats::fromStock(document);
            QCOMPARE(documentLines(*document), formats);
            QCOMPARE(ORVTextRtf::toRtfCData(document, false), written);
        });
        add("paragraphs",
            "\\li720\\fi-360\\ri333\\sb77\\sa13 a\\par\\pard\\sl360\\slmult1 b"
            "\\par\\pard\\sl-301\\keep\\keepn c\\par\\pard\\li1\\fi7 d");
        add("miles",
            "\\li300000000\\fi-2000000000\\ri-2000000000\\sb-77\\sa2000000000"
            "\\tx900000000 a\\par\\pard\\sl2000000000\\slmult1 b\\par\\pard"
            "\\sl-300000000 c\\par\\trowd\\trgaph300000000\\cellx3001\\intbl d\\cell\\row");
        add("tab stops", "\\li720\\fi-360\\tqr\\tx313\\tx720\\tqdec\\tx1111 a\\tab b");
        add("baselines", "a{\\up7 b}{\\dn3 c}{\\up2\\super d}");
        add("baselines and a table",
            "\\li720\\fi-360\\sb77 a{\\up7 b}\\par\\trowd\\cellx3001\\intbl a\\cell\\row");
        add("lists",
            "{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}\\fi-360\\li720}"
            "{\\listlevel\\levelnfc4{\\leveltext\\'02\\'01);}\\fi-360\\li1080}\\listid1}"
            "{\\list{\\listlevel\\levelnfc255{\\leveltext\\'00;}}\\listid2}}"
            "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}{\\listoverride\\listid2\\ls2}}"
            "\\pard\\ls1\\ilvl0\\fi-360\\li720 a\\par\\ilvl1 b\\par\\pard\\ls2\\li33 c\\par\\pard\\ls7 d");
        add("tables",
            "\\trowd\\clbrdrt\\brdrs\\brdrw7\\clpadl57\\cellx3001\\cellx7777\\intbl a\\cell\\li99 "
            "b\\cell\\row"
            "\\pard\\intbl\\itap2 n\\nestcell{\\*\\nesttableprops\\trowd\\cellx1003\\nestrow}"
            "\\intbl\\itap1 x\\cell y\\cell\\row\\pard e");
    }

    // Formats are equal only when their properties were set in the same order; the writer states those that
    // differ.
    void equalFormatsInAnotherOrderStayDifferent()
    {
        QTextBlockFormat first = blockFormat({{Above, 10.0}});
        first.setBottomMargin(5);
        QTextBlockFormat second = blockFormat({{Below, 5.0}});
        second.setTopMargin(10);
        QVERIFY(first != second);
        Paragraph paragraph(first);
        QTextCursor(paragraph.document.lastBlock()).insertBlock(second);
        ORVStockFormats::toStock(&paragraph.document);
        QCOMPARE(paragraph.formatFromStock(), first);
        QCOMPARE(paragraph.document.lastBlock().blockFormat(), second);
    }

    void applicationParagraphsAreLeftAlone()
    {
        const QTextBlockFormat format = blockFormat({{LeftIndent, 36.0}, {FirstLine, 18.0}, {Above, 12.0}});
        QCOMPARE(dump(Paragraph(format).formatFromStock()), dump(format));
    }

    void resolutionIsRemembered()
    {
        Paragraph paragraph(indented(36, 54));
        ORVUnit::setScreenResolution(144);
        QCOMPARE(paragraph.stockFormat().leftMargin(), 72.0);
        ORVUnit::setScreenResolution(96);
        QCOMPARE(dump(paragraph.formatFromStock()), dump(indented(36, 54)));
    }

    ORV_ROWS(changesInStockFormCount)
    {
        const Rows add([](const Properties& change, const Properties& application) {
            QTextBlockFormat format = indented(36, 54);
            format.setProperty(RightIndent, 414.0);
            format.setProperty(LineSpacing, -20.0);
            Paragraph paragraph(format);
            ORVStockFormats::toStock(&paragraph.document);
            paragraph.merge(blockFormat(change));
            const QTextBlockFormat result = paragraph.formatFromStock();
            for (Properties::const_iterator it = application.begin(); it != application.end(); ++it)
                QCOMPARE(result.property(it.key()), it.value());
            QVERIFY(!result.hasProperty(LeftMargin));
        });
        // Before the change: left indent 36, first line at 54, right edge at 414 points.
        add("left margin", {{LeftMargin, 96.0}},
            {{LeftIndent, 72.0}, {FirstLine, 90.0}, {RightIndent, 414.0}});
        add("first line", {{FirstLine, -12.0}}, {{LeftIndent, 36.0}, {FirstLine, 27.0}});
        add("indent, as editors have it", {{QTextFormat::BlockIndent, 1}},
            {{LeftIndent, 66.0}, {FirstLine, 84.0}});
        add("right margin", {{RightMargin, 48.0}}, {{RightIndent, 396.0}});
        add("no right margin", {{RightMargin, 0.0}}, {{RightIndent, QVariant()}});
        add("space above", {{Above, 16.0}}, {{Above, 12.0}});
        add("double lines",
            {{LineHeight, 200.0}, {LineHeightType, int(QTextBlockFormat::ProportionalHeight)}},
            {{LineSpacing, 24.0}, {LineMultiple, 12.0}, {LineHeight, QVariant()}});
        add("single lines", {{LineHeight, 0.0}, {LineHeightType, int(QTextBlockFormat::SingleHeight)}},
            {{LineSpacing, QVariant()}});
    }

    // Tab stops are equal also when the unused bytes between their members are not.
    void equalTabStopsAreNoChange()
    {
        QTextBlockFormat format = indented(36, 54);
        format.setTabPositions({QTextOption::Tab(100, QTextOption::RightTab)});
        Paragraph paragraph(format);
        const QTextOption::Tab stock = paragraph.stockFormat().tabPositions().constFirst();
        for (const int unused : {0, 0x5A}) {
            alignas(QTextOption::Tab) unsigned char memory[sizeof(QTextOption::Tab)];
            memset(memory, unused, sizeof memory);
            const QTextOption::Tab* const tab =
                new (memory) QTextOption::Tab(stock.position, stock.type, stock.delimiter);
            QTextBlockFormat change;
            change.setTabPositions({*tab});
            change.setLeftMargin(unused + 10);
            paragraph.merge(change);
        }
        QCOMPARE(paragraph.formatFromStock().tabPositions(), format.tabPositions());
    }

    void changedOtherPropertiesStay()
    {
        Paragraph paragraph(indented(36.05, 18.3));
        ORVStockFormats::toStock(&paragraph.document);
        paragraph.merge(blockFormat({{QTextFormat::BlockAlignment, int(Qt::AlignRight)}}));
        QTextBlockFormat expected = indented(36.05, 18.3);
        expected.setProperty(QTextFormat::BlockAlignment, int(Qt::AlignRight));
        QCOMPARE(dump(paragraph.formatFromStock()), dump(expected));
    }

    void changedBaseline()
    {
        const rtftest::Reading reading = rtftest::readBody("{\\up6 text}");
        ORVStockFormats::toStock(reading.document.data());
        QTextCharFormat normal;
        normal.setVerticalAlignment(QTextCharFormat::AlignNormal);
        QTextCursor cursor(reading.document.data());
        cursor.select(QTextCursor::Document);
        cursor.mergeCharFormat(normal);
        ORVStockFormats::fromStock(reading.document.data());
        QTextCharFormat expected = rtftest::readBody("{text}").format("text"_s);
        expected.merge(normal);
        QCOMPARE(dump(reading.format("text"_s)), dump(expected));
    }

#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    void letterSpacingIsInPixels()
    {
        const rtftest::Reading reading = rtftest::importBody("{\\expndtw30 text}");
        const QTextCharFormat application = charFormat(*reading.document);
        ORVStockFormats::toStock(reading.document.data());
        QCOMPARE(charFormat(*reading.document).fontLetterSpacing(), 2.0);
        ORVStockFormats::toStock(reading.document.data());
        QCOMPARE(charFormat(*reading.document).fontLetterSpacing(), 2.0);
        ORVStockFormats::fromStock(reading.document.data());
        QVERIFY(charFormat(*reading.document) == application);
    }

    void changedLetterSpacing()
    {
        const rtftest::Reading reading = rtftest::importBody("{\\expndtw30 text}");
        ORVStockFormats::toStock(reading.document.data());
        QTextCharFormat change;
        change.setFontLetterSpacing(4);
        QTextCursor cursor(reading.document.data());
        cursor.select(QTextCursor::Document);
        cursor.mergeCharFormat(change);
        ORVStockFormats::fromStock(reading.document.data());
        QCOMPARE(charFormat(*reading.document).fontLetterSpacing(), 3.0);
    }

    // Qt's own spacing is a share of the letters' width, and has no unit.
    void relativeLetterSpacingStays()
    {
        QTextDocument document;
        QTextCharFormat format;
        format.setFontLetterSpacingType(QFont::PercentageSpacing);
        format.setFontLetterSpacing(110);
        QTextCursor(&document).insertText("text"_s, format);
        ORVStockFormats::toStock(&document);
        QVERIFY(charFormat(document) == format);
        ORVStockFormats::fromStock(&document);
        QVERIFY(charFormat(document) == format);
    }

    void letterSpacingOfHtml()
    {
        QTextDocument document;
        QTextCharFormat format;
        format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
        format.setFontLetterSpacing(4);
        QTextCursor(&document).insertText("text"_s, format);
        for (int i = 0; i < 2; ++i) {
            ORVStockFormats::fromStock(&document);
            QCOMPARE(charFormat(document).fontLetterSpacing(), 3.0);
        }
        ORVStockFormats::toStock(&document);
        QCOMPARE(charFormat(document).fontLetterSpacing(), 4.0);
    }
#endif

    // Qt and the application have one id for two properties.
    ORV_ROWS(headings)
    {
        const Rows add([](const QByteArray& words, int level) {
            const rtftest::Reading reading = rtftest::importBody("\\pard" + words + " text");
            const QTextBlockFormat application = reading.blockFormat(0);
            ORVStockFormats::toStock(reading.document.data());
            const QVariant stock = reading.blockFormat(0).property(compat::headingLevel);
            QCOMPARE(stock.userType() == QMetaType::Int ? stock.toInt() : 0, level);
            ORVStockFormats::fromStock(reading.document.data());
            QVERIFY(reading.blockFormat(0) == application);
        });
        add("no heading", "\\sl360\\li100", 0);
        add("heading", "\\outlinelevel1", 2);
        add("with an indent", "\\outlinelevel1\\li100", 2);
        add("with line spacing", "\\outlinelevel1\\sl360\\slmult1", 2);
        add("behind line spacing", "\\sl-360\\outlinelevel5", 6);
    }

    ORV_ROWS(changedHeadings)
    {
        const Rows add([](const QByteArray& words, const Properties& change, int level, double spacing) {
            const rtftest::Reading reading = rtftest::importBody("\\pard" + words + " text");
            ORVStockFormats::toStock(reading.document.data());
            QTextCursor(reading.document.data()).mergeBlockFormat(blockFormat(change));
            ORVStockFormats::fromStock(reading.document.data());
            QCOMPARE(ORVHeading::level(reading.blockFormat(0)), level);
            QCOMPARE(reading.blockFormat(0).doubleProperty(LineSpacing), spacing);
        });
        const Properties doubleLines = {{LineHeight, 200.0},
                                        {LineHeightType, int(QTextBlockFormat::ProportionalHeight)}};
        add("becomes one", "\\li100", {{compat::headingLevel, 3}}, 3, 0);
        add("becomes one with line spacing", "\\sl360\\slmult1", {{compat::headingLevel, 3}}, 3, 18);
        add("other level", "\\li100\\outlinelevel0", {{compat::headingLevel, 3}}, 3, 0);
        add("other level with line spacing", "\\outlinelevel0\\sl360\\slmult1", {{compat::headingLevel, 3}},
            3, 18);
        add("gets line spacing", "\\li100\\outlinelevel0", doubleLines, 1, 24);
        add("gets other line spacing", "\\outlinelevel0\\sl360\\slmult1", doubleLines, 1, 24);
    }

    void headingOfHtml()
    {
        QTextDocument document;
        document.setHtml("<h2 style=\"line-height:150%\">text</h2>"_s);
        ORVStockFormats::fromStock(&document);
        QCOMPARE(ORVHeading::level(document.begin().blockFormat()), 2);
        QCOMPARE(document.begin().blockFormat().doubleProperty(LineSpacing), 18.0);
    }

    // The edge of a hanging indent is a tab stop in stock form, which has no leader.
    void leadersStayParallelToTabStops()
    {
        const rtftest::Reading reading =
            rtftest::importBody("\\pard\\fi-360\\li720\\tldot\\tx200\\tlul\\tx4000 text");
        const QTextBlockFormat application = reading.blockFormat(0);
        ORVStockFormats::toStock(reading.document.data());
        QCOMPARE(reading.blockFormat(0).tabPositions().size(), 3);
        QCOMPARE(reading.blockFormat(0).stringProperty(TabLeaders), ". _"_s);
        ORVStockFormats::fromStock(reading.document.data());
        QVERIFY(reading.blockFormat(0) == application);
    }

    // Qt stops at the first one of the list that it has not passed.
    void tabStopsAreInOrder()
    {
        const rtftest::Reading reading =
            rtftest::importBody("\\pard\\tx3000\\tldot\\tx1500\\tlul\\tqr\\tx6000\\tx2000 text");
        const QTextBlockFormat application = reading.blockFormat(0);
        ORVStockFormats::toStock(reading.document.data());
        QList<int> positions;
        const QList<QTextOption::Tab> tabs = reading.blockFormat(0).tabPositions();
        for (const QTextOption::Tab& tab : tabs)
            positions << qRound(tab.position * 15);
        QCOMPARE(positions, (QList<int>{1500, 2000, 3000, 6000}));
        QCOMPARE(tabs.constLast().type, QTextOption::RightTab);
        QCOMPARE(reading.blockFormat(0).stringProperty(TabLeaders), ".  _"_s);
        ORVStockFormats::fromStock(reading.document.data());
        QVERIFY(reading.blockFormat(0) == application);
    }

    void changedTabStopsOfLeaders()
    {
        const rtftest::Reading reading = rtftest::importBody("\\pard\\fi-360\\li720\\tlul\\tx4000 text");
        ORVStockFormats::toStock(reading.document.data());
        QTextBlockFormat change;
        QList<QTextOption::Tab> tabs = reading.blockFormat(0).tabPositions();
        tabs.last().position += 96;
        change.setTabPositions(tabs);
        QTextCursor(reading.document.data()).mergeBlockFormat(change);
        ORVStockFormats::fromStock(reading.document.data());
        QCOMPARE(reading.blockFormat(0).tabPositions().constFirst().position, 272.0);
        QCOMPARE(reading.blockFormat(0).stringProperty(TabLeaders), "_"_s);
    }

    void changedLeaders()
    {
        const rtftest::Reading reading = rtftest::importBody("\\pard\\fi-360\\li720\\tlul\\tx4000 text");
        ORVStockFormats::toStock(reading.document.data());
        QTextBlockFormat change;
        change.setProperty(TabLeaders, " ."_s);
        QTextCursor(reading.document.data()).mergeBlockFormat(change);
        ORVStockFormats::fromStock(reading.document.data());
        QCOMPARE(reading.blockFormat(0).tabPositions().constFirst().position, 200.0);
        QCOMPARE(reading.blockFormat(0).stringProperty(TabLeaders), "."_s);
    }

    // Its indent is that of its level.
    void changedTabStopsOfAListItem()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        QTextList* const list = cursor.createList(listFormatWith({level("%0."_s, 36, 18)}));
        ORVTextListFormat::setBlockLevel(list, document.begin(), 0);
        QTextBlockFormat format = cursor.blockFormat();
        format.setTabPositions({QTextOption::Tab(100, QTextOption::LeftTab)});
        cursor.setBlockFormat(format);
        ORVStockFormats::toStock(&document);
        QTextBlockFormat change;
        QList<QTextOption::Tab> tabs = document.begin().blockFormat().tabPositions();
        tabs.last().position += 96;
        change.setTabPositions(tabs);
        cursor.mergeBlockFormat(change);
        ORVStockFormats::fromStock(&document);
        QCOMPARE(document.begin().blockFormat().tabPositions().constLast().position, 172.0);
    }

    void changedListStyle()
    {
        QTextDocument document;
        QTextList* const list = QTextCursor(&document).createList(listFormatWith({level(""_s, 0, 0)}));
        ORVStockFormats::toStock(&document);
        QTextListFormat changed = list->format();
        changed.setStyle(QTextListFormat::ListSquare);
        list->setFormat(changed);
        ORVStockFormats::fromStock(&document);
        QCOMPARE(list->format().style(), QTextListFormat::ListSquare);
    }

    void changedTable()
    {
        QTextDocument document;
        QTextTable* const table = insertTable(&document, tableFormat(1.5, 3.01));
        ORVStockFormats::toStock(&document);
        QTextTableFormat changed = table->format();
        changed.setBorder(4);
        table->setFormat(changed);
        ORVStockFormats::fromStock(&document);
        QCOMPARE(table->format().border(), 3.0);
        QCOMPARE(table->format().cellPadding(), 3.01);
    }

    // In a list Qt adds 40 pixels, which the paragraph loses with the list.
    void leavingAListKeepsThePlace()
    {
        Paragraph paragraph((QTextBlockFormat()));
        QTextList* const list =
            QTextCursor(&paragraph.document).createList(listFormatWith({level("%0."_s, 36, 18)}));
        ORVTextListFormat::setBlockLevel(list, paragraph.document.begin(), 0);
        QTextBlockFormat format = paragraph.stockFormat();
        format.setObjectIndex(-1);
        QTextCursor(&paragraph.document).setBlockFormat(format);
        QCOMPARE(paragraph.formatFromStock().property(LeftIndent), QVariant(6.0));
    }

    ORV_ROWS(htmlToRtf)
    {
        const Rows add([](const QString& html, const QByteArray& paragraph) {
            QTextDocument document;
            document.setHtml(html);
            ORVStockFormats::fromStock(&document);
            const QByteArray body = rtftest::bodyOf(ORVTextRtf::toRtfData(&document, false, true));
            const QByteArray begin("\\pard\\plain ");
            QCOMPARE(body.mid(body.indexOf(begin) + begin.size(), paragraph.size()), paragraph);
            const QStringList formats = documentLines(document);
            ORVStockFormats::fromStock(&document);
            QCOMPARE(documentLines(document), formats);
        });
        const QString paragraph = "<p style=\"margin-top:0;margin-bottom:0;%1\">text</p>"_s;
        // A pixel is 15 twips.
        add("left margin", paragraph.arg("margin-left:40px"_s), "\\li600\\lt");
        add("first line", paragraph.arg("margin-left:40px;text-indent:10px"_s), "\\li600\\fi150\\lt");
        add("hanging", paragraph.arg("margin-left:40px;text-indent:-10px"_s), "\\li600\\fi-150\\lt");
        add("right margin", paragraph.arg("margin-right:20px"_s), "\\ri300\\lt");
        add("space", "<p style=\"margin-top:8px;margin-bottom:4px\">text</p>", "\\sa60\\sb120\\lt");
        add("line height", paragraph.arg("line-height:150%"_s), "\\sl360\\slmult1\\lt");
        add("nothing", paragraph.arg(QString()), "\\lt");
        add("list", "<ul style=\"margin:0\"><li style=\"margin:0\">text</li></ul>", "\\li600\\fi-360\\lt");
        add("paragraph, list and table",
            "<p style=\"margin-top:16px\">a</p><ul><li>b</li></ul>"
            "<table border=\"4\" cellpadding=\"8\"><tr><td width=\"100\">c</td></tr></table>",
            "\\sa180\\sb240\\lt");
    }

    void undo()
    {
        Paragraph paragraph(indented(36, 18));
        paragraph.document.clearUndoRedoStacks();
        ORVStockFormats::toStock(&paragraph.document);
        QCOMPARE(paragraph.document.availableUndoSteps(), 1);
        paragraph.document.undo();
        QCOMPARE(dump(paragraph.format()), dump(indented(36, 18)));

        paragraph.document.setUndoRedoEnabled(false);
        QCOMPARE(paragraph.stockFormat().leftMargin(), 48.0);
        QCOMPARE(paragraph.document.availableUndoSteps(), 0);
    }
};

ORV_TEST("stockformats", TestStockFormats, QGuiApplication)
#include "stockformats.moc"
