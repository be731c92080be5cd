#include "ORVTextBorder.h"
#include "writerhelpers.h"

using namespace rtftest;

namespace {

typedef QSharedPointer<QTextDocument> Document;

/*! A table's part of a row definition without borders; the columns follow it. */
QByteArray rowStart(bool first, bool last, int gap = 0)
{
    QByteArray words = "\n\\trowd\\trgaph" + QByteArray::number(gap) + "\\trautofit1";
    if (last)
        words += "\\lastrow";
    words += ' ';
    if (first)
        words += "\\trbrdrt\\brdrnil ";
    words += "\\trbrdrr\\brdrnil ";
    if (last)
        words += "\\trbrdrb\\brdrnil ";
    return words + "\\trbrdrl\\brdrnil ";
}

const QByteArray NoBorders = "\\clbrdrt\\brdrnil \\clbrdrr\\brdrnil \\clbrdrb\\brdrnil \\clbrdrl\\brdrnil ";

QByteArray borders(int width, int color)
{
    const QByteArray line =
        "\\brdrs\\brdrw" + QByteArray::number(width) + "\\brdrcf" + QByteArray::number(color) + ' ';
    return "\\clbrdrt" + line + "\\clbrdrr" + line + "\\clbrdrb" + line + "\\clbrdrl" + line;
}

/*! The definition of a column; \a merge and \a shading are the words for those. */
QByteArray column(int right, const QByteArray& merge = QByteArray(), const QByteArray& shading = QByteArray(),
                  const QByteArray& lines = NoBorders, const QByteArray& vertical = "\\clvertalt ")
{
    return "\n" + merge + vertical + "\\clshdrawnil" + lines + shading + "\\cellx" + QByteArray::number(right)
        + "\n";
}

const QByteArray OneColumn = column(4000);
const QByteArray TwoColumns = OneColumn + column(8000);

/*! Cells with a paragraph of one letter each. */
QByteArray letterCells(const QByteArray& letters, int depth = 1)
{
    QByteArrayList list;
    for (const char letter : letters)
        list << cellStart(depth) + run(QByteArray(1, letter)) + (depth > 1 ? "\\nestcell" : "\\cell");
    return list.join(' ');
}

/*! A row of an outer table: its definition before the cells and again behind them. */
QByteArray wholeRow(const QByteArray& definition, const QByteArray& cells)
{
    return "\n" + definition + cells + "{" + definition + "\\row}\\pard";
}

/*! A row of a table within a cell. */
QByteArray nestedRow(const QByteArray& definition, const QByteArray& cells)
{
    return "\n" + cells + "{\\*\\nesttableprops" + definition + "\\nestrow}\\pard";
}

/*! The empty paragraph that Qt has before a table, and the table's own first newline. */
QByteArray tableStart()
{
    return firstParagraph() + emptyRun() + "\n";
}

/*! The body of a document that has a table of one row. */
QByteArray oneRow(const QByteArray& columns, const QByteArray& cells, int gap = 0)
{
    return tableStart() + wholeRow(rowStart(true, true, gap) + columns, cells);
}

/*! A table of one cell, the letter x, within a cell. */
QByteArray innerTable()
{
    return "\n" + nestedRow(rowStart(true, true) + OneColumn, letterCells("x", 2)) + "\\itap1\\intbl";
}

QTextTableFormat plainTable()
{
    return with(QTextTableFormat(), {{QTextFormat::FrameBorder, 0.0}});
}

QTextTableFormat withWidths(const QVector<QTextLength>& widths)
{
    QTextTableFormat format = plainTable();
    format.setColumnWidthConstraints(widths);
    return format;
}

QTextLength percent(double value)
{
    return QTextLength(QTextLength::PercentageLength, value);
}

QTextLength fixed(double value)
{
    return QTextLength(QTextLength::FixedLength, value);
}

/*! A document with a table, whose cells have a letter each, row by row. */
class TableStory {
public:
    TableStory(int rows, int columns, const QTextTableFormat& format = plainTable())
        : document(newDocument()), table(QTextCursor(document.data()).insertTable(rows, columns, format))
    {
        char letter = 'a';
        for (int r = 0; r < rows; ++r) {
            for (int c = 0; c < columns; ++c)
                cursor(r, c).insertText(QString(QLatin1Char(letter++)));
        }
    }

    QTextCursor cursor(int row, int column) const { return table->cellAt(row, column).firstCursorPosition(); }
    TableStory& setCellProperty(int row, int column, int property, const QVariant& value)
    {
        QTextTableCell cell = table->cellAt(row, column);
        cell.setFormat(with(cell.format(), {{property, value}}));
        return *this;
    }
    /*! Sets a property of the paragraphs in the first row. */
    TableStory& setBlockProperty(int property, int value)
    {
        for (int column = 0; column < table->columns(); ++column)
            cursor(0, column).setBlockFormat(blockFormat({{property, value}}));
        return *this;
    }
    /*! Merges the first cell with others, whose texts go. */
    TableStory& merge(int rows, int columns)
    {
        for (int i = 1; i < rows * columns; ++i)
            cursor(i / columns, i % columns).deleteChar();
        table->mergeCells(0, 0, rows, columns);
        return *this;
    }
    /*! Adds text at the end of the first cell. */
    TableStory& append(const QString& text)
    {
        table->cellAt(0, 0).lastCursorPosition().insertText(text);
        return *this;
    }
    /*! Adds a table of one cell, the letter x, at the end of the first cell. */
    TableStory& appendTable()
    {
        QTextTable* const inner = table->cellAt(0, 0).lastCursorPosition().insertTable(1, 1, plainTable());
        inner->cellAt(0, 0).firstCursorPosition().insertText("x");
        return *this;
    }
    /*! Removes the letter of each cell. */
    TableStory& clear()
    {
        for (int i = 0; i < table->rows() * table->columns(); ++i)
            cursor(i / table->columns(), i % table->columns()).deleteChar();
        return *this;
    }
    QByteArray body(const WriteSettings& settings = WriteSettings()) const
    {
        return writeBody(*document, settings);
    }

    Document document;
    QTextTable* table;
};

/*! A frame behind a paragraph, which is to be left out. */
class FrameStory {
public:
    FrameStory() : document(textDocument("before")), cursor(document.data())
    {
        cursor.movePosition(QTextCursor::End);
        cursor.insertFrame(QTextFrameFormat());
    }

    Document document;
    QTextCursor cursor;
};

QTextTableFormat bordered(double width,
                          QTextFrameFormat::BorderStyle style = QTextFrameFormat::BorderStyle_Solid)
{
    return with(QTextTableFormat(),
                {{QTextFormat::FrameBorder, width},
                 {QTextFormat::FrameBorderStyle, int(style)},
                 {QTextFormat::FrameBorderBrush, QBrush(Qt::red)}});
}

} // namespace

class TestWriterTables : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(bodies)
    {
        const Rows add(
            [](const Document& document, const QByteArray& body) { QCOMPARE(writeBody(*document), body); });
        const QByteArray first = rowStart(true, false);
        const QByteArray last = rowStart(false, true);
        add("tableOfTwoRowsAndColumns", TableStory(2, 2).document,
            tableStart() + wholeRow(first + TwoColumns, letterCells("ab"))
                + wholeRow(last + TwoColumns, letterCells("cd")));
        add("tableOfOneCell", TableStory(1, 1).document, oneRow(OneColumn, letterCells("a")));
        add("firstParagraphOfEachCellStatesItsFormat",
            TableStory(1, 2).setBlockProperty(QTextFormat::BlockAlignment, Qt::AlignHCenter).document,
            oneRow(TwoColumns, letterCells("ab").replace("\\itap1", "\\itap1\\qc")));
        // The direction of runs is said outside tables only.
        add("rightToLeftParagraphInACell",
            TableStory(1, 1).setBlockProperty(QTextFormat::LayoutDirection, Qt::RightToLeft).document,
            oneRow(OneColumn, cellStart() + "\\rtlpar" + run("a") + "\\cell"));
        add("cellOverTwoColumns", TableStory(2, 2).merge(1, 2).document,
            tableStart()
                + wholeRow(first + column(4000, "\\clmgf ") + column(8000, "\\clmrg "),
                           letterCells("a") + "\\cell")
                + wholeRow(last + TwoColumns, letterCells("cd")));
        add("cellOverTwoRows", TableStory(2, 2).merge(2, 1).document,
            tableStart() + wholeRow(first + column(4000, "\\clvmgf ") + column(8000), letterCells("ab"))
                + wholeRow(last + column(4000, "\\clvmrg ") + column(8000), "\\cell " + letterCells("d")));
        add("cellOverRowsAndColumns", TableStory(2, 2).merge(2, 2).document,
            tableStart()
                + wholeRow(first + column(4000, "\\clvmgf \\clmgf ") + column(8000, "\\clvmgf \\clmrg "),
                           letterCells("a") + "\\cell")
                + wholeRow(last + column(4000, "\\clvmrg \\clmgf ") + column(8000, "\\clvmrg \\clmrg "),
                           "\\cell\\cell"));

        // Formats.
        const auto addBorder = [&add](const char* name, const QTextTableFormat& format,
                                      const QByteArray& lines) {
            add(name, TableStory(1, 1, format).document,
                oneRow(column(4000, "", "", lines), letterCells("a")));
        };
        // Black and white are colours 1 and 2, so the border's is 3.
        addBorder("borders onePoint", bordered(1), borders(20, 3));
        addBorder("borders twipsAreCut", bordered(0.99), borders(19, 3));
        addBorder("borders lessThanATwip", bordered(0.04), borders(0, 3));
        addBorder("borders tooWide", bordered(20), borders(255, 3));
        addBorder("borders widest", bordered(12.75), borders(255, 3));
        addBorder("borders dotted", bordered(1, QTextFrameFormat::BorderStyle_Dotted), borders(20, 3));
        addBorder("borders noWidth", bordered(0), NoBorders);
        addBorder("borders negativeWidth", bordered(-1), NoBorders);
        addBorder("borders noStyle", bordered(1, QTextFrameFormat::BorderStyle_None), NoBorders);
        addBorder("borders qtDefault", QTextTableFormat(), borders(20, 3));

        const auto addShading = [&add](const char* name, Qt::GlobalColor color, const QByteArray& words) {
            TableStory story(1, 2);
            story.setCellProperty(0, 1, QTextFormat::BackgroundBrush, QBrush(color));
            add(name, story.document, oneRow(OneColumn + column(8000, "", words), letterCells("ab")));
        };
        // The colour of the border that is not drawn is number 3.
        addShading("cellShading red", Qt::red, "\\clcbpat4");
        addShading("cellShading white", Qt::white, "\\clcbpat2");
        addShading("cellShading blackIsNone", Qt::black, "");

        const auto addAlignment = [&add](const char* name, int alignment, const QByteArray& word) {
            TableStory story(1, 1);
            story.setCellProperty(0, 0, QTextFormat::TextVerticalAlignment, alignment);
            add(name, story.document, oneRow(column(4000, "", "", NoBorders, word), letterCells("a")));
        };
        addAlignment("cellVerticalAlignment middle", 3, "\\clvertalc ");
        addAlignment("cellVerticalAlignment bottom", 5, "\\clvertalb ");
        addAlignment("cellVerticalAlignment top", 4, "\\clvertalt ");
        addAlignment("cellVerticalAlignment normal", 0, "\\clvertalt ");
        addAlignment("cellVerticalAlignment baseline", 6, "\\clvertalt ");

        const auto addPadding = [&add](const char* name, double padding, int gap) {
            const QTextTableFormat format = with(plainTable(), {{QTextFormat::TableCellPadding, padding}});
            add(name, TableStory(1, 1, format).document, oneRow(OneColumn, letterCells("a"), gap));
        };
        addPadding("cellPadding none", 0.0, 0);
        addPadding("cellPadding points", 5.4, 108);
        addPadding("cellPadding twipsAreCut", 1.99, 39);
        addPadding("cellPadding binaryFraction", 1.99999999, 40);

        const QByteArray begin = cellStart() + emptyRun();
        add("emptyCellsKeepTheirFormat", TableStory(1, 2).clear().document,
            oneRow(TwoColumns, begin + "\\cell " + begin + "\\cell"));
        add("cellOfTwoParagraphs", TableStory(1, 1).append("\nb").document,
            oneRow(OneColumn,
                   cellStart() + run("a") + "\n\\par\\plain \\intbl\\itap1" + run("b") + "\\cell"));
        add("nestedTableBetweenTexts", TableStory(1, 2).appendTable().append("y").document,
            oneRow(TwoColumns,
                   cellStart() + run("a") + innerTable() + letterCells("y") + ' ' + letterCells("b")));
        // The empty paragraph behind the nested table is dropped, the one of the next cell is not.
        add("emptyCellBehindANestedTable", TableStory(1, 2).clear().appendTable().document,
            oneRow(TwoColumns, begin + innerTable() + "\\cell " + begin + "\\cell"));
        addWidths(add);
        addFrames(add);
    }

    void borderHasItsColour()
    {
        QCOMPARE(colorTableOf(write(*TableStory(1, 1, bordered(1)).document)), blackAndWhite() + RedEntry);
    }

    /*! Other programs get the lines of the cells, where these have some; the application's own form has none. */
    void lineOfACell()
    {
        const TableStory story(1, 1, bordered(0));
        QTextTableCell cell =
            qobject_cast<QTextTable*>(story.document->rootFrame()->childFrames().first())->cellAt(0, 0);
        QTextCharFormat format = cell.format();
        ORVTextBorder line;
        line.style = QTextFrameFormat::BorderStyle_Dotted;
        line.width = 1.5;
        line.color = Qt::red;
        line.setToCell(format, ORVTextBorder::Bottom);
        cell.setFormat(format);
        QCOMPARE(story.body(), oneRow(OneColumn, letterCells("a")));
        const QByteArray lines =
            QByteArray(NoBorders).replace("\\clbrdrb\\brdrnil", "\\clbrdrb\\brdrs\\brdrw30\\brdrcf3");
        const QByteArray exported = write(*story.document, exporting());
        QVERIFY2(exported.contains(column(4000, QByteArray(), QByteArray(), lines)), exported.constData());
        QCOMPARE(colorTableOf(exported), blackAndWhite() + RedEntry);
    }

    void nestedTable()
    {
        const TableStory story = TableStory(1, 1).clear();
        QTextTable* inner = story.cursor(0, 0).insertTable(2, 2, plainTable());
        const char* const texts[] = {"a", "b", "c", "d"};
        for (int i = 0; i < 4; ++i)
            inner->cellAt(i / 2, i % 2).firstCursorPosition().insertText(texts[i]);
        const QByteArray innerRows = nestedRow(rowStart(true, false) + TwoColumns, letterCells("ab", 2))
            + nestedRow(rowStart(false, true) + TwoColumns, letterCells("cd", 2));
        QCOMPARE(story.body(),
                 oneRow(OneColumn, cellStart() + emptyRun() + "\n" + innerRows + "\\itap1\\intbl\\cell"));
    }

    void tableNestedTwice()
    {
        const Document document = newDocument();
        QTextCursor cursor(document.data());
        for (int depth = 0; depth < 3; ++depth)
            cursor = cursor.insertTable(1, 1, plainTable())->cellAt(0, 0).firstCursorPosition();
        cursor.insertText("x");
        const QByteArray definition = rowStart(true, true) + OneColumn;
        const QByteArray innermost = "\n" + nestedRow(definition, letterCells("x", 3)) + "\\itap2\\intbl";
        const QByteArray inner =
            "\n" + nestedRow(definition, cellStart(2) + emptyRun() + innermost + "\\nestcell");
        QCOMPARE(writeBody(*document),
                 oneRow(OneColumn, cellStart() + emptyRun() + inner + "\\itap1\\intbl\\cell"));
    }

    void tablesOneAfterTheOther()
    {
        TableStory story(1, 1);
        QTextCursor cursor(story.document.data());
        cursor.movePosition(QTextCursor::End);
        cursor.insertTable(1, 1, plainTable())->cellAt(0, 0).firstCursorPosition().insertText("b");
        // The paragraph between them is the empty one that follows a table.
        QCOMPARE(story.body(),
                 oneRow(OneColumn, letterCells("a")) + "\n"
                     + wholeRow(rowStart(true, true) + OneColumn, letterCells("b")));
    }

    ORV_ROWS(paragraphBeforeATable)
    {
        const Rows add([](const QString& text, const WriteSettings& settings, const QByteArray& written) {
            TableStory story(1, 1);
            QTextCursor(story.document.data()).insertText(text);
            QCOMPARE(story.body(settings),
                     firstParagraph() + written + "\n"
                         + wholeRow(rowStart(true, true) + OneColumn, letterCells("a")));
        });
        add("stored", "before", WriteSettings(), run("before"));
        add("exported", "before", exporting(), run("before") + "\n\\par");
        add("set", "before", settingsWith(&WriteSettings::paragraphBeforeTableEnded),
            run("before") + "\n\\par");
        add("empty, exported", "", exporting(), emptyRun());
    }

    void paragraphBeforeANestedTable()
    {
        const TableStory story = TableStory(1, 1).appendTable();
        const QByteArray begin = cellStart() + run("a");
        QCOMPARE(story.body(exporting()), oneRow(OneColumn, begin + "\n\\par" + innerTable() + "\\cell"));
        QCOMPARE(story.body(), oneRow(OneColumn, begin + innerTable() + "\\cell"));
    }

private:
    template <typename AddRow>
    static void addWidths(const AddRow& add)
    {
        const auto addWidth = [&add](const char* name, const QVector<QTextLength>& widths, int first,
                                     int second) {
            TableStory story(1, 2);
            QTextTableFormat format = withWidths(widths);
            format.setColumns(2);
            if (!widths.isEmpty())
                story.table->setFormat(format);
            add(name, story.document, oneRow(column(first) + column(second), letterCells("ab")));
        };
        const QTextLength variable(QTextLength::VariableLength, 0);
        // The text is 432 points wide: 8.5 inches less two margins of 1.25.
        addWidth("widths none", {}, 4000, 8000);
        addWidth("widths halves", {percent(50), percent(50)}, 4320, 8640);
        addWidth("widths thirds", {percent(100 / 3.0), percent(200 / 3.0)}, 2880, 8640);
        addWidth("widths pointsAreCut", {percent(10), fixed(100)}, 43 * 20, 143 * 20);
        addWidth("widths fixed", {fixed(100.7), fixed(50)}, 2000, 3000);
        addWidth("widths variable", {variable, variable}, 8640, 17280);
        addWidth("widths mixed", {fixed(72), percent(25)}, 1440, 3600);
        addWidth("widths tooFew", {fixed(72)}, 1440, 5440);
        addWidth("widths binaryFraction", {fixed(71.99999999), fixed(72)}, 1440, 2880);
        addWidth("widths zero", {fixed(0), fixed(72)}, 0, 1440);

        const TableStory halfWidth(1, 1, withWidths({percent(50)}));
        halfWidth.document->setProperty("paperSize", QSizeF(500.0, 700.0));
        halfWidth.document->setProperty("leftMargin", 50.0);
        halfWidth.document->setProperty("rightMargin", 100.0);
        // Half of 350 points.
        add("widths followThePage", halfWidth.document, oneRow(column(3500), letterCells("a")));
    }

    template <typename AddRow>
    static void addFrames(const AddRow& add)
    {
        const QByteArray before = firstParagraph() + run("before");
        const QByteArray next = "\n\\par\\plain ";
        FrameStory text;
        text.cursor.insertText("inside");
        add("textOfAFrameIsLeftOut", text.document, before + next + emptyRun());

        FrameStory inner;
        inner.cursor.insertText("inside");
        inner.cursor.insertFrame(QTextFrameFormat());
        inner.cursor.insertText("innermost");
        add("frameWithinAFrameIsWritten", inner.document,
            before + firstParagraph() + run("innermost") + next + emptyRun());

        // What stands in a frame within a frame is written paragraph by paragraph, a table too.
        FrameStory withTable;
        QTextTable* table = withTable.cursor.insertTable(1, 2, plainTable());
        table->cellAt(0, 0).firstCursorPosition().insertText("a");
        table->cellAt(0, 1).firstCursorPosition().insertText("b");
        add("tableWithinAFrameLosesItsCells", withTable.document,
            before + firstParagraph() + run("a") + next + run("b") + next + emptyRun());

        FrameStory after;
        after.cursor.insertText("inside");
        after.cursor.movePosition(QTextCursor::End);
        after.cursor.insertText("after");
        add("paragraphAfterAFrameGoesOn", after.document, before + next + run("after"));
    }
};

ORV_TEST("writer_tables", TestWriterTables, QGuiApplication)
#include "tables.moc"
