#include "ORVRtfPictureData_p.h"

#include "ORVRtfHexadecimal_p.h"
#include "ORVUnit.h"

#include <QtCore/QRect>

#include <limits>

namespace {

/*! The pixels that \a twips are of a side of \a pixels that is shown as \a goal twips. */
int pixelsOf(int twips, int pixels, int goal)
{
    const int twipsPerPixel = 15;
    const double whole = goal > 0 ? goal : double(pixels) * twipsPerPixel;
    return qBound(0, int(qMax(0, twips) * double(pixels) / whole), pixels);
}

/*! Pixels, in the size in which it is shown, that are cut off from two sides by so many twips. */
int croppedPixels(int first, int second)
{
    const qint64 twips = qint64(qMax(0, first)) + qMax(0, second);
    return ORVUnit::rtfTwipsToPixels(int(qMin(twips, qint64(std::numeric_limits<int>::max()))));
}

} // namespace

void ORVRtfPictureData::addDigits(const char* text, int length)
{
    const char* const end = text + length;
    while (text != end) {
        const int run = m_highDigit < 0 ? ORVRtfHexadecimal::digitCount(text, int(end - text)) & ~1 : 0;
        if (run > 0) {
            ORVRtfHexadecimal::appendDecoded(m_bytes, text, run);
            text += run;
            continue;
        }
        const int digit = ORVRtfHexadecimal::value(*text++);
        if (digit < 0)
            continue;
        if (m_highDigit >= 0)
            m_bytes += char(m_highDigit * 16 + digit);
        m_highDigit = m_highDigit < 0 ? digit : -1;
    }
}

QByteArray ORVRtfPictureData::file() const
{
    switch (kind) {
    case DeviceIndependentBitmap: return ORVRtfBitmapFile::fromDeviceIndependent(m_bytes);
    case DeviceBitmap: return ORVRtfBitmapFile::fromDevice(bitmap, m_bytes);
    default: return m_bytes;
    }
}

int ORVRtfPictureData::croppedWidth() const
{
    return croppedPixels(cropLeft, cropRight);
}

int ORVRtfPictureData::croppedHeight() const
{
    return croppedPixels(cropTop, cropBottom);
}

QRect ORVRtfPictureData::remaining(const QSize& size) const
{
    const int left = pixelsOf(cropLeft, size.width(), goalWidth);
    const int top = pixelsOf(cropTop, size.height(), goalHeight);
    return QRect(left, top, size.width() - left - pixelsOf(cropRight, size.width(), goalWidth),
                 size.height() - top - pixelsOf(cropBottom, size.height(), goalHeight));
}

QImage ORVRtfPictureData::cropped(const QImage& image) const
{
    if (!isCropped() || image.isNull())
        return image;
    const QRect part = remaining(image.size());
    return part.isEmpty() ? QImage() : image.copy(part);
}
