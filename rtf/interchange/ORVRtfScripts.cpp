#include "ORVRtfScripts_p.h"

namespace {

struct ScriptRange {
    char32_t first;
    char32_t last;
    ORVRtfScripts::Script script;
};

// In ascending order.
const ScriptRange scriptRanges[] = {
    {0x0590, 0x109F, ORVRtfScripts::Complex},     {0x1100, 0x11FF, ORVRtfScripts::EastAsian},
    {0x1700, 0x18AF, ORVRtfScripts::Complex},     {0x1900, 0x1AAF, ORVRtfScripts::Complex},
    {0x1B00, 0x1C4F, ORVRtfScripts::Complex},     {0x1CD0, 0x1CFF, ORVRtfScripts::Complex},
    {0x2E80, 0xA4CF, ORVRtfScripts::EastAsian},   {0xA800, 0xA95F, ORVRtfScripts::Complex},
    {0xA960, 0xA97F, ORVRtfScripts::EastAsian},   {0xA980, 0xAAFF, ORVRtfScripts::Complex},
    {0xABC0, 0xABFF, ORVRtfScripts::Complex},     {0xAC00, 0xD7FF, ORVRtfScripts::EastAsian},
    {0xF900, 0xFAFF, ORVRtfScripts::EastAsian},   {0xFB1D, 0xFDFF, ORVRtfScripts::Complex},
    {0xFE30, 0xFE4F, ORVRtfScripts::EastAsian},   {0xFE70, 0xFEFC, ORVRtfScripts::Complex},
    {0xFF00, 0xFFEF, ORVRtfScripts::EastAsian},   {0x10800, 0x11FFF, ORVRtfScripts::Complex},
    {0x17000, 0x18DFF, ORVRtfScripts::EastAsian}, {0x1B000, 0x1B2FF, ORVRtfScripts::EastAsian},
    {0x1E800, 0x1EFFF, ORVRtfScripts::Complex},   {0x20000, 0x3FFFF, ORVRtfScripts::EastAsian}};

bool isAlphabetic(char32_t character)
{
    if (character < 0x80)
        return (character | 0x20) >= 'a' && (character | 0x20) <= 'z';
    const int category = QChar::category(uint(character));
    return category >= QChar::Letter_Uppercase && category <= QChar::Letter_Other;
}

// More Latin and Greek letters, and dashes, quotation marks and other signs of all scripts.
const ushort firstSharedSign = 0x1E00;
const ushort lastSharedSign = 0x2E7F;

/*! Whether \a text, which begins in Western script, goes on in it: quick to find out, and nearly always so. */
bool isWestern(const QString& text)
{
    const ushort* const units = text.utf16();
    unsigned others = 0;
    for (int i = 0; i < text.size(); ++i)
        others |= unsigned(units[i] >= scriptRanges[0].first)
            & unsigned(units[i] < firstSharedSign || units[i] > lastSharedSign);
    return others == 0;
}

/*! The script of \a character, and \a before for one that all scripts have. */
ORVRtfScripts::Script scriptOf(char32_t character, ORVRtfScripts::Script before)
{
    if (character >= scriptRanges[0].first) {
        for (const ScriptRange& range : scriptRanges) {
            if (character < range.first)
                break;
            if (character <= range.last)
                return range.script;
        }
    }
    return isAlphabetic(character) ? ORVRtfScripts::Western : before;
}

} // namespace

int ORVRtfScripts::run(const QString& text, int start, Script& script)
{
    const Script before = script;
    if (before == Western && start == 0 && isWestern(text))
        return int(text.size());
    int length = 0;
    while (start + length < text.size()) {
        const QChar unit = text.at(start + length);
        const bool isPair = unit.isHighSurrogate() && start + length + 1 < text.size()
            && text.at(start + length + 1).isLowSurrogate();
        const char32_t character =
            isPair ? QChar::surrogateToUcs4(unit, text.at(start + length + 1)) : char32_t(unit.unicode());
        const Script next = scriptOf(character, length == 0 ? before : script);
        if (length > 0 && next != script)
            break;
        script = next;
        length += isPair ? 2 : 1;
    }
    return length;
}
