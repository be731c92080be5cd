#include "ORVRtfTableGrid_p.h"

#include "ORVTextRtfTable_p.h"

#include <algorithm>

namespace {

// Edges this close, in twips, are one: programs work them out row by row, and round.
const int sameEdge = 20;
// Width of a column of which nothing is known, in twips.
const int defaultColumnWidth = 1440;
// Edges further away, in twips, stand here: far beyond any page, and sums of them are numbers.
const int farthestEdge = 1 << 28;

int bounded(int edge)
{
    return qBound(-farthestEdge, edge, farthestEdge);
}

/*! Adds the text of \a from to \a to, as paragraphs of its own. */
void moveText(ORVTextRtfCell& from, ORVTextRtfCell& to)
{
    if (to.content().hasText())
        to.content().absorb(from.content(), ORVRtfCellContent::NewParagraph);
    else if (from.content().hasText())
        to.content() = from.content();
    from.content() = ORVRtfCellContent();
}

/*! Cells of \a columns columns that hold nothing, the first of them wide enough for all. */
void appendGap(ORVTextRtfRow& row, const QVector<int>& edges, int first, int end)
{
    for (int column = first; column < end; ++column) {
        ORVTextRtfCellDefinition definition;
        definition.rightBoundary = edges.at(column + 1) - edges.first();
        definition.mergeWithPrevious = column > first;
        row.cellDefinitions.append(definition);
        row.cells.append(ORVTextRtfCell::empty());
    }
}

} // namespace

void ORVRtfTableGrid::addRow(const ORVTextRtfRow& row, int leftEdge, double textWidth)
{
    Row added;
    added.format = row.tableFormat;
    added.cells.reserve(int(row.cells.size()));
    const int count = int(row.cells.size());
    const int defined = int(row.cellDefinitions.size());
    const int firstEdge = bounded(leftEdge);
    const int lastEdge = defined > 0 ? bounded(row.cellDefinitions.last().rightBoundary) : firstEdge;
    const double share = count > defined ? (textWidth - lastEdge) / (count - defined) : 0;
    const int surplusWidth = share > sameEdge ? int(share) : defaultColumnWidth;

    addEdge(firstEdge);
    int left = firstEdge;
    for (int i = 0; i < count; ++i) {
        Cell cell;
        cell.cell = row.cells.at(i);
        cell.left = left;
        cell.right = left + surplusWidth;
        if (i < defined) {
            cell.definition = row.cellDefinitions.at(i);
            // The last cell takes the place of those that are missing.
            cell.right = qMax(left, i == count - 1 ? lastEdge : bounded(cell.definition.rightBoundary));
        }
        addEdge(cell.right);
        left = cell.right;
        added.cells.append(cell);
    }
    m_rows.append(added);
}

bool ORVRtfTableGrid::hasEdge(int twips) const
{
    const auto nearest = m_edges.lower_bound(twips - sameEdge);
    return nearest != m_edges.end() && *nearest <= twips + sameEdge;
}

void ORVRtfTableGrid::addEdge(int twips)
{
    if (!hasEdge(twips))
        m_edges.insert(twips);
}

int ORVRtfTableGrid::columnsWith(const ORVTextRtfRow& row) const
{
    const auto isNew = [this](const ORVTextRtfCellDefinition& definition) {
        return !hasEdge(bounded(definition.rightBoundary));
    };
    const int newEdges = int(std::count_if(row.cellDefinitions.begin(), row.cellDefinitions.end(), isNew));
    const int undefined = qMax(0, int(row.cells.size() - row.cellDefinitions.size()));
    return columnCount() + newEdges + undefined;
}

/*! The column that begins at \a twips, which is near one of \a edges. */
int ORVRtfTableGrid::columnAt(int twips, const QVector<int>& edges) const
{
    const auto found = std::lower_bound(edges.begin(), edges.end(), twips);
    const int column = int(found - edges.begin());
    if (column == 0)
        return 0;
    const bool isNearer = column == edges.size() || twips - edges.at(column - 1) <= edges.at(column) - twips;
    return isNearer ? column - 1 : column;
}

void ORVRtfTableGrid::findColumns(const QVector<int>& edges)
{
    for (Row& row : m_rows) {
        int previous = 0;
        for (Cell& cell : row.cells) {
            cell.firstColumn = qMax(previous, columnAt(cell.left, edges));
            cell.endColumn = qMax(cell.firstColumn, columnAt(cell.right, edges));
            previous = cell.endColumn;
        }
        joinNarrowCells(row);
    }
}

/*! Moves the text of cells that have no column of their own into the cell beside them. */
void ORVRtfTableGrid::joinNarrowCells(Row& row) const
{
    for (int i = int(row.cells.size()) - 1; i >= 0; --i) {
        if (row.cells.at(i).endColumn > row.cells.at(i).firstColumn || row.cells.size() == 1)
            continue;
        if (i > 0) {
            joinWithLeft(row, i);
        } else {
            moveText(row.cells[1].cell, row.cells[0].cell);
            row.cells[1].cell = row.cells.at(0).cell;
            row.cells.removeFirst();
        }
    }
    // A table has at least one column.
    Cell& last = row.cells.last();
    if (last.endColumn == last.firstColumn)
        last.firstColumn = qMax(0, last.endColumn - 1);
    last.endColumn = qMax(last.endColumn, last.firstColumn + 1);
}

void ORVRtfTableGrid::joinWithLeft(Row& row, int index)
{
    Cell& left = row.cells[index - 1];
    moveText(row.cells[index].cell, left.cell);
    left.endColumn = row.cells.at(index).endColumn;
    row.cells.removeAt(index);
}

/*!
    Makes one cell of those that continue their left neighbours, and moves the text of cells that continue the
    one above to the first of them. A cell that is not as wide as the one above does not continue it.
*/
void ORVRtfTableGrid::mergeCells()
{
    struct Owner {
        int row = -1;
        int cell = -1;
    };
    QVector<Owner> above(columnCount());
    for (int r = 0; r < m_rows.size(); ++r) {
        Row& row = m_rows[r];
        for (int i = int(row.cells.size()) - 1; i > 0; --i) {
            if (row.cells.at(i).definition.mergeWithPrevious)
                joinWithLeft(row, i);
        }
        QVector<Owner> owners(columnCount());
        for (int i = 0; i < row.cells.size(); ++i) {
            Cell& cell = row.cells[i];
            cell.definition.mergeWithPrevious = false;
            Owner owner = above.at(cell.firstColumn);
            Cell* const first = owner.row < 0 ? nullptr : &m_rows[owner.row].cells[owner.cell];
            if (cell.definition.verticalMergeWithPrevious && first && first->firstColumn == cell.firstColumn
                && first->endColumn == cell.endColumn) {
                moveText(cell.cell, first->cell);
            } else {
                cell.definition.verticalMergeWithPrevious = false;
                owner.row = r;
                owner.cell = i;
            }
            std::fill(owners.begin() + cell.firstColumn, owners.begin() + cell.endColumn, owner);
        }
        above = owners;
    }
}

/*! \a row with a cell for each column. */
ORVTextRtfRow ORVRtfTableGrid::alignedRow(const Row& row, const QVector<int>& edges) const
{
    ORVTextRtfRow aligned;
    aligned.tableFormat = row.format;
    aligned.cellDefinitions.clear();
    aligned.cells.clear();
    int column = 0;
    for (const Cell& cell : row.cells) {
        appendGap(aligned, edges, column, cell.firstColumn);
        for (column = cell.firstColumn; column < cell.endColumn; ++column) {
            ORVTextRtfCellDefinition definition = cell.definition;
            definition.rightBoundary = edges.at(column + 1) - edges.first();
            definition.mergeWithPrevious = column > cell.firstColumn;
            aligned.cellDefinitions.append(definition);
            aligned.cells.append(column == cell.firstColumn ? cell.cell : ORVTextRtfCell::empty());
        }
    }
    appendGap(aligned, edges, column, columnCount());
    return aligned;
}

void ORVRtfTableGrid::insertAt(QTextCursor& cursor, double textWidth, ORVRtfFormatSerials& widthLists)
{
    if (columnCount() == 0)
        addEdge(*m_edges.begin() + defaultColumnWidth);
    QVector<int> edges(int(m_edges.size()));
    std::copy(m_edges.begin(), m_edges.end(), edges.begin());
    findColumns(edges);
    mergeCells();
    ORVTextRtfTable table;
    for (Row& row : m_rows) {
        ORVTextRtfRow aligned = alignedRow(row, edges);
        // Rows that wait in both forms would take far more memory.
        row = Row();
        table.addRow(aligned);
    }
    table.setColumnWidths(textWidth, widthLists);
    table.insertAt(cursor);
    m_rows.clear();
    m_edges.clear();
}
