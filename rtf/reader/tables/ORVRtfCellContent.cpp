#include "ORVRtfCellContent_p.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextDocumentFragment>
#include <QtGui/QTextFrame>

#include <algorithm>

ORVRtfCellContent::ORVRtfCellContent(const QSharedPointer<QTextDocument>& document)
{
    Part part;
    part.firstFormat = document->begin().blockFormat();
    if (!document->rootFrame()->childFrames().isEmpty()) {
        part.document = document;
    } else if (!document->isEmpty()) {
        part.paragraphs.reserve(document->blockCount());
        for (QTextBlock block = document->begin(); block.isValid(); block = block.next())
            part.paragraphs.append(paragraphOf(block));
    }
    m_parts.append(part);
}

ORVRtfCellContent::Paragraph ORVRtfCellContent::paragraphOf(const QTextBlock& block)
{
    Paragraph paragraph;
    paragraph.format = block.blockFormat();
    paragraph.charFormat = block.charFormat();
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it)
        paragraph.runs.append({it.fragment().text(), it.fragment().charFormat()});
    return paragraph;
}

bool ORVRtfCellContent::hasText() const
{
    return std::any_of(m_parts.begin(), m_parts.end(), [](const Part& part) { return part.hasText(); });
}

bool ORVRtfCellContent::Part::endsWithEmptyParagraph() const
{
    return document ? document->lastBlock().length() == 1 : paragraphs.last().runs.isEmpty();
}

bool ORVRtfCellContent::endsWithEmptyParagraph() const
{
    for (int i = int(m_parts.size()) - 1; i >= 0; --i) {
        if (m_parts.at(i).hasText())
            return m_parts.at(i).endsWithEmptyParagraph();
    }
    return true;
}

QTextBlockFormat ORVRtfCellContent::firstFormat() const
{
    QTextBlockFormat format;
    for (const Part& part : m_parts) {
        if (part.separator == NewParagraph)
            break;
        if (part.formatsParagraph)
            format = part.firstFormat;
        if (part.hasSeveralParagraphs())
            break;
    }
    return format;
}

void ORVRtfCellContent::setLastFormat(const QTextBlockFormat& format)
{
    Part part;
    part.firstFormat = format;
    m_parts.append(part);
}

void ORVRtfCellContent::append(const ORVRtfCellContent& other)
{
    m_parts += other.m_parts;
}

void ORVRtfCellContent::absorb(const ORVRtfCellContent& other, Separator separator)
{
    if (!other.hasText())
        return;
    const int joint = int(m_parts.size());
    m_parts += other.m_parts;
    m_parts[joint].separator = separator;
    // Its first paragraph goes on an existing one, which keeps its format.
    for (int i = joint; i < m_parts.size(); ++i) {
        m_parts[i].formatsParagraph = false;
        if (m_parts.at(i).hasSeveralParagraphs())
            break;
    }
}

void ORVRtfCellContent::insertAt(QTextCursor& cursor) const
{
    for (const Part& part : m_parts) {
        if (part.separator == Blank)
            insertBlank(part, cursor);
        else if (part.separator == NewParagraph)
            cursor.insertBlock();
        if (part.formatsParagraph)
            cursor.setBlockFormat(part.firstFormat);
        insertPart(part, cursor);
    }
}

/*! The blank looks like the text before it or, at the beginning of a paragraph, like the text behind it. */
void ORVRtfCellContent::insertBlank(const Part& part, QTextCursor& cursor)
{
    const QLatin1String blank(" ");
    if (cursor.atBlockStart() && !part.paragraphs.isEmpty() && !part.paragraphs.first().runs.isEmpty())
        cursor.insertText(blank, part.paragraphs.first().runs.first().format);
    else
        cursor.insertText(blank);
}

void ORVRtfCellContent::insertPart(const Part& part, QTextCursor& cursor)
{
    if (part.document) {
        cursor.insertFragment(QTextDocumentFragment(part.document.data()));
        return;
    }
    for (int i = 0; i < part.paragraphs.size(); ++i) {
        const Paragraph& paragraph = part.paragraphs.at(i);
        if (i > 0)
            cursor.insertBlock(paragraph.format, paragraph.charFormat);
        for (const Run& run : paragraph.runs)
            cursor.insertText(run.text, run.format);
    }
}
