#ifndef ORVRTFFIELDINSTRUCTION_P_H
#define ORVRTFFIELDINSTRUCTION_P_H

#include <QtCore/QString>

namespace ORVRtfFieldInstruction {

/*!
    The target of a field instruction of the form `HYPERLINK "target"`; null for every other instruction.

    One white-space character stands between the word, in capitals, and the target; white space around the
    whole does not matter. Everything up to the last quotation mark belongs to the target.
*/
QString hyperlinkTarget(const QString& instruction);

} // namespace ORVRtfFieldInstruction

#endif
