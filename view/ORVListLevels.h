#ifndef ORVLISTLEVELS_H
#define ORVLISTLEVELS_H

#include "ORVRtfGlobal.h"

class QTextDocument;

/*! Levels of lists, which Qt knows one of only, for what shows a document and does not change it. */
namespace ORVListLevels {

/*!
    Makes lists of their own of the deeper levels of the lists in \a document, so that Qt shows each level
    with its own marker and counts it anew behind each item above it ("1.", "a)", "b)", "2.", "a)").

    For a copy that is shown, printed or exported, in stock form (see ORVStockFormats): the levels cannot be
    put together again. The paragraphs stay where they are. Does nothing when \a document is null.
*/
ORV_RTF_EXPORT void separate(QTextDocument* document);

} // namespace ORVListLevels

#endif
