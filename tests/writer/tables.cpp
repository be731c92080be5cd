#include "testsupport.h"

using namespace rtftest;

namespace {

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

/*! The one paragraph of a cell. */
QByteArray cellText(const QByteArray& text, int depth = 1)
{
    return "\n\\pard\\plain \\intbl\\itap" + QByteArray::number(depth) + run(text);
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

QTextTableFormat plainTable()
{
    QTextTableFormat format;
    format.setBorder(0);
    return format;
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
    void setCellProperty(int row, int column, int property, const QVariant& value)
    {
        QTextTableCell cell = table->cellAt(row, column);
        QTextCharFormat format = cell.format();
        format.setProperty(property, value);
        cell.setFormat(format);
    }
    QTextCursor behind() const
    {
        QTextCursor cursor(document.data());
        cursor.movePosition(QTextCursor::End);
        return cursor;
    }
    QByteArray body(const WriteSettings& settings = WriteSettings()) const
    {
        return writeBody(*document, settings);
    }

    QSharedPointer<QTextDocument> document;
    QTextTable* table;
};

/*! The empty paragraph that Qt has before a table, and the table's own first newline. */
QByteArray tableStart()
{
    return firstParagraph() + emptyRun() + "\n";
}

WriteSettings endingParagraphs()
{
    WriteSettings settings;
    settings.paragraphBeforeTableEnded = true;
    return settings;
}

QTextTableFormat bordered(double width,
                          QTextFrameFormat::BorderStyle style = QTextFrameFormat::BorderStyle_Solid)
{
    QTextTableFormat format;
    format.setBorderStyle(style);
    format.setBorder(width);
    format.setBorderBrush(QBrush(Qt::red));
    return format;
}

} // namespace

Q_DECLARE_METATYPE(QTextTableFormat)
Q_DECLARE_METATYPE(QVector<QTextLength>)

class TestWriterTables : public QObject {
    Q_OBJECT

private slots:
    void tableOfTwoRowsAndColumns()
    {
        const QByteArray columns = column(4000) + column(8000);
        const QByteArray first = rowStart(true, false) + columns;
        const QByteArray last = rowStart(false, true) + columns;
        QCOMPARE(TableStory(2, 2).body(),
                 tableStart() + wholeRow(first, cellText("a") + "\\cell " + cellText("b") + "\\cell")
                     + wholeRow(last, cellText("c") + "\\cell " + cellText("d") + "\\cell"));
    }

    void tableOfOneCell()
    {
        const QByteArray definition = rowStart(true, true) + column(4000);
        QCOMPARE(TableStory(1, 1).body(), tableStart() + wholeRow(definition, cellText("a") + "\\cell"));
    }

    void emptyCellsKeepTheirFormat()
    {
        const QSharedPointer<QTextDocument> document = newDocument();
        QTextCursor(document.data()).insertTable(1, 2, plainTable());
        const QByteArray definition = rowStart(true, true) + column(4000) + column(8000);
        const QByteArray cell = "\n\\pard\\plain \\intbl\\itap1" + emptyRun() + "\\cell";
        QCOMPARE(writeBody(*document), tableStart() + wholeRow(definition, cell + " " + cell));
    }

    void cellOfTwoParagraphs()
    {
        TableStory story(1, 1);
        QTextCursor cursor = story.table->cellAt(0, 0).lastCursorPosition();
        cursor.insertBlock();
        cursor.insertText("b");
        const QByteArray definition = rowStart(true, true) + column(4000);
        QCOMPARE(story.body(),
                 tableStart()
                     + wholeRow(definition,
                                cellText("a") + "\n\\par\\plain \\intbl\\itap1" + run("b") + "\\cell"));
    }

    void firstParagraphOfEachCellStatesItsFormat()
    {
        TableStory story(1, 2);
        QTextBlockFormat centred;
        centred.setAlignment(Qt::AlignHCenter);
        story.cursor(0, 0).setBlockFormat(centred);
        story.cursor(0, 1).setBlockFormat(centred);
        const QByteArray begin = "\n\\pard\\plain \\intbl\\itap1\\qc";
        const QByteArray definition = rowStart(true, true) + column(4000) + column(8000);
        QCOMPARE(story.body(),
                 tableStart()
                     + wholeRow(definition, begin + run("a") + "\\cell " + begin + run("b") + "\\cell"));
    }

    void rightToLeftParagraphInACell()
    {
        // The direction of runs is said outside tables only.
        TableStory story(1, 1);
        QTextBlockFormat format;
        format.setLayoutDirection(Qt::RightToLeft);
        story.cursor(0, 0).setBlockFormat(format);
        const QByteArray definition = rowStart(true, true) + column(4000);
        QCOMPARE(story.body(),
                 tableStart()
                     + wholeRow(definition, "\n\\pard\\plain \\intbl\\itap1\\rtlpar" + run("a") + "\\cell"));
    }

    void cellOverTwoColumns()
    {
        TableStory story(2, 2);
        story.cursor(0, 1).deleteChar();
        story.table->mergeCells(0, 0, 1, 2);
        const QByteArray first = rowStart(true, false) + column(4000, "\\clmgf ") + column(8000, "\\clmrg ");
        const QByteArray last = rowStart(false, true) + column(4000) + column(8000);
        QCOMPARE(story.body(),
                 tableStart() + wholeRow(first, cellText("a") + "\\cell\\cell")
                     + wholeRow(last, cellText("c") + "\\cell " + cellText("d") + "\\cell"));
    }

    void cellOverTwoRows()
    {
        TableStory story(2, 2);
        story.cursor(1, 0).deleteChar();
        story.table->mergeCells(0, 0, 2, 1);
        const QByteArray first = rowStart(true, false) + column(4000, "\\clvmgf ") + column(8000);
        const QByteArray last = rowStart(false, true) + column(4000, "\\clvmrg ") + column(8000);
        QCOMPARE(story.body(),
                 tableStart() + wholeRow(first, cellText("a") + "\\cell " + cellText("b") + "\\cell")
                     + wholeRow(last, "\\cell " + cellText("d") + "\\cell"));
    }

    void cellOverRowsAndColumns()
    {
        TableStory story(2, 2);
        story.cursor(0, 1).deleteChar();
        story.cursor(1, 0).deleteChar();
        story.cursor(1, 1).deleteChar();
        story.table->mergeCells(0, 0, 2, 2);
        const QByteArray first =
            rowStart(true, false) + column(4000, "\\clvmgf \\clmgf ") + column(8000, "\\clvmgf \\clmrg ");
        const QByteArray last =
            rowStart(false, true) + column(4000, "\\clvmrg \\clmgf ") + column(8000, "\\clvmrg \\clmrg ");
        QCOMPARE(story.body(),
                 tableStart() + wholeRow(first, cellText("a") + "\\cell\\cell")
                     + wholeRow(last, "\\cell\\cell"));
    }

    void borders_data()
    {
        const Columns<QTextTableFormat, QByteArray> add("format", "lines");
        // Black and white are colours 1 and 2, so the border's is 3.
        add("onePoint", bordered(1), ::borders(20, 3));
        add("twipsAreCut", bordered(0.99), ::borders(19, 3));
        add("lessThanATwip", bordered(0.04), ::borders(0, 3));
        add("tooWide", bordered(20), ::borders(255, 3));
        add("widest", bordered(12.75), ::borders(255, 3));
        add("dotted", bordered(1, QTextFrameFormat::BorderStyle_Dotted), ::borders(20, 3));
        add("noWidth", bordered(0), NoBorders);
        add("negativeWidth", bordered(-1), NoBorders);
        add("noStyle", bordered(1, QTextFrameFormat::BorderStyle_None), NoBorders);
        add("qtDefault", QTextTableFormat(), ::borders(20, 3));
    }

    void borders()
    {
        FETCH(QTextTableFormat, format, QByteArray, lines);
        const QByteArray definition = rowStart(true, true) + column(4000, QByteArray(), QByteArray(), lines);
        QCOMPARE(TableStory(1, 1, format).body(),
                 tableStart() + wholeRow(definition, cellText("a") + "\\cell"));
    }

    void borderHasItsColour()
    {
        const QByteArray rtf = write(*TableStory(1, 1, bordered(1)).document);
        QVERIFY2(rtf.contains("{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;"
                              "\\red255\\green0\\blue0;}"),
                 rtf.constData());
    }

    void cellShading_data()
    {
        const Columns<QColor, QByteArray> add("color", "words");
        add("red", QColor(Qt::red), "\\clcbpat4");
        add("white", QColor(Qt::white), "\\clcbpat2");
        add("blackIsNone", QColor(Qt::black), QByteArray());
    }

    void cellShading()
    {
        FETCH(QColor, color, QByteArray, words);
        TableStory story(1, 2);
        story.setCellProperty(0, 1, QTextFormat::BackgroundBrush, QBrush(color));
        // The colour of the border that is not drawn is number 3.
        const QByteArray definition = rowStart(true, true) + column(4000) + column(8000, QByteArray(), words);
        QCOMPARE(story.body(),
                 tableStart() + wholeRow(definition, cellText("a") + "\\cell " + cellText("b") + "\\cell"));
    }

    void cellVerticalAlignment_data()
    {
        const Columns<int, QByteArray> add("alignment", "word");
        add("middle", 3, "\\clvertalc ");
        add("bottom", 5, "\\clvertalb ");
        add("top", 4, "\\clvertalt ");
        add("normal", 0, "\\clvertalt ");
        add("baseline", 6, "\\clvertalt ");
    }

    void cellVerticalAlignment()
    {
        FETCH(int, alignment, QByteArray, word);
        TableStory story(1, 1);
        story.setCellProperty(0, 0, QTextFormat::TextVerticalAlignment, alignment);
        const QByteArray definition =
            rowStart(true, true) + column(4000, QByteArray(), QByteArray(), NoBorders, word);
        QCOMPARE(story.body(), tableStart() + wholeRow(definition, cellText("a") + "\\cell"));
    }

    void cellPadding_data()
    {
        const Columns<double, int> add("padding", "gap");
        add("none", 0.0, 0);
        add("points", 5.4, 108);
        add("twipsAreCut", 1.99, 39);
        add("binaryFraction", 1.99999999, 40);
    }

    void cellPadding()
    {
        FETCH(double, padding, int, gap);
        QTextTableFormat format = plainTable();
        format.setCellPadding(padding);
        const QByteArray definition = rowStart(true, true, gap) + column(4000);
        QCOMPARE(TableStory(1, 1, format).body(),
                 tableStart() + wholeRow(definition, cellText("a") + "\\cell"));
    }

    void columnWidths_data()
    {
        const Columns<QVector<QTextLength>, int, int> add("widths", "first", "second");
        const QTextLength variable(QTextLength::VariableLength, 0);
        // The text is 432 points wide: 8.5 inches less two margins of 1.25.
        add("none", QVector<QTextLength>(), 4000, 8000);
        add("halves", QVector<QTextLength>{percent(50), percent(50)}, 4320, 8640);
        add("thirds", QVector<QTextLength>{percent(100 / 3.0), percent(200 / 3.0)}, 2880, 8640);
        add("pointsAreCut", QVector<QTextLength>{percent(10), fixed(100)}, 43 * 20, 143 * 20);
        add("fixed", QVector<QTextLength>{fixed(100.7), fixed(50)}, 2000, 3000);
        add("variable", QVector<QTextLength>{variable, variable}, 8640, 17280);
        add("mixed", QVector<QTextLength>{fixed(72), percent(25)}, 1440, 3600);
        add("tooFew", QVector<QTextLength>{fixed(72)}, 1440, 5440);
        add("binaryFraction", QVector<QTextLength>{fixed(71.99999999), fixed(72)}, 1440, 2880);
        add("zero", QVector<QTextLength>{fixed(0), fixed(72)}, 0, 1440);
    }

    void columnWidths()
    {
        FETCH(QVector<QTextLength>, widths, int, first, int, second);
        TableStory story(1, 2);
        QTextTableFormat format = withWidths(widths);
        format.setColumns(2);
        if (!widths.isEmpty())
            story.table->setFormat(format);
        const QByteArray definition = rowStart(true, true) + column(first) + column(second);
        QCOMPARE(story.body(),
                 tableStart() + wholeRow(definition, cellText("a") + "\\cell " + cellText("b") + "\\cell"));
    }

    void columnWidthsFollowThePage()
    {
        TableStory story(1, 1, withWidths({percent(50)}));
        story.document->setProperty("paperSize", QSizeF(500.0, 700.0));
        story.document->setProperty("leftMargin", 50.0);
        story.document->setProperty("rightMargin", 100.0);
        // Half of 350 points.
        const QByteArray definition = rowStart(true, true) + column(3500);
        QCOMPARE(story.body(), tableStart() + wholeRow(definition, cellText("a") + "\\cell"));
    }

    void nestedTable()
    {
        const QSharedPointer<QTextDocument> document = newDocument();
        QTextTable* outer = QTextCursor(document.data()).insertTable(1, 1, plainTable());
        QTextTable* inner = outer->cellAt(0, 0).firstCursorPosition().insertTable(2, 2, plainTable());
        const char* const texts[] = {"a", "b", "c", "d"};
        for (int i = 0; i < 4; ++i)
            inner->cellAt(i / 2, i % 2).firstCursorPosition().insertText(texts[i]);

        const QByteArray columns = column(4000) + column(8000);
        const QByteArray innerTable = "\n"
            + nestedRow(rowStart(true, false) + columns,
                        cellText("a", 2) + "\\nestcell " + cellText("b", 2) + "\\nestcell")
            + nestedRow(rowStart(false, true) + columns,
                        cellText("c", 2) + "\\nestcell " + cellText("d", 2) + "\\nestcell")
            + "\\itap1\\intbl";
        const QByteArray definition = rowStart(true, true) + column(4000);
        QCOMPARE(writeBody(*document),
                 tableStart()
                     + wholeRow(definition,
                                "\n\\pard\\plain \\intbl\\itap1" + emptyRun() + innerTable + "\\cell"));
    }

    void nestedTableBetweenTexts()
    {
        TableStory story(1, 2);
        QTextCursor cursor = story.table->cellAt(0, 0).lastCursorPosition();
        QTextTable* inner = cursor.insertTable(1, 1, plainTable());
        inner->cellAt(0, 0).firstCursorPosition().insertText("x");
        story.table->cellAt(0, 0).lastCursorPosition().insertText("y");

        const QByteArray innerTable = "\n"
            + nestedRow(rowStart(true, true) + column(4000), cellText("x", 2) + "\\nestcell")
            + "\\itap1\\intbl";
        const QByteArray definition = rowStart(true, true) + column(4000) + column(8000);
        QCOMPARE(story.body(),
                 tableStart()
                     + wholeRow(definition,
                                cellText("a") + innerTable + cellText("y") + "\\cell " + cellText("b")
                                    + "\\cell"));
    }

    void emptyCellBehindANestedTable()
    {
        // The empty paragraph behind the nested table is dropped, the one of the next cell is not.
        const QSharedPointer<QTextDocument> document = newDocument();
        QTextTable* outer = QTextCursor(document.data()).insertTable(1, 2, plainTable());
        QTextTable* inner = outer->cellAt(0, 0).firstCursorPosition().insertTable(1, 1, plainTable());
        inner->cellAt(0, 0).firstCursorPosition().insertText("x");
        const QByteArray begin = "\n\\pard\\plain \\intbl\\itap1" + emptyRun();
        const QByteArray innerTable = "\n"
            + nestedRow(rowStart(true, true) + column(4000), cellText("x", 2) + "\\nestcell")
            + "\\itap1\\intbl";
        const QByteArray definition = rowStart(true, true) + column(4000) + column(8000);
        QCOMPARE(writeBody(*document),
                 tableStart() + wholeRow(definition, begin + innerTable + "\\cell " + begin + "\\cell"));
    }

    void tableNestedTwice()
    {
        const QSharedPointer<QTextDocument> document = newDocument();
        QTextCursor cursor(document.data());
        for (int depth = 0; depth < 3; ++depth)
            cursor = cursor.insertTable(1, 1, plainTable())->cellAt(0, 0).firstCursorPosition();
        cursor.insertText("x");

        const QByteArray definition = rowStart(true, true) + column(4000);
        const QByteArray innermost =
            "\n" + nestedRow(definition, cellText("x", 3) + "\\nestcell") + "\\itap2\\intbl";
        const QByteArray inner = "\n"
            + nestedRow(definition, "\n\\pard\\plain \\intbl\\itap2" + emptyRun() + innermost + "\\nestcell")
            + "\\itap1\\intbl";
        QCOMPARE(
            writeBody(*document),
            tableStart()
                + wholeRow(definition, "\n\\pard\\plain \\intbl\\itap1" + emptyRun() + inner + "\\cell"));
    }

    void tablesOneAfterTheOther()
    {
        TableStory story(1, 1);
        QTextTable* second = story.behind().insertTable(1, 1, plainTable());
        second->cellAt(0, 0).firstCursorPosition().insertText("b");
        // The paragraph between them is the empty one that follows a table.
        const QByteArray definition = rowStart(true, true) + column(4000);
        QCOMPARE(story.body(),
                 tableStart() + wholeRow(definition, cellText("a") + "\\cell") + "\n"
                     + wholeRow(definition, cellText("b") + "\\cell"));
    }

    void textOfACellOfMergedCellsIsWrittenOnce()
    {
        TableStory story(3, 3);
        story.table->mergeCells(0, 0, 3, 3);
        const QByteArray body = story.body();
        // Qt joins the texts of cells that it merges, in paragraphs of its own choice.
        int texts = 0;
        for (QTextBlock block = story.document->begin(); block.isValid(); block = block.next()) {
            if (block.text().isEmpty())
                continue;
            QCOMPARE(body.count(run(block.text().toLatin1())), 1);
            ++texts;
        }
        QVERIFY(texts > 0);
        QCOMPARE(body.count("\\cell") - body.count("\\cellx"), 9);
    }

    void paragraphBeforeATable_data()
    {
        const Columns<bool, bool, QByteArray> add("exportingMode", "setting", "end");
        add("stored", false, false, QByteArray());
        add("exported", true, false, "\n\\par");
        add("set", false, true, "\n\\par");
    }

    void paragraphBeforeATable()
    {
        FETCH(bool, exportingMode, bool, setting, QByteArray, end);
        TableStory story(1, 1);
        QTextCursor(story.document.data()).insertText("before");
        const QByteArray definition = rowStart(true, true) + column(4000);
        WriteSettings settings = setting ? endingParagraphs() : WriteSettings();
        settings.exportingMode = exportingMode;
        QCOMPARE(story.body(settings),
                 firstParagraph() + run("before") + end + "\n"
                     + wholeRow(definition, cellText("a") + "\\cell"));
    }

    void emptyParagraphBeforeATableIsNotEnded()
    {
        TableStory story(1, 1);
        QCOMPARE(story.body(exporting()), story.body());
    }

    void paragraphBeforeANestedTable()
    {
        TableStory story(1, 1);
        QTextTable* inner = story.table->cellAt(0, 0).lastCursorPosition().insertTable(1, 1, plainTable());
        inner->cellAt(0, 0).firstCursorPosition().insertText("x");

        const QByteArray definition = rowStart(true, true) + column(4000);
        const QByteArray innerTable =
            "\n" + nestedRow(definition, cellText("x", 2) + "\\nestcell") + "\\itap1\\intbl";
        QCOMPARE(story.body(exporting()),
                 tableStart() + wholeRow(definition, cellText("a") + "\n\\par" + innerTable + "\\cell"));
        QCOMPARE(story.body(), tableStart() + wholeRow(definition, cellText("a") + innerTable + "\\cell"));
    }

    void textOfAFrameIsLeftOut()
    {
        const QSharedPointer<QTextDocument> document = textDocument("before");
        QTextCursor cursor(document.data());
        cursor.movePosition(QTextCursor::End);
        cursor.insertFrame(QTextFrameFormat());
        cursor.insertText("inside");
        QCOMPARE(writeBody(*document), firstParagraph() + run("before") + "\n\\par\\plain " + emptyRun());
    }

    void frameWithinAFrameIsWritten()
    {
        const QSharedPointer<QTextDocument> document = textDocument("before");
        QTextCursor cursor(document.data());
        cursor.movePosition(QTextCursor::End);
        cursor.insertFrame(QTextFrameFormat());
        cursor.insertText("inside");
        cursor.insertFrame(QTextFrameFormat());
        cursor.insertText("innermost");
        QCOMPARE(writeBody(*document),
                 firstParagraph() + run("before") + firstParagraph() + run("innermost") + "\n\\par\\plain "
                     + emptyRun());
    }

    void tableWithinAFrameLosesItsCells()
    {
        // What stands in a frame within a frame is written paragraph by paragraph, a table too.
        const QSharedPointer<QTextDocument> document = textDocument("before");
        QTextCursor cursor(document.data());
        cursor.movePosition(QTextCursor::End);
        cursor.insertFrame(QTextFrameFormat());
        QTextTable* table = cursor.insertTable(1, 2, plainTable());
        table->cellAt(0, 0).firstCursorPosition().insertText("a");
        table->cellAt(0, 1).firstCursorPosition().insertText("b");
        QCOMPARE(writeBody(*document),
                 firstParagraph() + run("before") + firstParagraph() + run("a") + "\n\\par\\plain " + run("b")
                     + "\n\\par\\plain " + emptyRun());
    }

    void paragraphAfterAFrameGoesOn()
    {
        const QSharedPointer<QTextDocument> document = textDocument("before");
        QTextCursor cursor(document.data());
        cursor.movePosition(QTextCursor::End);
        cursor.insertFrame(QTextFrameFormat());
        cursor.insertText("inside");
        cursor.movePosition(QTextCursor::End);
        cursor.insertText("after");
        QCOMPARE(writeBody(*document), firstParagraph() + run("before") + "\n\\par\\plain " + run("after"));
    }

    void tablesAreReadBack()
    {
        TableStory story(3, 3);
        story.table->mergeCells(0, 0, 1, 2);
        story.table->mergeCells(1, 1, 2, 1);
        const Reading reading = rtftest::read(write(*story.document));
        QCOMPARE(reading.status, 0);
        QTextTable* table = QTextCursor(reading.document->begin().next()).currentTable();
        QVERIFY(table);
        QCOMPARE(table->rows(), 3);
        QCOMPARE(table->columns(), 3);
        QCOMPARE(table->cellAt(0, 0).columnSpan(), 2);
        QCOMPARE(table->cellAt(1, 1).rowSpan(), 2);
        QCOMPARE(table->cellAt(0, 2).firstCursorPosition().block().text(), "c"_s);
        QCOMPARE(table->cellAt(2, 2).firstCursorPosition().block().text(), "i"_s);
    }
};

ORV_TEST("writer_tables", TestWriterTables, QGuiApplication)
#include "tables.moc"
