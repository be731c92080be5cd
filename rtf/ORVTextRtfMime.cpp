#include "ORV.h"
#include "ORVTextRtf.h"
#include "ORVTextRtfWriter.h"

#include <QtCore/QMimeData>

void ORVTextRtf::setRtfMimeData(QMimeData* mime, const QTextDocument* document)
{
    if (!mime || !document)
        return;
    // Word processors paste a paragraph that only a table ends into the table, or nowhere.
    ORVTextRtfWriter writer;
    writer.setParagraphBeforeTableEnded(true);
    const QByteArray data = written(writer, document, false);
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
    if (!document)
        return false;
    const QStringList types = ORV::rtfMimeTypes();
    for (const QString& type : types) {
        if (parseRtfMimeData(type, mime, document))
            return true;
    }
    return false;
}

bool ORVTextRtf::parseRtfMimeData(const QString& type, const QMimeData* mime, QTextDocument* document)
{
    if (!document || !mime || !mime->hasFormat(type))
        return false;
    const QByteArray data = mime->data(type);
    return !data.isEmpty() && fromRtfData(data, document, nullptr);
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
