#include "Notes.h"

#include "DocumentParts.h"
#include "Links.h"
#include "RtfDocument.h"

#include <ORVFragments.h>
#include <ORVRtfProperties.h>
#include <ORVTextFormat.h>
#include <ORVTextRtf.h>

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

using namespace ORVRtfProperty;

namespace {

const int noteProperties[] = {InAnnotation,   InFootnote,     AnnotationAnchor,
                              FootnoteAnchor, HasNoteContent, NoteContent};

/*! The note that text of \a format belongs to, wherever that stands; 1 character long when there is one. */
Note noteOf(const QTextCharFormat& format)
{
    Note note;
    const bool isComment = format.boolProperty(InAnnotation) || format.boolProperty(AnnotationAnchor);
    note.kind = isComment ? Note::Comment : Note::Footnote;
    note.isAttached = format.boolProperty(AnnotationAnchor) || format.boolProperty(FootnoteAnchor);
    if (note.isAttached)
        note.content = format.property(NoteContent).toByteArray();
    if (isComment || note.isAttached || format.boolProperty(InFootnote))
        note.length = 1;
    return note;
}

/*! Whether \a next, directly behind \a note, belongs to it. */
bool goesOn(const Note& note, const Note& next)
{
    return note.position + note.length == next.position && note.kind == next.kind
        && note.isAttached == next.isAttached && note.content == next.content;
}

/*! Appends the notes of \a block. A note ends with its paragraph, as it does where it is written. */
void appendNotes(const QTextBlock& block, QVector<Note>* notes)
{
    const int first = notes->size();
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
        Note note = noteOf(it.fragment().charFormat());
        if (note.length == 0)
            continue;
        note.position = it.fragment().position();
        note.length = it.fragment().length();
        if (notes->size() > first && goesOn(notes->last(), note))
            notes->last().length += note.length;
        else
            notes->append(note);
    }
}

QTextCursor selectionOf(QTextDocument* document, int from, int to)
{
    QTextCursor cursor(document);
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    return cursor;
}

/*! Whether \a selection, of one paragraph, has neither a note nor a link: with both, RTF would have one. */
bool isFree(const QTextCursor& selection)
{
    const QTextBlock block = selection.block();
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const bool isSelected = fragment.position() < selection.selectionEnd()
            && fragment.position() + fragment.length() > selection.selectionStart();
        const QTextCharFormat format = fragment.charFormat();
        if (isSelected && (noteOf(format).length > 0 || format.isAnchor()))
            return false;
    }
    return true;
}

bool isWord(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetterOrNumber(); });
}

/*! The word that \a place is in or beside. Punctuation, which is a word too for Qt, counts as none. */
QTextCursor wordAt(QTextCursor place)
{
    QTextCursor word = place;
    word.select(QTextCursor::WordUnderCursor);
    if (!isWord(word.selectedText()) && !place.atBlockStart()) {
        word.setPosition(place.position() - 1);
        word.select(QTextCursor::WordUnderCursor);
    }
    if (isWord(word.selectedText()))
        return word;
    place.clearSelection();
    return place;
}

/*! What a note at \a place can be attached to; selects nothing where it cannot. */
QTextCursor anchorAt(const QTextCursor& place)
{
    const QTextCursor anchor = place.hasSelection() ? place : wordAt(place);
    const int end = anchor.selectionEnd();
    // Text of several paragraphs would have the note once for each.
    const int begin = qMax(anchor.selectionStart(), anchor.document()->findBlock(end).position());
    QTextCursor within = selectionOf(anchor.document(), begin, end);
    if (!isFree(within))
        within.clearSelection();
    return within;
}

QByteArray toRtf(const QTextDocument& content)
{
    return ORVTextRtf::toRtfCData(RtfDocument::toWrite(content).get(), true);
}

/*! Puts \a content at \a place as text of a note; one paragraph, since the note ends with that. */
void insertInLine(QTextCursor place, Note::Kind kind, const QTextDocument& content)
{
    DocumentParts::copyPictures(content, place.document());
    const int flag = kind == Note::Comment ? InAnnotation : InFootnote;
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

void attach(const QTextCursor& anchor, Note::Kind kind, const QByteArray& content)
{
    ORVFragments::changeFormats(
        anchor.document(), anchor.selectionStart(), anchor.selectionEnd(), [&](QTextCharFormat* format) {
            format->setProperty(kind == Note::Comment ? AnnotationAnchor : FootnoteAnchor, true);
            format->setProperty(HasNoteContent, true);
            format->setProperty(NoteContent, content);
        });
}

/*! A place for a note in line at \a place: outside of links and notes, and apart from one in front of it. */
QTextCursor placeInLine(QTextCursor place)
{
    const Link link = Links::at(*place.document(), place.position());
    if (link.position < place.position())
        place.setPosition(qMax(place.position(), link.position + link.length));
    const Note other = Notes::at(place);
    if (other.length == 0)
        return place;
    place.setPosition(other.position + other.length);
    QTextCharFormat format = place.charFormat();
    Notes::clear(&format);
    place.insertText(QStringLiteral(" "), format);
    return place;
}

} // namespace

QVector<Note> Notes::in(const QTextDocument& document)
{
    QVector<Note> notes;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        appendNotes(block, &notes);
    return notes;
}

Note Notes::at(const QTextDocument& document, int position)
{
    QVector<Note> notes;
    appendNotes(document.findBlock(position), &notes);
    for (const Note& note : qAsConst(notes)) {
        if (position >= note.position && position < note.position + note.length)
            return note;
    }
    return Note();
}

Note Notes::at(const QTextCursor& cursor)
{
    const Note note = at(*cursor.document(), cursor.selectionStart());
    return note.length > 0 ? note : at(*cursor.document(), cursor.selectionStart() - 1);
}

QString Notes::text(const QTextDocument& document, const Note& note)
{
    if (note.isAttached)
        return ORVTextRtf::rtfCDataText(note.content).trimmed();
    const QTextBlock block = document.findBlock(note.position);
    QString text = block.text().mid(note.position - block.position(), note.length);
    return text.replace(QChar::LineSeparator, QLatin1Char('\n')).trimmed();
}

void Notes::copyContent(const QTextDocument& document, const Note& note, QTextDocument* content)
{
    ORVTextFormat::setDefaultCharFormat(content, ORVTextFormat::defaultCharFormat(&document));
    if (note.isAttached) {
        QString message;
        RtfDocument::read(note.content, RtfDocument::Form::Storage, content, &message);
        return;
    }
    const QTextCursor selection =
        selectionOf(const_cast<QTextDocument*>(&document), note.position, note.position + note.length);
    DocumentParts::copySelection(selection, content);
    ORVFragments::changeFormats(content, 0, content->characterCount(), Notes::clear);
}

void Notes::insert(QTextCursor place, Note::Kind kind, const QTextDocument& content)
{
    place.beginEditBlock();
    const QTextCursor anchor = anchorAt(place);
    if (anchor.hasSelection()) {
        attach(anchor, kind, toRtf(content));
    } else {
        place.setPosition(place.selectionEnd());
        insertInLine(placeInLine(place), kind, content);
    }
    place.endEditBlock();
}

void Notes::setContent(QTextDocument* document, const Note& note, const QTextDocument& content)
{
    QTextCursor text = selectionOf(document, note.position, note.position + note.length);
    if (note.isAttached) {
        attach(text, note.kind, toRtf(content));
        return;
    }
    text.beginEditBlock();
    text.removeSelectedText();
    insertInLine(text, note.kind, content);
    text.endEditBlock();
}

void Notes::remove(QTextDocument* document, const Note& note)
{
    if (!note.isAttached) {
        selectionOf(document, note.position, note.position + note.length).removeSelectedText();
        return;
    }
    ORVFragments::changeFormats(document, note.position, note.position + note.length, Notes::clear);
}

void Notes::clear(QTextCharFormat* format)
{
    for (const int property : noteProperties)
        format->clearProperty(property);
}
