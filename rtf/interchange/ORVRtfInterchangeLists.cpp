#include "ORVRtfInterchangeReader_p.h"

#include "ORVRtfLimits_p.h"
#include "ORVRtfListAssembly_p.h"
#include "ORVRtfProperties.h"
#include "ORVRtfUnits_p.h"

using namespace ORVRtfUnits;

namespace Words = ORVRtfInterchangeWords;

namespace {

/*! The words that count where a paragraph states its number, or in the label of a list item. */
bool isWordOfOldNumbers(ORVTextRtfCommon::KeyWord keyWord)
{
    switch (keyWord) {
    case ORVTextRtfCommon::OptionalDestination:
    case ORVTextRtfCommon::Font:
    case ORVTextRtfCommon::ResetFormat:
    case ORVTextRtfCommon::ListOverrideIndex:
    case ORVTextRtfCommon::BlockListLevel:
    case ORVTextRtfCommon::UnicodeCharacterBytes:
    case ORVTextRtfCommon::UnicodeCharacterValue:
    case ORVTextRtfCommon::ExtendedCharacterValue:
    case ORVTextRtfCommon::EscapedSlash:
    case ORVTextRtfCommon::EscapedOpenBrace:
    case ORVTextRtfCommon::EscapedCloseBrace:
    case ORVTextRtfCommon::NonBreakableSpace:
    case ORVTextRtfCommon::TabCharacter:
    case ORVTextRtfCommon::EnDash:
    case ORVTextRtfCommon::EmDash:
    case ORVTextRtfCommon::Bullet: return true;
    default: return false;
    }
}

} // namespace

bool ORVRtfInterchangeReader::isInOldNumber() const
{
    return m_state.destination >= Destination(OldNumberGroup)
        && m_state.destination <= Destination(OldLabelGroup);
}

/*! Words of lists; false for all others. */
bool ORVRtfInterchangeReader::translateListWord(KeyWord keyWord, int n)
{
    if (isInOldNumber() && !isWordOfOldNumbers(keyWord))
        return true;
    switch (keyWord) {
    case List:
        if (isIn(ListTableGroup))
            m_numbering.beginList();
        break;
    case ListOverrideItem:
        if (isIn(ListOverrideTableGroup)) {
            openDestination(ListOverrideGroup);
            m_numbering.beginOverride();
        }
        break;
    case ListId:
        if (isIn(ListTableGroup))
            m_numbering.setListId(n);
        else if (isIn(ListOverrideGroup))
            m_numbering.setOverrideListId(n);
        break;
    case ListOverrideIndex: setItemList(n); break;
    case BlockListLevel: setItemLevel(n); break;
    case ListTemplateId:
    case HybridList: break;
    case ListBulletPlainText:
        if (isInBodyText())
            openDestination(Destination(OldLabelGroup));
        else
            ++m_skipDepth;
        break;
    case ResetParagraph: m_text.oldList.resetParagraph(); return false;
    default: return translateLevelWord(keyWord, n);
    }
    return true;
}

/*! Words of the levels of lists, which count in the tables of lists only; false for all others. */
bool ORVRtfInterchangeReader::translateLevelWord(KeyWord keyWord, int n)
{
    const bool isInTables = isInListTables();
    switch (keyWord) {
    case LeftIndent:
    case LeftIndentI18n:
    case TextIndent:
        if (!isInTables)
            return false;
        if (keyWord == TextIndent)
            m_numbering.setLevelFirstLineOffset(points(n));
        else
            m_numbering.setLevelIndent(points(n));
        return true;
    case ListFormatOverrideLevel:
    case ListLevelText:
        if (!isInTables)
            ++m_skipDepth;
        else if (keyWord == ListLevelText)
            openDestination(LevelTextGroup);
        else
            m_numbering.beginOverrideLevel();
        return true;
    case ListLevel:
        if (isInTables)
            m_numbering.beginLevel();
        return true;
    default: return translateLevelNumberWord(keyWord, n);
    }
}

/*! Words of the numbers of a level; false for all others. */
bool ORVRtfInterchangeReader::translateLevelNumberWord(KeyWord keyWord, int n)
{
    void (ORVRtfNumbering::*set)(int) = nullptr;
    switch (keyWord) {
    case ListLevelFormat:
    case ListLevelFormatNew: set = &ORVRtfNumbering::setLevelFormat; break;
    case ListLevelFirstItem: set = &ORVRtfNumbering::setLevelStart; break;
    case ListLevelTextFollow: set = &ORVRtfNumbering::setLevelFollow; break;
    case ListLevelJustification:
    case ListLevelJustificationNew: set = &ORVRtfNumbering::setLevelJustification; break;
    default: return false;
    }
    if (isInListTables())
        (m_numbering.*set)(n);
    return true;
}

/*! Words of lists that the storage form does not know; false for all others. */
bool ORVRtfInterchangeReader::translatePrivateListWord(Words::Word word, int n)
{
    if (isIn(Destination(OldNumberGroup)))
        return translateOldNumberWord(word, n);
    if (isInOldNumber())
        return true;
    switch (word) {
    case Words::ListOverrideStart:
        if (isIn(ListOverrideGroup))
            m_numbering.setOverrideStart();
        return true;
    case Words::OldNumber:
        if (isInBodyText()) {
            openDestination(Destination(OldNumberGroup));
            m_text.oldList.number = ORVRtfOldNumber();
        } else {
            ++m_skipDepth;
        }
        return true;
    default: return false;
    }
}

/*! Words of a paragraph's number. No other word counts there. */
bool ORVRtfInterchangeReader::translateOldNumberWord(Words::Word word, int n)
{
    ORVRtfOldNumber& number = m_text.oldList.number;
    switch (word) {
    case Words::OldNumberLevel:
        number.place = ORVRtfOldNumber::Item;
        number.level = qBound(1, n, ORVRtfLimits::listLevels) - 1;
        break;
    case Words::OldNumberBody: number.place = ORVRtfOldNumber::Item; break;
    case Words::OldNumberBullet: number.place = ORVRtfOldNumber::Bullet; break;
    case Words::OldNumberContinued: number.place = ORVRtfOldNumber::Continued; break;
    case Words::OldNumberDecimal: number.kind = ORVTextListLevel::Decimal; break;
    case Words::OldNumberUpperLetter: number.kind = ORVTextListLevel::UpperLetter; break;
    case Words::OldNumberLowerLetter: number.kind = ORVTextListLevel::LowerLetter; break;
    case Words::OldNumberUpperRoman: number.kind = ORVTextListLevel::UpperRoman; break;
    case Words::OldNumberLowerRoman: number.kind = ORVTextListLevel::LowerRoman; break;
    case Words::OldNumberStart: number.start = qBound(0, n, ORVRtfLimits::listStart); break;
    case Words::OldNumberIndent: number.indent = points(n); break;
    case Words::OldNumberPrevious: number.hasPrevious = true; break;
    case Words::OldNumberFont: number.symbolFont = m_symbolFonts.value(n, ORVRtfSymbolFonts::none); break;
    case Words::OldNumberTextBefore: openDestination(Destination(OldNumberTextBeforeGroup)); break;
    case Words::OldNumberTextAfter: openDestination(Destination(OldNumberTextAfterGroup)); break;
    default: break;
    }
    return true;
}

/*! Paragraphs cite lists that are there. Newer programs state the list inside the number of old ones, too. */
void ORVRtfInterchangeReader::setItemList(int number)
{
    // A look-up while overrides are being read would index them anew for each.
    if (isIn(ListOverrideGroup)) {
        m_numbering.setOverrideNumber(number);
        return;
    }
    const bool isInNumber = isIn(Destination(OldNumberGroup));
    if (!isInNumber && !isInBodyText())
        return;
    const int list = m_numbering.listNumber(number);
    if (isInNumber) {
        m_text.oldList.number.listOverride = list;
    } else if (list != 0) {
        m_paragraph.setProperty(ORVRtfProperty::ListOverride, list);
    } else {
        m_paragraph.clearProperty(ORVRtfProperty::ListOverride);
        m_paragraph.clearProperty(ORVRtfProperty::ListLevel);
    }
}

void ORVRtfInterchangeReader::setItemLevel(int level)
{
    const int valid = qBound(0, level, ORVRtfLimits::listLevels - 1);
    if (isIn(Destination(OldNumberGroup)))
        m_text.oldList.number.level = valid;
    else if (isInBodyText())
        m_paragraph.setProperty(ORVRtfProperty::ListLevel, valid);
}

/*! Takes the text of a destination of lists; false when it is that of another one. */
bool ORVRtfInterchangeReader::drawListText()
{
    const auto append = [this](QString& text) {
        text += m_pendingText.left(ORVRtfLimits::levelText - int(text.size()));
    };
    switch (int(m_state.destination)) {
    case LevelTextGroup: m_numbering.appendLevelText(m_pendingText); break;
    case OldNumberTextBeforeGroup: append(m_text.oldList.number.textBefore); break;
    case OldNumberTextAfterGroup: append(m_text.oldList.number.textAfter); break;
    case OldLabelGroup:
        m_text.oldList.addLabel(ORVRtfSymbolFonts::text(m_own.symbolFont, m_pendingText));
        break;
    default: return false;
    }
    return true;
}

void ORVRtfInterchangeReader::endListDestination()
{
    if (isIn(LevelTextGroup))
        m_numbering.finishLevelText();
    else if (isIn(Destination(OldNumberGroup)) && !m_ownGroups.isEmpty())
        m_text.oldList.applyNumber(m_ownGroups.top().paragraph, m_numbering);
}

void ORVRtfInterchangeReader::assembleLists()
{
    ORVRtfListAssembly(m_numbering).run(*m_document);
}
