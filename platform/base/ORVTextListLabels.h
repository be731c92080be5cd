#ifndef ORVTEXTLISTLABELS_H
#define ORVTEXTLISTLABELS_H

#include "ORVPlatformGlobal.h"
#include "ORVTextListLevel.h"

#include <QtCore/QHash>
#include <QtCore/QString>

class QTextBlock;
class QTextDocument;
class QTextListFormat;

/*!
    The markers of all list items of a document, as text: "2.", "a)", "1.2.", a bullet. A snapshot: it does not
    follow changes of the document.

    Items are counted as word processors count them (ORVTextListCounter). Lists are of three kinds:

    - Lists with stored levels, of which one QTextList holds the items of all levels. The level is that of the
      block (ORVTextListFormat::blockLevel()).
    - Lists with stored levels and a shown level (ORVTextListFormat::shownLevel()). All of them belong together
      that have equal levels and whose blocks have the same number (ORVRtfProperty::ListOverride): they share
      their counters, whatever stands between them.
    - Qt's own lists, without levels, whose markers are Qt's.
*/
class ORV_PLATFORM_EXPORT ORVTextListLabels {
public:
    /*! The marker of a list item. */
    struct Label {
        /*! Empty where no marker is shown. */
        QString text;
        /*! What stands between the marker and the item's text. */
        ORVTextListLevel::Follow follow = ORVTextListLevel::Tab;
        /*! The part of the marker that stands at the position of the first line. */
        ORVTextListLevel::Justification justification = ORVTextListLevel::Left;
        /*! 0-based level of the item. */
        int level = 0;
        /*! The item's number on its level. */
        int number = 0;
        /*!
            The list that the item belongs to, counted from 0 in the document. QTextLists that belong together
            are one. -1 for a block that is no list item.
        */
        int list = -1;
    };

    /*!
        Works out the markers of \a document, in time proportional to its paragraphs. There are none when it is
        null.
    */
    explicit ORVTextListLabels(const QTextDocument* document);

    /*! The marker of \a block, which is to be of that document; an empty one when it is no list item. */
    Label label(const QTextBlock& block) const;

    /*!
        The marker of item \a number of a list without levels of \a format, as QTextList::itemText() returns it
        for numbers. (That function searches the list for the item, which makes a long list quadratic.)
    */
    static QString stockText(const QTextListFormat& format, int number, bool isRightToLeft);

private:
    // By the number of the block.
    QHash<int, Label> m_labels;
};

#endif
