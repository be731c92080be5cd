#include "EngineImport.h"

#include "RtfImport.h"

#include <ORVTextRtfReader.h>
#include <TextTransform.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace {

/*! The messages are those of ORVTextRtf::loadFileIntoDocument(), which does not tell the page. */
QString message(const char* text)
{
    return QCoreApplication::translate("TextDocSupport", text);
}

QStringList loadConverted(const QString& path, QTextDocument* document)
{
    QFile file(path);
    ORVTextRtfReader reader(&file);
    if (readRtfWithPage(reader, document))
        return QStringList();
    return {message("Failed loading converted RTF file '%1'\nError: %2").arg(path, reader.errorString())};
}

} // namespace

QStringList loadWithEngine(const QString& path, ORVImportExport::Engine engine, QTextDocument* document)
{
    const QTemporaryDir folder;
    const QString converted = folder.filePath(QLatin1String("converted.rtf"));
    QString details;
    const TextTransform::Error error =
        TextTransform::transformFileViaTools(path, converted, ORVFormat::Rtf, engine, &details, true);
    if (error == TextTransform::NoError)
        return loadConverted(converted, document);
    QStringList messages{
        message("Failed loading %1 file '%2'\nError: %3")
            .arg(QFileInfo(path).suffix().toUpper(), path, TextTransform::errorDescription(error))};
    if (!details.isEmpty())
        messages.append(details);
    return messages;
}
