#include "ORVRtfWordTable_p.h"

#include "ORVRtfWordHash_p.h"

namespace {

// Twice as many buckets as words: seven words of ten stand in the first bucket that is looked at.
typedef ORVRtfWordHash<ORVTextRtfCommon::KeyWordCount + 1, 512> Hash;

/*! By the numbers of the control words; none has number 0. */
constexpr Hash::Spellings spellings = {"",
#define ORV_SPELLING(name, spelling) spelling,
                                       ORV_RTF_KEYWORDS(ORV_SPELLING)
#undef ORV_SPELLING
};

constexpr Hash words(spellings);

} // namespace

ORVTextRtfCommon::KeyWord ORVRtfWordTable::find(const char* spelling, int length)
{
    return ORVTextRtfCommon::KeyWord(words.find(std::string_view(spelling, std::size_t(length))));
}
