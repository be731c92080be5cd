#include "ORVTextRtfWriter_p.h"

#include "ORVRounding_p.h"
#include "ORVRtfProperties.h"
#include "ORVRtfUnits_p.h"
#include "ORVRtfWordValues_p.h"
#include "ORVTextListFormat.h"
#include "ORVTextListLabels.h"

#include <QtGui/QTextList>

using namespace ORVRtfUnits;
using namespace ORVRtfWordValues;

namespace {

// Hanging indent, in twips, of exported list items without one.
const int listItemOffset = -360;

QString textBehindLabel(ORVTextListLevel::Follow follow)
{
    switch (follow) {
    case ORVTextListLevel::Space: return QString(QLatin1Char(' '));
    case ORVTextListLevel::Nothing: return QString();
    default: return QString(QLatin1Char('\t'));
    }
}

int twips(double points)
{
    return ORVRounding::truncated(points * twipsPerPoint);
}

} // namespace

/*! \a next is the next paragraph of the same cell or frame, invalid at its end. */
void ORVTextRtfWriterPrivate::processBlock(const QTextBlock& block, const QTextBlock& next, Pass pass)
{
    QTextBlock::iterator it = block.begin();
    const bool isEmpty = it.atEnd();
    const bool isLeftOut = isEmpty && m_paragraph.skipEmpty;
    m_paragraph.skipEmpty = false;
    if (isLeftOut)
        return;

    const bool isFormatStated = pass == Write && beginParagraph(block);
    if (QTextList* const list = block.textList()) {
        if (pass == Collect)
            collectList(list, block);
        else
            writeListItem(block, list, isFormatStated);
    }
    if (isEmpty)
        processFormat(block, pass);
    while (!it.atEnd()) {
        const QTextFragment fragment = it.fragment();
        ++it;
        processFragment(fragment, it.atEnd() ? QTextFragment() : it.fragment(), block, pass);
    }
    if (pass == Write)
        endFragments(next);
}

/*! Paragraph properties are written only when they change. Returns whether they were. */
bool ORVTextRtfWriterPrivate::beginParagraph(const QTextBlock& block)
{
    const int formatNumber = block.blockFormatIndex();
    m_output.writeStructure('\n');
    const bool isFormatStated = m_paragraph.isFirst || formatNumber != m_paragraph.blockFormat;
    if (!m_paragraph.isFirst)
        m_output.write(NewParagraph);
    if (isFormatStated)
        m_output.write(ResetParagraph);
    m_paragraph.isFirst = false;
    m_paragraph.blockFormat = formatNumber;
    m_output.write(ResetFormat);
    m_output.endKeyword();

    if (m_paragraph.tableDepth > 0) {
        m_output.write(InTable);
        m_output.write(TableNesting, m_paragraph.tableDepth);
    }
    if (isFormatStated) {
        writeBlockFormat(block);
        if (m_paragraph.tableDepth == 0) {
            const bool rightToLeft =
                block.blockFormat().property(QTextFormat::LayoutDirection).toInt() == Qt::RightToLeft;
            m_output.write(rightToLeft ? RightToLeftCharacters : LeftToRightCharacters);
            m_output.write(LowAnsiCharacters);
            m_output.endKeyword();
        }
    }
    return isFormatStated;
}

void ORVTextRtfWriterPrivate::writeBlockFormat(const QTextBlock& block)
{
    const QTextBlockFormat format = block.blockFormat();
    const int pageBreak = format.property(QTextFormat::PageBreakPolicy).toInt();
    if (pageBreak & QTextFormat::PageBreak_AlwaysBefore)
        m_output.write(StartParagraphOnNewPage);
    if (pageBreak & ORVRtfProperty::KeepLinesTogether)
        m_output.write(KeepParagraphIntact);
    if (pageBreak & ORVRtfProperty::KeepWithNext)
        m_output.write(KeepParagraphWithNext);
    if (!block.textList())
        writeTabs(format);
    writeIndents(format, block.textList());
    if (const double below = format.doubleProperty(QTextFormat::BlockBottomMargin))
        m_output.write(SpaceAfterParagraph, twips(below));
    if (const double above = format.doubleProperty(QTextFormat::BlockTopMargin))
        m_output.write(SpaceBeforeParagraph, twips(above));
    writeLineSpacing(format);
    const int alignment = format.property(QTextFormat::BlockAlignment).toInt() & 0xF;
    if (const KeyWord word = wordOf(paragraphAlignments, alignment))
        m_output.write(word);
    if (format.property(QTextFormat::LayoutDirection).toInt() == Qt::RightToLeft)
        m_output.write(RightToLeftParagraph);
}

void ORVTextRtfWriterPrivate::writeTabs(const QTextBlockFormat& format)
{
    const QList<QTextOption::Tab> tabs = format.tabPositions();
    for (const QTextOption::Tab& tab : tabs) {
        switch (tab.type) {
        case QTextOption::RightTab: m_output.write(FlushRightTab); break;
        case QTextOption::CenterTab: m_output.write(CenteredTab); break;
        case QTextOption::DelimiterTab: m_output.write(DecimalTab); break;
        default: break;
        }
        m_output.write(TabPosition, twips(tab.position));
    }
}

/*! RTF counts the first line from the left indent and the right edge from the right margin. */
void ORVTextRtfWriterPrivate::writeIndents(const QTextBlockFormat& format, bool isInList)
{
    const double left = format.doubleProperty(ORVRtfProperty::LeftIndent);
    if (left != 0)
        m_output.write(LeftIndent, twips(left));
    const double firstLine = format.doubleProperty(QTextFormat::TextIndent) - left;
    if (firstLine != 0)
        m_output.write(TextIndent, twips(firstLine));
    else if (m_settings.exportingMode && isInList)
        m_output.write(TextIndent, listItemOffset);
    const double right = format.doubleProperty(ORVRtfProperty::RightIndent);
    if (right != 0)
        m_output.write(RightIndent, ORVRounding::truncated(m_page.textWidth() - right * twipsPerPoint));
}

/*! Multiples of a single line are counted in 240ths of it; other heights are exact, in twips. */
void ORVTextRtfWriterPrivate::writeLineSpacing(const QTextBlockFormat& format)
{
    const double spacing = format.doubleProperty(ORVRtfProperty::LineSpacing);
    const double base = format.doubleProperty(ORVRtfProperty::LineMultiple);
    if (spacing == 0 || spacing == base)
        return;
    if (base != 0) {
        m_output.write(LineSpacing, twips(spacing * singleLineHeight / base));
        m_output.write(LineSpacingMultiple, 1);
    } else {
        m_output.write(LineSpacing, twips(spacing));
        m_output.write(LineSpacingMultiple, 0);
    }
}

void ORVTextRtfWriterPrivate::writeListItem(const QTextBlock& block, QTextList* list, bool isFormatStated)
{
    if (isFormatStated)
        m_output.write(ListOverrideIndex, m_lists.number(list));
    int level = ORVTextListFormat::blockLevel(list, block);
    QString text;
    if (ORVTextListFormat::shownLevel(list->format()) < 0) {
        text = ORVTextListLabels::stockText(list->format(), m_lists.itemNumber(list, block),
                                            block.textDirection() == Qt::RightToLeft)
            + QLatin1Char('\t');
    } else {
        const ORVTextListLabels::Label label = m_text.label(block);
        level = label.level;
        text = label.text + textBehindLabel(label.follow);
    }
    m_output.write(BlockListLevel, level);
    m_output.openGroup();
    m_output.write(ListText);
    writeFormattedText(text, m_text.runFormat(block));
    m_output.closeGroup();
}

/*! A note or bookmark continues if the next paragraph begins in the same state. A link never does. */
void ORVTextRtfWriterPrivate::endFragments(const QTextBlock& next)
{
    if (m_paragraph.fragment == FragmentState())
        return;
    QString nextBookmark;
    const QTextBlock::iterator first = next.begin();
    if (next.isValid() && !first.atEnd()) {
        const FragmentState& state = m_text.runFormat(first.fragment()).state;
        if (state == m_paragraph.fragment && !(state.flags & FragmentState::Hyperlink))
            return;
        nextBookmark = state.name;
    }
    finalizeFragmentState(nextBookmark);
    m_paragraph.fragment = FragmentState();
}
