#include "ORVLinkTargets_p.h"

#include <QtCore/QUrl>

/*! Browsers ignore white space in a scheme. */
bool ORVLinkTargets::isScript(const QString& target)
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

QString ORVLinkTargets::address(const QString& target)
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

QByteArray ORVLinkTargets::uri(const QString& target)
{
    const QString text = address(target);
    const QUrl url(text);
    return url.isValid() ? url.toEncoded() : text.toUtf8().toPercentEncoding("!#$%&'()*+,/:;=?@[]~");
}
