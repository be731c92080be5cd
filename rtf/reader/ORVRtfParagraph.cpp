#include "ORVRtfParagraph_p.h"

#include "ORVRtfLimits_p.h"
#include "ORVRtfProperties.h"

namespace {

// Qt 5 compares tab stops in variants byte by byte. In a copy of this one the bytes between the members are
// zero, too, so that paragraphs with equal tab stops have equal formats.
const QTextOption::Tab zeroedTab;

} // namespace

const QTextBlockFormat& ORVRtfParagraph::format()
{
    if (m_tabsChanged) {
        m_format.setTabPositions(m_tabs);
        m_tabLists.distinguish(m_format, m_tabList);
        m_tabsChanged = false;
    }
    return m_format;
}

void ORVRtfParagraph::reset()
{
    m_format = QTextBlockFormat();
    if (m_tabs.isEmpty())
        return;
    m_tabs.clear();
    m_tabList.clear();
    m_tabsChanged = false;
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

void ORVRtfParagraph::addPageBreakBits(int bits)
{
    const int policy = m_format.intProperty(QTextFormat::PageBreakPolicy);
    m_format.setProperty(QTextFormat::PageBreakPolicy, policy | bits);
}

void ORVRtfParagraph::addTab(double position)
{
    const QTextOption::TabType type = m_nextTabType;
    m_nextTabType = QTextOption::LeftTab;
    if (m_tabs.size() >= ORVRtfLimits::tabStops)
        return;
    m_tabs.append(zeroedTab);
    QTextOption::Tab& tab = m_tabs.last();
    tab.position = position;
    tab.type = type;
    if (type == QTextOption::DelimiterTab)
        tab.delimiter = QLatin1Char('.');
    m_tabList += QByteArray::number(int(type)) + ' ' + QByteArray::number(position, 'g', 17) + ';';
    m_tabsChanged = true;
}
