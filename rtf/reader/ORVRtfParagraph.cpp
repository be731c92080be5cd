#include "ORVRtfParagraph_p.h"

#include "ORVHeading_p.h"
#include "ORVRtfFormatSerials_p.h"
#include "ORVRtfLimits_p.h"
#include "ORVRtfProperties.h"

namespace {

const QLatin1Char noLeader(' ');

// Qt 5 compares tab stops in variants byte by byte. In a copy of this one the bytes between the members are
// zero, too.
const QTextOption::Tab zeroedTab;

/*! \a tab so that it equals its like of other reads. */
QVariant variantOf(const QTextOption::Tab& tab)
{
    QVariant variant = QVariant::fromValue(zeroedTab);
    QTextOption::Tab* const copy = static_cast<QTextOption::Tab*>(variant.data());
    copy->position = tab.position;
    copy->type = tab.type;
    copy->delimiter = tab.delimiter;
    return variant;
}

QVariant listOf(const QVector<QTextOption::Tab>& tabs)
{
    QVariantList list;
    list.reserve(tabs.size());
    for (const QTextOption::Tab& tab : tabs)
        list.append(variantOf(tab));
    return list;
}

/*! Differs for different lists. Delimiters follow from the types. */
QByteArray keyOf(const QVector<QTextOption::Tab>& tabs)
{
    QByteArray key;
    key.reserve(int(tabs.size() * (sizeof(double) + 1)));
    for (const QTextOption::Tab& tab : tabs) {
        key.append(reinterpret_cast<const char*>(&tab.position), int(sizeof tab.position));
        key.append(char(tab.type));
    }
    return key;
}

} // namespace

QTextBlockFormat ORVRtfParagraph::format(ORVRtfFormatSerials& tabLists) const
{
    if (m_tabs.isEmpty())
        return m_format;
    QTextBlockFormat format = m_format;
    tabLists.setList(format, QTextFormat::TabPositions, keyOf(m_tabs), [this] { return listOf(m_tabs); });
    if (!m_tabLeaders.isEmpty())
        format.setProperty(ORVRtfProperty::TabLeaders, m_tabLeaders);
    return format;
}

bool ORVRtfParagraph::operator==(const ORVRtfParagraph& other) const
{
    return m_format == other.m_format && m_tabs == other.m_tabs && m_tabLeaders == other.m_tabLeaders;
}

void ORVRtfParagraph::reset()
{
    m_format = QTextBlockFormat();
    m_tabs = QVector<QTextOption::Tab>();
    m_tabLeaders = QString();
    m_nextTabLeader = noLeader;
}

void ORVRtfParagraph::setLeftIndent(double indent)
{
    const double oldIndent = m_format.doubleProperty(ORVRtfProperty::LeftIndent);
    const double firstLine = m_format.doubleProperty(QTextFormat::TextIndent);
    m_format.setProperty(ORVRtfProperty::LeftIndent, indent);
    m_format.setProperty(QTextFormat::TextIndent, firstLine - oldIndent + indent);
}

void ORVRtfParagraph::setTextIndent(double offset)
{
    const double indent = m_format.doubleProperty(ORVRtfProperty::LeftIndent);
    m_format.setProperty(QTextFormat::TextIndent, indent + offset);
}

void ORVRtfParagraph::setRightIndent(double position)
{
    m_format.setProperty(ORVRtfProperty::RightIndent, position);
}

bool ORVRtfParagraph::isRuler() const
{
    const auto hasLine = [this](int side) {
        return m_format.hasProperty(ORVRtfProperty::BorderStyle + side);
    };
    return hasLine(ORVTextBorder::Bottom) && !hasLine(ORVTextBorder::Top) && !hasLine(ORVTextBorder::Left)
        && !hasLine(ORVTextBorder::Right);
}

void ORVRtfParagraph::addPageBreakBits(int bits)
{
    const int policy = m_format.intProperty(QTextFormat::PageBreakPolicy);
    m_format.setProperty(QTextFormat::PageBreakPolicy, policy | bits);
}

void ORVRtfParagraph::setLineSpacing(double spacing)
{
    ORVHeading::setLineSpacing(m_format, spacing);
}

void ORVRtfParagraph::setHeadingLevel(int level)
{
    ORVHeading::setLevel(m_format, level);
}

void ORVRtfParagraph::addTab(double position)
{
    const QTextOption::TabType type = m_nextTabType;
    m_nextTabType = QTextOption::LeftTab;
    const QChar leader = m_nextTabLeader;
    m_nextTabLeader = noLeader;
    if (m_tabs.size() >= ORVRtfLimits::tabStops)
        return;
    QTextOption::Tab tab(position, type);
    if (type == QTextOption::DelimiterTab)
        tab.delimiter = QLatin1Char('.');
    if (leader != noLeader || !m_tabLeaders.isEmpty()) {
        while (m_tabLeaders.size() < m_tabs.size())
            m_tabLeaders += noLeader;
        m_tabLeaders += leader;
    }
    m_tabs.append(tab);
}
