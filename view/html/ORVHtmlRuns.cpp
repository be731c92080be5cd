#include "ORVHtmlRuns_p.h"

#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextFragment>

namespace {

QString rawText(const QTextDocument& document)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 9, 0)
    return document.toRawText();
#else
    QTextCursor cursor(const_cast<QTextDocument*>(&document));
    cursor.select(QTextCursor::Document);
    return cursor.selectedText();
#endif
}

bool keepsWhiteSpace(const QChar* text, int length)
{
    bool isBlank = true;
    for (int i = 0; i < length; ++i) {
        const ushort character = text[i].unicode();
        // Letters are most of the text.
        if (character > ' ' && character < 0x7f) {
            isBlank = false;
            continue;
        }
        if (character == '\t' || (isBlank && character == ' '))
            return true;
        isBlank = character == ' ' || character == QChar::LineSeparator;
    }
    return false;
}

} // namespace

ORVHtmlRuns::ORVHtmlRuns(const QTextDocument* document)
    : m_text(rawText(*document)), m_formats(document->allFormats())
{
    m_paragraphs.reserve(document->blockCount());
    int position = 0;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        add(block, position);
        position += block.length();
    }
}

void ORVHtmlRuns::add(const QTextBlock& block, int position)
{
    Paragraph paragraph;
    paragraph.position = position;
    paragraph.length = block.length() - 1;
    paragraph.firstRun = int(m_runs.size());
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const Run run = {fragment.charFormatIndex(), fragment.length()};
        m_runs.append(run);
    }
    paragraph.runCount = int(m_runs.size()) - paragraph.firstRun;
    paragraph.keepsWhiteSpace = keepsWhiteSpace(text(position), paragraph.length);
    m_paragraphs.append(paragraph);
}

const ORVHtmlRuns::Paragraph& ORVHtmlRuns::paragraph(const QTextBlock& block) const
{
    if (block != m_lastBlock) {
        m_lastNumber = block == m_lastBlock.next() ? m_lastNumber + 1 : block.blockNumber();
        m_lastBlock = block;
    }
    return m_paragraphs.at(m_lastNumber);
}

QMap<int, int> ORVHtmlRuns::lengthsOfFormats() const
{
    QMap<int, int> lengths;
    for (const Run& run : m_runs)
        lengths[run.format] += run.length;
    return lengths;
}
