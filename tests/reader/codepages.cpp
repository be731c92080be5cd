#include "testsupport.h"

#include <map>

namespace {

/*! Code page 1252 from 0x80 to 0x9F as the library has it; 0 where there is no character. */
const ushort upperControls[32] = {
    0x20AC, 0x0000, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x0000, 0x017D, 0x0000, // 88
    0x0000, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90
    0x20DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x0000, 0x017E, 0x0178 // 98
};

ushort expectedCharacter(int byte)
{
    return byte >= 0x80 && byte <= 0x9F ? upperControls[byte - 0x80] : ushort(byte);
}

} // namespace

class TestCodePages : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(charSetToCodePage)
    {
        const Rows add([](int charset, int codePage) {
            QCOMPARE(ORVTextRtfCommon::charSetToCodePage(charset), codePage);
        });
        const int table[][2] = {{0, 1252},   {1, 0},      {2, 42},     {77, 10000}, {78, 10001}, {79, 10003},
                                {80, 10008}, {81, 10002}, {83, 10005}, {84, 10004}, {85, 10006}, {86, 10081},
                                {87, 10021}, {88, 10029}, {89, 10007}, {128, 932},  {129, 949},  {130, 1361},
                                {134, 936},  {136, 950},  {161, 1253}, {162, 1254}, {163, 1258}, {177, 1255},
                                {178, 1256}, {186, 1257}, {204, 1251}, {222, 874},  {238, 1250}, {254, 437},
                                {255, 850}};
        for (const auto& row : table)
            add(QByteArray::number(row[0]), row[0], row[1]);
        for (int charset : {3, 76, 82, 90, 127, 131, 135, 1252, -1, 256, 1251, 0x7FFFFFFF, -0x7FFFFFFF})
            add(QByteArray::number(charset), charset, 1252);
    }

    void otherCharSetsAre1252()
    {
        int others = 0;
        for (int charset = -300; charset <= 600; ++charset)
            others += ORVTextRtfCommon::charSetToCodePage(charset) != 1252;
        QCOMPARE(others, 30);
    }

    void everyByteOf1252()
    {
        for (int byte = 0; byte < 256; ++byte) {
            const char c = char(uchar(byte));
            QVERIFY2(ORVTextRtfCommon::unicodeFromAnsi1252(&c) == expectedCharacter(byte),
                     QByteArray::number(byte, 16).constData());
        }
    }

    void everyUnitTo1252()
    {
        std::map<int, int> bytes;
        for (int byte = 0x80; byte < 256; ++byte) {
            if (expectedCharacter(byte) != 0)
                bytes[expectedCharacter(byte)] = byte;
        }
        QCOMPARE(int(bytes.size()), 123);
        for (int unit = 0; unit <= 0xFFFF; ++unit) {
            const int expected = bytes.count(unit) ? bytes[unit] : 63;
            QVERIFY2(ORVTextRtfCommon::unicodeToAnsi1252(ushort(unit)) == expected,
                     QByteArray::number(unit, 16).constData());
        }
    }

    ORV_ROWS(codePageLength)
    {
        const Rows add([](int codePage, int length) {
            QCOMPARE(ORVTextRtfCommon::codePageLen(codePage), length);
            QCOMPARE(ORVTextRtfCommon::codePageDefaultChar(codePage), QChar('?'));
        });
        add("1252", 1252, 1);
        for (int codePage :
             {-1, 0, 42, 437, 850, 874, 932, 936, 949, 950, 1250, 1251, 1253, 1361, 10000, 65001})
            add(QByteArray::number(codePage), codePage, 0);
    }

    void everyFontIsWrittenAs1252()
    {
        QFont font;
        QCOMPARE(ORVTextRtfCommon::fontCharset(font), 1252);
        font.setFamily("Symbol"_s);
        QCOMPARE(ORVTextRtfCommon::fontCharset(font), 1252);
    }

    ORV_ROWS(unicodeFromAnsi)
    {
        const Rows add([](const QByteArray& bytes, int codePage, int length, int defaultUnit, int expected) {
            const QChar character = ORVTextRtfCommon::unicodeFromAnsi(bytes.constData(), uint(codePage),
                                                                      length, QChar(ushort(defaultUnit)));
            QCOMPARE(int(character.unicode()), expected);
        });
        add("ASCII", "A", 1252, 1, 0, 0x41);
        add("euro sign", "\x80", 1252, 1, 0, 0x20AC);
        add("e acute", "\xE9", 1252, 1, 0, 0xE9);
        add("only the first byte", "\xE9\x80", 1252, 2, 0, 0xE9);
        add("length 0", "\xE9", 1252, 0, 0, 0xE9);
        add("undefined byte", "\x81", 1252, 1, 0, 0);
        add("no default in 1252", "\x81", 1252, 1, int('x'), 0);
        add("1251", "\xE9", 1251, 1, 0, int('?'));
        add("1251 with a default", "\xE9", 1251, 1, 0x2022, 0x2022);
        add("ASCII in 1251", "A", 1251, 1, 0, int('?'));
        add("two bytes in 932", "\x82\xA0", 932, 2, 0, int('?'));
        add("code page 0", "A", 0, 1, 0, int('?'));
    }

    ORV_ROWS(multiByteIsNeverWritten)
    {
        const Rows add([](int unit, int codePage, int defaultUnit, int expected) {
            const auto halves = ORVTextRtfCommon::unicodeToMultiByte(QChar(ushort(unit)), uint(codePage), 2,
                                                                     QChar(ushort(defaultUnit)));
            QCOMPARE(int(halves.first), expected);
            QCOMPARE(int(halves.second), expected);
        });
        add("1252", 0xE9, 1252, 0, int('?'));
        add("ASCII", int('A'), 1252, 0, int('?'));
        add("932", 0x3042, 932, 0, int('?'));
        add("default character", 0x3042, 932, 0x2022, 0x2022);
    }
};

ORV_TEST("codepages", TestCodePages, QCoreApplication)
#include "codepages.moc"
