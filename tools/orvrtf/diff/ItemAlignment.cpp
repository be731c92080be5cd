#include "ItemAlignment.h"

#include "SequenceMatch.h"

namespace {

// Of the words of the longer item, the share that both need to have in common.
const double likenessOfPairs = 0.4;

/*! Items of both sequences, between two pairs. */
struct Gap {
    int beforeBegin;
    int beforeEnd;
    int afterBegin;
    int afterEnd;

    int beforeCount() const { return beforeEnd - beforeBegin; }
    int afterCount() const { return afterEnd - afterBegin; }
    bool isOneSided() const { return beforeCount() == 0 || afterCount() == 0; }
};

/*! The words of some items, one after the other. */
struct GapWords {
    GapWords(const AlignedSequence& sequence, int begin, int end)
    {
        for (int item = begin; item < end; ++item) {
            const QVector<int> words = sequence.words(item);
            numbers += words;
            owners += QVector<int>(words.size(), item);
            counts.append(int(words.size()));
        }
    }

    QVector<int> numbers;
    // The item that each word belongs to.
    QVector<int> owners;
    // By item, from the first one on.
    QVector<int> counts;
};

/*! Two items that have words in common. */
struct Candidate {
    int before;
    int after;
    int commonWords;
};

/*! \a matched are the partners of the words of \a before. Ascends on both sides, as the matched words do. */
QVector<Candidate> candidates(const GapWords& before, const GapWords& after, const QVector<int>& matched)
{
    QVector<Candidate> result;
    for (int i = 0; i < matched.size(); ++i) {
        if (matched.at(i) < 0)
            continue;
        const int first = before.owners.at(i);
        const int second = after.owners.at(matched.at(i));
        if (!result.isEmpty() && result.last().before == first && result.last().after == second)
            ++result.last().commonWords;
        else
            result.append({first, second, 1});
    }
    return result;
}

class Pairing {
public:
    Pairing(const AlignedSequence& before, const AlignedSequence& after, ItemAlignment::Others others)
        : m_before(before), m_after(after), m_others(others)
    {
    }

    QVector<int> run();

private:
    QVector<Gap> gaps() const;
    void pairByWords(const Gap& gap);
    void pairOthers(const Gap& gap);
    bool areOfOneKind(int before, int after) const
    {
        return m_before.items.at(before).kind == m_after.items.at(after).kind;
    }

    const AlignedSequence& m_before;
    const AlignedSequence& m_after;
    const ItemAlignment::Others m_others;
    QVector<int> m_partners;
};

QVector<int> textNumbers(const AlignedSequence& sequence)
{
    QVector<int> result;
    result.reserve(int(sequence.items.size()));
    for (const AlignedItem& item : sequence.items)
        result.append(item.text);
    return result;
}

QVector<int> Pairing::run()
{
    m_partners = SequenceMatch::partners(textNumbers(m_before), textNumbers(m_after));
    const QVector<Gap> unequal = gaps();
    for (const Gap& gap : unequal)
        pairByWords(gap);
    const QVector<Gap> unlike = gaps();
    for (const Gap& gap : unlike)
        pairOthers(gap);
    return m_partners;
}

/*! Those that have items on both sides. */
QVector<Gap> Pairing::gaps() const
{
    QVector<Gap> result;
    Gap gap = {0, 0, 0, 0};
    const int count = int(m_partners.size());
    for (int i = 0; i <= count; ++i) {
        const int partner = i == count ? int(m_after.items.size()) : m_partners.at(i);
        if (partner < 0)
            continue;
        gap.beforeEnd = i;
        gap.afterEnd = partner;
        if (!gap.isOneSided())
            result.append(gap);
        gap = {i + 1, 0, partner + 1, 0};
    }
    return result;
}

/*! Items become a pair that have more words in common with one another than with any other item. */
void Pairing::pairByWords(const Gap& gap)
{
    const GapWords before(m_before, gap.beforeBegin, gap.beforeEnd);
    const GapWords after(m_after, gap.afterBegin, gap.afterEnd);
    const QVector<Candidate> all =
        candidates(before, after, SequenceMatch::partners(before.numbers, after.numbers));
    QVector<int> mostBefore(gap.beforeCount(), 0);
    QVector<int> mostAfter(gap.afterCount(), 0);
    for (const Candidate& candidate : all) {
        int& most = mostBefore[candidate.before - gap.beforeBegin];
        int& mostOfOther = mostAfter[candidate.after - gap.afterBegin];
        most = qMax(most, candidate.commonWords);
        mostOfOther = qMax(mostOfOther, candidate.commonWords);
    }
    int last = gap.afterBegin - 1;
    for (const Candidate& candidate : all) {
        const int first = candidate.before - gap.beforeBegin;
        const int second = candidate.after - gap.afterBegin;
        const int words = qMax(before.counts.at(first), after.counts.at(second));
        if (candidate.after > last && m_partners.at(candidate.before) < 0
            && areOfOneKind(candidate.before, candidate.after)
            && candidate.commonWords == mostBefore.at(first) && candidate.commonWords == mostAfter.at(second)
            && candidate.commonWords >= likenessOfPairs * words) {
            m_partners[candidate.before] = candidate.after;
            last = candidate.after;
        }
    }
}

void Pairing::pairOthers(const Gap& gap)
{
    const int count = gap.beforeCount();
    if (count != gap.afterCount() || (count > 1 && m_others == ItemAlignment::Alone))
        return;
    for (int i = 0; i < count; ++i) {
        if (areOfOneKind(gap.beforeBegin + i, gap.afterBegin + i))
            m_partners[gap.beforeBegin + i] = gap.afterBegin + i;
    }
}

} // namespace

QVector<int> ItemAlignment::partners(const AlignedSequence& before, const AlignedSequence& after,
                                     Others others)
{
    return Pairing(before, after, others).run();
}
