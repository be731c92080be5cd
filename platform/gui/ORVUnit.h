#ifndef ORVUNIT_H
#define ORVUNIT_H

#include "ORVPlatformGlobal.h"

/*!
    Conversion of lengths. A twip is 1/20 of a point and 1/1440 of an inch, a pixel 1/screenResolution() of an
    inch.
*/
namespace ORVUnit {

/*! \a twips in pixels, rounded to nearest, halves away from zero. */
ORV_PLATFORM_EXPORT int rtfTwipsToPixels(int twips);

/*! \a pixels in twips, rounded to nearest, halves away from zero, clamped to the range of an int. */
ORV_PLATFORM_EXPORT int rtfPixelsToTwips(int pixels);

/*! Resolution of the screen in dots per inch, 96 unless set. */
ORV_PLATFORM_EXPORT int screenResolution();

/*! Sets the resolution of the screen to \a dpi dots per inch. Values below 1 are ignored. Thread-safe. */
ORV_PLATFORM_EXPORT void setScreenResolution(int dpi);

} // namespace ORVUnit

#endif
