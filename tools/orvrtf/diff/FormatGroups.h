#ifndef ORVRTF_FORMATGROUPS_H
#define ORVRTF_FORMATGROUPS_H

#include "Difference.h"

#include <QHash>

class ChangeNames;

/*! Collects changes that paragraphs or cells in a row have in common, so that a report names them once. */
class FormatGroups {
public:
    explicit FormatGroups(const ChangeNames* names) : m_names(names) { }

    /*!
        Adds the next paragraph or cell, which stands at \a place and has \a changes. One without text does not end
        the rows of changes that only text can have.
    */
    void add(const Place& place, int order, const QVector<int>& changes, bool hasText);
    /*! The groups of all so far, which are ended by that. */
    QVector<Difference> take();

private:
    struct Group {
        Place first;
        Place last;
        int order;
    };

    QVector<int> openChanges() const;
    void end(int change);

    const ChangeNames* m_names;
    // By the number of the change.
    QHash<int, Group> m_open;
    QVector<Difference> m_ended;
};

#endif
