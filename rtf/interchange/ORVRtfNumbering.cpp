#include "ORVRtfNumbering_p.h"

#include "ORVRtfLimits_p.h"
#include "ORVRtfSymbolFonts_p.h"
#include "ORVRtfWordValues_p.h"
#include "ORVTextListFormat.h"

namespace {

// The kind of a level without number.
const int noNumber = 255;

// Codes in a level text that are no characters; those of levels stand for their numbers.
const ushort firstCharacter = 0x20;

ORVTextListLevel::Kind kindOf(int levelNfc)
{
    if (levelNfc == noNumber)
        return ORVTextListLevel::Bullet;
    for (const ORVRtfWordValues::NumberFormat& row : ORVRtfWordValues::numberFormats) {
        if (row.levelNfc == levelNfc)
            return row.kind;
    }
    for (const ORVRtfWordValues::NumberFormat& row : ORVRtfWordValues::eastAsianNumberFormats) {
        if (row.levelNfc == levelNfc)
            return row.kind;
    }
    return ORVTextListLevel::Decimal;
}

/*! What stands in a level text behind its length. A text without one ends with the semicolon of the group. */
QString withoutLength(const QString& text)
{
    const ushort length = text.at(0).unicode();
    if (length < firstCharacter || text.size() > firstCharacter)
        return text.mid(1, length);
    return text.endsWith(QLatin1Char(';')) ? text.left(text.size() - 1) : text;
}

/*! The first of several with the same \a key remains. */
void insertFirst(QHash<int, int>& index, int key, int value)
{
    if (!index.contains(key))
        index.insert(key, value);
}

} // namespace

/*! A level without number has no marker either. */
void ORVRtfNumberedList::setLevel(int index, const ORVRtfNumberingLevel& level)
{
    while (levels.size() <= index)
        levels.append(ORVTextListLevel());
    levels[index] = level.level;
    if (!level.isNumbered)
        levels[index].setText(QString());
    isNumbered.resize(int(levels.size()));
    isNumbered[index] = level.isNumbered;
}

bool ORVRtfNumbering::Override::changesList() const
{
    for (const LevelOverride& level : levels) {
        if (level.hasStart || level.hasLevel)
            return true;
    }
    return false;
}

void ORVRtfNumbering::beginList()
{
    m_isInOverride = false;
    m_isListIgnored = m_lists.size() >= ORVRtfLimits::lists;
    if (!m_isListIgnored)
        m_lists.append(List());
}

void ORVRtfNumbering::setListId(int id)
{
    if (!m_isListIgnored && m_lists.size() > m_indexedLists)
        m_lists.last().id = id;
}

void ORVRtfNumbering::beginLevel()
{
    if (LevelOverride* const level = currentOverrideLevel()) {
        level->hasLevel = true;
        level->level = ORVRtfNumberingLevel();
        return;
    }
    if (m_isInOverride || m_isListIgnored || m_lists.isEmpty())
        return;
    QList<ORVRtfNumberingLevel>& levels = m_lists.last().levels;
    m_isLevelIgnored = levels.size() >= ORVRtfLimits::listLevels;
    if (!m_isLevelIgnored)
        levels.append(ORVRtfNumberingLevel());
}

void ORVRtfNumbering::beginOverride()
{
    m_isInOverride = true;
    m_isLevelIgnored = false;
    m_isOverrideIgnored = m_overrides.size() >= ORVRtfLimits::lists;
    if (!m_isOverrideIgnored)
        m_overrides.append(Override());
}

void ORVRtfNumbering::setOverrideListId(int id)
{
    if (!m_isOverrideIgnored && m_overrides.size() > m_indexedOverrides)
        m_overrides.last().listId = id;
}

void ORVRtfNumbering::setOverrideNumber(int number)
{
    if (!m_isOverrideIgnored && m_overrides.size() > m_indexedOverrides)
        m_overrides.last().number = number;
}

void ORVRtfNumbering::beginOverrideLevel()
{
    if (!m_isInOverride || m_isOverrideIgnored)
        return;
    QList<LevelOverride>& levels = m_overrides.last().levels;
    m_isLevelIgnored = levels.size() >= ORVRtfLimits::listLevels;
    if (!m_isLevelIgnored)
        levels.append(LevelOverride());
}

void ORVRtfNumbering::setOverrideStart()
{
    if (LevelOverride* const level = currentOverrideLevel())
        level->hasStart = true;
}

ORVRtfNumbering::LevelOverride* ORVRtfNumbering::currentOverrideLevel()
{
    const bool isThere =
        m_isInOverride && !m_isOverrideIgnored && !m_isLevelIgnored && !m_overrides.last().levels.isEmpty();
    return isThere ? &m_overrides.last().levels.last() : nullptr;
}

ORVRtfNumberingLevel* ORVRtfNumbering::currentLevel()
{
    if (m_isInOverride) {
        LevelOverride* const level = currentOverrideLevel();
        return level ? &level->level : nullptr;
    }
    const bool isThere =
        !m_isListIgnored && !m_isLevelIgnored && !m_lists.isEmpty() && !m_lists.last().levels.isEmpty();
    return isThere ? &m_lists.last().levels.last() : nullptr;
}

/*! Only of a level that is there. */
int ORVRtfNumbering::currentLevelIndex() const
{
    return int(m_isInOverride ? m_overrides.last().levels.size() : m_lists.last().levels.size()) - 1;
}

void ORVRtfNumbering::setLevelFormat(int levelNfc)
{
    if (ORVRtfNumberingLevel* const level = currentLevel()) {
        level->level.setKind(kindOf(levelNfc));
        level->isNumbered = levelNfc != noNumber;
    }
}

void ORVRtfNumbering::setLevelStart(int start)
{
    if (ORVRtfNumberingLevel* const level = currentLevel())
        level->level.setStart(qBound(0, start, ORVRtfLimits::listStart));
}

void ORVRtfNumbering::setLevelFollow(int follow)
{
    ORVRtfNumberingLevel* const level = currentLevel();
    if (level && follow >= ORVTextListLevel::Tab && follow <= ORVTextListLevel::Nothing)
        level->level.setFollow(ORVTextListLevel::Follow(follow));
}

void ORVRtfNumbering::setLevelJustification(int justification)
{
    ORVRtfNumberingLevel* const level = currentLevel();
    if (level && justification >= ORVTextListLevel::Left && justification <= ORVTextListLevel::Right)
        level->level.setJustification(ORVTextListLevel::Justification(justification));
}

void ORVRtfNumbering::setLevelIndent(double indent)
{
    if (ORVRtfNumberingLevel* const current = currentLevel()) {
        ORVTextListLevel& level = current->level;
        level.setFirstLinePosition(level.firstLinePosition() + indent - level.indent());
        level.setIndent(indent);
    }
}

void ORVRtfNumbering::setLevelFirstLineOffset(double offset)
{
    if (ORVRtfNumberingLevel* const level = currentLevel())
        level->level.setFirstLinePosition(level->level.indent() + offset);
}

void ORVRtfNumbering::appendLevelText(const QString& text)
{
    ORVRtfNumberingLevel* const level = currentLevel();
    const int room = level ? ORVRtfLimits::levelText - int(level->level.text().size()) : 0;
    if (room > 0)
        level->level.setText(level->level.text() + text.left(room));
}

void ORVRtfNumbering::finishLevelText()
{
    ORVRtfNumberingLevel* const level = currentLevel();
    if (!level || level->level.text().isEmpty())
        return;
    const int index = currentLevelIndex();
    QString result;
    const QString text = withoutLength(level->level.text());
    for (const QChar& c : text) {
        if (c.unicode() >= firstCharacter)
            result += c;
        else if (c.unicode() <= index)
            result += QLatin1Char('%') + QString::number(index - c.unicode());
    }
    level->level.setText(result);
}

void ORVRtfNumbering::setLevelFont(int symbolFont)
{
    ORVRtfNumberingLevel* const level = currentLevel();
    if (level && level->level.kind() == ORVTextListLevel::Bullet)
        level->level.setText(ORVRtfSymbolFonts::text(symbolFont, level->level.text()));
}

/*! Adds what has been read since the last time, in time proportional to it. */
void ORVRtfNumbering::extendIndex()
{
    for (; m_indexedLists < m_lists.size(); ++m_indexedLists)
        insertFirst(m_listOfId, m_lists.at(m_indexedLists).id, m_indexedLists);
    for (; m_indexedOverrides < m_overrides.size(); ++m_indexedOverrides) {
        const Override& override = m_overrides.at(m_indexedOverrides);
        insertFirst(m_overrideOfNumber, override.number, m_indexedOverrides);
        if (override.number != 0 && !override.changesList())
            insertFirst(m_numberOfListId, override.listId, override.number);
    }
}

int ORVRtfNumbering::listNumber(int number)
{
    extendIndex();
    const int index = m_overrideOfNumber.value(number, -1);
    if (number == 0 || index < 0)
        return 0;
    const Override& override = m_overrides.at(index);
    const int list = m_listOfId.value(override.listId, -1);
    if (list < 0 || (m_lists.at(list).levels.isEmpty() && !override.changesList()))
        return 0;
    return override.changesList() ? number : m_numberOfListId.value(override.listId);
}

ORVRtfNumberedList ORVRtfNumbering::resolved(const Override& override) const
{
    QList<ORVRtfNumberingLevel> levels = m_lists.at(m_listOfId.value(override.listId)).levels;
    for (int i = 0; i < override.levels.size(); ++i) {
        const LevelOverride& own = override.levels.at(i);
        if (i == levels.size())
            levels.append(ORVRtfNumberingLevel());
        if (own.hasLevel)
            levels[i] = own.level;
        else if (own.hasStart)
            levels[i].level.setStart(own.level.level.start());
    }
    ORVRtfNumberedList result;
    for (int i = 0; i < levels.size(); ++i)
        result.setLevel(i, levels.at(i));
    ORVTextListFormat::setLevels(result.format, result.levels);
    result.haveItemsIndents = true;
    return result;
}

const ORVRtfNumberedList* ORVRtfNumbering::find(int number)
{
    QHash<int, ORVRtfNumberedList>::iterator found = m_found.find(number);
    if (found == m_found.end()) {
        if (listNumber(number) == 0)
            return nullptr;
        found = m_found.insert(number, resolved(m_overrides.at(m_overrideOfNumber.value(number))));
    }
    return &*found;
}

int ORVRtfNumbering::addList()
{
    extendIndex();
    if (m_addedLists >= ORVRtfLimits::lists)
        return 0;
    ++m_addedLists;
    do {
        ++m_lastAddedNumber;
    } while (m_overrideOfNumber.contains(m_lastAddedNumber));
    m_found.insert(m_lastAddedNumber, ORVRtfNumberedList());
    return m_lastAddedNumber;
}

void ORVRtfNumbering::setLevel(int number, int index, const ORVTextListLevel& level)
{
    const QHash<int, ORVRtfNumberedList>::iterator found = m_found.find(number);
    if (found == m_found.end())
        return;
    ORVRtfNumberingLevel own;
    own.level = level;
    found->setLevel(index, own);
    ORVTextListFormat::setLevels(found->format, found->levels);
}

int ORVRtfNumbering::bulletList(const ORVTextListLevel& bullet)
{
    const QString key =
        QString::fromLatin1("%1 %2 ").arg(bullet.indent()).arg(bullet.firstLinePosition()) + bullet.text();
    int& number = m_bulletLists[key];
    if (number == 0) {
        number = addList();
        setLevel(number, 0, bullet);
    }
    return number;
}
