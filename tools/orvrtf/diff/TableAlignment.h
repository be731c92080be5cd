#ifndef ORVRTF_TABLEALIGNMENT_H
#define ORVRTF_TABLEALIGNMENT_H

#include "Model.h"

class Symbols;

/*! Which rows and columns of two tables are the same. */
class TableAlignment {
public:
    TableAlignment(const Model::Document& beforeDocument, const Model::Table& before,
                   const Model::Document& afterDocument, const Model::Table& after, Symbols* symbols);

    /*! The cell of the second table that \a cell of the first one has become; null when there is none. */
    const Model::Cell* partner(const Model::Cell& cell) const;

private:
    const Model::Table& m_after;
    // By row and column of the first table; -1 for none.
    QVector<int> m_rows;
    QVector<int> m_columns;
};

#endif
