#ifndef ORVFRAGMENTFORMATS_P_H
#define ORVFRAGMENTFORMATS_P_H

#include <QtCore/QVector>
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
    struct Run {
        int position;
        int length;
        QTextCharFormat format;
    };

    cursor.setPosition(block.position());
    const QTextCharFormat blockFormat = changed(block.charFormat());
    if (blockFormat != block.charFormat())
        cursor.setBlockCharFormat(blockFormat);
    // All runs are collected first: setting a format joins and splits them.
    QVector<Run> runs;
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const QTextCharFormat format = changed(fragment.charFormat());
        if (format != fragment.charFormat())
            runs.append({fragment.position(), fragment.length(), format});
    }
    for (const Run& run : runs) {
        cursor.setPosition(run.position);
        cursor.setPosition(run.position + run.length, QTextCursor::KeepAnchor);
        cursor.setCharFormat(run.format);
    }
}

} // namespace ORVFragmentFormats

#endif
