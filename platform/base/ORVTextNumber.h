#ifndef ORVTEXTNUMBER_H
#define ORVTEXTNUMBER_H

#include "ORVPlatformGlobal.h"

#include <QtCore/QString>

/*! The numbers in the markers of lists. */
namespace ORVTextNumber {

/*!
    \a number in the format \a kind, a value of ORVTextListLevel::Kind, as QTextList has it: letters go on with
    aa, ab, ac behind z. Empty for bullets, and for what letters and roman digits cannot express; roman numbers
    beyond 4999 are "?". Kinds that are not known are decimal.
*/
ORV_PLATFORM_EXPORT QString text(unsigned kind, int number);

/*! The same as word processors have it: letters go on with aa, bb, cc behind z. */
ORV_PLATFORM_EXPORT QString wordProcessorText(unsigned kind, int number);

/*! The value of the roman number \a text, of either case; 0 where it is none. */
ORV_PLATFORM_EXPORT int romanValue(const QString& text);

} // namespace ORVTextNumber

#endif
