#include "ORVStockCells_p.h"

#include "ORVPageLimits_p.h"
#include "ORVTextBorder.h"
#include "QtFormatCompat_p.h"

namespace {

// int: pixels per inch of a cell in stock form; 0 for one converted from a stock form that stock() did not make.
const int cellResolution = QTextFormat::UserProperty + 340;
// The first of the properties that store original values, in points.
const int firstKeptLength = QTextFormat::UserProperty + 341;

const double inchInPoints = 72;

// Widths of lines, and padding. Their order decides the ids of the stored values.
const int cellLengths[] = {
    compat::tableCellBorder + ORVTextBorder::Top,
    compat::tableCellBorder + ORVTextBorder::Bottom,
    compat::tableCellBorder + ORVTextBorder::Left,
    compat::tableCellBorder + ORVTextBorder::Right,
    QTextFormat::TableCellTopPadding,
    QTextFormat::TableCellBottomPadding,
    QTextFormat::TableCellLeftPadding,
    QTextFormat::TableCellRightPadding,
};
const int cellLengthCount = int(sizeof(cellLengths) / sizeof(cellLengths[0]));

bool isWidthOfLine(int property)
{
    return property >= compat::tableCellBorder
        && property < compat::tableCellBorder + int(ORVTextBorder::SideCount);
}

/*! A line below one pixel would not be painted. */
double cellPixels(double points, int property, int resolution)
{
    const double length = ORVPageLimits::distance(points) * resolution / inchInPoints;
    return isWidthOfLine(property) && points > 0 ? qMax(1.0, length) : length;
}

} // namespace

bool ORVStockCells::hasLook(const QTextCharFormat& format)
{
    if (format.objectType() != QTextFormat::TableCellObject)
        return false;
    for (const int property : cellLengths) {
        if (format.hasProperty(property))
            return true;
    }
    return false;
}

QTextCharFormat ORVStockCells::stock(const QTextCharFormat& format, int resolution)
{
    if (format.intProperty(cellResolution) > 0)
        return format;
    QTextCharFormat result(format);
    for (int i = 0; i < cellLengthCount; ++i) {
        if (!format.hasProperty(cellLengths[i]))
            continue;
        const double points = format.doubleProperty(cellLengths[i]);
        result.setProperty(firstKeptLength + i, points);
        result.setProperty(cellLengths[i], cellPixels(points, cellLengths[i], resolution));
    }
    result.setProperty(cellResolution, resolution);
    return result;
}

QTextCharFormat ORVStockCells::application(const QTextCharFormat& format, int resolution)
{
    const bool isForeign = !format.hasProperty(cellResolution);
    const int stored = format.intProperty(cellResolution);
    if (stored == 0 && !isForeign)
        return format;
    const int perInch = isForeign ? resolution : stored;
    QTextCharFormat result(format);
    for (int i = 0; i < cellLengthCount; ++i) {
        const int property = cellLengths[i];
        const QVariant kept = format.property(firstKeptLength + i);
        result.clearProperty(firstKeptLength + i);
        if (!format.hasProperty(property))
            continue;
        const double length = format.doubleProperty(property);
        const bool isKept = kept.isValid() && length == cellPixels(kept.toDouble(), property, perInch);
        result.setProperty(property, isKept ? kept.toDouble() : length * inchInPoints / perInch);
    }
    if (isForeign)
        result.setProperty(cellResolution, 0);
    else
        result.clearProperty(cellResolution);
    return result;
}
