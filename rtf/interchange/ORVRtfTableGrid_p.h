#ifndef ORVRTFTABLEGRID_P_H
#define ORVRTFTABLEGRID_P_H

#include "ORVRtfRowLook_p.h"
#include "ORVTextRtfRow_p.h"

#include <QtCore/QVector>

#include <set>

class ORVRtfCellFormats;
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
    void addRow(const ORVTextRtfRow& row, const ORVRtfRowLook& look, int leftEdge, double textWidth);

    bool isEmpty() const { return m_rows.isEmpty(); }
    /*! Begins a page with the table that is inserted next. */
    void breakPageBefore() { m_breaksPage = true; }
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
        // The row below the cell.
        int endRow = 0;
        // Of the four sides, padding in twips.
        ORVRtfBorder borders[ORVTextBorder::SideCount];
        int padding[ORVTextBorder::SideCount] = {};
    };
    struct Row {
        QVector<Cell> cells;
        // For cells that state none: at the edges of the table, and between them.
        ORVRtfBorder borders[ORVTextBorder::SideCount];
        ORVRtfBorder horizontal;
        ORVRtfBorder vertical;
        bool isHeader = false;
    };

    static int rightEdge(const ORVTextRtfRow& row, const ORVRtfRowLook& look, int index, int left,
                         double textWidth);
    static void setLook(Cell& cell, const ORVRtfRowLook& look, int index);
    static void joinContinuations(Row& row);
    void alignEnds();
    void addEdges(const Row& row);

    bool hasEdge(int twips) const;
    void addEdge(int twips);
    int columnAt(int twips, const QVector<int>& edges) const;
    void findColumns(const QVector<int>& edges);
    void joinNarrowCells(Row& row) const;
    void mergeCells();
    static void joinWithLeft(Row& row, int index);
    void setCellFormats(ORVRtfCellFormats& formats);
    ORVRtfBorder borderOf(const Cell& cell, int row, ORVTextBorder::Side side) const;
    QTextTableFormat tableFormat(int leftEdge, bool hasLines) const;
    int headerRows() const;
    ORVTextRtfRow alignedRow(const Row& row, const QVector<int>& edges) const;

    QVector<Row> m_rows;
    Qt::Alignment m_alignment = Qt::AlignLeft;
    // Of the table, in twips; 0 for what its columns take.
    int m_width = 0;
    std::set<int> m_edges;
    bool m_breaksPage = false;
};

#endif
