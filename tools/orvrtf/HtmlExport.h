#ifndef ORVRTF_HTMLEXPORT_H
#define ORVRTF_HTMLEXPORT_H

#include <QByteArray>

class QTextDocument;

/*!
    \a document as one HTML file in UTF-8 that stands alone: its pictures are part of it. JPEG pictures keep
    their bytes, all others become PNG. \a document is in stock form.
*/
QByteArray documentToHtml(const QTextDocument& document);

#endif
