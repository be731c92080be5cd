#include "ORVRtfListTable_p.h"

#include "ORVRtfLimits_p.h"
#include "ORVRtfWordValues_p.h"
#include "ORVTextListFormat.h"

#include <QtGui/QTextListFormat>

namespace {

// Codes 0 to 9 in a level text stand for the numbers of the levels 0 to 9.
const int placeholders = 10;

} // namespace

ORVRtfList* ORVRtfListTable::lastList()
{
    m_indexed = false;
    return m_lists.isEmpty() ? nullptr : &m_lists.last();
}

ORVTextListLevel* ORVRtfListTable::lastLevel()
{
    ORVRtfList* list = lastList();
    return list && !m_levelIgnored && !list->levels.isEmpty() ? &list->levels.last() : nullptr;
}

void ORVRtfListTable::beginList()
{
    m_lists.append(ORVRtfList());
    m_levelIgnored = false;
}

void ORVRtfListTable::setListId(int id)
{
    if (ORVRtfList* list = lastList())
        list->listId = id;
}

void ORVRtfListTable::setTemplateId(int id)
{
    if (ORVRtfList* list = lastList())
        list->templateId = id;
}

void ORVRtfListTable::setHybrid()
{
    if (ORVRtfList* list = lastList())
        list->isSimple = false;
}

void ORVRtfListTable::beginLevel()
{
    ORVRtfList* list = lastList();
    if (!list)
        return;
    m_levelIgnored = list->levels.size() >= ORVRtfLimits::listLevels;
    if (!m_levelIgnored)
        list->levels.append(ORVTextListLevel());
}

void ORVRtfListTable::setLevelFormat(int levelNfc)
{
    ORVTextListLevel* level = lastLevel();
    if (!level)
        return;
    for (const ORVRtfWordValues::NumberFormat& row : ORVRtfWordValues::numberFormats) {
        if (row.levelNfc == levelNfc)
            level->setKind(row.kind);
    }
}

void ORVRtfListTable::setLevelIndent(double indent)
{
    if (ORVTextListLevel* level = lastLevel()) {
        level->setFirstLinePosition(level->firstLinePosition() + indent - level->indent());
        level->setIndent(indent);
    }
}

void ORVRtfListTable::setLevelFirstLineOffset(double offset)
{
    if (ORVTextListLevel* level = lastLevel())
        level->setFirstLinePosition(level->indent() + offset);
}

void ORVRtfListTable::appendLevelText(const QString& text)
{
    ORVTextListLevel* level = lastLevel();
    const int room = level ? ORVRtfLimits::levelText - int(level->text().size()) : 0;
    if (room > 0 && !text.isEmpty())
        level->setText(level->text() + text.left(room));
}

void ORVRtfListTable::finishLevelText()
{
    ORVTextListLevel* level = lastLevel();
    if (!level || level->text().isEmpty())
        return;
    // The first character counts those that follow; the rest is a semicolon that belongs to no level.
    const QString text = level->text();
    const int levelIndex = int(lastList()->levels.size()) - 1;

    QString levelTemplate;
    for (const QChar& c : text.mid(1, text.at(0).unicode())) {
        if (c.unicode() < placeholders)
            levelTemplate += QLatin1Char('%') + QString::number(levelIndex - c.unicode());
        else
            levelTemplate += c;
    }
    level->setText(levelTemplate);
}

void ORVRtfListTable::beginOverride()
{
    m_indexed = false;
    m_overrides.append(QRtfListOverride());
}

void ORVRtfListTable::setOverrideListId(int id)
{
    m_indexed = false;
    if (!m_overrides.isEmpty())
        m_overrides.last().listId = id;
}

void ORVRtfListTable::setOverrideNumber(int number)
{
    m_indexed = false;
    if (!m_overrides.isEmpty())
        m_overrides.last().number = number;
}

void ORVRtfListTable::buildIndex() const
{
    // Backwards, so that the first of several with the same number remains.
    m_listOfId.clear();
    for (int i = int(m_lists.size()) - 1; i >= 0; --i)
        m_listOfId.insert(m_lists.at(i).listId, i);
    m_overrideOfNumber.clear();
    for (int i = int(m_overrides.size()) - 1; i >= 0; --i)
        m_overrideOfNumber.insert(m_overrides.at(i).number, i);
    m_indexed = true;
}

QTextListFormat ORVRtfListTable::findListFormat(int number) const
{
    if (!m_indexed)
        buildIndex();
    QTextListFormat format;
    const int overrideIndex = m_overrideOfNumber.value(number, -1);
    if (overrideIndex < 0)
        return format;
    const int listIndex = m_listOfId.value(m_overrides.at(overrideIndex).listId, -1);
    if (listIndex >= 0)
        ORVTextListFormat::setLevels(format, m_lists.at(listIndex).levels);
    return format;
}
