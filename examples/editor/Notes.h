#ifndef NOTES_H
#define NOTES_H

#include <ORVNotes.h>

class QTextCursor;

/*! Editing of the notes of a document, which is in stock form. */
namespace Notes {

/*! The note that the cursor is in or beside. */
ORVNote at(const QTextCursor& cursor);

/*!
    Inserts a note with the content \a content as a mark, as one step for undo: behind the selection of
    \a place, or else behind the word there; behind a link or another note that is in the way. The numbers of
    the notes of its kind that follow go up.
*/
void insert(QTextCursor place, ORVNote::Kind kind, const QTextDocument& content);
/*! Replaces the content of \a note of \a document by \a content. */
void setContent(QTextDocument* document, const ORVNote& note, const QTextDocument& content);
/*!
    Takes \a note out of \a document, as one step for undo; text that it is attached to stays. When it had a
    mark, the numbers of the notes of its kind that follow go down.
*/
void remove(QTextDocument* document, const ORVNote& note);

} // namespace Notes

#endif
