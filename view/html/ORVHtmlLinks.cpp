#include "ORVHtmlLinks_p.h"

#include "ORVHtmlOutput_p.h"

#include <QtGui/QTextCharFormat>

namespace {

/*! Whether \a target is a script that a browser would run. It ignores white space in a scheme. */
bool isProgram(const QString& target)
{
    QString scheme;
    for (const QChar character : target) {
        if (character == QLatin1Char(':'))
            return scheme == QLatin1String("javascript") || scheme == QLatin1String("vbscript")
                || scheme == QLatin1String("data");
        // Other characters than these are left out, or make it no scheme.
        if (character.unicode() > 0x20 && character.unicode() < 0x7f)
            scheme += character.toLower();
    }
    return false;
}

/*! Whether notes have ids like \a name. */
bool isIdOfNote(const QString& name)
{
    static const char* const kinds[] = {"fn", "en", "cm"};
    for (const char* const kind : kinds) {
        if (name.startsWith(QLatin1String(kind)))
            return name.size() > 2 && name.at(2).isDigit();
    }
    return false;
}

} // namespace

QByteArray ORVHtmlLinks::attribute(const QTextCharFormat& format)
{
    const QString target = format.anchorHref();
    if (target.isEmpty() || isProgram(target))
        return QByteArray();
    return " href="
        + ORVHtmlOutput::attributeValue(
               address(target.startsWith(QLatin1Char('#')) ? QLatin1Char('#') + id(target.mid(1)) : target));
}

QString ORVHtmlLinks::address(const QString& target)
{
    QString result;
    for (const QChar character : target) {
        if (character == QLatin1Char('\\'))
            result += QLatin1Char('/');
        else if (QString::fromLatin1(" \"<>^`{|}").contains(character))
            result += QLatin1Char('%') + QString::number(character.unicode(), 16).toUpper();
        else if (character.unicode() >= 0x20)
            result += character;
    }
    return result;
}

QString ORVHtmlLinks::id(const QString& name)
{
    QString result = name;
    for (QChar& character : result) {
        if (character.isSpace() || character.unicode() < 0x20)
            character = QLatin1Char('_');
    }
    return isIdOfNote(result) ? result + QLatin1Char('_') : result;
}
