#ifndef ORVFRAGMENTFORMATS_P_H
#define ORVFRAGMENTFORMATS_P_H

#include "ORVFragments.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>

/*! Character formats of the text in a paragraph. */
namespace ORVFragmentFormats {

/*!
    Gives \a block and each run of text in it the format that \a changed returns for its own. Uses \a cursor,
    which is in the same document. Formats that stay equal are not set.
*/
template <typename Function>
void change(QTextCursor& cursor, const QTextBlock& block, Function changed)
{
    cursor.setPosition(block.position());
    const QTextCharFormat blockFormat = changed(block.charFormat());
    if (blockFormat != block.charFormat())
        cursor.setBlockCharFormat(blockFormat);
    ORVFragments::changeFormats(cursor.document(), block.position(), block.position() + block.length(),
                                [&changed](QTextCharFormat* format) { *format = changed(*format); });
}

} // namespace ORVFragmentFormats

#endif
