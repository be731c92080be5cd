#include "TableFacts.h"

#include "Colors.h"
#include "ParagraphFacts.h"

#include <ORVTextBorder.h>

#include <QTextTable>

namespace {

using Side = ORVTextBorder::Side;

struct Padding {
    Facts::Property fact;
    QTextFormat::Property property;
};

const Padding paddings[] = {
    {Facts::PaddingAbove, QTextFormat::TableCellTopPadding},
    {Facts::PaddingBelow, QTextFormat::TableCellBottomPadding},
    {Facts::PaddingLeft, QTextFormat::TableCellLeftPadding},
    {Facts::PaddingRight, QTextFormat::TableCellRightPadding},
};

void addColumnWidths(const QTextTableFormat& format, double textWidth, FactList& facts)
{
    FactValue value;
    bool areStated = false;
    const QVector<QTextLength> widths = format.columnWidthConstraints();
    for (const QTextLength& width : widths) {
        areStated = areStated || width.type() != QTextLength::VariableLength;
        if (width.type() == QTextLength::VariableLength)
            value.word(QT_TRANSLATE_NOOP("orvrtf", "automatic"));
        else
            value.points(width.type() == QTextLength::FixedLength ? width.rawValue()
                                                                  : width.rawValue() * textWidth / 100);
    }
    if (areStated)
        facts.append({Facts::ColumnWidths, value});
}

void addTableWidth(const QTextTableFormat& format, double textWidth, FactList& facts)
{
    const QTextLength width = format.width();
    if (width.type() == QTextLength::FixedLength && width.rawValue() > 0)
        facts.append({Facts::TableWidth, FactValue().points(width.rawValue())});
    else if (width.type() == QTextLength::PercentageLength)
        facts.append({Facts::TableWidth, FactValue().points(width.rawValue() * textWidth / 100)});
}

/*! The line that \a cell of \a table has by itself on \a side; where it states none, that of the table. */
ORVTextBorder ownLine(const QTextTable& table, const QTextTableCell& cell, Side side)
{
    const QTextCharFormat format = cell.format();
    if (format.hasProperty(QTextFormat::TableCellTopBorder + side)
        || format.hasProperty(QTextFormat::TableCellTopBorderStyle + side))
        return ORVTextBorder::ofCell(format, side);
    const QTextTableFormat tableFormat = table.format();
    ORVTextBorder border;
    border.style = ORVTextBorder::styleOf(tableFormat.borderStyle());
    border.width = tableFormat.border();
    border.color = Colors::of(tableFormat, QTextFormat::FrameBorderBrush);
    return border;
}

/*! The neighbour of \a cell at the beginning of \a side; invalid at the edge of \a table. */
QTextTableCell neighbour(const QTextTable& table, const QTextTableCell& cell, Side side)
{
    int row = cell.row();
    int column = cell.column();
    switch (side) {
    case ORVTextBorder::Top: --row; break;
    case ORVTextBorder::Bottom: row += cell.rowSpan(); break;
    case ORVTextBorder::Left: --column; break;
    default: column += cell.columnSpan(); break;
    }
    const bool isInside = row >= 0 && column >= 0 && row < table.rows() && column < table.columns();
    return isInside ? table.cellAt(row, column) : QTextTableCell();
}

Side opposite(Side side)
{
    switch (side) {
    case ORVTextBorder::Top: return ORVTextBorder::Bottom;
    case ORVTextBorder::Bottom: return ORVTextBorder::Top;
    case ORVTextBorder::Left: return ORVTextBorder::Right;
    default: return ORVTextBorder::Left;
    }
}

/*! Both cells at a line find the same one. */
ORVTextBorder shownLine(const QTextTable& table, const QTextTableCell& cell, Side side)
{
    ORVTextBorder own = ownLine(table, cell, side);
    const QTextTableCell other =
        table.format().cellSpacing() == 0 ? neighbour(table, cell, side) : QTextTableCell();
    if (!other.isValid())
        return own;
    ORVTextBorder shared = ownLine(table, other, opposite(side));
    if (!own.isVisible() || !shared.isVisible())
        return own.isVisible() ? own : shared;
    const bool isFirst = side == ORVTextBorder::Bottom || side == ORVTextBorder::Right;
    return own.width > shared.width || (own.width == shared.width && isFirst) ? own : shared;
}

const char* verticalName(QTextCharFormat::VerticalAlignment alignment)
{
    switch (alignment) {
    case QTextCharFormat::AlignMiddle: return QT_TRANSLATE_NOOP("orvrtf", "centred");
    case QTextCharFormat::AlignBottom: return QT_TRANSLATE_NOOP("orvrtf", "bottom");
    default: return QT_TRANSLATE_NOOP("orvrtf", "top");
    }
}

} // namespace

FactList TableFacts::of(const QTextTable& table, double textWidth)
{
    const QTextTableFormat format = table.format();
    FactList facts;
    facts.append({Facts::Alignment, FactValue().alignment(format.alignment())});
    facts.append({Facts::LeftIndent, FactValue().points(format.leftMargin())});
    const QColor background = Colors::of(format, QTextFormat::BackgroundBrush);
    if (background.isValid() && background.alpha() > 0)
        facts.append({Facts::Background, FactValue().color(background)});
    if (format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore)
        facts.append({Facts::PageBreakBefore, FactValue()});
    addColumnWidths(format, textWidth, facts);
    addTableWidth(format, textWidth, facts);
    if (format.headerRowCount() > 0)
        facts.append({Facts::HeaderRows, FactValue().number(format.headerRowCount())});
    facts.append({Facts::CellSpacing, FactValue().points(format.cellSpacing())});
    return facts;
}

FactList TableFacts::ofCell(const QTextTable& table, const QTextTableCell& cell)
{
    FactList facts;
    const QTextCharFormat format = cell.format();
    const QColor background = Colors::of(format, QTextFormat::BackgroundBrush);
    if (background.isValid() && background.alpha() > 0)
        facts.append({Facts::Background, FactValue().color(background)});
    for (int side = 0; side < ORVTextBorder::SideCount; ++side) {
        const ORVTextBorder border = shownLine(table, cell, Side(side));
        if (border.isVisible())
            facts.append({Facts::BorderAbove + side, ParagraphFacts::line(border)});
    }
    for (const Padding& padding : paddings) {
        const double length = format.hasProperty(padding.property) ? format.doubleProperty(padding.property)
                                                                   : table.format().cellPadding();
        facts.append({padding.fact, FactValue().points(length)});
    }
    facts.append({Facts::VerticalAlignment, FactValue().word(verticalName(format.verticalAlignment()))});
    facts.append({Facts::RowSpan, FactValue().number(cell.rowSpan())});
    facts.append({Facts::ColumnSpan, FactValue().number(cell.columnSpan())});
    return facts;
}
