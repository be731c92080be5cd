#ifndef ORVRTFINPUT_P_H
#define ORVRTFINPUT_P_H

#include <QtCore/QByteArray>

class QIODevice;

/*!
    The bytes of a device as the tokenizer sees them: a window that grows by a line at a time, with a read
    position in it.

    A look-ahead fetches at most one line, so it can fail before the end of the input. This is part of how
    RTF is read here: it bounds, for example, the size of binary data. The device itself is read in larger
    pieces; window and piece stay below a few kilobytes whatever the size of the input.
*/
class ORVRtfInput {
public:
    /*! The device belongs to the caller. */
    void setDevice(QIODevice* device) { m_device = device; }
    QIODevice* device() const { return m_device; }

    /*!
        The byte \a offset bytes behind the read position, fetching one more line when needed. When there is
        no such byte the result is "?", and \a ok, unless null, is set to false.
    */
    char charAt(qint64 offset, bool* ok = nullptr)
    {
        const bool available = m_position + offset < m_windowEnd || fetch(offset);
        if (ok)
            *ok = available;
        return available ? data()[offset] : '?';
    }

    /*! The buffered bytes from the read position on. */
    const char* data() const { return m_buffer.constData() + m_position; }
    int available() const { return int(m_windowEnd - m_position); }

    /*! Whether \a byte is a backslash, a brace or a line end. */
    static bool isSpecial(char byte);

    /*!
        How many buffered bytes from the read position on, at least one, are no backslash, no brace and no
        line end; the first is not looked at.
    */
    int textLength() const;

    /*! Moves the read position over \a count buffered bytes. */
    void release(int count);
    /*! The same for bytes that need not be buffered, as far as the input goes. */
    void skipBytes(qint64 count);
    /*! The same, with the bytes appended to \a bytes. */
    void takeBytes(qint64 count, QByteArray& bytes);
    /*!
        How many hexadecimal digits stand at the read position, up to \a limit; they are buffered then. Each
        is looked for with charAt(), so they may go across refills.
    */
    int hexadecimalDigits(int limit);

    /*! Position of the end of the window in the device, plus the read position in the window. */
    qint64 pos() const;

private:
    template <typename Use>
    void useBytes(qint64 count, Use use);
    bool fetch(qint64 offset);
    void growWindow(qint64 limit);
    bool readDevice();
    void dropConsumed();

    QIODevice* m_device = nullptr;
    // What was read and is not yet dropped. The window is a part of it; what stands behind was only read.
    QByteArray m_buffer;
    qint64 m_windowStart = 0;
    qint64 m_windowEnd = 0;
    qint64 m_position = 0;
};

#endif
