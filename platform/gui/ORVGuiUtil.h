#ifndef ORVGUIUTIL_H
#define ORVGUIUTIL_H

#include "ORVPlatformGlobal.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

class QImage;

/*! Resource names and encoding of pictures. */
namespace ORVGuiUtil {

/*!
    A resource name for \a image. Images with equal pixel format, size, colour table and pixels have equal
    names, other images have different ones (it is a cryptographic hash). The name is an absolute URL that
    never refers to a file. Empty for a null image.
*/
ORV_PLATFORM_EXPORT QString resourceId(const QImage& image);

/*!
    \a image encoded as \a format ("PNG", "JPEG", …) with \a quality from 0 to 100, or -1 for the format's
    default. Other values are clamped. Empty when the image is null or Qt cannot write the format.
*/
ORV_PLATFORM_EXPORT QByteArray toByteArray(const QImage& image, const char* format, int quality);

} // namespace ORVGuiUtil

#endif
