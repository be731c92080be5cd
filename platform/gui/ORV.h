#ifndef ORV_H
#define ORV_H

#include "ORVPlatformGlobal.h"

#include <QtCore/QStringList>

/*! The types under which RTF is on the clipboard. */
namespace ORV {

/*!
    The mime types under which the application offers and accepts RTF, in the order in which they are tried:
    "text/rtf", "application/rtf", "text/richtext" and, on Windows and macOS, the platform's own name.
*/
ORV_PLATFORM_EXPORT QStringList rtfMimeTypes();

/*! The mime type of the application's own flavour of RTF, Latin-1: "application/x-orvelline-markup-rtf". */
extern ORV_PLATFORM_EXPORT const char* OrvellineMarkupRtfMimeType;

} // namespace ORV

#endif
