#ifndef ORVRTFPAGEDECODER_P_H
#define ORVRTFPAGEDECODER_P_H

#include "ORVRtfCodePages_p.h"
#include "QtTextCodecCompat_p.h"

#include <QtCore/QScopedPointer>
#include <QtCore/QVector>

#include <array>

/*!
    The characters of one code page. A codec is asked for each character once, since asking it for each run of
    text takes several times as long as all the rest of reading.
*/
class ORVRtfPageDecoder {
public:
    /*! \a codePage is one of ORVRtfCodePages; where it has no characters, "?" stands for each byte. */
    explicit ORVRtfPageDecoder(int codePage);

    /*! Bytes of the longest character of any page, in UTF-8. */
    static const int longestCharacter = 4;

    /*! Whether each byte is a character. */
    bool isSingleByte() const { return m_isSingleByte; }
    /*! The character that the one \a byte is. */
    QChar character(char byte) const { return m_characters[uchar(byte)]; }

    /*! How many bytes a character has that begins with \a byte: 0 where none does. */
    int length(char byte) const { return m_lengths[uchar(byte)]; }
    /*! Whether \a byte can stand behind the first one of a character. */
    bool isTrailByte(char byte) const { return uchar(byte) >= m_firstTrail && uchar(byte) <= m_lastTrail; }
    /*! Writes the character of several \a bytes to \a out, one unit or two; returns what follows them. */
    QChar* decode(const char* bytes, QChar* out)
    {
        if (m_codePage == ORVRtfCodePages::utf8)
            return decodeUtf8(bytes, out);
        const QVector<QChar>& row = m_doubleByteCharacters[size_t(uchar(bytes[0]) - 0x80)];
        const QChar known = row.isEmpty() ? QChar() : row.at(uchar(bytes[1]) - m_firstTrail);
        *out++ = known.isNull() ? doubleByteCharacter(bytes) : known;
        return out;
    }

private:
    QChar tableCharacter(char byte);
    QChar decoded(const char* bytes, int count);
    QChar doubleByteCharacter(const char* bytes);
    int lengthFrom(char byte) const;
    QChar* decodeUtf8(const char* bytes, QChar* out) const;

    int m_codePage;
    bool m_isSingleByte;
    QScopedPointer<compat::TextDecoder> m_codec;
    uchar m_firstTrail;
    uchar m_lastTrail;
    // By the first byte of a character, as the next two are.
    std::array<signed char, 256> m_lengths;
    std::array<QChar, 256> m_characters;
    // Of characters of two bytes, by the first one less 0x80; null where none was asked for yet.
    std::array<QVector<QChar>, 128> m_doubleByteCharacters;
};

#endif
