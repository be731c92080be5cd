#include "ORVRtfTableLevels_p.h"

#include "ORVTextRtfTable_p.h"

#include <QtGui/QTextDocument>

void ORVRtfTableLevels::beginParagraph()
{
    m_paragraphLevel = 0;
    m_isParagraphCommitted = false;
}

void ORVRtfTableLevels::setParagraphLevel(int level)
{
    m_paragraphLevel = qBound(0, level, ORVRtfLimits::tableNesting);
}

bool ORVRtfTableLevels::commitParagraph()
{
    const bool isFirst = !m_isParagraphCommitted;
    m_isParagraphCommitted = true;
    return isFirst;
}

void ORVRtfTableLevels::takeParagraphOfMergedRow()
{
    if (m_paragraphLevel == 0 && isOpen() && row().cellDefinitions.first().verticalMergeWithPrevious)
        m_paragraphLevel = 1;
}

/*! The beginning of the innermost cell. */
QTextCursor ORVRtfTableLevels::cellPlace()
{
    return QTextCursor(row().cells.last().document().data());
}

QTextCursor ORVRtfTableLevels::open(int level, const QTextCursor& place)
{
    QTextCursor current = place;
    while (openLevels() < level) {
        ORVTextRtfRow row;
        row.table = QSharedPointer<ORVTextRtfTable>(new ORVTextRtfTable);
        row.parentCursor = current;
        m_rows.push(row);
        current = cellPlace();
    }
    return current;
}

QTextCursor ORVRtfTableLevels::endCell()
{
    row().closeCell();
    return cellPlace();
}

QTextCursor ORVRtfTableLevels::endRow(double textWidth)
{
    row().finish();
    addToTable(row(), textWidth);
    if (row().lastRow)
        return QTextCursor();
    row().reset();
    return cellPlace();
}

/*! A table that would have far more cells than the file has words for continues as a new one. */
void ORVRtfTableLevels::addToTable(ORVTextRtfRow& row, double textWidth)
{
    m_cellsLeft += ORVRtfLimits::tableCellsForEachInFile * row.cells.size();
    if (!row.table->isEmpty() && row.table->mostCellsWith(row) - row.table->cellCount() > m_cellsLeft) {
        insertTable(row, textWidth);
        row.table = QSharedPointer<ORVTextRtfTable>(new ORVTextRtfTable);
    }
    const int before = row.table->cellCount();
    row.table->addRow(row);
    m_cellsLeft -= row.table->cellCount() - before;
}

void ORVRtfTableLevels::insertTable(ORVTextRtfRow& row, double textWidth)
{
    row.table->setColumnWidths(textWidth, m_columnWidths);
    row.table->insertAt(row.parentCursor);
}

QTextCursor ORVRtfTableLevels::close(int level, double textWidth)
{
    QTextCursor place;
    while (openLevels() > level) {
        ORVTextRtfRow row = m_rows.pop();
        // Cell words open a level even where no row follows.
        if (!row.table->isEmpty())
            insertTable(row, textWidth);
        place = row.parentCursor;
    }
    return place;
}

QTextCursor ORVRtfTableLevels::abandon()
{
    ORVTextRtfRow outermost = m_rows.first();
    m_rows.clear();
    if (!outermost.table->isEmpty())
        outermost.table->insertAt(outermost.parentCursor);
    return outermost.parentCursor;
}

void ORVRtfTableLevels::setCellAlignment(QTextCharFormat::VerticalAlignment alignment)
{
    if (isOpen())
        row().currentDefinition().verticalAlignment = alignment;
}

void ORVRtfTableLevels::setLastRow()
{
    if (isOpen())
        row().lastRow = true;
}

bool ORVRtfTableLevels::areBordersKept() const
{
    return m_bordersAreOfCells && isOpen();
}

void ORVRtfTableLevels::setBorderWidth(double points)
{
    if (areBordersKept())
        row().setBorderWidth(points);
}

void ORVRtfTableLevels::setBorderColor(const QColor& color)
{
    if (areBordersKept())
        row().setBorderColor(color);
}

void ORVRtfTableLevels::clearBorder()
{
    if (areBordersKept())
        row().clearBorder();
}
