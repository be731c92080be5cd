#include "ORVHtmlPictures_p.h"

#include "ORVGuiUtil.h"
#include "ORVHtmlLinks_p.h"
#include "ORVRtfProperties.h"
#include "TextDocSupport.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtGui/QImage>
#include <QtGui/QTextDocument>

namespace {

const char* const jpegSignature = "\xff\xd8\xff";

} // namespace

void ORVHtmlPictures::setFolder(const QString& path, const QString& reference)
{
    m_folder = path;
    m_reference = reference;
}

/*! Keeps \a data, which is of \a type. Returns its address. */
QString ORVHtmlPictures::stored(const QByteArray& data, const char* type)
{
    const QLatin1String suffix(type);
    if (m_folder.isEmpty())
        return QString::fromLatin1("data:image/%1;base64,%2")
            .arg(suffix, QString::fromLatin1(data.toBase64()));
    QString& name = m_files[QCryptographicHash::hash(data, QCryptographicHash::Sha1)];
    if (!name.isEmpty())
        return name;
    const QString fileName = QString::fromLatin1("image%1.%2").arg(m_files.size()).arg(suffix);
    QFile file(QDir(m_folder).filePath(fileName));
    if (!QDir().mkpath(m_folder) || !file.open(QIODevice::WriteOnly) || file.write(data) != data.size()
        || !file.flush())
        m_errorString = file.errorString();
    name = m_reference + QLatin1Char('/') + fileName;
    return name;
}

QString ORVHtmlPictures::address(const QTextDocument& document, const QTextImageFormat& format)
{
    const QByteArray source = format.property(ORVRtfProperty::SourceImageData).toByteArray();
    if (source.startsWith(jpegSignature))
        return stored(source, "jpeg");
    const QImage image = TextDocSupport::image(&document, format.name());
    if (image.isNull())
        return ORVHtmlLinks::address(format.name());
    return stored(ORVGuiUtil::toByteArray(image, "PNG", -1), "png");
}
