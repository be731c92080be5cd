#include "ORVRtfCharFormatCache_p.h"

const ORVRtfCharFormatCache::Entry* ORVRtfCharFormatCache::find(const QTextCharFormat& format,
                                                                const Key& key) const
{
    for (const Entry& entry : m_entries) {
        if (entry.key == key && entry.before == format)
            return &entry;
    }
    return nullptr;
}
