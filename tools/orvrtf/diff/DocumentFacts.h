#ifndef ORVRTF_DOCUMENTFACTS_H
#define ORVRTF_DOCUMENTFACTS_H

#include "Facts.h"

class QTextDocument;

/*! What is compared of documents besides their text. */
namespace DocumentFacts {

/*! Page size and margins, tab distance and where headers and footers are shown. */
FactList ofPage(const QTextDocument& document);

/*! What title, author, header and so on have become in \a after, in words. */
QStringList textChanges(const QTextDocument& before, const QTextDocument& after);

} // namespace DocumentFacts

#endif
