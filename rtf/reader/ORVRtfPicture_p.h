#ifndef ORVRTFPICTURE_P_H
#define ORVRTFPICTURE_P_H

#include <QtCore/QByteArray>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QImage>

class QTextCharFormat;
class QTextImageFormat;

/*!
    The properties of a picture, collected until its group ends.
*/
class ORVRtfPicture {
public:
    /*! "PNG", "JPEG", "WMF" or empty. */
    QString type;
    QString fileName;
    QString mathML;
    /*! Displayed size in pixels, and the scale of that size in percent; -1 where the file has none. */
    int goalWidth = -1;
    int goalHeight = -1;
    int scaleX = -1;
    int scaleY = -1;

    /*!
        Decodes \a data as the stated type or, failing that, as whatever it looks like. A null image when
        that fails, or when the picture's header announces more pixels than ORVRtfLimits::picturePixels.
    */
    QImage decode(const QByteArray& data) const;

    /*! The size, in pixels, in which \a image is to be shown. */
    QSize displaySize(const QImage& image) const;

    /*!
        The format under which \a image, stored as resource \a resourceName, stands in text of the format
        \a charFormat; \a data are the bytes it was decoded from and \a number names a picture without name.
    */
    QTextImageFormat imageFormat(const QImage& image, const QString& resourceName, const QByteArray& data,
                                 int number, const QTextCharFormat& charFormat) const;
};

#endif
