#include "ORVNoteQueue_p.h"

#include "ORVNoteFinder_p.h"

QVector<ORVNoteQueue::Entry> ORVNoteQueue::take(const QTextDocument* document, bool isNote)
{
    QVector<Entry> result;
    const QVector<ORVNote> notes = ORVNotes::all(document);
    for (const ORVNote& note : notes) {
        Pending pending;
        Entry& entry = pending.entry;
        entry.note = note;
        if (isNote && note.number > 0)
            entry.note.mark = ORVNoteFinder::mark(note.kind, m_numbers[note.kind] + 1);
        m_numbers[note.kind] = qMax(m_numbers[note.kind] + (isNote ? 1 : 0), isNote ? 0 : note.number);
        entry.count = ++m_counts[note.kind];
        result.append(entry);
        if (isNote) {
            pending.content.reset(new QTextDocument);
            ORVNotes::copyContent(document, note, pending.content.get(), m_form);
        } else {
            pending.document = document;
        }
        m_pending[note.kind].push_back(std::move(pending));
    }
    return result;
}

std::unique_ptr<QTextDocument> ORVNoteQueue::next(ORVNote::Kind kind, Entry* entry)
{
    Pending pending = std::move(m_pending[kind].front());
    m_pending[kind].pop_front();
    if (!pending.content) {
        pending.content.reset(new QTextDocument);
        ORVNotes::copyContent(pending.document, pending.entry.note, pending.content.get(), m_form);
    }
    *entry = pending.entry;
    return std::move(pending.content);
}
