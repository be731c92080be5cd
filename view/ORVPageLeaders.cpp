#include "ORVPageLeaders_p.h"

#include "ORVRtfProperties.h"
#include "QtFontCompat_p.h"

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QPainter>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextLayout>

#include <cmath>

namespace {

// Room on both sides of a leader, as a share of the width of its character.
const double leaderGap = 0.5;
// A tab begins at a tab stop, not in front of it, where the two are this close, in pixels: Qt rounds both.
const double tabStopTolerance = 0.05;
// A paragraph with more tabs has no leaders: to place a tab Qt measures all the text behind it.
const int mostTabs = 250;

/*! Where \a x is, in pixels from the beginning of the text of \a line. */
double distanceInLine(const QTextLine& line, double x, Qt::LayoutDirection direction)
{
    const QRectF text = line.naturalTextRect();
    return direction == Qt::RightToLeft ? text.right() - x : x - text.left();
}

/*! What fills a tab that begins at \a distance pixels from the beginning of its line; a blank for nothing. */
QChar leaderAt(const QTextBlockFormat& format, double distance)
{
    const QString leaders = format.stringProperty(ORVRtfProperty::TabLeaders);
    const QList<QTextOption::Tab> tabs = format.tabPositions();
    for (int i = 0; i < tabs.size() && i < leaders.size(); ++i) {
        if (tabs.at(i).position > distance + tabStopTolerance)
            return leaders.at(i);
    }
    return QLatin1Char(' ');
}

/*!
    Where the tab at \a position of \a line ends: at the nearest edge of the text up to the next tab, which may
    run against the direction of its paragraph.
*/
double endOfTab(const QTextLine& line, const QTextBlock& block, int position)
{
    const QString text = block.text();
    const bool isRightToLeft = block.textDirection() == Qt::RightToLeft;
    const int lineEnd = line.textStart() + line.textLength();
    double end = line.cursorToX(position + 1);
    for (int i = position + 1; i < lineEnd && text.at(i) != QLatin1Char('\t'); ++i) {
        const double leading = line.cursorToX(i);
        const double trailing = line.cursorToX(i, QTextLine::Trailing);
        end = isRightToLeft ? qMax(end, qMax(leading, trailing)) : qMin(end, qMin(leading, trailing));
    }
    return end;
}

void lay(QTextLayout& layout)
{
    QTextOption option;
    option.setUseDesignMetrics(true);
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
}

/*! The width of one of the characters of \a leader. */
double widthOf(QChar leader, const QFont& font)
{
    const int count = 100;
    QTextLayout layout(QString(count, leader), font);
    lay(layout);
    return layout.lineAt(0).naturalTextWidth() / count;
}

} // namespace

ORVPageLeaders::ORVPageLeaders(const QTextDocument* document, QPaintDevice* device)
    : m_document(document), m_device(device)
{
}

void ORVPageLeaders::assignPages(double pageHeight)
{
    m_pages.clear();
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().hasProperty(ORVRtfProperty::TabLeaders))
            addTabs(block, pageHeight);
    }
}

void ORVPageLeaders::addTabs(const QTextBlock& block, double pageHeight)
{
    const QTextBlockFormat format = block.blockFormat();
    const QString text = block.text();
    if (text.count(QLatin1Char('\t')) > mostTabs)
        return;
    const double top = m_document->documentLayout()->blockBoundingRect(block).top();
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('\t'))
            continue;
        const QTextLine line = block.layout()->lineForTextPosition(i);
        if (!line.isValid())
            continue;
        const QChar leader = leaderAt(format, distanceInLine(line, line.cursorToX(i), block.textDirection()));
        if (leader != QLatin1Char(' '))
            m_pages[int((top + line.y()) / pageHeight)].append({block.blockNumber(), i, leader.unicode()});
    }
}

void ORVPageLeaders::paint(QPainter* painter, int page) const
{
    const QVector<Tab> tabs = m_pages.value(page);
    for (const Tab& tab : tabs)
        paintTab(painter, tab);
}

/*! The characters stand at multiples of their width, so that those of all lines are in columns. */
void ORVPageLeaders::paintTab(QPainter* painter, const Tab& tab) const
{
    const QTextBlock block = m_document->findBlockByNumber(tab.block);
    const QTextLine line = block.layout()->lineForTextPosition(tab.position);
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + tab.position + 1);
    const QTextCharFormat format = cursor.charFormat();
    QFont font = compat::font(format);
    font.setUnderline(false);
    const QFont deviceFont(font, m_device);
    const double width = widthOf(QChar(tab.leader), deviceFont);
    if (width <= 0)
        return;
    const double before = line.cursorToX(tab.position);
    const double behind = endOfTab(line, block, tab.position);
    const QPointF origin = m_document->documentLayout()->blockBoundingRect(block).topLeft();
    const double gap = leaderGap * width;
    const int first = int(std::ceil((qMin(before, behind) + gap) / width));
    const int end = int(std::floor((qMax(before, behind) - gap) / width));
    const QBrush color = format.foreground();
    if (first >= end)
        return;
    painter->setPen(color.style() == Qt::NoBrush ? QColor(Qt::black) : color.color());
    QTextLayout layout(QString(end - first, QChar(tab.leader)), deviceFont);
    lay(layout);
    const double baseline = line.y() + line.ascent() - layout.lineAt(0).ascent();
    layout.draw(painter, origin + QPointF(first * width, baseline));
}
