#ifndef ORVTEXTUTIL_H
#define ORVTEXTUTIL_H

#include "ORVPlatformGlobal.h"

#include <QtCore/QString>

class QTextCursor;

/*! Installed fonts, and white space at the ends of texts. */
namespace ORVTextUtil {

/*!
    The installed font family that best stands for \a name: the family of that name (in the spelling under
    which it is installed, upper and lower case being equal), else the first installed one of the family's
    QFont::substitutes(), else an installed family with the same metrics (as fontconfig knows them), else an
    empty string. Empty as well in a program without a QGuiApplication. Thread-safe.
*/
ORV_PLATFORM_EXPORT QString findBestFontFamily(const QString& name);

/*!
    The weight, on the scale of QFont::Weight, in which plain text of \a family is set: \a fallback when the
    family has that weight, is not installed, or there is no QGuiApplication; else the heaviest of the lighter
    weights that the family has; else the lightest of the heavier ones. (A lighter one goes before a heavier
    one, near as that may be: plain text that is heavier than normal counts as bold.) Thread-safe.
*/
ORV_PLATFORM_EXPORT int defaultFontWeight(const QString& family, int fallback);

/*!
    Removes white space from the start of the selection of \a cursor and from its end, and leaves the rest
    selected, with the formats it had. Paragraph ends count as white space; the borders of frames and table
    cells, and pictures, do not. A selection of white space alone is removed. One undo step.
*/
ORV_PLATFORM_EXPORT void trim(QTextCursor& cursor);

/*! \a text without the white space at its start. */
ORV_PLATFORM_EXPORT QString trimLeadingSpaces(const QString& text);

} // namespace ORVTextUtil

#endif
