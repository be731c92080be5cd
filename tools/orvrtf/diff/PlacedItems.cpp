#include "PlacedItems.h"

namespace {

/*! Appends \a item, without the tables in it. The depth of tables in a model is limited. */
void appendParagraphs(const PlacedItem& item, PlacedItems* result)
{
    if (!item.isTable()) {
        result->push_back(item);
        return;
    }
    for (const Model::Cell& cell : item.item->table->cells) {
        const PlacedItems content =
            PlacedItemList::of(cell.flow, PlacedItemList::placeOf(cell, item.place()));
        for (const PlacedItem& inner : content)
            appendParagraphs(inner, result);
    }
}

} // namespace

PlacedItems PlacedItemList::of(const Model::Flow& flow, const Place& container)
{
    PlacedItems result;
    result.reserve(flow.size());
    int paragraphs = 0;
    int tables = 0;
    const bool isAlone = flow.size() == 1 && container != Place() && !flow.front().table;
    for (const Model::Item& item : flow) {
        const int number = item.table ? ++tables : ++paragraphs;
        result.push_back({&item, container, isAlone ? 0 : number});
    }
    return result;
}

PlacedItems PlacedItemList::withoutTables(const PlacedItems& items, int begin, int end)
{
    PlacedItems result;
    for (int i = begin; i < end; ++i)
        appendParagraphs(items[std::size_t(i)], &result);
    return result;
}

Place PlacedItemList::placeOf(const Model::Cell& cell, const Place& table)
{
    return table.within(Place::Row, cell.row + 1).within(Place::Column, cell.column + 1);
}
