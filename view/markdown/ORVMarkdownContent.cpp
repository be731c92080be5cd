#include "ORVMarkdownContent_p.h"

#include "ORVMarkdownInline_p.h"
#include "ORVMarkdownTable_p.h"
#include "QtFormatCompat_p.h"

#include <QtGui/QTextDocument>
#include <QtGui/QTextTable>

#include <algorithm>

namespace {

using Piece = ORVMarkdownPiece;
using Place = ORVMarkdownPlace;

// Frames within each other; the text of deeper ones stands in that frame.
const int deepestFrame = 50;

bool endsWithRule(const QTextBlock& block)
{
    return block.blockFormat().hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth);
}

int headingLevel(const QTextBlock& block)
{
    return qBound(0, block.blockFormat().intProperty(compat::headingLevel), 6);
}

ORVMarkdownPieces labelled(const ORVTextListLabels::Label& label, const ORVMarkdownPieces& pieces)
{
    ORVMarkdownPieces result;
    if (!label.text.isEmpty())
        result.append(Piece(Piece::Text, ORVMarkdownText::cleaned(label.text) + QLatin1Char(' ')));
    return result + pieces;
}

ORVMarkdownTable::Alignment alignmentOf(const QTextBlock& block)
{
    const Qt::Alignment alignment = block.blockFormat().alignment();
    if (alignment & Qt::AlignHCenter)
        return ORVMarkdownTable::Centered;
    return alignment & Qt::AlignRight ? ORVMarkdownTable::Right : ORVMarkdownTable::Left;
}

/*! The tag that begins \a cell. */
QString cellTag(const QTextTableCell& cell, bool isHead)
{
    QString tag = QLatin1String(isHead ? "<th" : "<td");
    if (cell.columnSpan() > 1)
        tag += QString::fromLatin1(" colspan=\"%1\"").arg(cell.columnSpan());
    if (cell.rowSpan() > 1)
        tag += QString::fromLatin1(" rowspan=\"%1\"").arg(cell.rowSpan());
    return tag + QLatin1Char('>');
}

} // namespace

ORVMarkdownContent::ORVMarkdownContent(ORVMarkdownContext* context, const QTextDocument* document,
                                       bool isNote)
    : m_context(context), m_document(document), m_labels(document), m_text(context, document, isNote)
{
}

void ORVMarkdownContent::setHead(const QString& text)
{
    m_head.append(Piece(Piece::Text, ORVMarkdownText::cleaned(text)));
}

void ORVMarkdownContent::write()
{
    writeFrame(m_document->rootFrame()->begin(), 0);
    if (m_text.goesOn())
        writeParagraph();
    endCode();
    endHead();
}

void ORVMarkdownContent::writeFrame(QTextFrame::iterator it, int depth)
{
    for (; !it.atEnd(); ++it) {
        QTextFrame* const frame = it.currentFrame();
        if (frame && depth == deepestFrame)
            writeFlat(*frame);
        else if (QTextTable* const table = qobject_cast<QTextTable*>(frame))
            writeTable(table, depth + 1);
        else if (frame)
            writeFrame(frame->begin(), depth + 1);
        else if (it.currentBlock().isValid())
            writeBlock(it.currentBlock());
    }
}

/*! Writes the paragraphs of \a frame and of those within it. */
void ORVMarkdownContent::writeFlat(const QTextFrame& frame)
{
    for (QTextBlock block = m_document->findBlock(frame.firstPosition());
         block.isValid() && block.position() <= frame.lastPosition(); block = block.next())
        writeBlock(block);
}

void ORVMarkdownContent::writeBlock(const QTextBlock& block)
{
    if (!m_text.goesOn()) {
        if (block.length() == 1 && !endsWithRule(block)) {
            m_codeGap += m_code.isEmpty() ? 0 : 1;
            return;
        }
        const bool isPlain =
            headingLevel(block) == 0 && m_labels.label(block).text.isEmpty() && !endsWithRule(block);
        if (isPlain && m_text.isCode(block)) {
            addCode(block);
            return;
        }
        endCode();
        m_block = block;
    }
    m_text.append(block);
    if (!m_text.goesOn())
        writeParagraph();
}

/*! Writes what has been collected. Paragraphs without text are left out, as Markdown has none. */
void ORVMarkdownContent::writeParagraph()
{
    ORVMarkdownPieces pieces = m_text.take();
    const ORVTextListLabels::Label label = m_labels.label(m_block);
    const int level = headingLevel(m_block);
    if (level > 0)
        ORVMarkdownInline::removeCommonStyle(&pieces);
    bool isNumbered = false;
    const bool isItem = level == 0 && this->isItem(label, &isNumbered);
    const QString text = ORVMarkdownInline::markdown(pieces, level > 0 ? Place::Heading : Place::Paragraph);
    if (!text.isEmpty()) {
        if (isItem)
            writeItem(label, isNumbered, text);
        else if (level > 0)
            writeHeading(level, ORVMarkdownInline::markdown(labelled(label, pieces), Place::Heading));
        else
            writeOther(ORVMarkdownInline::markdown(m_head + labelled(label, pieces), Place::Paragraph));
    }
    if (endsWithRule(m_block)) {
        endHead();
        // At the start of a file dashes would be taken for the begin of metadata.
        writeOther(QLatin1String(m_context->output->isEmpty() ? "***" : "---"));
    }
}

void ORVMarkdownContent::writeOther(const QString& lines)
{
    m_lists.end();
    m_head.clear();
    m_context->output->block(lines);
}

/*! Writes what stands in front of the text, when that does not begin with a paragraph. */
void ORVMarkdownContent::endHead()
{
    m_lists.end();
    if (!m_head.isEmpty())
        writeOther(ORVMarkdownInline::markdown(m_head, Place::Paragraph));
    m_context->output->endHead();
}

void ORVMarkdownContent::writeHeading(int level, const QString& text)
{
    endHead();
    writeOther(QString(level, QLatin1Char('#')) + QLatin1Char(' ') + text);
}

/*! Whether \a label is one of Markdown. Others stand in front of the text, as the text may refer to them. */
bool ORVMarkdownContent::isItem(const ORVTextListLabels::Label& label, bool* isNumbered)
{
    if (label.list < 0 || label.text.isEmpty())
        return false;
    const ORVHtmlMarker marker = m_context->markers.marker(m_block, label);
    *isNumbered = marker.isNumbered;
    return !marker.isNumbered || (!marker.isOwn && ORVMarkdownLists::isNumber(label.number));
}

void ORVMarkdownContent::writeItem(const ORVTextListLabels::Label& label, bool isNumbered,
                                   const QString& text)
{
    if (!m_head.isEmpty() || m_context->output->hasHead())
        endHead();
    const ORVMarkdownLists::Item item = m_lists.begin(label, isNumbered);
    m_context->output->item(item.marker, text, item.indent, item.isTight);
}

void ORVMarkdownContent::addCode(const QTextBlock& block)
{
    if (m_code.isEmpty())
        endHead();
    for (; m_codeGap > 0; --m_codeGap)
        m_code.append(QString());
    m_code.append(m_text.plainText(block));
}

void ORVMarkdownContent::endCode()
{
    m_codeGap = 0;
    if (m_code.isEmpty())
        return;
    const QString code = m_code.join(QLatin1String("\n"));
    m_code.clear();
    const int ticks = qMax(3, ORVMarkdownEscape::longestRun(code, QLatin1Char('`')) + 1);
    const QString fence(ticks, QLatin1Char('`'));
    writeOther(fence + QLatin1Char('\n') + code + QLatin1Char('\n') + fence);
}

void ORVMarkdownContent::writeTable(QTextTable* table, int depth)
{
    if (m_text.goesOn())
        writeParagraph();
    endCode();
    endHead();
    // A frame around text, which Markdown does not have.
    if (table->rows() == 1 && table->columns() == 1)
        writeFrame(table->cellAt(0, 0).begin(), depth);
    else if (ORVMarkdownTable::canHave(*table))
        writePipes(table);
    else
        writeHtml(table, depth);
    endCode();
    m_lists.end();
}

/*! The paragraphs of \a cell as lines of one. */
ORVMarkdownPieces ORVMarkdownContent::cellPieces(const QTextTableCell& cell)
{
    ORVMarkdownPieces pieces;
    for (QTextBlock block = m_document->findBlock(cell.firstPosition());
         block.isValid() && block.position() <= cell.lastPosition(); block = block.next()) {
        const bool goesOn = m_text.goesOn();
        m_text.append(block);
        if (!goesOn && !pieces.isEmpty())
            pieces.append(Piece(Piece::LineBreak, QString()));
        pieces += goesOn ? m_text.take() : labelled(m_labels.label(block), m_text.take());
    }
    return pieces;
}

/*!
    The first row is the head where the document says so, and where all of its text is bold. Else the head, which these
    tables must have, is empty.
*/
void ORVMarkdownContent::writePipes(const QTextTable* table)
{
    ORVMarkdownTable result(table->columns());
    bool hasHead = table->format().headerRowCount() > 0;
    QVector<ORVMarkdownPieces> first;
    for (int column = 0; column < table->columns(); ++column)
        first.append(cellPieces(table->cellAt(0, column)));
    const auto isBold = [](const ORVMarkdownPieces& pieces) {
        return ORVMarkdownInline::isAllOf(pieces, Piece::Bold);
    };
    hasHead = hasHead || (table->rows() > 1 && std::all_of(first.constBegin(), first.constEnd(), isBold));
    for (int row = 0; row < table->rows(); ++row) {
        const bool isHead = row == 0 && hasHead;
        for (int column = 0; column < table->columns(); ++column) {
            const QTextTableCell cell = table->cellAt(row, column);
            ORVMarkdownPieces pieces = row == 0 ? first.at(column) : cellPieces(cell);
            if (isHead)
                ORVMarkdownInline::removeCommonStyle(&pieces);
            result.add(ORVMarkdownInline::markdown(pieces, Place::Cell),
                       isHead ? ORVMarkdownTable::Unknown
                              : alignmentOf(m_document->findBlock(cell.firstPosition())));
        }
    }
    writeOther(result.lines(hasHead));
}

/*! Tags around cells that have Markdown in them, which needs empty lines around it. */
void ORVMarkdownContent::writeHtml(const QTextTable* table, int depth)
{
    const int headRows = table->format().headerRowCount();
    QStringList tags(QLatin1String("<table>"));
    for (int row = 0; row < table->rows(); ++row) {
        tags += QLatin1String("<tr>");
        for (int column = 0; column < table->columns(); ++column) {
            const QTextTableCell cell = table->cellAt(row, column);
            if (cell.row() != row || cell.column() != column)
                continue;
            tags += cellTag(cell, row < headRows);
            const QString end = QLatin1String(row < headRows ? "</th>" : "</td>");
            if (cell.firstPosition() == cell.lastPosition()) {
                tags.last() += end;
                continue;
            }
            writeOther(tags.join(QLatin1String("\n")));
            writeFrame(cell.begin(), depth);
            endCode();
            tags = QStringList(end);
        }
        tags += QLatin1String("</tr>");
    }
    tags += QLatin1String("</table>");
    writeOther(tags.join(QLatin1String("\n")));
}
