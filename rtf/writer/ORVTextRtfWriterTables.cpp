#include "ORVTextRtfWriter_p.h"

#include "ORVRounding_p.h"
#include "ORVRtfUnits_p.h"
#include "ORVTextBorder.h"
#include "QtFormatCompat_p.h"

#include <QtGui/QTextTable>

using namespace ORVRtfUnits;

namespace {

// Width of a column without one, in points.
const int defaultColumnWidth = 200;
// The widest border in RTF, in twips.
const int widestBorder = 255;
// Colours up to this number are not written as shading: the automatic one, and black, which missing colours
// map to.
const int noShading = 1;

/*! Width of \a column in points; \a totalWidth is that of the text, in points. */
int calcColumnWidth(int column, const QVector<QTextLength>& constraints, double totalWidth)
{
    if (column >= constraints.size())
        return defaultColumnWidth;
    const QTextLength& length = constraints.at(column);
    switch (length.type()) {
    case QTextLength::FixedLength: return ORVRounding::truncated(length.rawValue());
    case QTextLength::PercentageLength: return ORVRounding::truncated(totalWidth * length.rawValue() / 100);
    case QTextLength::VariableLength: return ORVRounding::truncated(totalWidth);
    }
    return -1;
}

/*! QTextTableFormat has one border for all sides of all cells. */
ORVTextBorder tableBorder(const QTextTableFormat& format)
{
    ORVTextBorder border;
    border.style = ORVTextBorder::styleOf(format.property(QTextFormat::FrameBorderStyle).toInt());
    border.width = format.doubleProperty(QTextFormat::FrameBorder);
    border.color = compat::brushColor(format, QTextFormat::FrameBorderBrush);
    return border;
}

/*! Whether \a format states the line along \a side itself. */
bool hasOwnBorder(const QTextCharFormat& format, ORVTextBorder::Side side)
{
    return format.hasProperty(compat::tableCellBorder + side);
}

bool hasText(const QTextBlock& block)
{
    return block.isValid() && !block.begin().atEnd();
}

} // namespace

void ORVTextRtfWriterPrivate::processFrame(const QTextFrame* frame, Pass pass)
{
    m_paragraph.skipEmpty = false;
    m_paragraph.isFirst = true;
    processContent(frame->begin(), frame->end(), m_paragraph.tableDepth == 0, pass);
    m_paragraph.skipEmpty = false;
}

void ORVTextRtfWriterPrivate::processTableCell(const QTextTableCell& cell, Pass pass)
{
    m_paragraph.isFirst = true;
    processContent(cell.begin(), cell.end(), true, pass);
    m_paragraph.skipEmpty = false;
}

/*! Walks the content of a frame or cell: tables, frames and, if \a hasBlocks, paragraphs. */
void ORVTextRtfWriterPrivate::processContent(QTextFrame::iterator it, const QTextFrame::iterator& end,
                                             bool hasBlocks, Pass pass)
{
    QTextBlock before;
    while (it != end) {
        const QTextBlock block = it.currentBlock();
        const QTextFrame* const child = it.currentFrame();
        ++it;
        if (const QTextTable* const table = qobject_cast<const QTextTable*>(child)) {
            if (pass == Write && (m_settings.exportingMode || m_settings.paragraphBeforeTableEnded)
                && hasText(before))
                endParagraphBeforeTable();
            processTable(table, pass);
            m_paragraph.skipEmpty = true;
        } else if (child) {
            // Frames other than tables have no counterpart in RTF. Only frames within them are written.
            const QList<QTextFrame*> frames = child->childFrames();
            for (const QTextFrame* inner : frames)
                processFrame(inner, pass);
        } else if (block.isValid() && hasBlocks) {
            processBlock(block, it != end && !it.currentFrame() ? it.currentBlock() : QTextBlock(), pass);
        }
        before = block;
    }
}

void ORVTextRtfWriterPrivate::endParagraphBeforeTable()
{
    m_output.writeStructure('\n');
    m_output.write(NewParagraph);
}

void ORVTextRtfWriterPrivate::processTable(const QTextTable* table, Pass pass)
{
    if (pass == Collect) {
        collectTable(table);
        return;
    }
    ++m_paragraph.tableDepth;
    writeTable(table);
    --m_paragraph.tableDepth;
    m_paragraph.isFirst = true;
}

void ORVTextRtfWriterPrivate::collectTable(const QTextTable* table)
{
    m_colors.appendMissing(compat::brushColor(table->format(), QTextFormat::FrameBorderBrush));
    for (int row = 0; row < table->rows(); ++row) {
        for (int column = 0; column < table->columns(); ++column) {
            const QTextTableCell cell = table->cellAt(row, column);
            // A merged cell comes up at each place that it covers.
            if (!cell.isValid() || cell.row() != row || cell.column() != column)
                continue;
            m_colors.appendMissing(compat::brushColor(cell.format(), QTextFormat::BackgroundBrush));
            collectCellBorders(cell.format());
            processTableCell(cell, Collect);
        }
    }
}

void ORVTextRtfWriterPrivate::collectCellBorders(const QTextCharFormat& format)
{
    if (!m_settings.exportingMode)
        return;
    for (int side = 0; side < ORVTextBorder::SideCount; ++side) {
        if (hasOwnBorder(format, ORVTextBorder::Side(side)))
            m_colors.appendMissing(ORVTextBorder::ofCell(format, ORVTextBorder::Side(side)).color);
    }
}

void ORVTextRtfWriterPrivate::writeTable(const QTextTable* table)
{
    m_output.writeStructure('\n');
    for (int row = 0; row < table->rows(); ++row)
        writeTableRow(table, row);
}

/*!
    The definition of a row follows its cells. At the outermost level it also precedes them, as word
    processors do it.
*/
void ORVTextRtfWriterPrivate::writeTableRow(const QTextTable* table, int row)
{
    const int depth = m_paragraph.tableDepth;
    const bool isNested = depth > 1;
    m_output.writeStructure('\n');
    if (!isNested)
        processTableRowDefinition(table, row);
    for (int column = 0; column < table->columns(); ++column) {
        const QTextTableCell cell = table->cellAt(row, column);
        if (cell.isValid() && cell.row() == row && cell.column() == column) {
            m_output.endKeyword();
            processTableCell(cell, Write);
        }
        m_output.write(isNested ? EndNestedCell : EndCell);
    }

    m_output.openGroup();
    if (isNested) {
        m_output.write(OptionalDestination);
        m_output.write(NestedTableRowDefinition);
    }
    processTableRowDefinition(table, row);
    m_output.write(isNested ? EndNestedRow : EndRow);
    m_output.closeGroup();
    m_output.write(ResetParagraph);
    if (isNested && row == table->rows() - 1) {
        m_output.write(TableNesting, depth - 1);
        m_output.write(InTable);
    }
}

void ORVTextRtfWriterPrivate::processTableRowDefinition(const QTextTable* table, int row)
{
    const QTextTableFormat format = table->format();
    const bool isFirst = row == 0;
    const bool isLast = row == table->rows() - 1;
    m_output.writeStructure('\n');
    m_output.write(TableRowDefinition);
    m_output.write(TableRowCellPadding, ORVRounding::truncated(format.cellPadding() * twipsPerPoint));
    m_output.write(TableAutofit, 1);
    if (isLast)
        m_output.write(LastRow);
    m_output.writeStructure(' ');

    // Visible borders are properties of the cells.
    if (isFirst)
        writeNoBorder(TableRowBorderTop);
    writeNoBorder(TableRowBorderRight);
    if (isLast)
        writeNoBorder(TableRowBorderBottom);
    writeNoBorder(TableRowBorderLeft);

    const QVector<QTextLength> constraints = format.columnWidthConstraints();
    double right = 0;
    for (int column = 0; column < table->columns(); ++column) {
        m_output.writeStructure('\n');
        writeCellDefinition(table->cellAt(row, column), row, column, format);
        right += calcColumnWidth(column, constraints, m_page.textWidth() / twipsPerPoint);
        m_output.write(CellRightBoundary, ORVRounding::truncated(right * twipsPerPoint));
        m_output.writeStructure('\n');
    }
}

void ORVTextRtfWriterPrivate::writeNoBorder(KeyWord side)
{
    m_output.write(side);
    m_output.write(NoBorder);
    m_output.writeStructure(' ');
}

void ORVTextRtfWriterPrivate::writeCellDefinition(const QTextTableCell& cell, int row, int column,
                                                  const QTextTableFormat& format)
{
    int alignment = QTextCharFormat::AlignTop;
    if (cell.isValid()) {
        if (cell.rowSpan() > 1)
            m_output.writeClosedWord(cell.row() == row ? CellVerticalMergeFirst
                                                       : CellVerticalMergePreceeding);
        if (cell.columnSpan() > 1)
            m_output.writeClosedWord(cell.column() == column ? CellMergeFirst : CellMergePreceeding);
        alignment = cell.format().property(QTextFormat::TextVerticalAlignment).toInt();
    }
    switch (alignment) {
    case QTextCharFormat::AlignMiddle: m_output.writeClosedWord(CellVerticalAlignCenter); break;
    case QTextCharFormat::AlignBottom: m_output.writeClosedWord(CellVerticalAlignBottom); break;
    default: m_output.writeClosedWord(CellVerticalAlignTop); break;
    }
    m_output.write(NoCellShading);
    writeCellBorder(CellBorderTop, ORVTextBorder::Top, cell, format);
    writeCellBorder(CellBorderRight, ORVTextBorder::Right, cell, format);
    writeCellBorder(CellBorderBottom, ORVTextBorder::Bottom, cell, format);
    writeCellBorder(CellBorderLeft, ORVTextBorder::Left, cell, format);
    if (cell.isValid())
        backgroundColor(cell);
}

/*! Other programs get the line that the cell itself has, in place of that of the table. */
void ORVTextRtfWriterPrivate::writeCellBorder(KeyWord word, ORVTextBorder::Side side,
                                              const QTextTableCell& cell, const QTextTableFormat& format)
{
    const QTextCharFormat cellFormat = cell.format();
    const ORVTextBorder border = m_settings.exportingMode && hasOwnBorder(cellFormat, side)
        ? ORVTextBorder::ofCell(cellFormat, side)
        : tableBorder(format);
    if (!border.isVisible()) {
        writeNoBorder(word);
        return;
    }
    m_output.write(word);
    m_output.write(SingleWidthBorder);
    m_output.write(BorderWidth, qMin(ORVRounding::truncated(border.width * twipsPerPoint), widestBorder));
    if (m_colors.number(border.color) <= m_colors.colors().size())
        m_output.write(BorderColor, m_colors.number(border.color));
    m_output.writeStructure(' ');
}

/*! Writes the shading of \a cell. */
void ORVTextRtfWriterPrivate::backgroundColor(const QTextTableCell& cell)
{
    const int number = m_colors.number(compat::brushColor(cell.format(), QTextFormat::BackgroundBrush));
    if (number > noShading)
        m_output.write(BackgroundPatternColor, number);
}
