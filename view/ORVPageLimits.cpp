#include "ORVPageLimits_p.h"

#include "ORVFragmentFormats_p.h"
#include "ORVFrames_p.h"
#include "ORVPageGeometry.h"
#include "ORVTextBorder.h"
#include "QtFormatCompat_p.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextTable>

namespace {

// Points: the room left at least for the first word of a line or cell.
const double leastWordRoom = 18;
// Pixels: half the range of the layout, some 15,000 pages. The other half is for the text itself.
const double mostEmptySpace = 1 << 24;
// Points: cell padding that is accepted however narrow the columns of a table are.
const double usualPadding = 36;

const int paragraphDistances[] = {QTextFormat::BlockTopMargin, QTextFormat::BlockBottomMargin};
const int frameDistances[] = {QTextFormat::FrameBorder,       QTextFormat::FrameMargin,
                              QTextFormat::FramePadding,      QTextFormat::FrameTopMargin,
                              QTextFormat::FrameBottomMargin, QTextFormat::TableCellSpacing,
                              QTextFormat::TableCellPadding};
// Points: padding above and below the text of a cell, which neighbours of the cell have to make room for.
const double highestCellPadding = 72;
// Share of the text width that padding on one side of a cell takes at most.
const double widestCellPadding = 0.25;

class Limiter {
public:
    Limiter(QTextDocument* document, const ORVPageGeometry& page, int resolution)
        : m_document(document), m_pixelsPerPoint(resolution / 72.0), m_textWidth(page.textArea().width()),
          m_pageHeight(page.textArea().height() * m_pixelsPerPoint), m_leftOfText(page.textArea().left()),
          m_rightOfText(page.usablePaperSize().width() - page.textArea().right())
    {
    }

    void run()
    {
        m_document->setDefaultFont(font(m_document->defaultFont()));
        QTextCursor cursor(m_document);
        cursor.beginEditBlock();
        for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next())
            limitBlock(cursor, block);
        limitFrames();
        cursor.endEditBlock();
    }

private:
    void limitBlock(QTextCursor& cursor, const QTextBlock& block);
    void limitEmptySpace(QTextBlockFormat* format);
    void limitFrames() const;
    QFont font(QFont font) const;
    QTextBlockFormat paragraph(QTextBlockFormat format) const;
    void keepOnPaper(QTextBlockFormat* format) const;
    double onPaper(double pixels, double outside) const;
    void limitPadding(QTextFrameFormat* format) const;
    void limitCell(QTextCharFormat* format) const;
    void keepOnPaper(QTextFrameFormat* format) const;
    QTextCharFormat text(QTextCharFormat format) const;
    template <int Count>
    void limit(QTextFormat* format, const int (&properties)[Count], double (*limited)(double)) const;
    void atMost(QTextFormat* format, int property, double largest) const;

    QTextDocument* m_document;
    double m_pixelsPerPoint;
    // In points.
    double m_textWidth;
    // In pixels.
    double m_pageHeight;
    // In points.
    double m_leftOfText;
    double m_rightOfText;
    // In pixels: space taken by the paragraphs so far, without their text.
    double m_emptySpace = 0;
};

template <int Count>
void Limiter::limit(QTextFormat* format, const int (&properties)[Count], double (*limited)(double)) const
{
    for (const int property : properties) {
        if (!format->hasProperty(property))
            continue;
        const double pixels = format->doubleProperty(property);
        const double result = limited(pixels / m_pixelsPerPoint) * m_pixelsPerPoint;
        if (qAbs(result - pixels) > 1)
            format->setProperty(property, result);
    }
}

void Limiter::atMost(QTextFormat* format, int property, double largest) const
{
    const QVariant value = format->property(property);
    if (value.toDouble() <= largest)
        return;
    if (value.userType() == QMetaType::Int)
        format->setProperty(property, int(largest));
    else
        format->setProperty(property, largest);
}

QFont Limiter::font(QFont font) const
{
    const double largest = ORVPageLimits::largestFont;
    if (font.pointSizeF() > largest)
        font.setPointSizeF(largest);
    else if (font.pixelSize() > largest * m_pixelsPerPoint)
        font.setPixelSize(int(largest * m_pixelsPerPoint));
    return font;
}

QTextBlockFormat Limiter::paragraph(QTextBlockFormat format) const
{
    keepOnPaper(&format);
    limit(&format, paragraphDistances, ORVPageLimits::distance);
    const bool isMultiple = format.lineHeightType() == QTextBlockFormat::ProportionalHeight;
    atMost(&format, QTextFormat::LineHeight,
           isMultiple ? ORVPageLimits::highestLineMultiple : ORVPageLimits::longestLength * m_pixelsPerPoint);
    return format;
}

/*! Limits a distance from the edge of the text to the paper, whose edge is \a outside points away. */
double Limiter::onPaper(double pixels, double outside) const
{
    const double least = -qMax(0.0, outside) * m_pixelsPerPoint;
    const double most = qMax(0.0, m_textWidth - leastWordRoom) * m_pixelsPerPoint;
    return qBound(least, pixels, most);
}

void Limiter::keepOnPaper(QTextBlockFormat* format) const
{
    const bool isRightToLeft = format->layoutDirection() == Qt::RightToLeft;
    const double left = onPaper(format->leftMargin(), m_leftOfText);
    const double right = onPaper(format->rightMargin(), m_rightOfText);
    const double edge = isRightToLeft ? right : left;
    const double firstLine =
        onPaper(edge + format->textIndent(), isRightToLeft ? m_rightOfText : m_leftOfText) - edge;
    if (left != format->leftMargin())
        format->setLeftMargin(left);
    if (right != format->rightMargin())
        format->setRightMargin(right);
    if (qAbs(firstLine - format->textIndent()) > 1)
        format->setTextIndent(firstLine);
}

/*! Assumes columns of equal width. */
void Limiter::limitPadding(QTextFrameFormat* format) const
{
    if (!format->isTableFormat())
        return;
    const double column = m_textWidth / qMax(1, format->toTableFormat().columns());
    atMost(format, QTextFormat::TableCellPadding,
           qMax((column - leastWordRoom) / 2, usualPadding) * m_pixelsPerPoint);
}

void Limiter::limitCell(QTextCharFormat* format) const
{
    const double width = qMax(m_textWidth * widestCellPadding, usualPadding) * m_pixelsPerPoint;
    atMost(format, QTextFormat::TableCellLeftPadding, width);
    atMost(format, QTextFormat::TableCellRightPadding, width);
    atMost(format, QTextFormat::TableCellTopPadding, highestCellPadding * m_pixelsPerPoint);
    atMost(format, QTextFormat::TableCellBottomPadding, highestCellPadding * m_pixelsPerPoint);
    for (int side = 0; side < ORVTextBorder::SideCount; ++side)
        atMost(format, compat::tableCellBorder + side, usualPadding * m_pixelsPerPoint);
}

/*! Margins of frames can be negative, as those of paragraphs. One that makes up for the other still does so. */
void Limiter::keepOnPaper(QTextFrameFormat* format) const
{
    const bool isShifted = format->rightMargin() == -format->leftMargin();
    if (format->hasProperty(QTextFormat::FrameLeftMargin))
        format->setLeftMargin(onPaper(format->leftMargin(), m_leftOfText));
    if (format->hasProperty(QTextFormat::FrameRightMargin))
        format->setRightMargin(isShifted ? -format->leftMargin()
                                         : onPaper(format->rightMargin(), m_rightOfText));
}

QTextCharFormat Limiter::text(QTextCharFormat format) const
{
    if (format.objectType() == QTextFormat::TableCellObject)
        limitCell(&format);
    atMost(&format, QTextFormat::FontPointSize, ORVPageLimits::largestFont);
    atMost(&format, QTextFormat::FontPixelSize, ORVPageLimits::largestFont * m_pixelsPerPoint);
    return format;
}

/*! Removes page breaks, spacing and line heights once their sum exceeds mostEmptySpace. */
void Limiter::limitEmptySpace(QTextBlockFormat* format)
{
    const QTextFormat::PageBreakFlags breaks =
        QTextFormat::PageBreak_AlwaysBefore | QTextFormat::PageBreak_AlwaysAfter;
    const bool isPercent = format->lineHeightType() == QTextBlockFormat::ProportionalHeight;
    double space = format->topMargin() + format->bottomMargin();
    if ((format->pageBreakPolicy() & breaks) != 0)
        space += m_pageHeight;
    if (!isPercent)
        space += format->lineHeight();
    if (space == 0)
        return;
    m_emptySpace += space;
    if (m_emptySpace <= mostEmptySpace)
        return;
    for (const int property : {QTextFormat::PageBreakPolicy, QTextFormat::BlockTopMargin,
                               QTextFormat::BlockBottomMargin, QTextFormat::LineHeight})
        format->clearProperty(property);
}

void Limiter::limitBlock(QTextCursor& cursor, const QTextBlock& block)
{
    cursor.setPosition(block.position());
    QTextBlockFormat format = paragraph(block.blockFormat());
    limitEmptySpace(&format);
    if (format != block.blockFormat())
        cursor.setBlockFormat(format);
    ORVFragmentFormats::change(cursor, block, [this](const QTextCharFormat& format) { return text(format); });
}

void Limiter::limitFrames() const
{
    const QList<QTextFrame*> frames = ORVFrames::all(m_document);
    for (QTextFrame* const frame : frames) {
        QTextFrameFormat format = frame->frameFormat();
        limit(&format, frameDistances, ORVPageLimits::distance);
        keepOnPaper(&format);
        limitPadding(&format);
        if (format != frame->frameFormat())
            frame->setFrameFormat(format);
    }
}

} // namespace

double ORVPageLimits::length(double points)
{
    return points == points ? qBound(-longestLength, points, longestLength) : 0;
}

double ORVPageLimits::distance(double points)
{
    return qMax(0.0, length(points));
}

void ORVPageLimits::apply(QTextDocument* document, const ORVPageGeometry& page, int resolution)
{
    Limiter(document, page, resolution).run();
}
