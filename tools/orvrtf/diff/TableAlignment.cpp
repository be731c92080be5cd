#include "TableAlignment.h"

#include "ItemAlignment.h"
#include "ItemText.h"
#include "Symbols.h"

using namespace Model;

namespace {

enum class Axis { Rows, Columns };

/*! The cells of each row, or column, of a table. */
class Lines {
public:
    Lines(const Document& document, const Table& table, Axis axis, Symbols* symbols)
        : m_document(document), m_symbols(symbols),
          m_cells(std::size_t(axis == Axis::Rows ? table.rows : table.columns))
    {
        for (const Cell& cell : table.cells)
            m_cells[std::size_t(axis == Axis::Rows ? cell.row : cell.column)].push_back(&cell);
    }

    AlignedSequence sequence() const
    {
        AlignedSequence result;
        for (const std::vector<const Cell*>& line : m_cells) {
            QString key = QStringLiteral("\n");
            for (const Cell* const cell : line)
                key += ItemText::key(cell->flow);
            result.items.append({m_symbols->of(key), 0});
        }
        result.words = [this](int line) { return words(line); };
        return result;
    }

private:
    QVector<int> words(int line) const
    {
        QVector<int> result;
        for (const Cell* const cell : m_cells[std::size_t(line)])
            result += ItemText::words(m_document, cell->flow, m_symbols);
        return result;
    }

    const Document& m_document;
    Symbols* m_symbols;
    std::vector<std::vector<const Cell*>> m_cells;
};

} // namespace

TableAlignment::TableAlignment(const Document& beforeDocument, const Table& before,
                               const Document& afterDocument, const Table& after, Symbols* symbols)
    : m_after(after)
{
    const Lines rowsBefore(beforeDocument, before, Axis::Rows, symbols);
    const Lines rowsAfter(afterDocument, after, Axis::Rows, symbols);
    m_rows = ItemAlignment::partners(rowsBefore.sequence(), rowsAfter.sequence(), ItemAlignment::InOrder);
    if (before.columns == after.columns) {
        // Columns with little text would be taken for one another.
        for (int column = 0; column < before.columns; ++column)
            m_columns.append(column);
        return;
    }
    const Lines columnsBefore(beforeDocument, before, Axis::Columns, symbols);
    const Lines columnsAfter(afterDocument, after, Axis::Columns, symbols);
    m_columns =
        ItemAlignment::partners(columnsBefore.sequence(), columnsAfter.sequence(), ItemAlignment::InOrder);
}

const Cell* TableAlignment::partner(const Cell& cell) const
{
    const int row = m_rows.at(cell.row);
    const int column = m_columns.at(cell.column);
    if (row < 0 || column < 0)
        return nullptr;
    const Cell& other = m_after.cellAt(row, column);
    return other.row == row && other.column == column ? &other : nullptr;
}
