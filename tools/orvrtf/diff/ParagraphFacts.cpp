#include "ParagraphFacts.h"

#include "Colors.h"

#include <ORVRtfProperties.h>
#include <ORVTextBorder.h>
#include <ORVTextListFormat.h>

#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

namespace {

// In the order of QTextFrameFormat::BorderStyle.
const char* const lineNames[] = {
    "",
    QT_TRANSLATE_NOOP("orvrtf", "dotted"),
    QT_TRANSLATE_NOOP("orvrtf", "dashed"),
    QT_TRANSLATE_NOOP("orvrtf", "solid"),
    QT_TRANSLATE_NOOP("orvrtf", "double"),
    QT_TRANSLATE_NOOP("orvrtf", "dash-dotted"),
    QT_TRANSLATE_NOOP("orvrtf", "dash-dot-dotted"),
    QT_TRANSLATE_NOOP("orvrtf", "groove"),
    QT_TRANSLATE_NOOP("orvrtf", "ridge"),
    QT_TRANSLATE_NOOP("orvrtf", "inset"),
    QT_TRANSLATE_NOOP("orvrtf", "outset"),
};

// In the order of QTextOption::TabType.
const char* const tabNames[] = {
    QT_TRANSLATE_NOOP("orvrtf", "left"),
    QT_TRANSLATE_NOOP("orvrtf", "right"),
    QT_TRANSLATE_NOOP("orvrtf", "centred"),
    QT_TRANSLATE_NOOP("orvrtf", "decimal"),
};

bool isLength(const QTextFormat& format, int property)
{
    return format.property(property).userType() == QMetaType::Double;
}

/*! Adds facts about the format of one paragraph. */
class ParagraphFactFinder : private FactCollector {
public:
    ParagraphFactFinder(const QTextBlock& block, double textWidth)
        : m_block(block), m_format(block.blockFormat()), m_textWidth(textWidth),
          m_isRightToLeft(block.textDirection() == Qt::RightToLeft)
    {
    }

    FactList run();

private:
    void addIndents();
    FactValue lineHeight() const;
    void addTabs();
    void addLines();
    void addBreaks();

    const QTextBlock& m_block;
    const QTextBlockFormat m_format;
    const double m_textWidth;
    const bool m_isRightToLeft;
    // Where the text begins, in points from the margin.
    double m_begin = 0;
};

FactList ParagraphFactFinder::run()
{
    // Qt's left is where lines begin, unless it is absolute.
    const Qt::Alignment alignment = m_format.alignment();
    add(Facts::Alignment,
        FactValue().alignment(alignment, m_isRightToLeft && !(alignment & Qt::AlignAbsolute)));
    addIf(m_isRightToLeft, Facts::Direction);
    // Qt's level of headings and the line spacing share one id: an int is the former, a double the latter.
    const bool hasLineSpacing = isLength(m_format, ORVRtfProperty::LineSpacing);
    const int heading = m_format.intProperty(hasLineSpacing ? int(ORVRtfProperty::HeadingLevel)
                                                            : int(QTextFormat::HeadingLevel));
    if (heading > 0)
        add(Facts::Heading, FactValue().number(heading));
    addIndents();
    add(Facts::SpaceAbove, FactValue().points(m_format.topMargin()));
    add(Facts::SpaceBelow, FactValue().points(m_format.bottomMargin()));
    add(Facts::LineHeight, lineHeight());
    addTabs();
    const QColor background = Colors::of(m_format, QTextFormat::BackgroundBrush);
    if (background.isValid() && background.alpha() > 0)
        add(Facts::Background, FactValue().color(background));
    addLines();
    addBreaks();
    addIf(m_format.hasProperty(ORVRtfProperty::ContextualSpacing), Facts::ContextualSpacing);
    addIf(m_format.nonBreakableLines(), Facts::NoLineBreaks);
    return facts();
}

/*! What a list item does not state is that of its level. Instead of the first line it has a label. */
void ParagraphFactFinder::addIndents()
{
    double left = m_format.doubleProperty(ORVRtfProperty::LeftIndent);
    double first = m_format.doubleProperty(QTextFormat::TextIndent);
    bool hasLabel = false;
    if (QTextList* const list = m_block.textList()) {
        const QList<ORVTextListLevel> levels = ORVTextListFormat::levels(list->format());
        const ORVTextListLevel level = levels.value(ORVTextListFormat::blockLevel(list, m_block));
        hasLabel = !level.text().isEmpty();
        if (!isLength(m_format, ORVRtfProperty::LeftIndent)
            && !m_format.hasProperty(QTextFormat::TextIndent)) {
            left = level.indent();
            first = level.firstLinePosition();
        }
    }
    m_begin = qMin(left, first);
    add(Facts::LeftIndent, FactValue().points(left));
    const double right = m_format.doubleProperty(ORVRtfProperty::RightIndent);
    add(Facts::RightIndent, FactValue().points(right == 0 ? 0 : m_textWidth - right));
    if (hasLabel)
        add(Facts::LabelPosition, FactValue().points(first));
    else
        add(Facts::FirstLineIndent, FactValue().points(first - left));
}

/*! A positive height is the least one, a negative one exact, and a multiple has a base. */
FactValue ParagraphFactFinder::lineHeight() const
{
    const double spacing = isLength(m_format, ORVRtfProperty::LineSpacing)
        ? m_format.doubleProperty(ORVRtfProperty::LineSpacing)
        : 0;
    const double base = m_format.doubleProperty(ORVRtfProperty::LineMultiple);
    if (spacing == 0 || spacing == base)
        return FactValue().percent(100);
    if (spacing < 0)
        return FactValue().word(QT_TRANSLATE_NOOP("orvrtf", "exactly")).points(-spacing);
    if (base > 0)
        return FactValue().percent(100 * spacing / base);
    return FactValue().word(QT_TRANSLATE_NOOP("orvrtf", "at least")).points(spacing);
}

/*! Tab stops where no tab can come to have no effect. */
void ParagraphFactFinder::addTabs()
{
    const QList<QTextOption::Tab> tabs = m_format.tabPositions();
    const QString leaders = m_format.stringProperty(ORVRtfProperty::TabLeaders);
    FactValue value;
    for (int i = 0; i < tabs.size(); ++i) {
        if (tabs.at(i).position <= m_begin)
            continue;
        value.points(tabs.at(i).position).word(tabNames[qBound(0, int(tabs.at(i).type), 3)]);
        if (i < leaders.size() && leaders.at(i) != QLatin1Char(' '))
            value.quoted(leaders.at(i));
    }
    if (!value.isEmpty())
        add(Facts::TabStops, value);
}

void ParagraphFactFinder::addLines()
{
    for (int side = 0; side < ORVTextBorder::SideCount; ++side) {
        const ORVTextBorder border = ORVTextBorder::ofParagraph(m_format, ORVTextBorder::Side(side));
        if (!border.isVisible())
            continue;
        FactValue value = ParagraphFacts::line(border);
        value.word(QT_TRANSLATE_NOOP("orvrtf", "at a distance of")).points(border.spacing);
        add(Facts::BorderAbove + side, value);
    }
    addIf(m_format.hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth), Facts::Ruler);
}

void ParagraphFactFinder::addBreaks()
{
    const int policy = m_format.intProperty(QTextFormat::PageBreakPolicy);
    addIf(policy & QTextFormat::PageBreak_AlwaysBefore, Facts::PageBreakBefore);
    addIf(policy & QTextFormat::PageBreak_AlwaysAfter, Facts::PageBreakAfter);
    addIf(policy & ORVRtfProperty::KeepWithNext, Facts::KeepWithNext);
    addIf(policy & ORVRtfProperty::KeepLinesTogether, Facts::KeepTogether);
}

} // namespace

FactList ParagraphFacts::of(const QTextBlock& block, double textWidth)
{
    return ParagraphFactFinder(block, textWidth).run();
}

FactValue ParagraphFacts::line(const ORVTextBorder& border)
{
    return FactValue()
        .word(lineNames[qBound(0, int(border.style), int(QTextFrameFormat::BorderStyle_Outset))])
        .points(border.width)
        .color(border.color);
}
