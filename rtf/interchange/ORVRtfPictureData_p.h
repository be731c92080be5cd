#ifndef ORVRTFPICTUREDATA_P_H
#define ORVRTFPICTUREDATA_P_H

#include "ORVRtfBitmapFile_p.h"

#include <QtCore/QByteArray>
#include <QtGui/QImage>

class ORVRtfPicture;

/*! The data of a picture and what they are, collected until its group ends. */
class ORVRtfPictureData {
public:
    enum Kind { File, DeviceIndependentBitmap, DeviceBitmap };

    Kind kind = File;
    ORVRtfBitmapFile::DeviceBitmap bitmap;
    /*! What is cut off on each side, in twips. */
    int cropLeft = 0;
    int cropTop = 0;
    int cropRight = 0;
    int cropBottom = 0;

    /*! Size in which the whole picture is shown, in twips; 0 if not stated. */
    int goalWidth = 0;
    int goalHeight = 0;

    /*! Adds data that stands as hexadecimal digits; everything else in \a text is left out. */
    void addDigits(const char* text, int length);
    /*! Where raw bytes are to be added. */
    QByteArray& bytes() { return m_bytes; }

    bool isEmpty() const { return m_bytes.isEmpty(); }
    /*! The data as a file has them. */
    QByteArray file() const;
    /*! What is cut off of the size in which the whole picture is shown, in pixels. */
    int croppedWidth() const;
    int croppedHeight() const;
    bool isCropped() const { return cropLeft > 0 || cropTop > 0 || cropRight > 0 || cropBottom > 0; }
    /*! The part of \a image that is left, which is the whole picture; null where nothing is. */
    QImage cropped(const QImage& image) const;

private:
    QRect remaining(const QSize& size) const;

    QByteArray m_bytes;
    // The first digit of a byte whose second one is to come; -1 for none.
    int m_highDigit = -1;
};

#endif
