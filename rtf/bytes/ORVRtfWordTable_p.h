#ifndef ORVRTFWORDTABLE_P_H
#define ORVRTFWORDTABLE_P_H

#include "ORVTextRtfCommon.h"

/*!
    The control words by their spellings, in a table that the compiler makes. It has what
    ORVTextRtfCommon::fromLatin1() finds, for the one place where every control word of a file is looked up.
*/
namespace ORVRtfWordTable {

/*! The control word that is spelled like the \a length bytes, at least two, at \a spelling, or NoKeyWord. */
ORVTextRtfCommon::KeyWord find(const char* spelling, int length);

} // namespace ORVRtfWordTable

#endif
