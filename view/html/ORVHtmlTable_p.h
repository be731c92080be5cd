#ifndef ORVHTMLTABLE_P_H
#define ORVHTMLTABLE_P_H

#include "ORVHtmlDeclarations_p.h"

#include <QtCore/QHash>
#include <QtCore/QVector>
#include <QtGui/QTextTable>

struct ORVHtmlContext;

/*! Writes the tags of one table; what stands in its cells is written in between. */
class ORVHtmlTable {
public:
    ORVHtmlTable(const QTextTable* table, ORVHtmlContext* context);

    void begin();
    void beginRow(int row);
    void beginCell(const QTextTableCell& cell);
    void endCell(const QTextTableCell& cell);
    void endRow(int row);
    void end();
    /*! Whether \a cell is one of the head, the rows that are repeated on each page. */
    bool isInHead(const QTextTableCell& cell) const { return cell.row() < m_headRows; }

private:
    ORVHtmlDeclarations declarations() const;
    ORVHtmlDeclarations cellDeclarations(const QTextTableCell& cell) const;
    void setCellBorders(ORVHtmlDeclarations* declarations, const QTextCharFormat& format) const;
    double widthOfColumns() const;
    void writeColumns() const;
    int headRows() const;
    bool beginsCell(int row) const;
    /*! Whether a cell begins in \a row: HTML has no rows of nothing but the rest of cells. */
    bool hasTag(int row) const { return m_rowsAbove.at(row + 1) > m_rowsAbove.at(row); }
    const char* tag(const QTextTableCell& cell) const;

    const QTextTable* m_table;
    ORVHtmlContext* m_context;
    QTextTableFormat m_format;
    int m_headRows;
    // By row, and that behind the last one: the number of rows above that have a tag.
    QVector<int> m_rowsAbove;
    // By the index of the format of cells, doubled, with 1 added for those of the head.
    QHash<int, int> m_cellStyles;
};

#endif
