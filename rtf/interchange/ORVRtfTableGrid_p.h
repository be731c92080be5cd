#ifndef ORVRTFTABLEGRID_P_H
#define ORVRTFTABLEGRID_P_H

#include "ORVTextRtfRow_p.h"

#include <QtCore/QVector>

#include <set>

class ORVRtfFormatSerials;

/*!
    The rows of one table while it is read, each with the edges of its own cells. The columns are made at the
    end: one between any two neighbouring edges of any row.
*/
class ORVRtfTableGrid {
public:
    /*!
        Adds \a row, whose cells have been finished, as the last one. Its first cell begins at \a leftEdge; cells
        without a definition share what is left of \a textWidth. In twips.
    */
    void addRow(const ORVTextRtfRow& row, int leftEdge, double textWidth);

    bool isEmpty() const { return m_rows.isEmpty(); }
    int rowCount() const { return int(m_rows.size()); }
    int columnCount() const { return qMax(0, int(m_edges.size()) - 1); }
    /*! Cells that the table has: one for each column in each row. */
    qint64 cellCount() const { return qint64(m_rows.size()) * columnCount(); }
    /*! The columns that there are with a row of \a row's definitions and cells added. */
    int columnsWith(const ORVTextRtfRow& row) const;

    /*! Inserts the table at \a cursor, widths in proportion to \a textWidth, and forgets its rows. */
    void insertAt(QTextCursor& cursor, double textWidth, ORVRtfFormatSerials& widthLists);

private:
    struct Cell {
        ORVTextRtfCellDefinition definition;
        ORVTextRtfCell cell;
        // Edges, in twips.
        int left = 0;
        int right = 0;
        int firstColumn = 0;
        int endColumn = 0;
    };
    struct Row {
        QTextTableFormat format;
        QVector<Cell> cells;
    };

    bool hasEdge(int twips) const;
    void addEdge(int twips);
    int columnAt(int twips, const QVector<int>& edges) const;
    void findColumns(const QVector<int>& edges);
    void joinNarrowCells(Row& row) const;
    void mergeCells();
    static void joinWithLeft(Row& row, int index);
    ORVTextRtfRow alignedRow(const Row& row, const QVector<int>& edges) const;

    QVector<Row> m_rows;
    std::set<int> m_edges;
};

#endif
