#ifndef PRINTCOPY_H
#define PRINTCOPY_H

#include <memory>

class QTextDocument;

/*! What of a document is on paper, where nothing can be clicked on or pointed at. */
namespace PrintCopy {

/*!
    A copy of \a document for ORVPagePainter: its revision levels are colours, its notes stand behind a
    rule at the end, and each level of a list has markers of its own.
*/
std::unique_ptr<QTextDocument> of(const QTextDocument& document);

} // namespace PrintCopy

#endif
