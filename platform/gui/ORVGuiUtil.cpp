#include "ORVGuiUtil.h"

#include "QtStringCompat_p.h"

#include <QtCore/QBuffer>
#include <QtCore/QCryptographicHash>
#include <QtCore/QVector>
#include <QtCore/QtEndian>
#include <QtGui/QColor>
#include <QtGui/QImage>

namespace {

/*! The strongest hash that is always there. */
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
const QCryptographicHash::Algorithm strongHash = QCryptographicHash::Sha256;
#else
const QCryptographicHash::Algorithm strongHash = QCryptographicHash::Sha1;
#endif

void addNumber(QCryptographicHash* hash, qint32 number)
{
    const qint32 littleEndian = qToLittleEndian(number);
    hash->addData(QByteArray(reinterpret_cast<const char*>(&littleEndian), sizeof littleEndian));
}

/*! The bits of a scanline's last byte that belong to pixels; 0xff when all do. */
uchar lastByteMask(const QImage& image)
{
    const int usedBits = int(qint64(image.width()) * image.depth() % 8);
    if (usedBits == 0)
        return 0xff;
    return image.format() == QImage::Format_MonoLSB ? uchar((1 << usedBits) - 1)
                                                    : uchar(0xff << (8 - usedBits));
}

/*!
    Clears the bits after the last pixel of each line. They can have any value, and encoders would write them.
*/
QImage withoutStrayBits(const QImage& image)
{
    const uchar mask = lastByteMask(image);
    if (mask == 0xff)
        return image;
    QImage result(image);
    const int last = int(qint64(image.width()) * image.depth() / 8);
    for (int y = 0; y < result.height(); ++y)
        result.scanLine(y)[last] &= mask;
    return result;
}

/*!
    Reads scanlines with everything masked out that is no pixel and can have any value: bytes beyond the
    width, the unused bits of the last byte, and the unused byte of Format_RGB32.
*/
class ScanlineReader {
public:
    explicit ScanlineReader(const QImage& image)
        : m_image(image), m_size(int((qint64(image.width()) * image.depth() + 7) / 8)),
          m_mask(lastByteMask(image))
    {
    }

    /*! Line \a y, valid until the next call. */
    QByteArray line(int y)
    {
        const char* bytes = reinterpret_cast<const char*>(m_image.constScanLine(y));
        if (m_image.format() == QImage::Format_RGB32)
            return opaqueLine(y);
        if (m_mask == 0xff)
            return QByteArray::fromRawData(bytes, m_size);
        QByteArray masked(bytes, m_size);
        masked[m_size - 1] = char(uchar(bytes[m_size - 1]) & m_mask);
        return masked;
    }

private:
    QByteArray opaqueLine(int y)
    {
        const QRgb* pixels = reinterpret_cast<const QRgb*>(m_image.constScanLine(y));
        m_opaque.resize(m_image.width());
        QRgb* opaque = m_opaque.data();
        for (int x = 0; x < m_image.width(); ++x)
            opaque[x] = pixels[x] | 0xff000000u;
        return QByteArray::fromRawData(reinterpret_cast<const char*>(m_opaque.constData()), m_size);
    }

    const QImage& m_image;
    const int m_size;
    const uchar m_mask;
    QVector<QRgb> m_opaque;
};

} // namespace

QString ORVGuiUtil::resourceId(const QImage& image)
{
    if (image.isNull())
        return QString();

    QCryptographicHash hash(strongHash);
    addNumber(&hash, image.format());
    addNumber(&hash, image.width());
    addNumber(&hash, image.height());
    const QVector<QRgb> colors = image.colorTable();
    addNumber(&hash, qint32(colors.size()));
    for (QRgb color : colors)
        addNumber(&hash, qint32(color));
    ScanlineReader reader(image);
    for (int y = 0; y < image.height(); ++y)
        hash.addData(reader.line(y));

    // With a scheme of its own the name never leads to a file, and no base URL changes it.
    return QLatin1String("orvimage:") + compat::fromLatin1(hash.result().toHex());
}

QByteArray ORVGuiUtil::toByteArray(const QImage& image, const char* format, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!withoutStrayBits(image).save(&buffer, format, qBound(-1, quality, 100)))
        return QByteArray();
    return bytes;
}
