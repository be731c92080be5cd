#ifndef NOTES_H
#define NOTES_H

#include <QByteArray>
#include <QVector>

class QString;
class QTextCharFormat;
class QTextCursor;
class QTextDocument;

/*!
    A footnote or a comment in a document.

    It is either attached to text, which has it as a property (as this editor does, where it can), or its text
    stands in the midst of the other text, with a property that says so (as the library reads it).
*/
struct Note {
    enum Kind { Footnote, Comment };

    Kind kind = Footnote;
    bool isAttached = false;
    /*! Of the text that has the note or, inline, of the note's own text; length 0 when there is none. */
    int position = 0;
    int length = 0;
    /*! An attached note as RTF. */
    QByteArray content;
};

namespace Notes {

/*! All notes of \a document, in the order of the text. */
QVector<Note> in(const QTextDocument& document);
/*! The note of the character at \a position of \a document. */
Note at(const QTextDocument& document, int position);
/*! The note that the cursor is in or beside. */
Note at(const QTextCursor& cursor);

/*! What \a note says, without its formats. */
QString text(const QTextDocument& document, const Note& note);
/*! Copies the content of \a note to \a content, an empty document. */
void copyContent(const QTextDocument& document, const Note& note, QTextDocument* content);

/*!
    Adds a note with the content \a content, as one step for undo. The note is attached to the selection of
    \a place, or else to the word there. If there is no word, or the word has a note or is a link, the note is
    inserted in line.
*/
void insert(QTextCursor place, Note::Kind kind, const QTextDocument& content);
/*! Replaces the content of \a note of \a document by \a content. */
void setContent(QTextDocument* document, const Note& note, const QTextDocument& content);
/*! Takes \a note out of \a document; text that it is attached to stays. */
void remove(QTextDocument* document, const Note& note);
/*! Makes \a format that of text without a note. */
void clear(QTextCharFormat* format);

} // namespace Notes

#endif
