#ifndef ORVSTOCKFORMATS_H
#define ORVSTOCKFORMATS_H

#include "ORVRtfGlobal.h"

class QTextDocument;

/*!
    Translates documents between two forms of the same formats.

    In the application's form, in which RTF is read and written, lengths are points; left indents, right edges
    and line spacing are properties of the application (ORVRtfProperties.h), and QTextFormat::TextIndent is
    the position of the first line. In the stock form, which Qt's own views and its writers of HTML and ODF
    show, the same things are Qt's own properties, in pixels of ORVUnit::screenResolution(): left and right
    margins, the first line's offset from the left margin, line heights, and indents that do not repeat what a
    list adds to them.

    What is translated: of paragraphs the indents (with those of list levels), right edge, space above and
    below, line spacing and tab stops; of text a shifted baseline, which becomes super- or subscript; of lists
    markers that are empty; of tables borders and cell padding. The bits that keep paragraphs and lines
    together have no counterpart that means the same, and stay as they are.
*/
namespace ORVStockFormats {

/*!
    Turns \a document from the application's form into the stock form.

    The formats remember what they were (in properties of their own), so that fromStock() brings back exactly
    the same ones. Formats that are in stock form already stay as they are. Right edges depend on the text
    width, which comes from the document's page properties, see ORVPageGeometry::of().

    One undo step, in time proportional to the document. Does nothing when \a document is null.
*/
ORV_RTF_EXPORT void toStock(QTextDocument* document);

/*!
    Turns \a document from the stock form into the application's form.

    Formats that toStock() made become what they were before. Where one of their stock properties has been
    changed in between, the change counts: that length is translated, the others come back. Formats that
    toStock() has not made, such as those of an HTML file, are translated as they are, unless they have
    properties of the application already, so that doing it twice does no harm. Kept in stock form are
    QTextBlockFormat::LineDistanceHeight, which RTF cannot say, and all that is not named above.

    One undo step, in time proportional to the document. Does nothing when \a document is null.
*/
ORV_RTF_EXPORT void fromStock(QTextDocument* document);

} // namespace ORVStockFormats

#endif
