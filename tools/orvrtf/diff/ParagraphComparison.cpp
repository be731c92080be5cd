#include "ParagraphComparison.h"

#include "ChangeNames.h"
#include "Messages.h"
#include "SequenceMatch.h"
#include "Symbols.h"
#include "TextFacts.h"
#include "Words.h"

#include <algorithm>

using namespace Model;

namespace {

/*! The first object of \a paragraph that is not in front of \a position. */
QVector<Object>::const_iterator objectsFrom(const Paragraph& paragraph, int position)
{
    return std::lower_bound(paragraph.objects.constBegin(), paragraph.objects.constEnd(), position,
                            [](const Object& object, int place) { return object.position < place; });
}

/*! The object at \a position of \a paragraph; null where there is none. */
const Object* objectAt(const Paragraph& paragraph, int position)
{
    const auto object = objectsFrom(paragraph, position);
    return object != paragraph.objects.constEnd() && object->position == position ? &*object : nullptr;
}

bool mayBeObject(QChar character)
{
    return character.unicode() >= 0xfff9 && character.unicode() <= 0xfffc;
}

QString noteName(ORVNote::Kind kind)
{
    switch (kind) {
    case ORVNote::Endnote: return Messages::tr("endnote");
    case ORVNote::Comment: return Messages::tr("comment");
    default: return Messages::tr("footnote");
    }
}

/*! How reports show \a object of \a document: a note with its text if it \a isWhole, else with its mark. */
QString shownObject(const Document& document, const Object& object, bool isWhole)
{
    if (!object.isNote)
        return Messages::tr("[picture]");
    if (!isWhole)
        return QLatin1Char('[') + object.note.mark + QLatin1Char(']');
    const QString text = ORVNotes::text(document.source, object.note);
    return QLatin1Char('[') + noteName(object.note.kind) + QLatin1String(": ") + text + QLatin1Char(']');
}

/*! The text of \a paragraph from \a begin to \a end for people. */
QString shownPart(const Document& document, const Paragraph& paragraph, int begin, int end, bool isWhole)
{
    QString text;
    int from = begin;
    for (auto object = objectsFrom(paragraph, begin);
         object != paragraph.objects.constEnd() && object->position < end; ++object) {
        text += paragraph.text.mid(from, object->position - from) + shownObject(document, *object, isWhole);
        from = object->position + 1;
    }
    return text + paragraph.text.mid(from, end - from);
}

/*! All that \a paragraph has from \a begin to \a end, also the text of its notes, as a piece of \a kind. */
TextPiece wholePiece(TextPiece::Kind kind, const Document& document, const Paragraph& paragraph, int begin,
                     int end)
{
    int words = Words::count(paragraph.text.mid(begin, end - begin));
    for (auto object = objectsFrom(paragraph, begin);
         object != paragraph.objects.constEnd() && object->position < end; ++object) {
        if (object->isNote)
            words += Words::count(ORVNotes::text(document.source, object->note));
    }
    return {kind, shownPart(document, paragraph, begin, end, true), words};
}

/*! The words of both paragraphs, and which of them are the same. */
struct WordMatch {
    QVector<Word> before;
    QVector<Word> after;
    QVector<int> partners;
};

QVector<int> numbersOf(const QString& text, const QVector<Word>& words, Symbols* symbols)
{
    QVector<int> numbers;
    for (const Word& word : words)
        numbers.append(symbols->of(text.mid(word.begin, word.end - word.begin)));
    return numbers;
}

/*! Signs and blanks between changed words are changed with them: that is easier to read. */
void dropLoneSigns(const QString& text, const QVector<Word>& words, QVector<int>& partners)
{
    int begin = 0;
    const int count = int(words.size());
    while (begin < count) {
        int end = begin + 1;
        if (partners.at(begin) >= 0) {
            bool hasWord = false;
            for (end = begin; end < count && partners.at(end) >= 0
                 && (end == begin || partners.at(end) == partners.at(end - 1) + 1);
                 ++end)
                hasWord = hasWord || words.at(end).isWord || mayBeObject(text.at(words.at(end).begin));
            if (!hasWord && begin > 0 && end < count)
                std::fill(partners.begin() + begin, partners.begin() + end, -1);
        }
        begin = end;
    }
}

/*! The index of the run of \a paragraph that \a position is in. */
int runAt(const Paragraph& paragraph, int position)
{
    const auto next = std::upper_bound(paragraph.runs.constBegin(), paragraph.runs.constEnd(), position,
                                       [](int place, const Run& run) { return place < run.begin; });
    return int(next - paragraph.runs.constBegin()) - 1;
}

} // namespace

/*! Compares one pair of paragraphs. */
class ParagraphComparer {
public:
    ParagraphComparer(ParagraphComparison* comparison, const Paragraph& before, const Paragraph& after)
        : m_comparison(comparison), m_before(before), m_after(after)
    {
    }

    ParagraphDifferences run();

private:
    typedef ParagraphComparison::Formats Formats;

    /*! A part of both texts that is equal. */
    struct Stretch {
        int before;
        int after;
        int length;
    };
    /*! A part of the first text that has a change. */
    struct Range {
        int change;
        int begin;
        int end;
    };

    void matchWords();
    void addPieces(const WordMatch& match);
    void addPiece(TextPiece::Kind kind, int begin, int end);
    void compareFormats(int before, int after, int length);
    void compareRun(int before, int length, const Formats& formats);
    void addRange(int begin, int end, const QVector<int>& changes);
    void compareObjects(int before, int after, int length);
    void compareEnds();
    bool hasOnlyBlanks(int begin, int end) const;
    Range trimmed(Range range) const;
    void sortRanges();
    int lettersIn(int begin, int end) const;

    ParagraphComparison* m_comparison;
    const Paragraph& m_before;
    const Paragraph& m_after;
    ParagraphDifferences m_result;
    QVector<Stretch> m_stretches;
    QVector<Range> m_ranges;
    // By change: the index of its last part.
    QHash<int, int> m_lastRanges;
};

ParagraphDifferences ParagraphComparer::run()
{
    if (m_before.text == m_after.text)
        m_stretches.append({0, 0, int(m_before.text.size())});
    else
        matchWords();
    for (const Stretch& stretch : m_stretches) {
        compareFormats(stretch.before, stretch.after, stretch.length);
        compareObjects(stretch.before, stretch.after, stretch.length);
    }
    sortRanges();
    compareEnds();
    m_result.hasCommonText = !m_stretches.isEmpty();
    return m_result;
}

void ParagraphComparer::matchWords()
{
    WordMatch match;
    match.before = Words::of(m_before.text);
    match.after = Words::of(m_after.text);
    match.partners = SequenceMatch::partners(numbersOf(m_before.text, match.before, m_comparison->m_symbols),
                                             numbersOf(m_after.text, match.after, m_comparison->m_symbols));
    dropLoneSigns(m_before.text, match.before, match.partners);
    addPieces(match);
}

void ParagraphComparer::addPieces(const WordMatch& match)
{
    int i = 0;
    int j = 0;
    const int count = int(match.before.size());
    while (i < count || j < match.after.size()) {
        const int firstRemoved = i;
        while (i < count && match.partners.at(i) < 0)
            ++i;
        const int nextPartner = i < count ? match.partners.at(i) : int(match.after.size());
        if (firstRemoved < i)
            addPiece(TextPiece::Removed, match.before.at(firstRemoved).begin, match.before.at(i - 1).end);
        if (j < nextPartner)
            addPiece(TextPiece::Added, match.after.at(j).begin, match.after.at(nextPartner - 1).end);
        j = nextPartner;
        const int firstEqual = i;
        while (i < count && match.partners.at(i) == j) {
            ++i;
            ++j;
        }
        if (firstEqual == i)
            continue;
        const int begin = match.before.at(firstEqual).begin;
        const int end = match.before.at(i - 1).end;
        addPiece(TextPiece::Equal, begin, end);
        m_stretches.append({begin, match.after.at(j - (i - firstEqual)).begin, end - begin});
    }
}

void ParagraphComparer::addPiece(TextPiece::Kind kind, int begin, int end)
{
    if (kind == TextPiece::Equal)
        m_result.pieces.append({kind, shownPart(m_comparison->m_before, m_before, begin, end, false), 0});
    else if (kind == TextPiece::Removed)
        m_result.pieces.append(wholePiece(kind, m_comparison->m_before, m_before, begin, end));
    else
        m_result.pieces.append(wholePiece(kind, m_comparison->m_after, m_after, begin, end));
}

void ParagraphComparer::compareFormats(int before, int after, int length)
{
    if (length == 0)
        return;
    int first = runAt(m_before, before);
    int second = runAt(m_after, after);
    const auto endOf = [](const Paragraph& paragraph, int run) {
        return run + 1 < paragraph.runs.size() ? paragraph.runs.at(run + 1).begin
                                               : int(paragraph.text.size());
    };
    for (int done = 0; done < length;) {
        const int firstEnd = endOf(m_before, first) - before;
        const int secondEnd = endOf(m_after, second) - after;
        const int end = qMin(length, qMin(firstEnd, secondEnd));
        compareRun(before + done, end - done,
                   {m_before.runs.at(first).format, m_after.runs.at(second).format});
        done = end;
        first += firstEnd == end ? 1 : 0;
        second += secondEnd == end ? 1 : 0;
    }
}

/*! Text of one format on each side. */
void ParagraphComparer::compareRun(int before, int length, const Formats& formats)
{
    if (m_comparison->changes(formats.first, formats.second, ParagraphComparison::Letters).isEmpty())
        return;
    const auto surfaceAt = [this](int position) {
        const QChar character = m_before.text.at(position);
        if (character.isSpace())
            return ParagraphComparison::Blanks;
        return mayBeObject(character) && objectAt(m_before, position) ? ParagraphComparison::Objects
                                                                      : ParagraphComparison::Letters;
    };
    const int end = before + length;
    for (int begin = before; begin < end;) {
        const ParagraphComparison::Surface surface = surfaceAt(begin);
        int next = begin + 1;
        while (next < end && surfaceAt(next) == surface)
            ++next;
        addRange(begin, next, m_comparison->changes(formats.first, formats.second, surface));
        begin = next;
    }
}

bool ParagraphComparer::hasOnlyBlanks(int begin, int end) const
{
    return std::all_of(m_before.text.constBegin() + begin, m_before.text.constBegin() + end,
                       [](QChar character) { return character.isSpace(); });
}

/*! Words are one part, although a change may not be seen on the blanks between them. */
void ParagraphComparer::addRange(int begin, int end, const QVector<int>& changes)
{
    for (const int change : changes) {
        const int last = m_lastRanges.value(change, -1);
        if (last >= 0 && hasOnlyBlanks(m_ranges.at(last).end, begin)) {
            m_ranges[last].end = end;
        } else {
            m_lastRanges.insert(change, int(m_ranges.size()));
            m_ranges.append({change, begin, end});
        }
    }
}

ParagraphComparer::Range ParagraphComparer::trimmed(Range range) const
{
    if (hasOnlyBlanks(range.begin, range.end))
        return range;
    while (m_before.text.at(range.begin).isSpace())
        ++range.begin;
    while (m_before.text.at(range.end - 1).isSpace())
        --range.end;
    return range;
}

/*! How much there is to see; of text without letters, all of it. */
int ParagraphComparer::lettersIn(int begin, int end) const
{
    int count = 0;
    for (int i = begin; i < end; ++i)
        count += m_before.text.at(i).isSpace() || mayBeObject(m_before.text.at(i)) ? 0 : 1;
    return count;
}

/*! Changes that all letters have are those of the paragraph, and the others those of their words. */
void ParagraphComparer::sortRanges()
{
    int letters = 0;
    for (const Stretch& stretch : m_stretches)
        letters += lettersIn(stretch.before, stretch.before + stretch.length);
    QHash<int, int> changedLetters;
    for (const Range& range : m_ranges)
        changedLetters[range.change] += lettersIn(range.begin, range.end);
    QVector<Range> parts;
    for (const Range& range : m_ranges) {
        if (letters == 0 || changedLetters.value(range.change) < letters)
            parts.append(trimmed(range));
        else if (!m_result.changes.contains(range.change))
            m_result.changes.append(range.change);
    }
    std::stable_sort(parts.begin(), parts.end(), [](const Range& one, const Range& other) {
        return one.begin != other.begin ? one.begin < other.begin : one.end > other.end;
    });
    for (int i = 0; i < parts.size(); ++i) {
        const Range& part = parts.at(i);
        const bool isSame = i > 0 && parts.at(i - 1).begin == part.begin && parts.at(i - 1).end == part.end;
        if (!isSame)
            m_result.words.append(ParagraphDifferences::Words{
                shownPart(m_comparison->m_before, m_before, part.begin, part.end, false), QVector<int>()});
        m_result.words.last().changes.append(part.change);
    }
}

void ParagraphComparer::compareObjects(int before, int after, int length)
{
    for (auto object = objectsFrom(m_before, before);
         object != m_before.objects.constEnd() && object->position < before + length; ++object) {
        const Object* const other = objectAt(m_after, after + object->position - before);
        if (other && other->isNote == object->isNote)
            m_result.objects.append(ParagraphDifferences::Objects{&*object, other});
    }
}

/*! The end of a paragraph is seen where the paragraph is empty, and by its label. */
void ParagraphComparer::compareEnds()
{
    if (m_before.text.isEmpty() && m_after.text.isEmpty())
        m_result.changes +=
            m_comparison->changes(m_before.endFormat, m_after.endFormat, ParagraphComparison::Empty);
    if (m_before.label.text.isEmpty() || m_after.label.text.isEmpty())
        return;
    const QVector<int> changes =
        m_comparison->changes(m_before.endFormat, m_after.endFormat, ParagraphComparison::Labels);
    for (const int change : changes) {
        if (!m_result.changes.contains(change))
            m_result.changes.append(m_comparison->m_names->number(
                Messages::tr("label: %1").arg(m_comparison->m_names->name(change)), false));
    }
}

const QVector<int>& ParagraphComparison::changes(int before, int after, Surface surface)
{
    QHash<Formats, QVector<int>>& known = m_changes[surface];
    auto found = known.find({before, after});
    if (found == known.end())
        found = known.insert({before, after}, m_names->numbers(newChanges(before, after, surface), true));
    return *found;
}

QStringList ParagraphComparison::newChanges(int before, int after, Surface surface) const
{
    const FactList& first = m_before.textFacts[std::size_t(before)];
    const FactList& second = m_after.textFacts[std::size_t(after)];
    switch (surface) {
    case Blanks: return Facts::changes(TextFacts::onBlanks(first), TextFacts::onBlanks(second));
    case Objects: return Facts::changes(TextFacts::onObjects(first), TextFacts::onObjects(second));
    case Empty:
        return Facts::changes(TextFacts::onEmptyParagraph(first), TextFacts::onEmptyParagraph(second));
    case Labels: return Facts::changes(TextFacts::onLabel(first), TextFacts::onLabel(second));
    default: return Facts::changes(first, second);
    }
}

ParagraphDifferences ParagraphComparison::compare(const Paragraph& before, const Paragraph& after)
{
    return ParagraphComparer(this, before, after).run();
}

TextPiece ParagraphComparison::piece(TextPiece::Kind kind, const Document& document,
                                     const Paragraph& paragraph)
{
    return wholePiece(kind, document, paragraph, 0, int(paragraph.text.size()));
}
