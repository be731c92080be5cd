#include "ORVRtfProperties.h"
#include "rtfstory.h"

#include <QtGui/QTextTable>
#include <QtTest/QtTest>

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
QByteArray row(const QByteArray& definition, const QByteArray& cells)
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

} // namespace

Q_DECLARE_METATYPE(QTextTableFormat)
Q_DECLARE_METATYPE(QVector<QTextLength>)

class TestWriterTables : public QObject {
    Q_OBJECT

private slots:
    void tableOfTwoRowsAndColumns();
    void tableOfOneCell();
    void emptyCellsKeepTheirFormat();
    void cellOfTwoParagraphs();
    void firstParagraphOfEachCellStatesItsFormat();
    void rightToLeftParagraphInACell();

    void cellOverTwoColumns();
    void cellOverTwoRows();
    void cellOverRowsAndColumns();

    void borders_data();
    void borders();
    void borderHasItsColour();
    void cellShading_data();
    void cellShading();
    void cellVerticalAlignment_data();
    void cellVerticalAlignment();
    void cellPadding_data();
    void cellPadding();
    void columnWidths_data();
    void columnWidths();
    void columnWidthsFollowThePage();

    void nestedTable();
    void nestedTableBetweenTexts();
    void emptyCellBehindANestedTable();
    void tableNestedTwice();
    void tablesOneAfterTheOther();
    void textOfACellOfMergedCellsIsWrittenOnce();

    void paragraphBeforeATable_data();
    void paragraphBeforeATable();
    void emptyParagraphBeforeATableIsNotEnded();
    void paragraphBeforeANestedTable();

    void textOfAFrameIsLeftOut();
    void frameWithinAFrameIsWritten();
    void tableWithinAFrameLosesItsCells();
    void paragraphAfterAFrameGoesOn();
    void tablesAreReadBack();
};

void TestWriterTables::tableOfTwoRowsAndColumns()
{
    const QByteArray columns = column(4000) + column(8000);
    const QByteArray first = rowStart(true, false) + columns;
    const QByteArray last = rowStart(false, true) + columns;
    QCOMPARE(TableStory(2, 2).body(),
             tableStart() + row(first, cellText("a") + "\\cell " + cellText("b") + "\\cell")
                 + row(last, cellText("c") + "\\cell " + cellText("d") + "\\cell"));
}

void TestWriterTables::tableOfOneCell()
{
    const QByteArray definition = rowStart(true, true) + column(4000);
    QCOMPARE(TableStory(1, 1).body(), tableStart() + row(definition, cellText("a") + "\\cell"));
}

void TestWriterTables::emptyCellsKeepTheirFormat()
{
    const QSharedPointer<QTextDocument> document = newDocument();
    QTextCursor(document.data()).insertTable(1, 2, plainTable());
    const QByteArray definition = rowStart(true, true) + column(4000) + column(8000);
    const QByteArray cell = "\n\\pard\\plain \\intbl\\itap1" + emptyRun() + "\\cell";
    QCOMPARE(writeBody(*document), tableStart() + row(definition, cell + " " + cell));
}

void TestWriterTables::cellOfTwoParagraphs()
{
    TableStory story(1, 1);
    QTextCursor cursor = story.table->cellAt(0, 0).lastCursorPosition();
    cursor.insertBlock();
    cursor.insertText("b");
    const QByteArray definition = rowStart(true, true) + column(4000);
    QCOMPARE(story.body(),
             tableStart()
                 + row(definition, cellText("a") + "\n\\par\\plain \\intbl\\itap1" + run("b") + "\\cell"));
}

void TestWriterTables::firstParagraphOfEachCellStatesItsFormat()
{
    TableStory story(1, 2);
    QTextBlockFormat centred;
    centred.setAlignment(Qt::AlignHCenter);
    story.cursor(0, 0).setBlockFormat(centred);
    story.cursor(0, 1).setBlockFormat(centred);
    const QByteArray begin = "\n\\pard\\plain \\intbl\\itap1\\qc";
    const QByteArray definition = rowStart(true, true) + column(4000) + column(8000);
    QCOMPARE(story.body(),
             tableStart() + row(definition, begin + run("a") + "\\cell " + begin + run("b") + "\\cell"));
}

void TestWriterTables::rightToLeftParagraphInACell()
{
    // The direction of runs is said outside tables only.
    TableStory story(1, 1);
    QTextBlockFormat format;
    format.setLayoutDirection(Qt::RightToLeft);
    story.cursor(0, 0).setBlockFormat(format);
    const QByteArray definition = rowStart(true, true) + column(4000);
    QCOMPARE(story.body(),
             tableStart() + row(definition, "\n\\pard\\plain \\intbl\\itap1\\rtlpar" + run("a") + "\\cell"));
}

void TestWriterTables::cellOverTwoColumns()
{
    TableStory story(2, 2);
    story.cursor(0, 1).deleteChar();
    story.table->mergeCells(0, 0, 1, 2);
    const QByteArray first = rowStart(true, false) + column(4000, "\\clmgf ") + column(8000, "\\clmrg ");
    const QByteArray last = rowStart(false, true) + column(4000) + column(8000);
    QCOMPARE(story.body(),
             tableStart() + row(first, cellText("a") + "\\cell\\cell")
                 + row(last, cellText("c") + "\\cell " + cellText("d") + "\\cell"));
}

void TestWriterTables::cellOverTwoRows()
{
    TableStory story(2, 2);
    story.cursor(1, 0).deleteChar();
    story.table->mergeCells(0, 0, 2, 1);
    const QByteArray first = rowStart(true, false) + column(4000, "\\clvmgf ") + column(8000);
    const QByteArray last = rowStart(false, true) + column(4000, "\\clvmrg ") + column(8000);
    QCOMPARE(story.body(),
             tableStart() + row(first, cellText("a") + "\\cell " + cellText("b") + "\\cell")
                 + row(last, "\\cell " + cellText("d") + "\\cell"));
}

void TestWriterTables::cellOverRowsAndColumns()
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
             tableStart() + row(first, cellText("a") + "\\cell\\cell") + row(last, "\\cell\\cell"));
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

void TestWriterTables::borders_data()
{
    QTest::addColumn<QTextTableFormat>("format");
    QTest::addColumn<QByteArray>("lines");

    // Black and white are colours 1 and 2, so the border's is 3.
    QTest::newRow("onePoint") << bordered(1) << ::borders(20, 3);
    QTest::newRow("twipsAreCut") << bordered(0.99) << ::borders(19, 3);
    QTest::newRow("lessThanATwip") << bordered(0.04) << ::borders(0, 3);
    QTest::newRow("tooWide") << bordered(20) << ::borders(255, 3);
    QTest::newRow("widest") << bordered(12.75) << ::borders(255, 3);
    QTest::newRow("dotted") << bordered(1, QTextFrameFormat::BorderStyle_Dotted) << ::borders(20, 3);
    QTest::newRow("noWidth") << bordered(0) << NoBorders;
    QTest::newRow("negativeWidth") << bordered(-1) << NoBorders;
    QTest::newRow("noStyle") << bordered(1, QTextFrameFormat::BorderStyle_None) << NoBorders;
    QTest::newRow("qtDefault") << QTextTableFormat() << ::borders(20, 3);
}

void TestWriterTables::borders()
{
    QFETCH(QTextTableFormat, format);
    QFETCH(QByteArray, lines);
    const QByteArray definition = rowStart(true, true) + column(4000, QByteArray(), QByteArray(), lines);
    QCOMPARE(TableStory(1, 1, format).body(), tableStart() + row(definition, cellText("a") + "\\cell"));
}

void TestWriterTables::borderHasItsColour()
{
    const QByteArray rtf = write(*TableStory(1, 1, bordered(1)).document);
    QVERIFY2(rtf.contains("{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;"
                          "\\red255\\green0\\blue0;}"),
             rtf.constData());
}

void TestWriterTables::cellShading_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QByteArray>("words");

    QTest::newRow("red") << QColor(Qt::red) << QByteArray("\\clcbpat4");
    QTest::newRow("white") << QColor(Qt::white) << QByteArray("\\clcbpat2");
    QTest::newRow("blackIsNone") << QColor(Qt::black) << QByteArray();
}

void TestWriterTables::cellShading()
{
    QFETCH(QColor, color);
    QFETCH(QByteArray, words);
    TableStory story(1, 2);
    story.setCellProperty(0, 1, QTextFormat::BackgroundBrush, QBrush(color));
    // The colour of the border that is not drawn is number 3.
    const QByteArray definition = rowStart(true, true) + column(4000) + column(8000, QByteArray(), words);
    QCOMPARE(story.body(),
             tableStart() + row(definition, cellText("a") + "\\cell " + cellText("b") + "\\cell"));
}

void TestWriterTables::cellVerticalAlignment_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QByteArray>("word");

    QTest::newRow("middle") << 3 << QByteArray("\\clvertalc ");
    QTest::newRow("bottom") << 5 << QByteArray("\\clvertalb ");
    QTest::newRow("top") << 4 << QByteArray("\\clvertalt ");
    QTest::newRow("normal") << 0 << QByteArray("\\clvertalt ");
    QTest::newRow("baseline") << 6 << QByteArray("\\clvertalt ");
}

void TestWriterTables::cellVerticalAlignment()
{
    QFETCH(int, alignment);
    QFETCH(QByteArray, word);
    TableStory story(1, 1);
    story.setCellProperty(0, 0, QTextFormat::TextVerticalAlignment, alignment);
    const QByteArray definition =
        rowStart(true, true) + column(4000, QByteArray(), QByteArray(), NoBorders, word);
    QCOMPARE(story.body(), tableStart() + row(definition, cellText("a") + "\\cell"));
}

void TestWriterTables::cellPadding_data()
{
    QTest::addColumn<double>("padding");
    QTest::addColumn<int>("gap");

    QTest::newRow("none") << 0.0 << 0;
    QTest::newRow("points") << 5.4 << 108;
    QTest::newRow("twipsAreCut") << 1.99 << 39;
    QTest::newRow("binaryFraction") << 1.99999999 << 40;
}

void TestWriterTables::cellPadding()
{
    QFETCH(double, padding);
    QFETCH(int, gap);
    QTextTableFormat format = plainTable();
    format.setCellPadding(padding);
    const QByteArray definition = rowStart(true, true, gap) + column(4000);
    QCOMPARE(TableStory(1, 1, format).body(), tableStart() + row(definition, cellText("a") + "\\cell"));
}

void TestWriterTables::columnWidths_data()
{
    QTest::addColumn<QVector<QTextLength>>("widths");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");

    const QTextLength variable(QTextLength::VariableLength, 0);
    // The text is 432 points wide: 8.5 inches less two margins of 1.25.
    QTest::newRow("none") << QVector<QTextLength>() << 4000 << 8000;
    QTest::newRow("halves") << QVector<QTextLength>{percent(50), percent(50)} << 4320 << 8640;
    QTest::newRow("thirds") << QVector<QTextLength>{percent(100 / 3.0), percent(200 / 3.0)} << 2880 << 8640;
    QTest::newRow("pointsAreCut") << QVector<QTextLength>{percent(10), fixed(100)} << 43 * 20 << 143 * 20;
    QTest::newRow("fixed") << QVector<QTextLength>{fixed(100.7), fixed(50)} << 2000 << 3000;
    QTest::newRow("variable") << QVector<QTextLength>{variable, variable} << 8640 << 17280;
    QTest::newRow("mixed") << QVector<QTextLength>{fixed(72), percent(25)} << 1440 << 3600;
    QTest::newRow("tooFew") << QVector<QTextLength>{fixed(72)} << 1440 << 5440;
    QTest::newRow("binaryFraction") << QVector<QTextLength>{fixed(71.99999999), fixed(72)} << 1440 << 2880;
    QTest::newRow("zero") << QVector<QTextLength>{fixed(0), fixed(72)} << 0 << 1440;
}

void TestWriterTables::columnWidths()
{
    QFETCH(QVector<QTextLength>, widths);
    QFETCH(int, first);
    QFETCH(int, second);
    TableStory story(1, 2);
    QTextTableFormat format = withWidths(widths);
    format.setColumns(2);
    if (!widths.isEmpty())
        story.table->setFormat(format);
    const QByteArray definition = rowStart(true, true) + column(first) + column(second);
    QCOMPARE(story.body(),
             tableStart() + row(definition, cellText("a") + "\\cell " + cellText("b") + "\\cell"));
}

void TestWriterTables::columnWidthsFollowThePage()
{
    TableStory story(1, 1, withWidths({percent(50)}));
    story.document->setProperty("paperSize", QSizeF(500.0, 700.0));
    story.document->setProperty("leftMargin", 50.0);
    story.document->setProperty("rightMargin", 100.0);
    // Half of 350 points.
    const QByteArray definition = rowStart(true, true) + column(3500);
    QCOMPARE(story.body(), tableStart() + row(definition, cellText("a") + "\\cell"));
}

void TestWriterTables::nestedTable()
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
                 + row(definition, "\n\\pard\\plain \\intbl\\itap1" + emptyRun() + innerTable + "\\cell"));
}

void TestWriterTables::nestedTableBetweenTexts()
{
    TableStory story(1, 2);
    QTextCursor cursor = story.table->cellAt(0, 0).lastCursorPosition();
    QTextTable* inner = cursor.insertTable(1, 1, plainTable());
    inner->cellAt(0, 0).firstCursorPosition().insertText("x");
    story.table->cellAt(0, 0).lastCursorPosition().insertText("y");

    const QByteArray innerTable = "\n"
        + nestedRow(rowStart(true, true) + column(4000), cellText("x", 2) + "\\nestcell") + "\\itap1\\intbl";
    const QByteArray definition = rowStart(true, true) + column(4000) + column(8000);
    QCOMPARE(story.body(),
             tableStart()
                 + row(definition,
                       cellText("a") + innerTable + cellText("y") + "\\cell " + cellText("b") + "\\cell"));
}

void TestWriterTables::emptyCellBehindANestedTable()
{
    // The empty paragraph behind the nested table is dropped, the one of the next cell is not.
    const QSharedPointer<QTextDocument> document = newDocument();
    QTextTable* outer = QTextCursor(document.data()).insertTable(1, 2, plainTable());
    QTextTable* inner = outer->cellAt(0, 0).firstCursorPosition().insertTable(1, 1, plainTable());
    inner->cellAt(0, 0).firstCursorPosition().insertText("x");
    const QByteArray begin = "\n\\pard\\plain \\intbl\\itap1" + emptyRun();
    const QByteArray innerTable = "\n"
        + nestedRow(rowStart(true, true) + column(4000), cellText("x", 2) + "\\nestcell") + "\\itap1\\intbl";
    const QByteArray definition = rowStart(true, true) + column(4000) + column(8000);
    QCOMPARE(writeBody(*document),
             tableStart() + row(definition, begin + innerTable + "\\cell " + begin + "\\cell"));
}

void TestWriterTables::tableNestedTwice()
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
    QCOMPARE(writeBody(*document),
             tableStart()
                 + row(definition, "\n\\pard\\plain \\intbl\\itap1" + emptyRun() + inner + "\\cell"));
}

void TestWriterTables::tablesOneAfterTheOther()
{
    TableStory story(1, 1);
    QTextTable* second = story.behind().insertTable(1, 1, plainTable());
    second->cellAt(0, 0).firstCursorPosition().insertText("b");
    // The paragraph between them is the empty one that follows a table.
    const QByteArray definition = rowStart(true, true) + column(4000);
    QCOMPARE(story.body(),
             tableStart() + row(definition, cellText("a") + "\\cell") + "\n"
                 + row(definition, cellText("b") + "\\cell"));
}

void TestWriterTables::textOfACellOfMergedCellsIsWrittenOnce()
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

void TestWriterTables::paragraphBeforeATable_data()
{
    QTest::addColumn<bool>("exportingMode");
    QTest::addColumn<bool>("setting");
    QTest::addColumn<QByteArray>("end");

    QTest::newRow("stored") << false << false << QByteArray();
    QTest::newRow("exported") << true << false << QByteArray("\n\\par");
    QTest::newRow("set") << false << true << QByteArray("\n\\par");
}

void TestWriterTables::paragraphBeforeATable()
{
    QFETCH(bool, exportingMode);
    QFETCH(bool, setting);
    QFETCH(QByteArray, end);
    TableStory story(1, 1);
    QTextCursor(story.document.data()).insertText("before");
    const QByteArray definition = rowStart(true, true) + column(4000);
    WriteSettings settings = setting ? endingParagraphs() : WriteSettings();
    settings.exportingMode = exportingMode;
    QCOMPARE(story.body(settings),
             firstParagraph() + run("before") + end + "\n" + row(definition, cellText("a") + "\\cell"));
}

void TestWriterTables::emptyParagraphBeforeATableIsNotEnded()
{
    TableStory story(1, 1);
    QCOMPARE(story.body(exporting()), story.body());
}

void TestWriterTables::paragraphBeforeANestedTable()
{
    TableStory story(1, 1);
    QTextTable* inner = story.table->cellAt(0, 0).lastCursorPosition().insertTable(1, 1, plainTable());
    inner->cellAt(0, 0).firstCursorPosition().insertText("x");

    const QByteArray definition = rowStart(true, true) + column(4000);
    const QByteArray innerTable =
        "\n" + nestedRow(definition, cellText("x", 2) + "\\nestcell") + "\\itap1\\intbl";
    QCOMPARE(story.body(exporting()),
             tableStart() + row(definition, cellText("a") + "\n\\par" + innerTable + "\\cell"));
    QCOMPARE(story.body(), tableStart() + row(definition, cellText("a") + innerTable + "\\cell"));
}

void TestWriterTables::textOfAFrameIsLeftOut()
{
    const QSharedPointer<QTextDocument> document = textDocument("before");
    QTextCursor cursor(document.data());
    cursor.movePosition(QTextCursor::End);
    cursor.insertFrame(QTextFrameFormat());
    cursor.insertText("inside");
    QCOMPARE(writeBody(*document), firstParagraph() + run("before") + "\n\\par\\plain " + emptyRun());
}

void TestWriterTables::frameWithinAFrameIsWritten()
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

void TestWriterTables::tableWithinAFrameLosesItsCells()
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

void TestWriterTables::paragraphAfterAFrameGoesOn()
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

void TestWriterTables::tablesAreReadBack()
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
    QCOMPARE(table->cellAt(0, 2).firstCursorPosition().block().text(), QStringLiteral("c"));
    QCOMPARE(table->cellAt(2, 2).firstCursorPosition().block().text(), QStringLiteral("i"));
}

QTEST_MAIN(TestWriterTables)
#include "tst_writer_tables.moc"
