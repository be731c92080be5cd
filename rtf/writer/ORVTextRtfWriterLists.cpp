#include "ORVTextRtfWriter_p.h"

#include "ORVRounding_p.h"
#include "ORVRtfUnits_p.h"
#include "ORVRtfWordValues_p.h"
#include "ORVTextListFormat.h"

#include <QtGui/QTextList>

using namespace ORVRtfUnits;

namespace {

// More levels of a list are not written.
const int mostLevels = 8;
const int spaceAfterNumber = 360;

int levelNumberFormat(unsigned kind)
{
    for (const ORVRtfWordValues::NumberFormat& row : ORVRtfWordValues::numberFormats) {
        if (unsigned(row.kind) == kind)
            return row.levelNfc;
    }
    for (const ORVRtfWordValues::NumberFormat& row : ORVRtfWordValues::eastAsianNumberFormats) {
        if (unsigned(row.kind) == kind)
            return row.levelNfc;
    }
    return 0;
}

/*!
    Converts the template of level \a levelIndex to RTF: a character that is the length, then the text with
    each number of a level replaced by the character that has the level as its code. \a positions gets the
    positions of these characters.
*/
QString levelText(const QString& levelTemplate, int levelIndex, QString& positions)
{
    QString text;
    int i = 0;
    while (i < levelTemplate.size()) {
        int end = i + 1;
        while (levelTemplate.at(i) == QLatin1Char('%') && end < levelTemplate.size()
               && levelTemplate.at(end).isDigit())
            ++end;
        if (end > i + 1) {
            const int above = levelTemplate.mid(i + 1, end - i - 1).toInt();
            text += QChar(ushort(qMax(0, levelIndex - above)));
            positions += QChar(ushort(text.size()));
        } else {
            text += levelTemplate.at(i);
        }
        i = end;
    }
    text.prepend(QChar(ushort(text.size())));
    return text;
}

} // namespace

void ORVTextRtfWriterPrivate::collectList(QTextList* list, const QTextBlock& item)
{
    if (m_lists.contains(list))
        return;
    const QTextCharFormat format = item.charFormat();
    collectFormat(format);
    if (ORVTextListFormat::shownLevel(list->format()) < 0)
        m_lists.append(list, format);
    else
        m_lists.append(list, format, ORVRtfOutputLists::Joined(m_text.document(), m_text.label(item).list));
}

/*! Writes the list table, and the override table that paragraphs refer to. */
void ORVTextRtfWriterPrivate::writeListTemplates()
{
    const QList<ORVRtfOutputLists::List>& lists = m_lists.lists();
    if (lists.isEmpty())
        return;
    m_output.openIgnorableGroup(ListTable);
    for (int i = 0; i < lists.size(); ++i)
        writeListTemplate(lists.at(i).list, lists.at(i).markerFormat, i + 1);
    m_output.closeGroup();
    m_output.writeStructure('\n');

    m_output.openIgnorableGroup(ListOverrideTable);
    for (int number = 1; number <= lists.size(); ++number) {
        m_output.openGroup();
        m_output.write(ListOverrideItem);
        m_output.write(ListId, number);
        m_output.write(ListOverrideItemCount, 0);
        m_output.write(ListOverrideIndex, number);
        m_output.closeGroup();
    }
    m_output.closeGroup();
    m_output.writeStructure('\n');
}

void ORVTextRtfWriterPrivate::writeListTemplate(QTextList* list, const QTextCharFormat& format, int number)
{
    m_output.writeStructure('\n');
    m_output.openGroup();
    m_output.write(List);
    m_output.write(ListTemplateId, number);
    m_output.write(HybridList);
    QList<ORVTextListLevel> levels = ORVTextListFormat::levels(list->format());
    if (levels.isEmpty())
        levels.append(ORVTextListLevel());
    for (int i = 0; i < qMin(int(levels.size()), mostLevels); ++i)
        writeListLevel(levels.at(i), i, format);
    m_output.openGroup();
    m_output.write(ListName);
    m_output.endKeyword();
    m_output.writeStructure(';');
    m_output.closeGroup();
    m_output.write(ListId, number);
    m_output.closeGroup();
}

void ORVTextRtfWriterPrivate::writeListLevel(const ORVTextListLevel& level, int index,
                                             const QTextCharFormat& format)
{
    const int numberFormat = levelNumberFormat(level.kind());
    m_output.writeStructure('\n');
    m_output.openGroup();
    m_output.write(ListLevel);
    m_output.write(ListLevelFormat, numberFormat);
    m_output.write(ListLevelFormatNew, numberFormat);
    m_output.write(ListLevelJustification, level.justification());
    m_output.write(ListLevelJustificationNew, level.justification());
    m_output.write(ListLevelTextFollow, level.follow());
    m_output.write(ListLevelFirstItem, level.start());
    m_output.write(ListLevelTextFollowSpace, spaceAfterNumber);
    m_output.write(ListLevelIndent, 0);

    QString positions;
    const QString text = levelText(level.text(), index, positions);
    writeLevelGroup(ListLevelText, text);
    writeLevelGroup(ListLevelNumberOffsets, positions);
    m_output.writeWords(charFormatWords(format));

    const int indent = ORVRounding::truncated(level.indent() * twipsPerPoint);
    m_output.write(TextIndent,
                   ORVRounding::truncated((level.firstLinePosition() - level.indent()) * twipsPerPoint));
    m_output.write(LeftIndent, indent);
    m_output.write(LeftIndentI18n, indent);
    m_output.closeGroup();
}

/*! `{\word text;}`. The placeholders in the text are control characters, so it is written verbatim. */
void ORVTextRtfWriterPrivate::writeLevelGroup(KeyWord keyWord, const QString& text)
{
    m_output.openGroup();
    m_output.write(keyWord);
    m_output.writePrintableCharacters(ORVRtfOutput::escaped(text + QLatin1Char(';')), 0, true, true,
                                      QString());
    m_output.closeGroup();
}
