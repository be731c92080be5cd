#ifndef ORVRTF_DOCUMENTCOMPARISON_H
#define ORVRTF_DOCUMENTCOMPARISON_H

#include "Difference.h"

class QTextDocument;

/*! Compares documents: their text, formats, tables, pictures, notes and what describes them. */
namespace DocumentComparison {

/*! Which of the properties both documents can have. */
struct Scope {
    /*! The languages of text are known. */
    bool hasLanguages = true;
    /*! The pages are known. */
    bool hasPages = true;
};

/*!
    What is different in \a after. Both documents are in the application's form (see ORVStockFormats), and their page
    breaks are normal (see TextDocSupport::normalizePageBreaks()).
*/
Differences compare(const QTextDocument& before, const QTextDocument& after, const Scope& scope);

} // namespace DocumentComparison

#endif
