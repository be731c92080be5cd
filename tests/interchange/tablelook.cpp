#include "QtFormatCompat_p.h"
#include "borderhelpers.h"
#include "interchangehelpers.h"
#include "tabletesthelpers.h"

using namespace rtftest;

namespace {

const QByteArray after = "\\pard after\\par";
const QByteArray redLine = "\\brdrs\\brdrw20\\brdrcf1";

Reading importRow(const QByteArray& definitions, const QByteArray& content)
{
    return importBody(colorTable() + rawRow(definitions, content) + after);
}

/*! The lines of all cells of \a table, those of a row separated by "|". */
QStringList linesOf(const QTextTable* table)
{
    QStringList rows;
    for (int row = 0; row < table->rows(); ++row) {
        QStringList cells;
        for (int column = 0; column < table->columns(); ++column) {
            const QTextTableCell cell = table->cellAt(row, column);
            if (cell.row() == row && cell.column() == column)
                cells << cellLines(cell.format());
        }
        rows << cells.join(QLatin1Char('|'));
    }
    return rows;
}

QString paddingOf(const QTextTableCell& cell)
{
    const int properties[] = {QTextFormat::TableCellTopPadding, QTextFormat::TableCellBottomPadding,
                              QTextFormat::TableCellLeftPadding, QTextFormat::TableCellRightPadding};
    QStringList lengths;
    for (const int property : properties)
        lengths << QString::number(cell.format().doubleProperty(property));
    return lengths.join(QLatin1Char(' '));
}

} // namespace

/*! Lines, padding, backgrounds and places of tables. */
class TestInterchangeTableLook : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(shading)
    {
        const Rows add([](const QByteArray& words, const QString& color) {
            const Reading reading = importRow(words + "\\cellx2000", cells("A"));
            const QTextCharFormat format = firstTable(reading)->cellAt(0, 0).format();
            QCOMPARE(format.hasProperty(QTextFormat::BackgroundBrush) ? format.background().color().name()
                                                                      : QString(),
                     color);
        });
        add("none", "", "");
        add("background", "\\clcbpat1", "#ff0000");
        add("automatic", "\\clcbpat0", "");
        add("pattern on a background", "\\clcbpat1\\clcfpat2\\clshdng5000", "#808000");
        add("pattern alone", "\\clshdng2500", "#bfbfbf");
        add("colour of a pattern that covers nothing", "\\clcfpat2", "");
        add("words of the newer generation", "\\clcbpatraw1", "#ff0000");
        add("pattern of the newer generation", "\\clcbpatraw1\\clcfpatraw2\\clshdngraw5000", "#808000");
        add("words of both generations", "\\clcbpat1\\clcbpatraw2\\clcfpatraw3\\clshdngraw10000", "#ff0000");
        add("none in the newer generation", "\\clcbpat1\\clshdrawnil", "#ff0000");
        add("none in the newer generation alone", "\\clcbpatraw1\\clshdrawnil", "");
        add("of the row", "\\trcbpat1", "#ff0000");
        add("pattern of the row", "\\trcbpat1\\trcfpat2\\trshdng5000", "#808000");
        add("of the row and the cell", "\\trcbpat1\\clcbpat2", "#00ff00");
        add("none in the cell", "\\trcbpat1\\clcbpat0", "");
    }

    void cellsKeepTheirLook()
    {
        const Reading reading = importBody(
            colorTable()
            + rawRow("\\clcbpat1\\clvertalc\\cellx2000\\clmgf\\clcbpat2\\cellx4000\\clmrg\\cellx6000",
                     cells("A B C"))
            + row("2000 4000 6000", "D E F") + after);
        const QTextTable* const table = firstTable(reading);
        const QTextCharFormat first = table->cellAt(0, 0).format();
        QCOMPARE(first.background().color(), QColor(Qt::red));
        QCOMPARE(first.verticalAlignment(), QTextCharFormat::AlignMiddle);
        QCOMPARE(table->cellAt(0, 2).format().background().color(), QColor(0, 255, 0));
        QVERIFY(!table->cellAt(1, 0).format().hasProperty(QTextFormat::BackgroundBrush));
    }

    ORV_ROWS(lines)
    {
        const Rows add([](const QByteArray& rows, const QString& lines) {
            const Reading reading = importBody(colorTable() + rows + after);
            const QTextTable* const table = firstTable(reading);
            QCOMPARE(linesOf(table).join(" / "_s), lines);
            QCOMPARE(table->format().border(), 0.0);
            QCOMPARE(table->format().borderStyle(), QTextFrameFormat::BorderStyle_None);
            QCOMPARE(table->format().hasProperty(compat::tableBorderCollapse),
                     lines.contains(QLatin1Char(':')));
        });
        const QByteArray ab = cells("A B");
        const QByteArray ends = "\\cellx2000\\cellx4000";
        add("none", rawRow(ends + "\\cellx6000", cells("A B C")), "||");
        add("sides of a cell",
            rawRow("\\clbrdrt\\brdrs\\brdrw10\\clbrdrb\\brdrs\\clbrdrl\\brdrdb\\brdrw20\\clbrdrr" + redLine
                       + ends,
                   ab),
            "t: solid 0.5, b: solid 0.75, l: double 3, r: solid 1 #ff0000|");
        add("of the row",
            rawRow("\\trbrdrt\\brdrs\\trbrdrb\\brdrdot\\trbrdrl\\brdrdb\\trbrdrr\\brdrdash" + ends, ab),
            "t: solid 0.75, b: dotted 0.75, l: double 2.25|t: solid 0.75, b: dotted 0.75, r: dashed 0.75");
        const QByteArray inner = "\\trbrdrt\\brdrs\\trbrdrb\\brdrs\\trbrdrh\\brdrdot\\trbrdrv\\brdrdash";
        add("between the cells of rows", rawRow(inner + ends, ab) + rawRow(inner + ends, ab),
            "t: solid 0.75, b: dotted 0.75, r: dashed 0.75|t: solid 0.75, b: dotted 0.75, l: dashed 0.75 / "
            "t: dotted 0.75, b: solid 0.75, r: dashed 0.75|t: dotted 0.75, b: solid 0.75, l: dashed 0.75");
        add("none in a cell of a row that has one", rawRow("\\trbrdrt\\brdrs\\clbrdrt\\brdrnone" + ends, ab),
            "|t: solid 0.75");
        add("merged to the left",
            rawRow("\\clmgf\\clbrdrr\\brdrs\\cellx2000\\clmrg\\clbrdrr\\brdrdb\\cellx4000\\cellx6000",
                   cells("A - B")),
            "r: double 2.25|");
        add("merged downwards",
            rawRow("\\clvmgf\\clbrdrt\\brdrs\\clbrdrb\\brdrs" + ends, ab)
                + rawRow("\\clvmrg\\clbrdrb\\brdrdb" + ends, ab),
            "t: solid 0.75, b: double 2.25| / ");
        add("diagonals", rawRow("\\clbrdrt\\brdrs\\cldglu\\brdrdb\\cldgll\\brdrdb" + ends, ab),
            "t: solid 0.75|");
        add("of a page and a paragraph",
            rawRow(ends, "\\pgbrdrt\\brdrdb\\brdrb\\brdrs A\\cell B\\cell") + "\\clbrdrt", "|");
        add("row without a definition",
            rawRow("\\clbrdrt\\brdrs" + ends, ab) + "\\trowd A\\cell B\\cell\\row",
            "t: solid 0.75| / t: solid 0.75|");
        add("cells that are missing", rawRow("\\trbrdrr\\brdrs" + ends, "A\\cell"), "r: solid 0.75");
    }

    ORV_ROWS(padding)
    {
        const Rows add([](const QByteArray& words, const QString& first, const QString& second) {
            const Reading reading = importRow(words + "\\cellx2000\\cellx4000", cells("A B"));
            const QTextTable* const table = firstTable(reading);
            QCOMPARE(paddingOf(table->cellAt(0, 0)), first);
            QCOMPARE(paddingOf(table->cellAt(0, 1)), second);
            QCOMPARE(table->format().cellPadding(), 0.0);
        });
        add("none", "", "0 0 0 0", "0 0 0 0");
        add("half a gap", "\\trgaph108", "0 0 5.4 5.4", "0 0 5.4 5.4");
        add("negative gap", "\\trgaph-108", "0 0 0 0", "0 0 0 0");
        add("gap without end", "\\trgaph2000000000", "0 0 1584 1584", "0 0 1584 1584");
        add("of the row", "\\trgaph108\\trpaddt20\\trpaddb40\\trpaddl60\\trpaddr80", "1 2 3 4", "1 2 3 4");
        add("of the row, with units",
            "\\trgaph108\\trpaddt20\\trpaddb40\\trpaddl60\\trpaddr80\\trpaddft3\\trpaddfb0\\trpaddfl3\\trpadd"
            "fr0",
            "1 0 3 5.4", "1 0 3 5.4");
        add("of a cell: top and left are taken for each other",
            "\\trgaph108\\clpadt60\\clpadft3\\clpadb40\\clpadfb3\\clpadl20\\clpadfl3\\clpadr80\\clpadfr3",
            "1 2 3 4", "0 0 5.4 5.4");
        add("of a cell, units that do not count",
            "\\trgaph108\\clpadt60\\clpadft0\\clpadb40\\clpadfb0\\clpadl20\\clpadfl0\\clpadr80\\clpadfr0",
            "0 0 5.4 5.4", "0 0 5.4 5.4");
        add("none in a cell of a row that has some", "\\trpaddr80\\clpadr0", "0 0 0 0", "0 0 0 4");
    }

    ORV_ROWS(place)
    {
        const Rows add([](const QByteArray& words, double margin, int alignment) {
            const Reading reading = importRow(words + "\\cellx2000\\cellx4000", cells("A B"));
            const QTextTableFormat format = firstTable(reading)->format();
            QCOMPARE(format.leftMargin(), margin);
            QCOMPARE(int(format.alignment()), alignment);
            QCOMPARE(format.hasProperty(QTextFormat::FrameLeftMargin), margin != 0);
        });
        add("plain", "", 0.0, 0);
        add("to the left of the text", "\\trgaph108\\trleft-108", -5.4, 0);
        add("to the right", "\\trleft720", 36.0, 0);
        add("far away", "\\trleft-2000000000", -1584.0, 0);
        add("indent", "\\tblind720\\tblindtype3", 36.0, 0);
        add("indent in another unit", "\\tblind720\\tblindtype2", 0.0, 0);
        add("indent and left edge", "\\trleft-108\\tblind0\\tblindtype3", -5.4, 0);
        add("indent behind the first cell", "\\tblind2000\\tblindtype3", 0.0, 0);
        add("left", "\\trqr\\trql", 0.0, 0);
        add("centred", "\\trqc\\trleft720", 0.0, int(Qt::AlignHCenter));
        add("right", "\\trqr", 0.0, int(Qt::AlignRight));
    }

    void headerRows()
    {
        const auto headers = [](const QByteArray& rows) {
            return firstTable(importBody(rows + after))->format().headerRowCount();
        };
        const QByteArray plain = row("2000", "A");
        const QByteArray header = rawRow("\\trhdr\\cellx2000", cells("A"));
        QCOMPARE(headers(plain), 0);
        QCOMPARE(headers(header + header + plain + header), 2);
        QCOMPARE(headers(plain + header), 0);
    }

    /*! Words for widths are all there is where the edges of cells are not greater than the ones before. */
    void widthsOfCellsWithoutEdges()
    {
        const Reading reading =
            importBody("\\paperw12000\\margl1000\\margr1000"
                       + rawRow("\\clftsWidth3\\clwWidth1000\\cellx0\\clftsWidth2\\clwWidth2500\\cellx0"
                                "\\clwWidth4000\\cellx0",
                                cells("A B C"))
                       + after);
        QCOMPARE(widthsOf(firstTable(reading)), "10% 50% 40%"_s);
    }

    /*! As some programs write them, at the end of the innermost one. */
    void definitionsOfTwoInnerRowsInOne()
    {
        const Reading reading =
            importBody("\\paperw12000\\margl1000\\margr1000\\trowd\\cellx8000\\pard\\intbl\\itap3 A\\nestcell"
                       "{\\*\\nesttableprops\\trowd\\trqc\\cellx2000\\cellx7000\\trowd\\cellx1000\\nestrow}"
                       "\\pard\\intbl\\itap2 B\\nestcell C\\nestcell\\cell\\row"
                       + after);
        QCOMPARE(contentOf(*reading.document), "|{1: |{2: |{1: A}|B, C}|}|after|"_s);
        const QTextTable* const middle = tablesOf(firstTable(reading)->cellAt(0, 0)).first();
        QCOMPARE(widthsOf(middle), "20% 50%"_s);
        QCOMPARE(middle->format().alignment(), Qt::AlignHCenter);
        QCOMPARE(widthsOf(tablesOf(middle->cellAt(0, 0)).first()), "10%"_s);
    }

    ORV_ROWS(widths)
    {
        const Rows add([](const QByteArray& words, const QString& widths) {
            const Reading reading =
                importBody("\\paperw12000\\margl1000\\margr1000" + rawRow(words, cells("A B")) + after);
            QCOMPARE(widthsOf(firstTable(reading)), widths);
        });
        add("edges", "\\cellx2500\\cellx5000", "25% 25%");
        add("from the left edge", "\\trleft-500\\cellx2000\\cellx4500", "25% 25%");
        add("of the table", "\\trftsWidth3\\trwWidth8000\\cellx2500\\cellx5000", "40% 40%");
        add("of the table, in another unit", "\\trftsWidth2\\trwWidth5000\\cellx2500\\cellx5000", "25% 25%");
        add("of the table, negative", "\\trftsWidth3\\trwWidth-1\\cellx2500\\cellx5000", "25% 25%");
        add("of cells", "\\clftsWidth3\\clwWidth1000\\cellx2500\\clftsWidth3\\clwWidth9000\\cellx5000",
            "25% 25%");
    }
};

ORV_TEST("interchange_tablelook", TestInterchangeTableLook, QGuiApplication)
#include "tablelook.moc"
