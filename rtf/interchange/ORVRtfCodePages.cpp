#include "ORVRtfCodePages_p.h"

#include "ORVTextRtfCommon.h"

#include <QtCore/QString>

namespace {

struct CodecName {
    int codePage;
    const char* name;
};

const CodecName codecNames[] = {{437, "ibm-437"},           {708, "iso-8859-6"},
                                {720, "ibm-720_P100-1997"}, {737, "ibm-737"},
                                {775, "ibm-775"},           {850, "ibm-850"},
                                {852, "ibm-852"},           {855, "ibm-855"},
                                {857, "ibm-857"},           {860, "ibm-860"},
                                {861, "ibm-861"},           {862, "ibm-862"},
                                {863, "ibm-863"},           {864, "ibm-864"},
                                {865, "ibm-865"},           {866, "ibm-866"},
                                {874, "windows-874"},       {932, "windows-932"},
                                {936, "windows-936"},       {949, "windows-949"},
                                {950, "windows-950"},       {1250, "windows-1250"},
                                {1251, "windows-1251"},     {1252, "windows-1252"},
                                {1253, "windows-1253"},     {1254, "windows-1254"},
                                {1255, "windows-1255"},     {1256, "windows-1256"},
                                {1257, "windows-1257"},     {1258, "windows-1258"},
                                {10000, "macintosh"},       {10006, "x-mac-greek"},
                                {10007, "x-mac-cyrillic"},  {10029, "x-mac-centraleurroman"},
                                {10081, "x-mac-turkish"},   {ORVRtfCodePages::utf8, "UTF-8"}};

struct Relative {
    int codePage;
    int relative;
};

// Pages of the Macintosh that no codec knows, and the pages of Windows for the same languages.
const Relative relatives[] = {{10001, 932},  {10002, 950},  {10003, 949}, {10008, 936},
                              {10004, 1256}, {10005, 1255}, {10021, 874}};

struct Suffix {
    const char* suffix;
    int codePage;
};

// Windows 3.1 and 95 had a font for each of its languages, told apart by these ends of their names.
const Suffix suffixes[] = {{" CE", 1250},       {" Cyr", 1251},          {" Greek", 1253},
                           {" Tur", 1254},      {" Baltic", 1257},       {" (Hebrew)", 1255},
                           {" (Arabic)", 1256}, {" (Vietnamese)", 1258}, {" (Thai)", 874}};

} // namespace

int ORVRtfCodePages::ofCharset(int charset)
{
    const int defaultCharset = 1;
    const int codePage = ORVTextRtfCommon::charSetToCodePage(charset);
    if (charset == defaultCharset || (charset != 0 && codePage == latin1Windows))
        return unknown;
    return codePage;
}

int ORVRtfCodePages::ofFontName(const QString& name)
{
    for (const Suffix& row : suffixes) {
        if (name.endsWith(QLatin1String(row.suffix), Qt::CaseInsensitive))
            return row.codePage;
    }
    return unknown;
}

int ORVRtfCodePages::supported(int codePage)
{
    for (const Relative& row : relatives) {
        if (row.codePage == codePage)
            return row.relative;
    }
    return codePage == symbols || codecName(codePage) ? codePage : unknown;
}

const char* ORVRtfCodePages::codecName(int codePage)
{
    for (const CodecName& row : codecNames) {
        if (row.codePage == codePage)
            return row.name;
    }
    return nullptr;
}
