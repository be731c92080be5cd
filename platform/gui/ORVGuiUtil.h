#ifndef ORVGUIUTIL_H
#define ORVGUIUTIL_H

#include "ORVPlatformGlobal.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

class QImage;

/*! Names and encodings of pictures. */
namespace ORVGuiUtil {

/*!
    A name for \a image under which a document can store it: images with equal pixel format, size, colour
    table and pixels have equal names, others differ (it is a cryptographic hash of the four). The name is an
    absolute URL, which never leads to a file. Empty for a null image.
*/
ORV_PLATFORM_EXPORT QString resourceId(const QImage& image);

/*!
    \a image encoded as \a format ("PNG", "JPEG", …) with \a quality from 0 to 100, or -1 for the format's
    default; values beyond are clamped. Empty when the image is null or Qt cannot write the format.
*/
ORV_PLATFORM_EXPORT QByteArray toByteArray(const QImage& image, const char* format, int quality);

} // namespace ORVGuiUtil

#endif
