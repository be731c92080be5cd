#ifndef ORVRTFPICTUREKIND_P_H
#define ORVRTFPICTUREKIND_P_H

#include <QtCore/QString>

/*! The kinds of pictures, by the type that the property ORVRtfProperty::ImageType names. */
namespace ORVRtfPictureKind {

/*! Whether \a type stands for JPEG, whose data is kept and written as it was read. */
inline bool isJpeg(const QString& type)
{
    return type.compare(QLatin1String("jpeg"), Qt::CaseInsensitive) == 0
        || type.compare(QLatin1String("jpg"), Qt::CaseInsensitive) == 0;
}

} // namespace ORVRtfPictureKind

#endif
