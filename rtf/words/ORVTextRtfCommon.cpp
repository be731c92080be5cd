#include "ORVTextRtfCommon.h"

#include "QtStringCompat_p.h"

#include <QtCore/QMap>
#include <QtGui/QColor>

#include <cstring>
#include <mutex>

static_assert(ORVTextRtfCommon::KeyWordCount == 237, "a control word was added or lost");

QHash<ORVTextRtfCommon::KeyWord, QLatin1String> ORVTextRtfCommon::mMap;
QMultiHash<unsigned int, ORVTextRtfCommon::KeyWord> ORVTextRtfCommon::mHash;

const int ORVTextRtfCommon::KeyWordCount;
const int ORVTextRtfCommon::defaultPaperWidth;
const int ORVTextRtfCommon::defaultPaperHeight;
const int ORVTextRtfCommon::defaultLeftMargin;
const int ORVTextRtfCommon::defaultRightMargin;
const int ORVTextRtfCommon::defaultTopMargin;
const int ORVTextRtfCommon::defaultBottomMargin;

const ORVTextRtfCommon::QuotePair ORVTextRtfCommon::defaultSingleQuotes(QChar(0x2018), QChar(0x2019));
const ORVTextRtfCommon::QuotePair ORVTextRtfCommon::defaultDoubleQuotes(QChar(0x201C), QChar(0x201D));

const QColor ORVTextRtfCommon::firstRevisionColor(Qt::red);
const QColor ORVTextRtfCommon::secondRevisionColor(Qt::blue);
const QColor ORVTextRtfCommon::thirdRevisionColor(Qt::green);
const QColor ORVTextRtfCommon::fourthRevisionColor(QLatin1String("orange"));
const QColor ORVTextRtfCommon::fifthRevisionColor(QLatin1String("purple"));

namespace {

std::once_flag mapBuilt;
std::once_flag hashBuilt;

const int codePage1252 = 1252;
const char fallbackCharacter = '?';

/*
    Windows-1252 from byte 0x80 on. Bytes without a character are 0. Byte 0x98 stands for the combining
    U+20DC, not for U+02DC as in the published table: files in the field were written with it, and reading
    and writing must agree.
*/
const ushort ansicpg1252[128] = {0x20AC, 0x0000, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, //
                                 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x0000, 0x017D, 0x0000, //
                                 0x0000, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, //
                                 0x20DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x0000, 0x017E, 0x0178, //
                                 0x00A0, 0x00A1, 0x00A2, 0x00A3, 0x00A4, 0x00A5, 0x00A6, 0x00A7, //
                                 0x00A8, 0x00A9, 0x00AA, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x00AF, //
                                 0x00B0, 0x00B1, 0x00B2, 0x00B3, 0x00B4, 0x00B5, 0x00B6, 0x00B7, //
                                 0x00B8, 0x00B9, 0x00BA, 0x00BB, 0x00BC, 0x00BD, 0x00BE, 0x00BF, //
                                 0x00C0, 0x00C1, 0x00C2, 0x00C3, 0x00C4, 0x00C5, 0x00C6, 0x00C7, //
                                 0x00C8, 0x00C9, 0x00CA, 0x00CB, 0x00CC, 0x00CD, 0x00CE, 0x00CF, //
                                 0x00D0, 0x00D1, 0x00D2, 0x00D3, 0x00D4, 0x00D5, 0x00D6, 0x00D7, //
                                 0x00D8, 0x00D9, 0x00DA, 0x00DB, 0x00DC, 0x00DD, 0x00DE, 0x00DF, //
                                 0x00E0, 0x00E1, 0x00E2, 0x00E3, 0x00E4, 0x00E5, 0x00E6, 0x00E7, //
                                 0x00E8, 0x00E9, 0x00EA, 0x00EB, 0x00EC, 0x00ED, 0x00EE, 0x00EF, //
                                 0x00F0, 0x00F1, 0x00F2, 0x00F3, 0x00F4, 0x00F5, 0x00F6, 0x00F7, //
                                 0x00F8, 0x00F9, 0x00FA, 0x00FB, 0x00FC, 0x00FD, 0x00FE, 0x00FF};

struct CharSetRow {
    int charset;
    int codePage;
};

const CharSetRow charSets[] = {
    {1, 0},      {2, 42}, //
    {77, 10000}, {78, 10001}, {79, 10003}, {80, 10008}, {81, 10002}, {83, 10005}, //
    {84, 10004}, {85, 10006}, {86, 10081}, {87, 10021}, {88, 10029}, {89, 10007}, //
    {128, 932},  {129, 949},  {130, 1361}, {134, 936},  {136, 950}, //
    {161, 1253}, {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257}, //
    {204, 1251}, {222, 874},  {238, 1250}, {254, 437},  {255, 850}};

QMap<short, int> reversedAnsicpg1252()
{
    QMap<short, int> bytes;
    for (int i = 0; i < 128; ++i) {
        if (ansicpg1252[i])
            bytes.insert(short(ansicpg1252[i]), i + 128);
    }
    return bytes;
}

QChar orFallback(QChar character)
{
    return character.isNull() ? QChar(ushort(fallbackCharacter)) : character;
}

} // namespace

ORVTextRtfCommon::ORVTextRtfCommon()
{
    initHash();
}

ORVTextRtfCommon::~ORVTextRtfCommon() { }

void ORVTextRtfCommon::initMap()
{
    std::call_once(mapBuilt, [] {
        mMap.reserve(KeyWordCount);
#define ORV_INSERT_ROW(name, spelling) mMap.insert(name, QLatin1String(spelling));
        ORV_RTF_KEYWORDS(ORV_INSERT_ROW)
#undef ORV_INSERT_ROW
    });
}

void ORVTextRtfCommon::initHash()
{
    std::call_once(hashBuilt, [] {
        initMap();
        mHash.reserve(KeyWordCount);
        for (QHash<KeyWord, QLatin1String>::const_iterator row = mMap.constBegin(); row != mMap.constEnd();
             ++row)
            mHash.insert(hash(row.value().latin1(), unsigned(compat::length(row.value()))), row.key());
    });
}

unsigned int ORVTextRtfCommon::hash(const char* s, unsigned int len)
{
    unsigned int sum = len << 16;
    for (unsigned int i = 0; i < len; ++i)
        sum += unsigned(int(static_cast<signed char>(s[i])));
    return sum;
}

ORVTextRtfCommon::KeyWord ORVTextRtfCommon::fromLatin1(const char* s, unsigned int len)
{
    const unsigned int key = hash(s, len);
    for (QMultiHash<unsigned int, KeyWord>::const_iterator candidate = mHash.constFind(key);
         candidate != mHash.constEnd() && candidate.key() == key; ++candidate) {
        if (std::strncmp(s, toLatin1(candidate.value()).latin1(), len) == 0)
            return candidate.value();
    }
    return NoKeyWord;
}

QLatin1String ORVTextRtfCommon::toLatin1(KeyWord keyWord)
{
    return mMap.value(keyWord, QLatin1String(static_cast<const char*>(nullptr)));
}

int ORVTextRtfCommon::charSetToCodePage(int charset)
{
    for (const CharSetRow& row : charSets) {
        if (row.charset == charset)
            return row.codePage;
    }
    return codePage1252;
}

int ORVTextRtfCommon::codePageLen(int codePage)
{
    return codePage == codePage1252 ? 1 : 0;
}

QChar ORVTextRtfCommon::codePageDefaultChar(int codePage)
{
    Q_UNUSED(codePage)
    return QChar(ushort(fallbackCharacter));
}

int ORVTextRtfCommon::fontCharset(const QFont& font)
{
    Q_UNUSED(font)
    return codePage1252;
}

ushort ORVTextRtfCommon::unicodeFromAnsi1252(const char* byte)
{
    const uchar code = uchar(*byte);
    return code < 0x80 ? code : ansicpg1252[code - 0x80];
}

int ORVTextRtfCommon::unicodeToAnsi1252(ushort unit)
{
    static const QMap<short, int> bytes = reversedAnsicpg1252();
    return bytes.value(short(unit), fallbackCharacter);
}

QChar ORVTextRtfCommon::unicodeFromAnsi(const char* bytes, unsigned int codePage, int length,
                                        QChar defaultChar)
{
    Q_UNUSED(length)
    if (codePage == unsigned(codePage1252))
        return QChar(unicodeFromAnsi1252(bytes));
    return orFallback(defaultChar);
}

QPair<ushort, ushort> ORVTextRtfCommon::unicodeToMultiByte(const QChar& c, unsigned int codePage, int length,
                                                           QChar defaultChar)
{
    Q_UNUSED(c)
    Q_UNUSED(codePage)
    Q_UNUSED(length)
    const ushort unit = orFallback(defaultChar).unicode();
    return qMakePair(unit, unit);
}

QColor ORVTextRtfCommon::revisionColor(int level)
{
    switch (level) {
    case 1: return firstRevisionColor;
    case 2: return secondRevisionColor;
    case 3: return thirdRevisionColor;
    case 4: return fourthRevisionColor;
    case 5: return fifthRevisionColor;
    default: return QColor(Qt::black);
    }
}
