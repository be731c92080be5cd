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

// Twice as many slots as words: seven words of ten stand in the first slot that is looked at.
constexpr size_t slotCount = 512;
typedef std::array<unsigned char, slotCount> Slots;

static_assert(ORVTextRtfCommon::KeyWordCount < 256, "the numbers of control words do not fit into the slots");

/*! Where to look for \a spelling first. */
constexpr size_t firstSlot(std::string_view spelling)
{
    const unsigned first = static_cast<unsigned char>(spelling[1]);
    const unsigned last = static_cast<unsigned char>(spelling[spelling.size() - 1]);
    return (31 * first + 7 * last + 61 * spelling.size()) % slotCount;
}

constexpr size_t nextSlot(size_t slot)
{
    return (slot + 1) % slotCount;
}

constexpr Slots makeSlots()
{
    Slots slots{};
    for (size_t word = 1; word <= ORVTextRtfCommon::KeyWordCount; ++word) {
        size_t slot = firstSlot(spellings[word]);
        while (slots[slot] != ORVTextRtfCommon::NoKeyWord)
            slot = nextSlot(slot);
        slots[slot] = static_cast<unsigned char>(word);
    }
    return slots;
}

constexpr Slots slots = makeSlots();

} // namespace

ORVTextRtfCommon::KeyWord ORVRtfWordTable::find(const char* spelling, int length)
{
    const std::string_view word(spelling, size_t(length));
    size_t slot = firstSlot(word);
    while (slots[slot] != ORVTextRtfCommon::NoKeyWord && spellings[slots[slot]] != word)
        slot = nextSlot(slot);
    return ORVTextRtfCommon::KeyWord(slots[slot]);
}
