#include "ORVRtfTextInserter_p.h"

#include <QtGui/QTextBlock>

namespace {

// Characters that wait to go into the document together: more save nothing, and take memory.
const int largestPiece = 4096;

/*! Whether a document makes a new paragraph of \a c, which takes its formats when the next text comes. */
bool endsParagraph(QChar c)
{
    const ushort unit = c.unicode();
    return unit == '\n' || unit == '\r' || unit == QChar::ParagraphSeparator || unit == 0xFDD0
        || unit == 0xFDD1;
}

} // namespace

void ORVRtfTextInserter::moveTo(const QTextCursor& place)
{
    complete();
    m_cursor = place;
    m_isParagraphKnown = false;
    m_hasText = false;
    m_breaksPage = false;
}

QTextCursor& ORVRtfTextInserter::place()
{
    complete();
    // Whatever the cursor is used for is not seen here.
    m_isParagraphKnown = false;
    m_hasText = false;
    return m_cursor;
}

QTextCursor& ORVRtfTextInserter::placeBehindText(bool* isBehindParagraph)
{
    *isBehindParagraph = m_isBlockWaiting;
    if (m_isBlockWaiting)
        m_areFormatsWaiting = false;
    m_isBlockWaiting = false;
    return place();
}

void ORVRtfTextInserter::complete()
{
    insertWaitingText();
    if (m_isBlockWaiting)
        insertWaitingBlock();
    else if (m_areFormatsWaiting)
        applyWaitingFormats();
    m_isBlockWaiting = false;
    m_areFormatsWaiting = false;
}

void ORVRtfTextInserter::insertWaitingText()
{
    if (m_text.isEmpty())
        return;
    m_cursor.insertText(m_text, m_textFormat);
    m_text.resize(0);
}

void ORVRtfTextInserter::insertWaitingBlock()
{
    if (!m_areFormatsWaiting) {
        m_cursor.insertBlock();
        return;
    }
    m_cursor.insertBlock(m_nextParagraph.format(m_tabLists), m_nextCharFormat);
    m_paragraph = m_nextParagraph;
    m_isParagraphKnown = true;
}

void ORVRtfTextInserter::applyWaitingFormats()
{
    if (m_cursor.block().length() != 1)
        return;
    m_cursor.setBlockCharFormat(m_nextCharFormat);
    m_cursor.setBlockFormat(m_nextParagraph.format(m_tabLists));
    m_paragraph = m_nextParagraph;
    m_isParagraphKnown = true;
}

void ORVRtfTextInserter::setBlockFormats(const ORVRtfParagraph& paragraph, const QTextCharFormat& charFormat)
{
    if (m_hasText)
        return;
    m_areFormatsWaiting = true;
    m_nextParagraph = paragraph;
    m_nextCharFormat = charFormat;
    if (m_breaksPage)
        m_nextParagraph.addPageBreakBits(QTextFormat::PageBreak_AlwaysBefore);
}

/*! Whether text of \a format may be appended to the text that waits, in its paragraph or in the next. */
bool ORVRtfTextInserter::continuesText(const QTextCharFormat& format) const
{
    if (m_text.isEmpty() || m_textFormat != format)
        return false;
    return !m_isBlockWaiting
        || (m_areFormatsWaiting && m_isParagraphKnown && m_nextParagraph == m_paragraph
            && m_nextCharFormat == format);
}

void ORVRtfTextInserter::insertText(const QString& text, const QTextCharFormat& format)
{
    if (!continuesText(format)) {
        complete();
        m_textFormat = format;
    } else if (m_isBlockWaiting) {
        // A paragraph that ends within text is followed by one that is like it and has the format of the
        // text.
        m_text += QChar(QChar::ParagraphSeparator);
        m_isBlockWaiting = false;
        m_areFormatsWaiting = false;
    }
    m_text += text;
    m_hasText = !text.isEmpty() && !endsParagraph(text.at(text.size() - 1));
    if (!m_hasText || m_text.size() >= largestPiece)
        insertWaitingText();
}

void ORVRtfTextInserter::removeEmptyBlock()
{
    complete();
    QTextCursor previous = m_cursor;
    if (m_cursor.block().length() != 1 || !previous.movePosition(QTextCursor::PreviousBlock)
        || previous.currentFrame() != m_cursor.currentFrame())
        return;
    m_cursor.deletePreviousChar();
    m_isParagraphKnown = false;
    endBlock();
}

void ORVRtfTextInserter::breakPageBefore()
{
    m_breaksPage = true;
}

void ORVRtfTextInserter::endBlock()
{
    m_breaksPage = false;
    // Only text may wait in front of a paragraph that waits.
    if (m_isBlockWaiting || m_areFormatsWaiting)
        complete();
    m_isBlockWaiting = true;
    m_hasText = false;
}
