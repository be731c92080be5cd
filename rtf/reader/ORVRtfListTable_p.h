#ifndef ORVRTFLISTTABLE_P_H
#define ORVRTFLISTTABLE_P_H

#include "ORVTextListLevel.h"

#include <QtCore/QHash>
#include <QtCore/QList>

class QTextListFormat;

/*! One list of the list table. */
struct ORVRtfList {
    int listId = -1;
    int templateId = -1;
    bool isSimple = true;
    QList<ORVTextListLevel> levels;
};

/*! One entry of the list override table: the number by which paragraphs cite a list. */
struct QRtfListOverride {
    int listId = 0;
    int number = 0;
};

/*!
    The list table and the list override table while they are read. Words that need a list, a level or an
    override that does not exist do nothing.
*/
class ORVRtfListTable {
public:
    void beginList();
    void setListId(int id);
    void setTemplateId(int id);
    void setHybrid();

    void beginLevel();
    /*! The level that words describe; null while they describe one beyond the limit. */
    ORVTextListLevel* lastLevel();
    /*! Sets the numbering of the level by its `\levelnfc` number; unknown numbers change nothing. */
    void setLevelFormat(int levelNfc);
    /*! Sets the level's left indent, in points; the first line keeps its offset from it. */
    void setLevelIndent(double indent);
    /*! Sets the offset of the level's first line from its indent, in points. */
    void setLevelFirstLineOffset(double offset);
    /*! Adds to the level text as RTF has it: a length, then the text with level numbers as placeholders. */
    void appendLevelText(const QString& text);
    /*! Turns the collected level text into the level's template. */
    void finishLevelText();

    void beginOverride();
    void setOverrideListId(int id);
    void setOverrideNumber(int number);

    /*! The format of the list that override \a number cites, a default one when there is none. */
    QTextListFormat findListFormat(int number) const;

private:
    ORVRtfList* lastList();
    void buildIndex() const;

    QList<ORVRtfList> m_lists;
    QList<QRtfListOverride> m_overrides;
    // Set while the words of a level beyond the limit are read.
    bool m_levelIgnored = false;

    // First list of each id, first override of each number; made when first asked for.
    mutable QHash<int, int> m_listOfId;
    mutable QHash<int, int> m_overrideOfNumber;
    mutable bool m_indexed = false;
};

#endif
