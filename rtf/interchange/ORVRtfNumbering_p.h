#ifndef ORVRTFNUMBERING_P_H
#define ORVRTFNUMBERING_P_H

#include "ORVTextListLevel.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QTextListFormat>

/*! One level of a list, as the file has it. */
struct ORVRtfNumberingLevel {
    ORVTextListLevel level;
    /*! Paragraphs of a level without number are no list items, and have its indents only. */
    bool isNumbered = true;
};

/*! A list as paragraphs cite it. */
struct ORVRtfNumberedList {
    QList<ORVTextListLevel> levels;
    /*! Of each level: whether its paragraphs are list items. */
    QVector<bool> isNumbered;
    /*! What all QTextLists of the list have in common. */
    QTextListFormat format;
    /*! Its items state their indents; those of the levels are for programs that make new items. */
    bool haveItemsIndents = false;

    void setLevel(int index, const ORVRtfNumberingLevel& level);
};

/*!
    The lists of a file: those of its list table with what its overrides change, and those of the oldest kind,
    which paragraphs state themselves. Words that need a list, a level or an override that does not exist do
    nothing.
*/
class ORVRtfNumbering {
public:
    void beginList();
    void setListId(int id);
    /*! Begins a level of the list, or the one that an override has instead of that of its list. */
    void beginLevel();

    void beginOverride();
    void setOverrideListId(int id);
    void setOverrideNumber(int number);
    /*! Begins what the override has of its own for the next level. */
    void beginOverrideLevel();
    void setOverrideStart();

    // Words for the level begun last

    /*! The number of its kind in RTF. Kinds that are not known are decimal. */
    void setLevelFormat(int levelNfc);
    void setLevelStart(int start);
    void setLevelFollow(int follow);
    void setLevelJustification(int justification);
    /*! In points; the first line keeps its offset from it. */
    void setLevelIndent(double indent);
    /*! Of the first line from the indent, in points. */
    void setLevelFirstLineOffset(double offset);
    /*! The text as RTF has it: its length, then the text with level numbers as placeholders. */
    void appendLevelText(const QString& text);
    void finishLevelText();
    /*! The symbol font of a bullet, which stands behind the text. */
    void setLevelFont(int symbolFont);

    /*!
        The number that paragraphs have which cite override \a number: that of the first override of the list
        with the same count. 0 where there is no list.
    */
    int listNumber(int number);
    /*! The list of such a number; null where there is none. */
    const ORVRtfNumberedList* find(int number);

    /*! A new list without levels, for paragraphs that state their numbering; 0 when there are too many. */
    int addList();
    void setLevel(int number, int index, const ORVTextListLevel& level);
    /*! A list of \a bullet, the same for equal ones; 0 when there are too many. */
    int bulletList(const ORVTextListLevel& bullet);

private:
    struct List {
        int id = -1;
        QList<ORVRtfNumberingLevel> levels;
    };
    /*! What an override changes of a level. */
    struct LevelOverride {
        bool hasStart = false;
        bool hasLevel = false;
        ORVRtfNumberingLevel level;
    };
    struct Override {
        int listId = 0;
        int number = 0;
        QList<LevelOverride> levels;

        bool changesList() const;
    };

    ORVRtfNumberingLevel* currentLevel();
    int currentLevelIndex() const;
    LevelOverride* currentOverrideLevel();
    void extendIndex();
    ORVRtfNumberedList resolved(const Override& override) const;

    QList<List> m_lists;
    QList<Override> m_overrides;
    // What the words describe is beyond a limit.
    bool m_isListIgnored = false;
    bool m_isLevelIgnored = false;
    bool m_isOverrideIgnored = false;
    bool m_isInOverride = false;

    // First list of each id, and first override of each number and of each list that it does not change. What is
    // indexed, when something is asked for, keeps its numbers.
    int m_indexedLists = 0;
    int m_indexedOverrides = 0;
    QHash<int, int> m_listOfId;
    QHash<int, int> m_overrideOfNumber;
    QHash<int, int> m_numberOfListId;
    QHash<int, ORVRtfNumberedList> m_found;

    // Lists of the oldest kind
    int m_lastAddedNumber = 0;
    int m_addedLists = 0;
    QHash<QString, int> m_bulletLists;
};

#endif
