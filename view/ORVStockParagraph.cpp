#include "ORVStockParagraph_p.h"

#include "ORVHeading_p.h"
#include "ORVPageGeometry.h"
#include "ORVPageLimits_p.h"
#include "ORVRtfProperties.h"
#include "ORVRtfUnits_p.h"
#include "ORVStockLists_p.h"
#include "QtFormatCompat_p.h"

#include <QtGui/QTextDocument>

#include <algorithm>
#include <numeric>

namespace {

// Room for the marker of a list item in front of its text, in points: a quarter of an inch. Qt paints the
// marker before the first line's position, RTF at it.
const double markerWidth = 18;
// In points. A smaller exact height would hide the text; programs that write one mean another unit.
const double leastExactHeight = 2;

bool isDouble(const QTextFormat& format, int property)
{
    return format.property(property).userType() == QMetaType::Double;
}

bool isRightToLeft(const QTextBlockFormat& format)
{
    return format.property(QTextFormat::LayoutDirection).toInt() == Qt::RightToLeft;
}

/*! The indents of a paragraph, in points. */
struct Indents {
    bool isLeftStated;
    bool isFirstLineStated;
    double left;
    /*! Of the first line, from the left indent. */
    double firstLine;
};

Indents indentsOf(const QTextBlockFormat& format, const ORVStockListItem& item)
{
    Indents indents;
    indents.isLeftStated = isDouble(format, ORVRtfProperty::LeftIndent);
    indents.isFirstLineStated = indents.isLeftStated || format.hasProperty(QTextFormat::TextIndent);
    if (!indents.isFirstLineStated && item.hasLevel) {
        indents.isLeftStated = indents.isFirstLineStated = true;
        indents.left = item.level.indent();
        indents.firstLine = item.level.firstLinePosition() - indents.left;
    } else {
        indents.left = format.doubleProperty(ORVRtfProperty::LeftIndent);
        indents.firstLine = format.doubleProperty(QTextFormat::TextIndent) - indents.left;
    }
    return indents;
}

bool isBefore(const QTextOption::Tab& tab, const QTextOption::Tab& other)
{
    return tab.position < other.position;
}

/*! Brings \a tabs into the order of their positions, which Qt expects, and \a leaders with them. */
void sortTabs(QList<QTextOption::Tab>& tabs, QString& leaders)
{
    if (std::is_sorted(tabs.constBegin(), tabs.constEnd(), isBefore))
        return;
    QVector<int> order(int(tabs.size()));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&tabs](int tab, int other) { return isBefore(tabs.at(tab), tabs.at(other)); });
    QList<QTextOption::Tab> sortedTabs;
    QString sortedLeaders;
    for (const int index : order) {
        sortedTabs.append(tabs.at(index));
        if (!leaders.isEmpty())
            sortedLeaders += index < leaders.size() ? leaders.at(index) : QLatin1Char(' ');
    }
    tabs = sortedTabs;
    leaders = sortedLeaders;
}

bool isChanged(const QTextFormat& before, const QTextFormat& after, int property)
{
    return before.property(property) != after.property(property);
}

} // namespace

ORVStockParagraph::ORVStockParagraph(const QTextDocument* document, int resolution)
    : m_resolution(resolution), m_textWidth(ORVPageGeometry::of(document).textWidth()),
      m_indentWidth(document->indentWidth())
{
}

/*! \a points in pixels, limited to what Qt can lay out. */
double ORVStockParagraph::stockLength(double points) const
{
    return pixels(ORVPageLimits::length(points));
}

/*! The indent in pixels that Qt adds to a paragraph's margins. */
double ORVStockParagraph::listPixels(const QTextBlockFormat& format, const ORVStockListItem& item) const
{
    return (format.indent() + item.indent) * m_indentWidth;
}

QTextBlockFormat ORVStockParagraph::stock(const QTextBlockFormat& format, const ORVStockListItem& item) const
{
    QTextBlockFormat result(format);
    setStockIndents(&result, item);
    const double right = format.doubleProperty(ORVRtfProperty::RightIndent);
    if (right != 0)
        result.setRightMargin(stockLength(m_textWidth - right)
                              - (isRightToLeft(format) ? listPixels(format, item) : 0));
    setStockSpacing(&result, QTextFormat::BlockTopMargin);
    setStockSpacing(&result, QTextFormat::BlockBottomMargin);
    setStockLineHeight(&result);
    // In place of the line spacing, which has become a line height.
    if (const int level = ORVHeading::level(format))
        result.setProperty(compat::headingLevel, level);
    return result;
}

double ORVStockParagraph::firstLineOffset(const QTextBlockFormat& format, const ORVStockListItem& item) const
{
    return stockLength(indentsOf(format, item).firstLine);
}

void ORVStockParagraph::setStockIndents(QTextBlockFormat* stock, const ORVStockListItem& item) const
{
    const Indents indents = indentsOf(*stock, item);
    const double firstLine = item.hasMarker ? qMax(0.0, indents.firstLine + markerWidth) : indents.firstLine;
    if (indents.isLeftStated)
        stock->setLeftMargin(stockLength(indents.left)
                             - (isRightToLeft(*stock) ? 0 : listPixels(*stock, item)));
    if (indents.isFirstLineStated)
        stock->setTextIndent(stockLength(firstLine));
    setStockTabs(stock, indents.left, firstLine);
}

/*!
    Tab stops are measured from the margin in RTF, from the paragraph's left edge in Qt. With a hanging indent
    that edge is a tab stop as well.
*/
void ORVStockParagraph::setStockTabs(QTextBlockFormat* stock, double left, double firstLine) const
{
    QList<QTextOption::Tab> tabs = stock->tabPositions();
    QString leaders = stock->stringProperty(ORVRtfProperty::TabLeaders);
    sortTabs(tabs, leaders);
    int firstInside = 0;
    for (QTextOption::Tab& tab : tabs) {
        tab.position = stockLength(tab.position - left);
        if (tab.position < 0)
            ++firstInside;
    }
    if (firstLine < 0 && (firstInside == tabs.size() || tabs.at(firstInside).position != 0)) {
        tabs.insert(firstInside, QTextOption::Tab(0, QTextOption::LeftTab));
        if (leaders.size() > firstInside)
            leaders.insert(firstInside, QLatin1Char(' '));
    }
    if (!leaders.isEmpty())
        stock->setProperty(ORVRtfProperty::TabLeaders, leaders);
    if (!tabs.isEmpty())
        stock->setTabPositions(tabs);
}

/*! As in word processors a positive height is the least one, a negative one exact. */
void ORVStockParagraph::setStockLineHeight(QTextBlockFormat* stock) const
{
    const double spacing = stock->doubleProperty(ORVRtfProperty::LineSpacing);
    const double base = stock->doubleProperty(ORVRtfProperty::LineMultiple);
    if (spacing == 0 || spacing == base || (spacing < 0 && -spacing < leastExactHeight))
        return;
    if (spacing < 0)
        stock->setLineHeight(stockLength(-spacing), QTextBlockFormat::FixedHeight);
    else if (base > 0)
        stock->setLineHeight(qMin(100 * spacing / base, ORVPageLimits::highestLineMultiple),
                             QTextBlockFormat::ProportionalHeight);
    else
        stock->setLineHeight(stockLength(spacing), QTextBlockFormat::MinimumHeight);
}

void ORVStockParagraph::setStockSpacing(QTextBlockFormat* stock, int property) const
{
    if (stock->hasProperty(property))
        stock->setProperty(property, pixels(ORVPageLimits::distance(stock->doubleProperty(property))));
}

void ORVStockParagraph::scale(QTextBlockFormat* format, int property, double factor) const
{
    if (format->hasProperty(property))
        format->setProperty(property, format->doubleProperty(property) * factor);
}

QTextBlockFormat ORVStockParagraph::application(const QTextBlockFormat& format,
                                                const QTextBlockFormat& expected,
                                                const QTextBlockFormat& changed,
                                                const ORVStockListItem& item) const
{
    QTextBlockFormat result(format);
    const bool isLeftChanged = isChanged(expected, changed, QTextFormat::BlockLeftMargin);
    const bool isFirstLineChanged = isChanged(expected, changed, QTextFormat::TextIndent);
    if (isLeftChanged || isFirstLineChanged)
        setLeftIndents(&result, changed, item, isLeftChanged, isFirstLineChanged);
    if (isChanged(expected, changed, QTextFormat::BlockRightMargin))
        setRightIndent(&result, changed, item);
    // Variants with equal tab stops may compare unequal: Qt 5 compares the padding bytes between their
    // members.
    if (expected.tabPositions() != changed.tabPositions()
        || isChanged(expected, changed, ORVRtfProperty::TabLeaders))
        setTabs(&result, changed, item);
    if (isChanged(expected, changed, QTextFormat::LineHeight)
        || isChanged(expected, changed, QTextFormat::LineHeightType))
        setLineSpacing(&result, changed);
    if (isChanged(expected, changed, compat::headingLevel))
        ORVHeading::setLevel(result, changed.intProperty(compat::headingLevel));
    const int margins[] = {QTextFormat::BlockTopMargin, QTextFormat::BlockBottomMargin};
    for (const int margin : margins) {
        if (!isChanged(expected, changed, margin))
            continue;
        result.setProperty(margin, changed.property(margin));
        scale(&result, margin, 72 / m_resolution);
    }
    return result;
}

QTextBlockFormat ORVStockParagraph::translated(const QTextBlockFormat& format,
                                               const ORVStockListItem& item) const
{
    QTextBlockFormat result(format);
    result.clearProperty(QTextFormat::BlockLeftMargin);
    result.clearProperty(QTextFormat::BlockRightMargin);
    result.clearProperty(QTextFormat::BlockIndent);
    result.clearProperty(QTextFormat::TextIndent);
    setLeftIndents(&result, format, item, true, true);
    setRightIndent(&result, format, item);
    setTabs(&result, format, item);
    setLineSpacing(&result, format);
    scale(&result, QTextFormat::BlockTopMargin, 72 / m_resolution);
    scale(&result, QTextFormat::BlockBottomMargin, 72 / m_resolution);
    return result;
}

void ORVStockParagraph::setLeftIndents(QTextBlockFormat* result, const QTextBlockFormat& stock,
                                       const ORVStockListItem& item, bool isLeftChanged,
                                       bool isFirstLineChanged) const
{
    Indents indents = indentsOf(*result, item);
    if (isLeftChanged)
        indents.left = points(stock.leftMargin() + (isRightToLeft(stock) ? 0 : listPixels(stock, item)));
    if (isFirstLineChanged)
        indents.firstLine = points(stock.textIndent()) - (item.hasMarker ? markerWidth : 0);
    result->setProperty(ORVRtfProperty::LeftIndent, indents.left);
    result->setProperty(QTextFormat::TextIndent, indents.left + indents.firstLine);
}

void ORVStockParagraph::setRightIndent(QTextBlockFormat* result, const QTextBlockFormat& stock,
                                       const ORVStockListItem& item) const
{
    const double right = stock.rightMargin() + (isRightToLeft(stock) ? listPixels(stock, item) : 0);
    if (right == 0)
        result->clearProperty(ORVRtfProperty::RightIndent);
    else
        result->setProperty(ORVRtfProperty::RightIndent, m_textWidth - points(right));
}

void ORVStockParagraph::setTabs(QTextBlockFormat* result, const QTextBlockFormat& stock,
                                const ORVStockListItem& item) const
{
    const double left = indentsOf(*result, item).left;
    const bool isHanging = stock.textIndent() < 0;
    QList<QTextOption::Tab> tabs;
    const QList<QTextOption::Tab> stockTabs = stock.tabPositions();
    QString leaders = stock.stringProperty(ORVRtfProperty::TabLeaders);
    for (QTextOption::Tab tab : stockTabs) {
        if (isHanging && tab.position == 0) {
            leaders.remove(int(tabs.size()), 1);
            continue;
        }
        tab.position = left + points(tab.position);
        tabs.append(tab);
    }
    if (tabs.isEmpty() || leaders.isEmpty())
        result->clearProperty(ORVRtfProperty::TabLeaders);
    else
        result->setProperty(ORVRtfProperty::TabLeaders, leaders.left(int(tabs.size())));
    if (tabs.isEmpty())
        result->clearProperty(QTextFormat::TabPositions);
    else
        result->setTabPositions(tabs);
}

void ORVStockParagraph::setLineSpacing(QTextBlockFormat* result, const QTextBlockFormat& stock) const
{
    const double height = stock.lineHeight();
    const int type = stock.lineHeightType();
    if (type == QTextBlockFormat::LineDistanceHeight)
        return;
    const int heading = ORVHeading::level(*result);
    result->clearProperty(ORVRtfProperty::HeadingLevel);
    setSpacing(result, height, type);
    if (heading > 0)
        ORVHeading::setLevel(*result, heading);
}

void ORVStockParagraph::setSpacing(QTextBlockFormat* result, double height, int type) const
{
    result->clearProperty(ORVRtfProperty::LineSpacing);
    result->clearProperty(ORVRtfProperty::LineMultiple);
    result->clearProperty(QTextFormat::LineHeight);
    result->clearProperty(QTextFormat::LineHeightType);
    if (height <= 0 || type == QTextBlockFormat::SingleHeight)
        return;
    if (type == QTextBlockFormat::ProportionalHeight) {
        result->setProperty(ORVRtfProperty::LineSpacing, height * ORVRtfUnits::singleLineHeight / 100);
        result->setProperty(ORVRtfProperty::LineMultiple, ORVRtfUnits::singleLineHeight);
    } else {
        const bool isExact = type == QTextBlockFormat::FixedHeight;
        result->setProperty(ORVRtfProperty::LineSpacing, isExact ? -points(height) : points(height));
    }
}
