#include "NoteNumbers.h"

#include <ORVFragments.h>
#include <ORVRtfProperties.h>
#include <ORVTextListLevel.h>
#include <ORVTextNumber.h>

#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace {

const ORVTextListLevel::Kind numberKinds[] = {ORVTextListLevel::Decimal, ORVTextListLevel::LowerRoman,
                                              ORVTextListLevel::UpperRoman, ORVTextListLevel::LowerLetter,
                                              ORVTextListLevel::UpperLetter};

/*! The notes of \a kind with numbered marks, in order. */
QVector<ORVNote> numbered(const QTextDocument* document, ORVNote::Kind kind)
{
    QVector<ORVNote> notes = ORVNotes::all(document);
    const auto isOther = [kind](const ORVNote& note) {
        return note.kind != kind || note.holding != ORVNote::Mark || note.number == 0;
    };
    notes.erase(std::remove_if(notes.begin(), notes.end(), isOther), notes.end());
    return notes;
}

/*! \a number in the way in which \a mark shows \a oldNumber; \a mark when it shows no number. */
QString renumbered(const QString& mark, int oldNumber, int number)
{
    for (const ORVTextListLevel::Kind kind : numberKinds) {
        if (mark == ORVTextNumber::wordProcessorText(kind, oldNumber))
            return ORVTextNumber::wordProcessorText(kind, number);
    }
    return mark;
}

void setNumber(QTextDocument* document, const ORVNote& note, int number)
{
    ORVFragments::changeFormats(
        document, note.position, note.position + note.length,
        [number](QTextCharFormat* format) { format->setProperty(ORVRtfProperty::NoteNumber, number); });
    QTextCursor cursor(document);
    cursor.setPosition(note.position + 1);
    const QTextCharFormat format = cursor.charFormat();
    cursor.setPosition(note.position);
    cursor.setPosition(note.position + note.length, QTextCursor::KeepAnchor);
    cursor.insertText(renumbered(cursor.selectedText(), note.number, number), format);
}

/*! Adds \a step to the numbers from \a number on, as far as they are without a gap, behind \a position. */
void shift(QTextDocument* document, const QVector<ORVNote>& notes, int position, int number, int step)
{
    int count = 0;
    const auto first = std::find_if(notes.begin(), notes.end(),
                                    [position](const ORVNote& note) { return note.position >= position; });
    while (first + count != notes.end() && (first + count)->number == number + count)
        ++count;
    // From the last on, so that the positions of the others stay true.
    while (count-- > 0)
        setNumber(document, *(first + count), (first + count)->number + step);
}

} // namespace

QString NoteNumbers::text(ORVNote::Kind kind, int number)
{
    const bool isEndnote = kind == ORVNote::Endnote;
    return ORVTextNumber::wordProcessorText(
        isEndnote ? ORVTextListLevel::LowerRoman : ORVTextListLevel::Decimal, number);
}

int NoteNumbers::makeRoom(QTextDocument* document, int position, ORVNote::Kind kind)
{
    const QVector<ORVNote> notes = numbered(document, kind);
    const auto next = std::find_if(notes.begin(), notes.end(),
                                   [position](const ORVNote& note) { return note.position >= position; });
    int number = 1;
    if (next != notes.begin())
        number = (next - 1)->number + 1;
    else if (next != notes.end())
        number = next->number;
    shift(document, notes, position, number, 1);
    return number;
}

void NoteNumbers::closeGap(QTextDocument* document, const ORVNote& removed)
{
    shift(document, numbered(document, removed.kind), removed.position, removed.number + 1, -1);
}
