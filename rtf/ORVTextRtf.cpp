#include "ORVTextRtf.h"

#include "ORV.h"
#include "ORVTextRtfReader.h"
#include "ORVTextRtfWriter.h"

#include <QtCore/QBuffer>
#include <QtCore/QDebug>
#include <QtCore/QFile>
#include <QtCore/QMimeData>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>

namespace {

void assign(QString* errorMessage, const QString& message)
{
    if (errorMessage)
        *errorMessage = message;
}

bool failedToWrite(const QString& fileName, qint64 size, qint64 written, QString* errorMessage)
{
    qWarning() << "Could not write RTF contents to file: " << fileName;
    qWarning() << "Bytes to write: " << size << "Actually written: " << written;
    assign(errorMessage, QObject::tr("Could not write RTF contents to file: '%1'").arg(fileName));
    return false;
}

enum Dialect { Storage, Interchange };

bool readData(const QByteArray& data, QTextDocument* document, QString* errorMessage, Dialect dialect)
{
    if (!document)
        return false;
    QBuffer buffer;
    buffer.setData(data);
    if (!buffer.open(QIODevice::ReadOnly))
        return false;
    ORVTextRtfReader reader(&buffer);
    reader.setInterchange(dialect == Interchange);
    if (reader.read(document))
        return true;
    assign(errorMessage, reader.errorString());
    return false;
}

bool readFile(const QString& fileName, QTextDocument* document, QString* errorMessage, Dialect dialect)
{
    QFile file(fileName);
    if (!file.exists() || !file.open(QIODevice::ReadOnly))
        return false;
    return readData(file.readAll(), document, errorMessage, dialect);
}

bool readMimeData(const QString& type, const QMimeData* mime, QTextDocument* document, Dialect dialect)
{
    if (!document || !mime || !mime->hasFormat(type))
        return false;
    const QByteArray data = mime->data(type);
    return !data.isEmpty() && readData(data, document, nullptr, dialect);
}

/*! Reads the first type of \a mime that is sound. */
bool readMimeData(const QMimeData* mime, QTextDocument* document, Dialect dialect)
{
    if (!document)
        return false;
    const QStringList types = ORV::rtfMimeTypes();
    for (const QString& type : types) {
        if (readMimeData(type, mime, document, dialect))
            return true;
    }
    return false;
}

/*! \a document as \a writer, with the settings it has, writes it; empty when it cannot be written. */
QByteArray writtenData(ORVTextRtfWriter& writer, const QTextDocument* document, bool inPlace)
{
    QByteArray data;
    QBuffer buffer(&data);
    if (!document || !buffer.open(QIODevice::WriteOnly))
        return data;
    writer.setDevice(&buffer);
    return writer.write(document, inPlace) ? data : QByteArray();
}

} // namespace

bool ORVTextRtf::fromRtfData(const QByteArray& data, QTextDocument* document, QString* errorMessage)
{
    return readData(data, document, errorMessage, Storage);
}

bool ORVTextRtf::importRtfData(const QByteArray& data, QTextDocument* document, QString* errorMessage)
{
    return readData(data, document, errorMessage, Interchange);
}

bool ORVTextRtf::fromRtfCData(const QByteArray& data, QTextDocument* document)
{
    return fromRtfData(data, document, nullptr);
}

QString ORVTextRtf::rtfCDataText(const QByteArray& data)
{
    QTextDocument document;
    return fromRtfCData(data, &document) ? document.toPlainText() : QString();
}

QString ORVTextRtf::rtfProperty(int propertyId, const QTextCharFormat& format, bool asHtml)
{
    const QByteArray data = format.property(propertyId).toByteArray();
    if (data.isEmpty())
        return QString();
    QTextDocument document;
    if (!fromRtfCData(data, &document))
        return QString();
    return asHtml ? document.toHtml() : document.toPlainText();
}

QByteArray ORVTextRtf::toRtfData(const QTextDocument* document, bool inPlace, bool exportingMode)
{
    ORVTextRtfWriter writer;
    writer.setExportingMode(exportingMode);
    if (exportingMode)
        writer.setFootnotesWithLeadingSpace(true);
    return writtenData(writer, document, inPlace);
}

QByteArray ORVTextRtf::toRtfCData(const QTextDocument* document, bool inPlace)
{
    return toRtfData(document, inPlace, false);
}

QByteArray ORVTextRtf::textToRtf(const QString& text, const QFont* font)
{
    QTextDocument document;
    if (font)
        document.setDefaultFont(*font);
    QTextCursor(&document).insertText(text);
    return toRtfData(&document, false, false);
}

bool ORVTextRtf::fromRtfFile(const QString& fileName, QTextDocument* document, QString* errorMessage)
{
    return readFile(fileName, document, errorMessage, Storage);
}

bool ORVTextRtf::importRtfFile(const QString& fileName, QTextDocument* document, QString* errorMessage)
{
    return readFile(fileName, document, errorMessage, Interchange);
}

bool ORVTextRtf::toRtfFile(const QString& fileName, const QTextDocument* document, QString* errorMessage,
                           bool inPlace, bool exportingMode)
{
    if (!document)
        return false;
    // Converted before the file is opened, so that a failure does not empty a file that is there.
    const QByteArray data = toRtfData(document, inPlace, exportingMode);
    if (data.isEmpty()) {
        assign(errorMessage,
               QObject::tr("RTF writer failed generating contents for file: '%1'").arg(fileName));
        return false;
    }
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly)) {
        assign(errorMessage,
               QObject::tr("Could not open RTF file for writing.\nFile: '%1'\nError: '%2'")
                   .arg(fileName, file.errorString()));
        return false;
    }
    const qint64 written = file.write(data);
    if (written != data.size())
        return failedToWrite(fileName, data.size(), written, errorMessage);
    if (!file.flush()) {
        assign(errorMessage,
               QObject::tr("Could not flush RTF contents of file: '%1'\nError: '%2'")
                   .arg(fileName, file.errorString()));
        return false;
    }
    file.close();
    return true;
}

bool ORVTextRtf::toRtfFileDirect(const QString& fileName, const QTextDocument* document,
                                 QString* errorMessage, bool inPlace)
{
    if (!document)
        return false;
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly)) {
        assign(errorMessage, file.errorString());
        return false;
    }
    ORVTextRtfWriter writer(&file);
    return writer.write(document, inPlace);
}

void ORVTextRtf::setRtfMimeData(QMimeData* mime, const QTextDocument* document)
{
    if (!mime || !document)
        return;
    // Word processors paste a paragraph that only a table ends into the table, or nowhere.
    ORVTextRtfWriter writer;
    writer.setParagraphBeforeTableEnded(true);
    const QByteArray data = writtenData(writer, document, false);
    const QStringList types = ORV::rtfMimeTypes();
    for (const QString& type : types)
        mime->setData(type, data);
}

bool ORVTextRtf::hasRtfMimeData(const QMimeData* mime)
{
    const QStringList types = ORV::rtfMimeTypes();
    for (const QString& type : types) {
        if (mime->hasFormat(type))
            return true;
    }
    return false;
}

bool ORVTextRtf::fromRtfMimeData(const QMimeData* mime, QTextDocument* document)
{
    return readMimeData(mime, document, Storage);
}

bool ORVTextRtf::importRtfMimeData(const QMimeData* mime, QTextDocument* document)
{
    return readMimeData(mime, document, Interchange);
}

bool ORVTextRtf::parseRtfMimeData(const QString& type, const QMimeData* mime, QTextDocument* document)
{
    return readMimeData(type, mime, document, Storage);
}

void ORVTextRtf::setOrvellineMarkupRtfMimeData(QMimeData* mime, const QTextDocument* document, bool inPlace)
{
    if (!mime || !document)
        return;
    mime->setData(QLatin1String(ORV::OrvellineMarkupRtfMimeType), toRtfData(document, inPlace, false));
}

bool ORVTextRtf::fromOrvellineMarkupRtfMimeData(const QMimeData* mime, QTextDocument* document)
{
    return parseRtfMimeData(QLatin1String(ORV::OrvellineMarkupRtfMimeType), mime, document);
}
