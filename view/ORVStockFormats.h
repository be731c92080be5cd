#ifndef ORVSTOCKFORMATS_H
#define ORVSTOCKFORMATS_H

#include "ORVRtfGlobal.h"

class QTextDocument;

/*!
    Converts documents between two forms of their formats.

    In the application's form, which is what the reader creates and the writer expects, lengths are points.
    Left indent, right edge and line spacing are custom properties (ORVRtfProperties.h), and
    QTextFormat::TextIndent is the position of the first line. In the stock form, which Qt's views and its
    HTML and ODF writers understand, the same values are Qt's own properties in pixels of
    ORVUnit::screenResolution(): left and right margins, offset of the first line from the left margin, line
    heights, and indents without what a list adds to them.

    Converted are, for paragraphs, the indents (with those of list levels), right edge, space above and below,
    line spacing and tab stops; for text, a shifted baseline, which becomes superscript or subscript; for
    lists, empty markers; for tables, borders and cell padding. The bits that keep paragraphs and lines
    together have no equivalent and are left alone.
*/
namespace ORVStockFormats {

/*!
    Converts \a document from the application's form to the stock form.

    The original formats are stored in properties of their own, so that fromStock() restores exactly the same
    formats. Formats that are in stock form already are left alone. Right edges depend on the text width,
    which is taken from the page properties of the document, see ORVPageGeometry::of().

    One undo step, in time proportional to the size of the document. Does nothing when \a document is null.
*/
ORV_RTF_EXPORT void toStock(QTextDocument* document);

/*!
    Converts \a document from the stock form to the application's form.

    Formats made by toStock() become what they were before. If one of their stock properties has been changed
    in between, that property is converted and the others are restored. Other formats, for example those of an
    HTML file, are converted as well, unless they have custom properties already, so that converting twice
    does no harm. QTextBlockFormat::LineDistanceHeight, which RTF cannot express, and everything not named
    above stay as they are.

    One undo step, in time proportional to the size of the document. Does nothing when \a document is null.
*/
ORV_RTF_EXPORT void fromStock(QTextDocument* document);

} // namespace ORVStockFormats

#endif
