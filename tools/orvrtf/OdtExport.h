#ifndef ORVRTF_ODTEXPORT_H
#define ORVRTF_ODTEXPORT_H

#include <QByteArray>

class QTextDocument;

/*!
    \a document, which is in stock form (see ORVStockFormats), as an OpenDocument text with its pictures.
    The document is changed on the way, to what Qt's writer of this format can say. Empty on failure.
*/
QByteArray documentToOdt(QTextDocument& document);

#endif
