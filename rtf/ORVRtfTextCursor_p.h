#ifndef ORVRTFTEXTCURSOR_P_H
#define ORVRTFTEXTCURSOR_P_H

#include <QtGui/QTextBlockFormat>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextCursor>

class QString;

/*!
    Where a document grows. The paragraph behind one that has ended is not inserted before something happens
    to it: its formats are known by then, and Qt's document takes them with the paragraph for half of what
    changing them afterwards costs.
*/
class ORVRtfTextCursor {
public:
    /*! Whether a document makes a new paragraph of \a c, which takes its formats when the next text comes. */
    static bool endsParagraph(QChar c);

    /*! Completes the text at the old place and goes on at \a place, or nowhere when that is null. */
    void moveTo(const QTextCursor& place);

    /*! The cursor itself, in a document that is complete up to it. */
    QTextCursor& place();

    /*! Inserts the paragraph that is owed, if any. */
    void complete();

    /*! Gives an empty paragraph its formats; one that has text is left alone. */
    void setBlockFormats(const QTextBlockFormat& format, const QTextCharFormat& charFormat);

    void insertText(const QString& text, const QTextCharFormat& format);

    /*! Ends the paragraph. The next one is like it until it is given formats. */
    void endBlock();

private:
    QTextCursor m_cursor;
    // A paragraph has ended, and the next one is not in the document. It is to have the formats, if they are
    // known.
    bool m_isBlockOwed = false;
    bool m_areFormatsKnown = false;
    QTextBlockFormat m_blockFormat;
    QTextCharFormat m_blockCharFormat;
    // The paragraph is known to have text; if not, the document is asked.
    bool m_hasText = false;
};

#endif
