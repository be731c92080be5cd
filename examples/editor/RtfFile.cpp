#include "RtfFile.h"

#include "FileWriting.h"
#include "RtfDocument.h"

#include <ORVTextRtf.h>

#include <QFile>
#include <QMimeData>
#include <QTextDocument>
#include <QUrl>

namespace {

bool write(const QString& fileName, const QTextDocument& document, bool exportingMode, QString* message)
{
    const std::unique_ptr<QTextDocument> copy = RtfDocument::toWrite(document);
    return FileWriting::replace(fileName, ORVTextRtf::toRtfData(copy.get(), true, exportingMode), message);
}

} // namespace

RtfFile::Opened RtfFile::open(const QString& fileName, QTextDocument* document, QString* message)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        *message = file.errorString();
        return Opened::NotAtAll;
    }
    return RtfDocument::read(file.readAll(), RtfDocument::Form::Interchange, document, message)
        ? Opened::Completely
        : Opened::InPart;
}

bool RtfFile::save(const QString& fileName, const QTextDocument& document, QString* message)
{
    return write(fileName, document, !RtfDocument::hasRevisionLevels(document), message);
}

bool RtfFile::exportTo(const QString& fileName, const QTextDocument& document, QString* message)
{
    return write(fileName, document, true, message);
}

QString RtfFile::nameOn(const QMimeData* mime)
{
    const QList<QUrl> urls = mime->urls();
    if (urls.size() != 1 || !urls.first().isLocalFile())
        return QString();
    const QString fileName = urls.first().toLocalFile();
    return fileName.endsWith(QLatin1String(".rtf"), Qt::CaseInsensitive) ? fileName : QString();
}
