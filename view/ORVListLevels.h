#ifndef ORVLISTLEVELS_H
#define ORVLISTLEVELS_H

#include "ORVRtfGlobal.h"

class QTextDocument;

/*! Levels of lists for documents that are only displayed. A QTextList of Qt has one level. */
namespace ORVListLevels {

/*!
    Moves the items of deeper levels of the lists in \a document into lists of their own, so that Qt shows
    each level with its own marker and restarts its numbering after each item of a higher level ("1.", "a)",
    "b)", "2.", "a)").

    For a copy in stock form (see ORVStockFormats) that is displayed, printed or exported: the levels cannot
    be restored. The paragraphs keep their positions on the page. Does nothing when \a document is null.
*/
ORV_RTF_EXPORT void separate(QTextDocument* document);

} // namespace ORVListLevels

#endif
