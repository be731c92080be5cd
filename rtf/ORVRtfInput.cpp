#include "ORVRtfInput_p.h"

#include <QtCore/QIODevice>

namespace {

// Bytes fetched beyond the one asked for, and the most that one look-ahead fetches.
const int lookAhead = 256;
const int largestFetch = 1024;
// The consumed part of the buffer is dropped in pieces of this size.
const int trimSize = 1024;

bool isSpecial(char c)
{
    return c == '\\' || c == '{' || c == '}' || c == '\n' || c == '\r';
}

bool isHexadecimalDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

} // namespace

bool ORVRtfInput::fetch(qint64 index)
{
    if (m_device && m_device->isReadable() && !m_device->atEnd()) {
        const qint64 wanted = index + lookAhead - m_buffer.size();
        m_buffer += m_device->readLine(qMin(wanted, qint64(largestFetch)));
    }
    return index < m_buffer.size();
}

int ORVRtfInput::textLength() const
{
    const char* const text = data();
    const int limit = available();
    int length = 1;
    while (length < limit && !isSpecial(text[length]))
        ++length;
    return length;
}

void ORVRtfInput::release(int count)
{
    m_position += count;
    if (m_position > trimSize) {
        m_buffer.remove(0, trimSize);
        m_position -= trimSize;
    }
}

void ORVRtfInput::skip(qint64 count)
{
    bool ok = true;
    while (count > 0) {
        charAt(0, &ok);
        if (!ok)
            return;
        const int step = int(qMin(count, qint64(available())));
        release(step);
        count -= step;
    }
}

QByteArray ORVRtfInput::takeHexadecimalDigits(int limit)
{
    int count = 0;
    while (count < limit && isHexadecimalDigit(charAt(count)))
        ++count;
    QByteArray digits(data(), count);
    release(count);
    return digits;
}

bool ORVRtfInput::isFetched() const
{
    return !m_device || m_device->atEnd();
}

qint64 ORVRtfInput::pos() const
{
    return (m_device ? m_device->pos() : 0) + m_position;
}
