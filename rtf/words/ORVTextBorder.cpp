#include "ORVTextBorder.h"

#include "ORVRtfProperties.h"
#include "QtFormatCompat_p.h"

#include <QtGui/QBrush>

ORVTextBorder::ORVTextBorder() : style(QTextFrameFormat::BorderStyle_None), width(0), spacing(0) { }

bool ORVTextBorder::operator==(const ORVTextBorder& other) const
{
    return style == other.style && width == other.width && spacing == other.spacing && color == other.color;
}

QTextFrameFormat::BorderStyle ORVTextBorder::styleOf(int style)
{
    const bool isKnown =
        style >= QTextFrameFormat::BorderStyle_None && style <= QTextFrameFormat::BorderStyle_Outset;
    return isKnown ? QTextFrameFormat::BorderStyle(style) : QTextFrameFormat::BorderStyle_Solid;
}

ORVTextBorder ORVTextBorder::ofParagraph(const QTextBlockFormat& format, Side side)
{
    ORVTextBorder border;
    border.style = styleOf(format.intProperty(ORVRtfProperty::BorderStyle + side));
    border.width = format.doubleProperty(ORVRtfProperty::BorderWidth + side);
    border.spacing = format.doubleProperty(ORVRtfProperty::BorderSpacing + side);
    border.color = qvariant_cast<QColor>(format.property(ORVRtfProperty::BorderColor + side));
    return border;
}

void ORVTextBorder::setToParagraph(QTextBlockFormat& format, Side side) const
{
    // An invalid value removes the property.
    const auto set = [&](int property, bool isStated, const QVariant& value) {
        format.setProperty(property + side, isStated ? value : QVariant());
    };
    set(ORVRtfProperty::BorderStyle, isVisible(), int(style));
    set(ORVRtfProperty::BorderWidth, isVisible(), width);
    set(ORVRtfProperty::BorderSpacing, isVisible() && spacing != 0, spacing);
    set(ORVRtfProperty::BorderColor, isVisible() && color.isValid(), color);
}

ORVTextBorder ORVTextBorder::ofCell(const QTextCharFormat& format, Side side)
{
    ORVTextBorder border;
    border.style = styleOf(format.intProperty(compat::tableCellBorderStyle + side));
    border.width = format.doubleProperty(compat::tableCellBorder + side);
    border.color = compat::brushColor(format, compat::tableCellBorderBrush + side);
    return border;
}

void ORVTextBorder::setToCell(QTextCharFormat& format, Side side) const
{
    format.setProperty(compat::tableCellBorder + side, isVisible() ? width : 0.0);
    format.setProperty(compat::tableCellBorderStyle + side,
                       int(isVisible() ? style : QTextFrameFormat::BorderStyle_None));
    if (isVisible() && color.isValid())
        format.setProperty(compat::tableCellBorderBrush + side, QBrush(color));
    else
        format.clearProperty(compat::tableCellBorderBrush + side);
}
