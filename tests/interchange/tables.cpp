#include "ORVTextListLabels.h"
#include "interchangehelpers.h"
#include "structurehelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

const QByteArray after = "\\pard after\\par";

} // namespace

/*! Tables as word processors mean them: no text of them is lost. */
class TestInterchangeTables : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(contents)
    {
        const Rows add([](const QByteArray& body, const QString& content) {
            const Reading reading = importBody(body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(contentOf(*reading.document), content);
        });
        add("one row", row("2000 4000", "A B") + after, "|{2: A, B}|after|");
        add("behind a paragraph", "before\\par" + row("2000", "A") + after, "before|{1: A}|after|");
        add("at the end", "before\\par" + row("2000", "A"), "before|{1: A}|");

        // A row is open from its definition to its end.
        add("paragraph that is not said to be in the table",
            "\\trowd\\cellx2000 A\\par\\pard B\\cell\\row" + after, "|{1: A|B}|after|");
        add("no word for the table at all", "\\trowd\\cellx2000\\cellx4000 A\\cell B\\cell\\row" + after,
            "|{2: A, B}|after|");
        add("definition behind the cells",
            "\\pard\\intbl A\\cell B\\cell\\trowd\\cellx2000\\cellx4000\\row" + after, "|{2: A, B}|after|");
        add("definition before and behind the cells",
            "\\trowd\\cellx2000\\cellx4000\\pard\\intbl A\\cell B\\cell\\trowd\\cellx2000\\cellx4000\\row"
                + after,
            "|{2: A, B}|after|");
        add("row without a definition takes the one before",
            row("2000 6000", "A B") + "\\trowd\\pard\\intbl C\\cell D\\cell\\row" + row("4000 6000", "E F")
                + after,
            "|{3: A, B(c2) / C, D(c2) / E(c2), F}|after|");
        add("two paragraphs in a cell", rawRow("\\cellx2000", "A\\par B\\cell") + after, "|{1: A|B}|after|");
        add("open from the first edge", "x\\par\\cellx2000\\cellx4000 A\\par B\\cell C\\cell\\row" + after,
            "x|{2: A|B, C}|after|");
        add("open from the first cell", "A\\cell B\\par\\pard C\\cell\\row" + after, "|{2: A, B|C}|after|");
        add("definition cleared behind the cells",
            "\\trowd\\cellx2000\\cellx4000 A\\cell B\\cell\\trowd\\row" + after, "|{2: A, B}|after|");
        add("other definition behind the cells",
            "\\trowd\\cellx1000 A\\cell B\\cell\\trowd\\cellx3000\\cellx6000\\row" + row("3000 6000", "C D")
                + after,
            "|{2: A, B / C, D}|after|");
        add("groups", "{\\trowd\\cellx2000\\cellx4000}{A\\cell}{B\\cell}{\\row}" + after,
            "|{2: A, B}|after|");
        add("paragraph between", row("2000", "A") + "\\pard B\\par" + row("2000", "C") + after,
            "|{1: A}|B|{1: C}|after|");
        add("empty paragraph between", row("2000", "A") + "\\pard\\par" + row("2000", "B") + after,
            "|{1: A}||{1: B}|after|");
        add("row without cells", row("2000", "A") + "\\trowd\\cellx2000\\row" + row("2000", "B") + after,
            "|{1: A / B}|after|");
        add("row without cells but with text", "\\trowd\\cellx2000 A\\row" + after, "|{1: A}|after|");
        add("empty cells", row("2000 4000", "- -") + after, "|{2: -, -}|after|");
        add("page break", rawRow("\\cellx2000", "A\\page B\\cell") + after, "|{1: A|B}|after|");

        // A cell that has not begun takes the paragraph before it.
        add("cell without a row", "before\\par A\\cell\\row after", "before|{1: A}|after");
        add("two cells without a row", "A\\cell B\\cell\\row after", "|{2: A, B}|after");
        add("paragraph in a table that no cell ends", "\\pard\\intbl A\\par\\pard B\\par", "A|B|");
        add("end of a row without a row", "A\\row B\\nestrow C", "A|B|C");
        add("end of a row behind a row", row("2000", "A") + "\\row\\pard B\\row" + after, "|{1: A}|B|after|");
        add("such a paragraph behind a row", row("2000", "A") + "\\pard\\intbl B\\par\\pard C\\par",
            "|{1: A}|B|C|");

        // The end of the input ends rows and cells.
        add("no end of the row", "\\trowd\\cellx2000\\cellx4000\\pard\\intbl A\\cell B\\cell", "|{2: A, B}|");
        add("no end of the cell", "\\trowd\\cellx2000\\cellx4000\\pard\\intbl A\\cell B", "|{2: A, B}|");
        add("no cell", "\\trowd\\cellx2000\\pard\\intbl", "");
        add("text behind the last cell", rawRow("\\cellx2000", "A\\cell B") + after, "|{2: A, B}|after|");
        add("empty paragraph behind the last cell", rawRow("\\cellx2000", "A\\cell\\par ") + after,
            "|{1: A}|after|");
        add("empty paragraph and text behind it", rawRow("\\cellx2000", "A\\cell\\par B") + after,
            "|{2: A, |B}|after|");

        // Columns come from the edges of all rows.
        add("rows with other edges", row("2000 6000", "A B") + row("4000 6000", "C D") + after,
            "|{3: A, B(c2) / C(c2), D}|after|");
        add("edges that are nearly one", row("2000 6000", "A B") + row("2015 5990", "C D") + after,
            "|{2: A, B / C, D}|after|");
        add("edges near to each other in turn",
            row("1000 3000", "A B") + row("1018 3000", "C D") + row("1036 3000", "E F") + after,
            "|{3: A, B(c2) / C, D(c2) / E(c2), F}|after|");
        add("cells that are nearly no wider than their edges", row("1000 1010 1020 3000", "A B C D") + after,
            "|{2: A|B|C, D}|after|");
        add("left edges that are nearly one",
            rawRow("\\trleft-10\\cellx2000", cells("A")) + rawRow("\\trleft10\\cellx2000", cells("B"))
                + after,
            "|{1: A / B}|after|");
        add("edges to the left of the text",
            rawRow("\\trleft-3000\\cellx-1000\\cellx1000", cells("A B")) + after, "|{2: A, B}|after|");
        add("edges that are apart", row("2000 6000", "A B") + row("2021 6000", "C D") + after,
            "|{3: A, B(c2) / C(c2), D}|after|");
        add("ends that are nearly one", row("2000 6000", "A B") + row("2000 6100", "C D") + after,
            "|{2: A, B / C, D}|after|");
        add("ends that are apart", row("2000 6000", "A B") + row("2000 6200", "C D") + after,
            "|{3: A, B, - / C, D(c2)}|after|");
        add("more cells than edges", row("2000", "A B C") + after, "|{3: A, B, C}|after|");
        add("fewer cells than edges", row("2000 4000 6000", "A B") + row("2000 4000 6000", "C D E") + after,
            "|{3: A, B(c2) / C, D, E}|after|");
        add("wider row", row("2000", "A") + row("2000 4000", "B C") + after, "|{2: A, - / B, C}|after|");
        add("row that begins later",
            row("2000 4000", "A B") + rawRow("\\trleft2000\\cellx4000", cells("C")) + after,
            "|{2: A, B / -, C}|after|");
        add("decreasing edges", row("4000 2000", "A B") + after, "|{1: A|B}|after|");
        add("edge of 0", row("0 2000", "A B") + after, "|{1: A|B}|after|");

        // Merged cells.
        add("merged vertically", row("2000 4000", "A B") + row("2000v 4000", "- C") + after,
            "|{2: A(r2), B / C}|after|");
        add("text of a cell that is merged away", row("2000 4000", "A B") + row("2000v 4000", "C D") + after,
            "|{2: A|C(r2), B / D}|after|");
        add("three rows", row("2000", "A") + row("2000v", "B") + row("2000v", "C") + after,
            "|{1: A|B|C(r3) /  / }|after|");
        add("merged again",
            row("2000", "A") + row("2000v", "B") + row("2000", "C") + row("2000v", "D") + after,
            "|{1: A|B(r2) /  / C|D(r2) / }|after|");
        add("merged in both directions",
            row("2000 4000h 6000", "A B C") + row("2000v 4000vh 6000", "D E F") + after,
            "|{2: A|B|D|E(r2), C / F}|after|");
        add("text in the last of merged cells only",
            row("2000 4000", "- A") + row("2000v 4000", "B C") + after, "|{2: B(r2), A / C}|after|");
        add("merged horizontally", row("2000 4000h 6000", "A B C") + after, "|{2: A|B, C}|after|");
        add("merged horizontally above cells that are not",
            row("2000 4000h 6000", "A B C") + row("2000 4000 6000", "D E F") + after,
            "|{3: A|B(c2), C / D, E, F}|after|");
        add("nothing above to merge with", row("2000v 4000", "A B") + after, "|{2: A, B}|after|");
        add("not as wide as the cell above", row("4000", "A") + row("2000v 4000", "B C") + after,
            "|{2: A(c2) / B, C}|after|");
    }

    ORV_ROWS(nested)
    {
        const Rows add([](const QByteArray& body, const QString& content) {
            const Reading reading = importBody(body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(contentOf(*reading.document), content);
        });
        const QByteArray inner =
            "{\\*\\nesttableprops\\trowd\\cellx1000\\cellx2000\\nestrow}{\\nonesttables\\par}";
        add("two levels",
            "\\trowd\\cellx4000\\pard\\intbl\\itap2 A\\nestcell B\\nestcell" + inner
                + "\\pard\\intbl C\\cell\\row" + after,
            "|{1: |{2: A, B}|C}|after|");
        add("definition of the outer row before that of the inner one",
            "\\trowd\\cellx3000\\cellx6000\\pard\\intbl\\itap2 A\\nestcell B\\nestcell" + inner
                + "\\pard\\intbl C\\cell D\\cell\\row" + after,
            "|{2: |{2: A, B}|C, D}|after|");
        add("no word for the level",
            "\\trowd\\cellx4000\\pard\\intbl A\\nestcell B\\nestcell" + inner + "C\\cell\\row" + after,
            "|{1: |{2: A, B}|C}|after|");
        add("paragraph behind the inner row",
            "\\trowd\\cellx4000\\pard\\intbl\\itap2 A\\nestcell" + inner + "\\pard\\intbl\\par C\\cell\\row"
                + after,
            "|{1: |{1: A}||C}|after|");
        add("three levels",
            "\\trowd\\cellx4000\\pard\\intbl\\itap3 "
            "A\\nestcell{\\*\\nesttableprops\\trowd\\cellx500\\nestrow}"
            "\\pard\\intbl\\itap2 B\\nestcell{\\*\\nesttableprops\\trowd\\cellx1000\\nestrow}\\pard\\intbl "
            "C\\cell\\row"
                + after,
            "|{1: |{1: |{1: A}|B}|C}|after|");
        add("between paragraphs",
            "\\trowd\\cellx4000\\pard\\intbl A\\par\\itap2 B\\nestcell" + inner
                + "\\pard\\intbl C\\par\\itap2 D\\nestcell" + inner + "\\pard\\intbl E\\cell\\row" + after,
            "|{1: A|{1: B}|C|{1: D}|E}|after|");
        add("in two cells",
            "\\trowd\\cellx4000\\cellx8000\\pard\\intbl\\itap2 A\\nestcell" + inner
                + "\\pard\\intbl\\cell\\itap2 B\\nestcell" + inner + "\\pard\\intbl\\cell\\row" + after,
            "|{2: |{1: A}|, |{1: B}|}|after|");
        add("definition before and behind the inner cells",
            "\\trowd\\cellx4000\\pard\\intbl\\itap2{\\*\\nesttableprops\\trowd\\cellx1000\\cellx2000}"
            "A\\nestcell B\\nestcell"
                + inner + "\\pard\\intbl C\\cell\\row" + after,
            "|{1: |{2: A, B}|C}|after|");
        add("merged",
            "\\trowd\\cellx4000\\pard\\intbl\\itap2 "
            "A\\nestcell{\\*\\nesttableprops\\trowd\\clvmgf\\cellx9\\nestrow}"
            "B\\nestcell{\\*\\nesttableprops\\trowd\\clvmrg\\cellx9\\nestrow}\\pard\\intbl C\\cell\\row"
                + after,
            "|{1: |{1: A|B(r2) / }|C}|after|");
        add("the outer row ends only", "\\trowd\\cellx4000\\itap2 A\\nestcell B\\nestcell\\row" + after,
            "|{1: |{2: A, B}|}|after|");
        add("no end of the inner row",
            "\\trowd\\cellx4000\\pard\\intbl\\itap2 A\\nestcell B\\pard\\intbl\\cell\\row" + after,
            "|{1: |{2: A, B}|}|after|");
        add("the input ends in the inner row", "\\trowd\\cellx4000\\pard\\intbl\\itap2 A\\nestcell B",
            "|{1: |{2: A, B}|}|");
    }

    ORV_ROWS(inputEndsWithinGroups)
    {
        const Rows add([](const QByteArray& rtf, const QString& content) {
            const Reading reading = import("{\\rtf1 " + rtf);
            QVERIFY(!reading.ok);
            QCOMPARE(contentOf(*reading.document), content);
        });
        add("text of a cell", "\\trowd\\cellx2000{\\b A", "|{1: A}|");
        add("second cell", "\\trowd\\cellx2000\\cellx4000{A\\cell B", "|{2: A, B}|");
        add("inner cell", "\\trowd\\cellx4000\\itap2 A\\nestcell{\\b B", "|{1: |{2: A, B}|}|");
        add("definition of the inner row",
            "\\trowd\\cellx4000\\itap2 A\\nestcell{\\*\\nesttableprops\\trowd\\cellx9", "|{1: |{1: A}|}|");
    }

    /*! Whether or not a row is open when the paragraph begins. */
    void paragraphsKeepTheirAlignment()
    {
        const Reading reading =
            importBody("x\\par\\pard\\qc A{\\b B}\\cell\\pard\\qr C\\par\\pard\\cell\\row" + after);
        QCOMPARE(contentOf(*reading.document), "x|{2: AB, C|}|after|"_s);
        QCOMPARE(reading.blockFormat(1).alignment(), Qt::AlignHCenter);
        QCOMPARE(reading.blockFormat(2).alignment(), Qt::AlignRight);
        QVERIFY(!reading.blockFormat(3).hasProperty(QTextFormat::BlockAlignment));
        QCOMPARE(reading.format("B"_s).fontWeight(), int(QFont::Bold));
    }

    void linksGoAcrossCells()
    {
        const Reading reading = importBody(
            rawRow("\\cellx2000\\cellx4000",
                   "{\\field{\\*\\fldinst HYPERLINK \"http://e.org/\"}{\\fldrslt A\\cell B}}\\cell C\\cell")
            + after);
        QCOMPARE(contentOf(*reading.document), "|{3: A, B, C}|after|"_s);
        QCOMPARE(reading.format("A"_s).anchorHref(), "http://e.org/"_s);
        QCOMPARE(reading.format("B"_s).anchorHref(), "http://e.org/"_s);
        QVERIFY(!reading.format("C"_s).isAnchor());
    }

    void countsOfListsGoAcrossCells()
    {
        const Reading reading =
            importBody("{\\*\\listtable{\\list{\\listlevel}\\listid1}}{\\*\\listoverridetable{"
                       "\\listoverride\\listid1\\ls1}}"
                       + rawRow("\\cellx2000\\cellx4000", "\\ls1 A\\par\\pard B\\cell\\ls1 C\\cell") + after);
        const ORVTextListLabels labels(reading.document.data());
        QCOMPARE(itemLines(*reading.document), "0 0 A\n1 0 C"_s);
        QCOMPARE(labels.label(reading.document->find("C"_s).block()).number, 2);
    }

    void deepNestingIsLimited()
    {
        const Reading reading = importBody("\\pard\\intbl\\itap9999 A\\nestcell");
        QCOMPARE(reading.status, 0);
        QVERIFY(reading.document->toPlainText().contains("A"_s));
    }

    void columnWidthsAreSharesOfThePage()
    {
        const Reading reading =
            importBody("\\paperw10800\\margl1000\\margr1000" + row("2200 8800", "A B") + after);
        const auto widths = tablesOf(*reading.document).first()->format().columnWidthConstraints();
        QCOMPARE(widths.size(), 2);
        QCOMPARE(widths.at(0).rawValue(), 25.0);
        QCOMPARE(widths.at(1).rawValue(), 75.0);
    }

    void manyColumnsMakeSeveralTables()
    {
        QByteArray rows;
        for (int i = 0; i < 20; ++i)
            rows += row(QByteArray::number(3000 + 50 * i) + " " + QByteArray::number(20000 + 50 * i), "A B");
        for (int i = 0; i < 300; ++i)
            rows += row(QByteArray::number(30000 + 50 * i), "C");
        const Reading reading = importBody(rows + after);
        QCOMPARE(reading.status, 0);
        int count = 0;
        for (const QTextTable* table : tablesOf(*reading.document)) {
            QVERIFY(table->columns() <= 256);
            count += table->rows();
        }
        QCOMPARE(count, 320);
        QCOMPARE(reading.document->toPlainText().count(QLatin1Char('C')), 300);
    }
};

ORV_TEST("interchange_tables", TestInterchangeTables, QGuiApplication)
#include "tables.moc"
