#include "TextTable.h"

#include "ORVTextColumns_p.h"
#include "TextExport.h"
#include "TextGrid.h"
#include "TextWrap.h"

#include <ORVTextListLabels.h>

#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

#include <algorithm>
#include <numeric>

namespace {

// A cell of prose is wrapped even where lines of any length are allowed.
const int widestCell = 80;

// Columns that are narrower cannot be read.
const int narrowestColumn = 3;

// Tables in tables; deeper ones are the text of their cells.
const int deepestLayout = 10;

/*! The most characters that the lines of a table may have whose text and cells are \a size. */
qint64 largestSize(qint64 size)
{
    return (1 << 16) + 32 * size;
}

int total(const QVector<int>& widths)
{
    return std::accumulate(widths.constBegin(), widths.constEnd(), 0)
        + TextGrid::gap() * (int(widths.size()) - 1);
}

/*! \a widths, none of which is above the largest limit with which they have \a room together. */
QVector<int> cut(const QVector<int>& widths, int room)
{
    QVector<int> sorted = widths;
    std::sort(sorted.begin(), sorted.end());
    int limit = sorted.last();
    int left = room;
    for (int i = 0; i < sorted.size(); ++i) {
        const int columns = int(sorted.size()) - i;
        if (qint64(sorted.at(i)) * columns > left) {
            limit = left / columns;
            break;
        }
        left -= sorted.at(i);
    }
    QVector<int> result;
    for (const int width : widths)
        result.append(qMin(width, limit));
    return result;
}

/*! Adds to \a widths the \a room that is left, by what each of them lacks to its \a natural width. */
void distribute(int room, const QVector<int>& natural, QVector<int>* widths)
{
    qint64 lacking = 0;
    for (int i = 0; i < widths->size(); ++i)
        lacking += natural.at(i) - widths->at(i);
    for (int i = 0; i < widths->size() && lacking > 0; ++i) {
        const int lacks = natural.at(i) - widths->at(i);
        const int given = qMin(lacks, int(qint64(room) * lacks / lacking));
        (*widths)[i] += given;
        room -= given;
        lacking -= lacks;
    }
}

} // namespace

TextTable::TextTable(const QTextTable& table, const ORVTextListLabels& labels, int depth)
    : m_depth(depth), m_rowCount(table.rows()), m_columnCount(table.columns()),
      m_headRows(table.format().headerRowCount())
{
    for (int row = 0; row < m_rowCount; ++row) {
        for (int column = 0; column < m_columnCount; ++column) {
            const QTextTableCell source = table.cellAt(row, column);
            if (source.row() != row || source.column() != column)
                continue;
            Cell cell;
            cell.row = row;
            cell.column = column;
            cell.rowSpan = source.rowSpan();
            cell.columnSpan = source.columnSpan();
            readFrame(source.begin(), labels, &cell, depth);
            while (!cell.items.empty() && !cell.items.back().table && cell.items.back().text.isEmpty()
                   && cell.items.back().label.isEmpty())
                cell.items.pop_back();
            ++m_size;
            m_cells.push_back(std::move(cell));
        }
    }
    measure();
}

void TextTable::readFrame(QTextFrame::iterator it, const ORVTextListLabels& labels, Cell* cell, int depth)
{
    while (!it.atEnd()) {
        QTextFrame* const frame = it.currentFrame();
        const QTextBlock block = it.currentBlock();
        ++it;
        if (frame && depth == deepestLayout)
            readFlat(*frame, labels, cell);
        else if (const QTextTable* const table = qobject_cast<QTextTable*>(frame))
            addTable(*table, labels, cell);
        else if (frame)
            readFrame(frame->begin(), labels, cell, depth + 1);
        else if (block.isValid() && !isHiddenParagraph(block, it))
            addParagraph(block, labels, cell);
    }
}

void TextTable::readFlat(const QTextFrame& frame, const ORVTextListLabels& labels, Cell* cell)
{
    for (QTextBlock block = frame.document()->findBlock(frame.firstPosition());
         block.isValid() && block.position() <= frame.lastPosition(); block = block.next())
        addParagraph(block, labels, cell);
}

void TextTable::addParagraph(const QTextBlock& block, const ORVTextListLabels& labels, Cell* cell)
{
    Item item;
    item.label = labels.label(block).text;
    item.text = TextWrap::withoutTabs(paragraphText(block));
    const int head = item.label.isEmpty() ? 0 : ORVTextColumns::of(item.label) + 1;
    cell->natural = qMax(cell->natural, head + TextWrap::longestLine(item.text));
    cell->least = qMax(cell->least, head + TextWrap::longestWord(item.text));
    m_size += item.text.size() + item.label.size() + 1;
    cell->items.push_back(std::move(item));
}

void TextTable::addTable(const QTextTable& table, const ORVTextListLabels& labels, Cell* cell)
{
    Item item;
    item.table.reset(new TextTable(table, labels, m_depth + 1));
    cell->natural = qMax(cell->natural, total(item.table->m_natural));
    cell->least = qMax(cell->least, total(item.table->m_least));
    m_size += item.table->m_size;
    cell->items.push_back(std::move(item));
}

/*! Makes \a widths wide enough for a cell that needs \a needed columns. */
void TextTable::makeRoom(const Cell& cell, int needed, QVector<int>* widths)
{
    int lacking = needed - TextGrid::gap() * (cell.columnSpan - 1);
    for (int i = 0; i < cell.columnSpan; ++i)
        lacking -= widths->at(cell.column + i);
    for (int i = cell.columnSpan; i > 0 && lacking > 0; --i) {
        const int share = lacking / i;
        (*widths)[cell.column + i - 1] += share;
        lacking -= share;
    }
}

/*! First the cells of one column, then those that can take what these need. */
void TextTable::measure()
{
    m_natural.fill(0, m_columnCount);
    m_least.fill(0, m_columnCount);
    for (const bool areMerged : {false, true}) {
        for (const Cell& cell : m_cells) {
            if ((cell.columnSpan > 1) != areMerged)
                continue;
            makeRoom(cell, qMin(cell.natural, widestCell), &m_natural);
            makeRoom(cell, qMin(cell.least, widestCell), &m_least);
        }
    }
    // What merged cells need can be shared out in another way.
    for (int column = 0; column < m_columnCount; ++column)
        m_least[column] = qMin(m_least.at(column), m_natural.at(column));
}

/*! The widths of the columns in a table of \a width columns; none if that is too few. */
QVector<int> TextTable::widths(int width) const
{
    if (width == 0 || total(m_natural) <= width)
        return m_natural;
    QVector<int> narrowest;
    for (const int natural : m_natural)
        narrowest.append(qMin(natural, narrowestColumn));
    if (total(narrowest) > width)
        return QVector<int>();
    const int room = width - TextGrid::gap() * (m_columnCount - 1);
    QVector<int> result = total(m_least) <= width ? m_least : cut(m_least, room);
    distribute(width - total(result), m_natural, &result);
    return result;
}

QStringList TextTable::linesOf(const Cell& cell, int width)
{
    QStringList result;
    for (const Item& item : cell.items) {
        if (item.table)
            result += item.table->lines(width);
        else
            result += TextWrap::lines(item.label, item.text, width, TextWrap::Broken);
    }
    return result;
}

QStringList TextTable::flatLines(int width) const
{
    // In a cell words must not be longer than it is wide.
    const TextWrap::LongWords longWords = m_depth > 0 ? TextWrap::Broken : TextWrap::Whole;
    QStringList result;
    for (const Cell& cell : m_cells) {
        for (const Item& item : cell.items)
            result += item.table ? item.table->lines(width)
                                 : TextWrap::lines(item.label, item.text, width, longWords);
        if (cell.items.empty())
            result.append(QString());
    }
    return result;
}

QStringList TextTable::lines(int width) const
{
    const QVector<int> widths = this->widths(width);
    if (widths.isEmpty())
        return flatLines(width);
    TextGrid grid(m_rowCount, m_headRows, widths);
    for (const Cell& cell : m_cells) {
        const int cellWidth = grid.width(cell.column, cell.columnSpan);
        grid.add(cell.row, cell.column, cell.rowSpan, cell.columnSpan, linesOf(cell, qMax(1, cellWidth)));
    }
    return grid.size() <= largestSize(m_size) ? grid.lines() : flatLines(width);
}
