#ifndef ORVRTF_TEXTFACTS_H
#define ORVRTF_TEXTFACTS_H

#include "Facts.h"

class QTextCharFormat;

/*! What is compared of the formats of text, in the application's form (see ORVStockFormats). */
namespace TextFacts {

/*!
    Those of \a format, which is of a document: its default font counts for what the format does not state.
    \a language is that of text which states none; it is left out unless \a hasLanguages.
*/
FactList of(const QTextCharFormat& format, const QString& language, bool hasLanguages);

/*! Those of \a facts that can be seen on white space. */
FactList onBlanks(const FactList& facts);

/*! Those of \a facts that are the same for pictures and marks of notes. */
FactList onObjects(const FactList& facts);

/*! Those of \a facts that an empty paragraph has its height from. */
FactList onEmptyParagraph(const FactList& facts);

/*! Those of \a facts that the label of a list item has. */
FactList onLabel(const FactList& facts);

} // namespace TextFacts

#endif
