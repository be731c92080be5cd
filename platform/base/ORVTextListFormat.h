#ifndef ORVTEXTLISTFORMAT_H
#define ORVTEXTLISTFORMAT_H

#include "ORVPlatformGlobal.h"
#include "ORVTextListLevel.h"

#include <QtCore/QList>
#include <QtCore/QString>

class QTextBlock;
class QTextList;
class QTextListFormat;

/*! Multi-level lists on top of QTextList, which has only one level. */
namespace ORVTextListFormat {

/*!
    The levels stored in \a format. If none are stored but the format has one of Qt's list styles, one level
    is derived from it: the style's marker, or "%0" between the format's number prefix and suffix (the suffix
    is "." unless set), its kind, and 30 points of indent, also for the first line, for each step of
    QTextListFormat::indent() (Qt's 40 pixels at 96 dpi). Otherwise empty.
*/
ORV_PLATFORM_EXPORT QList<ORVTextListLevel> levels(const QTextListFormat& format);

/*!
    Stores \a levels in \a format, and sets the list style, number prefix and number suffix of level 0, so
    that a view without support for levels shows a sensible marker. No level is the shown one (see
    setShownLevel()) any more. An empty list removes the levels and leaves the rest of \a format alone.
*/
ORV_PLATFORM_EXPORT void setLevels(QTextListFormat& format, const QList<ORVTextListLevel>& levels);

/*! Whether levels are stored in \a format, so that levels() need not derive any. */
ORV_PLATFORM_EXPORT bool storesLevels(const QTextListFormat& format);

/*!
    The level that all items of a list of \a format have, where one of several QTextLists holds each level; -1
    when that is not stated.
*/
ORV_PLATFORM_EXPORT int shownLevel(const QTextListFormat& format);

/*!
    States that all items of a list of \a format have \a level of its stored levels, and sets list style, number
    prefix and suffix, and indent of that level, so that a view without support for levels shows it. \a text is
    the level's template, in which the numbers of higher levels are filled in, and \a number that of the list's
    first item, which Qt shows from version 6.6 on. Does nothing when no such level is stored.
*/
ORV_PLATFORM_EXPORT void setShownLevel(QTextListFormat& format, int level, const QString& text, int number);

/*!
    The 0-based level of \a block in \a list. 0 when \a list is null, or when the block has no level or is not
    in the list.
*/
ORV_PLATFORM_EXPORT int blockLevel(QTextList* list, const QTextBlock& block);

/*!
    Stores \a level as the level of \a block in \a list. A block without left indent and first-line position
    of its own gets those stored for that level. (A level derived from a list style has none: Qt indents such
    a list itself.) Does nothing when \a list is null, or when \a block is invalid or not in it. A negative
    level is treated as 0.
*/
ORV_PLATFORM_EXPORT void setBlockLevel(QTextList* list, const QTextBlock& block, int level);

} // namespace ORVTextListFormat

#endif
