#include "TextGrid.h"

#include "ORVTextColumns_p.h"

namespace {

QString trimmedEnd(const QString& line)
{
    int end = int(line.size());
    while (end > 0 && line.at(end - 1) == QLatin1Char(' '))
        --end;
    return line.left(end);
}

} // namespace

TextGrid::TextGrid(int rows, int headRows, const QVector<int>& widths)
    : m_rowCount(rows), m_headRows(headRows), m_widths(widths)
{
    m_positions.append(0);
    for (const int width : widths)
        m_positions.append(m_positions.last() + width + gap());
}

int TextGrid::width(int column, int span) const
{
    return m_positions.at(column + span) - m_positions.at(column) - gap();
}

void TextGrid::add(int row, int column, int rowSpan, int columnSpan, const QStringList& lines)
{
    while (int(m_firstCells.size()) <= row)
        m_firstCells.push_back(m_cells.size());
    m_cells.push_back({column, columnSpan, row + rowSpan - 1, lines, 0});
}

/*! The cells in \a row by column: those that begin there, and those that go on from the ones in the row \a above. */
std::vector<int> TextGrid::cellsOf(int row, const std::vector<int>& above) const
{
    std::vector<int> result;
    size_t next = m_firstCells[size_t(row)];
    const size_t end = m_firstCells[size_t(row) + 1];
    const auto appendUpTo = [&](int column) {
        for (; next < end && m_cells[next].column < column; ++next)
            result.push_back(int(next));
    };
    for (const int cell : above) {
        if (m_cells[size_t(cell)].lastRow < row)
            continue;
        appendUpTo(m_cells[size_t(cell)].column);
        result.push_back(cell);
    }
    appendUpTo(int(m_widths.size()));
    return result;
}

/*! A cell that is merged down makes its last row higher if those above have no room for it. */
void TextGrid::measureRows()
{
    while (int(m_firstCells.size()) <= m_rowCount)
        m_firstCells.push_back(m_cells.size());
    std::vector<int> cells;
    for (int row = 0; row < m_rowCount; ++row) {
        cells = cellsOf(row, cells);
        int height = 1;
        for (const int index : cells) {
            const Cell& cell = m_cells[size_t(index)];
            if (cell.lastRow == row)
                height = qMax(height, int(cell.lines.size()) - cell.next);
        }
        for (const int index : cells)
            m_cells[size_t(index)].next += height;
        m_hasHighRows = m_hasHighRows || height > 1;
        m_heights.push_back(height);
    }
    for (Cell& cell : m_cells)
        cell.next = 0;
}

qint64 TextGrid::size()
{
    if (m_heights.empty())
        measureRows();
    qint64 lines = 1;
    for (const int height : m_heights)
        lines += height + 1;
    return lines * m_positions.last();
}

/*! The next line of \a cells. */
QString TextGrid::line(const std::vector<int>& cells)
{
    QString result;
    int column = 0;
    for (const int index : cells) {
        Cell& cell = m_cells[size_t(index)];
        const int position = m_positions.at(cell.column);
        if (position > 0) {
            // Lines can be longer than they should be, and blanks need not be there twice.
            result += QString(qMax(0, position - gap() - column), QLatin1Char(' ')) + QLatin1String(" | ");
            column = qMax(column + gap(), position);
        }
        if (cell.next < cell.lines.size()) {
            result += cell.lines.at(cell.next);
            column += ORVTextColumns::of(cell.lines.at(cell.next));
        }
        ++cell.next;
    }
    return trimmedEnd(result);
}

QString TextGrid::rule() const
{
    QString result;
    for (int column = 0; column < m_widths.size(); ++column) {
        if (column > 0)
            result += QLatin1String("-+-");
        result += QString(m_widths.at(column), QLatin1Char('-'));
    }
    return result;
}

QStringList TextGrid::lines()
{
    if (m_heights.empty())
        measureRows();
    QStringList result;
    std::vector<int> cells;
    for (int row = 0; row < m_rowCount; ++row) {
        if (row > 0 && row == m_headRows)
            result += rule();
        else if (row > 0 && m_hasHighRows)
            result += QString();
        cells = cellsOf(row, cells);
        for (int i = 0; i < m_heights[size_t(row)]; ++i)
            result += line(cells);
    }
    return result;
}
