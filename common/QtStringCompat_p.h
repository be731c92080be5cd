#ifndef QTSTRINGCOMPAT_P_H
#define QTSTRINGCOMPAT_P_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

/*! Bytes and text, where the supported versions of Qt differ. */
namespace compat {

/*! The text that \a bytes are in Latin-1, zero bytes and all: Qt before version 6 ends a QByteArray there. */
inline QString fromLatin1(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.constData(), int(bytes.size()));
}

/*! The text that \a bytes are in UTF-8, zero bytes and all: Qt before version 6 ends a QByteArray there. */
inline QString fromUtf8(const QByteArray& bytes)
{
    return QString::fromUtf8(bytes.constData(), int(bytes.size()));
}

/*! The number of bytes of \a text. */
inline int length(QLatin1String text)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return int(text.size());
#else
    return int(qstrlen(text.latin1()));
#endif
}

/*! Appends \a length \a bytes of Latin-1 to \a text. */
inline void appendLatin1(QString& text, const char* bytes, int length)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    text += QLatin1String(bytes, length);
#else
    text += QString::fromLatin1(bytes, length);
#endif
}

/*! Whether \a code is a character of Unicode: no surrogate, and not beyond the last plane. */
inline bool isCharacter(char32_t code)
{
    return code <= 0x10FFFF && (code & ~0x7FFu) != 0xD800;
}

/*! Appends the units of \a code, a character or a surrogate, to \a text: Qt 4 has no function for char32_t. */
inline void appendCharacter(QString& text, char32_t code)
{
    if (QChar::requiresSurrogates(uint(code))) {
        text += QChar(QChar::highSurrogate(uint(code)));
        text += QChar(QChar::lowSurrogate(uint(code)));
    } else {
        text += QChar(ushort(code));
    }
}

} // namespace compat

#endif
