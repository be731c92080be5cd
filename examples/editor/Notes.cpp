#include "Notes.h"

#include "Links.h"
#include "NoteNumbers.h"
#include "RtfDocument.h"

#include <ORVFragments.h>
#include <ORVRtfProperties.h>
#include <ORVTextRtf.h>

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

using namespace ORVRtfProperty;

namespace {

QTextCursor selectionOf(QTextDocument* document, int from, int to)
{
    QTextCursor cursor(document);
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    return cursor;
}

bool isWord(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetterOrNumber(); });
}

/*! Whether the character behind \a position is of a mark. */
bool isMark(QTextCursor cursor, int position)
{
    cursor.setPosition(position + 1);
    return cursor.charFormat().hasProperty(NoteNumber);
}

/*! The end of the word that \a place is in, up to a mark; \a place itself when it is in none. */
int behindWord(const QTextCursor& place)
{
    QTextCursor word = place;
    word.select(QTextCursor::WordUnderCursor);
    int position = place.position();
    if (word.selectionStart() == position || !isWord(word.selectedText()))
        return position;
    while (position < word.selectionEnd() && !isMark(place, position))
        ++position;
    return position;
}

/*! Where the mark of a note at \a place stands. */
int markPosition(const QTextCursor& place)
{
    int position = place.hasSelection() ? place.selectionEnd() : behindWord(place);
    const Link link = Links::at(*place.document(), position);
    if (link.length > 0 && link.position < position)
        position = link.position + link.length;
    const ORVNote note = ORVNotes::at(place.document(), position);
    if (note.length > 0 && note.position < position)
        position = note.position + note.length;
    return position;
}

QByteArray toRtf(const QTextDocument& content)
{
    return ORVTextRtf::toRtfCData(RtfDocument::toWrite(content).get(), true);
}

/*! Puts \a content at \a place as text of a note; one paragraph, since the note ends with that. */
void insertInLine(QTextCursor place, ORVNote::Kind kind, const QTextDocument& content)
{
    ORVFragments::copyPictures(ORVFragments::pictureNames(&content), &content, place.document());
    const int flag = kind == ORVNote::Comment ? InAnnotation : InFootnote;
    for (QTextBlock block = content.begin(); block.isValid(); block = block.next()) {
        QTextCharFormat format = block.charFormat();
        format.setProperty(flag, true);
        if (block != content.begin())
            place.insertText(QString(QChar::LineSeparator), format);
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
            format = it.fragment().charFormat();
            format.setProperty(flag, true);
            place.insertText(it.fragment().text(), format);
        }
    }
}

/*! The format of a mark at \a place. */
QTextCharFormat markFormat(const QTextCursor& place, ORVNote::Kind kind, int number,
                           const QByteArray& content)
{
    QTextCharFormat format = place.charFormat();
    if (format.isImageFormat())
        format = QTextCharFormat();
    Links::clear(&format);
    ORVNotes::clear(&format);
    format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    format.setProperty(kind == ORVNote::Comment ? AnnotationAnchor : FootnoteAnchor, true);
    if (kind == ORVNote::Endnote)
        format.setProperty(EndnoteAnchor, true);
    format.setProperty(NoteNumber, number);
    format.setProperty(HasNoteContent, true);
    format.setProperty(NoteContent, content);
    return format;
}

} // namespace

ORVNote Notes::at(const QTextCursor& cursor)
{
    const ORVNote note = ORVNotes::at(cursor.document(), cursor.selectionStart());
    return note.length > 0 ? note : ORVNotes::at(cursor.document(), cursor.selectionStart() - 1);
}

void Notes::insert(QTextCursor place, ORVNote::Kind kind, const QTextDocument& content)
{
    place.beginEditBlock();
    const int position = markPosition(place);
    const int number = NoteNumbers::makeRoom(place.document(), position, kind);
    place.setPosition(position);
    place.insertText(NoteNumbers::text(kind, number), markFormat(place, kind, number, toRtf(content)));
    place.endEditBlock();
}

void Notes::setContent(QTextDocument* document, const ORVNote& note, const QTextDocument& content)
{
    if (note.holding != ORVNote::InLine) {
        const QByteArray rtf = toRtf(content);
        ORVFragments::changeFormats(document, note.position, note.position + note.length,
                                    [&rtf](QTextCharFormat* format) {
                                        format->setProperty(HasNoteContent, true);
                                        format->setProperty(NoteContent, rtf);
                                    });
        return;
    }
    QTextCursor text = selectionOf(document, note.position, note.position + note.length);
    text.beginEditBlock();
    text.removeSelectedText();
    insertInLine(text, note.kind, content);
    text.endEditBlock();
}

void Notes::remove(QTextDocument* document, const ORVNote& note)
{
    if (note.holding == ORVNote::Attached) {
        ORVFragments::changeFormats(document, note.position, note.position + note.length, ORVNotes::clear);
        return;
    }
    QTextCursor text = selectionOf(document, note.position, note.position + note.length);
    text.beginEditBlock();
    text.removeSelectedText();
    if (note.holding == ORVNote::Mark && note.number > 0)
        NoteNumbers::closeGap(document, note);
    text.endEditBlock();
}
