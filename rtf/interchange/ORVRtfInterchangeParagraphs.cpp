#include "ORVRtfInterchangeReader_p.h"

#include "ORVRtfProperties.h"
#include "ORVRtfUnits_p.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>

#include <limits>

using namespace ORVRtfUnits;

namespace Words = ORVRtfInterchangeWords;

namespace {

const int headingLevels = 6;
/*! The next number is a property, too. */
const int greatestStyle = std::numeric_limits<int>::max() - 1;
const QChar middleDot(0x00B7);

/*! The character that a word fills tabs with; null for words that are no leaders. */
QChar tabLeader(Words::Word word)
{
    switch (word) {
    case Words::TabLeaderDots: return QLatin1Char('.');
    case Words::TabLeaderMiddleDots: return middleDot;
    case Words::TabLeaderHyphens: return QLatin1Char('-');
    case Words::TabLeaderLine:
    case Words::TabLeaderThickLine: return QLatin1Char('_');
    case Words::TabLeaderEquals: return QLatin1Char('=');
    default: return QChar();
    }
}

} // namespace

/*! Words for formats of paragraphs that the storage form reads in another way; false for all others. */
bool ORVRtfInterchangeReader::translateParagraphWord(KeyWord keyWord, int n)
{
    switch (keyWord) {
    case ResetParagraph: m_own.paragraphState = ORVRtfParagraphState(); return false;
    case LineSpacing: m_paragraph.setLineSpacing(points(n)); break;
    default: return false;
    }
    return true;
}

/*! The same for words of this form. */
bool ORVRtfInterchangeReader::translatePrivateParagraphWord(Words::Word word, bool hasParameter, int n)
{
    ORVRtfParagraphState& state = m_own.paragraphState;
    switch (word) {
    case Words::OutlineLevel: m_paragraph.setHeadingLevel(n >= 0 && n < headingLevels ? n + 1 : 0); break;
    case Words::ParagraphStyle:
        state.style = qBound(0, n, greatestStyle);
        setContextualSpacing();
        break;
    case Words::ContextualSpace:
        state.hasContextualSpacing = !hasParameter || n != 0;
        setContextualSpacing();
        break;
    case Words::ParagraphBackground:
        state.shading.background = colorOf(n);
        setParagraphBackground();
        break;
    case Words::ParagraphPatternColor:
        state.shading.foreground = colorOf(n);
        setParagraphBackground();
        break;
    case Words::ParagraphShading:
        state.shading.setCoverage(n);
        setParagraphBackground();
        break;
    case Words::TabLeaderDots:
    case Words::TabLeaderMiddleDots:
    case Words::TabLeaderHyphens:
    case Words::TabLeaderLine:
    case Words::TabLeaderThickLine:
    case Words::TabLeaderEquals: m_paragraph.setNextTabLeader(tabLeader(word)); break;
    case Words::DefaultTabDistance: m_tabDistance = n; break;
    default: return translateSectionWord(word, n);
    }
    return true;
}

/*! Words for sections; false for all others. */
bool ORVRtfInterchangeReader::translateSectionWord(Words::Word word, int n)
{
    switch (word) {
    case Words::SectionEnd: endSection(); break;
    case Words::ColumnBreak: endColumn(); break;
    case Words::SectionColumns: m_sectionColumns = n; break;
    case Words::SectionInline:
    case Words::SectionColumn: m_sectionsBreakPages = false; break;
    case Words::SectionReset:
        m_sectionColumns = 1;
        m_sectionsBreakPages = true;
        break;
    case Words::SectionPage:
    case Words::SectionEvenPage:
    case Words::SectionOddPage: m_sectionsBreakPages = true; break;
    default: return false;
    }
    return true;
}

void ORVRtfInterchangeReader::setParagraphBackground()
{
    const QColor color = m_own.paragraphState.shading.color();
    if (color.isValid())
        m_paragraph.setProperty(QTextFormat::BackgroundBrush, QBrush(color));
    else
        m_paragraph.clearProperty(QTextFormat::BackgroundBrush);
}

/*! Styles are numbered from 0, which a missing property stands for as well. */
void ORVRtfInterchangeReader::setContextualSpacing()
{
    const ORVRtfParagraphState& state = m_own.paragraphState;
    if (state.hasContextualSpacing)
        m_paragraph.setProperty(ORVRtfProperty::ContextualSpacing, state.style + 1);
    else
        m_paragraph.clearProperty(ORVRtfProperty::ContextualSpacing);
}

/*!
    The next section may begin on a new page: words behind this one state it. Texts that stand apart have no
    sections.
*/
void ORVRtfInterchangeReader::endSection()
{
    const bool isMainText = m_stories.empty() && hasParagraphs();
    bool hasText = m_builder.hasTables();
    if (isMainText) {
        m_isFirstSection = false;
        m_inserter.complete();
        hasText = hasText || !m_document->isEmpty();
    }
    endAtBreak(&ORVRtfInterchangeReader::endShownParagraph);
    if (isMainText && hasText)
        m_isSectionPending = true;
}

/*! The only column of a page is followed by the next page. */
void ORVRtfInterchangeReader::endColumn()
{
    endAtBreak(m_sectionColumns > 1 ? &ORVRtfInterchangeReader::endShownParagraph
                                    : &ORVRtfInterchangeReader::endShownPage);
}

/*! What is drawn next stands first in its section. */
void ORVRtfInterchangeReader::breakPageForSection()
{
    if (!m_isSectionPending || !m_stories.empty())
        return;
    m_isSectionPending = false;
    if (!m_sectionsBreakPages)
        return;
    if (m_builder.hasTables())
        m_builder.breakPageBefore();
    else
        m_inserter.breakPageBefore();
}

/*!
    Qt guesses the direction of paragraphs from their text. Word processors do not: those from right to left
    say so.
*/
void ORVRtfInterchangeReader::stateDirections()
{
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        if (block.textDirection() != Qt::RightToLeft)
            continue;
        QTextBlockFormat format = block.blockFormat();
        if (format.hasProperty(QTextFormat::LayoutDirection))
            continue;
        format.setLayoutDirection(Qt::LeftToRight);
        QTextCursor(block).setBlockFormat(format);
    }
}
