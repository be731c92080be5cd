#include "ORVUnit.h"

#include <atomic>
#include <limits>

namespace {

const int twipsPerInch = 1440;
std::atomic<int> dotsPerInch(96);

/*! value * numerator / denominator, computed in 64 bits, rounded (halves away from zero) and clamped. */
int scaled(int value, int numerator, int denominator)
{
    const qint64 product = qint64(value) * numerator;
    const qint64 remainder = product % denominator;
    qint64 result = product / denominator;
    if (2 * qAbs(remainder) >= denominator)
        result += product < 0 ? -1 : 1;
    return int(
        qBound(qint64(std::numeric_limits<int>::min()), result, qint64(std::numeric_limits<int>::max())));
}

} // namespace

int ORVUnit::rtfTwipsToPixels(int twips)
{
    return scaled(twips, screenResolution(), twipsPerInch);
}

int ORVUnit::rtfPixelsToTwips(int pixels)
{
    return scaled(pixels, twipsPerInch, screenResolution());
}

int ORVUnit::screenResolution()
{
    return dotsPerInch.load();
}

void ORVUnit::setScreenResolution(int dpi)
{
    if (dpi >= 1)
        dotsPerInch.store(dpi);
}
