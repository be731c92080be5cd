#include "ORVPictureFiles_p.h"

#include "ORVGuiUtil.h"
#include "ORVRtfProperties.h"
#include "TextDocSupport.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QSaveFile>
#include <QtCore/QUrl>
#include <QtGui/QImage>
#include <QtGui/QTextDocument>

namespace {

const char* const jpegSignature = "\xff\xd8\xff";

} // namespace

void ORVPictureFiles::setFolder(const QString& path, const QString& reference, const QString& namePrefix)
{
    m_folder = path;
    m_reference = reference;
    m_namePrefix = namePrefix;
}

QStringList ORVPictureFiles::finish(bool isKept)
{
    QStringList written;
    written.swap(m_written);
    const bool hasMadeFolder = m_hasMadeFolder;
    m_addresses.clear();
    m_errorString.clear();
    m_hasMadeFolder = false;
    if (isKept)
        return written;
    for (const QString& path : written)
        QFile::remove(path);
    // Other files in it keep the folder.
    if (hasMadeFolder)
        QDir().rmdir(m_folder);
    return QStringList();
}

bool ORVPictureFiles::writeFile(const QString& path, const QByteArray& data)
{
    const bool isNewFolder = !QDir(m_folder).exists();
    m_hasMadeFolder = m_hasMadeFolder || isNewFolder;
    if (isNewFolder && !QDir().mkpath(m_folder)) {
        m_errorString = QString::fromLatin1("cannot make the directory %1").arg(m_folder);
        return false;
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size() || !file.commit()) {
        m_errorString = QString::fromLatin1("cannot write %1: %2").arg(path, file.errorString());
        return false;
    }
    m_written.append(path);
    return true;
}

/*! Keeps \a data, which is of \a type. Returns its address. */
QString ORVPictureFiles::stored(const QByteArray& data, const char* type)
{
    const QLatin1String suffix(type);
    if (m_folder.isEmpty())
        return QLatin1String("data:image/") + suffix + QLatin1String(";base64,")
            + QString::fromLatin1(data.toBase64());
    // Of the first failure the user is told, and no more files are tried.
    if (!m_errorString.isEmpty())
        return QString();
    const QByteArray hash = QCryptographicHash::hash(data, QCryptographicHash::Sha1);
    const QHash<QByteArray, QString>::const_iterator known = m_addresses.constFind(hash);
    if (known != m_addresses.constEnd())
        return *known;
    const QString name = m_namePrefix + QString::number(m_addresses.size() + 1) + QLatin1Char('.') + suffix;
    if (!writeFile(QDir(m_folder).filePath(name), data))
        return QString();
    QString address = m_reference + QLatin1Char('/') + QString::fromLatin1(QUrl::toPercentEncoding(name));
    m_addresses.insert(hash, address);
    return address;
}

QString ORVPictureFiles::address(const QTextDocument& document, const QTextImageFormat& format)
{
    const QByteArray source = format.property(ORVRtfProperty::SourceImageData).toByteArray();
    if (source.startsWith(jpegSignature))
        return stored(source, "jpeg");
    const QImage image = TextDocSupport::image(&document, format.name());
    return image.isNull() ? QString() : stored(ORVGuiUtil::toByteArray(image, "PNG", -1), "png");
}
