#ifndef ORVRTF_COLORS_H
#define ORVRTF_COLORS_H

#include <QBrush>
#include <QTextFormat>

/*! Colours of formats as they are compared: invalid where nothing is painted. */
namespace Colors {

inline QColor of(const QBrush& brush)
{
    return brush.style() == Qt::NoBrush ? QColor() : brush.color();
}

/*! That of the brush that \a format has under \a property. */
inline QColor of(const QTextFormat& format, int property)
{
    return format.hasProperty(property) ? of(format.brushProperty(property)) : QColor();
}

} // namespace Colors

#endif
