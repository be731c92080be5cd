#include "ORVRtfSymbolField_p.h"

#include "ORVRtfCodePages_p.h"
#include "ORVRtfSymbolFonts_p.h"
#include "ORVRtfTextDecoder_p.h"
#include "QtStringCompat_p.h"

#include <QtCore/QStringList>

namespace {

QString textOf(char32_t character)
{
    QString text;
    if (character != 0 && compat::isCharacter(character))
        compat::appendCharacter(text, character);
    return text;
}

/*! The font named behind the switch \f, with or without quotes. */
QString fontName(const QString& instruction)
{
    const int place = int(instruction.indexOf(QLatin1String("\\f"), 0, Qt::CaseInsensitive));
    const QString name = place < 0 ? QString() : instruction.mid(place + 2).trimmed();
    const QChar quote = QLatin1Char('"');
    return name.startsWith(quote) ? name.mid(1).section(quote, 0, 0) : name.section(QLatin1Char(' '), 0, 0);
}

QString decoded(const QByteArray& bytes, int codePage, ORVRtfTextDecoder& decoder)
{
    QString text;
    decoder.setCodePage(codePage, text);
    decoder.append(bytes.constData(), int(bytes.size()), text);
    decoder.endText(text);
    return text;
}

} // namespace

QString ORVRtfSymbolField::text(const QString& instruction, int codePage, ORVRtfTextDecoder& decoder)
{
    const QStringList parts = instruction.simplified().split(QLatin1Char(' '));
    if (parts.size() < 2 || parts.at(0).compare(QLatin1String("SYMBOL"), Qt::CaseInsensitive) != 0)
        return QString();
    bool isNumber = false;
    const uint number = parts.at(1).toUInt(&isNumber, 0);
    if (!isNumber || number == 0)
        return QString();
    const bool isUnicode = parts.contains(QLatin1String("\\u"), Qt::CaseInsensitive);
    const int font = ORVRtfSymbolFonts::find(fontName(instruction));
    const uchar byte = uchar(number & 0xFF);
    if (font != ORVRtfSymbolFonts::none && (!isUnicode || ORVRtfSymbolFonts::isPrivateCharacter(number))) {
        const char32_t character = ORVRtfSymbolFonts::character(font, byte);
        return textOf(character ? character : ORVRtfSymbolFonts::privateCharacter(byte));
    }
    if (isUnicode)
        return textOf(number);
    if (parts.contains(QLatin1String("\\j"), Qt::CaseInsensitive) && number > 0xFF)
        return decoded(QByteArray(1, char(number >> 8)) + char(byte), ORVRtfCodePages::japanese, decoder);
    return decoded(QByteArray(1, char(byte)), codePage, decoder);
}
