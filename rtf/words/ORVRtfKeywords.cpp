#include "ORVRtfKeywords.h"

namespace ORVRtfKeywords {

#define ORV_DEFINE_SPELLING(name, spelling) const char* name##Str = spelling;
ORV_RTF_KEYWORDS(ORV_DEFINE_SPELLING)
#undef ORV_DEFINE_SPELLING

} // namespace ORVRtfKeywords
