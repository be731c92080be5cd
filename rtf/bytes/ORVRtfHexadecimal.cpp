#include "ORVRtfHexadecimal_p.h"

int ORVRtfHexadecimal::digitCount(const char* text, int length)
{
    int count = 0;
    while (count < length && value(text[count]) >= 0)
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
        *byte++ = char(value(*digits++));
    for (; digits != end; digits += 2)
        *byte++ = char(value(digits[0]) << 4 | value(digits[1]));
}
