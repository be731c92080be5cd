#include "ORVRtfSymbolFonts_p.h"

#include "ORVRtfSymbolTable_p.h"
#include "QtStringCompat_p.h"

namespace {

const unsigned char firstByte = 0x20;
const char32_t privateBase = 0xF000;

struct Alias {
    const char* alias;
    const char* name;
};

const Alias aliases[] = {{"wingdings1", "wingdings"}, {"itczapfdingbats", "zapfdingbats"}};

QString plainName(const QString& name)
{
    QString plain = name.toLower().remove(QLatin1Char(' '));
    for (const Alias& row : aliases) {
        if (plain == QLatin1String(row.alias))
            return QLatin1String(row.name);
    }
    return plain;
}

} // namespace

int ORVRtfSymbolFonts::find(const QString& name)
{
    const QString wanted = plainName(name);
    int number = 0;
    for (const ORVRtfSymbolTable::Font& font : ORVRtfSymbolTable::fonts) {
        if (wanted == QLatin1String(font.name))
            return number;
        ++number;
    }
    return none;
}

char32_t ORVRtfSymbolFonts::character(int font, unsigned char byte)
{
    return font < 0 || byte < firstByte ? 0 : ORVRtfSymbolTable::fonts[font].characters[byte - firstByte];
}

char32_t ORVRtfSymbolFonts::privateCharacter(unsigned char byte)
{
    return privateBase + byte;
}

bool ORVRtfSymbolFonts::isPrivateCharacter(char32_t character)
{
    return character >= privateBase + firstByte && character <= privateBase + 0xFF;
}

QString ORVRtfSymbolFonts::text(int font, const QString& text)
{
    QString result;
    for (const QChar& c : text) {
        const bool isByte = c.unicode() <= 0xFF || isPrivateCharacter(c.unicode());
        const char32_t known = isByte ? character(font, uchar(c.unicode() & 0xFF)) : 0;
        compat::appendCharacter(result, known ? known : c.unicode());
    }
    return result;
}
