#ifndef BORDERHELPERS_H
#define BORDERHELPERS_H

#include "ORVTextBorder.h"
#include "testsupport.h"

#include <QtCore/QStringList>

/*! Lines of cells and paragraphs as texts. */
namespace rtftest {

inline QString lineText(const ORVTextBorder& border)
{
    static const char* const styles[] = {"none",       "dotted", "dashed", "solid", "double", "dotdash",
                                         "dotdotdash", "groove", "ridge",  "inset", "outset"};
    QString text = QLatin1String(styles[border.style]) + QLatin1Char(' ') + QString::number(border.width);
    if (border.spacing != 0)
        text += QLatin1String(" at ") + QString::number(border.spacing);
    return border.color.isValid() ? text + QLatin1Char(' ') + border.color.name() : text;
}

/*! The lines that are visible, by the first letters of top, bottom, left and right. \a ofSide finds that of a side. */
template <typename Format>
QString linesText(const Format& format, ORVTextBorder (*ofSide)(const Format&, ORVTextBorder::Side))
{
    QStringList texts;
    for (int side = 0; side < ORVTextBorder::SideCount; ++side) {
        const ORVTextBorder border = ofSide(format, ORVTextBorder::Side(side));
        if (border.isVisible())
            texts << QLatin1Char("tblr"[side]) + QLatin1String(": ") + lineText(border);
    }
    return texts.join(QLatin1String(", "));
}

/*! The lines of a cell with \a format. */
inline QString cellLines(const QTextCharFormat& format)
{
    return linesText(format, ORVTextBorder::ofCell);
}

/*! The lines of a paragraph with \a format. */
inline QString paragraphLines(const QTextBlockFormat& format)
{
    return linesText(format, ORVTextBorder::ofParagraph);
}

} // namespace rtftest

#endif
