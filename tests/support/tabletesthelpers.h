#ifndef TABLETESTHELPERS_H
#define TABLETESTHELPERS_H

#include "rtftesthelpers.h"

#include <QtGui/QTextFrame>
#include <QtGui/QTextTable>

/*! What the tests of tables share: short ways to spell rows, and one line that tells a table's structure. */
namespace rtftest {

/*!
    Cell definitions from right boundaries such as "4320 8640v": "v" continues the cell above, "h" the cell to
    the left.
*/
inline QByteArray cellx(const QByteArray& boundaries)
{
    QByteArray words;
    const QList<QByteArray> parts = boundaries.split(' ');
    for (QByteArray boundary : parts) {
        if (boundary.contains('v'))
            words += "\\clvmrg";
        if (boundary.contains('h'))
            words += "\\clmrg";
        words += "\\cellx" + boundary.replace("v", "").replace("h", "");
    }
    return words;
}

/*! Cells from texts separated by blanks; "-" is an empty cell. */
inline QByteArray cells(const QByteArray& texts)
{
    QByteArray words;
    const QList<QByteArray> parts = texts.split(' ');
    for (const QByteArray& text : parts)
        words += (text == "-" ? QByteArray() : text) + "\\cell ";
    return words;
}

/*! A row from definitions and cells as they stand in RTF. */
inline QByteArray rawRow(const QByteArray& definitions, const QByteArray& content)
{
    return "\\trowd" + definitions + "\\pard\\intbl " + content + "\\row\n";
}

/*! A row from boundaries and texts. */
inline QByteArray row(const QByteArray& boundaries, const QByteArray& texts)
{
    return rawRow(cellx(boundaries), cells(texts));
}

inline QString shapeOf(const QTextTable* table);

/*!
    Paragraphs and tables of a frame or cell, separated by "|": a paragraph is its text, a table its shape in
    braces.
*/
inline QString contentOf(QTextFrame::iterator it, const QTextFrame::iterator& end)
{
    QStringList parts;
    for (; it != end; ++it) {
        const QTextTable* table = qobject_cast<QTextTable*>(it.currentFrame());
        if (table)
            parts << QLatin1Char('{') + shapeOf(table) + QLatin1Char('}');
        else
            parts << it.currentBlock().text();
    }
    return parts.join(QLatin1Char('|'));
}

inline QString contentOf(const QTextTableCell& cell)
{
    return contentOf(cell.begin(), cell.end());
}

inline QString contentOf(const QTextDocument& document)
{
    return contentOf(document.rootFrame()->begin(), document.rootFrame()->end());
}

/*! A cell's text, "-" when it is empty, and its spans, as in "A(r2c3)". */
inline QString cellShape(const QTextTableCell& cell)
{
    QString spans;
    if (cell.rowSpan() != 1)
        spans += QStringLiteral("r%1").arg(cell.rowSpan());
    if (cell.columnSpan() != 1)
        spans += QStringLiteral("c%1").arg(cell.columnSpan());
    const QString text = contentOf(cell);
    return (text.isEmpty() ? QStringLiteral("-") : text) + (spans.isEmpty() ? spans : '(' + spans + ')');
}

/*!
    A table as one line: the number of columns, then the cells of each row at the place where they start, rows
    separated by "/". "3: A(c2), B / C, D(c2)" is a table of two rows.
*/
inline QString shapeOf(const QTextTable* table)
{
    QStringList rows;
    for (int r = 0; r < table->rows(); ++r) {
        QStringList starting;
        for (int c = 0; c < table->columns(); ++c) {
            const QTextTableCell cell = table->cellAt(r, c);
            if (!cell.isValid())
                starting << QStringLiteral("(none)");
            else if (cell.row() == r && cell.column() == c)
                starting << cellShape(cell);
        }
        rows << starting.join(QStringLiteral(", "));
    }
    return QStringLiteral("%1: ").arg(table->columns()) + rows.join(QStringLiteral(" / "));
}

/*! The tables that stand directly in a frame or cell, in their order. */
inline QList<QTextTable*> tablesOf(QTextFrame::iterator it, const QTextFrame::iterator& end)
{
    QList<QTextTable*> tables;
    for (; it != end; ++it) {
        if (QTextTable* table = qobject_cast<QTextTable*>(it.currentFrame()))
            tables << table;
    }
    return tables;
}

inline QList<QTextTable*> tablesOf(const QTextTableCell& cell)
{
    return tablesOf(cell.begin(), cell.end());
}

inline QList<QTextTable*> tablesOf(const QTextDocument& document)
{
    return tablesOf(document.rootFrame()->begin(), document.rootFrame()->end());
}

/*! The first table of a document, null when there is none. */
inline QTextTable* firstTable(const Reading& reading)
{
    return tablesOf(*reading.document).value(0);
}

/*! The paragraphs that stand directly in a cell. */
inline QList<QTextBlock> blocksOf(const QTextTableCell& cell)
{
    QList<QTextBlock> blocks;
    for (QTextFrame::iterator it = cell.begin(); it != cell.end(); ++it) {
        if (it.currentBlock().isValid())
            blocks << it.currentBlock();
    }
    return blocks;
}

/*! The widths of a table's columns, such as "50% 25% 25%"; empty when it has none. */
inline QString widthsOf(const QTextTable* table)
{
    QStringList widths;
    const auto constraints = table->format().columnWidthConstraints();
    for (const QTextLength& length : constraints) {
        const char* unit = length.type() == QTextLength::PercentageLength ? "%" : "?";
        widths << QString::number(length.rawValue(), 'g', 10) + QLatin1String(unit);
    }
    return widths.join(QLatin1Char(' '));
}

/*! \a format without what Qt keeps in it for itself: object numbers, spans and the shape of the table. */
inline Properties ownProperties(const QTextFormat& format)
{
    Properties properties = propertiesOf(format);
    static const int ids[] = {QTextFormat::ObjectIndex,      QTextFormat::ObjectType,
                              QTextFormat::TableCellRowSpan, QTextFormat::TableCellColumnSpan,
                              QTextFormat::TableColumns,     QTextFormat::TableColumnWidthConstraints};
    for (int id : ids)
        properties.remove(id);
    return properties;
}

/*! The format of a cell that says nothing but how its content is aligned. */
inline Properties plainCell(QTextCharFormat::VerticalAlignment alignment = QTextCharFormat::AlignTop)
{
    Properties properties;
    properties.insert(QTextFormat::TextVerticalAlignment, int(alignment));
    return properties;
}

inline QVariant solidBrush(const QColor& color)
{
    return QVariant::fromValue(QBrush(color, Qt::SolidPattern));
}

} // namespace rtftest

#endif
