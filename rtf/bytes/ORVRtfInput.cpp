#include "ORVRtfInput_p.h"

#include "ORVRtfHexadecimal_p.h"

#include <QtCore/QIODevice>

#include <array>
#include <cstring>

namespace {

// Bytes fetched beyond the ones asked for, and the most that one look-ahead fetches.
const int lookAhead = 255;
const int largestFetch = 1023;
// The consumed part of the window is dropped in pieces of this size.
const int trimSize = 1024;
// Bytes read from the device at a time.
const int pieceSize = 8192;

typedef std::array<bool, 256> ByteSet;

constexpr ByteSet makeSpecialBytes()
{
    ByteSet bytes{};
    bytes['\\'] = bytes['{'] = bytes['}'] = bytes['\n'] = bytes['\r'] = true;
    return bytes;
}

// A table, as comparing costs twice as much.
constexpr ByteSet specialBytes = makeSpecialBytes();

} // namespace

bool ORVRtfInput::isSpecial(char byte)
{
    return specialBytes[static_cast<unsigned char>(byte)];
}

bool ORVRtfInput::fetch(qint64 offset)
{
    if (m_device && m_device->isReadable())
        growWindow(qMin(m_position + offset + lookAhead - m_windowEnd, qint64(largestFetch)));
    return m_position + offset < m_windowEnd;
}

/*! Adds up to \a limit bytes to the window, to the end of a line at most. */
void ORVRtfInput::growWindow(qint64 limit)
{
    qint64 searched = 0;
    for (;;) {
        const qint64 present = qMin(limit, m_buffer.size() - m_windowEnd);
        const char* const begin = m_buffer.constData() + m_windowEnd;
        const void* const lineEnd = std::memchr(begin + searched, '\n', size_t(present - searched));
        if (lineEnd) {
            m_windowEnd += static_cast<const char*>(lineEnd) - begin + 1;
            return;
        }
        if (present == limit || !readDevice()) {
            m_windowEnd += present;
            return;
        }
        searched = present;
    }
}

/*!
    Drops what lies before the window, once that is at least as much as what stays: a window that look-ahead
    has made long is not moved for every piece.
*/
void ORVRtfInput::dropConsumed()
{
    if (m_windowStart < m_buffer.size() - m_windowStart)
        return;
    m_buffer.remove(0, int(m_windowStart));
    m_windowEnd -= m_windowStart;
    m_position -= m_windowStart;
    m_windowStart = 0;
}

/*! Reads the next piece; false when there is none. */
bool ORVRtfInput::readDevice()
{
    if (m_device->atEnd())
        return false;
    dropConsumed();
    const int size = int(m_buffer.size());
    m_buffer.resize(size + pieceSize);
    const qint64 count = m_device->read(m_buffer.data() + size, pieceSize);
    m_buffer.resize(size + int(qMax(count, qint64(0))));
    return count > 0;
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
    m_position = qMin(m_position + count, m_windowEnd);
    if (m_position - m_windowStart > trimSize)
        m_windowStart += trimSize;
}

/*! Moves over \a count bytes, handing each piece to \a use. */
template <typename Use>
void ORVRtfInput::useBytes(qint64 count, Use use)
{
    bool ok = true;
    while (count > 0) {
        charAt(0, &ok);
        if (!ok)
            return;
        const int step = int(qMin(count, qint64(available())));
        use(data(), step);
        release(step);
        count -= step;
    }
}

void ORVRtfInput::skipBytes(qint64 count)
{
    useBytes(count, [](const char*, int) {});
}

void ORVRtfInput::takeBytes(qint64 count, QByteArray& bytes)
{
    useBytes(count, [&bytes](const char* piece, int size) { bytes.append(piece, size); });
}

int ORVRtfInput::hexadecimalDigits(int limit)
{
    int count = 0;
    bool ok = true;
    while (ok) {
        count += ORVRtfHexadecimal::digitCount(data() + count, qMin(available(), limit) - count);
        if (count == limit || count < available())
            break;
        charAt(count, &ok);
    }
    return count;
}

qint64 ORVRtfInput::pos() const
{
    const qint64 inWindow = m_position - m_windowStart;
    if (!m_device)
        return inWindow;
    // A device without random access has no position that reading changes.
    const qint64 ahead = m_device->isSequential() ? 0 : m_buffer.size() - m_windowEnd;
    return m_device->pos() - ahead + inWindow;
}
