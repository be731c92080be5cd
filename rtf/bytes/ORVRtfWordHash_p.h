#ifndef ORVRTFWORDHASH_P_H
#define ORVRTFWORDHASH_P_H

#include <array>
#include <cstddef>
#include <string_view>

/*!
    A hash table of control words that the compiler makes. Words are numbered from 1; the spelling with number 0
    is empty.
*/
template <std::size_t SpellingCount, std::size_t BucketCount>
class ORVRtfWordHash {
public:
    typedef std::array<std::string_view, SpellingCount> Spellings;

    constexpr explicit ORVRtfWordHash(const Spellings& spellings) : m_spellings(spellings), m_buckets{}
    {
        static_assert(SpellingCount < BucketCount,
                      "a word that is not there would be looked for without end");
        for (std::size_t word = 1; word < SpellingCount; ++word) {
            std::size_t bucket = firstBucket(m_spellings[word]);
            while (m_buckets[bucket] != 0)
                bucket = nextBucket(bucket);
            m_buckets[bucket] = static_cast<unsigned short>(word);
        }
    }

    /*! The number of the word spelled \a spelling, with its backslash; 0 for none. */
    constexpr std::size_t find(std::string_view spelling) const
    {
        std::size_t bucket = firstBucket(spelling);
        while (m_buckets[bucket] != 0 && m_spellings[m_buckets[bucket]] != spelling)
            bucket = nextBucket(bucket);
        return m_buckets[bucket];
    }

private:
    /*! Where to look for \a spelling first. */
    static constexpr std::size_t firstBucket(std::string_view spelling)
    {
        const unsigned first = static_cast<unsigned char>(spelling[1]);
        const unsigned last = static_cast<unsigned char>(spelling[spelling.size() - 1]);
        return (31 * first + 7 * last + 61 * spelling.size()) % BucketCount;
    }

    static constexpr std::size_t nextBucket(std::size_t bucket) { return (bucket + 1) % BucketCount; }

    Spellings m_spellings;
    std::array<unsigned short, BucketCount> m_buckets;
};

#endif
