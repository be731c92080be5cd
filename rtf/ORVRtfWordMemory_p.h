#ifndef ORVRTFWORDMEMORY_P_H
#define ORVRTFWORDMEMORY_P_H

#include "ORVTextRtfCommon.h"

#include <array>
#include <cstring>

/*!
    Looks up control words, and remembers what the last ones were: a text consists of a few that come again
    and again, each of which is found here in a fraction of the time.
*/
class ORVRtfWordMemory {
public:
    /*! The control word of \a length bytes at \a spelling, its backslash among them. */
    ORVTextRtfCommon::KeyWord find(const char* spelling, unsigned length)
    {
        if (length == 0 || length > longest)
            return ORVTextRtfCommon::fromLatin1(spelling, length);
        Word& word = m_words[place(spelling, length)];
        if (word.length != length || std::memcmp(word.spelling, spelling, length) != 0) {
            word.length = length;
            std::memcpy(word.spelling, spelling, length);
            word.keyWord = ORVTextRtfCommon::fromLatin1(spelling, length);
        }
        return word.keyWord;
    }

private:
    static const unsigned longest = 16;
    static const unsigned count = 64;

    struct Word {
        char spelling[longest];
        unsigned length = 0;
        ORVTextRtfCommon::KeyWord keyWord = ORVTextRtfCommon::NoKeyWord;
    };

    static unsigned place(const char* spelling, unsigned length)
    {
        const unsigned first = static_cast<unsigned char>(spelling[length > 1 ? 1 : 0]);
        const unsigned last = static_cast<unsigned char>(spelling[length - 1]);
        return (first + 3 * last + 5 * length) % count;
    }

    std::array<Word, count> m_words;
};

#endif
