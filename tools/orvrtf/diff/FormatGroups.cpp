#include "FormatGroups.h"

#include "ChangeNames.h"

#include <algorithm>

void FormatGroups::add(const Place& place, int order, const QVector<int>& changes, bool hasText)
{
    const QVector<int> open = openChanges();
    for (const int change : open) {
        if (!changes.contains(change) && (hasText || !m_names->isOfText(change)))
            end(change);
    }
    for (const int change : changes) {
        const auto group = m_open.find(change);
        if (group == m_open.end())
            m_open.insert(change, {place, place, order});
        else
            group->last = place;
    }
}

/*! In the order in which they first occurred, so that reports do not depend on chance. */
QVector<int> FormatGroups::openChanges() const
{
    QVector<int> changes;
    for (auto group = m_open.constBegin(); group != m_open.constEnd(); ++group)
        changes.append(group.key());
    std::sort(changes.begin(), changes.end());
    return changes;
}

/*! Changes of the same places are one difference. */
void FormatGroups::end(int change)
{
    const Group group = m_open.take(change);
    if (!m_ended.isEmpty() && m_ended.last().order == group.order && m_ended.last().last == group.last) {
        m_ended.last().changes.append(m_names->name(change));
        return;
    }
    Difference difference;
    difference.place = group.first;
    difference.last = group.last;
    difference.order = group.order;
    difference.changes.append(m_names->name(change));
    m_ended.append(difference);
}

QVector<Difference> FormatGroups::take()
{
    const QVector<int> open = openChanges();
    for (const int change : open)
        end(change);
    QVector<Difference> result;
    result.swap(m_ended);
    return result;
}
