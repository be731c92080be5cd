#include "ORVRtfSink_p.h"

#include <QtCore/QIODevice>

#include <charconv>

void ORVRtfSink::begin()
{
    m_size = 0;
    m_failed = false;
}

bool ORVRtfSink::flush()
{
    if (m_size > 0)
        handOn(m_buffer.data(), m_size);
    m_size = 0;
    return !m_failed;
}

void ORVRtfSink::appendLatin1(const ushort* units, qint64 length)
{
    while (length > 0) {
        if (m_size == capacity)
            flush();
        const int count = int(qMin(length, qint64(capacity - m_size)));
        char* const bytes = m_buffer.data() + m_size;
        for (int i = 0; i < count; ++i)
            bytes[i] = char(units[i]);
        m_size += count;
        units += count;
        length -= count;
    }
}

void ORVRtfSink::appendNumber(int value)
{
    char digits[16];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof(digits), value);
    append(digits, end.ptr - digits);
}

void ORVRtfSink::appendBeyondBuffer(const char* bytes, qint64 length)
{
    flush();
    if (length > capacity)
        handOn(bytes, length);
    else
        append(bytes, length);
}

void ORVRtfSink::handOn(const char* bytes, qint64 length)
{
    if (!m_device || m_device->write(bytes, length) != length)
        m_failed = true;
}
