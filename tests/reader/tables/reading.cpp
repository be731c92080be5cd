#include "runhelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

/*! Nested tables of one cell each, \a depth levels in all: the innermost says X. */
QByteArray nestedTables(int depth)
{
    QByteArray rtf;
    for (int level = depth; level > 1; --level) {
        rtf += "\\pard\\intbl\\itap" + QByteArray::number(level) + (level == depth ? " X" : "")
            + "\\nestcell{\\*\\nesttableprops\\trowd\\cellx1000\\nestrow}{\\nonesttables\\par}";
    }
    return rtf + "\\pard\\intbl\\cell\\trowd\\cellx8640\\row\\pard after\\par";
}

/*! What contentOf() gives for nestedTables(). */
QString nestedContent(int depth)
{
    QString content = "1: X"_s;
    for (int level = depth; level > 1; --level)
        content = "1: |{%1}||"_s.arg(content);
    return "|{%1}||after|"_s.arg(content);
}

/*! The numbers from 1 to \a count, times \a factor, each behind \a prefix, blanks between them. */
QByteArray numbers(int count, const QByteArray& prefix, int factor = 1)
{
    return counted(prefix + "# ", count, factor).trimmed();
}

} // namespace

/*! Which tables, rows, columns and spans come out of which rows. */
class TestTablesReading : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(shapes)
    {
        const Rows add([](const QByteArray& rows, const QString& shape) {
            const Reading open = readBody(rows);
            QCOMPARE(open.status, 0);
            QCOMPARE(contentOf(*open.document), "|{%1}|"_s.arg(shape));
            QVERIFY(!firstTable(open)->format().hasProperty(QTextFormat::TableColumnWidthConstraints));

            const Reading closed = readBody(rows + "\\pard after\\par");
            QCOMPARE(closed.status, 0);
            QCOMPARE(contentOf(*closed.document), "|{%1}||after|"_s.arg(shape));
        });
        const QByteArray ab = row("4320 8640", "A B");
        const QByteArray abc = row("2000 4000 6000", "A B C");

        add("one cell", row("2000", "A"), "1: A");
        add("one row", abc, "3: A, B, C");
        add("last row", "\\lastrow" + ab, "2: A, B");
        add("empty cells", row("2000 4000 6000", "- B -"), "3: -, B, -");
        add("same boundaries", ab + row("4320 8640", "C D"), "2: A, B / C, D");
        add("three rows", ab + row("4320 8640", "C D") + row("4320 8640", "E F"), "2: A, B / C, D / E, F");

        add("split column", ab + row("2000 8640", "C D"), "3: A(c2), B / C, D(c2)");
        add("split last column", ab + row("4320 6000 8640", "C D E"), "3: A, B(c2) / C, D, E");
        add("column split in three", row("8640", "A") + row("2000 4000 8640", "B C D"), "3: A(c3) / B, C, D");
        add("left column split in three", ab + row("1000 2000 4320 8640", "C D E F"),
            "4: A(c3), B / C, D, E, F");
        add("both columns split", ab + row("2000 4320 6000 8640", "C D E F"), "4: A(c2), B(c2) / C, D, E, F");
        add("boundaries interleaved", ab + row("2880 5760 8640", "C D E"), "4: A(c2), B(c2) / C, D(c2), E");
        add("split widens all rows above", ab + row("4320 8640", "C D") + row("2000 4320 8640", "E F G"),
            "3: A(c2), B / C(c2), D / E, F, G");
        add("split in the third row, joined cell above",
            ab + row("8640", "C") + row("2000 4320 8640", "D E F"), "3: A(c2), B / C(c3) / D, E, F");
        add("split of a cell that was split already swallows its neighbour",
            ab + row("2000 4320 8640", "C D E") + row("1000 2000 4320 8640", "F G H I"),
            "4: A B(c4) / C(c2), D, E / F, G, H, I");

        add("wider cell", abc + row("4000 6000", "D E"), "3: A, B, C / D(c2), E");
        add("cell over all columns", abc + row("6000", "D"), "3: A, B, C / D(c3)");
        add("wider last cell", abc + row("2000 6000", "D E"), "3: A, B, C / D, E(c2)");

        add("appended column", ab + row("4320 8640 9000", "C D E"), "3: A, B, - / C, D, E");
        add("appended columns", row("2000", "A") + row("2000 4000 6000", "B C D"), "3: A, -, - / B, C, D");
        add("wider cell beyond the last boundary", row("2000 4000", "A B") + row("9000", "C"),
            "3: A, B, - / C(c3)");
        add("appended in the third row", ab + row("4320 8640", "C D") + row("4320 8640 9000", "E F G"),
            "3: A, B, - / C, D, - / E, F, G");

        add("vertical merge", ab + row("4320v 8640", "C D"), "2: A(r2), B / D");
        add("vertical merge over three rows", ab + row("4320v 8640", "- C") + row("4320v 8640", "- D"),
            "2: A(r3), B / C / D");
        add("all cells merged vertically", ab + row("4320v 8640v", "C D"), "2: A(r2), B(r2) / ");
        add("vertical merge in the first row", row("3000v 5000", "A B"), "2: -, B");
        add("vertical merge below an empty start", row("3000v 5000", "A B") + row("3000v 5000", "C D"),
            "2: -(r2), B / D");
        add("row below a vertical merge",
            ab + row("4320v 8640", "- C") + row("4320 8640", "D E") + row("4320v 8640", "- F"),
            "2: A(r2), B / C / D(r2), E / F");
        add("vertical merge over two columns", ab + row("8640v", "C"), "2: A(r2), B(r2) / ");
        add("vertical merge of a wide cell", row("2000 4000h 6000", "A - C") + row("4000v 6000", "- D"),
            "3: A(r2c2), C / D");

        add("horizontal merge", row("2000 4000h 6000", "A B C"), "3: A(c2), C");
        add("horizontal merge to the end", row("2000 4000 6000h", "A B C"), "3: A, B(c2)");
        add("chain of horizontal merges", row("2000 4000h 6000h", "A B C"), "3: A(c3)");
        add("horizontal merge in the first column", row("2000h 4000", "A B"), "2: -, B");
        add("two horizontal merges", row("1000 2000h 3000 4000h", "A - B -"), "4: A(c2), B(c2)");
        add("block of merged cells", row("2000 4000h", "A B") + row("2000v 4000v", "C D"), "2: A(r2c2) / ");
        add("both merge words on one cell", ab + row("4320 8640vh", "C D"), "2: A, B(r2) / C");

        add("cell below half of a merged cell joins it",
            row("2000 4000h 6000", "A B C") + row("2000v 4000 6000", "D E F"), "3: AE(r2c2), C / F");
        add("horizontal merge with a vertically merged cell", abc + row("2000v 4000h 6000", "D E F"),
            "3: A B(r2c2), C / F");
        add("vertical merge of a narrower cell", row("3000 5000", "A B") + row("1000v 5000", "C D"),
            "3: AD B(r2c3) / ");

        add("split below two merged rows", row("3000", "A") + row("3000v", "-") + row("1000 3000", "D E"),
            "2: A(r2c2) /  / D, E");
        add("split below three merged rows",
            row("3000", "A") + row("3000v", "-") + row("3000v", "-") + row("1000 3000", "D E"),
            "2: A(r3c2) /  /  / D, E");
        add("split beside merged rows", ab + row("4320v 8640", "- C") + row("4320 6000 8640", "D E F"),
            "3: A(r2), B(c2) / C(c2) / D, E, F");
        add("column appended beside merged rows",
            row("3000", "A") + row("3000v", "-") + row("3000 5000", "D E"), "2: A(r2), - / - / D, E");

        const QString texts = QString::fromLatin1(numbers(256, "c")).replace(QLatin1Char(' '), ", "_s);
        add("columns up to the limit", row(numbers(256, "", 30), numbers(256, "c")).repeated(2),
            "256: %1 / %1"_s.arg(texts));
        // The text of all further cells stands in the last one, in its order.
        add("columns beyond the limit", row(numbers(300, "", 20), numbers(300, "c")),
            "256: "_s + texts + QString::fromLatin1(numbers(300, "c")).mid(numbers(256, "c").size()));
    }

    /*! Rows whose cells and definitions do not match, which programs write and people edit. */
    ORV_ROWS(shapesOfOddRows)
    {
        const Rows add([](const QByteArray& rows, const QString& shape, const QString& columnWidths) {
            const Reading reading = readBody(rows + "\\pard after");
            QCOMPARE(reading.status, 0);
            QCOMPARE(contentOf(*reading.document), "|{%1}||after"_s.arg(shape));
            QCOMPARE(widthsOf(firstTable(reading)), columnWidths);
        });
        const QByteArray ab = row("4320 8640", "A B");
        const QByteArray abc = row("4320 8640", "A B C");
        const char* const thirds = "33.33333333% 33.33333333% 33.33333333%";

        add("more cells than definitions", abc, "3: A, B, C", thirds);
        add("no definitions", rawRow("", cells("A B")), "2: A, B", "50% 50%");
        add("one cell more, same again", abc + row("4320 8640", "D E F"), "3: A, B, C / D, E, F", thirds);
        add("one cell more, then as defined", abc + row("4320 8640", "D E"), "3: A, B, C / -, -, -", thirds);
        add("one cell more, then two more", abc + row("4320 8640", "D E F G"), "3: A, B, C / -, -, -",
            thirds);
        add("one cell more, then three more", abc + row("4320 8640", "D E F G H"),
            "4: A, B, C, - / -, -, -, -", "25% 25% 25% 25%");
        add("one cell more, then a third boundary", abc + row("4320 8640 9000", "D E F"),
            "4: A, B, C(c2) / -, -, -, -", "25% 25% 25% 25%");
        add("fewer cells than definitions", row("2160 4320 8640", "A B"), "2: A, B", "25% 25%");
        add("fewer cells than definitions, then all",
            row("2160 4320 8640", "A B") + row("2160 4320 8640", "C D E"), "2: A, B / -, -", "25% 25%");
        add("later row with a cell more", ab + row("4320 8640", "C D E"), "2: A, B / -, -", "50% 50%");
        add("later row with two cells more", ab + row("4320 8640", "C D E F"), "3: A, B, - / -, -, -",
            "50% 50% -100%");
        add("later row with a cell less", ab + row("4320 8640", "C"), "2: A, B / -, -", "50% 50%");
        add("later row that ends early", ab + row("4320", "C"), "2: A, B / -, -", "50% 50%");
        add("later row that splits and ends early", row("8640", "A") + row("2160 4320", "B C"),
            "3: A(c3) / -, -, -", "25% 25% 50%");
        add("later row without definitions", ab + rawRow("", cells("C D")), "2: A, B / C, D", "50% 50%");
        add("rows go on after an empty one", ab + row("4320 8640", "C") + row("4320 8640", "D E"),
            "2: A, B / -, - / D, E", "50% 50%");

        add("text after the last cell", rawRow(cellx("4320 8640"), cells("A B") + "lost"), "2: A, B",
            "50% 50%");
        add("paragraphs after the last cell", rawRow(cellx("8640"), cells("A") + "lost\\par lost\\par "),
            "1: A", "100%");
        add("cell without an end, alone", rawRow(cellx("8640"), "A"), "1: A", "100%");
        add("no cell at all", rawRow(cellx("8640"), ""), "1: -", "100%");
        add("no cell and no definition", rawRow("", ""), "1: -", "100%");
        add("definition without an end", rawRow(cellx("4320 8640") + "\\clmrg", cells("A B")), "2: A, B",
            "50% 50%");
        add("second row without an end of its cell", row("8640", "A") + rawRow(cellx("8640"), "B"),
            "1: A / B", "100%");
        add("definitions after the cells",
            "\\pard\\intbl " + cells("A B") + "\\trowd" + cellx("4320 8640") + "\\row", "2: A, B", "50% 50%");
        add("a new row definition does not forget the old one",
            rawRow("\\cellx2160\\trowd\\cellx4320\\cellx8640", cells("A B C")), "3: A, B, C", "25% 25% 50%");
        add("a definition is forgotten after its row",
            row("2160 4320 8640", "A B C") + row("2160 8640", "D E"), "3: A, B, C / D, E(c2)", "25% 25% 50%");
        add("equal boundaries", row("4320 4320 8640", "A B C"), "3: A, B, C", "50% 0% 50%");
        add("first and last words only mark", rawRow("\\clmgf\\cellx4320\\clvmgf\\cellx8640", cells("A B")),
            "2: A, B", "50% 50%");
        add("decreasing boundaries", row("4320 2160", "A B"), "2: A, B", "50% -25%");

        // Definitions stated twice.
        // Word processors state a row's definitions before its cells and again before its end.
        auto twice = [](const QByteArray& boundaries, const QByteArray& texts) {
            const QByteArray definitions = "\\trowd" + cellx(boundaries);
            return definitions + "\\pard\\intbl " + cells(texts) + definitions + "\\row\n";
        };

        const QByteArray twiceAb = twice("4320 8640", "A B");

        add("one column", twice("2160", "A"), "1: A", "25%");
        add("two columns", twiceAb, "2: A, B", "50% 50%");
        add("every row", twiceAb + twice("4320 8640", "C D"), "2: A, B / C, D", "50% 50%");
        add("only the first row", twiceAb + row("4320 8640", "C D"), "2: A, B / C, D", "50% 50%");
        add("only a later row", row("4320 8640", "A B") + twice("4320 8640", "C D"), "2: A, B / C, D",
            "50% 50%");
        add("later row with more cells", twiceAb + twice("4320 6480 8640", "C D E"), "3: A, B(c2) / C, D, E",
            "50% 25% 25%");
        add("later row with a wider table", twiceAb + twice("4320 8640 10800", "C D E"),
            "3: A, B, - / C, D, E", "50% 50% 25%");
        add("later row with fewer cells", twiceAb + twice("8640", "C"), "2: A, B / C(c2)", "50% 50%");
        add("merges", twiceAb + twice("4320v 8640", "- C"), "2: A(r2), B / C", "50% 50%");
        add("merged cells beside each other", twice("2160 4320h 8640", "A - B"), "3: A(c2), B",
            "25% 25% 50%");
        add("the second statement goes on", rawRow(cellx("2160 4320 2160 4320 8640"), cells("A B C D E")),
            "5: A, B, C, D, E", "25% 25% -25% 25% 50%");
        add("no repetition but the first boundary", rawRow(cellx("2160 4320 2160"), cells("A B C")),
            "3: A, B, C", "25% 25% -25%");
    }

    ORV_ROWS(widths)
    {
        const Rows add([](const QByteArray& rtf, const QString& expected) {
            const Reading closed = readBody(rtf + "\\pard after");
            QCOMPARE(closed.status, 0);
            const QList<QTextTable*> tables = tablesOf(*closed.document);
            QCOMPARE(tables.size(), 1);
            QCOMPARE(widthsOf(tables.first()), expected);
        });
        const QByteArray halves = row("4320 8640", "A B");

        add("halves", halves, "50% 50%");
        add("one column", row("2160", "A"), "25%");
        add("wider than the page", row("8640 17280", "A B"), "100% 100%");
        add("not a whole percentage", row("2880 8640", "A B"), "33.33333333% 66.66666667%");
        add("split column", halves + row("2160 8640", "C D"), "25% 25% 50%");
        add("appended column", halves + row("4320 8640 10800", "C D E"), "50% 50% 25%");
        add("placeholder", halves + row("8640", "C"), "50% 50%");
        add("merged cells keep their columns", row("2160 4320h 8640", "A - B"), "25% 25% 50%");
        add("left edge of the row widens the first column",
            "\\trowd\\trleft-2160" + cellx("2160 4320") + "\\pard\\intbl " + cells("A B") + "\\row",
            "25% 25%");
        add("automatic fit is not followed",
            "\\trowd\\trautofit1" + cellx("4320") + "\\pard\\intbl A\\cell\\row", "50%");
        add("narrow page", "\\paperw6000\\margl1000\\margr1000 " + row("1000 4000", "A B"), "25% 75%");
        add("margins", "\\margl2440\\margr1800 " + row("4000 8000", "A B"), "50% 50%");
        add("no paper", "\\paperw0 " + halves, "50% 50%");
        add("no paper, unequal boundaries", "\\paperw0 " + row("1000 2000 8000 9000", "A B C D"),
            "25% 25% 25% 25%");
        add("paper as wide as the margins", "\\paperw3600 " + row("1000 4000", "A B"), "50% 50%");
        add("paper narrower than the margins", "\\paperw3599 " + row("1000 4000", "A B"), "50% 50%");
        add("page size after the rows, when the table closes",
            halves + "\\paperw20880 \\pard after\\paperw0 ", "25% 25%");
        add("negative paper", "\\paperw-12240 " + row("1000 4000", "A B"), "50% 50%");
        add("boundaries at the ends of 32 bits", row("-2147483648 2147483647", "A B"),
            "-24855134.81% 49710269.62%");
        add("columns beyond the limit", row(numbers(300, "", 20), numbers(300, "c")),
            "0.2314814815% "_s.repeated(256).trimmed());
        add("smallest paper", "\\paperw-2147483648 " + row("1000 3000", "A B"), "50% 50%");
    }

    /*! Where tables begin and end within the text. */
    ORV_ROWS(surroundings)
    {
        const Rows add([](const QByteArray& rtf, const QString& content) {
            // The closing brace flushes text, so every case is a complete document.
            const Reading reading = readBody(rtf);
            QCOMPARE(reading.status, 0);
            QCOMPARE(contentOf(*reading.document), content);
        });
        const QByteArray a = row("2000", "A");
        const QByteArray b = row("2000", "B");
        const QByteArray last = rawRow(cellx("2000") + "\\lastrow", "A\\cell ");
        const QByteArray openA = "\\trowd\\cellx2000\\intbl A\\cell";

        add("table alone", a, "|{1: A}|");
        add("text before in its own paragraph", "before\\par " + a, "before||{1: A}|");
        add("text before in an unended paragraph", "before" + a, "before|{1: A}|");
        add("text after", a + "\\pard after\\par", "|{1: A}||after|");
        add("text after without resetting the paragraph", a + "after", "|{1: A}||after");
        add("empty paragraph after", a + "\\pard\\par after", "|{1: A}|||after");
        add("line break after", a + "\\\nafter", "|{1: A}|||after");
        add("page break after", a + "\\page after", "|{1: A}|||after");
        add("two tables", a + "\\pard between\\par " + b + "\\pard after", "|{1: A}||between||{1: B}||after");
        add("two tables with an empty paragraph between", a + "\\pard\\par " + b, "|{1: A}||||{1: B}|");
        add("three tables", a + "\\pard x\\par" + b + "\\pard y\\par" + a, "|{1: A}||x||{1: B}||y||{1: A}|");
        add("rows without anything between are one table", a + b, "|{1: A / B}|");
        add("a reset paragraph between rows does not end the table", a + "\\pard" + b, "|{1: A / B}|");

        add("last row", last + "\\pard after", "|{1: A}||after");
        add("last row closes at once", last, "|{1: A}||");
        add("last row, then a table", last + b, "|{1: A}|||{1: B}|");
        add("last row before the row definition", a + "\\lastrow" + b + a, "|{1: A / B}|||{1: A}|");
        add("last row without a table", "\\lastrow" + a + b, "|{1: A / B}|");
        add("last row counts for one row", last + a + b, "|{1: A}|||{1: A / B}|");

        add("row without the word for paragraphs in tables", a + "\\trowd\\cellx2000 B\\cell\\row after",
            "|{1: A}||Bafter");
        add("first row without that word", "\\trowd\\cellx2000 A\\cell\\row after", "|Aafter");
        add("without that word, after text in the same paragraph", "x\\trowd\\cellx2000 A\\cell\\row",
            "x|{1: A}|");
        add("without that word, after a paragraph", "x\\par\\trowd\\cellx2000 A\\cell\\row", "x||{1: A}|");
        add("paragraph outside the table ends an unended row", openA + "\\pard after\\cell\\row", "|after");
        add("paragraph outside the table within a cell",
            "\\trowd\\cellx2000\\intbl A\\par\\pard B\\cell\\row", "|B");
        add("only the unended row is lost", a + openA + "\\pard after", "|{1: A}||after");
        add("level 1 as a number", "\\trowd\\cellx2000\\itap1 A\\cell\\row\\pard after", "|{1: A}||after");
        add("level 0 leaves the table", "\\trowd\\cellx2000\\intbl\\itap0 A\\cell\\row", "|A");
        add("a level below 0 counts as 0", "\\trowd\\cellx2000\\intbl\\itap-1 A\\cell\\row", "|A");
        add("a level without a number", "\\trowd\\cellx2000\\intbl\\itap A\\cell\\row", "|A");
        add("words of nested tables in an outer one",
            "\\trowd\\cellx2000\\intbl A\\nestcell\\nestrow\\pard after", "|{1: A}||after");
        add("paragraph word in a group", "{\\trowd\\cellx2000{\\intbl A}\\cell}\\row{\\pard after}",
            "|{1: A}||after");

        add("end of input within a cell", "\\trowd\\cellx2000\\intbl A", "");
        add("end of input after a cell", openA, "");
        add("end of input within the second row", a + openA, "|{1: A}|");
        add("end of input within a nested row",
            a + "\\trowd\\cellx2000\\intbl\\itap2 N\\nestcell{\\*\\nesttableprops\\cellx900\\nestrow}",
            "|{1: A}|");
        add("table paragraph that never becomes a row", "\\intbl lost\\pard after", "|after");
        add("cell words without a table", "x\\cell y\\row z\\nestcell\\nestrow\\lastrow", "xyz");

        // Merged cell without intbl keeps the table open.
        // Some programs leave \intbl out in the empty cell that continues the one above.
        const QByteArray ab = row("4320 8640", "A B");
        add("first cell is merged", ab + "\\trowd\\clvmrg\\cellx4320\\cellx8640\\cell C\\cell\\row",
            "|{2: A(r2), B / C}|");
        add("first cell is merged, after a reset",
            ab + "\\pard\\trowd\\clvmrg\\cellx4320\\cellx8640\\cell C\\cell\\row", "|{2: A(r2), B / C}|");
        add("first cell is merged but has text",
            ab + "\\trowd\\clvmrg\\cellx4320\\cellx8640 x\\cell C\\cell\\row", "|{2: A, B}||xC");
        add("second cell is merged", ab + "\\trowd\\cellx4320\\clvmrg\\cellx8640\\cell C\\cell\\row",
            "|{2: A, B}||C");
        add("no cell is merged", ab + "\\trowd\\cellx4320\\cellx8640\\cell C\\cell\\row", "|{2: A, B}||C");

        // Nesting.
        const QByteArray outer = "\\trowd\\cellx8640 ";
        const QByteArray props =
            "{\\*\\nesttableprops\\trowd\\cellx2000\\cellx4000\\nestrow}{\\nonesttables fallback\\par}";
        const QByteArray inner = "\\pard\\intbl\\itap2 N1\\nestcell N2\\nestcell" + props;
        const QByteArray end = "\\pard\\intbl out\\cell\\row\\pard after";

        add("nested table first", outer + inner + end, "|{1: |{2: N1, N2}||out}||after");
        add("text before", outer + "\\pard\\intbl pre\\par" + inner + end,
            "|{1: pre||{2: N1, N2}||out}||after");
        add("text before without an end", outer + "\\pard\\intbl pre" + inner + end,
            "|{1: pre|{2: N1, N2}||out}||after");
        add("empty last paragraph", outer + inner + "\\pard\\intbl\\cell\\row\\pard after",
            "|{1: |{2: N1, N2}||}||after");
        add("two rows", outer + inner + inner + end, "|{1: |{2: N1, N2 / N1, N2}||out}||after");
        add("two nested tables", outer + inner + "\\pard\\intbl mid\\par" + inner + end,
            "|{1: |{2: N1, N2}||mid||{2: N1, N2}||out}||after");
        add("definition before the nested cells",
            outer + "\\pard\\intbl\\itap2\\cellx2000 N\\nestcell\\nestrow" + end,
            "|{1: |{1: N}||out}||after");
        add("words of outer tables in a nested one",
            outer + "\\pard\\intbl\\itap2\\cellx2000 N\\cell\\row" + end, "|{1: |{1: N}||out}||after");
        add("level before the table word", outer + "\\pard\\itap2\\intbl N\\nestcell\\nestrow" + end,
            "|{1: |{1: N}||out}||after");
        add("level word alone",
            outer + "\\pard\\itap2 N\\nestcell\\nestrow\\pard\\itap1 out\\cell\\row\\pard after",
            "|{1: |{1: N}||out}||after");
        add("in the second cell", "\\trowd\\cellx4320\\cellx8640\\pard\\intbl first\\cell" + inner + end,
            "|{2: first, |{2: N1, N2}||out}||after");
        add("in the second row", row("8640", "A") + outer + inner + end,
            "|{1: A / |{2: N1, N2}||out}||after");
        add("split in the nested table",
            outer + inner + "\\pard\\intbl\\itap2 " + cells("P Q R")
                + "{\\*\\nesttableprops\\cellx1000\\cellx2000\\cellx4000\\nestrow}" + end,
            "|{1: |{3: N1(c2), N2 / P, Q, R}||out}||after");
        add("vertical merge in the nested table",
            outer + inner + "\\pard\\intbl\\itap2 " + cells("- Q")
                + "{\\*\\nesttableprops\\clvmrg\\cellx2000\\cellx4000\\nestrow}" + end,
            "|{1: |{2: N1(r2), N2 / Q}||out}||after");
        add("last row of the nested table",
            outer + "\\pard\\intbl\\itap2 N\\nestcell{\\*\\nesttableprops\\cellx900\\lastrow\\nestrow}" + end,
            "|{1: |{1: N}||out}||after");
        add("another table after a nested last row",
            outer + "\\pard\\intbl\\itap2 N\\nestcell{\\*\\nesttableprops\\cellx900\\lastrow\\nestrow}"
                + inner + end,
            "|{1: |{1: N}|||{2: N1, N2}||out}||after");
        add("three levels",
            outer + "\\pard\\intbl\\itap3 X\\nestcell{\\*\\nesttableprops\\cellx900\\nestrow}"
                + "\\pard\\intbl\\itap2 N1\\nestcell N2\\nestcell" + props + end,
            "|{1: |{2: |{1: X}||N1, N2}||out}||after");

        add("paragraph outside all tables ends the outer row too", outer + inner + "\\cell\\row\\pard after",
            "|after");
        add("levels closed together lose rows that were not ended",
            outer + "\\pard\\intbl\\itap3 X\\nestcell{\\*\\nesttableprops\\cellx900\\nestrow}" + end,
            "|{1: |out}||after");
        add("nested row that is not ended", outer + "\\pard\\intbl\\itap2 N\\nestcell" + end,
            "|{1: |out}||after");
        add("fallback is skipped",
            outer + "\\pard\\intbl a{\\nonesttables b{\\b c}d}e\\cell\\row\\pard after", "|{1: ae}||after");
        add("end of input", outer + inner, "");
        for (int depth = 2; depth <= 12; ++depth)
            add("depth " + QByteArray::number(depth), nestedTables(depth), nestedContent(depth));
        // A deeper level counts as the deepest: its rows become rows of that table.
        add("depth 13", nestedTables(13), nestedContent(12).replace("1: X"_s, "1: X / -"_s));
        add("largest depth", nestedTables(12).replace("\\itap12 ", "\\itap2147483647 "), nestedContent(12));
        add("end of input after the outer row", outer + inner + "\\pard\\intbl out\\cell\\row",
            "|{1: |{2: N1, N2}||out}|");
        add("nested rows when the input ends", row("8640", "A") + outer + inner, "|{1: A}|");
    }

    /*! Rows of fewer columns each, but with different boundaries, so that together they would make 400. */
    void splitsBeyondTheColumnLimit()
    {
        const QByteArray texts = numbers(200, "a");
        const Reading reading = readBody(row(numbers(200, "", 40), texts)
                                         + row(numbers(200, "", 41), numbers(200, "b")) + "\\pard after");
        QCOMPARE(reading.status, 0);
        const QTextTable* table = firstTable(reading);
        QCOMPARE(QSize(table->columns(), table->rows()), QSize(256, 2));
        QString rowText;
        for (int c = 0; c < table->columns(); c += table->cellAt(0, c).columnSpan())
            rowText += contentOf(table->cellAt(0, c));
        QCOMPARE(rowText, QString::fromLatin1(texts).remove(QLatin1Char(' ')));
        QCOMPARE(contentOf(*reading.document).right(7), "||after"_s);
    }
};

ORV_TEST("tables_reading", TestTablesReading, QGuiApplication)
#include "reading.moc"
