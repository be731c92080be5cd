#include "ORVMarkdownLists_p.h"

namespace {

// Documents in Qt's form can have any level, and each one adds to the indent.
const size_t deepestList = 15;

/*! A mark for a list behind one with \a last, which would go on with the same; 0 for none. */
char markBehind(char last, bool isNumbered, bool hasParenthesis)
{
    const char preferred = isNumbered ? (hasParenthesis ? ')' : '.') : '-';
    const char other = isNumbered ? (hasParenthesis ? '.' : ')') : '*';
    return last == preferred ? other : preferred;
}

} // namespace

bool ORVMarkdownLists::goesOn(const ORVTextListLabels::Label& label, bool isNumbered) const
{
    const List& last = m_open.back();
    return last.number == label.list && last.isNumbered == isNumbered
        && (!isNumbered || last.nextNumber == label.number);
}

/*! Ends the lists that the item cannot be in. Returns the mark of the last one; 0 for none. */
char ORVMarkdownLists::close(const ORVTextListLabels::Label& label, bool isNumbered)
{
    char closed = 0;
    const auto closeLast = [&] {
        closed = m_open.back().mark;
        m_open.pop_back();
    };
    while (!m_open.empty() && m_open.back().level > label.level)
        closeLast();
    const bool isOnLevel =
        !m_open.empty() && (m_open.back().level == label.level || m_open.size() == deepestList);
    if (isOnLevel && !goesOn(label, isNumbered))
        closeLast();
    return closed;
}

ORVMarkdownLists::Item ORVMarkdownLists::begin(const ORVTextListLabels::Label& label, bool isNumbered)
{
    Item item;
    item.isTight = !m_open.empty();
    const char closed = close(label, isNumbered);
    const bool goesOn =
        !m_open.empty() && (m_open.back().level == label.level || m_open.size() == deepestList);
    if (!goesOn) {
        // An empty line makes the list around it a loose one: it is for lists that would not be recognised.
        const bool isBehindText = closed == 0;
        if (m_open.empty() || (isBehindText && isNumbered && label.number != 1))
            item.isTight = false;
        List list;
        list.number = label.list;
        list.level = label.level;
        list.isNumbered = isNumbered;
        list.mark = markBehind(closed, isNumbered, label.text.endsWith(QLatin1Char(')')));
        list.indent = m_open.empty() ? 0 : m_open.back().contentIndent;
        m_open.push_back(list);
    }
    List& list = m_open.back();
    list.nextNumber = qint64(label.number) + 1;
    if (isNumbered)
        item.marker = QString::number(label.number);
    item.marker += QLatin1Char(list.mark);
    item.marker += QLatin1Char(' ');
    item.indent = list.indent;
    list.contentIndent = list.indent + int(item.marker.size());
    return item;
}
