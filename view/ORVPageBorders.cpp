#include "ORVPageBorders_p.h"

#include "ORVPageLimits_p.h"
#include "ORVRtfProperties.h"

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QPainter>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextLayout>
#include <QtGui/QTextTable>

namespace {

typedef ORVTextBorder::Side Side;

bool hasBorder(const QTextBlockFormat& format)
{
    for (int side = 0; side < ORVTextBorder::SideCount; ++side) {
        if (ORVTextBorder::ofParagraph(format, Side(side)).isVisible())
            return true;
    }
    return false;
}

bool haveEqualBorders(const QTextBlockFormat& first, const QTextBlockFormat& second)
{
    for (int side = 0; side < ORVTextBorder::SideCount; ++side) {
        if (ORVTextBorder::ofParagraph(first, Side(side)) != ORVTextBorder::ofParagraph(second, Side(side)))
            return false;
    }
    return true;
}

/*! Whether \a next follows \a block directly, in the same frame and cell. */
bool areNeighbours(const QTextBlock& block, const QTextBlock& next)
{
    const QTextCursor cursor(block);
    const QTextCursor nextCursor(next);
    if (cursor.currentFrame() != nextCursor.currentFrame())
        return false;
    const QTextTable* const table = cursor.currentTable();
    return !table || table->cellAt(cursor) == table->cellAt(nextCursor);
}

/*!
    Makes \a pixels more room above or below the paragraphs of a cell, if \a block, a neighbour of \a outer, is at
    their end: Qt leaves out its margin there.
*/
void padCell(const QTextBlock& block, const QTextBlock& outer, int property, double pixels)
{
    QTextCursor cursor(block);
    QTextTable* const table = cursor.currentTable();
    if (!table || pixels == 0 || (outer.isValid() && areNeighbours(block, outer)))
        return;
    QTextTableCell cell = table->cellAt(cursor);
    QTextCharFormat format = cell.format();
    const double padding =
        format.hasProperty(property) ? format.doubleProperty(property) : table->format().cellPadding();
    format.setProperty(property, padding + pixels);
    cell.setFormat(format);
}

Qt::PenStyle penStyle(QTextFrameFormat::BorderStyle style)
{
    switch (style) {
    case QTextFrameFormat::BorderStyle_Dotted: return Qt::DotLine;
    case QTextFrameFormat::BorderStyle_Dashed: return Qt::DashLine;
    case QTextFrameFormat::BorderStyle_DotDash: return Qt::DashDotLine;
    case QTextFrameFormat::BorderStyle_DotDotDash: return Qt::DashDotDotLine;
    default: return Qt::SolidLine;
    }
}

/*! Paints a line that fills \a area. */
void paintLine(QPainter* painter, const QRectF& area, QTextFrameFormat::BorderStyle style,
               const QColor& color)
{
    const bool isHorizontal = area.width() > area.height();
    if (style == QTextFrameFormat::BorderStyle_Double) {
        // Two strokes, with a gap of the same width between them.
        const double rest = (isHorizontal ? area.height() : area.width()) * 2 / 3;
        painter->fillRect(isHorizontal ? area.adjusted(0, 0, 0, -rest) : area.adjusted(0, 0, -rest, 0),
                          color);
        painter->fillRect(isHorizontal ? area.adjusted(0, rest, 0, 0) : area.adjusted(rest, 0, 0, 0), color);
    } else if (penStyle(style) == Qt::SolidLine) {
        painter->fillRect(area, color);
    } else {
        const QPointF center = area.center();
        painter->setPen(
            QPen(color, isHorizontal ? area.height() : area.width(), penStyle(style), Qt::FlatCap));
        painter->drawLine(isHorizontal ? QLineF(area.left(), center.y(), area.right(), center.y())
                                       : QLineF(center.x(), area.top(), center.x(), area.bottom()));
    }
}

} // namespace

ORVPageBorders::ORVPageBorders(QTextDocument* document, int resolution)
    : m_document(document), m_pixelsPerPoint(resolution / 72.0)
{
    addBoxes();
    makeRoom();
}

void ORVPageBorders::addBoxes()
{
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        if (!hasBorder(block.blockFormat()))
            continue;
        if (continuesBox(block))
            m_boxes.last().last = block.blockNumber();
        else
            m_boxes.append({block.blockNumber(), block.blockNumber()});
    }
}

/*! Whether \a block, which has lines, stands in the last box. */
bool ORVPageBorders::continuesBox(const QTextBlock& block) const
{
    if (m_boxes.isEmpty() || m_boxes.last().last + 1 != block.blockNumber())
        return false;
    const QTextBlockFormat before = block.previous().blockFormat();
    const QTextBlockFormat format = block.blockFormat();
    return before.leftMargin() == format.leftMargin() && before.rightMargin() == format.rightMargin()
        && haveEqualBorders(before, format) && areNeighbours(block.previous(), block);
}

/*! In pixels. A line below one would not be painted. */
double ORVPageBorders::widthOf(const ORVTextBorder& border) const
{
    return qMax(1.0, ORVPageLimits::distance(border.width) * m_pixelsPerPoint);
}

/*! What the line of \a block takes on \a side, with its distance from the text, in pixels. */
double ORVPageBorders::outside(const QTextBlock& block, Side side) const
{
    const ORVTextBorder border = ORVTextBorder::ofParagraph(block.blockFormat(), side);
    if (!border.isVisible())
        return 0;
    return widthOf(border) + ORVPageLimits::distance(border.spacing) * m_pixelsPerPoint;
}

/*! Where two boxes meet, the greater one of Qt's margins would be room for one line only. */
void ORVPageBorders::makeRoom()
{
    QTextCursor cursor(m_document);
    cursor.beginEditBlock();
    double below = 0;
    int next = -1;
    for (const Box& box : m_boxes) {
        for (int number = box.first; number <= box.last; ++number) {
            const QTextBlock block = m_document->findBlockByNumber(number);
            QTextBlockFormat format = block.blockFormat();
            format.clearProperty(QTextFormat::BlockTrailingHorizontalRulerWidth);
            if (number == box.first)
                format.setTopMargin(format.topMargin() + outside(block, ORVTextBorder::Top)
                                    + (number == next ? below : 0));
            if (number == box.last) {
                below = outside(block, ORVTextBorder::Bottom);
                format.setBottomMargin(format.bottomMargin() + below);
            }
            cursor.setPosition(block.position());
            cursor.setBlockFormat(format);
        }
        const QTextBlock first = m_document->findBlockByNumber(box.first);
        const QTextBlock last = m_document->findBlockByNumber(box.last);
        padCell(first, first.previous(), QTextFormat::TableCellTopPadding,
                outside(first, ORVTextBorder::Top));
        padCell(last, last.next(), QTextFormat::TableCellBottomPadding, below);
        next = box.last + 1;
    }
    cursor.endEditBlock();
}

/*! The area of all lines of text between the indents; null where Qt shows none. */
QRectF ORVPageBorders::textArea(const Box& box) const
{
    QRectF area;
    for (int number = box.first; number <= box.last; ++number) {
        const QTextBlock block = m_document->findBlockByNumber(number);
        const QPointF origin = m_document->documentLayout()->blockBoundingRect(block).topLeft();
        const double indent = qMax(0.0, block.blockFormat().textIndent());
        const bool isRightToLeft = block.textDirection() == Qt::RightToLeft;
        for (int i = 0; i < block.layout()->lineCount(); ++i) {
            const QTextLine line = block.layout()->lineAt(i);
            QRectF rect(line.x(), line.y(), line.width(), line.height());
            if (i == 0)
                rect.adjust(isRightToLeft ? 0 : -indent, 0, isRightToLeft ? indent : 0, 0);
            area |= rect.translated(origin);
        }
    }
    return area;
}

void ORVPageBorders::assignPages(double pageHeight)
{
    m_pageHeight = pageHeight;
    m_pages.clear();
    for (int i = 0; i < m_boxes.size(); ++i) {
        const QRectF area = textArea(m_boxes.at(i));
        if (area.isNull())
            continue;
        for (int page = int(area.top() / pageHeight); page <= int(area.bottom() / pageHeight); ++page)
            m_pages[page].append(i);
    }
}

/*! Where Qt leaves out the space at the beginning or end of a page, the lines stand beyond it. */
void ORVPageBorders::paint(QPainter* painter, int page) const
{
    const QVector<int> boxes = m_pages.value(page);
    for (const int number : boxes) {
        const Box& box = m_boxes.at(number);
        const QRectF text = textArea(box);
        const QRectF outer = outerArea(box, text);
        const double top = page * m_pageHeight;
        const double bottom = top + m_pageHeight;
        QRectF clip(outer.left(), top, outer.width(), m_pageHeight);
        if (text.top() >= top)
            clip.setTop(qMin(top, outer.top()));
        if (text.bottom() <= bottom)
            clip.setBottom(qMax(bottom, outer.bottom()));
        painter->save();
        painter->setClipRect(clip, Qt::IntersectClip);
        paintBox(painter, box, outer);
        painter->restore();
    }
}

QRectF ORVPageBorders::outerArea(const Box& box, const QRectF& textArea) const
{
    const QTextBlock block = m_document->findBlockByNumber(box.first);
    return textArea.adjusted(-outside(block, ORVTextBorder::Left), -outside(block, ORVTextBorder::Top),
                             outside(block, ORVTextBorder::Right), outside(block, ORVTextBorder::Bottom));
}

/*! Paints the lines of \a box, whose outermost edges are those of \a outer. */
void ORVPageBorders::paintBox(QPainter* painter, const Box& box, const QRectF& outer) const
{
    const QTextBlock block = m_document->findBlockByNumber(box.first);
    const QBrush foreground = block.charFormat().foreground();
    const QColor textColor = foreground.style() == Qt::NoBrush ? QColor(Qt::black) : foreground.color();
    for (int side = 0; side < ORVTextBorder::SideCount; ++side) {
        const ORVTextBorder border = ORVTextBorder::ofParagraph(block.blockFormat(), Side(side));
        if (!border.isVisible())
            continue;
        const double width = widthOf(border);
        QRectF area = outer;
        switch (side) {
        case ORVTextBorder::Top: area.setHeight(width); break;
        case ORVTextBorder::Bottom: area.setTop(area.bottom() - width); break;
        case ORVTextBorder::Left: area.setWidth(width); break;
        default: area.setLeft(area.right() - width); break;
        }
        paintLine(painter, area, border.style, border.color.isValid() ? border.color : textColor);
    }
}
