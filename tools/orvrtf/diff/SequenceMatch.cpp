#include "SequenceMatch.h"

#include <QHash>

#include <limits>

namespace {

// Of the search for the middle of a box: the most differences that it looks for on each side.
const int mostDifferences = 256;
const qint64 stepsPerElement = 1024;
const qint64 freeSteps = 1 << 22;
// On diagonals that no path has come to, with room for one more step.
const int nowhereYet = std::numeric_limits<int>::min() / 2;
const int nowhereBack = std::numeric_limits<int>::max() / 2;

/*! A part of each of the two sequences. */
struct Box {
    int firstBegin;
    int firstEnd;
    int secondBegin;
    int secondEnd;

    bool isEmpty() const { return firstBegin == firstEnd || secondBegin == secondEnd; }
    bool contains(int first, int second) const
    {
        return first >= firstBegin && first <= firstEnd && second >= secondBegin && second <= secondEnd;
    }
};

struct Point {
    int first;
    int second;
};

/*!
    Myers' algorithm in linear space: a box is divided where a path from its beginning and one from its end meet.
    Both advance by one difference at a time.
*/
class Matcher {
public:
    Matcher(const QVector<int>& first, const QVector<int>& second);

    /*! The partners of the elements of the first sequence. */
    QVector<int> run();
    qint64 steps() const { return m_steps; }

private:
    struct Range {
        int low;
        int high;
    };

    void trim(Box* box);
    Point middle(const Box& box);
    bool advance(const Box& box, Range* forward, const Range& backward, bool mayMeet, Point* meeting);
    bool retreat(const Box& box, const Range& forward, Range* backward, bool mayMeet, Point* meeting);
    void widen(const Box& box, Range* range, QVector<int>& reached, int outside) const;
    Point furthest(const Box& box, const Range& forward, const Range& backward) const;
    bool areEqual(int first, int second) const { return m_first[first] == m_second[second]; }
    /*! Where the diagonal is in the vectors of what is reached. */
    int slot(int diagonal) const { return diagonal + m_origin; }

    const int* m_first;
    const int* m_second;
    const Box m_all;
    const int m_origin;
    const qint64 m_limit;
    // By diagonal (index in the first sequence minus that in the second): how far the paths have come.
    QVector<int> m_forward;
    QVector<int> m_backward;
    QVector<int> m_partners;
    qint64 m_steps = 0;
};

Matcher::Matcher(const QVector<int>& first, const QVector<int>& second)
    : m_first(first.constData()), m_second(second.constData()),
      m_all({0, int(first.size()), 0, int(second.size())}), m_origin(m_all.secondEnd + 1),
      m_limit(SequenceMatch::mostSteps(qint64(first.size()) + second.size())),
      m_forward(m_all.firstEnd + m_all.secondEnd + 3), m_backward(m_all.firstEnd + m_all.secondEnd + 3),
      m_partners(m_all.firstEnd, -1)
{
}

QVector<int> Matcher::run()
{
    QVector<Box> boxes{m_all};
    while (!boxes.isEmpty()) {
        Box box = boxes.takeLast();
        trim(&box);
        if (box.isEmpty() || m_steps >= m_limit)
            continue;
        const Point point = middle(box);
        const Box begin = {box.firstBegin, point.first, box.secondBegin, point.second};
        const Box end = {point.first, box.firstEnd, point.second, box.secondEnd};
        // One of them is the box itself only where no path has come anywhere.
        if (point.first + point.second < box.firstEnd + box.secondEnd)
            boxes.append(begin);
        if (point.first + point.second > box.firstBegin + box.secondBegin)
            boxes.append(end);
    }
    return m_partners;
}

/*! Matches what is equal at both ends of \a box. */
void Matcher::trim(Box* box)
{
    const int size = box->firstEnd - box->firstBegin;
    while (!box->isEmpty() && areEqual(box->firstBegin, box->secondBegin))
        m_partners[box->firstBegin++] = box->secondBegin++;
    while (!box->isEmpty() && areEqual(box->firstEnd - 1, box->secondEnd - 1))
        m_partners[--box->firstEnd] = --box->secondEnd;
    m_steps += 1 + size - (box->firstEnd - box->firstBegin);
}

/*! One more diagonal on each side of \a range, or one fewer where the box ends. */
void Matcher::widen(const Box& box, Range* range, QVector<int>& reached, int outside) const
{
    if (range->low > box.firstBegin - box.secondEnd)
        reached[slot(--range->low - 1)] = outside;
    else
        ++range->low;
    if (range->high < box.firstEnd - box.secondBegin)
        reached[slot(++range->high + 1)] = outside;
    else
        --range->high;
}

bool Matcher::advance(const Box& box, Range* forward, const Range& backward, bool mayMeet, Point* meeting)
{
    widen(box, forward, m_forward, nowhereYet);
    for (int diagonal = forward->high; diagonal >= forward->low; diagonal -= 2) {
        int first = qMax(m_forward[slot(diagonal - 1)] + 1, m_forward[slot(diagonal + 1)]);
        if (!box.contains(first, first - diagonal)) {
            m_forward[slot(diagonal)] = nowhereYet;
            continue;
        }
        const int begin = first;
        while (first < box.firstEnd && first - diagonal < box.secondEnd && areEqual(first, first - diagonal))
            ++first;
        m_steps += 1 + first - begin;
        m_forward[slot(diagonal)] = first;
        if (mayMeet && diagonal >= backward.low && diagonal <= backward.high
            && m_backward[slot(diagonal)] <= first) {
            *meeting = {first, first - diagonal};
            return true;
        }
    }
    return false;
}

bool Matcher::retreat(const Box& box, const Range& forward, Range* backward, bool mayMeet, Point* meeting)
{
    widen(box, backward, m_backward, nowhereBack);
    for (int diagonal = backward->high; diagonal >= backward->low; diagonal -= 2) {
        int first = qMin(m_backward[slot(diagonal - 1)], m_backward[slot(diagonal + 1)] - 1);
        if (!box.contains(first, first - diagonal)) {
            m_backward[slot(diagonal)] = nowhereBack;
            continue;
        }
        const int end = first;
        while (first > box.firstBegin && first - diagonal > box.secondBegin
               && areEqual(first - 1, first - diagonal - 1))
            --first;
        m_steps += 1 + end - first;
        m_backward[slot(diagonal)] = first;
        if (mayMeet && diagonal >= forward.low && diagonal <= forward.high
            && first <= m_forward[slot(diagonal)]) {
            *meeting = {first, first - diagonal};
            return true;
        }
    }
    return false;
}

/*! A point of \a box that a shortest path goes through, or a long way along one where that would cost too much. */
Point Matcher::middle(const Box& box)
{
    const int begin = box.firstBegin - box.secondBegin;
    const int end = box.firstEnd - box.secondEnd;
    const bool isOdd = ((begin - end) & 1) != 0;
    Range forward = {begin, begin};
    Range backward = {end, end};
    m_forward[slot(begin)] = box.firstBegin;
    m_backward[slot(end)] = box.firstEnd;
    Point meeting = {box.firstBegin, box.secondBegin};
    for (int differences = 0; differences < mostDifferences && m_steps < m_limit; ++differences) {
        if (advance(box, &forward, backward, isOdd, &meeting)
            || retreat(box, forward, &backward, !isOdd, &meeting))
            return meeting;
    }
    return furthest(box, forward, backward);
}

/*! The point, of all that the paths have reached, that leaves least to do on its way to the beginning or end. */
Point Matcher::furthest(const Box& box, const Range& forward, const Range& backward) const
{
    Point best = {box.firstBegin, box.secondBegin};
    int longest = 0;
    const auto consider = [&](int first, int diagonal, bool isForward) {
        const Point point = {first, first - diagonal};
        if (!box.contains(point.first, point.second))
            return;
        const int length = isForward ? point.first - box.firstBegin + point.second - box.secondBegin
                                     : box.firstEnd - point.first + box.secondEnd - point.second;
        if (length > longest) {
            longest = length;
            best = point;
        }
    };
    for (int diagonal = forward.low; diagonal <= forward.high; diagonal += 2)
        consider(m_forward[slot(diagonal)], diagonal, true);
    for (int diagonal = backward.low; diagonal <= backward.high; diagonal += 2)
        consider(m_backward[slot(diagonal)], diagonal, false);
    return best;
}

/*! The elements that the other sequence has too: no others can be matched, and they would only cost time. */
QVector<int> shared(const QVector<int>& sequence, const QVector<int>& other, QVector<int>* indices)
{
    QHash<int, bool> known;
    known.reserve(int(other.size()));
    for (const int element : other)
        known.insert(element, true);
    QVector<int> result;
    for (int i = 0; i < sequence.size(); ++i) {
        if (known.contains(sequence.at(i))) {
            result.append(sequence.at(i));
            indices->append(i);
        }
    }
    return result;
}

} // namespace

qint64 SequenceMatch::mostSteps(qint64 length)
{
    return length * stepsPerElement + freeSteps;
}

QVector<int> SequenceMatch::partners(const QVector<int>& before, const QVector<int>& after, qint64* steps)
{
    QVector<int> beforeIndices;
    QVector<int> afterIndices;
    const QVector<int> sharedBefore = shared(before, after, &beforeIndices);
    const QVector<int> sharedAfter = shared(after, before, &afterIndices);
    Matcher matcher(sharedBefore, sharedAfter);
    const QVector<int> matched = matcher.run();
    QVector<int> result(before.size(), -1);
    for (int i = 0; i < matched.size(); ++i) {
        if (matched.at(i) >= 0)
            result[beforeIndices.at(i)] = afterIndices.at(matched.at(i));
    }
    if (steps)
        *steps += matcher.steps();
    return result;
}
