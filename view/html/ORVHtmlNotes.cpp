#include "ORVHtmlNotes_p.h"

#include "ORVHtmlContent_p.h"
#include "ORVHtmlContext_p.h"

#include <QtGui/QTextDocument>

namespace {

struct KindNames {
    const char* id;
    // Around all notes of the kind, and around each.
    const char* group;
    const char* begin;
    const char* end;
};

// In the order of ORVNote::Kind.
const KindNames kindNames[] = {
    {"fn", "<section>\n", "<aside role=\"doc-footnote\"", "</aside>\n"},
    {"en", "<section role=\"doc-endnotes\">\n", "<div", "</div>\n"},
    {"cm", "<section>\n", "<aside role=\"note\"", "</aside>\n"},
};

} // namespace

ORVHtmlNote ORVHtmlNotes::shown(const ORVNoteQueue::Entry& entry)
{
    ORVHtmlNote note;
    note.note = entry.note;
    note.id = kindNames[entry.note.kind].id + QByteArray::number(entry.count);
    return note;
}

QVector<ORVHtmlNote> ORVHtmlNotes::take(const QTextDocument* document, bool isNote)
{
    QVector<ORVHtmlNote> result;
    const QVector<ORVNoteQueue::Entry> entries = m_queue.take(document, isNote);
    for (const ORVNoteQueue::Entry& entry : entries)
        result.append(shown(entry));
    return result;
}

void ORVHtmlNotes::write(ORVHtmlContext* context)
{
    // The text of a comment can have footnotes, which come too late for those of the document.
    while (writeKinds(context)) { }
}

/*! Writes the notes of each kind. False when there is none. */
bool ORVHtmlNotes::writeKinds(ORVHtmlContext* context)
{
    bool hasAny = false;
    for (const ORVNote::Kind kind : {ORVNote::Footnote, ORVNote::Endnote, ORVNote::Comment}) {
        if (m_queue.isEmpty(kind))
            continue;
        hasAny = true;
        context->output->markup(kindNames[kind].group);
        context->output->markup("<hr>\n");
        while (!m_queue.isEmpty(kind))
            writeNext(context, kind);
        context->output->markup("</section>\n");
    }
    return hasAny;
}

void ORVHtmlNotes::writeNext(ORVHtmlContext* context, ORVNote::Kind kind)
{
    ORVNoteQueue::Entry entry;
    const std::unique_ptr<QTextDocument> text = m_queue.next(kind, &entry);
    const ORVHtmlNote note = shown(entry);
    const KindNames& names = kindNames[kind];
    context->output->markup(names.begin);
    context->output->markup(" id=\"" + note.id + "\">\n");
    const ORVHtmlRuns runs(text.get());
    ORVHtmlContent content(context, text.get(), runs, true);
    content.setHead(head(note));
    content.write();
    context->output->markup(names.end);
}

QByteArray ORVHtmlNotes::head(const ORVHtmlNote& note)
{
    const QString origin = note.note.kind == ORVNote::Comment ? ORVNotes::origin(note.note) : QString();
    return "<a href=\"#" + note.id + "-ref\" role=\"doc-backlink\"><sup>"
        + ORVHtmlOutput::escaped(note.note.mark) + "</sup></a> "
        + (origin.isEmpty() ? QByteArray() : ORVHtmlOutput::escaped(origin) + ": ");
}

QByteArray ORVHtmlNotes::mark(const ORVHtmlNote& note)
{
    return "<a id=\"" + note.id + "-ref\" href=\"#" + note.id + "\" role=\"doc-noteref\">"
        + ORVHtmlOutput::escaped(note.note.mark) + "</a>";
}
