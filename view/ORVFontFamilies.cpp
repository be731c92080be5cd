#include "ORVFontFamilies_p.h"

QByteArray ORVFontFamilies::generic(const QString& family)
{
    struct Sign {
        const char* part;
        const char* generic;
    };
    static const Sign signs[] = {
        {"mono", "monospace"},     {"courier", "monospace"},  {"consolas", "monospace"},
        {"sans", "sans-serif"},    {"arial", "sans-serif"},   {"helvetica", "sans-serif"},
        {"calibri", "sans-serif"}, {"carlito", "sans-serif"}, {"verdana", "sans-serif"},
        {"tahoma", "sans-serif"},  {"segoe", "sans-serif"},   {"times", "serif"},
        {"serif", "serif"},        {"georgia", "serif"},      {"cambria", "serif"},
        {"caladea", "serif"},      {"garamond", "serif"},     {"palatino", "serif"},
        {"book", "serif"},
    };
    for (const Sign& sign : signs) {
        if (family.contains(QLatin1String(sign.part), Qt::CaseInsensitive))
            return sign.generic;
    }
    return QByteArray();
}
