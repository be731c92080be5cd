#include "ORVRtfPicture_p.h"

#include "ORVRounding_p.h"
#include "ORVRtfLimits_p.h"
#include "ORVRtfPictureKind_p.h"
#include "ORVRtfProperties.h"

#include <QtCore/QBuffer>
#include <QtGui/QImageReader>
#include <QtGui/QTextImageFormat>

namespace {

QImage decodeAs(const QByteArray& data, const QByteArray& format)
{
    QBuffer buffer;
    buffer.setData(data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    // A header of a few bytes can announce gigabytes.
    const QSize size = reader.size();
    if (size.isValid() && qint64(size.width()) * size.height() > ORVRtfLimits::picturePixels)
        return QImage();
    return reader.read();
}

int clampedSide(double side)
{
    return qBound(0, ORVRounding::halfUp(side), ORVRtfLimits::pictureSide);
}

} // namespace

QImage ORVRtfPicture::decode(const QByteArray& data) const
{
    // Files are found whose pictures are of another type than stated.
    const QImage image = decodeAs(data, type.toLatin1());
    return image.isNull() && !type.isEmpty() ? decodeAs(data, QByteArray()) : image;
}

QSize ORVRtfPicture::displaySize(const QImage& image) const
{
    const bool hasGoal = goalWidth > 0 && goalHeight > 0;
    double width = hasGoal ? goalWidth : image.width();
    double height = hasGoal ? goalHeight : image.height();
    if (scaleX > 0 && scaleY > 0) {
        width = scaleX * width / 100;
        height = scaleY * height / 100;
    }
    return QSize(clampedSide(width), clampedSide(height));
}

QTextImageFormat ORVRtfPicture::imageFormat(const QImage& image, const QString& resourceName,
                                            const QByteArray& data, int number,
                                            const QTextCharFormat& charFormat) const
{
    QTextImageFormat format;
    format.merge(charFormat);
    format.setName(resourceName);
    if (ORVRtfPictureKind::isJpeg(type))
        format.setProperty(ORVRtfProperty::SourceImageData, data);
    format.setProperty(ORVRtfProperty::ImageType, type);
    format.setProperty(ORVRtfProperty::ImageFileName,
                       fileName.isEmpty() ? QString::fromLatin1("Image%1").arg(number) : fileName);
    if (!mathML.isEmpty())
        format.setProperty(ORVRtfProperty::MathML, mathML);
    const QSize size = displaySize(image);
    format.setWidth(size.width());
    format.setHeight(size.height());
    return format;
}
