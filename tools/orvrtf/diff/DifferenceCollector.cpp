#include "DifferenceCollector.h"

#include <QHash>

#include <algorithm>

namespace {

// The most places that are listed of one change.
const int mostPlaces = 8;
const int exampleCount = 3;

/*! All changes of \a difference, as one text. */
QString changesOf(const Difference& difference)
{
    return difference.changes.join(QLatin1String(", "));
}

} // namespace

void DifferenceCollector::addText(const Place& place, int order, const QVector<TextPiece>& pieces)
{
    Difference difference;
    difference.kind = Difference::Text;
    difference.place = difference.last = place;
    difference.order = order;
    difference.pieces = pieces;
    m_result.list.append(difference);
}

void DifferenceCollector::addOneSided(const Place& place, const TextPiece& piece)
{
    const Difference::Kind kind = piece.kind == TextPiece::Added ? Difference::Added : Difference::Removed;
    const bool goesOn = !m_result.list.isEmpty() && m_result.list.last().kind == kind
        && m_result.list.last().order == m_order;
    if (!goesOn) {
        Difference difference;
        difference.kind = kind;
        difference.place = place;
        difference.order = nextOrder();
        m_result.list.append(difference);
    }
    m_result.list.last().last = place;
    m_result.list.last().pieces.append(piece);
}

void DifferenceCollector::addChanges(const Place& place, int order, const QStringList& changes,
                                     const QString& words)
{
    if (changes.isEmpty())
        return;
    Difference difference;
    difference.place = difference.last = place;
    difference.order = order;
    difference.words = words;
    difference.changes = changes;
    m_result.list.append(difference);
}

void DifferenceCollector::add(const QVector<Difference>& differences)
{
    m_result.list += differences;
}

Differences DifferenceCollector::take()
{
    countWords();
    takeFrequent();
    std::stable_sort(m_result.list.begin(), m_result.list.end(),
                     [](const Difference& one, const Difference& other) { return one.order < other.order; });
    return m_result;
}

void DifferenceCollector::countWords()
{
    for (const Difference& difference : qAsConst(m_result.list)) {
        bool hasWords = false;
        for (const TextPiece& piece : difference.pieces) {
            if (piece.kind == TextPiece::Equal)
                continue;
            (piece.kind == TextPiece::Added ? m_result.wordsAdded : m_result.wordsRemoved) += piece.words;
            hasWords = hasWords || piece.words > 0;
        }
        m_result.others += hasWords ? 0 : 1;
    }
}

/*! Takes changes out of the list that are in it more often than anyone wants to read. */
void DifferenceCollector::takeFrequent()
{
    QHash<QString, int> counts;
    for (const Difference& difference : qAsConst(m_result.list)) {
        if (difference.kind == Difference::Format)
            ++counts[changesOf(difference)];
    }
    QHash<QString, int> indices;
    QVector<Difference> others;
    for (const Difference& difference : qAsConst(m_result.list)) {
        const QString changes = changesOf(difference);
        if (difference.kind != Difference::Format || counts.value(changes) <= mostPlaces) {
            others.append(difference);
            continue;
        }
        auto index = indices.find(changes);
        if (index == indices.end()) {
            index = indices.insert(changes, int(m_result.frequent.size()));
            m_result.frequent.append({changes, 0, {}});
        }
        FrequentChange& frequent = m_result.frequent[*index];
        if (++frequent.count <= exampleCount)
            frequent.examples.append(difference);
    }
    m_result.list = others;
    std::stable_sort(
        m_result.frequent.begin(), m_result.frequent.end(),
        [](const FrequentChange& one, const FrequentChange& other) { return one.count > other.count; });
}
