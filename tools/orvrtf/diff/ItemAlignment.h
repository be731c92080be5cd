#ifndef ORVRTF_ITEMALIGNMENT_H
#define ORVRTF_ITEMALIGNMENT_H

#include <QVector>

#include <functional>

/*! A paragraph or table, or a row or column of one, in its sequence. */
struct AlignedItem {
    /*! Equal for items of equal text. */
    int text;
    /*! Only items of one kind become pairs. */
    int kind;
};

/*! A sequence of items, and the words that each of them has. */
struct AlignedSequence {
    QVector<AlignedItem> items;
    std::function<QVector<int>(int)> words;
};

/*! Which items of two sequences are the same: equal ones, and those of which most words are equal. */
namespace ItemAlignment {

/*! What becomes of items that have nothing in common, between two pairs. */
enum Others {
    /*! They stay alone, unless there is one on each side only. */
    Alone,
    /*! They become pairs where there are as many on both sides. */
    InOrder
};

/*!
    For each item of \a before the index of its partner in \a after, -1 where it has none. The indices ascend. In time
    and memory about proportional to the number of words.
*/
QVector<int> partners(const AlignedSequence& before, const AlignedSequence& after, Others others);

} // namespace ItemAlignment

#endif
