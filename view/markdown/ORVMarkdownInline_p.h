#ifndef ORVMARKDOWNINLINE_P_H
#define ORVMARKDOWNINLINE_P_H

#include "ORVMarkdownEscape_p.h"
#include "ORVMarkdownPiece_p.h"

/*! The text of a paragraph as Markdown. */
namespace ORVMarkdownInline {

/*!
    \a pieces as they stand in \a place. White space around the text and its lines is left out. Lines end with a
    backslash and a line feed in paragraphs, and with "<br>" elsewhere. Empty when there is nothing to see.
*/
QString markdown(const ORVMarkdownPieces& pieces, ORVMarkdownPlace place);

/*! Takes from \a pieces that bold, italic and underlined style that all of their text has. */
void removeCommonStyle(ORVMarkdownPieces* pieces);

/*! Whether \a pieces have text, and all of it has \a style. */
bool isAllOf(const ORVMarkdownPieces& pieces, ORVMarkdownPiece::Style style);

} // namespace ORVMarkdownInline

#endif
