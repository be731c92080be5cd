#ifndef ORVRTF_MODELBUILDER_H
#define ORVRTF_MODELBUILDER_H

#include "Model.h"

class Symbols;

/*! Makes models of documents. */
namespace ModelBuilder {

/*!
    The model of \a source, which is in the application's form (see ORVStockFormats). Both documents of a comparison
    need the same \a symbols. \a hasLanguages: the languages of the text are compared.

    Empty paragraphs are left out where Qt has one in front of a table or behind it because it needs one. Tables that
    are nested more deeply than RTF can have them are the paragraphs of their cells.
*/
Model::Document of(const QTextDocument& source, Symbols* symbols, bool hasLanguages);

} // namespace ModelBuilder

#endif
