#ifndef ORVRTFHEXADECIMAL_P_H
#define ORVRTFHEXADECIMAL_P_H

#include <QtCore/QByteArray>

#include <array>

/*! Hexadecimal digits, which bytes and pictures are written in. */
namespace ORVRtfHexadecimal {

typedef std::array<signed char, 256> ValueTable;

constexpr ValueTable makeValues()
{
    ValueTable values{};
    for (size_t i = 0; i < values.size(); ++i)
        values[i] = -1;
    for (size_t i = 0; i < 10; ++i)
        values['0' + i] = static_cast<signed char>(i);
    for (size_t i = 0; i < 6; ++i)
        values['a' + i] = values['A' + i] = static_cast<signed char>(10 + i);
    return values;
}

// Megabytes of digits go through it: a table, as comparing costs several times as much.
inline constexpr ValueTable values = makeValues();

/*! The value of the digit \a c, in upper or lower case; -1 when it is none. */
inline int value(char c)
{
    return values[static_cast<unsigned char>(c)];
}

/*! The byte that the two digits at \a digits stand for; negative when one of them is none. */
inline int byte(const char* digits)
{
    return value(digits[0]) * 16 | value(digits[1]);
}

/*! How many of the \a length bytes at \a text are digits before the first that is none. */
int digitCount(const char* text, int length);

/*!
    Appends the bytes that the \a count digits at \a digits stand for. Of an odd number the first digit stands
    for a byte of its own.
*/
void appendDecoded(QByteArray& data, const char* digits, int count);

} // namespace ORVRtfHexadecimal

#endif
