#ifndef ORVRTFFIELDTARGET_P_H
#define ORVRTFFIELDTARGET_P_H

#include <QtCore/QString>

namespace ORVRtfFieldTarget {

/*!
    Where the result of a field leads to: the target of HYPERLINK, with a place within it behind a "#", and
    "#name" for a reference to a bookmark. Null when \a instruction is that of another field.

    Word processors take names of fields in any case, and targets with and without quotation marks. In those, a
    backslash escapes the character behind it.
*/
QString of(const QString& instruction);

/*! Whether \a instruction is that of the field \a name, given in capitals. */
bool isField(const QString& instruction, const char* name);

} // namespace ORVRtfFieldTarget

#endif
