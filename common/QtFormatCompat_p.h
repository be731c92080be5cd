#ifndef QTFORMATCOMPAT_P_H
#define QTFORMATCOMPAT_P_H

#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtGui/QColor>
#include <QtGui/QTextFormat>

/*! Properties of text formats, where the supported versions of Qt differ or invent values. */
namespace compat {

/*! The property by which neighbouring cells of a table share one border line; older Qt versions ignore it. */
#if QT_VERSION >= QT_VERSION_CHECK(5, 14, 0)
const int tableBorderCollapse = QTextFormat::TableBorderCollapse;
#else
const int tableBorderCollapse = 0x4105;
#endif

/*!
    The properties of the top border of a table cell: width, kind and brush. Those of bottom, left and right
    follow each. Older Qt versions ignore them.
*/
#if QT_VERSION >= QT_VERSION_CHECK(5, 14, 0)
const int tableCellBorder = QTextFormat::TableCellTopBorder;
const int tableCellBorderStyle = QTextFormat::TableCellTopBorderStyle;
const int tableCellBorderBrush = QTextFormat::TableCellTopBorderBrush;
#else
const int tableCellBorder = 0x4816;
const int tableCellBorderStyle = 0x481a;
const int tableCellBorderBrush = 0x481e;
#endif

/*! The level of a heading, as an int; older Qt versions ignore it. */
#if QT_VERSION >= QT_VERSION_CHECK(5, 12, 0)
const int headingLevel = QTextFormat::HeadingLevel;
#else
const int headingLevel = 0x1070;
#endif

/*! The colour of the solid brush stored under \a propertyId, invalid when there is none. */
inline QColor brushColor(const QTextFormat& format, int propertyId)
{
    return qvariant_cast<QColor>(format.property(propertyId));
}

/*! The text that Qt writes after the numbers of a list: a point, unless \a format states something else. */
inline QString numberSuffix(const QTextListFormat& format)
{
    return format.hasProperty(QTextFormat::ListNumberSuffix) ? format.numberSuffix()
                                                             : QString(QLatin1Char('.'));
}

} // namespace compat

#endif
