#include "HtmlExport.h"

#include <ORVHtmlWriter.h>

#include <QBuffer>

QByteArray documentToHtml(const QTextDocument& document)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    ORVHtmlWriter(&buffer).write(&document);
    return buffer.data();
}
