#include "ORVHtmlContent_p.h"

#include "ORVHtmlParagraph_p.h"
#include "ORVHtmlTable_p.h"

#include <QtGui/QTextDocument>
#include <QtGui/QTextTable>

namespace {

/*! Qt hides an empty paragraph in front of a table, and needs one. */
bool isHidden(const QTextBlock& block, const QTextFrame::iterator& next)
{
    return block.length() == 1 && !next.atEnd() && qobject_cast<QTextTable*>(next.currentFrame());
}

bool isRule(const QTextBlock& block)
{
    return block.blockFormat().hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth);
}

} // namespace

ORVHtmlContent::ORVHtmlContent(ORVHtmlContext* context, const QTextDocument* document,
                               const ORVHtmlRuns& runs, bool isNote)
    : m_context(context), m_document(document), m_runs(runs), m_labels(document),
      m_notes(context->notes->take(document, isNote)), m_text(context, document, runs, m_notes),
      m_lists(context)
{
}

void ORVHtmlContent::write()
{
    writeFrame(m_document->rootFrame()->begin());
}

void ORVHtmlContent::writeFrame(QTextFrame::iterator it)
{
    while (!it.atEnd()) {
        QTextFrame* const frame = it.currentFrame();
        const QTextBlock block = it.currentBlock();
        ++it;
        if (QTextTable* const table = qobject_cast<QTextTable*>(frame)) {
            m_lists.end();
            writeTable(table);
        } else if (frame) {
            m_lists.end();
            m_context->output->markup("<div>\n");
            writeFrame(frame->begin());
            m_context->output->markup("</div>\n");
        } else if (block.isValid() && !isHidden(block, it)) {
            writeBlock(block);
        }
    }
    m_lists.end();
}

void ORVHtmlContent::writeBlock(const QTextBlock& block)
{
    if (m_text.goesOn()) {
        writeText(block, m_text.base(block, false));
        return;
    }
    const ORVHtmlParagraph& paragraph = this->paragraph(block);
    const ORVTextListLabels::Label label = m_labels.label(block);
    if (label.list >= 0 && !label.text.isEmpty()) {
        writeItem(block, paragraph, label);
        return;
    }
    m_lists.end();
    if (!isRule(block) || block.length() > 1)
        writeParagraph(block, paragraph);
    if (isRule(block)) {
        const ORVHtmlDeclarations declarations = paragraph.all();
        m_context->output->markup(
            "<hr" + m_context->sheet->attribute(m_context->sheet->use(ORVHtmlStyleSheet::Rule, declarations))
            + ">\n");
    }
}

const ORVHtmlParagraph& ORVHtmlContent::paragraph(const QTextBlock& block)
{
    const int index = block.blockFormatIndex();
    QHash<int, ORVHtmlParagraph>::const_iterator known = m_paragraphs.constFind(index);
    if (known == m_paragraphs.constEnd())
        known = m_paragraphs.insert(index, ORVHtmlParagraph::of(block, *m_context));
    return *known;
}

/*!
    What an \a element declares for \a block, which is of the format \a paragraph. An item gets its margins from the
    list. Most paragraphs share what they declare.
*/
ORVHtmlContent::BlockStyle& ORVHtmlContent::blockStyle(const QTextBlock& block,
                                                       const ORVHtmlParagraph& paragraph,
                                                       ORVHtmlStyleSheet::Element element, int base)
{
    const bool keepsWhiteSpace = m_runs.paragraph(block).keepsWhiteSpace;
    const ORVHtmlParagraphKey key = {block.blockFormatIndex(), base, element, keepsWhiteSpace};
    QHash<ORVHtmlParagraphKey, BlockStyle>::iterator known = m_blockStyles.find(key);
    if (known == m_blockStyles.end()) {
        BlockStyle style;
        style.declarations = element == ORVHtmlStyleSheet::Item ? paragraph.declarations : paragraph.all();
        if (keepsWhiteSpace)
            style.declarations.set(ORVHtmlDeclarations::WhiteSpace, "pre-wrap");
        style.declarations.merge(m_context->withoutBody(m_text.baseDeclarations(base)));
        known = m_blockStyles.insert(key, style);
    }
    return *known;
}

/*! The class of \a style as an attribute; its use is counted. */
QByteArray ORVHtmlContent::used(BlockStyle& style, ORVHtmlStyleSheet::Element element)
{
    if (style.number < 0)
        style.number = m_context->sheet->number(element, style.declarations);
    m_context->sheet->use(style.number);
    return m_context->sheet->attribute(style.number);
}

/*! Whether the item behind \a block is one of a list within it. */
bool ORVHtmlContent::hasNestedItem(const QTextBlock& block, const ORVTextListLabels::Label& label) const
{
    const ORVTextListLabels::Label next = m_labels.label(block.next());
    return next.list >= 0 && next.level > label.level && !next.text.isEmpty();
}

void ORVHtmlContent::writeItem(const QTextBlock& block, const ORVHtmlParagraph& paragraph,
                               const ORVTextListLabels::Label& label)
{
    ORVHtmlLists::Item item;
    item.label = label;
    item.marker = m_context->markers->marker(block, label);
    item.isRightToLeft = paragraph.isRightToLeft;
    item.start = paragraph.isRightToLeft ? paragraph.right : paragraph.left;
    const int base = m_text.base(block, false);
    const ORVHtmlDeclarations& declarations =
        blockStyle(block, paragraph, ORVHtmlStyleSheet::Item, base).declarations;
    // What a list within the item would inherit is stated by a paragraph instead.
    if (paragraph.heading > 0 || (hasNestedItem(block, label) && !declarations.isEmpty())) {
        item.hasParagraph = true;
        m_lists.begin(item);
        ORVHtmlParagraph inner = paragraph;
        inner.firstLine = 0;
        (paragraph.isRightToLeft ? inner.right : inner.left) = 0;
        writeParagraph(block, inner);
        return;
    }
    item.top = paragraph.top;
    item.end = paragraph.isRightToLeft ? paragraph.left : paragraph.right;
    item.bottom = paragraph.bottom;
    item.declarations = declarations;
    m_lists.begin(item);
    writeText(block, base);
}

void ORVHtmlContent::writeParagraph(const QTextBlock& block, const ORVHtmlParagraph& paragraph)
{
    // HTML has no headings in the cells of a table's head.
    const int heading = m_isInTableHead ? 0 : paragraph.heading;
    const ORVHtmlStyleSheet::Element element =
        ORVHtmlStyleSheet::Element(ORVHtmlStyleSheet::Paragraph + heading);
    const int base = m_text.base(block, heading > 0);
    const char* const tag = ORVHtmlStyleSheet::tag(element);
    ORVHtmlOutput& output = *m_context->output;
    output.markup("<");
    output.markup(tag);
    output.markup(used(blockStyle(block, paragraph, element, base), element));
    output.markup(paragraph.isRightToLeft ? " dir=\"rtl\">" : ">");
    m_openTag = tag;
    writeText(block, base);
}

void ORVHtmlContent::writeText(const QTextBlock& block, int base)
{
    m_context->output->markup(m_head);
    if (block.length() == 1 && m_head.isEmpty() && m_openTag)
        m_context->output->markup("<br>");
    m_head.clear();
    m_text.write(block, base);
    if (m_text.goesOn() || !m_openTag)
        return;
    m_context->output->markup("</");
    m_context->output->markup(m_openTag);
    m_context->output->markup(">\n");
    m_openTag = nullptr;
}

/*! A paragraph that declares nothing needs no element of its own, if there is no other one. */
bool ORVHtmlContent::isPlainText(const QTextBlock& block)
{
    const ORVHtmlParagraph& paragraph = this->paragraph(block);
    if (paragraph.heading > 0 || paragraph.isRightToLeft || isRule(block)
        || !m_labels.label(block).text.isEmpty())
        return false;
    const int base = m_text.base(block, false);
    return blockStyle(block, paragraph, ORVHtmlStyleSheet::Paragraph, base).declarations.isEmpty();
}

void ORVHtmlContent::writeCell(const QTextTableCell& cell)
{
    const QTextBlock block = m_document->findBlock(cell.firstPosition());
    const bool isOneParagraph = block.position() + block.length() - 1 == cell.lastPosition();
    if (isOneParagraph && !m_text.goesOn() && isPlainText(block))
        writeText(block, m_text.base(block, false));
    else
        writeFrame(cell.begin());
}

void ORVHtmlContent::writeTable(QTextTable* table)
{
    const bool isInOuterHead = m_isInTableHead;
    ORVHtmlTable html(table, m_context);
    html.begin();
    for (int row = 0; row < table->rows(); ++row) {
        html.beginRow(row);
        for (int column = 0; column < table->columns(); ++column) {
            const QTextTableCell cell = table->cellAt(row, column);
            if (cell.row() != row || cell.column() != column)
                continue;
            html.beginCell(cell);
            m_isInTableHead = isInOuterHead || html.isInHead(cell);
            writeCell(cell);
            m_isInTableHead = isInOuterHead;
            html.endCell(cell);
        }
        html.endRow(row);
    }
    html.end();
}
