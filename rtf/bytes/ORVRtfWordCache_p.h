#ifndef ORVRTFWORDCACHE_P_H
#define ORVRTFWORDCACHE_P_H

#include "ORVRtfControlWord_p.h"
#include "ORVTextRtfCommon.h"

#include <array>

/*!
    Scans control words and looks them up, and remembers the last ones with parameter and blank as they stood
    in the input: a text consists of a few that come again and again, each of which is known at a glance.
*/
class ORVRtfWordCache {
public:
    struct Word {
        ORVRtfControlWord scanned;
        ORVTextRtfCommon::KeyWord keyWord = ORVTextRtfCommon::NoKeyWord;
    };

    /*!
        The control word at \a data, of which \a available bytes can be read; see ORVRtfControlWord::scan().
        The result holds until the next call.
    */
    const Word& scan(const char* data, int available);

private:
    // Bytes that are compared at a time, and bytes of a word that is remembered.
    static constexpr int step = 8;
    static constexpr int longest = 2 * step;
    // Words with the same beginning that are remembered.
    static constexpr size_t alike = 4;

    struct Bytes {
        quint64 first;
        quint64 second;
    };
    struct Known {
        Word word;
        Bytes mask = {0, 0};
        // No word is like this one.
        Bytes bytes = {1, 1};
        // Whether it ends whatever follows it.
        bool endsItself = false;
    };
    struct Place {
        std::array<Known, alike> known;
        size_t next = 0;
    };

    static Bytes bytesAt(const char* data);
    static bool matches(const Known& known, const Bytes& bytes, const char* data);
    static void setBytes(Known& known, const char* data);

    std::array<Place, 32> m_places;
    Word m_word;
};

#endif
