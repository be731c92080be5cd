#include "ORVNoteFinder_p.h"

#include "ORVRtfProperties.h"
#include "ORVTextListLevel.h"
#include "ORVTextNumber.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextFragment>
#include <QtGui/QTextTable>

using namespace ORVRtfProperty;

namespace {

const char* const commentPrefix = "c";

// Leaves room for the numbers that continue the count.
const int largestNumber = 1000000000;

/*! Whether both are in the same frame and, within a table, in the same cell. */
bool areInOneCell(const QTextBlock& first, const QTextBlock& second)
{
    const QTextCursor one(first);
    const QTextCursor other(second);
    if (one.currentFrame() != other.currentFrame())
        return false;
    const QTextTable* const table = one.currentTable();
    return !table || table->cellAt(one) == table->cellAt(other);
}

} // namespace

QString ORVNoteFinder::mark(ORVNote::Kind kind, int number)
{
    if (kind == ORVNote::Endnote)
        return ORVTextNumber::text(ORVTextListLevel::LowerRoman, number);
    const QString text = QString::number(number);
    return kind == ORVNote::Comment ? QLatin1String(commentPrefix) + text : text;
}

bool ORVNoteFinder::mayHaveNotes(const QTextDocument& document)
{
    const QVector<QTextFormat> formats = document.allFormats();
    for (const QTextFormat& format : formats) {
        if (format.isCharFormat() && runOf(format.toCharFormat()).isNote)
            return true;
    }
    return false;
}

bool ORVNoteFinder::mayContinueNote(const QTextBlock& block)
{
    // The format of the paragraph end in front.
    const Run run = runOf(block.charFormat());
    return block.previous().isValid() && (run.isInFootnote || run.isInComment);
}

ORVNoteFinder::Run ORVNoteFinder::runOf(const QTextCharFormat& format)
{
    Run run;
    ORVNote& note = run.note;
    const bool hasComment = format.boolProperty(AnnotationAnchor);
    const bool hasFootnote = format.boolProperty(FootnoteAnchor);
    // A note that is attached to text in a note of the same kind takes its place, as where it is written.
    run.isInFootnote = format.boolProperty(InFootnote) && !hasFootnote;
    run.isInComment = format.boolProperty(InAnnotation) && !hasComment;
    if (run.isInFootnote || run.isInComment) {
        run.isNote = true;
        note.kind = run.isInFootnote ? ORVNote::Footnote : ORVNote::Comment;
        note.holding = ORVNote::InLine;
        return run;
    }
    if (!hasComment && !hasFootnote)
        return run;
    note.kind = hasComment                   ? ORVNote::Comment
        : format.boolProperty(EndnoteAnchor) ? ORVNote::Endnote
                                             : ORVNote::Footnote;
    note.holding = format.hasProperty(NoteNumber) ? ORVNote::Mark : ORVNote::Attached;
    note.number = qBound(0, format.intProperty(NoteNumber), largestNumber);
    note.content = format.property(NoteContent).toByteArray();
    note.author = format.property(NoteAuthor).toString();
    note.initials = format.property(NoteInitials).toString();
    note.date = format.property(NoteDate).toDateTime();
    run.isNote = note.holding == ORVNote::Mark || !note.content.isEmpty();
    return run;
}

const ORVNoteFinder::Run& ORVNoteFinder::run(const QTextFragment& fragment)
{
    const int index = fragment.charFormatIndex();
    QHash<int, Run>::const_iterator known = m_runs.constFind(index);
    if (known == m_runs.constEnd())
        known = m_runs.insert(index, runOf(fragment.charFormat()));
    return known.value();
}

/*! Whether \a run, directly behind the last note, belongs to it. */
bool ORVNoteFinder::goesOn(const Run& run) const
{
    if (!m_isOpen || !run.isNote)
        return false;
    const ORVNote& last = m_notes.last();
    if (last.holding == ORVNote::InLine)
        return last.kind == ORVNote::Comment ? run.isInComment : run.isInFootnote;
    return last.kind == run.note.kind && last.holding == run.note.holding && last.number == run.note.number
        && last.content == run.note.content;
}

/*! Whether the last note, in line, can go on in \a block behind it. An attached one ends with its paragraph. */
bool ORVNoteFinder::goesOnIn(const QTextBlock& block) const
{
    return m_isOpen && m_notes.last().holding == ORVNote::InLine && mayContinueNote(block)
        && goesOn(runOf(block.charFormat())) && areInOneCell(block.previous(), block);
}

void ORVNoteFinder::addRun(const QTextFragment& fragment)
{
    const Run& run = this->run(fragment);
    if (!goesOn(run)) {
        m_isOpen = run.isNote;
        if (!run.isNote)
            return;
        m_notes.append(run.note);
        m_notes.last().position = fragment.position();
        if (run.note.holding == ORVNote::Mark && run.note.kind == ORVNote::Comment)
            m_notes.last().mark = QLatin1String(commentPrefix);
    }
    ORVNote& note = m_notes.last();
    note.length = fragment.position() + fragment.length() - note.position;
    if (note.holding == ORVNote::Mark)
        note.mark += fragment.text();
}

void ORVNoteFinder::add(const QTextBlock& block)
{
    if (m_isOpen)
        m_isOpen = goesOnIn(block);
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it)
        addRun(it.fragment());
}

QVector<ORVNote> ORVNoteFinder::numberedNotes() const
{
    int counts[] = {0, 0, 0};
    for (const ORVNote& note : m_notes)
        counts[note.kind] = qMax(counts[note.kind], note.number);
    QVector<ORVNote> notes = m_notes;
    for (ORVNote& note : notes) {
        if (note.holding == ORVNote::Mark)
            continue;
        note.number = ++counts[note.kind];
        note.mark = mark(note.kind, note.number);
    }
    return notes;
}
