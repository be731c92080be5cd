#ifndef LITERALS_H
#define LITERALS_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

/*! A string in UTF-8 as a QString. */
inline QString operator""_s(const char* utf8, size_t size)
{
    return QString::fromUtf8(utf8, int(size));
}

/*! A string as bytes, NUL included. */
inline QByteArray operator""_b(const char* bytes, size_t size)
{
    return QByteArray(bytes, int(size));
}

#endif
