#include "LibreOfficeExport.h"

#include "Interruption.h"
#include "Messages.h"
#include "RtfExport.h"

#include <TextTransform.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

bool write(const QString& path, const QByteArray& data)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(data) == data.size() && file.flush();
}

QString reasonOf(TextTransform::Error error, const QString& details)
{
    if (error == TextTransform::ToolNotFound)
        return Messages::tr("LibreOffice is not installed");
    const QString description = TextTransform::errorDescription(error);
    return details.isEmpty() ? description : description + QLatin1String(": ") + details;
}

} // namespace

QByteArray documentToOdtByLibreOffice(const QTextDocument& document, QString* errorString)
{
    const QByteArray rtf = documentToRtf(document, RtfExportOptions());
    // It outlives the folder, which an interruption removes.
    const StartedPrograms programs;
    const QTemporaryDir folder;
    const QString source = folder.filePath(QLatin1String("document.rtf"));
    const QString target = folder.filePath(QLatin1String("document.odt"));
    if (!folder.isValid() || !write(source, rtf)) {
        *errorString = Messages::tr("no temporary file: %1").arg(folder.errorString());
        return QByteArray();
    }
    QString details;
    const TextTransform::Error error = TextTransform::transformFileViaTools(
        source, target, ORVFormat::Odt, ORVImportExport::LibreOfficeEngine, &details, true);
    QFile file(target);
    if (error == TextTransform::NoError && file.open(QIODevice::ReadOnly))
        return file.readAll();
    *errorString = reasonOf(error, details);
    return QByteArray();
}
