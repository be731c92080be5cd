#ifndef ORVRTF_TEXTDECODING_H
#define ORVRTF_TEXTDECODING_H

#include <QByteArray>
#include <QString>

/*!
    The text that \a bytes of a file are. A byte order mark decides whether they are UTF-8 or UTF-16 and is no
    part of the text; without one they are UTF-8 where they are valid as that, else Latin-1. Nothing is left
    out: zero bytes are characters, and half a unit at the end of UTF-16 is a replacement character.
*/
QString decodedText(const QByteArray& bytes);

#endif
