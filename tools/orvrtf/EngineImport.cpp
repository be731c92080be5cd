#include "EngineImport.h"

#include "RtfImport.h"

#include <ORVCoreUtil.h>
#include <ORVTextRtfReader.h>
#include <TextTransform.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace {

/*! The messages are those of ORVTextRtf::loadFileIntoDocument(), which does not tell the page. */
QString message(const char* text)
{
    return QCoreApplication::translate("TextDocSupport", text);
}

/*! Reads the file \a path, which is needed no longer then. */
QStringList loadConverted(const QString& path, QTextDocument* document)
{
    QFile file(path);
    ORVTextRtfReader reader(&file);
    const bool isSound = readRtfWithPage(reader, document);
    file.remove();
    if (isSound)
        return QStringList();
    return {message("Failed loading converted RTF file '%1'\nError: %2").arg(path, reader.errorString())};
}

} // namespace

QStringList loadWithEngine(const QString& path, ORVImportExport::Engine engine, QTextDocument* document)
{
    const QString converted = ORVCoreUtil::GetNewTempFilePath(QLatin1String("rtf"));
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
