#ifndef ORVRTFSINK_P_H
#define ORVRTFSINK_P_H

#include "QtStringCompat_p.h"

#include <array>
#include <cstring>

class QIODevice;

/*!
    Bytes on their way to a device, handed on in pieces of a few kilobytes. The device belongs to the caller.

    Without a device the bytes are dropped, and the sink has failed.
*/
class ORVRtfSink {
public:
    /*! Bytes that are held back at most. */
    static constexpr int capacity = 8192;

    void setDevice(QIODevice* device) { m_device = device; }
    QIODevice* device() const { return m_device; }

    /*! Begins a new stream: nothing is held back and nothing has failed. */
    void begin();
    /*! Hands all bytes on. False when the device refused some, now or earlier. */
    bool flush();
    bool hasFailed() const { return m_failed; }

    void append(char byte)
    {
        if (m_size == capacity)
            flush();
        m_buffer[size_t(m_size++)] = byte;
    }
    void append(const char* bytes, qint64 length)
    {
        if (length > capacity - m_size) {
            appendBeyondBuffer(bytes, length);
            return;
        }
        std::memcpy(m_buffer.data() + m_size, bytes, size_t(length));
        m_size += int(length);
    }
    void append(QLatin1String text) { append(text.latin1(), compat::length(text)); }
    /*! Appends the lower bytes of \a length UTF-16 units. */
    void appendLatin1(const ushort* units, qint64 length);
    void appendNumber(int value);

private:
    void appendBeyondBuffer(const char* bytes, qint64 length);
    void handOn(const char* bytes, qint64 length);

    QIODevice* m_device = nullptr;
    std::array<char, capacity> m_buffer;
    int m_size = 0;
    bool m_failed = false;
};

#endif
