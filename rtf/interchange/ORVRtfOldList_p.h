#ifndef ORVRTFOLDLIST_P_H
#define ORVRTFOLDLIST_P_H

#include "ORVTextListLevel.h"

#include <QtCore/QString>
#include <QtCore/QVector>

class ORVRtfNumbering;
class ORVRtfParagraph;

/*! What a paragraph states about its number (`\pn`). */
struct ORVRtfOldNumber {
    enum Place { None, Item, Bullet, Continued };

    Place place = None;
    /*! 0-based. */
    int level = 0;
    ORVTextListLevel::Kind kind = ORVTextListLevel::Decimal;
    int start = 1;
    /*! In points. */
    double indent = 0;
    /*! The number has those of the levels above in front. */
    bool hasPrevious = false;
    QString textBefore;
    QString textAfter;
    /*! One of ORVRtfSymbolFonts. */
    int symbolFont;
    /*! The list of the list table that is stated as well, for newer programs; 0 for none. */
    int listOverride = 0;

    ORVRtfOldNumber();
};

/*!
    Lists of the oldest kind: nothing but what each paragraph states about its number, and the label that the
    writing program has worked out (`\pntext`). Neighbouring items are one list, whose first number is that of
    its first label. This is one of the texts of a file: a note has lists of its own.
*/
class ORVRtfOldList {
public:
    /*! What is being stated. */
    ORVRtfOldNumber number;

    /*! Takes the label in front of the paragraph. */
    void addLabel(const QString& text);
    /*! Whether the paragraph has a label that has not been used. */
    bool hasLabel() const { return !m_label.isEmpty(); }

    /*! Makes \a paragraph the item that is stated. */
    void applyNumber(ORVRtfParagraph& paragraph, ORVRtfNumbering& numbering);
    /*! Makes \a paragraph, unless it is one already, an item that has its label. */
    void applyLabel(ORVRtfParagraph& paragraph, ORVRtfNumbering& numbering);

    /*! The format of paragraphs begins anew. */
    void resetParagraph() { m_isContinued = false; }
    /*! Counts \a paragraph, which ends. */
    void endParagraph(ORVRtfParagraph& paragraph);

private:
    ORVTextListLevel statedLevel() const;
    void beginList(ORVRtfNumbering& numbering, int level);
    void setItem(ORVRtfParagraph& paragraph, ORVRtfNumbering& numbering, int level, ORVTextListLevel item,
                 int labelNumber);
    bool goesOn(int level, const ORVTextListLevel& item, int labelNumber) const;

    QString m_label;
    bool m_isContinued = false;
    // The paragraph at hand is an item by its label alone.
    bool m_isItemByLabel = false;

    // The list that neighbouring items belong to; 0 for none. Its levels, and the numbers of their last items.
    int m_list = 0;
    QVector<ORVTextListLevel> m_levels;
    QVector<int> m_numbers;
};

#endif
