#include "TextExport.h"

#include "TextTable.h"
#include "TextWrap.h"

#include <ORVNotes.h>
#include <ORVTextListLabels.h>

#include <QString>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

namespace {

// Frames within each other; the text of deeper ones is that of the one around them.
const int deepestFrame = 50;

/*! Writes the text of a document. */
class TextWriter {
public:
    TextWriter(const QTextDocument& document, const TextLayout& layout)
        : m_document(document), m_labels(&document), m_layout(layout)
    {
    }

    QString run();

private:
    void addFrame(QTextFrame::iterator it, int depth);
    void addBlocks(int first, int last);
    void addParagraph(const QTextBlock& block);
    void addTable(const QTextTable& table);
    void addLine(const QString& line);

    const QTextDocument& m_document;
    ORVTextListLabels m_labels;
    TextLayout m_layout;
    QString m_text;
    bool m_isFirst = true;
    // Whether the last line has text, and whether it is that of a table.
    bool m_hasText = false;
    bool m_isBehindTable = false;
};

QString TextWriter::run()
{
    if (m_layout.hasTables)
        addFrame(m_document.rootFrame()->begin(), 0);
    else
        addBlocks(0, m_document.characterCount());
    if (!m_text.isEmpty() && !m_text.endsWith(QLatin1Char('\n')))
        m_text += QLatin1Char('\n');
    return m_text;
}

void TextWriter::addFrame(QTextFrame::iterator it, int depth)
{
    while (!it.atEnd()) {
        QTextFrame* const frame = it.currentFrame();
        const QTextBlock block = it.currentBlock();
        ++it;
        if (const QTextTable* const table = qobject_cast<QTextTable*>(frame))
            addTable(*table);
        else if (frame && depth < deepestFrame)
            addFrame(frame->begin(), depth + 1);
        else if (frame)
            addBlocks(frame->firstPosition(), frame->lastPosition());
        else if (block.isValid() && !isHiddenParagraph(block, it))
            addParagraph(block);
    }
}

void TextWriter::addBlocks(int first, int last)
{
    for (QTextBlock block = m_document.findBlock(first); block.isValid() && block.position() <= last;
         block = block.next())
        addParagraph(block);
}

void TextWriter::addLine(const QString& line)
{
    if (!m_isFirst)
        m_text += QLatin1Char('\n');
    m_text += line;
    m_isFirst = false;
    m_hasText = !line.isEmpty();
}

void TextWriter::addParagraph(const QTextBlock& block)
{
    const QStringList lines =
        TextWrap::lines(m_labels.label(block).text, paragraphText(block), m_layout.width);
    if (m_isBehindTable && !lines.first().isEmpty())
        addLine(QString());
    m_isBehindTable = false;
    for (const QString& line : lines)
        addLine(line);
}

/*! Empty lines set the table apart from the text around it. */
void TextWriter::addTable(const QTextTable& table)
{
    if (m_hasText)
        addLine(QString());
    const QStringList lines = TextTable(table, m_labels).lines(m_layout.width);
    for (const QString& line : lines)
        addLine(line);
    m_isBehindTable = true;
}

} // namespace

QString paragraphText(const QTextBlock& block)
{
    QString text = block.text();
    text.remove(QChar(QChar::ObjectReplacementCharacter));
    return text.replace(QChar::LineSeparator, QLatin1Char('\n'));
}

bool isHiddenParagraph(const QTextBlock& block, const QTextFrame::iterator& next)
{
    return block.length() == 1 && !next.atEnd() && qobject_cast<QTextTable*>(next.currentFrame());
}

QByteArray documentToPlainText(QTextDocument& document, const TextLayout& layout)
{
    ORVNotes::moveToEnd(&document, ORVNotes::ApplicationForm, ORVNotes::BracketedMarks);
    return TextWriter(document, layout).run().toUtf8();
}
