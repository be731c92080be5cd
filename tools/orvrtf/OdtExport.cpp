#include "OdtExport.h"

#include "VisibleDocument.h"

#include <QBuffer>
#include <QTextDocument>
#include <QTextDocumentWriter>

QByteArray documentToOdt(QTextDocument& document)
{
    makeVisible(document);
    QByteArray data;
    QBuffer buffer(&data);
    QTextDocumentWriter writer(&buffer, QByteArrayLiteral("odf"));
    return writer.write(&document) ? data : QByteArray();
}
