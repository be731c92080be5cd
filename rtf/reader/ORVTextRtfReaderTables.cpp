#include "ORVTextRtfReader_p.h"

#include "ORVRtfLimits_p.h"
#include "ORVRtfUnits_p.h"
#include "ORVTextRtfTable_p.h"

#include <QtGui/QTextDocument>

using namespace ORVRtfUnits;

void ORVTextRtfReaderPrivate::setTableLevel(int level)
{
    m_tableLevel = qBound(0, level, ORVRtfLimits::tableNesting);
    initializeTables(m_tableLevel);
}

/*! Opens table levels until \a level are open. Text then goes into the cells of the innermost one. */
void ORVTextRtfReaderPrivate::initializeTables(int level)
{
    while (m_rows.size() < level) {
        settleEmptyBlock();
        ORVTextRtfRow row;
        row.table = QSharedPointer<ORVTextRtfTable>(new ORVTextRtfTable);
        row.parentCursor = m_cursor.place();
        m_rows.push(row);
        enterLastCell();
    }
}

/*! The innermost open row; words that describe cells or rows open a table when there is none. */
ORVTextRtfRow& ORVTextRtfReaderPrivate::openRow()
{
    initializeTables(1);
    return m_rows.top();
}

void ORVTextRtfReaderPrivate::enterLastCell()
{
    m_cursor.moveTo(QTextCursor(m_rows.top().cells.last().document().data()));
}

void ORVTextRtfReaderPrivate::endCell()
{
    // The paragraph of a cell in a row that begins with a continued cell need not say that it is in a table.
    if (m_tableLevel == 0 && !m_rows.isEmpty()
        && m_rows.top().cellDefinitions.first().verticalMergeWithPrevious)
        m_tableLevel = 1;
    commitBlockFormat();
    if (m_rows.isEmpty())
        return;
    m_cursor.complete();
    m_rows.top().closeCell();
    enterLastCell();
}

void ORVTextRtfReaderPrivate::finalizeRow()
{
    m_tableLevel = 0;
    m_tablesCommitted = false;
    if (m_rows.isEmpty())
        return;
    settleEmptyBlock();
    m_cursor.complete();
    ORVTextRtfRow& row = m_rows.top();
    row.finish();
    addRowToTable(row);
    if (row.lastRow) {
        finalizeTables(int(m_rows.size()) - 1);
    } else {
        row.reset();
        enterLastCell();
    }
}

/*! A table that would take too many cells for what the file says goes on in a new one. */
void ORVTextRtfReaderPrivate::addRowToTable(ORVTextRtfRow& row)
{
    m_tableCellsLeft += ORVRtfLimits::tableCellsForEachInFile * row.cells.size();
    if (!row.table->isEmpty() && row.table->mostCellsWith(row) - row.table->cellCount() > m_tableCellsLeft) {
        row.table->setColumnWidths(m_page.textWidth(), m_columnWidths);
        row.table->insertAt(row.parentCursor);
        row.table = QSharedPointer<ORVTextRtfTable>(new ORVTextRtfTable);
    }
    const int before = row.table->cellCount();
    row.table->addRow(row);
    m_tableCellsLeft -= row.table->cellCount() - before;
}

/*! Closes table levels until \a level are open; what follows stands in a new paragraph behind the table. */
void ORVTextRtfReaderPrivate::finalizeTables(int level)
{
    if (m_rows.size() <= level)
        return;
    while (m_rows.size() > level) {
        const ORVTextRtfRow row = m_rows.pop();
        m_cursor.moveTo(row.parentCursor);
        if (!row.table->isEmpty()) {
            row.table->setColumnWidths(m_page.textWidth(), m_columnWidths);
            row.table->insertAt(m_cursor.place());
        }
    }
    m_emptyBlockUnsettled = false;
    m_cursor.endBlock();
}

/*!
    At the end of the input no table is closed: the outermost one keeps the rows that have ended, and no
    widths. Rows within cells of an unended row are lost with it.
*/
void ORVTextRtfReaderPrivate::abandonTables()
{
    if (m_rows.isEmpty())
        return;
    const ORVTextRtfRow outermost = m_rows.first();
    m_rows.clear();
    m_cursor.moveTo(outermost.parentCursor);
    if (!outermost.table->isEmpty())
        outermost.table->insertAt(m_cursor.place());
}

void ORVTextRtfReaderPrivate::setCellAlignment(QTextCharFormat::VerticalAlignment alignment)
{
    if (!m_rows.isEmpty())
        m_rows.top().currentDefinition().verticalAlignment = alignment;
}

void ORVTextRtfReaderPrivate::setCellColor(int index)
{
    ORVTextRtfRow& row = openRow();
    if (hasColor(index))
        row.currentDefinition().backgroundColor = QColor(m_colors.at(index));
}

void ORVTextRtfReaderPrivate::setCellPadding(int twips)
{
    openRow().tableFormat.setCellPadding(twips / twipsPerPoint);
}

/*!
    The format of the table border when border words describe one: those behind a cell-border word do, those
    behind a row-border word do not. Cells and sides are not told apart, so there is one border for all.
*/
QTextTableFormat* ORVTextRtfReaderPrivate::borderFormat()
{
    return m_bordersAreCells && !m_rows.isEmpty() ? &m_rows.top().tableFormat : nullptr;
}

void ORVTextRtfReaderPrivate::setBorderWidth(double points)
{
    if (QTextTableFormat* format = borderFormat()) {
        format->setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format->setBorder(points);
    }
}

void ORVTextRtfReaderPrivate::setBorderColor(bool hasParameter, int index)
{
    if (QTextTableFormat* format = borderFormat()) {
        format->setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        const QColor color =
            hasParameter && hasColor(index) ? QColor(m_colors.at(index)) : defaultForegroundColor();
        format->setBorderBrush(QBrush(color));
    }
}

void ORVTextRtfReaderPrivate::clearBorder()
{
    if (QTextTableFormat* format = borderFormat()) {
        format->setBorderStyle(QTextFrameFormat::BorderStyle_None);
        format->clearProperty(QTextFormat::FrameBorder);
        format->clearProperty(QTextFormat::FrameBorderBrush);
    }
}
