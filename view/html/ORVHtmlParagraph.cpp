#include "ORVHtmlParagraph_p.h"

#include "ORVHtmlContext_p.h"
#include "ORVRtfProperties.h"
#include "ORVTextBorder.h"
#include "QtFormatCompat_p.h"

#include <QtGui/QTextDocument>
#include <QtGui/QTextList>

namespace {

using Declarations = ORVHtmlDeclarations;

QByteArray alignment(const QTextBlockFormat& format, bool isRightToLeft)
{
    const Qt::Alignment alignment = format.alignment();
    if (alignment & Qt::AlignHCenter)
        return "center";
    if (alignment & Qt::AlignJustify)
        return "justify";
    const bool isLeading = !(alignment & Qt::AlignRight);
    if (isRightToLeft && (alignment & Qt::AlignAbsolute))
        return isLeading ? "left" : QByteArray();
    if (isLeading)
        return QByteArray();
    return isRightToLeft ? "end" : "right";
}

/*! Where a height is stated, browsers do not add to it what the font needs: a least height is one in pixels. */
QByteArray lineHeight(const QTextBlockFormat& format, const ORVHtmlContext& context)
{
    const double height = format.lineHeight();
    if (!(height > 0))
        return QByteArray();
    switch (format.lineHeightType()) {
    case QTextBlockFormat::ProportionalHeight:
        return height != 100 ? Declarations::length(height, "%") : QByteArray();
    case QTextBlockFormat::FixedHeight: return Declarations::length(context.points(height));
    case QTextBlockFormat::MinimumHeight: return Declarations::length(context.points(height) * 96 / 72, "px");
    default: return QByteArray();
    }
}

/*! The lines of a paragraph, which stand outside its indents in word processors. */
void setBorders(ORVHtmlParagraph* paragraph, const QTextBlockFormat& format)
{
    Declarations* const declarations = &paragraph->declarations;
    ORVTextBorder borders[ORVTextBorder::SideCount];
    bool areEqual = true;
    bool areVisible = false;
    for (int side = 0; side < ORVTextBorder::SideCount; ++side) {
        borders[side] = ORVTextBorder::ofParagraph(format, ORVTextBorder::Side(side));
        areEqual = areEqual && borders[side] == borders[0];
        areVisible = areVisible || borders[side].isVisible();
    }
    if (!areVisible)
        return;
    paragraph->left -= borders[ORVTextBorder::Left].spacing + borders[ORVTextBorder::Left].width;
    paragraph->right -= borders[ORVTextBorder::Right].spacing + borders[ORVTextBorder::Right].width;
    if (areEqual) {
        declarations->set(Declarations::Border, Declarations::border(borders[0]));
    } else {
        declarations->set(Declarations::BorderTop, Declarations::border(borders[ORVTextBorder::Top]));
        declarations->set(Declarations::BorderRight, Declarations::border(borders[ORVTextBorder::Right]));
        declarations->set(Declarations::BorderBottom, Declarations::border(borders[ORVTextBorder::Bottom]));
        declarations->set(Declarations::BorderLeft, Declarations::border(borders[ORVTextBorder::Left]));
    }
    declarations->set(
        Declarations::Padding,
        Declarations::sides(borders[ORVTextBorder::Top].spacing, borders[ORVTextBorder::Right].spacing,
                            borders[ORVTextBorder::Bottom].spacing, borders[ORVTextBorder::Left].spacing));
}

} // namespace

ORVHtmlParagraph ORVHtmlParagraph::of(const QTextBlock& block, const ORVHtmlContext& context)
{
    const QTextBlockFormat format = block.blockFormat();
    ORVHtmlParagraph result;
    result.heading = qBound(0, format.intProperty(compat::headingLevel), 6);
    result.isRightToLeft = format.intProperty(QTextFormat::LayoutDirection) == Qt::RightToLeft;
    const QTextList* const list = block.textList();
    const double indent =
        (double(format.indent()) + (list ? list->format().indent() : 0)) * block.document()->indentWidth();
    result.top = context.points(format.topMargin());
    result.bottom = context.points(format.bottomMargin());
    result.left = context.points(format.leftMargin() + (result.isRightToLeft ? 0 : indent));
    result.right = context.points(format.rightMargin() + (result.isRightToLeft ? indent : 0));
    result.firstLine = context.points(format.textIndent());
    Declarations& declarations = result.declarations;
    declarations.set(Declarations::TextAlign, alignment(format, result.isRightToLeft));
    declarations.set(Declarations::LineHeight, lineHeight(format, context));
    if (format.hasProperty(QTextFormat::BackgroundBrush) && format.background().style() != Qt::NoBrush)
        declarations.set(Declarations::BackgroundColor, Declarations::color(format.background().color()));
    if (format.intProperty(ORVRtfProperty::ContextualSpacing) > 0)
        declarations.set(Declarations::NeighborMargin, Declarations::length(-result.bottom));
    if (format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore)
        declarations.set(Declarations::BreakBefore, "page");
    if (format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysAfter)
        declarations.set(Declarations::BreakAfter, "page");
    setBorders(&result, format);
    return result;
}

ORVHtmlDeclarations ORVHtmlParagraph::all() const
{
    ORVHtmlDeclarations result = declarations;
    result.set(ORVHtmlDeclarations::Margin, ORVHtmlDeclarations::sides(top, right, bottom, left));
    if (ORVHtmlDeclarations::length(firstLine) != "0")
        result.set(ORVHtmlDeclarations::TextIndent, ORVHtmlDeclarations::length(firstLine));
    return result;
}
