#ifndef FRAGMENTFORMATS_H
#define FRAGMENTFORMATS_H

#include <functional>

class QTextCharFormat;
class QTextDocument;

/*!
    Changes of character formats that QTextCursor::mergeCharFormat() cannot make, such as taking a property
    away.
*/
namespace FragmentFormats {

/*!
    Calls \a change for the format of each run of text in \a document from the position \a from up to, but not
    with, \a to. One step for undo.
*/
void change(QTextDocument* document, int from, int to, const std::function<void(QTextCharFormat*)>& change);

} // namespace FragmentFormats

#endif
