#include "ORVRtfBitmapFile_p.h"

#include "ORVRtfLimits_p.h"

#include <QtCore/QtEndian>

namespace {

const int fileHeaderSize = 14;
const int oldHeaderSize = 12;
const int infoHeaderSize = 40;
const quint32 uncompressed = 0;
const quint32 compressionBitFields = 3;

quint32 number32(const QByteArray& data, int offset)
{
    return qFromLittleEndian<quint32>(reinterpret_cast<const uchar*>(data.constData()) + offset);
}

quint16 number16(const QByteArray& data, int offset)
{
    return qFromLittleEndian<quint16>(reinterpret_cast<const uchar*>(data.constData()) + offset);
}

template <typename Number>
void append(QByteArray& data, Number number)
{
    uchar bytes[sizeof number];
    qToLittleEndian(number, bytes);
    data.append(reinterpret_cast<const char*>(bytes), int(sizeof number));
}

QByteArray fileHeader(qint64 dataSize, qint64 pixelOffset)
{
    QByteArray header("BM");
    append(header, quint32(fileHeaderSize + dataSize));
    append(header, quint32(0));
    append(header, quint32(fileHeaderSize + pixelOffset));
    return header;
}

/*! What the header of a device-independent bitmap states. */
struct Header {
    qint64 size = 0;
    qint64 width = 0;
    // Below zero: from the top down.
    qint64 height = 0;
    int bitsPerPixel = 0;
    quint32 compression = 0;
    quint32 colors = 0;
};

/*! A header of no size where \a data has none. */
Header headerOf(const QByteArray& data)
{
    Header header;
    if (data.size() < oldHeaderSize)
        return header;
    const quint32 size = number32(data, 0);
    if (size == oldHeaderSize) {
        header.width = number16(data, 4);
        header.height = number16(data, 6);
        header.bitsPerPixel = number16(data, 10);
    } else if (data.size() >= infoHeaderSize) {
        header.width = qint32(number32(data, 4));
        header.height = qint32(number32(data, 8));
        header.bitsPerPixel = number16(data, 14);
        header.compression = number32(data, 16);
        header.colors = number32(data, 32);
    } else {
        return header;
    }
    header.size = size;
    return header;
}

/*! Where the pixels begin, behind the header and the colours. */
qint64 pixelOffset(const Header& header)
{
    const qint64 colors = header.colors > 0 ? header.colors
        : header.bitsPerPixel <= 8          ? 1 << header.bitsPerPixel
                                            : 0;
    const int colorSize = header.size == oldHeaderSize ? 3 : 4;
    const bool hasMasks = header.size == infoHeaderSize && header.compression == compressionBitFields;
    return header.size + colorSize * colors + (hasMasks ? 12 : 0);
}

/*! Bytes of all pixels; 0 where they are compressed. */
qint64 pixelBytes(const Header& header)
{
    if (header.compression != uncompressed && header.compression != compressionBitFields)
        return 0;
    return (header.width * header.bitsPerPixel + 31) / 32 * 4 * qAbs(header.height);
}

} // namespace

QByteArray ORVRtfBitmapFile::fromDeviceIndependent(const QByteArray& data)
{
    if (data.startsWith("BM"))
        return data;
    const Header header = headerOf(data);
    if (header.size == 0 || header.width < 1
        || header.width * qAbs(header.height) > ORVRtfLimits::picturePixels)
        return QByteArray();
    const qint64 offset = pixelOffset(header);
    // Qt leaves pixels that are cut off as the memory was.
    const qint64 missing = offset + pixelBytes(header) - data.size();
    if (offset >= data.size() || missing > data.size())
        return QByteArray();
    return fileHeader(data.size(), offset) + data + QByteArray(int(qMax(qint64(0), missing)), '\0');
}

QByteArray ORVRtfBitmapFile::fromDevice(const DeviceBitmap& bitmap, const QByteArray& data)
{
    const int bits = bitmap.bitsPerPixel;
    const qint64 pixels = qint64(bitmap.size.width()) * bitmap.size.height();
    if (bitmap.size.isEmpty() || bitmap.planes != 1 || pixels > ORVRtfLimits::picturePixels
        || (bits != 1 && bits != 16 && bits != 24 && bits != 32))
        return QByteArray();
    const qint64 usedBytes = (qint64(bitmap.size.width()) * bits + 7) / 8;
    const qint64 rowBytes = bitmap.rowBytes > 0 ? bitmap.rowBytes : (usedBytes + 1) / 2 * 2;
    const qint64 fileRowBytes = (usedBytes + 3) / 4 * 4;
    if (rowBytes < usedBytes || data.size() < rowBytes * bitmap.size.height() / 2)
        return QByteArray();

    const int colors = bits == 1 ? 2 : 0;
    const qint64 offset = infoHeaderSize + 4 * colors;
    QByteArray file = fileHeader(offset + fileRowBytes * bitmap.size.height(), offset);
    append(file, quint32(infoHeaderSize));
    append(file, qint32(bitmap.size.width()));
    // Below zero: from the top down.
    append(file, qint32(-bitmap.size.height()));
    append(file, quint16(1));
    append(file, quint16(bits));
    // No compression, sizes and resolutions that follow from the rest, and the number of colours.
    for (const quint32 value : {0u, 0u, 0u, 0u, quint32(colors), 0u})
        append(file, value);
    if (colors > 0) {
        append(file, quint32(0x000000));
        append(file, quint32(0xFFFFFF));
    }
    for (int row = 0; row < bitmap.size.height(); ++row) {
        const QByteArray pixels = data.mid(int(row * rowBytes), int(usedBytes));
        file += pixels;
        file.append(int(fileRowBytes - pixels.size()), '\0');
    }
    return file;
}
