#ifndef ORVROUNDING_P_H
#define ORVROUNDING_P_H

#include <QtCore/qglobal.h>

#include <cmath>
#include <limits>

/*!
    Rounding of lengths. qRound() is not used: its treatment of negative halves differs between versions of
    Qt. Every function clamps values beyond the range of int, and gives 0 for NaN.
*/
namespace ORVRounding {

/*! The integral number \a value as an int. */
inline int clamped(double value)
{
    if (std::isnan(value))
        return 0;
    return int(
        qBound(double(std::numeric_limits<int>::min()), value, double(std::numeric_limits<int>::max())));
}

/*! The nearest integer, halves away from zero. */
inline int halfAway(double value)
{
    return clamped(value < 0 ? std::ceil(value - 0.5) : std::floor(value + 0.5));
}

/*! The nearest integer, halves going up. */
inline int halfUp(double value)
{
    return clamped(std::floor(value + 0.5));
}

/*!
    The integer part of \a value. A value less than a millionth below an integer is treated as that integer,
    so that binary fractions do not make a length shrink each time it is stored.
*/
inline int truncated(double value)
{
    const double tolerance = 1e-6;
    return clamped(value < 0 ? std::ceil(value - tolerance) : std::floor(value + tolerance));
}

} // namespace ORVRounding

#endif
