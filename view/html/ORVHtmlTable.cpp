#include "ORVHtmlTable_p.h"

#include "ORVHtmlContext_p.h"
#include "ORVTextBorder.h"
#include "QtFormatCompat_p.h"

#include <QtCore/QVector>

namespace {

using Declarations = ORVHtmlDeclarations;

// The most that HTML lets a cell span.
const int mostColumns = 1000;
const int mostRows = 65534;

QByteArray lengthOf(const QTextLength& length, const ORVHtmlContext& context)
{
    if (length.rawValue() < 0)
        return QByteArray();
    switch (length.type()) {
    case QTextLength::FixedLength: return Declarations::length(context.points(length.rawValue()));
    case QTextLength::PercentageLength: return Declarations::length(length.rawValue(), "%");
    default: return QByteArray();
    }
}

} // namespace

ORVHtmlTable::ORVHtmlTable(const QTextTable* table, ORVHtmlContext* context)
    : m_table(table), m_context(context), m_format(table->format()), m_headRows(headRows())
{
    m_rowsAbove.reserve(table->rows() + 1);
    m_rowsAbove.append(0);
    for (int row = 0; row < table->rows(); ++row)
        m_rowsAbove.append(m_rowsAbove.last() + (beginsCell(row) ? 1 : 0));
}

bool ORVHtmlTable::beginsCell(int row) const
{
    for (int column = 0; column < m_table->columns();) {
        const QTextTableCell cell = m_table->cellAt(row, column);
        if (cell.row() == row)
            return true;
        column += cell.columnSpan();
    }
    return false;
}

/*! A cell that is merged down cannot leave the head: such a table has none. */
int ORVHtmlTable::headRows() const
{
    const int rows = qBound(0, m_format.headerRowCount(), m_table->rows());
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < m_table->columns(); ++column) {
            const QTextTableCell cell = m_table->cellAt(row, column);
            if (cell.row() + cell.rowSpan() > rows)
                return 0;
        }
    }
    return rows;
}

/*!
    The sum of the columns' widths where all are parts of the text's width, in percent; 0 otherwise. Qt takes them
    for the width of the table, while HTML has parts of the table's width.
*/
double ORVHtmlTable::widthOfColumns() const
{
    const QVector<QTextLength> widths = m_format.columnWidthConstraints();
    double sum = 0;
    for (const QTextLength& width : widths) {
        if (width.type() != QTextLength::PercentageLength || !(width.rawValue() > 0))
            return 0;
        sum += width.rawValue();
    }
    const bool isStated = m_format.width().type() != QTextLength::VariableLength;
    return isStated || widths.size() != m_table->columns() ? 0 : sum;
}

ORVHtmlDeclarations ORVHtmlTable::declarations() const
{
    Declarations result;
    const double widthOfColumns = this->widthOfColumns();
    result.set(Declarations::Width,
               widthOfColumns > 0 ? Declarations::length(widthOfColumns, "%")
                                  : lengthOf(m_format.width(), *m_context));
    const double left = m_context->points(m_format.leftMargin());
    const double top = m_context->points(m_format.topMargin());
    const double bottom = m_context->points(m_format.bottomMargin());
    if (m_format.alignment() & (Qt::AlignHCenter | Qt::AlignRight))
        result.set(Declarations::Margin,
                   Declarations::length(top) + (m_format.alignment() & Qt::AlignHCenter ? " auto " : " 0 ")
                       + Declarations::length(bottom) + " auto");
    else
        result.set(Declarations::Margin, Declarations::sides(top, 0, bottom, left));
    if (m_format.cellSpacing() > 0)
        result.set(Declarations::BorderSpacing,
                   Declarations::length(m_context->points(m_format.cellSpacing())));
    else
        result.set(Declarations::BorderCollapse, "collapse");
    if (m_format.background().style() != Qt::NoBrush)
        result.set(Declarations::BackgroundColor, Declarations::color(m_format.background().color()));
    if (m_format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore)
        result.set(Declarations::BreakBefore, "page");
    return result;
}

void ORVHtmlTable::begin()
{
    m_context->output->markup(
        "<table"
        + m_context->sheet->attribute(m_context->sheet->use(ORVHtmlStyleSheet::Table, declarations()))
        + ">\n");
    writeColumns();
    m_context->output->markup(m_headRows > 0 ? "<thead>\n" : "<tbody>\n");
}

void ORVHtmlTable::writeColumns() const
{
    const QVector<QTextLength> widths = m_format.columnWidthConstraints();
    bool areStated = false;
    for (const QTextLength& width : widths)
        areStated = areStated || width.type() != QTextLength::VariableLength;
    if (!areStated || !m_context->sheet->hasStyles())
        return;
    m_context->output->markup("<colgroup>");
    const double widthOfColumns = this->widthOfColumns();
    for (const QTextLength& width : widths) {
        const QByteArray value = widthOfColumns > 0
            ? Declarations::length(width.rawValue() / widthOfColumns * 100, "%")
            : lengthOf(width, *m_context);
        m_context->output->markup(value.isEmpty() ? "<col>" : "<col style=\"width: " + value + "\">");
    }
    m_context->output->markup("</colgroup>\n");
}

void ORVHtmlTable::beginRow(int row)
{
    if (row > 0 && row == m_headRows)
        m_context->output->markup("</thead>\n<tbody>\n");
    if (hasTag(row))
        m_context->output->markup("<tr>\n");
}

const char* ORVHtmlTable::tag(const QTextTableCell& cell) const
{
    return isInHead(cell) ? "th" : "td";
}

void ORVHtmlTable::setCellBorders(ORVHtmlDeclarations* declarations, const QTextCharFormat& format) const
{
    static const Declarations::Property properties[] = {Declarations::BorderTop, Declarations::BorderBottom,
                                                        Declarations::BorderLeft, Declarations::BorderRight};
    QByteArray values[ORVTextBorder::SideCount];
    bool areEqual = true;
    for (int side = 0; side < ORVTextBorder::SideCount; ++side) {
        ORVTextBorder border = ORVTextBorder::ofCell(format, ORVTextBorder::Side(side));
        if (!format.hasProperty(compat::tableCellBorder + side) && m_format.border() > 0) {
            border.width = m_format.border();
            border.style = ORVTextBorder::styleOf(m_format.intProperty(QTextFormat::FrameBorderStyle));
            border.color = m_format.borderBrush().color();
        }
        border.width = m_context->points(border.width);
        values[side] = ORVHtmlDeclarations::border(border);
        areEqual = areEqual && values[side] == values[0];
    }
    if (areEqual) {
        declarations->set(Declarations::Border, values[0]);
        return;
    }
    for (int side = 0; side < ORVTextBorder::SideCount; ++side)
        declarations->set(properties[side], values[side]);
}

ORVHtmlDeclarations ORVHtmlTable::cellDeclarations(const QTextTableCell& cell) const
{
    Declarations result;
    const QTextTableCellFormat format = cell.format().toTableCellFormat();
    if (format.background().style() != Qt::NoBrush)
        result.set(Declarations::BackgroundColor, Declarations::color(format.background().color()));
    const auto padding = [&](int property) {
        const double value =
            format.hasProperty(property) ? format.doubleProperty(property) : m_format.cellPadding();
        return m_context->points(qMax(0.0, value));
    };
    result.set(Declarations::Padding,
               Declarations::sides(
                   padding(QTextFormat::TableCellTopPadding), padding(QTextFormat::TableCellRightPadding),
                   padding(QTextFormat::TableCellBottomPadding), padding(QTextFormat::TableCellLeftPadding)));
    switch (format.intProperty(QTextFormat::TextVerticalAlignment)) {
    case QTextCharFormat::AlignMiddle: result.set(Declarations::VerticalAlign, "middle"); break;
    case QTextCharFormat::AlignBottom: result.set(Declarations::VerticalAlign, "bottom"); break;
    default: break;
    }
    setCellBorders(&result, format);
    return result;
}

void ORVHtmlTable::beginCell(const QTextTableCell& cell)
{
    const int index = 2 * cell.tableCellFormatIndex() + (isInHead(cell) ? 1 : 0);
    QHash<int, int>::const_iterator style = m_cellStyles.constFind(index);
    if (style != m_cellStyles.constEnd())
        m_context->sheet->use(*style);
    else
        style = m_cellStyles.insert(
            index,
            m_context->sheet->use(isInHead(cell) ? ORVHtmlStyleSheet::HeadCell : ORVHtmlStyleSheet::Cell,
                                  cellDeclarations(cell)));
    QByteArray html = QByteArray("<") + tag(cell) + m_context->sheet->attribute(*style);
    const int rowSpan = m_rowsAbove.at(cell.row() + cell.rowSpan()) - m_rowsAbove.at(cell.row());
    if (cell.columnSpan() > 1)
        html += " colspan=\"" + QByteArray::number(qMin(cell.columnSpan(), mostColumns)) + '"';
    if (rowSpan > 1)
        html += " rowspan=\"" + QByteArray::number(qMin(rowSpan, mostRows)) + '"';
    m_context->output->markup(html + '>');
}

void ORVHtmlTable::endCell(const QTextTableCell& cell)
{
    m_context->output->markup(QByteArray("</") + tag(cell) + ">\n");
}

void ORVHtmlTable::endRow(int row)
{
    if (hasTag(row))
        m_context->output->markup("</tr>\n");
}

void ORVHtmlTable::end()
{
    m_context->output->markup(m_headRows >= m_table->rows() ? "</thead>\n" : "</tbody>\n");
    m_context->output->markup("</table>\n");
}
