#include "ORVTextRtfTable_p.h"

#include "ORVRtfLimits_p.h"
#include "ORVTextRtfRow_p.h"

#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextTable>

void ORVTextRtfTable::addRow(ORVTextRtfRow& row)
{
    if (isEmpty()) {
        beginTable(row);
    } else {
        fitColumns(row);
        appendRow();
    }
    if (row.cells.size() == m_columns)
        fillLastRow(row);
    m_format = row.tableFormat;
}

int ORVTextRtfTable::mostCellsWith(const ORVTextRtfRow& row) const
{
    const int added = int(qMax(row.cellDefinitions.size(), row.cells.size()));
    return (m_rows + 1) * qMin(m_columns + added, ORVRtfLimits::tableColumns);
}

void ORVTextRtfTable::beginTable(const ORVTextRtfRow& row)
{
    m_columns = int(row.cells.size());
    for (const ORVTextRtfCellDefinition& definition : row.cellDefinitions)
        m_boundaries.append(definition.rightBoundary);
    appendRow();
}

/*!
    Makes \a row and the columns of the table agree: where the row has a boundary within a column the column
    is split, where a cell of the row is wider than a column it goes on in the next one, and boundaries beyond
    the table add columns.
*/
void ORVTextRtfTable::fitColumns(ORVTextRtfRow& row)
{
    for (int i = 0; i < row.cells.size(); ++i) {
        if (i >= row.cellDefinitions.size()) {
            // One cell more than columns adds none: such a row stays empty.
            if (m_columns < i && m_columns < ORVRtfLimits::tableColumns)
                addColumn(0);
            continue;
        }
        const int boundary = row.cellDefinitions.at(i).rightBoundary;
        const bool beyondTable = i >= m_boundaries.size();
        if (!beyondTable && boundary == m_boundaries.at(i))
            continue;
        if (!beyondTable && boundary > m_boundaries.at(i)) {
            row.insertContinuation(i);
        } else if (m_columns >= ORVRtfLimits::tableColumns) {
            row.removeBoundary(i--);
        } else if (beyondTable) {
            addColumn(boundary);
            widenCells(i);
        } else {
            splitColumn(i, boundary);
        }
    }
}

void ORVTextRtfTable::splitColumn(int column, int boundary)
{
    insertColumn(qMin(column + 1, m_columns));
    widenCells(column);
    m_boundaries.insert(column, boundary);
}

/*! Appends a column on the right. */
void ORVTextRtfTable::addColumn(int boundary)
{
    insertColumn(m_columns);
    m_boundaries.append(boundary);
}

/*! Makes every cell that stands in \a column one column wider. */
void ORVTextRtfTable::widenCells(int column)
{
    if (column >= m_columns)
        return;
    int row = 0;
    while (row < m_rows) {
        const Cell cell = cellAt(row, column);
        mergeCells(cell.row, cell.column, cell.rowSpan, cell.columnSpan + 1);
        row += cell.rowSpan;
    }
}

int ORVTextRtfTable::addCell(int row, int column)
{
    Cell cell;
    cell.row = row;
    cell.column = column;
    m_cells.append(cell);
    return int(m_cells.size()) - 1;
}

/*! Inserts a column at \a position, which is not the first; a cell that spans the place gets wider. */
void ORVTextRtfTable::insertColumn(int position)
{
    const QVector<QTextCharFormat> formats = formatsFollowing(position);
    for (Cell& cell : m_cells) {
        if (cell.column >= position)
            ++cell.column;
        else if (cell.column + cell.columnSpan > position)
            ++cell.columnSpan;
    }

    QVector<int> grid;
    grid.reserve(m_rows * (m_columns + 1));
    for (int row = 0; row < m_rows; ++row) {
        const int left = indexAt(row, position - 1);
        const bool isSpanned = position < m_columns && indexAt(row, position) == left;
        for (int column = 0; column < position; ++column)
            grid.append(indexAt(row, column));
        grid.append(isSpanned ? left : addCell(row, position));
        if (!isSpanned)
            m_cells.last().format = formats.at(row);
        for (int column = position; column < m_columns; ++column)
            grid.append(indexAt(row, column));
    }
    m_grid = grid;
    ++m_columns;
    linkCells();
}

/*! Tells each cell which ones stand before and behind it. */
void ORVTextRtfTable::linkCells()
{
    m_lastCell = -1;
    for (int i = 0; i < m_grid.size(); ++i) {
        const Cell& cell = m_cells.at(m_grid.at(i));
        if (cell.row * m_columns + cell.column == i)
            appendToText(m_grid.at(i));
    }
}

void ORVTextRtfTable::appendToText(int cell)
{
    m_cells[cell].previous = m_lastCell;
    m_cells[cell].next = -1;
    if (m_lastCell >= 0)
        m_cells[m_lastCell].next = cell;
    m_lastCell = cell;
}

/*!
    For each row the format that a cell inserted at \a position takes over: that of the next cell in the order
    of the text, none behind the last one.
*/
QVector<QTextCharFormat> ORVTextRtfTable::formatsFollowing(int position) const
{
    QVector<QTextCharFormat> formats(m_rows);
    QTextCharFormat firstBelow;
    for (int row = m_rows - 1; row >= 0; --row) {
        QTextCharFormat next = firstBelow;
        for (int column = m_columns - 1; column >= 0; --column) {
            const Cell& cell = cellAt(row, column);
            if (cell.row != row || cell.column != column)
                continue;
            firstBelow = cell.format;
            if (column >= position)
                next = cell.format;
        }
        formats[row] = next;
    }
    return formats;
}

void ORVTextRtfTable::appendRow()
{
    for (int column = 0; column < m_columns; ++column) {
        const int cell = addCell(m_rows, column);
        m_grid.append(cell);
        appendToText(cell);
    }
    ++m_rows;
}

/*! Fills the last row from left to right; what stands in a cell that continues another one is dropped. */
void ORVTextRtfTable::fillLastRow(ORVTextRtfRow& row)
{
    const int last = m_rows - 1;
    for (int column = 0; column < m_columns; ++column) {
        const ORVTextRtfCellDefinition definition = row.cellDefinitions.value(column);
        if (definition.verticalMergeWithPrevious) {
            if (last > 0) {
                const Cell above = cellAt(last - 1, column);
                mergeCells(above.row, above.column, last - above.row + 1, above.columnSpan);
            }
        } else if (!definition.mergeWithPrevious) {
            row.cells[column].finish();
            fillCell(column, definition, row.cells[column]);
        } else if (column > 0) {
            const Cell left = cellAt(last, column - 1);
            mergeCells(left.row, left.column, left.rowSpan, column - left.column + 1);
        }
    }
}

void ORVTextRtfTable::fillCell(int column, const ORVTextRtfCellDefinition& definition, ORVTextRtfCell& source)
{
    Cell& cell = cellAt(m_rows - 1, column);
    if (definition.backgroundColor.isValid())
        cell.format.setBackground(QBrush(definition.backgroundColor));
    cell.format.setProperty(QTextFormat::TextVerticalAlignment, definition.verticalAlignment);
    cell.format.merge(definition.look);
    cell.format.merge(source.charFormat());
    cell.content.append(source.content());
}

/*! Whether no cell stands across an edge of the rectangle that begins with \a cell. */
bool ORVTextRtfTable::canMerge(const Cell& cell, int rows, int columns) const
{
    const int endRow = cell.row + rows;
    const int endColumn = cell.column + columns;
    // No cell stands across the edges of the cell itself.
    const int firstRow = columns == cell.columnSpan ? cell.row + cell.rowSpan : cell.row;
    for (int row = firstRow; row < endRow; ++row) {
        if (cell.column > 0 && indexAt(row, cell.column) == indexAt(row, cell.column - 1))
            return false;
        if (endColumn < m_columns && indexAt(row, endColumn) == indexAt(row, endColumn - 1))
            return false;
    }
    for (int column = cell.column; column < endColumn; ++column) {
        if (cell.row > 0 && indexAt(cell.row, column) == indexAt(cell.row - 1, column))
            return false;
        if (endRow < m_rows && indexAt(endRow, column) == indexAt(endRow - 1, column))
            return false;
    }
    return true;
}

/*!
    Makes one cell of a rectangle, under the conditions and with the results of QTextTable::mergeCells():
    texts from one row are separated by a blank, rows by a paragraph. Rows that the first cell has already
    are not looked at again, so that merging row after row stays cheap.
*/
void ORVTextRtfTable::mergeCells(int row, int column, int rows, int columns)
{
    const int target = indexAt(row, column);
    const Cell cell = m_cells.at(target);
    rows = qMin(rows, m_rows - row);
    columns = qMin(columns, m_columns - column);
    if (cell.row != row || cell.column != column || rows < cell.rowSpan || columns < cell.columnSpan
        || !canMerge(cell, rows, columns))
        return;

    const bool isWidened = columns > cell.columnSpan;
    bool rowHasText = isWidened;
    bool needsParagraph = !isWidened;
    for (int r = isWidened ? row : row + cell.rowSpan; r < row + rows; ++r) {
        for (int c = r < row + cell.rowSpan ? column + cell.columnSpan : column; c < column + columns; ++c) {
            const int absorbed = indexAt(r, c);
            if (absorbed == target)
                continue;
            const bool hasText = m_cells.at(absorbed).content.hasText();
            const ORVRtfCellContent::Separator separator = needsParagraph ? ORVRtfCellContent::NewParagraph
                : rowHasText                                              ? ORVRtfCellContent::Blank
                                                                          : ORVRtfCellContent::NoSeparator;
            absorb(target, absorbed, separator);
            if (hasText) {
                needsParagraph = false;
                rowHasText = true;
            }
        }
        needsParagraph = needsParagraph || rowHasText;
        rowHasText = false;
    }
    m_cells[target].rowSpan = rows;
    m_cells[target].columnSpan = columns;
}

/*!
    Makes the cell \a absorbed a part of \a target. As in a QTextTable, an empty paragraph in front of the
    absorbed cell takes over the format of its first one, because the two become one when the border
    between them goes.
*/
void ORVTextRtfTable::absorb(int target, int absorbed, ORVRtfCellContent::Separator separator)
{
    Cell& cell = m_cells[absorbed];
    ORVRtfCellContent& before = m_cells[cell.previous].content;
    if (before.endsWithEmptyParagraph())
        before.setLastFormat(cell.content.firstFormat());
    (cell.next >= 0 ? m_cells[cell.next].previous : m_lastCell) = cell.previous;
    m_cells[cell.previous].next = cell.next;
    m_cells[target].content.absorb(cell.content, separator);
    cell.content = ORVRtfCellContent();
    for (int row = cell.row; row < cell.row + cell.rowSpan; ++row) {
        for (int column = cell.column; column < cell.column + cell.columnSpan; ++column)
            m_grid[row * m_columns + column] = target;
    }
}

void ORVTextRtfTable::setColumnWidths(double textWidth, ORVRtfFormatSerials& lists)
{
    QVariantList widths;
    QByteArray key;
    const bool useBoundaries = m_columns <= m_boundaries.size() && textWidth > 0;
    for (int column = 0; column < m_columns; ++column) {
        const double left = column > 0 && useBoundaries ? m_boundaries.at(column - 1) : 0;
        const double percentage =
            useBoundaries ? 100.0 * (m_boundaries.at(column) - left) / textWidth : 100.0 / m_columns;
        widths.append(QTextLength(QTextLength::PercentageLength, percentage));
        key.append(reinterpret_cast<const char*>(&percentage), int(sizeof percentage));
    }
    lists.setList(m_format, QTextFormat::TableColumnWidthConstraints, key, [&] { return QVariant(widths); });
}

void ORVTextRtfTable::insertAt(QTextCursor& cursor) const
{
    QTextTable* const table = cursor.insertTable(m_rows, m_columns, m_format);
    mergeIn(table);
    fillIn(table);
    cursor.movePosition(QTextCursor::End);
}

void ORVTextRtfTable::mergeIn(QTextTable* table) const
{
    for (int row = 0; row < m_rows; ++row) {
        for (int column = 0; column < m_columns; ++column) {
            const Cell& cell = cellAt(row, column);
            if (cell.row == row && cell.column == column && (cell.rowSpan > 1 || cell.columnSpan > 1))
                table->mergeCells(row, column, cell.rowSpan, cell.columnSpan);
        }
    }
}

void ORVTextRtfTable::fillIn(QTextTable* table) const
{
    for (int row = 0; row < m_rows; ++row) {
        for (int column = 0; column < m_columns; ++column) {
            const Cell& cell = cellAt(row, column);
            if (cell.row != row || cell.column != column)
                continue;
            QTextTableCell tableCell = table->cellAt(row, column);
            QTextCharFormat format = tableCell.format();
            format.merge(cell.format);
            tableCell.setFormat(format);
            QTextCursor cursor = tableCell.firstCursorPosition();
            cell.content.insertAt(cursor);
        }
    }
}
