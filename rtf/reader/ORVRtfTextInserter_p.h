#ifndef ORVRTFTEXTINSERTER_P_H
#define ORVRTFTEXTINSERTER_P_H

#include <QtCore/QString>
#include <QtGui/QTextBlockFormat>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextCursor>

/*!
    Where a document grows, in as few pieces as possible: Qt's document takes each at a price.

    The paragraph behind one that has ended is not inserted before something happens to it. Its formats are
    known by then, and setting them afterwards would cost as much as the paragraph. Text waits for more that
    has the same format, be it in the next paragraph, and goes in with it.
*/
class ORVRtfTextInserter {
public:
    /*! Whether a document makes a new paragraph of \a c, which takes its formats when the next text comes. */
    static bool endsParagraph(QChar c);

    /*! Completes the text at the old place and goes on at \a place, or nowhere when that is null. */
    void moveTo(const QTextCursor& place);

    /*! The cursor itself, in a document that is complete up to it. */
    QTextCursor& place();

    /*! Inserts the text and the paragraph that are owed, if any. */
    void complete();

    /*! Gives an empty paragraph its formats; one that has text is left alone. */
    void setBlockFormats(const QTextBlockFormat& format, const QTextCharFormat& charFormat);

    void insertText(const QString& text, const QTextCharFormat& format);

    /*! Ends the paragraph. The next one is like it until it is given formats. */
    void endBlock();

private:
    bool continuesText(const QTextCharFormat& format) const;
    void insertOwedText();

    QTextCursor m_cursor;
    // Text that is not in the document, and its format.
    QString m_text;
    QTextCharFormat m_textFormat;
    // The format of the paragraph at the place, if it is known.
    QTextBlockFormat m_blockFormat;
    bool m_isBlockFormatKnown = false;
    // A paragraph has ended, and the next one is not in the document. It is to have the formats, if they are
    // known.
    bool m_isBlockOwed = false;
    bool m_areNextFormatsKnown = false;
    QTextBlockFormat m_nextFormat;
    QTextCharFormat m_nextCharFormat;
    // The paragraph is known to have text; if not, the document is asked.
    bool m_hasText = false;
};

#endif
