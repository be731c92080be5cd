#ifndef ORVRTF_SEQUENCEMATCH_H
#define ORVRTF_SEQUENCEMATCH_H

#include <QVector>

/*! The elements that two sequences have in common, in order: the basis of every comparison. */
namespace SequenceMatch {

/*!
    For each element of \a before the index of the equal element of \a after that it is matched with, -1 where it
    has none. The indices ascend. The matching is the longest one, or close to it where that would cost too much:
    the work is limited to a multiple of the lengths. The number of steps is added to \a steps, if it is not null.
*/
QVector<int> partners(const QVector<int>& before, const QVector<int>& after, qint64* steps = nullptr);

/*! The most steps that partners() takes for sequences of \a length elements together. */
qint64 mostSteps(qint64 length);

} // namespace SequenceMatch

#endif
