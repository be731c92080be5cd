#include "StoryComparison.h"

#include "DifferenceCollector.h"
#include "ItemAlignment.h"
#include "ItemText.h"
#include "Messages.h"
#include "TableAlignment.h"

#include <QSet>
#include <QTextDocument>

using namespace Model;

namespace {

// As many levels of notes within notes as are read.
const int deepestNote = 16;

Place::Kind placeKind(ORVNote::Kind kind)
{
    switch (kind) {
    case ORVNote::Endnote: return Place::Endnote;
    case ORVNote::Comment: return Place::Comment;
    default: return Place::Footnote;
    }
}

AlignedSequence sequenceOf(const Document& document, const PlacedItems& items, Symbols* symbols)
{
    AlignedSequence result;
    result.items.reserve(int(items.size()));
    for (const PlacedItem& item : items)
        result.items.append({item.item->text, item.isTable() ? 1 : 0});
    result.words = [&document, &items, symbols](int index) {
        return ItemText::words(document, *items[std::size_t(index)].item, symbols);
    };
    return result;
}

FactList noteFacts(const ORVNote& note)
{
    FactList facts;
    // Numbers follow from the place among the others.
    if (note.number == 0)
        facts.append({Facts::Mark, FactValue().quoted(note.mark)});
    const QString author = note.author.isEmpty() ? note.initials : note.author;
    if (!author.isEmpty())
        facts.append({Facts::Author, FactValue().quoted(author)});
    if (note.date.isValid())
        facts.append({Facts::Date, FactValue().text(note.date.toString(QStringLiteral("yyyy-MM-ddTHH:mm")))});
    return facts;
}

bool hasText(const Document& document, const Cell& cell)
{
    for (const Item& item : cell.flow) {
        if (item.table || !document.paragraphs[std::size_t(item.paragraph)].text.isEmpty())
            return true;
    }
    return false;
}

} // namespace

StoryComparison::StoryComparison(const QTextDocument& before, const QTextDocument& after, bool hasLanguages,
                                 Symbols* symbols, DifferenceCollector* collector)
    : m_hasLanguages(hasLanguages), m_symbols(symbols), m_collector(collector),
      m_before(ModelBuilder::of(before, symbols, hasLanguages)),
      m_after(ModelBuilder::of(after, symbols, hasLanguages)),
      m_paragraphs(m_before, m_after, symbols, collector->names()), m_pictures(&before, &after),
      m_paragraphFormats(collector->names()), m_cellFormats(collector->names())
{
}

void StoryComparison::run(const Place& place, int depth)
{
    m_place = place;
    m_depth = depth;
    compareItems(PlacedItemList::of(m_before.body, place), PlacedItemList::of(m_after.body, place));
    m_collector->add(m_cellFormats.take());
    m_collector->add(m_paragraphFormats.take());
}

void StoryComparison::compareItems(const PlacedItems& before, const PlacedItems& after)
{
    const QVector<int> partners = ItemAlignment::partners(
        sequenceOf(m_before, before, m_symbols), sequenceOf(m_after, after, m_symbols), ItemAlignment::Alone);
    const int count = int(before.size());
    int gapBefore = 0;
    int gapAfter = 0;
    for (int i = 0; i <= count; ++i) {
        const int partner = i == count ? int(after.size()) : partners.at(i);
        if (partner < 0)
            continue;
        compareGap(before, gapBefore, i, after, gapAfter, partner);
        gapBefore = i + 1;
        gapAfter = partner + 1;
        if (i == count)
            return;
        if (before[std::size_t(i)].isTable())
            compareTables(before[std::size_t(i)], after[std::size_t(partner)]);
        else
            compareParagraphs(before[std::size_t(i)], after[std::size_t(partner)]);
    }
}

/*! Items without a partner. The text of tables among them can be in paragraphs of the other document. */
void StoryComparison::compareGap(const PlacedItems& before, int firstBefore, int endBefore,
                                 const PlacedItems& after, int firstAfter, int endAfter)
{
    if (firstBefore == endBefore && firstAfter == endAfter)
        return;
    const PlacedItems textBefore = PlacedItemList::withoutTables(before, firstBefore, endBefore);
    const PlacedItems textAfter = PlacedItemList::withoutTables(after, firstAfter, endAfter);
    addLostTables(before, firstBefore, endBefore, false);
    addLostTables(after, firstAfter, endAfter, true);
    const bool hasTables =
        int(textBefore.size()) != endBefore - firstBefore || int(textAfter.size()) != endAfter - firstAfter;
    if (hasTables && !textBefore.empty() && !textAfter.empty()) {
        compareItems(textBefore, textAfter);
        return;
    }
    m_collector->nextOrder();
    addOneSided(m_before, textBefore, Difference::Removed);
    addOneSided(m_after, textAfter, Difference::Added);
}

/*! Only empty paragraphs are no loss of text, and there can be many of them. */
void StoryComparison::addOneSided(const Document& document, const PlacedItems& items, Difference::Kind kind)
{
    const TextPiece::Kind pieceKind = kind == Difference::Removed ? TextPiece::Removed : TextPiece::Added;
    QVector<TextPiece> pieces;
    bool areEmpty = true;
    for (const PlacedItem& item : items) {
        const Paragraph& paragraph = document.paragraphs[std::size_t(item.item->paragraph)];
        pieces.append(ParagraphComparison::piece(pieceKind, document, paragraph));
        areEmpty = areEmpty && pieces.last().text.isEmpty();
    }
    const QString change = kind == Difference::Removed ? Messages::tr("empty paragraph removed")
                                                       : Messages::tr("empty paragraph added");
    for (int i = 0; i < pieces.size(); ++i) {
        const Place place = items[std::size_t(i)].place();
        if (areEmpty)
            m_collector->addChanges(place, m_collector->nextOrder(), {change});
        else
            m_collector->addOneSided(place, pieces.at(i));
    }
}

void StoryComparison::addLostTables(const PlacedItems& items, int first, int end, bool areAdded)
{
    for (int i = first; i < end; ++i) {
        const PlacedItem& item = items[std::size_t(i)];
        if (!item.isTable())
            continue;
        const QString change = areAdded ? Messages::tr("table of rows × columns %1 × %2 added")
                                        : Messages::tr("table of rows × columns %1 × %2 removed");
        m_collector->addChanges(item.place(), m_collector->nextOrder(),
                                {change.arg(item.item->table->rows).arg(item.item->table->columns)});
    }
}

void StoryComparison::compareParagraphs(const PlacedItem& before, const PlacedItem& after)
{
    const Paragraph& first = m_before.paragraphs[std::size_t(before.item->paragraph)];
    const Paragraph& second = m_after.paragraphs[std::size_t(after.item->paragraph)];
    const Place place = before.place();
    const int order = m_collector->nextOrder();
    const ParagraphDifferences differences = m_paragraphs.compare(first, second);
    if (!differences.pieces.isEmpty())
        m_collector->addText(place, order, differences.pieces);
    m_collector->addChanges(place, order, m_labels.changes(first.label, second.label));
    for (const ParagraphDifferences::Words& words : differences.words) {
        QStringList changes;
        for (const int change : words.changes)
            changes << m_collector->names()->name(change);
        m_collector->addChanges(place, order, changes, words.text);
    }
    const QStringList paragraphChanges = Facts::changes(m_before.paragraphFacts[std::size_t(first.format)],
                                                        m_after.paragraphFacts[std::size_t(second.format)]);
    m_paragraphFormats.add(place, order,
                           differences.changes + m_collector->names()->numbers(paragraphChanges, false),
                           differences.hasCommonText && !first.text.isEmpty());
    for (const ParagraphDifferences::Objects& objects : differences.objects)
        compareObjects(objects, place, order);
}

void StoryComparison::compareObjects(const ParagraphDifferences::Objects& objects, const Place& place,
                                     int order)
{
    const Object& before = *objects.before;
    if (before.isNote)
        compareNotes(before, *objects.after, order);
    else
        m_collector->addChanges(place.within(Place::Picture, before.number), order,
                                m_pictures.changes(before.picture, objects.after->picture));
}

void StoryComparison::compareNotes(const Object& before, const Object& after, int order)
{
    const Place place = m_place.within(placeKind(before.note.kind), before.number);
    m_collector->addChanges(place, order, Facts::changes(noteFacts(before.note), noteFacts(after.note)));
    const bool isInLine = before.note.holding == ORVNote::InLine || after.note.holding == ORVNote::InLine;
    if ((!isInLine && before.note.content == after.note.content) || m_depth >= deepestNote)
        return;
    QTextDocument first;
    QTextDocument second;
    ORVNotes::copyContent(m_before.source, before.note, &first);
    ORVNotes::copyContent(m_after.source, after.note, &second);
    StoryComparison(first, second, m_hasLanguages, m_symbols, m_collector).run(place, m_depth + 1);
}

void StoryComparison::compareTables(const PlacedItem& before, const PlacedItem& after)
{
    const Table& first = *before.item->table;
    const Table& second = *after.item->table;
    const Place place = before.place();
    QStringList changes;
    if (first.rows != second.rows)
        changes << Facts::change(Messages::tr("rows"), QString::number(first.rows),
                                 QString::number(second.rows));
    if (first.columns != second.columns)
        changes << Facts::change(Messages::tr("columns"), QString::number(first.columns),
                                 QString::number(second.columns));
    changes += Facts::changes(first.facts, second.facts);
    m_collector->addChanges(place, m_collector->nextOrder(), changes);
    compareCellsOf(before, after, TableAlignment(m_before, first, m_after, second, m_symbols));
}

/*! Cells without a partner that stand in a row are one difference. */
void StoryComparison::compareCellsOf(const PlacedItem& before, const PlacedItem& after,
                                     const TableAlignment& alignment)
{
    const auto append = [](const Cell& cell, const PlacedItem& table, PlacedItems* items) {
        const PlacedItems content =
            PlacedItemList::of(cell.flow, PlacedItemList::placeOf(cell, table.place()));
        items->insert(items->end(), content.begin(), content.end());
    };
    QSet<const Cell*> found;
    PlacedItems lost;
    for (const Cell& cell : before.item->table->cells) {
        const Cell* const partner = alignment.partner(cell);
        if (!partner && hasText(m_before, cell))
            append(cell, before, &lost);
        if (!partner)
            continue;
        compareGap(lost, 0, int(lost.size()), {}, 0, 0);
        lost.clear();
        found.insert(partner);
        compareCells(cell, *partner, before.place(), after.place());
    }
    compareGap(lost, 0, int(lost.size()), {}, 0, 0);
    PlacedItems added;
    for (const Cell& cell : after.item->table->cells) {
        if (!found.contains(&cell) && hasText(m_after, cell))
            append(cell, after, &added);
    }
    compareGap({}, 0, 0, added, 0, int(added.size()));
}

void StoryComparison::compareCells(const Cell& before, const Cell& after, const Place& tableBefore,
                                   const Place& tableAfter)
{
    const Place place = PlacedItemList::placeOf(before, tableBefore);
    const QStringList changes = Facts::changes(before.facts, after.facts);
    m_cellFormats.add(place, m_collector->nextOrder(), m_collector->names()->numbers(changes, false), true);
    compareItems(PlacedItemList::of(before.flow, place),
                 PlacedItemList::of(after.flow, PlacedItemList::placeOf(after, tableAfter)));
}
