#ifndef ORVRTFHEXADECIMAL_P_H
#define ORVRTFHEXADECIMAL_P_H

#include <QtCore/QByteArray>

/*! Hexadecimal digits, which bytes and pictures are written in. */
namespace ORVRtfHexadecimal {

/*! The value of the digit \a c, in upper or lower case; -1 when it is none. */
int value(char c);

/*! How many of the \a length bytes at \a text are digits before the first that is none. */
int digitCount(const char* text, int length);

/*!
    Appends the bytes that the \a count digits at \a digits stand for. Of an odd number the first digit stands
    for a byte of its own.
*/
void appendDecoded(QByteArray& data, const char* digits, int count);

} // namespace ORVRtfHexadecimal

#endif
