#ifndef ORVRTFTEXTINSERTER_P_H
#define ORVRTFTEXTINSERTER_P_H

#include "ORVRtfFormatSerials_p.h"
#include "ORVRtfParagraph_p.h"

#include <QtCore/QString>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextCursor>

/*!
    The place where a document grows, and everything that waits there. Each insertion into a QTextDocument is
    expensive, so insertions are deferred and merged:

    - The formats of an empty paragraph wait until something happens to it, since the last ones count.
    - The paragraph behind one that has ended waits as well, and is inserted with its formats: setting them
      afterwards would cost as much as the paragraph.
    - Text waits for more of the same format, also across equal paragraphs, and is inserted in one piece.
*/
class ORVRtfTextInserter {
public:
    /*! Completes the text at the old place and goes on at \a place, or nowhere when that is null. */
    void moveTo(const QTextCursor& place);

    /*! The cursor itself, in a document that is complete up to it. */
    QTextCursor& place();

    /*!
        The same, directly behind the text: a paragraph that has ended is not followed by another one, and
        \a isBehindParagraph is set.
    */
    QTextCursor& placeBehindText(bool* isBehindParagraph);

    /*! Inserts everything that waits. */
    void complete();

    /*! Gives an empty paragraph its formats; one that has text is left alone. */
    void setBlockFormats(const ORVRtfParagraph& paragraph, const QTextCharFormat& charFormat);

    void insertText(const QString& text, const QTextCharFormat& format);

    /*!
        Takes the empty paragraph at the place out of the document; it waits again. Does nothing where no
        paragraph of the same frame stands before it.
    */
    void removeEmptyBlock();

    /*! The paragraph begins on a new page, whatever formats it is given. */
    void breakPageBefore();

    /*! Ends the paragraph. The next one is like it until it is given formats. */
    void endBlock();

private:
    bool continuesText(const QTextCharFormat& format) const;
    void insertWaitingText();
    void applyWaitingFormats();
    void insertWaitingBlock();

    QTextCursor m_cursor;

    // Text that waits, and its format.
    QString m_text;
    QTextCharFormat m_textFormat;

    // A paragraph has ended behind the text, and the next one waits.
    bool m_isBlockWaiting = false;

    // Formats that wait: of that paragraph or, if none waits, of the one at the cursor should it be empty.
    bool m_areFormatsWaiting = false;
    ORVRtfParagraph m_nextParagraph;
    QTextCharFormat m_nextCharFormat;

    // The paragraph at the cursor, if it got its format here.
    bool m_isParagraphKnown = false;
    ORVRtfParagraph m_paragraph;
    // It has text for certain; if not, the document is asked.
    bool m_hasText = false;
    // It is to begin on a new page.
    bool m_breaksPage = false;

    ORVRtfFormatSerials m_tabLists;
};

#endif
