#ifndef ORVMARKDOWNTIDY_P_H
#define ORVMARKDOWNTIDY_P_H

#include "ORVMarkdownPiece_p.h"

namespace ORVMarkdownTidy {

/*!
    \a pieces as Markdown can have them: there is no white space at the ends of elements, links, lines and of the whole,
    and neighbours differ.
*/
ORVMarkdownPieces tidied(const ORVMarkdownPieces& pieces);

} // namespace ORVMarkdownTidy

#endif
