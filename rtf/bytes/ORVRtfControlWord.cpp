#include "ORVRtfControlWord_p.h"

#include "ORVRtfWordTable_p.h"

namespace {

bool isLetter(char c)
{
    return unsigned((c | 0x20) - 'a') <= 'z' - 'a';
}

bool isDigit(char c)
{
    return unsigned(c - '0') <= 9;
}

ORVRtfControlWord failed(ORVRtfControlWord::Status status)
{
    ORVRtfControlWord word;
    word.status = status;
    return word;
}

} // namespace

void ORVRtfControlWord::find(const char* spelling, int size, FindPrivate findPrivate)
{
    keyWord = ORVRtfWordTable::find(spelling, size);
    if (keyWord == ORVTextRtfCommon::NoKeyWord && findPrivate)
        privateWord = findPrivate(spelling, size);
}

ORVRtfControlWord ORVRtfControlWord::scan(const char* data, int available, FindPrivate findPrivate)
{
    const int limit = qMin(available, longest);
    if (limit < 2)
        return failed(CutOff);

    ORVRtfControlWord word;
    int end = 1;
    if (!isLetter(data[end])) {
        word.length = 2;
        word.find(data, word.length, findPrivate);
        return word;
    }
    while (end < limit && isLetter(data[end]))
        ++end;
    if (end == limit)
        return failed(TooLong);
    word.find(data, end, findPrivate);

    // A hyphen belongs to the word even when no digit follows it.
    const bool negative = data[end] == '-';
    if (negative)
        ++end;

    // Digits beyond the range of an int wrap around.
    unsigned int magnitude = 0;
    for (; end < limit && isDigit(data[end]); ++end) {
        magnitude = magnitude * 10 + unsigned(data[end] - '0');
        word.hasParameter = true;
    }
    word.parameter = int(negative ? 0u - magnitude : magnitude);

    if (end < available && data[end] == ' ')
        ++end;
    word.length = end;
    return word;
}
