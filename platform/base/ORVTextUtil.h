#ifndef ORVTEXTUTIL_H
#define ORVTEXTUTIL_H

#include "ORVPlatformGlobal.h"

#include <QtCore/QString>

class QTextCursor;

/*! Queries of installed fonts, and removal of white space. */
namespace ORVTextUtil {

/*!
    The best installed replacement for the font family \a name: the family itself, whatever its case (in the
    spelling of the installed family), else the first installed one of the family's QFont::substitutes(), else
    an installed family with the same metrics according to fontconfig, else an empty string. Empty in a
    program without a QGuiApplication. Thread-safe.
*/
ORV_PLATFORM_EXPORT QString findBestFontFamily(const QString& name);

/*!
    The weight for plain text of \a family, on the scale of QFont::Weight: \a fallback if the family has that
    weight or is not installed, or if there is no QGuiApplication; else the heaviest of the lighter weights of
    the family; else the lightest of the heavier ones. (Lighter weights are preferred even if a heavier one is
    closer, because plain text heavier than normal would be treated as bold.) Thread-safe.
*/
ORV_PLATFORM_EXPORT int defaultFontWeight(const QString& family, int fallback);

/*!
    Removes white space from the start and the end of the selection of \a cursor, and leaves the rest selected
    and formatted as before. Paragraph ends are white space; pictures and the borders of frames and table
    cells are not. A selection of white space only is removed. One undo step.
*/
ORV_PLATFORM_EXPORT void trim(QTextCursor& cursor);

/*! \a text without the white space at its start. */
ORV_PLATFORM_EXPORT QString trimLeadingSpaces(const QString& text);

} // namespace ORVTextUtil

#endif
