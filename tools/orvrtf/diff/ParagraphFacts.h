#ifndef ORVRTF_PARAGRAPHFACTS_H
#define ORVRTF_PARAGRAPHFACTS_H

#include "Facts.h"

class ORVTextBorder;
class QTextBlock;

/*! What is compared of the formats of paragraphs, in the application's form (see ORVStockFormats). */
namespace ParagraphFacts {

/*! Those of \a block, on a page whose text is \a textWidth points wide; paragraphs of one format share them. */
FactList of(const QTextBlock& block, double textWidth);

/*! A line, which is visible. */
FactValue line(const ORVTextBorder& border);

} // namespace ParagraphFacts

#endif
