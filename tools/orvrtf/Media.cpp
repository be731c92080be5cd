#include "Media.h"

#include "Interruption.h"
#include "Streams.h"
#include "WrittenFiles.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <memory>

namespace {

bool isRegularFile(const QString& output)
{
    const QFileInfo info(output);
    return output != QLatin1String("-") && (info.isFile() || !info.exists());
}

/*! The address of \a folder as links in \a output have it. */
QString referenceTo(const QString& folder, const QString& output)
{
    // What is read from a pipe can be anywhere: there the path is the one that the user gave.
    QString path = folder;
    if (isRegularFile(output))
        path = QDir(QFileInfo(output).absolutePath()).relativeFilePath(QFileInfo(folder).absoluteFilePath());
    if (path.size() > 1 && path.endsWith(QLatin1Char('/')))
        path.chop(1);
    return path.isEmpty() ? QString(QLatin1Char('.'))
                          : QString::fromLatin1(QUrl::toPercentEncoding(path, QByteArray("/")));
}

/*! \a folder and those around it, as far as they do not exist, from the inside out. */
QStringList missingFolders(const QString& folder)
{
    QStringList result;
    if (folder.isEmpty())
        return result;
    QString path = QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
    for (; !QFileInfo::exists(path); path = QFileInfo(path).path())
        result.append(path);
    return result;
}

} // namespace

Media Media::inFolder(const QString& folder, const QString& output)
{
    Media media;
    media.folder = folder;
    media.reference = referenceTo(folder, output);
    media.namePrefix = isRegularFile(output) ? QFileInfo(output).completeBaseName() + QLatin1Char('-')
                                             : QString::fromLatin1("image");
    return media;
}

Media Media::beside(const QString& output)
{
    Media media;
    if (!isRegularFile(output))
        return media;
    const QFileInfo info(output);
    media.folder = info.dir().filePath(info.completeBaseName() + QLatin1String("-media"));
    media.reference = referenceTo(media.folder, output);
    media.namePrefix = QString::fromLatin1("image");
    return media;
}

bool writeWithPictures(const QString& path, const Media& media, const MarkupWriting& write,
                       QString* errorString)
{
    // Without pictures a reader of the output that has stopped must not keep the program from ending.
    const std::unique_ptr<InterruptionBlock> block(media.folder.isEmpty() ? nullptr : new InterruptionBlock);
    // Opened first: the folder of the pictures must not make the one of the output.
    OutputStream output;
    if (!output.open(path)) {
        *errorString = output.errorString();
        return false;
    }
    const QStringList newFolders = missingFolders(media.folder);
    bool isWritten = false;
    {
        WrittenFiles written;
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QStringList pictures;
        isWritten = write(&buffer, &pictures, errorString);
        for (const QString& picture : pictures)
            written.add(picture);
        if (isWritten && !(block && InterruptionBlock::isInterrupted())) {
            isWritten = output.finishWith(buffer.data());
            *errorString = output.errorString();
        } else {
            isWritten = false;
        }
        if (isWritten)
            written.keep();
    }
    for (int i = 0; i < newFolders.size() && !isWritten; ++i)
        QDir().rmdir(newFolders.at(i));
    return isWritten;
}
