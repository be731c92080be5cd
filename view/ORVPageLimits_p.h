#ifndef ORVPAGELIMITS_P_H
#define ORVPAGELIMITS_P_H

#include "ORVRtfUnits_p.h"

class QTextDocument;
struct ORVPageGeometry;

/*!
    Limits for Qt's layout, which computes in 32-bit integers of 1/64 pixel. Made-up lengths of a damaged file
    would overflow, lose text or keep the layout from ever reaching the last page.
*/
namespace ORVPageLimits {

// Points: the 22 inches that word processors take for indents, spacing and line heights.
const double longestLength = 1584;
// Points: the largest font of word processors.
const double largestFont = 1638;
// Percent of a single line, which make the longest length.
const double highestLineMultiple = 100 * longestLength / ORVRtfUnits::singleLineHeight;

/*! \a points, limited to the longest length in both directions; 0 for NaN. */
double length(double points);
/*! As length(), but never negative. */
double distance(double points);

/*!
    Limits lengths and font sizes of \a document, which is in stock form with \a resolution pixels per inch,
    and keeps the beginning of each paragraph on the paper of \a page.
*/
void apply(QTextDocument* document, const ORVPageGeometry& page, int resolution);

} // namespace ORVPageLimits

#endif
