#ifndef ORV_H
#define ORV_H

#include "ORVPlatformGlobal.h"

#include <QtCore/QStringList>

/*! The MIME types of RTF on the clipboard. */
namespace ORV {

/*!
    The MIME types under which the application offers and accepts RTF, in order of preference: "text/rtf",
    "application/rtf", "text/richtext" and, on Windows and macOS, the native name.
*/
ORV_PLATFORM_EXPORT QStringList rtfMimeTypes();

/*! The MIME type of the application's own flavour of RTF: "application/x-orvelline-markup-rtf" in Latin-1. */
extern ORV_PLATFORM_EXPORT const char* OrvellineMarkupRtfMimeType;

} // namespace ORV

#endif
