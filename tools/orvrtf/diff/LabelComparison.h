#ifndef ORVRTF_LABELCOMPARISON_H
#define ORVRTF_LABELCOMPARISON_H

#include <ORVTextListLabels.h>

#include <QHash>
#include <QPair>
#include <QStringList>
#include <QVector>

/*! Compares the labels of list items, which are given in the order of the text. */
class LabelComparison {
public:
    /*!
        What is different in \a after, in words. A new or lost item changes the numbers of all behind it: only the
        first of them counts as different.
    */
    QStringList changes(const ORVTextListLabels::Label& before, const ORVTextListLabels::Label& after);

private:
    typedef ORVTextListLabels::Label Label;

    bool followsFromOthers(const Label& before, const Label& after) const;

    // By the lists: how much higher the numbers are in the second document, by level.
    QHash<QPair<int, int>, QVector<int>> m_shifts;
};

#endif
