#ifndef ORVRTF_PLACEDITEMS_H
#define ORVRTF_PLACEDITEMS_H

#include "Model.h"
#include "Place.h"

#include <vector>

/*! A paragraph or table of a document, and where it stands. */
struct PlacedItem {
    const Model::Item* item;
    /*! What contains it. */
    Place container;
    /*! Its number there, of its own kind; 0 for the only paragraph of a cell or note. */
    int number;

    bool isTable() const { return item->table != nullptr; }
    Place place() const
    {
        return number == 0 ? container
                           : container.within(isTable() ? Place::Table : Place::Paragraph, number);
    }
};

typedef std::vector<PlacedItem> PlacedItems;

/*! Sequences of paragraphs and tables, to be compared. */
namespace PlacedItemList {

/*! What is in \a flow, which stands in \a container, the default place being the body of a document. */
PlacedItems of(const Model::Flow& flow, const Place& container = Place());

/*! The same as \a items, from \a begin to \a end, with the paragraphs of their cells in place of tables. */
PlacedItems withoutTables(const PlacedItems& items, int begin, int end);

/*! Where \a cell of the table at \a table stands. */
Place placeOf(const Model::Cell& cell, const Place& table);

} // namespace PlacedItemList

#endif
