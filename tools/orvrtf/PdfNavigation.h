#ifndef ORVRTF_PDFNAVIGATION_H
#define ORVRTF_PDFNAVIGATION_H

#include <QByteArray>

class ORVPagePainter;
class QTextDocument;

/*!
    \a pdf, which ORVPagePdf has made of \a pages, with what Qt does not write: an outline of the headings, all
    links of the pages in place of those of Qt, and author, subject, keywords and language of \a document. Empty
    on failure; \a pdf itself where the module that does this is not installed. In time proportional to the size of
    the file.
*/
QByteArray withNavigation(const QByteArray& pdf, const ORVPagePainter& pages, const QTextDocument& document);

/*!
    The function of the module, which is loaded for PDF files only: libqpdf and what it needs would take as long to
    load as the rest of the program. Makes \a result what withNavigation() returns.
*/
typedef void (*AddPdfNavigation)(const QByteArray& pdf, const ORVPagePainter& pages,
                                 const QTextDocument& document, QByteArray* result);

#endif
