#ifndef ORVRTF_ITEMTEXT_H
#define ORVRTF_ITEMTEXT_H

#include "Model.h"

class Symbols;

/*! The texts of paragraphs and tables, by which they are recognised. */
namespace ItemText {

/*! The numbers in \a symbols of the words of \a flow, which is of \a document. */
QVector<int> words(const Model::Document& document, const Model::Flow& flow, Symbols* symbols);

/*! The same for one \a item. */
QVector<int> words(const Model::Document& document, const Model::Item& item, Symbols* symbols);

/*! A text that is equal for equal texts of \a flow. */
QString key(const Model::Flow& flow);

} // namespace ItemText

#endif
