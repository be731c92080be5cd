#ifndef LIVETABLE_H
#define LIVETABLE_H

#include "tabletesthelpers.h"

#include <QtCore/QList>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocumentFragment>

/*! Tables as random tests describe them, and the way they are made row by row on a QTextTable. */
namespace livetable {

/*! A paragraph: its alignment (0 for none stated) and its words, in italics or not. */
struct Paragraph {
    int alignment = 0;
    QList<QPair<QString, bool>> words;
    // For an empty paragraph.
    bool italic = false;

    QTextBlockFormat blockFormat() const
    {
        QTextBlockFormat format;
        if (alignment != 0)
            format.setProperty(QTextFormat::BlockAlignment, alignment);
        return format;
    }
};

typedef QList<Paragraph> Cell;

struct Definition {
    int boundary = 0;
    QColor color;
    int alignment = QTextCharFormat::AlignTop;
    bool verticalMerge = false;
    bool horizontalMerge = false;
};

struct Row {
    QList<Definition> definitions;
    QList<Cell> cells;
    double padding = 0.0;
};

inline QTextCharFormat italicFormat(bool italic)
{
    QTextCharFormat format;
    format.setFontItalic(italic);
    return format;
}

/*! The document that a cell's text makes by itself. */
inline QSharedPointer<QTextDocument> documentOf(const Cell& cell)
{
    QSharedPointer<QTextDocument> document(new QTextDocument);
    QTextCursor cursor(document.data());
    for (int i = 0; i < cell.size(); ++i) {
        const Paragraph& paragraph = cell.at(i);
        const bool italic = paragraph.words.isEmpty() ? paragraph.italic : paragraph.words.first().second;
        if (i > 0)
            cursor.insertBlock();
        cursor.setBlockFormat(paragraph.blockFormat());
        cursor.setBlockCharFormat(italicFormat(italic));
        for (const auto& word : paragraph.words)
            cursor.insertText(word.first, italicFormat(word.second));
    }
    return document;
}

/*! A table that grows by one row after the other. */
class Table {
public:
    explicit Table(const QTextCursor& parent) : m_parent(parent) { }

    void addRow(const Row& given)
    {
        Row row = given;
        if (!m_table)
            create(row);
        else
            adaptColumns(row);
        if (row.cells.size() == m_table->columns() && !row.cells.isEmpty())
            fill(row);
        m_table->setFormat(formatOf(row));
    }

    /*! Sets the column widths and returns the place behind the table. */
    QTextCursor close(double textWidth)
    {
        const int count = m_table->columns();
        QVector<QTextLength> widths;
        for (int i = 0; i < count; ++i) {
            const double left = i > 0 && i <= m_boundaries.size() ? m_boundaries.at(i - 1) : 0.0;
            const double width =
                count > m_boundaries.size() ? 100.0 / count : 100.0 * (m_boundaries.at(i) - left) / textWidth;
            widths << QTextLength(QTextLength::PercentageLength, width);
        }
        QTextTableFormat format = m_table->format();
        format.setColumnWidthConstraints(widths);
        m_table->setFormat(format);
        m_parent.insertBlock();
        return m_parent;
    }

private:
    static QTextTableFormat formatOf(const Row& row)
    {
        QTextTableFormat format;
        format.setCellSpacing(0.0);
        format.setCellPadding(row.padding);
        return format;
    }

    void create(const Row& row)
    {
        m_table = m_parent.insertTable(1, int(row.cells.size()), formatOf(row));
        m_parent.movePosition(QTextCursor::End);
        for (const Definition& definition : row.definitions)
            m_boundaries << definition.boundary;
    }

    void adaptColumns(Row& row)
    {
        for (int i = 0; i < row.cells.size(); ++i) {
            if (i < row.definitions.size())
                adaptColumn(row, i);
            else if (m_table->columns() < i) {
                m_table->appendColumns(1);
                m_boundaries << 0;
            }
        }
        m_table->appendRows(1);
    }

    void adaptColumn(Row& row, int i)
    {
        const Definition definition = row.definitions.at(i);
        if (i >= m_boundaries.size()) {
            m_table->appendColumns(1);
            widenCells(i);
            m_boundaries << definition.boundary;
        } else if (definition.boundary < m_boundaries.at(i)) {
            m_table->insertColumns(i + 1, 1);
            widenCells(i);
            m_boundaries.insert(i, definition.boundary);
        } else if (definition.boundary > m_boundaries.at(i)) {
            Definition continuation;
            continuation.boundary = definition.boundary;
            continuation.verticalMerge = definition.verticalMerge;
            continuation.horizontalMerge = true;
            row.definitions.insert(i + 1, continuation);
            row.cells.insert(i + 1, Cell());
        }
    }

    void widenCells(int column)
    {
        for (int r = 0; r < m_table->rows();) {
            const QTextTableCell cell = m_table->cellAt(r, column);
            if (!cell.isValid())
                return;
            r += cell.rowSpan();
            m_table->mergeCells(cell.row(), cell.column(), cell.rowSpan(), cell.columnSpan() + 1);
        }
    }

    void fill(const Row& row)
    {
        const int last = m_table->rows() - 1;
        for (int c = 0; c < row.cells.size(); ++c) {
            const Definition definition = row.definitions.value(c);
            if (definition.verticalMerge)
                mergeUpwards(last, c);
            else if (definition.horizontalMerge)
                mergeLeftwards(last, c);
            else
                fillCell(m_table->cellAt(last, c), definition, row.cells.at(c));
        }
    }

    void mergeUpwards(int last, int column)
    {
        const QTextTableCell above = last > 0 ? m_table->cellAt(last - 1, column) : QTextTableCell();
        if (above.isValid())
            m_table->mergeCells(above.row(), above.column(), last - above.row() + 1, above.columnSpan());
    }

    void mergeLeftwards(int last, int column)
    {
        const QTextTableCell left = column > 0 ? m_table->cellAt(last, column - 1) : QTextTableCell();
        if (left.isValid())
            m_table->mergeCells(left.row(), left.column(), left.rowSpan(), column - left.column() + 1);
    }

    static void fillCell(QTextTableCell target, const Definition& definition, const Cell& cell)
    {
        if (!target.isValid())
            return;
        const QSharedPointer<QTextDocument> document = documentOf(cell);
        QTextCharFormat format = target.format().toCharFormat();
        if (definition.color.isValid())
            format.setBackground(QBrush(definition.color, Qt::SolidPattern));
        format.setProperty(QTextFormat::TextVerticalAlignment, definition.alignment);
        format.merge(document->begin().charFormat());
        target.setFormat(format);
        QTextCursor cursor = target.lastCursorPosition();
        cursor.setBlockFormat(document->begin().blockFormat());
        cursor.setCharFormat(format);
        cursor.insertFragment(QTextDocumentFragment(document.data()));
    }

    QTextCursor m_parent;
    QTextTable* m_table = nullptr;
    QList<int> m_boundaries;
};

} // namespace livetable

#endif
