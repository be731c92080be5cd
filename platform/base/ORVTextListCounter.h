#ifndef ORVTEXTLISTCOUNTER_H
#define ORVTEXTLISTCOUNTER_H

#include "ORVPlatformGlobal.h"
#include "ORVTextListLevel.h"

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QVector>

/*!
    Counts the items of one list of several levels as word processors do: each level begins with its start, and
    begins again behind an item of a higher level. Items of higher levels that are missing count as if they were
    there: "1.1" without "1" is followed by "2".
*/
class ORV_PLATFORM_EXPORT ORVTextListCounter {
public:
    /*! Counts the next item, which is on \a level, one of \a levels. The result is its number. */
    int count(const QList<ORVTextListLevel>& levels, int level);

    /*! The marker of the item that was counted last, on \a level of \a levels. */
    QString label(const QList<ORVTextListLevel>& levels, int level) const;
    /*! The same with "%0" for the item's own number. */
    QString itemTemplate(const QList<ORVTextListLevel>& levels, int level) const;

private:
    QString filled(const QList<ORVTextListLevel>& levels, int level, bool fillsOwn) const;

    // Of the levels down to that of the last item.
    QVector<int> m_numbers;
};

#endif
