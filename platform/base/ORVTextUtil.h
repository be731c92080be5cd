#ifndef ORVTEXTUTIL_H
#define ORVTEXTUTIL_H

#include "ORVPlatformGlobal.h"

#include <QtCore/QString>

class QTextCursor;

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
    family has that weight, else the heaviest one below it that the family has. \a fallback as well when there
    is none below (as with a family that is bold throughout: its plain text must not count as bold), when the
    family is not installed, and without a QGuiApplication. Thread-safe.
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
