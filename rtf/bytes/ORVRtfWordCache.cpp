#include "ORVRtfWordCache_p.h"

#include <cstring>

namespace {

/*! Whether \a c may belong to the word before it. */
bool mayContinue(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == ' ';
}

} // namespace

inline ORVRtfWordCache::Bytes ORVRtfWordCache::bytesAt(const char* data)
{
    Bytes bytes;
    std::memcpy(&bytes.first, data, step);
    std::memcpy(&bytes.second, data + step, step);
    return bytes;
}

inline bool ORVRtfWordCache::matches(const Known& known, const Bytes& bytes, const char* data)
{
    return (bytes.first & known.mask.first) == known.bytes.first
        && (bytes.second & known.mask.second) == known.bytes.second
        && (known.endsItself || !mayContinue(data[known.word.scanned.length]));
}

void ORVRtfWordCache::setBytes(Known& known, const char* data)
{
    const int length = known.word.scanned.length;
    char ones[longest] = {};
    std::memset(ones, -1, size_t(length));
    known.mask = bytesAt(ones);
    const Bytes bytes = bytesAt(data);
    known.bytes = {bytes.first & known.mask.first, bytes.second & known.mask.second};
    known.endsItself = data[length - 1] == ' ' || !mayContinue(data[1]);
}

const ORVRtfWordCache::Word& ORVRtfWordCache::scan(const char* data, int available)
{
    Place* place = nullptr;
    // One more byte tells whether the word ends.
    if (available > longest) {
        place = &m_places[(unsigned(data[1]) + 5 * unsigned(data[2])) % m_places.size()];
        const Bytes bytes = bytesAt(data);
        for (const Known& known : place->known) {
            if (matches(known, bytes, data))
                return known.word;
        }
    }

    m_word = Word();
    m_word.scanned = ORVRtfControlWord::scan(data, available);
    if (m_word.scanned.status != ORVRtfControlWord::Complete)
        return m_word;
    m_word.keyWord = ORVTextRtfCommon::fromLatin1(data, unsigned(m_word.scanned.spellingLength));
    if (place && m_word.scanned.length <= longest) {
        Known& known = place->known[place->next];
        place->next = (place->next + 1) % alike;
        known.word = m_word;
        setBytes(known, data);
    }
    return m_word;
}
