#ifndef ORVHEADING_P_H
#define ORVHEADING_P_H

#include "ORVRtfProperties.h"
#include "QtFormatCompat_p.h"

/*!
    The level of a heading. Qt's property for it and the line spacing of the application are one id, under
    which there is an int or a double: a heading with a line spacing has its level elsewhere.
*/
namespace ORVHeading {

inline bool hasLineSpacing(const QTextBlockFormat& format)
{
    return format.property(ORVRtfProperty::LineSpacing).userType() == QMetaType::Double;
}

/*! The level of \a format, from 1; 0 for no heading. */
inline int level(const QTextBlockFormat& format)
{
    return format.intProperty(hasLineSpacing(format) ? int(ORVRtfProperty::HeadingLevel)
                                                     : compat::headingLevel);
}

/*! Makes \a format that of a heading of \a level, or of none if that is 0. */
inline void setLevel(QTextBlockFormat& format, int level)
{
    const int property = hasLineSpacing(format) ? int(ORVRtfProperty::HeadingLevel) : compat::headingLevel;
    if (level > 0)
        format.setProperty(property, level);
    else
        format.clearProperty(property);
}

/*! Sets the line spacing, in points; the level stays. */
inline void setLineSpacing(QTextBlockFormat& format, double spacing)
{
    const int heading = level(format);
    format.setProperty(ORVRtfProperty::LineSpacing, spacing);
    if (heading > 0)
        setLevel(format, heading);
}

} // namespace ORVHeading

#endif
