#ifndef ORVRTF_HTMLEXPORT_H
#define ORVRTF_HTMLEXPORT_H

#include <QByteArray>

class QTextDocument;

/*!
    \a document as one HTML file in UTF-8 that stands alone: its pictures are part of it. JPEG pictures keep
    their bytes, all others become PNG.

    \a document is changed on the way: what QTextDocument::toHtml() cannot say is replaced by the nearest
    thing that it can.
*/
QByteArray documentToHtml(QTextDocument& document);

#endif
