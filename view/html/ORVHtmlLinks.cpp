#include "ORVHtmlLinks_p.h"

#include "ORVHtmlOutput_p.h"
#include "ORVLinkTargets_p.h"

#include <QtGui/QTextCharFormat>

namespace {

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
    const QString address = target(format);
    return address.isEmpty() ? QByteArray() : " href=" + ORVHtmlOutput::attributeValue(address);
}

QString ORVHtmlLinks::target(const QTextCharFormat& format)
{
    const QString target = format.anchorHref();
    if (target.isEmpty() || ORVLinkTargets::isScript(target))
        return QString();
    return ORVLinkTargets::address(target.startsWith(QLatin1Char('#')) ? QLatin1Char('#') + id(target.mid(1))
                                                                       : target);
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
