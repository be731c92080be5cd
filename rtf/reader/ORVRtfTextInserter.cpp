#include "ORVRtfTextInserter_p.h"

#include <QtGui/QTextBlock>

namespace {

// Characters that wait to go into the document together: more save nothing, and take memory.
const int largestPiece = 4096;

} // namespace

bool ORVRtfTextInserter::endsParagraph(QChar c)
{
    const ushort unit = c.unicode();
    return unit == '\n' || unit == '\r' || unit == QChar::ParagraphSeparator || unit == 0xFDD0
        || unit == 0xFDD1;
}

void ORVRtfTextInserter::moveTo(const QTextCursor& place)
{
    complete();
    m_cursor = place;
    m_isBlockFormatKnown = false;
    m_hasText = false;
}

QTextCursor& ORVRtfTextInserter::place()
{
    complete();
    // Whatever the cursor is used for is not seen here.
    m_isBlockFormatKnown = false;
    m_hasText = false;
    return m_cursor;
}

void ORVRtfTextInserter::complete()
{
    insertOwedText();
    if (!m_isBlockOwed)
        return;
    m_isBlockOwed = false;
    if (m_areNextFormatsKnown) {
        m_cursor.insertBlock(m_nextFormat, m_nextCharFormat);
        m_blockFormat = m_nextFormat;
        m_isBlockFormatKnown = true;
    } else {
        m_cursor.insertBlock();
    }
}

void ORVRtfTextInserter::insertOwedText()
{
    if (m_text.isEmpty())
        return;
    m_cursor.insertText(m_text, m_textFormat);
    m_text.resize(0);
}

void ORVRtfTextInserter::setBlockFormats(const QTextBlockFormat& format, const QTextCharFormat& charFormat)
{
    if (m_hasText)
        return;
    if (m_isBlockOwed) {
        m_areNextFormatsKnown = true;
        m_nextFormat = format;
        m_nextCharFormat = charFormat;
    } else if (m_cursor.block().length() == 1) {
        m_cursor.setBlockCharFormat(charFormat);
        m_cursor.setBlockFormat(format);
        m_blockFormat = format;
        m_isBlockFormatKnown = true;
    }
}

/*! Whether text of \a format, and the end of a paragraph before it, may go on the text that waits. */
bool ORVRtfTextInserter::continuesText(const QTextCharFormat& format) const
{
    if (m_text.isEmpty() || m_textFormat != format)
        return false;
    return !m_isBlockOwed
        || (m_areNextFormatsKnown && m_isBlockFormatKnown && m_nextFormat == m_blockFormat
            && m_nextCharFormat == format);
}

void ORVRtfTextInserter::insertText(const QString& text, const QTextCharFormat& format)
{
    if (!continuesText(format)) {
        complete();
        m_textFormat = format;
    } else if (m_isBlockOwed) {
        // A paragraph that ends within text is followed by one that is like it and has the format of the
        // text.
        m_text += QChar(QChar::ParagraphSeparator);
        m_isBlockOwed = false;
    }
    m_text += text;
    m_hasText = !text.isEmpty() && !endsParagraph(text.at(text.size() - 1));
    if (!m_hasText || m_text.size() >= largestPiece)
        insertOwedText();
}

void ORVRtfTextInserter::endBlock()
{
    if (m_isBlockOwed)
        complete();
    m_isBlockOwed = true;
    m_areNextFormatsKnown = false;
    m_hasText = false;
}
