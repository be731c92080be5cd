#include "ORVRtfRowLook_p.h"

namespace {

// Twips: RTF knows no wider page, and no wider padding.
const int widestPadding = 31680;

} // namespace

void ORVRtfRowLook::closeCell(int definitions)
{
    cells.resize(definitions);
    cells.last() = ORVRtfCellLook();
}

int ORVRtfRowLook::paddingOf(const ORVRtfCellLook& cell, ORVTextBorder::Side side) const
{
    const bool isBeside = side == ORVTextBorder::Left || side == ORVTextBorder::Right;
    int length = isBeside ? gap : 0;
    if (cell.padding[side].isTwips())
        length = cell.padding[side].length;
    else if (padding[side].isTwips())
        length = padding[side].length;
    return qBound(0, length, widestPadding);
}

QColor ORVRtfRowLook::colorOf(const ORVRtfCellLook& cell) const
{
    return cell.shading.isStated || cell.shading.isRawStated ? cell.shading.color() : shading.color();
}
