#include "ORVRtfListAssembly_p.h"

#include "ORVRtfLimits_p.h"
#include "ORVRtfNumbering_p.h"
#include "ORVRtfProperties.h"
#include "ORVTextListFormat.h"

#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextList>

namespace {

// The characters of documents in front of a cell, and behind a table.
const ushort beginningOfFrame = 0xfdd0;
const ushort endOfFrame = 0xfdd1;

bool statesIndents(const QTextBlockFormat& format)
{
    return format.hasProperty(ORVRtfProperty::LeftIndent) || format.hasProperty(QTextFormat::TextIndent);
}

void setIndents(QTextBlockFormat& format, const ORVTextListLevel& level)
{
    if (statesIndents(format) || (level.indent() == 0 && level.firstLinePosition() == 0))
        return;
    format.setProperty(ORVRtfProperty::LeftIndent, level.indent());
    format.setProperty(QTextFormat::TextIndent, level.firstLinePosition());
}

/*!
    Whether \a block is the first of a cell, or the first behind a table. A run ends there: what Qt writes of a
    list that goes beyond is damaged. Frames are not known yet while the document is being edited.
*/
bool beginsPlace(const QTextBlock& block)
{
    const QChar previous = block.document()->characterAt(block.position() - 1);
    return previous == QChar(beginningOfFrame) || previous == QChar(endOfFrame);
}

} // namespace

void ORVRtfListAssembly::run(const QTextDocument& document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        assemble(block);
}

void ORVRtfListAssembly::assemble(const QTextBlock& block)
{
    QTextBlockFormat format = block.blockFormat();
    const bool hasLevel = format.hasProperty(ORVRtfProperty::ListLevel);
    if (!format.hasProperty(ORVRtfProperty::ListOverride) && !hasLevel) {
        endRun();
        return;
    }
    if (beginsPlace(block))
        endRun();
    const int number = format.intProperty(ORVRtfProperty::ListOverride);
    const ORVRtfNumberedList* const list = m_numbering.find(number);
    const int level =
        list ? qBound(0, format.intProperty(ORVRtfProperty::ListLevel), int(list->levels.size()) - 1) : 0;
    if (list && list->isNumbered.at(level)) {
        addItem(block, format, number, level, *list);
        return;
    }
    endRun();
    format.clearProperty(ORVRtfProperty::ListOverride);
    format.clearProperty(ORVRtfProperty::ListLevel);
    if (list)
        setIndents(format, list->levels.at(level));
    QTextCursor(block).setBlockFormat(format);
}

void ORVRtfListAssembly::addItem(const QTextBlock& block, QTextBlockFormat format, int number, int level,
                                 const ORVRtfNumberedList& list)
{
    if (number != m_number)
        endRun();
    m_number = number;
    ORVTextListCounter& counter = m_counters[number];
    const int itemNumber = counter.count(list.levels, level);

    m_open.resize(level + 1);
    QTextCursor cursor(block);
    QTextList*& textList = m_open[level];
    // Qt looks at all items of a QTextList for each that is added.
    if (!textList || textList->count() >= ORVRtfLimits::textListItems) {
        QTextListFormat listFormat = list.format;
        ORVTextListFormat::setShownLevel(listFormat, level, counter.itemTemplate(list.levels, level),
                                         itemNumber);
        textList = cursor.createList(listFormat);
    }
    format.setProperty(ORVRtfProperty::ListLevel, level);
    if (list.haveItemsIndents && !statesIndents(format))
        format.setProperty(ORVRtfProperty::LeftIndent, 0.0);
    setIndents(format, list.levels.at(level));
    format.setObjectIndex(textList->objectIndex());
    cursor.setBlockFormat(format);
}

void ORVRtfListAssembly::endRun()
{
    m_number = 0;
    m_open.clear();
}
