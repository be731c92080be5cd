#include "ORVRtfHexadecimal_p.h"

#include <array>

namespace {

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
constexpr ValueTable values = makeValues();

int valueOf(char c)
{
    return values[static_cast<unsigned char>(c)];
}

} // namespace

int ORVRtfHexadecimal::value(char c)
{
    return valueOf(c);
}

int ORVRtfHexadecimal::digitCount(const char* text, int length)
{
    int count = 0;
    while (count < length && valueOf(text[count]) >= 0)
        ++count;
    return count;
}

void ORVRtfHexadecimal::appendDecoded(QByteArray& data, const char* digits, int count)
{
    const int size = int(data.size());
    data.resize(size + (count + 1) / 2);
    char* byte = data.data() + size;
    const char* const end = digits + count;
    if (count % 2 == 1)
        *byte++ = char(valueOf(*digits++));
    for (; digits != end; digits += 2)
        *byte++ = char(valueOf(digits[0]) << 4 | valueOf(digits[1]));
}
