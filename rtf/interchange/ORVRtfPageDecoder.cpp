#include "ORVRtfPageDecoder_p.h"

#include "ORVRtfPageTables_p.h"
#include "ORVTextRtfCommon.h"
#include "QtStringCompat_p.h"

namespace {

bool isWithin(char byte, uchar first, uchar last)
{
    return uchar(byte) >= first && uchar(byte) <= last;
}

bool hasSeveralBytes(int codePage)
{
    switch (codePage) {
    case 932:
    case 936:
    case 949:
    case 950:
    case ORVRtfCodePages::utf8: return true;
    default: return false;
    }
}

QChar latin1WindowsCharacter(char byte)
{
    // The table of the storage form has no character for this byte, and U+0000 for those that mean none.
    const char tilde = char(0x98);
    const QChar smallTilde(0x02DC);
    if (byte == tilde)
        return smallTilde;
    const ushort unit = ORVTextRtfCommon::unicodeFromAnsi1252(&byte);
    return unit == 0 ? QChar(ushort(uchar(byte))) : QChar(unit);
}

} // namespace

ORVRtfPageDecoder::ORVRtfPageDecoder(int codePage) : m_codePage(codePage)
{
    const char* const name = ORVRtfCodePages::codecName(codePage);
    if (name && codePage != ORVRtfCodePages::latin1Windows && codePage != ORVRtfCodePages::utf8)
        m_codec.reset(new compat::TextDecoder(name));
    if (m_codec && !m_codec->isValid())
        m_codec.reset();
    m_isSingleByte = codePage != ORVRtfCodePages::utf8 && !(m_codec && hasSeveralBytes(codePage));
    m_firstTrail = codePage == ORVRtfCodePages::utf8 ? 0x80 : 0x40;
    m_lastTrail = codePage == ORVRtfCodePages::utf8 ? 0xBF : 0xFE;
    for (int i = 0; i < 256; ++i) {
        m_lengths[size_t(i)] = static_cast<signed char>(lengthFrom(char(i)));
        m_characters[size_t(i)] = i < 0x80 ? QChar(ushort(i)) : tableCharacter(char(i));
    }
}

/*! The character of a byte from 0x80 on. */
QChar ORVRtfPageDecoder::tableCharacter(char byte)
{
    if (m_codePage == ORVRtfCodePages::latin1Windows)
        return latin1WindowsCharacter(byte);
    if (m_codec)
        return decoded(&byte, 1);
    for (const ORVRtfPageTables::Page& page : ORVRtfPageTables::pages) {
        if (page.number == m_codePage)
            return QChar(page.units[uchar(byte) - 0x80]);
    }
    return QLatin1Char('?');
}

QChar ORVRtfPageDecoder::decoded(const char* bytes, int count)
{
    const QString text = m_codec->decode(bytes, count);
    return text.size() == 1 ? text.at(0) : QChar(QChar::ReplacementCharacter);
}

int ORVRtfPageDecoder::lengthFrom(char byte) const
{
    if (m_isSingleByte || uchar(byte) < 0x80)
        return 1;
    switch (m_codePage) {
    case ORVRtfCodePages::utf8:
        return isWithin(byte, 0xC2, 0xDF) ? 2
            : isWithin(byte, 0xE0, 0xEF)  ? 3
            : isWithin(byte, 0xF0, 0xF4)  ? 4
                                          : 0;
    case 932: return isWithin(byte, 0x81, 0x9F) || isWithin(byte, 0xE0, 0xFC) ? 2 : 1;
    default: return isWithin(byte, 0x81, 0xFE) ? 2 : 1;
    }
}

/*! Asks the codec for the character of two \a bytes, and keeps it. */
QChar ORVRtfPageDecoder::doubleByteCharacter(const char* bytes)
{
    QVector<QChar>& row = m_doubleByteCharacters[size_t(uchar(bytes[0]) - 0x80)];
    row.resize(m_lastTrail - m_firstTrail + 1);
    return row[uchar(bytes[1]) - m_firstTrail] = decoded(bytes, 2);
}

/*! Only the shortest form of a character counts. */
QChar* ORVRtfPageDecoder::decodeUtf8(const char* bytes, QChar* out) const
{
    const int count = length(bytes[0]);
    const uint leastOfLength[longestCharacter + 1] = {0, 0, 0x80, 0x800, 0x10000};
    uint character = uchar(bytes[0]) & (0x7Fu >> count);
    for (int i = 1; i < count; ++i)
        character = character << 6 | (uchar(bytes[i]) & 0x3F);
    if (character < leastOfLength[count] || !compat::isCharacter(character))
        character = QChar::ReplacementCharacter;
    if (QChar::requiresSurrogates(character)) {
        *out++ = QChar(QChar::highSurrogate(character));
        *out++ = QChar(QChar::lowSurrogate(character));
    } else {
        *out++ = QChar(ushort(character));
    }
    return out;
}
