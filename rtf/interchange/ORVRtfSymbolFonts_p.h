#ifndef ORVRTFSYMBOLFONTS_P_H
#define ORVRTFSYMBOLFONTS_P_H

#include <QtCore/QString>

/*! Fonts whose bytes are no letters: Symbol, Wingdings, Webdings, Zapf Dingbats. */
namespace ORVRtfSymbolFonts {

/*! No symbol font. */
const int none = -1;
/*! A symbol font whose characters nobody knows. */
const int unknown = -2;

/*! The number of the font named \a name; none for any other. */
int find(const QString& name);
/*! The Unicode character that \a byte is in \a font, one of the above; 0 where there is none. */
char32_t character(int font, unsigned char byte);
/*! What stands for a \a byte that has no character: one of private use, which symbol fonts show. */
char32_t privateCharacter(unsigned char byte);
/*! Whether \a character is such a one. Its low byte is the byte of the font. */
bool isPrivateCharacter(char32_t character);
/*! \a text, whose characters are bytes or of private use, in \a font; what has no character stays as it is. */
QString text(int font, const QString& text);

} // namespace ORVRtfSymbolFonts

#endif
