#ifndef ORVRTF_PAGEEXPORT_H
#define ORVRTF_PAGEEXPORT_H

#include <QByteArray>
#include <QStringList>

class QTextDocument;

/*!
    Both functions divide \a document, which is in stock form (see ORVStockFormats), into pages: of the size
    and with the margins that its properties say, else A4. Header, footer and page numbers come from its
    properties too (ORVTextPage). What cannot be shown is replaced in the document.
*/

/*! \a document as PDF, with its fonts embedded. Empty on failure. */
QByteArray documentToPdf(QTextDocument& document);

/*!
    Writes a PNG picture of each page of \a document, 96 pixels to the inch: the first as \a path, the others
    with "-2", "-3", … in front of the suffix. Each file appears whole or not at all. Returns false when one
    could not be written, with its path in \a path and the reason in \a errorString; those before it are
    removed, as they are when the program is interrupted. None is written when one of them is the file
    \a input. Pictures of pages that the document does not have, of a longer one before it, stay.
*/
bool writePagePictures(QTextDocument& document, const QString& input, QString* path, QString* errorString);

#endif
