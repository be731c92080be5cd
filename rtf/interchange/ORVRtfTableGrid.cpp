#include "ORVRtfTableGrid_p.h"

#include "ORVRtfCellFormats_p.h"
#include "ORVRtfUnits_p.h"
#include "ORVTextRtfTable_p.h"
#include "QtFormatCompat_p.h"

#include <algorithm>

namespace {

// Edges this close, in twips, are one: programs work them out row by row, and round.
const int sameEdge = 20;
// Rows whose ends are this close, as a fraction of the table's width, end at the same edge: word processors make the
// same of them.
const int sameEnd = 50;
// Width of a column of which nothing is known, in twips.
const int defaultColumnWidth = 1440;
// Edges further away, in twips, stand here: far beyond any page, and sums of them are numbers.
const int farthestEdge = 1 << 28;
// Percentages of widths are stated in fiftieths.
const double percentUnits = 5000;
// No wider page is known to RTF, in twips.
const int widestTable = 31680;

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

void ORVRtfTableGrid::addRow(const ORVTextRtfRow& row, const ORVRtfRowLook& look, int leftEdge,
                             double textWidth)
{
    if (m_rows.isEmpty()) {
        m_alignment = look.alignment;
        m_width = look.width.isTwips() ? qBound(0, look.width.length, widestTable) : 0;
    }
    Row added;
    std::copy(look.borders, look.borders + ORVTextBorder::SideCount, added.borders);
    added.horizontal = look.horizontal;
    added.vertical = look.vertical;
    added.isHeader = look.isHeader;
    added.cells.reserve(int(row.cells.size()));
    int left = bounded(leftEdge);
    for (int i = 0; i < row.cells.size(); ++i) {
        Cell cell;
        cell.cell = row.cells.at(i);
        if (i < row.cellDefinitions.size())
            cell.definition = row.cellDefinitions.at(i);
        setLook(cell, look, i);
        cell.left = left;
        cell.right = rightEdge(row, look, i, left, textWidth);
        left = cell.right;
        added.cells.append(cell);
    }
    joinContinuations(added);
    addEdges(added);
    m_rows.append(added);
}

/*!
    The right edge of the cell at \a index of \a row, which begins at \a left. The last cell takes the place of those that
    are missing.
*/
int ORVRtfTableGrid::rightEdge(const ORVTextRtfRow& row, const ORVRtfRowLook& look, int index, int left,
                               double textWidth)
{
    const int count = int(row.cells.size());
    const int defined = int(row.cellDefinitions.size());
    if (index >= defined) {
        const int last = defined > 0 ? bounded(row.cellDefinitions.last().rightBoundary) : left;
        const double share = (textWidth - last) / (count - defined);
        return left + (share > sameEdge ? int(share) : defaultColumnWidth);
    }
    const int stated = index == count - 1 ? defined - 1 : index;
    const int edge = bounded(row.cellDefinitions.at(stated).rightBoundary);
    if (edge > left)
        return edge;
    // Edges that contradict the ones before; programs that know of widths write no better ones.
    const ORVRtfMeasure width = look.cells.value(index).width;
    const bool isPercent = width.isStated && width.unit == ORVRtfMeasure::Percent;
    const double twips = isPercent ? width.length / percentUnits * textWidth
        : width.isTwips()          ? width.length
                                   : 0;
    return left + int(qBound(0.0, twips, double(widestTable)));
}

void ORVRtfTableGrid::setLook(Cell& cell, const ORVRtfRowLook& look, int index)
{
    const ORVRtfCellLook stated = index < look.cells.size() ? look.cells.at(index) : ORVRtfCellLook();
    cell.definition.backgroundColor = look.colorOf(stated);
    for (int side = 0; side < ORVTextBorder::SideCount; ++side) {
        cell.borders[side] = stated.borders[side];
        cell.padding[side] = look.paddingOf(stated, ORVTextBorder::Side(side));
    }
}

/*! Makes one cell of those that continue their left neighbours. Edges between them make no columns. */
void ORVRtfTableGrid::joinContinuations(Row& row)
{
    for (int i = int(row.cells.size()) - 1; i > 0; --i) {
        if (row.cells.at(i).definition.mergeWithPrevious)
            joinWithLeft(row, i);
    }
    for (Cell& cell : row.cells)
        cell.definition.mergeWithPrevious = false;
}

void ORVRtfTableGrid::addEdges(const Row& row)
{
    addEdge(row.cells.first().left);
    for (const Cell& cell : row.cells)
        addEdge(cell.right);
}

/*! Lets rows that end nearly where the widest one ends, end there. */
void ORVRtfTableGrid::alignEnds()
{
    const int left = *m_edges.begin();
    int end = left;
    for (const Row& row : m_rows)
        end = qMax(end, row.cells.last().right);
    const int tolerance = qMax(sameEdge, (end - left) / sameEnd);
    bool isChanged = false;
    for (Row& row : m_rows) {
        Cell& last = row.cells.last();
        if (last.right < end && last.right > last.left && end - last.right <= tolerance) {
            last.right = end;
            isChanged = true;
        }
    }
    if (!isChanged)
        return;
    m_edges.clear();
    for (const Row& row : m_rows)
        addEdges(row);
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
    Cell& joined = row.cells[index];
    moveText(joined.cell, left.cell);
    left.right = joined.right;
    left.endColumn = joined.endColumn;
    if (joined.borders[ORVTextBorder::Right].isStated())
        left.borders[ORVTextBorder::Right] = joined.borders[ORVTextBorder::Right];
    row.cells.removeAt(index);
}

/*!
    Moves the text of cells that continue the one above to the first of them. A cell that is not as wide as the one
    above does not continue it. The line below is that of the last of them.
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
        QVector<Owner> owners(columnCount());
        for (int i = 0; i < row.cells.size(); ++i) {
            Cell& cell = row.cells[i];
            cell.endRow = r + 1;
            Owner owner = above.at(cell.firstColumn);
            Cell* const first = owner.row < 0 ? nullptr : &m_rows[owner.row].cells[owner.cell];
            if (cell.definition.verticalMergeWithPrevious && first && first->firstColumn == cell.firstColumn
                && first->endColumn == cell.endColumn) {
                moveText(cell.cell, first->cell);
                first->endRow = cell.endRow;
                first->borders[ORVTextBorder::Bottom] = cell.borders[ORVTextBorder::Bottom];
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

/*! The line along \a side of \a cell, which begins in row \a row. */
ORVRtfBorder ORVRtfTableGrid::borderOf(const Cell& cell, int row, ORVTextBorder::Side side) const
{
    if (cell.borders[side].isStated())
        return cell.borders[side];
    const Row& defaults = m_rows.at(side == ORVTextBorder::Bottom ? cell.endRow - 1 : row);
    bool isOuter = false;
    switch (side) {
    case ORVTextBorder::Top: isOuter = row == 0; break;
    case ORVTextBorder::Bottom: isOuter = cell.endRow == m_rows.size(); break;
    case ORVTextBorder::Left: isOuter = cell.firstColumn == 0; break;
    default: isOuter = cell.endColumn == columnCount(); break;
    }
    if (isOuter)
        return defaults.borders[side];
    return side == ORVTextBorder::Top || side == ORVTextBorder::Bottom ? defaults.horizontal
                                                                       : defaults.vertical;
}

void ORVRtfTableGrid::setCellFormats(ORVRtfCellFormats& formats)
{
    for (int r = 0; r < m_rows.size(); ++r) {
        for (Cell& cell : m_rows[r].cells) {
            ORVRtfBorder borders[ORVTextBorder::SideCount];
            for (int side = 0; side < ORVTextBorder::SideCount; ++side)
                borders[side] = borderOf(cell, r, ORVTextBorder::Side(side));
            cell.definition.look = formats.format(borders, cell.padding);
        }
    }
}

int ORVRtfTableGrid::headerRows() const
{
    int rows = 0;
    while (rows < m_rows.size() && m_rows.at(rows).isHeader)
        ++rows;
    return rows;
}

QTextTableFormat ORVRtfTableGrid::tableFormat(int leftEdge, bool hasLines) const
{
    QTextTableFormat format;
    format.setBorder(0);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_None);
    format.setCellSpacing(0.0);
    format.setCellPadding(0.0);
    // Neighbours share the line between them.
    if (hasLines)
        format.setProperty(compat::tableBorderCollapse, true);
    if (m_alignment != Qt::AlignLeft)
        format.setAlignment(m_alignment);
    else if (leftEdge != 0)
        format.setLeftMargin(ORVRtfUnits::points(qBound(-widestTable, leftEdge, widestTable)));
    if (const int rows = headerRows())
        format.setHeaderRowCount(rows);
    if (m_breaksPage)
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    return format;
}

/*! \a row with a cell for each column. */
ORVTextRtfRow ORVRtfTableGrid::alignedRow(const Row& row, const QVector<int>& edges) const
{
    ORVTextRtfRow aligned;
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
    alignEnds();
    if (columnCount() == 0)
        addEdge(*m_edges.begin() + defaultColumnWidth);
    QVector<int> edges(int(m_edges.size()));
    std::copy(m_edges.begin(), m_edges.end(), edges.begin());
    findColumns(edges);
    mergeCells();
    ORVRtfCellFormats formats;
    setCellFormats(formats);
    const QTextTableFormat format = tableFormat(edges.first(), formats.hasLines());
    ORVTextRtfTable table;
    for (Row& row : m_rows) {
        ORVTextRtfRow aligned = alignedRow(row, edges);
        aligned.tableFormat = format;
        // Rows that wait in both forms would take far more memory.
        row = Row();
        table.addRow(aligned);
    }
    const double scale = m_width > 0 ? double(m_width) / (edges.last() - edges.first()) : 1;
    table.setColumnWidths(textWidth / scale, widthLists);
    table.insertAt(cursor);
    m_rows.clear();
    m_edges.clear();
    m_breaksPage = false;
}
