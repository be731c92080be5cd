#include "ORVTextRtf.h"

#include "ORVTextRtfReader.h"

#include <QtCore/QBuffer>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextDocument>

bool ORVTextRtf::fromRtfData(const QByteArray& data, QTextDocument* document, QString* errorMessage)
{
    if (!document)
        return false;
    QBuffer buffer;
    buffer.setData(data);
    if (!buffer.open(QIODevice::ReadOnly))
        return false;
    ORVTextRtfReader reader(&buffer);
    if (reader.read(document))
        return true;
    if (errorMessage)
        *errorMessage = reader.errorString();
    return false;
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
