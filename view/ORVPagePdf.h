#ifndef ORVPAGEPDF_H
#define ORVPAGEPDF_H

#include "ORVPagePainter.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

/*! Documents as PDF. */
namespace ORVPagePdf {

/*!
    The pages of \a setup with \a document, as ORVPagePainter paints them (see there for what the document is
    to be), as a file of PDF with its fonts embedded. It has the title of the document, and \a creator is the
    name of the program that it says to come from. A null \a document counts as an empty one. Empty on
    failure. Needs a QGuiApplication.
*/
ORV_RTF_EXPORT QByteArray make(const QTextDocument* document, const ORVPageSetup& setup,
                               const QString& creator = QString());

} // namespace ORVPagePdf

#endif
