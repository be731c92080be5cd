#include "ORVRtfTextDecoder_p.h"

#include "ORVRtfCodePages_p.h"
#include "QtStringCompat_p.h"

#include <cstring>

namespace {

/*! Most text is, so several bytes are looked at together. */
bool isAscii(const char* bytes, int count)
{
    const quint64 upperHalf = Q_UINT64_C(0x8080808080808080);
    quint64 word = 0;
    for (; count >= int(sizeof word); count -= int(sizeof word), bytes += sizeof word) {
        std::memcpy(&word, bytes, sizeof word);
        if (word & upperHalf)
            return false;
    }
    word = 0;
    std::memcpy(&word, bytes, size_t(count));
    return (word & upperHalf) == 0;
}

} // namespace

ORVRtfTextDecoder::ORVRtfTextDecoder() : m_codePage(ORVRtfCodePages::unknown)
{
    QString none;
    changeCodePage(ORVRtfCodePages::latin1Windows, none);
}

void ORVRtfTextDecoder::changeCodePage(int codePage, QString& text)
{
    endText(text);
    m_codePage = codePage;
    const int supported = ORVRtfCodePages::supported(codePage);
    QSharedPointer<ORVRtfPageDecoder>& page = m_pages[supported];
    if (!page)
        page = QSharedPointer<ORVRtfPageDecoder>(new ORVRtfPageDecoder(supported));
    m_page = page;
}

void ORVRtfTextDecoder::append(const char* bytes, int count, QString& text)
{
    if (!isWithinCharacter() && isAscii(bytes, count)) {
        compat::appendLatin1(text, bytes, count);
        return;
    }
    // At most a unit for each byte, and one for a character that is given up.
    const int length = int(text.size());
    text.resize(length + count + 1);
    const char* const end = bytes + count;
    QChar* const begin = text.data();
    QChar* out = begin + length;
    if (m_page->isSingleByte()) {
        while (bytes != end)
            *out++ = m_page->character(*bytes++);
    } else {
        while (bytes != end)
            out = decodeByte(*bytes++, out);
    }
    text.resize(int(out - begin));
}

QChar* ORVRtfTextDecoder::decodeByte(char byte, QChar* out)
{
    if (isWithinCharacter() && !m_page->isTrailByte(byte)) {
        *out++ = QChar::ReplacementCharacter;
        reset();
    }
    const int length = m_page->length(isWithinCharacter() ? m_character[0] : byte);
    if (length <= 1) {
        *out++ = length == 1 ? m_page->character(byte) : QChar(QChar::ReplacementCharacter);
        return out;
    }
    m_character[m_waiting++] = byte;
    if (m_waiting == length) {
        out = m_page->decode(m_character, out);
        reset();
    }
    return out;
}
