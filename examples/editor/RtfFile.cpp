#include "RtfFile.h"

#include <ORVTextRtf.h>

#include <QFile>
#include <QMimeData>
#include <QSaveFile>
#include <QUrl>

RtfFile::Opened RtfFile::open(const QString& fileName, QTextDocument* document, QString* message)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        *message = file.errorString();
        return Opened::NotAtAll;
    }
    file.close();
    return ORVTextRtf::fromRtfFile(fileName, document, message) ? Opened::Completely : Opened::InPart;
}

bool RtfFile::save(const QString& fileName, const QTextDocument& document, QString* message)
{
    const bool exportingMode = true; // other programs are to read it
    const QByteArray rtf = ORVTextRtf::toRtfData(&document, false, exportingMode);
    QSaveFile file(fileName);
    if (file.open(QIODevice::WriteOnly) && file.write(rtf) == rtf.size() && file.commit())
        return true;
    *message = file.errorString();
    return false;
}

QString RtfFile::nameOn(const QMimeData* mime)
{
    const QList<QUrl> urls = mime->urls();
    if (urls.size() != 1 || !urls.first().isLocalFile())
        return QString();
    const QString fileName = urls.first().toLocalFile();
    return fileName.endsWith(QLatin1String(".rtf"), Qt::CaseInsensitive) ? fileName : QString();
}
