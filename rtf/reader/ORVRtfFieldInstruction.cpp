#include "ORVRtfFieldInstruction_p.h"

#include "QtStringCompat_p.h"

QString ORVRtfFieldInstruction::hyperlinkTarget(const QString& instruction)
{
    const QLatin1String word("HYPERLINK");
    const QChar quote = QLatin1Char('"');

    const QString text = instruction.trimmed();
    const int opening = compat::length(word) + 1;
    const int closing = int(text.size()) - 1;
    if (closing <= opening || !text.startsWith(word) || !text.at(opening - 1).isSpace())
        return QString();
    if (text.at(opening) != quote || text.at(closing) != quote)
        return QString();

    // An empty target is a target too: it must not come out as null.
    return QLatin1String("") + text.mid(opening + 1, closing - opening - 1);
}
