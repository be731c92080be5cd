#ifndef ORVUNIT_H
#define ORVUNIT_H

#include "ORVPlatformGlobal.h"

/*! Lengths: a twip is 1/20 of a point and 1/1440 of an inch; a pixel is 1/screenResolution() of an inch. */
namespace ORVUnit {

/*! \a twips in pixels, to the nearest integer, halves away from zero. */
ORV_PLATFORM_EXPORT int rtfTwipsToPixels(int twips);

/*! \a pixels in twips, to the nearest integer, halves away from zero, clamped to the range of an int. */
ORV_PLATFORM_EXPORT int rtfPixelsToTwips(int pixels);

/*! Dots per inch that the conversions count with: 96 unless set. */
ORV_PLATFORM_EXPORT int screenResolution();

/*! Makes the conversions count with \a dpi dots per inch; values below 1 are ignored. Thread-safe. */
ORV_PLATFORM_EXPORT void setScreenResolution(int dpi);

} // namespace ORVUnit

#endif
