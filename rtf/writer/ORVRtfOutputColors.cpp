#include "ORVRtfOutputColors_p.h"

void ORVRtfOutputColors::appendMissing(const QColor& color)
{
    if (!color.isValid())
        return;
    if (m_colors.isEmpty()) {
        append(QColor(Qt::black).rgb());
        append(QColor(Qt::white).rgb());
    }
    if (!m_numbers.contains(color.rgb()))
        append(color.rgb());
}

void ORVRtfOutputColors::append(QRgb color)
{
    m_colors.append(color);
    m_numbers.insert(color, int(m_colors.size()));
}

int ORVRtfOutputColors::number(const QColor& color) const
{
    return m_numbers.value(color.rgb(), 1);
}
