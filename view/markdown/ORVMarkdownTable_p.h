#ifndef ORVMARKDOWNTABLE_P_H
#define ORVMARKDOWNTABLE_P_H

#include <QtCore/QStringList>
#include <QtCore/QVector>

class QTextTable;
class QTextTableCell;

/*! A table with pipes between its cells, as GitHub has it. */
class ORVMarkdownTable {
public:
    enum Alignment { Unknown, Left, Centered, Right };

    explicit ORVMarkdownTable(int columns) : m_alignments(columns, Unknown) { }

    /*! Whether \a table can be one: no cell is merged, and none has a table or frame in it. */
    static bool canHave(const QTextTable& table);

    /*! Adds a cell behind the last one; \a alignment is that of its text, Unknown for the cells of the head. */
    void add(const QString& cell, Alignment alignment);
    /*! The lines, where the first row is the head if there is one. */
    QString lines(bool hasHead) const;

private:
    QVector<int> widths() const;
    QString row(int first, const QVector<int>& widths) const;
    QString rule(const QVector<int>& widths) const;

    QStringList m_cells;
    QVector<Alignment> m_alignments;
};

#endif
