#ifndef ORVTEXTFORMAT_H
#define ORVTEXTFORMAT_H

#include "ORVPlatformGlobal.h"

#include <QtCore/QString>

class QTextCharFormat;
class QTextDocument;
class QTextImageFormat;

/*! The default character format of a document, and names of pictures. */
namespace ORVTextFormat {

/*!
    The default character format of \a document: the one stored with setDefaultCharFormat(), else a format
    with nothing but the family and point size of the document's default font (no point size when the font's
    size is in pixels and there is no QGuiApplication to convert it). A default-constructed format when \a
    document is null.
*/
ORV_PLATFORM_EXPORT QTextCharFormat defaultCharFormat(const QTextDocument* document);

/*!
    Stores \a format as the default character format of \a document and makes its font the document's
    default font. Does nothing when \a document is null.
*/
ORV_PLATFORM_EXPORT void setDefaultCharFormat(QTextDocument* document, const QTextCharFormat& format);

/*! The resource name of the picture that \a format shows. */
ORV_PLATFORM_EXPORT QString imageName(const QTextImageFormat& format);

} // namespace ORVTextFormat

#endif
