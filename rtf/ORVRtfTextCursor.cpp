#include "ORVRtfTextCursor_p.h"

#include <QtGui/QTextBlock>

bool ORVRtfTextCursor::endsParagraph(QChar c)
{
    const ushort unit = c.unicode();
    return unit == '\n' || unit == '\r' || unit == QChar::ParagraphSeparator || unit == 0xFDD0
        || unit == 0xFDD1;
}

void ORVRtfTextCursor::moveTo(const QTextCursor& place)
{
    complete();
    m_cursor = place;
    m_hasText = false;
}

QTextCursor& ORVRtfTextCursor::place()
{
    complete();
    // Whatever the cursor is used for is not seen here.
    m_hasText = false;
    return m_cursor;
}

void ORVRtfTextCursor::complete()
{
    if (!m_isBlockOwed)
        return;
    m_isBlockOwed = false;
    if (m_areFormatsKnown)
        m_cursor.insertBlock(m_blockFormat, m_blockCharFormat);
    else
        m_cursor.insertBlock();
}

void ORVRtfTextCursor::setBlockFormats(const QTextBlockFormat& format, const QTextCharFormat& charFormat)
{
    if (m_hasText)
        return;
    if (m_isBlockOwed) {
        m_areFormatsKnown = true;
        m_blockFormat = format;
        m_blockCharFormat = charFormat;
    } else if (m_cursor.block().length() == 1) {
        m_cursor.setBlockCharFormat(charFormat);
        m_cursor.setBlockFormat(format);
    }
}

void ORVRtfTextCursor::insertText(const QString& text, const QTextCharFormat& format)
{
    complete();
    m_cursor.insertText(text, format);
    m_hasText = !text.isEmpty() && !endsParagraph(text.at(text.size() - 1));
}

void ORVRtfTextCursor::endBlock()
{
    complete();
    m_isBlockOwed = true;
    m_areFormatsKnown = false;
    m_hasText = false;
}
