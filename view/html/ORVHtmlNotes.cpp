#include "ORVHtmlNotes_p.h"

#include "ORVHtmlContent_p.h"
#include "ORVHtmlContext_p.h"
#include "ORVNoteFinder_p.h"

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

QVector<ORVHtmlNote> ORVHtmlNotes::take(const QTextDocument* document, bool isNote)
{
    QVector<ORVHtmlNote> result;
    const QVector<ORVNote> notes = ORVNotes::all(document);
    for (const ORVNote& note : notes) {
        ORVHtmlNote shown;
        shown.note = note;
        if (isNote && note.number > 0)
            shown.note.mark = ORVNoteFinder::mark(note.kind, m_numbers[note.kind] + 1);
        m_numbers[note.kind] = qMax(m_numbers[note.kind] + (isNote ? 1 : 0), isNote ? 0 : note.number);
        shown.id = kindNames[note.kind].id + QByteArray::number(++m_counts[note.kind]);
        Pending pending;
        pending.note = shown;
        if (isNote) {
            pending.content.reset(new QTextDocument);
            ORVNotes::copyContent(document, note, pending.content.get(), m_form);
        } else {
            pending.document = document;
        }
        m_pending[note.kind].push_back(std::move(pending));
        result.append(shown);
    }
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
    for (int kind = 0; kind < 3; ++kind) {
        std::deque<Pending>& pending = m_pending[kind];
        if (pending.empty())
            continue;
        hasAny = true;
        context->output->markup(kindNames[kind].group);
        context->output->markup("<hr>\n");
        while (!pending.empty()) {
            Pending next = std::move(pending.front());
            pending.pop_front();
            write(context, next);
        }
        context->output->markup("</section>\n");
    }
    return hasAny;
}

void ORVHtmlNotes::write(ORVHtmlContext* context, Pending& pending)
{
    const ORVHtmlNote& note = pending.note;
    if (!pending.content) {
        pending.content.reset(new QTextDocument);
        ORVNotes::copyContent(pending.document, note.note, pending.content.get(), m_form);
    }
    const KindNames& names = kindNames[note.note.kind];
    context->output->markup(names.begin);
    context->output->markup(" id=\"" + note.id + "\">\n");
    ORVHtmlContent content(context, pending.content.get(), true);
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
