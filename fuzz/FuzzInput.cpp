#include "FuzzInput.h"

#include <climits>
#include <limits>

namespace {

// Characters that are written in a form of their own, or that Qt gives a meaning.
const ushort oddUnits[] = {0x0000, 0x0001, 0x0009, 0x000A, 0x000D, 0x001F, 0x007B, 0x007D, 0x005C,
                           0x007F, 0x0085, 0x0098, 0x00A0, 0x00AD, 0x20DC, 0x2013, 0x2014, 0x2018,
                           0x201D, 0x2022, 0x2028, 0x2029, 0x20AC, 0xD83D, 0xDE00, 0xE000, 0xE001,
                           0xE002, 0xFDD0, 0xFDD1, 0xFFFC, 0xFFFD, 0xFFFE, 0xFFFF};
const int oddUnitCount = int(sizeof(oddUnits) / sizeof(oddUnits[0]));
// From here on a byte of a text stands for one of the odd units.
const int firstOddByte = 0xC0;

const int absurdIntegers[] = {0, -1, 1, INT_MAX, INT_MIN, INT_MAX / 20, 32767, 32768, 65536, 1000000};

const double absurdReals[] = {0.0,
                              -0.0,
                              -1.0,
                              1e-7,
                              0.05,
                              1e9,
                              1.2e9,
                              -1e300,
                              1e300,
                              std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::denorm_min(),
                              double(INT_MAX),
                              double(INT_MIN)};

} // namespace

FuzzInput::FuzzInput(const std::uint8_t* data, std::size_t size)
    : m_bytes(reinterpret_cast<const char*>(data), int(size))
{
}

int FuzzInput::nextByte()
{
    if (m_bytes.isEmpty())
        return 0;
    const int byte = uchar(m_bytes.at(m_bytes.size() - 1));
    m_bytes.chop(1);
    return byte;
}

int FuzzInput::choice(int bound)
{
    return nextByte() % bound;
}

int FuzzInput::integer()
{
    const int kind = choice(4);
    if (kind < 3)
        return nextByte() - 16;
    return absurdIntegers[choice(int(sizeof(absurdIntegers) / sizeof(absurdIntegers[0])))];
}

double FuzzInput::real()
{
    const int kind = choice(4);
    if (kind < 2)
        return nextByte() - 16;
    if (kind == 2)
        return (nextByte() * 256 + nextByte()) / 20.0;
    return absurdReals[choice(int(sizeof(absurdReals) / sizeof(absurdReals[0])))];
}

QByteArray FuzzInput::bytes(int longest)
{
    const QByteArray taken = m_bytes.left(longest);
    m_bytes.remove(0, longest);
    return taken;
}

QString FuzzInput::text(int longest)
{
    QString result;
    const QByteArray units = bytes(longest);
    for (char c : units) {
        const int byte = uchar(c);
        result += QChar(byte < firstOddByte ? ushort(byte) : oddUnits[(byte - firstOddByte) % oddUnitCount]);
    }
    return result;
}

QByteArray FuzzInput::restBut(int kept)
{
    return bytes(qMax(0, int(m_bytes.size()) - kept));
}
