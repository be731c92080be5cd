#include "ORVPageLabels_p.h"

#include "ORVStockOriginals_p.h"
#include "ORVStockParagraph_p.h"
#include "ORVTabStops_p.h"
#include "ORVTextListFormat.h"
#include "ORVUnit.h"
#include "QtFontCompat_p.h"

#include <QtCore/QSet>
#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QPainter>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextFrame>
#include <QtGui/QTextLayout>
#include <QtGui/QTextList>

#include <algorithm>
#include <cmath>

namespace {

// A label that ends at a tab stop goes on to the next one: its text is not to touch it. In pixels, for rounding.
const double leastGap = 0.25;

bool isRightToLeft(const QTextBlock& block)
{
    return block.textDirection() == Qt::RightToLeft;
}

/*! Qt hides an empty paragraph in front of a table. */
bool isHidden(const QTextBlock& block)
{
    const QTextBlock next = block.next();
    return block.length() == 1 && next.isValid()
        && QTextCursor(next).currentFrame() != QTextCursor(block).currentFrame();
}

/*! What is underlined or struck out is the text, and capitals would change the letters of numbers. */
QFont labelFont(const QTextBlock& block, QPaintDevice* device)
{
    QFont font = block.charFormat().font();
    font.setUnderline(false);
    font.setOverline(false);
    font.setStrikeOut(false);
    font.setCapitalization(QFont::MixedCase);
    return QFont(font, device);
}

/*! The share of a label that stands in front of the position of the first line. */
double leftShare(ORVTextListLevel::Justification justification)
{
    switch (justification) {
    case ORVTextListLevel::Center: return 0.5;
    case ORVTextListLevel::Right: return 1;
    default: return 0;
    }
}

} // namespace

ORVPageLabels::ORVPageLabels(QTextDocument* document, QPaintDevice* device)
    : m_document(document), m_device(device)
{
    const ORVTextListLabels labels(document);
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        if (!block.textList() || isHidden(block))
            continue;
        const ORVTextListLabels::Label label = labels.label(block);
        if (!label.text.isEmpty())
            addItem(block, label);
    }
    hideQtLabels();
    cursor.endEditBlock();
}

/*! Qt counts its lists itself: their labels stand in front of their text, wherever that begins. */
void ORVPageLabels::addItem(const QTextBlock& block, const ORVTextListLabels::Label& label)
{
    QTextList* const list = block.textList();
    QTextLayout layout(label.text, labelFont(block, m_device));
    lay(layout, block);
    const double width = layout.lineAt(0).naturalTextWidth();
    const double space = compat::advance(QFontMetricsF(layout.font()), QLatin1Char(' '));
    Label item = {label.text, block.blockNumber(), width + space};
    const QTextBlockFormat format = block.blockFormat();
    if (ORVTextListFormat::storesLevels(list->format()) && ORVStockOriginals::isStock(format)) {
        const QTextBlockFormat original = ORVStockOriginals::original(format);
        const ORVStockParagraph paragraph(m_document, ORVUnit::screenResolution());
        const double labelStart = paragraph.firstLineOffset(original, m_lists.item(list, original))
            - width * leftShare(label.justification);
        const double start = textStart(block, format, labelStart, labelStart + width, label.follow);
        item.distance = start - labelStart;
        QTextBlockFormat change;
        change.setTextIndent(start);
        QTextCursor(block).mergeBlockFormat(change);
    }
    m_labels.append(item);
}

/*! Where the text of the first line begins behind a label; positions are those of the paragraph's edge. */
double ORVPageLabels::textStart(const QTextBlock& block, const QTextBlockFormat& format, double labelStart,
                                double labelEnd, ORVTextListLevel::Follow follow) const
{
    switch (follow) {
    case ORVTextListLevel::Nothing: return labelEnd;
    case ORVTextListLevel::Space:
        return labelEnd + compat::advance(QFontMetricsF(labelFont(block, m_device)), QLatin1Char(' '));
    default: return nextTabStop(block, format, labelStart, labelEnd);
    }
}

/*! The edge is a tab stop itself where the first line hangs. */
double ORVPageLabels::nextTabStop(const QTextBlock& block, const QTextBlockFormat& format, double labelStart,
                                  double position) const
{
    const bool isHanging = labelStart < 0;
    const QList<QTextOption::Tab> tabs = format.tabPositions();
    for (const QTextOption::Tab& tab : tabs) {
        if (tab.position > position && !(isHanging && tab.position > 0 && position < 0))
            return tab.position;
    }
    if (isHanging && position < -leastGap)
        return 0;
    const double margin = isRightToLeft(block) ? format.rightMargin() : format.leftMargin();
    const double edge =
        margin + (format.indent() + block.textList()->format().indent()) * m_document->indentWidth();
    const double distance = ORVTabStops::distance(m_document->defaultTextOption());
    return (std::floor((edge + position) / distance) + 1) * distance - edge;
}

QString ORVPageLabels::text(const QTextBlock& block) const
{
    const int number = block.blockNumber();
    const auto found = std::lower_bound(m_labels.begin(), m_labels.end(), number,
                                        [](const Label& label, int wanted) { return label.block < wanted; });
    return found != m_labels.end() && found->block == number ? found->text : QString();
}

void ORVPageLabels::hideQtLabels()
{
    QSet<QTextList*> hidden;
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        QTextList* const list = block.textList();
        if (!list || hidden.contains(list))
            continue;
        hidden.insert(list);
        QTextListFormat format = list->format();
        format.setStyle(QTextListFormat::ListStyleUndefined);
        list->setFormat(format);
    }
}

void ORVPageLabels::lay(QTextLayout& layout, const QTextBlock& block) const
{
    QTextOption option;
    option.setTextDirection(block.textDirection());
    option.setUseDesignMetrics(true);
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
}

void ORVPageLabels::assignPages(double pageHeight)
{
    m_pages.clear();
    QAbstractTextDocumentLayout* const documentLayout = m_document->documentLayout();
    for (int i = 0; i < m_labels.size(); ++i) {
        const QTextBlock block = m_document->findBlockByNumber(m_labels.at(i).block);
        if (block.layout()->lineCount() == 0)
            continue;
        const double top = documentLayout->blockBoundingRect(block).top() + block.layout()->lineAt(0).y();
        m_pages[int(top / pageHeight)].append(i);
    }
}

void ORVPageLabels::paint(QPainter* painter, int page) const
{
    const QVector<int> labels = m_pages.value(page);
    for (const int number : labels)
        paintLabel(painter, m_labels.at(number));
}

void ORVPageLabels::paintLabel(QPainter* painter, const Label& label) const
{
    const QTextBlock block = m_document->findBlockByNumber(label.block);
    const QPointF origin = m_document->documentLayout()->blockBoundingRect(block).topLeft();
    const QTextLine line = block.layout()->lineAt(0);
    QTextLayout layout(label.text, labelFont(block, m_device));
    lay(layout, block);
    const QTextLine labelLine = layout.lineAt(0);
    const QRectF text = line.naturalTextRect();
    const double left = isRightToLeft(block) ? text.right() + label.distance - labelLine.naturalTextWidth()
                                             : text.left() - label.distance;
    const QPointF place(left - labelLine.naturalTextRect().left(),
                        line.y() + line.ascent() - labelLine.ascent());
    const QBrush color = block.charFormat().foreground();
    painter->setPen(color.style() == Qt::NoBrush ? QColor(Qt::black) : color.color());
    layout.draw(painter, origin + place);
}
