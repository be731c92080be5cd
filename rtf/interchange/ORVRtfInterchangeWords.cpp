#include "ORVRtfInterchangeWords_p.h"

#include "ORVRtfWordHash_p.h"

namespace {

typedef ORVRtfWordHash<ORVRtfInterchangeWords::WordCount, 512> Hash;

constexpr Hash::Spellings spellings = {"",
#define ORV_SPELLING(name, spelling) spelling,
                                       ORV_INTERCHANGE_WORDS(ORV_SPELLING)
#undef ORV_SPELLING
};

constexpr Hash words(spellings);

} // namespace

ORVRtfInterchangeWords::Word ORVRtfInterchangeWords::find(const char* spelling, int length)
{
    return Word(words.find(std::string_view(spelling, std::size_t(length))));
}
