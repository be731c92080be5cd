#include "ORVRtfWordTable_p.h"

#include <array>
#include <string_view>

namespace {

/*! By the numbers of the control words; none has number 0. */
constexpr std::string_view spellings[] = {"",
#define ORV_SPELLING(name, spelling) spelling,
                                          ORV_RTF_KEYWORDS(ORV_SPELLING)
#undef ORV_SPELLING
};

// Twice as many buckets as words: seven words of ten stand in the first bucket that is looked at.
constexpr size_t bucketCount = 512;
typedef std::array<unsigned char, bucketCount> Buckets;

static_assert(ORVTextRtfCommon::KeyWordCount < 256,
              "the numbers of control words do not fit into the buckets");

/*! Where to look for \a spelling first. */
constexpr size_t firstBucket(std::string_view spelling)
{
    const unsigned first = static_cast<unsigned char>(spelling[1]);
    const unsigned last = static_cast<unsigned char>(spelling[spelling.size() - 1]);
    return (31 * first + 7 * last + 61 * spelling.size()) % bucketCount;
}

constexpr size_t nextBucket(size_t bucket)
{
    return (bucket + 1) % bucketCount;
}

constexpr Buckets makeBuckets()
{
    Buckets buckets{};
    for (size_t word = 1; word <= ORVTextRtfCommon::KeyWordCount; ++word) {
        size_t bucket = firstBucket(spellings[word]);
        while (buckets[bucket] != ORVTextRtfCommon::NoKeyWord)
            bucket = nextBucket(bucket);
        buckets[bucket] = static_cast<unsigned char>(word);
    }
    return buckets;
}

constexpr Buckets buckets = makeBuckets();

} // namespace

ORVTextRtfCommon::KeyWord ORVRtfWordTable::find(const char* spelling, int length)
{
    const std::string_view word(spelling, size_t(length));
    size_t bucket = firstBucket(word);
    while (buckets[bucket] != ORVTextRtfCommon::NoKeyWord && spellings[buckets[bucket]] != word)
        bucket = nextBucket(bucket);
    return ORVTextRtfCommon::KeyWord(buckets[bucket]);
}
