#ifndef ORVRTFBITMAPFILE_P_H
#define ORVRTFBITMAPFILE_P_H

#include <QtCore/QByteArray>
#include <QtCore/QSize>

/*!
    Bitmaps of Windows as a BMP file has them: in RTF they have no file header. Where not more than half of the
    pixels are missing, those are zero.
*/
namespace ORVRtfBitmapFile {

/*! The file of a device-independent bitmap; empty where \a data is none, \a data where it is a file. */
QByteArray fromDeviceIndependent(const QByteArray& data);

/*! The layout of a device-dependent bitmap. */
struct DeviceBitmap {
    // In pixels.
    QSize size;
    int bitsPerPixel = 1;
    int planes = 1;
    // Bytes from one row to the next; 0 if not stated: rows then end at even addresses.
    int rowBytes = 0;
};

/*! The file of the bitmap \a data, whose first row is at the top; empty where its layout has no such file. */
QByteArray fromDevice(const DeviceBitmap& bitmap, const QByteArray& data);

} // namespace ORVRtfBitmapFile

#endif
