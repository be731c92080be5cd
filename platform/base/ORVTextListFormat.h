#ifndef ORVTEXTLISTFORMAT_H
#define ORVTEXTLISTFORMAT_H

#include "ORVPlatformGlobal.h"
#include "ORVTextListLevel.h"

#include <QtCore/QList>

class QTextBlock;
class QTextList;
class QTextListFormat;

/*! Multi-level lists on top of QTextList, which knows one level only. */
namespace ORVTextListFormat {

/*!
    The levels stored in \a format. For a format that stores none but has one of Qt's list styles, one level
    derived from it: the style's marker, or "%0" with the format's number prefix and suffix around it (the
    suffix is "." unless set), its kind, and 30 points of indent, for the first line too, for each step of
    QTextListFormat::indent() (Qt's 40 pixels at 96 dpi). Otherwise empty.
*/
ORV_PLATFORM_EXPORT QList<ORVTextListLevel> levels(const QTextListFormat& format);

/*!
    Stores \a levels in \a format, and sets the list style, number prefix and number suffix of level 0 on it,
    so that a view that knows nothing of levels shows a sensible marker. An empty list removes the levels and
    leaves the rest of \a format alone.
*/
ORV_PLATFORM_EXPORT void setLevels(QTextListFormat& format, const QList<ORVTextListLevel>& levels);

/*!
    The 0-based level of \a block in \a list; 0 when \a list is null, or the block has no level or is not in
    it.
*/
ORV_PLATFORM_EXPORT int blockLevel(QTextList* list, const QTextBlock& block);

/*!
    Stores \a level as the level of \a block in \a list, and gives the block the left indent and first-line
    position that are stored for that level, unless the block states either of its own. (A level derived from
    a list style gives none: Qt indents such a list itself.) Does nothing when \a list is null, or \a block
    is invalid or not in it; a negative level counts as 0.
*/
ORV_PLATFORM_EXPORT void setBlockLevel(QTextList* list, const QTextBlock& block, int level);

} // namespace ORVTextListFormat

#endif
