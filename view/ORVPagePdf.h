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
    as the program that made it. A null \a document is treated as an empty one. Empty on failure. Needs a
    QGuiApplication.
*/
ORV_RTF_EXPORT QByteArray make(const QTextDocument* document, const ORVPageSetup& setup,
                               const QString& creator = QString());

} // namespace ORVPagePdf

#endif
