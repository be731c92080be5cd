#ifndef ORVPAGELIMITS_P_H
#define ORVPAGELIMITS_P_H

#include "ORVRtfUnits_p.h"

class QTextDocument;
struct ORVPageGeometry;

/*!
    What Qt's layout is given at most. It counts in 64ths of a pixel in 32 bits: lengths that a file makes up
    would overflow, lose the text or even keep the layout from ever reaching the last page.
*/
namespace ORVPageLimits {

// Points: the 22 inches that word processors take for indents, spacing and line heights.
const double longestLength = 1584;
// Points: the largest font of word processors.
const double largestFont = 1638;
// Percent of a single line, which make the longest length.
const double highestLineMultiple = 100 * longestLength / ORVRtfUnits::singleLineHeight;

/*! \a points, or the longest length that way; 0 for what is no number. */
double length(double points);
/*! The same for what cannot be negative. */
double distance(double points);

/*!
    Limits the lengths and font sizes of \a document, which is in stock form with \a resolution pixels to the
    inch, and has its paragraphs begin on the paper of \a page.
*/
void apply(QTextDocument* document, const ORVPageGeometry& page, int resolution);

} // namespace ORVPageLimits

#endif
