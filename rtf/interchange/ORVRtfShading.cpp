#include "ORVRtfShading_p.h"

QColor ORVRtfShading::color() const
{
    if (m_coverage == 0)
        return background;
    const QColor behind = background.isValid() ? background : QColor(Qt::white);
    const QColor before = foreground.isValid() ? foreground : QColor(Qt::black);
    const auto mixed = [this](int back, int front) {
        return (back * (complete - m_coverage) + front * m_coverage + complete / 2) / complete;
    };
    return QColor(mixed(behind.red(), before.red()), mixed(behind.green(), before.green()),
                  mixed(behind.blue(), before.blue()));
}
