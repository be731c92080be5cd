#ifndef ORVPAGEPDF_H
#define ORVPAGEPDF_H

#include "ORVPagePainter.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

/*! Documents as PDF. */
namespace ORVPagePdf {

/*!
    \a document as a PDF file with embedded fonts, laid out on pages of \a setup as ORVPagePainter paints them
    (see there for requirements on the document). The file has the title of the document and names \a creator
    as the program that made it. Links to addresses work; Qt writes neither links within the document nor an
    outline: for programs that add them, see the other function. A null \a document is treated as an empty one.
    Empty on failure. Needs a QGuiApplication.
*/
ORV_RTF_EXPORT QByteArray make(const QTextDocument* document, const ORVPageSetup& setup,
                               const QString& creator = QString());

/*!
    \a pages as a PDF file with \a title. Places in it are rounded to pixels of \a pages: 600 to the inch are
    enough. A program can add an outline, and links as they are meant, with a library for PDF files, because the
    places come from ORVPagePainter::headings() and ORVPagePainter::links(). Empty on failure.
*/
ORV_RTF_EXPORT QByteArray make(const ORVPagePainter& pages, const QString& title,
                               const QString& creator = QString());

} // namespace ORVPagePdf

#endif
