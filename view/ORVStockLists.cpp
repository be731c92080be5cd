#include "ORVStockLists_p.h"

#include "ORVRtfProperties.h"
#include "ORVTextListFormat.h"

#include <QtGui/QTextList>

ORVStockLists::List ORVStockLists::examined(const QTextList* list)
{
    // Levels are derived from Qt's list style where none are stored. Without a style only stored ones are
    // left.
    QTextListFormat unstyled = list->format();
    unstyled.setStyle(QTextListFormat::ListStyleUndefined);
    List result;
    result.indent = list->format().indent();
    result.shownLevel = ORVTextListFormat::shownLevel(unstyled);
    result.levels = ORVTextListFormat::levels(unstyled);
    result.storesLevels = !result.levels.isEmpty();
    if (!result.storesLevels)
        result.levels = ORVTextListFormat::levels(list->format());
    return result;
}

ORVStockListItem ORVStockLists::item(QTextList* list, const QTextBlockFormat& format)
{
    ORVStockListItem item;
    if (!list)
        return item;
    if (!m_lists.contains(list))
        m_lists.insert(list, examined(list));
    const List& known = *m_lists.constFind(list);
    const int level = known.shownLevel >= 0 ? known.shownLevel
                                            : qMax(0, format.property(ORVRtfProperty::ListLevel).toInt());
    item.indent = known.indent;
    item.hasMarker = !known.levels.isEmpty();
    if (known.storesLevels || !item.hasMarker) {
        item.hasLevel = true;
        item.level = known.levels.value(level);
        item.hasMarker = !item.level.text().isEmpty();
    }
    return item;
}
