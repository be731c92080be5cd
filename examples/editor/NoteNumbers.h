#ifndef NOTENUMBERS_H
#define NOTENUMBERS_H

#include <ORVNotes.h>

/*!
    The numbers of the notes that have marks, when one of them comes or goes. A count that begins anew, as it
    can for each chapter, stays.
*/
namespace NoteNumbers {

/*! The mark of a note \a number as this editor writes it. */
QString text(ORVNote::Kind kind, int number);
/*!
    The number of a new note of \a kind at \a position of \a document. Those that follow the one in front of it
    get numbers that are one higher.
*/
int makeRoom(QTextDocument* document, int position, ORVNote::Kind kind);
/*! Gives the notes that followed \a removed, which is gone, numbers that are one lower. */
void closeGap(QTextDocument* document, const ORVNote& removed);

} // namespace NoteNumbers

#endif
