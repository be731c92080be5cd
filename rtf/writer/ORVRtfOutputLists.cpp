#include "ORVRtfOutputLists_p.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextList>

void ORVRtfOutputLists::append(QTextList* list, const QTextCharFormat& markerFormat)
{
    const List entry = {list, markerFormat};
    m_lists.append(entry);
    m_numbers.insert(list, int(m_lists.size()));
}

void ORVRtfOutputLists::append(QTextList* list, const QTextCharFormat& markerFormat, const Joined& joined)
{
    if (const int number = m_joinedNumbers.value(joined, 0)) {
        m_numbers.insert(list, number);
        return;
    }
    append(list, markerFormat);
    m_joinedNumbers.insert(joined, number(list));
}

int ORVRtfOutputLists::itemNumber(const QTextList* list, const QTextBlock& block)
{
    // QTextList::itemNumber() searches the whole list; only an item out of order needs that.
    int& next = m_nextItems[list];
    if (next >= list->count() || list->item(next) != block)
        next = list->itemNumber(block);
    return ++next;
}

void ORVRtfOutputLists::clear()
{
    m_lists.clear();
    m_numbers.clear();
    m_joinedNumbers.clear();
    m_nextItems.clear();
}
