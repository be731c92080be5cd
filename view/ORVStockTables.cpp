#include "ORVStockTables_p.h"

#include "ORVPageGeometry.h"
#include "ORVPageLimits_p.h"
#include "QtFormatCompat_p.h"

#include <QtGui/QTextTable>

namespace {

const int lengthProperties[] = {QTextFormat::FrameBorder, QTextFormat::TableCellPadding};

// Of documents in Qt's views, in pixels.
const double viewMargin = 4;

/*! Multiplies fixed widths by \a fixedFactor and percentages by \a shareFactor. */
void scaleWidths(QTextTableFormat* format, double fixedFactor, double shareFactor)
{
    QVector<QTextLength> widths = format->columnWidthConstraints();
    if (widths.isEmpty())
        return;
    for (QTextLength& width : widths) {
        if (width.type() != QTextLength::VariableLength)
            width = QTextLength(width.type(),
                                width.rawValue()
                                    * (width.type() == QTextLength::FixedLength ? fixedFactor : shareFactor));
    }
    format->setColumnWidthConstraints(widths);
}

/*! Reduces percentages that add up to more than 100, which would leave no room for the last column. */
void fitShares(QTextTableFormat* format)
{
    double sum = 0;
    const QVector<QTextLength> widths = format->columnWidthConstraints();
    for (const QTextLength& width : widths) {
        if (width.type() == QTextLength::PercentageLength)
            sum += width.rawValue();
    }
    if (sum > 100)
        scaleWidths(format, 1, 100 / sum);
}

} // namespace

ORVStockTables::ORVStockTables(const QTextDocument* document, int resolution)
    : m_pixelsPerPoint(resolution / 72.0), m_textWidth(ORVPageGeometry::of(document).textWidth())
{
}

double ORVStockTables::availableShare(const QTextTable* table) const
{
    QTextFrame* frame = table->parentFrame();
    while (frame && !qobject_cast<QTextTable*>(frame))
        frame = frame->parentFrame();
    const QTextTable* const parent = qobject_cast<QTextTable*>(frame);
    if (!parent)
        return 1;
    const QVector<double> shares = m_columnShares.value(parent);
    const QTextTableCell cell = parent->cellAt(table->firstPosition());
    double share = 0;
    for (int column = cell.column(); column < cell.column() + cell.columnSpan(); ++column)
        share += shares.value(column);
    return share > 0 ? share : 1;
}

/*! Columns without a width share the rest equally. */
void ORVStockTables::remember(const QTextTable* table, const QTextTableFormat& format)
{
    QVector<double> shares(table->columns(), 0);
    const QVector<QTextLength> widths = format.columnWidthConstraints();
    double left = availableShare(table);
    int variableColumns = shares.size();
    for (int column = 0; column < qMin(int(shares.size()), int(widths.size())); ++column) {
        const QTextLength& width = widths.at(column);
        if (width.type() == QTextLength::VariableLength)
            continue;
        if (width.type() == QTextLength::PercentageLength)
            shares[column] = width.rawValue() / 100;
        else if (m_textWidth > 0)
            shares[column] = width.rawValue() / m_textWidth;
        left -= shares.at(column);
        --variableColumns;
    }
    for (double& share : shares) {
        if (share == 0 && variableColumns > 0)
            share = qMax(0.0, left) / variableColumns;
    }
    m_columnShares.insert(table, shares);
}

/*!
    What stands further left than the margin of a view would be cut off. The right margin makes up for the left one:
    column widths are shares of the text width, wherever the table begins.
*/
void ORVStockTables::setStockMargins(QTextTableFormat* format) const
{
    if (!format->hasProperty(QTextFormat::FrameLeftMargin))
        return;
    const double left = ORVPageLimits::length(format->leftMargin()) * m_pixelsPerPoint;
    format->setLeftMargin(qMax(-viewMargin, left));
    format->setRightMargin(-format->leftMargin());
}

QTextTableFormat ORVStockTables::stock(const QTextTableFormat& format, double share) const
{
    QTextTableFormat result(format);
    for (const int property : lengthProperties)
        result.setProperty(property,
                           ORVPageLimits::distance(format.doubleProperty(property)) * m_pixelsPerPoint);
    // A border below one pixel would not be painted.
    if (format.border() > 0)
        result.setBorder(qMax(1.0, result.border()));
    // Without cell spacing, neighbouring cells share one border line.
    if (format.cellSpacing() == 0)
        result.setProperty(compat::tableBorderCollapse, true);
    setStockMargins(&result);
    scaleWidths(&result, m_pixelsPerPoint, 1 / share);
    fitShares(&result);
    return result;
}

QTextTableFormat ORVStockTables::application(const QTextTableFormat& format, const QTextTableFormat& expected,
                                             const QTextTableFormat& changed, double share) const
{
    QTextTableFormat result(format);
    for (const int property : lengthProperties) {
        if (changed.hasProperty(property) && changed.property(property) != expected.property(property))
            result.setProperty(property, changed.doubleProperty(property) / m_pixelsPerPoint);
    }
    const int margin = QTextFormat::FrameLeftMargin;
    if (changed.property(margin) != expected.property(margin))
        result.setProperty(margin, changed.doubleProperty(margin) / m_pixelsPerPoint);
    if (changed.columnWidthConstraints() != expected.columnWidthConstraints()) {
        result.setColumnWidthConstraints(changed.columnWidthConstraints());
        scaleWidths(&result, 1 / m_pixelsPerPoint, share);
    }
    return result;
}
