#ifndef ORVRTF_TABLEFACTS_H
#define ORVRTF_TABLEFACTS_H

#include "Facts.h"

class QTextTable;
class QTextTableCell;

/*! What is compared of tables, in the application's form (see ORVStockFormats). */
namespace TableFacts {

/*! Those of \a table as a whole, on a page whose text is \a textWidth points wide. */
FactList of(const QTextTable& table, double textWidth);

/*!
    Those of \a cell of \a table. Of the lines of neighbours without
    space between them the wider one counts.
*/
FactList ofCell(const QTextTable& table, const QTextTableCell& cell);

} // namespace TableFacts

#endif
