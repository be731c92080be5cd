#include "ORVTextRtf.h"

#include "ORVTextRtfReader.h"
#include "QtStringCompat_p.h"

#include <ORVCoreUtil.h>
#include <TextTransform.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QStringList>
#include <QtGui/QTextDocument>

namespace {

/*! All of the file \a fileName; false when it cannot be read. */
bool readFile(const QString& fileName, QIODevice::OpenMode mode, QByteArray* data)
{
    QFile file(fileName);
    if (!file.exists() || !file.open(mode))
        return false;
    *data = file.readAll();
    return true;
}

/*! Ignores a file that cannot be read, as callers expect; so does loadHtml(). */
void loadPlainText(const QString& fileName, QTextDocument* document)
{
    QByteArray data;
    if (document && readFile(fileName, QIODevice::ReadOnly | QIODevice::Text, &data))
        document->setPlainText(compat::fromLatin1(data));
}

void loadHtml(const QString& fileName, QTextDocument* document)
{
    QByteArray data;
    if (document && readFile(fileName, QIODevice::ReadOnly, &data))
        document->setHtml(compat::fromUtf8(data));
}

/*!
    Has \a reader read the file \a fileName; false without a message when there is nothing to read or no
    document.
*/
bool readRtf(const QString& fileName, ORVTextRtfReader& reader, QTextDocument* document, QString* message)
{
    QFile file(fileName);
    if (!document || !file.exists() || !file.open(QIODevice::ReadOnly))
        return false;
    reader.setDevice(&file);
    const bool isSound = reader.read(document);
    reader.setDevice(nullptr);
    *message = reader.errorString();
    return isSound;
}

void loadRtf(const QString& fileName, ORVTextRtfReader& reader, QTextDocument* document, QStringList* errors)
{
    QString message;
    if (!readRtf(fileName, reader, document, &message))
        errors->append(
            QCoreApplication::translate("ORVTextRtf", "Failed loading RTF file '%1'").arg(fileName));
}

void loadConverted(const QString& fileName, ORVTextRtfReader& reader, QTextDocument* document,
                   ORVImportExport::Engine engine, QStringList* errors)
{
    const QString converted = ORVCoreUtil::GetNewTempFilePath(QLatin1String("rtf"));
    QString conversionMessage;
    const TextTransform::Error error = TextTransform::transformFileViaTools(
        fileName, converted, ORVFormat::Rtf, engine, &conversionMessage, true);
    const bool exists = QFile::exists(converted);
    if (exists && error == TextTransform::NoError) {
        QString readMessage;
        if (!readRtf(converted, reader, document, &readMessage))
            errors->append(QCoreApplication::translate("TextDocSupport",
                                                       "Failed loading converted RTF file '%1'\nError: %2")
                               .arg(converted, readMessage));
    } else {
        errors->append(QCoreApplication::translate("TextDocSupport", "Failed loading %1 file '%2'\nError: %3")
                           .arg(QFileInfo(fileName).suffix().toUpper(), fileName,
                                TextTransform::errorDescription(error)));
    }
    if (!conversionMessage.isEmpty())
        errors->append(conversionMessage);
    if (exists)
        QFile::remove(converted);
}

} // namespace

bool ORVTextRtf::loadFileIntoDocument(const QString& fileName, QTextDocument* document,
                                      ORVImportExport::Engine engine, QStringList* errors)
{
    ORVTextRtfReader reader;
    return loadFileIntoDocument(fileName, document, engine, errors, reader);
}

bool ORVTextRtf::loadFileIntoDocument(const QString& fileName, QTextDocument* document,
                                      ORVImportExport::Engine engine, QStringList* errors,
                                      ORVTextRtfReader& reader)
{
    const QString name = fileName.toLower();
    QStringList messages;
    if (name.endsWith(QLatin1String(".txt")))
        loadPlainText(fileName, document);
    else if (name.endsWith(QLatin1String(".html")))
        loadHtml(fileName, document);
    else if (name.endsWith(QLatin1String(".rtf")))
        loadRtf(fileName, reader, document, &messages);
    else if (name.endsWith(QLatin1String(".doc")) || name.endsWith(QLatin1String(".docx"))
             || name.endsWith(QLatin1String(".odt")))
        loadConverted(fileName, reader, document, engine, &messages);
    else
        return false;
    if (errors)
        *errors = messages;
    return messages.isEmpty();
}
