// Prints the spellings of all control words as a libFuzzer dictionary.

#include "ORVRtfInterchangeWords_p.h"
#include "ORVRtfKeywords.h"

#include <cctype>
#include <cstdio>

namespace {

void print(const char* spelling)
{
    std::putchar('"');
    for (; *spelling; ++spelling) {
        if (std::isalnum(static_cast<unsigned char>(*spelling)))
            std::putchar(*spelling);
        else
            std::printf("\\x%02X", unsigned(static_cast<unsigned char>(*spelling)));
    }
    std::puts("\"");
}

} // namespace

int main()
{
#define ORV_PRINT_SPELLING(name, spelling) print(spelling);
    ORV_RTF_KEYWORDS(ORV_PRINT_SPELLING)
    ORV_INTERCHANGE_WORDS(ORV_PRINT_SPELLING)
#undef ORV_PRINT_SPELLING
    return 0;
}
