#include "ORVRtfTableBuilder_p.h"

#include "ORVRtfTextInserter_p.h"

#include <QtGui/QTextDocument>
#include <QtGui/QTextDocumentFragment>

#include <utility>

namespace {

const int outermostLevel = 1;
const int firstNestedLevel = 2;

bool hasText(const ORVTextRtfCell& cell)
{
    ORVTextRtfCell copy = cell;
    return copy.hasDocument() && !copy.document()->isEmpty();
}

/*! Whether \a cell has more than empty paragraphs. */
bool hasCharacters(const ORVTextRtfCell& cell)
{
    ORVTextRtfCell copy = cell;
    return copy.hasDocument() && copy.document()->characterCount() > copy.document()->blockCount();
}

} // namespace

ORVRtfTableBuilder::ORVRtfTableBuilder(ORVRtfTextInserter& inserter) : m_inserter(inserter) { }

void ORVRtfTableBuilder::reset()
{
    place = Place();
    isDefiningNestedRow = false;
    m_tables = Tables();
    m_columnWidths = ORVRtfFormatSerials();
    m_cellsLeft = ORVRtfLimits::spareTableCells;
}

void ORVRtfTableBuilder::setInTable()
{
    place.isInTable = true;
}

void ORVRtfTableBuilder::setLevel(int level)
{
    place.level = qMax(0, level);
    place.isInTable = level > 0;
}

void ORVRtfTableBuilder::swapTables(Tables& tables)
{
    std::swap(m_tables, tables);
}

int ORVRtfTableBuilder::deepestOpenRow() const
{
    int level = levels();
    while (level > 0 && !m_tables.levels[size_t(level) - 1].isRowOpen)
        --level;
    return level;
}

/*! The level of the table that the paragraph says it stands in. */
int ORVRtfTableBuilder::statedLevel() const
{
    return qBound(0, place.level > 0 ? place.level : int(place.isInTable), ORVRtfLimits::tableNesting);
}

void ORVRtfTableBuilder::placeParagraph()
{
    const int stated = statedLevel();
    if (stated == 0 && m_tables.levels.empty())
        return;
    // A row of which there is nothing but a paragraph ends with the paragraphs that say so.
    while (deepestOpenRow() > stated && !m_tables.levels[size_t(deepestOpenRow()) - 1].isRowCertain)
        closeLevels(deepestOpenRow() - 1);
    const int level = qMax(stated, deepestOpenRow());
    closeLevels(level);
    openLevels(level);
}

/*! Opens levels and their rows until text goes into a cell of \a level. */
void ORVRtfTableBuilder::openLevels(int level)
{
    for (int i = 0; i < level; ++i) {
        if (i == levels()) {
            Level opened;
            opened.parent = m_inserter.placeBehindText(&opened.isBehindParagraph);
            m_tables.levels.push_back(opened);
        }
        Level& current = m_tables.levels[size_t(i)];
        current.isRowOpen = true;
        if (!current.row.cells.last().hasDocument())
            m_inserter.moveTo(QTextCursor(current.row.cells.last().document().data()));
    }
}

ORVRtfTableBuilder::Level& ORVRtfTableBuilder::certainRow()
{
    const int level = qMax(outermostLevel, qMin(statedLevel(), levels()));
    if (level > deepestOpenRow())
        openLevels(level);
    Level& defined = m_tables.levels[size_t(level) - 1];
    defined.isRowCertain = true;
    return defined;
}

/*! The row that words describe; null where there is none. */
ORVRtfTableBuilder::Level* ORVRtfTableBuilder::definedRow()
{
    if (!isDefiningNestedRow)
        return &certainRow();
    const int level = qMin(qMax(firstNestedLevel, statedLevel()), levels());
    return level >= firstNestedLevel ? &m_tables.levels[size_t(level) - 1] : nullptr;
}

void ORVRtfTableBuilder::breakPageBefore()
{
    ORVRtfTableGrid& outermost = m_tables.levels.front().grid;
    if (outermost.isEmpty())
        outermost.breakPageBefore();
}

/*!
    Gives the definition of an inner row that another one follows to the row around it, if that has none: where inner
    tables are nested themselves, some programs write both definitions together.
*/
void ORVRtfTableBuilder::passDefinitionOn()
{
    const int level = qMin(statedLevel(), levels());
    if (level <= firstNestedLevel)
        return;
    Level& inner = m_tables.levels[size_t(level) - 1];
    Level& outer = m_tables.levels[size_t(level) - 2];
    if (!inner.row.cellDefinitions.first().closed || outer.row.cellDefinitions.first().closed)
        return;
    outer.row.cellDefinitions = inner.row.cellDefinitions;
    outer.look = inner.look;
    outer.leftEdge = inner.leftEdge;
}

void ORVRtfTableBuilder::beginRow()
{
    Level* const level = definedRow();
    if (!level)
        return;
    if (isDefiningNestedRow)
        passDefinitionOn();
    const QList<ORVTextRtfCell> cells = level->row.cells;
    level->row.reset();
    level->row.cells = cells;
    level->look = ORVRtfRowLook();
    level->leftEdge = 0;
}

ORVTextRtfRow& ORVRtfTableBuilder::row()
{
    Level* const level = definedRow();
    return level ? level->row : m_tables.strayRow;
}

ORVRtfRowLook& ORVRtfTableBuilder::look()
{
    Level* const level = definedRow();
    return level ? level->look : m_tables.strayLook;
}

void ORVRtfTableBuilder::closeDefinition(int edge)
{
    ORVTextRtfRow& defined = row();
    defined.closeDefinition(edge);
    look().closeCell(int(defined.cellDefinitions.size()));
}

void ORVRtfTableBuilder::setLeftEdge(int twips)
{
    if (Level* const level = definedRow()) {
        level->leftEdge = twips;
        level->look.hasLeftEdge = true;
    }
}

void ORVRtfTableBuilder::reachCell(bool isNested)
{
    const int level =
        isNested ? qBound(firstNestedLevel, statedLevel(), ORVRtfLimits::tableNesting) : outermostLevel;
    if (deepestOpenRow() < level)
        takeParagraph(level);
    closeLevels(level);
    openLevels(level);
    m_tables.levels.back().isRowCertain = true;
}

/*! Moves what stands since the last paragraph end into a cell of \a level. */
void ORVRtfTableBuilder::takeParagraph(int level)
{
    QTextCursor paragraph = m_inserter.place();
    QTextDocumentFragment text;
    QTextBlockFormat format;
    if (!paragraph.isNull()) {
        format = paragraph.blockFormat();
        paragraph.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
        text = paragraph.selection();
        paragraph.removeSelectedText();
        m_inserter.removeEmptyBlock();
    }
    openLevels(level);
    m_inserter.place().insertFragment(text);
    m_inserter.place().setBlockFormat(format);
}

void ORVRtfTableBuilder::endCell()
{
    m_inserter.complete();
    m_tables.levels.back().row.closeCell();
    m_inserter.moveTo(QTextCursor());
    // What follows stands in the next cell of the row, wherever the paragraph stood.
    if (place.level > levels())
        place.level = levels();
}

bool ORVRtfTableBuilder::endRow(bool isNested)
{
    const int level = isNested ? qMin(qMax(firstNestedLevel, statedLevel()), levels()) : outermostLevel;
    if (levels() < level || (isNested && level < firstNestedLevel))
        return false;
    closeLevels(level);
    m_inserter.complete();
    endRow(m_tables.levels.back());
    m_inserter.moveTo(QTextCursor());
    return true;
}

void ORVRtfTableBuilder::endRow(Level& level)
{
    ORVTextRtfRow& row = level.row;
    // Text without the end of its cell is a cell, but not what some programs put between the last cell and the row's end.
    const bool hasOthers = row.cells.size() > 1;
    if (hasOthers ? hasCharacters(row.cells.last()) : hasText(row.cells.last()))
        row.closeCell();
    const bool hasCells = row.cells.first().closed;
    row.finish();
    if (row.cellDefinitions.isEmpty()) {
        row.cellDefinitions = level.lastDefinitions;
        level.look = level.lastLook;
        level.leftEdge = level.lastLeftEdge;
    } else if (!level.look.hasLeftEdge && level.look.indent.isTwips()
               && level.look.indent.length < row.cellDefinitions.first().rightBoundary) {
        level.leftEdge = level.look.indent.length;
    }
    if (hasCells) {
        for (ORVTextRtfCell& cell : row.cells)
            cell.finish();
        addToTable(level);
        level.lastDefinitions = row.cellDefinitions;
        level.lastLook = level.look;
        level.lastLeftEdge = level.leftEdge;
    }
    row.reset();
    level.look = ORVRtfRowLook();
    level.leftEdge = 0;
    level.isRowOpen = false;
    level.isRowCertain = false;
}

/*! A table that would have far more cells than the file has words for continues as a new one. */
void ORVRtfTableBuilder::addToTable(Level& level)
{
    m_cellsLeft += ORVRtfLimits::tableCellsForEachInFile * level.row.cells.size();
    const int columns = level.grid.columnsWith(level.row);
    const qint64 cells = qint64(columns) * (level.grid.rowCount() + 1);
    if (!level.grid.isEmpty()
        && (columns > ORVRtfLimits::tableColumns || cells - level.grid.cellCount() > m_cellsLeft))
        level.grid.insertAt(level.parent, textWidth, m_columnWidths);
    const qint64 before = level.grid.cellCount();
    level.grid.addRow(level.row, level.look, level.leftEdge, textWidth);
    m_cellsLeft -= level.grid.cellCount() - before;
}

void ORVRtfTableBuilder::closeLevels(int level)
{
    while (levels() > level)
        closeInnermostLevel();
}

void ORVRtfTableBuilder::closeInnermostLevel()
{
    m_inserter.complete();
    Level& level = m_tables.levels.back();
    if (level.isRowOpen && level.isRowCertain)
        endRow(level);
    bool isBehindParagraph = level.isBehindParagraph;
    if (!level.grid.isEmpty()) {
        level.grid.insertAt(level.parent, textWidth, m_columnWidths);
        isBehindParagraph = false;
    }
    if (isBehindParagraph)
        level.parent.insertBlock();
    // Paragraphs that no row came of.
    if (level.isRowOpen && hasText(level.row.cells.last())) {
        ORVTextRtfCell& cell = level.row.cells.last();
        cell.finish();
        cell.content().insertAt(level.parent);
    }
    const QTextCursor parent = level.parent;
    m_tables.levels.pop_back();
    m_inserter.moveTo(parent);
}
