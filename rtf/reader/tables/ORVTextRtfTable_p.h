#ifndef ORVTEXTRTFTABLE_P_H
#define ORVTEXTRTFTABLE_P_H

#include "ORVRtfCellContent_p.h"
#include "ORVRtfFormatSerials_p.h"

#include <QtCore/QVector>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextTableFormat>

class ORVTextRtfCell;
struct ORVTextRtfCellDefinition;
struct ORVTextRtfRow;
class QTextCursor;
class QTextTable;

/*!
    The table of one table level while its rows are read.

    Rows of RTF need not agree in their cells; each new row may split columns of the rows above, or add some.
    That happens on a grid of our own, with the results that QTextTable's operations have; the QTextTable is
    made once, at the end. Growing a live one row by row takes time in the square of its rows, and inserting
    columns into it where cells span rows damages memory.
*/
class ORVTextRtfTable {
public:
    /*! Adds \a row, which has been finished, as the last row. */
    void addRow(ORVTextRtfRow& row);

    /*! Whether no row was added. */
    bool isEmpty() const { return m_rows == 0; }

    /*! Cells of the grid, whether they are parts of others or not. */
    int cellCount() const { return m_rows * m_columns; }
    /*! The most that cellCount() can be with \a row added. */
    int mostCellsWith(const ORVTextRtfRow& row) const;

    /*! Sets the column widths in percent of \a textWidth, in twips. All tables share \a lists. */
    void setColumnWidths(double textWidth, ORVRtfFormatSerials& lists);

    /*! Inserts the table at \a cursor. */
    void insertAt(QTextCursor& cursor) const;

private:
    struct Cell {
        int row = 0;
        int column = 0;
        int rowSpan = 1;
        int columnSpan = 1;
        // Indexes of the cells before and behind this one in the order of the text, -1 at its ends.
        int previous = -1;
        int next = -1;
        QTextCharFormat format;
        ORVRtfCellContent content;
    };

    int indexAt(int row, int column) const { return m_grid.at(row * m_columns + column); }
    Cell& cellAt(int row, int column) { return m_cells[indexAt(row, column)]; }
    const Cell& cellAt(int row, int column) const { return m_cells.at(indexAt(row, column)); }
    int addCell(int row, int column);

    void beginTable(const ORVTextRtfRow& row);
    void fitColumns(ORVTextRtfRow& row);
    void splitColumn(int column, int boundary);
    void addColumn(int boundary);
    void widenCells(int column);
    void insertColumn(int position);
    void linkCells();
    void appendToText(int cell);
    QVector<QTextCharFormat> formatsFollowing(int position) const;
    void appendRow();
    void fillLastRow(ORVTextRtfRow& row);
    void fillCell(int column, const ORVTextRtfCellDefinition& definition, ORVTextRtfCell& source);
    bool canMerge(const Cell& cell, int rows, int columns) const;
    void mergeCells(int row, int column, int rows, int columns);
    void absorb(int target, int absorbed, ORVRtfCellContent::Separator separator);
    void mergeIn(QTextTable* table) const;
    void fillIn(QTextTable* table) const;

    // Cells that became part of others stay in the list; the grid does not refer to them any more.
    QVector<Cell> m_cells;
    // Index into m_cells by row and column.
    QVector<int> m_grid;
    // The last cell in the order of the text.
    int m_lastCell = -1;
    int m_rows = 0;
    int m_columns = 0;
    // Right boundaries of the columns, in twips. There can be fewer than columns, or more.
    QVector<int> m_boundaries;
    QTextTableFormat m_format;
};

#endif
