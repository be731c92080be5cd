#include "ORVMarkdownNotes_p.h"

#include "ORVMarkdownContent_p.h"

#include <QtGui/QTextDocument>

namespace {

// Of the paragraphs of a note behind its first one.
const int noteIndent = 4;

/*! What stands in front of the text of \a note. */
QString headOf(const ORVNote& note)
{
    const QString mark = note.number > 0 ? QString() : note.mark + QLatin1Char(' ');
    const QString origin = note.kind == ORVNote::Comment ? ORVNotes::origin(note) : QString();
    return origin.isEmpty() ? mark : mark + origin + QLatin1String(": ");
}

void writeNext(ORVMarkdownContext* context, ORVNote::Kind kind)
{
    ORVNoteQueue::Entry entry;
    const std::unique_ptr<QTextDocument> text = context->notes->next(kind, &entry);
    context->output->setHead(QLatin1String("[^") + ORVMarkdownText::label(entry) + QLatin1String("]: "));
    context->output->setIndent(noteIndent);
    ORVMarkdownContent content(context, text.get(), true);
    const QString head = headOf(entry.note);
    if (!head.isEmpty())
        content.setHead(head);
    content.write();
    context->output->setIndent(0);
}

/*! Writes the notes of each kind. False when there is none. */
bool writeKinds(ORVMarkdownContext* context)
{
    bool hasAny = false;
    for (const ORVNote::Kind kind : {ORVNote::Footnote, ORVNote::Endnote, ORVNote::Comment}) {
        for (; !context->notes->isEmpty(kind); hasAny = true)
            writeNext(context, kind);
    }
    return hasAny;
}

} // namespace

void ORVMarkdownNotes::write(ORVMarkdownContext* context)
{
    // The text of a comment can have footnotes, which come too late for those of the document.
    while (writeKinds(context)) { }
}
