#ifndef ORVRTFWORDTABLE_P_H
#define ORVRTFWORDTABLE_P_H

#include "ORVTextRtfCommon.h"

/*!
    The control words by their spellings, as ORVTextRtfCommon::fromLatin1() finds them, in a table that the
    compiler makes. A twentieth of the time of reading goes into these look-ups.
*/
namespace ORVRtfWordTable {

/*! The control word that is spelled like the \a length bytes, at least two, at \a spelling, or NoKeyWord. */
ORVTextRtfCommon::KeyWord find(const char* spelling, int length);

} // namespace ORVRtfWordTable

#endif
