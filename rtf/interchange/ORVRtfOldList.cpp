#include "ORVRtfOldList_p.h"

#include "ORVRtfLimits_p.h"
#include "ORVRtfNumbering_p.h"
#include "ORVRtfParagraph_p.h"
#include "ORVRtfProperties.h"
#include "ORVRtfSymbolFonts_p.h"
#include "ORVTextNumber.h"

namespace {

const QLatin1String numberPlaceholder("%0");

/*! Where the letters and digits at the end of \a text begin. */
int lastWord(const QString& text)
{
    int begin = int(text.size());
    while (begin > 0 && text.at(begin - 1).isLetterOrNumber())
        --begin;
    return begin;
}

int letterValue(const QString& text)
{
    const int letters = 26;
    const QChar letter = text.at(0).toLower();
    const bool isRepeated = text.toLower() == QString(int(text.size()), letter);
    const bool isLetter = letter >= QLatin1Char('a') && letter <= QLatin1Char('z');
    return isRepeated && isLetter ? (int(text.size()) - 1) * letters + letter.unicode() - 'a' + 1 : 0;
}

/*! 0 where \a text is no number of \a kind. */
int value(const QString& text, unsigned kind)
{
    if (text.isEmpty() || text.size() > ORVRtfLimits::levelText)
        return 0;
    switch (kind) {
    case ORVTextListLevel::LowerLetter:
    case ORVTextListLevel::UpperLetter: return letterValue(text);
    case ORVTextListLevel::LowerRoman:
    case ORVTextListLevel::UpperRoman: return ORVTextNumber::romanValue(text);
    default: return qBound(0, text.toInt(), ORVRtfLimits::listStart);
    }
}

/*! The number in \a label, which has \a after behind it; 0 where there is none. */
int numberIn(QString label, const QString& after, unsigned kind)
{
    const QString end = after.trimmed();
    if (!end.isEmpty() && label.endsWith(end))
        label.chop(int(end.size()));
    return value(label.mid(lastWord(label)), kind);
}

} // namespace

ORVRtfOldNumber::ORVRtfOldNumber() : symbolFont(ORVRtfSymbolFonts::none) { }

void ORVRtfOldList::addLabel(const QString& text)
{
    m_label = (m_label + text).trimmed().left(ORVRtfLimits::levelText);
}

/*! The level that \a number describes. */
ORVTextListLevel ORVRtfOldList::statedLevel() const
{
    ORVTextListLevel level;
    level.setIndent(number.indent);
    level.setStart(number.start);
    if (number.place == ORVRtfOldNumber::Bullet) {
        const QString text = number.textBefore + number.textAfter;
        level.setKind(ORVTextListLevel::Bullet);
        level.setText(text.isEmpty() ? m_label : ORVRtfSymbolFonts::text(number.symbolFont, text));
        return level;
    }
    level.setKind(number.kind);
    QString text = number.textBefore;
    for (int above = number.hasPrevious ? number.level : 0; above > 0; --above)
        text += QString::fromLatin1("%%1.").arg(above);
    level.setText((text + numberPlaceholder + number.textAfter).left(ORVRtfLimits::levelText));
    return level;
}

void ORVRtfOldList::applyNumber(ORVRtfParagraph& paragraph, ORVRtfNumbering& numbering)
{
    m_isContinued = number.place == ORVRtfOldNumber::Continued;
    if (numbering.listNumber(paragraph.intProperty(ORVRtfProperty::ListOverride)) != 0) {
        m_label.clear();
    } else if (number.listOverride != 0) {
        paragraph.setProperty(ORVRtfProperty::ListOverride, number.listOverride);
        paragraph.setProperty(ORVRtfProperty::ListLevel, number.level);
    } else if (m_isContinued) {
        paragraph.clearProperty(ORVRtfProperty::ListOverride);
    } else if (number.place != ORVRtfOldNumber::None) {
        const ORVTextListLevel level = statedLevel();
        setItem(paragraph, numbering, number.level, level, numberIn(m_label, number.textAfter, level.kind()));
    }
    if (paragraph.intProperty(ORVRtfProperty::ListOverride) != 0)
        m_label.clear();
}

/*! Labels other than numbers stand as they are: letters can be roman numbers. */
void ORVRtfOldList::applyLabel(ORVRtfParagraph& paragraph, ORVRtfNumbering& numbering)
{
    const QString label = m_label;
    m_label.clear();
    if (m_isContinued || paragraph.intProperty(ORVRtfProperty::ListOverride) != 0)
        return;
    int end = int(label.size());
    while (end > 0 && !label.at(end - 1).isLetterOrNumber())
        --end;
    const int begin = lastWord(label.left(end));
    const int labelNumber = value(label.mid(begin, end - begin), ORVTextListLevel::Decimal);
    ORVTextListLevel level;
    level.setText(labelNumber > 0 ? label.left(begin) + numberPlaceholder + label.mid(end) : label);
    if (labelNumber == 0)
        level.setKind(ORVTextListLevel::Bullet);
    setItem(paragraph, numbering, 0, level, labelNumber);
    m_isItemByLabel = true;
}

/*! Whether an item, of \a labelNumber if that is known, belongs to the list of the last one. */
bool ORVRtfOldList::goesOn(int level, const ORVTextListLevel& item, int labelNumber) const
{
    if (m_list == 0)
        return false;
    if (level >= m_levels.size() || m_levels.at(level).text().isEmpty())
        return true;
    const ORVTextListLevel& known = m_levels.at(level);
    if (known.kind() != item.kind() || known.text() != item.text())
        return false;
    const int next = level < m_numbers.size() ? m_numbers.at(level) + 1 : known.start();
    return labelNumber == 0 || labelNumber == next;
}

/*! A list that replaces an open one because of \a level takes over the levels above it and their counts. */
void ORVRtfOldList::beginList(ORVRtfNumbering& numbering, int level)
{
    const int kept = m_list == 0 ? 0 : qMin(level, int(qMin(m_levels.size(), m_numbers.size())));
    m_levels.resize(kept);
    m_numbers.resize(kept);
    m_list = numbering.addList();
    for (int above = 0; above < kept; ++above) {
        m_levels[above].setStart(m_numbers.at(above));
        numbering.setLevel(m_list, above, m_levels.at(above));
    }
}

void ORVRtfOldList::setItem(ORVRtfParagraph& paragraph, ORVRtfNumbering& numbering, int level,
                            ORVTextListLevel item, int labelNumber)
{
    int list = 0;
    if (item.kind() == ORVTextListLevel::Bullet) {
        list = numbering.bulletList(item);
    } else {
        if (!goesOn(level, item, labelNumber))
            beginList(numbering, level);
        list = m_list;
        if (m_levels.size() <= level)
            m_levels.resize(level + 1);
        if (m_levels.at(level).text().isEmpty()) {
            if (labelNumber > 0)
                item.setStart(labelNumber);
            m_levels[level] = item;
            numbering.setLevel(list, level, item);
        }
    }
    paragraph.setProperty(ORVRtfProperty::ListOverride, list);
    paragraph.setProperty(ORVRtfProperty::ListLevel, level);
}

void ORVRtfOldList::endParagraph(ORVRtfParagraph& paragraph)
{
    const int level = paragraph.intProperty(ORVRtfProperty::ListLevel);
    if (m_list != 0 && paragraph.intProperty(ORVRtfProperty::ListOverride) == m_list
        && level < m_levels.size()) {
        while (m_numbers.size() <= level)
            m_numbers.append(m_levels.at(int(m_numbers.size())).start() - 1);
        m_numbers.resize(level + 1);
        ++m_numbers[level];
    } else if (!m_isContinued) {
        m_list = 0;
    }
    if (m_isItemByLabel) {
        paragraph.clearProperty(ORVRtfProperty::ListOverride);
        paragraph.clearProperty(ORVRtfProperty::ListLevel);
        m_isItemByLabel = false;
    }
    m_label.clear();
}
