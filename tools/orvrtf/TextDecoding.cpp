#include "TextDecoding.h"

namespace {

enum class ByteOrder { BigEndian, LittleEndian };

QString fromUtf16(const QByteArray& bytes, ByteOrder order)
{
    QString text;
    text.reserve(bytes.size() / 2 + 1);
    for (int i = 0; i + 1 < bytes.size(); i += 2) {
        const uchar first = uchar(bytes.at(i));
        const uchar second = uchar(bytes.at(i + 1));
        text += order == ByteOrder::BigEndian ? QChar(second, first) : QChar(first, second);
    }
    if (bytes.size() % 2 != 0)
        text += QChar(QChar::ReplacementCharacter);
    return text;
}

QString fromUtf8OrLatin1(const QByteArray& bytes)
{
    // Without its length, Qt before version 6 ends a QByteArray at a zero byte.
    const QString text = QString::fromUtf8(bytes.constData(), bytes.size());
    return text.toUtf8() == bytes ? text : QString::fromLatin1(bytes.constData(), bytes.size());
}

} // namespace

QString decodedText(const QByteArray& bytes)
{
    const QByteArray utf8Mark("\xef\xbb\xbf");
    if (bytes.startsWith(utf8Mark))
        return fromUtf8OrLatin1(bytes.mid(utf8Mark.size()));
    if (bytes.startsWith("\xfe\xff"))
        return fromUtf16(bytes.mid(2), ByteOrder::BigEndian);
    if (bytes.startsWith("\xff\xfe"))
        return fromUtf16(bytes.mid(2), ByteOrder::LittleEndian);
    return fromUtf8OrLatin1(bytes);
}
