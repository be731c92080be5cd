#ifndef DOCUMENTPARTS_H
#define DOCUMENTPARTS_H

class QTextCursor;
class QTextDocument;

/*!
    Moves parts of documents from one to another, for copying and pasting.

    QTextDocumentFragment does most of it. What it leaves out is added here: the pictures, and the format of
    the first paragraph (its alignment, its place in a list, …).
*/
namespace DocumentParts {

/*! Makes \a part, an empty document, a document of what \a selection selects. */
void copySelection(const QTextCursor& selection, QTextDocument* part);

/*! Replaces what \a target selects by all of \a part, as one step for undo. */
void insert(const QTextDocument& part, QTextCursor target);

} // namespace DocumentParts

#endif
