#include "ORVRtfCellFormats_p.h"

#include "ORVRtfUnits_p.h"

namespace {

const int paddingProperties[] = {QTextFormat::TableCellTopPadding, QTextFormat::TableCellBottomPadding,
                                 QTextFormat::TableCellLeftPadding, QTextFormat::TableCellRightPadding};

} // namespace

QTextCharFormat ORVRtfCellFormats::format(const ORVRtfBorder* borders, const int* padding)
{
    // The bytes of a border are its members, with nothing between them.
    static_assert(sizeof(ORVRtfBorder) == 2 * sizeof(int) + 2 * sizeof(qint16),
                  "bytes of equal borders may differ");
    const int sides = ORVTextBorder::SideCount;
    QByteArray key(reinterpret_cast<const char*>(borders), int(sides * sizeof *borders));
    key.append(reinterpret_cast<const char*>(padding), int(sides * sizeof *padding));
    const QHash<QByteArray, QTextCharFormat>::const_iterator known = m_formats.constFind(key);
    if (known != m_formats.constEnd())
        return *known;
    QTextCharFormat format;
    for (int side = 0; side < sides; ++side) {
        const ORVTextBorder border = borders[side].border();
        if (!border.isVisible())
            continue;
        border.setToCell(format, ORVTextBorder::Side(side));
        m_hasLines = true;
    }
    for (int side = 0; side < sides; ++side) {
        if (padding[side] > 0)
            format.setProperty(paddingProperties[side], ORVRtfUnits::points(padding[side]));
    }
    m_formats.insert(key, format);
    return format;
}
