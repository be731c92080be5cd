#include "ORVEastAsianNumber_p.h"

#include "ORVTextListLevel.h"

namespace {

struct Sequence {
    ORVTextListLevel::Kind kind;
    const char* signs;
};

const Sequence sequences[] = {
    {ORVTextListLevel::KatakanaAiueo,
     "アイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワヲン"},
    {ORVTextListLevel::KatakanaIroha,
     "イロハニホヘトチリヌルヲワカヨタレソツネナラムウヰノオクヤマケフコエテアサキユメミシヱヒモセスン"},
    {ORVTextListLevel::HangulSyllable, "가나다라마바사아자차카타파하"},
    {ORVTextListLevel::HangulConsonant, "ㄱㄴㄷㄹㅁㅂㅅㅇㅈㅊㅋㅌㅍㅎ"},
    {ORVTextListLevel::HeavenlyStem, "甲乙丙丁戊己庚辛壬癸"},
    {ORVTextListLevel::EarthlyBranch, "子丑寅卯辰巳午未申酉戌亥"},
};

const int circledNumbers = 20;
const ushort circledOne = 0x2460;
const int largestCountingNumber = 9999;
const char digits[] = "〇一二三四五六七八九";
// Behind the digits of a number, from the last one on.
const char places[] = "千百十";

QString digitText(int number)
{
    const QString signs = QString::fromUtf8(digits);
    QString text;
    const QString decimal = QString::number(number);
    for (const QChar& digit : decimal)
        text += signs.at(digit.digitValue());
    return text;
}

/*! A one in front of ten, hundred or thousand is not written. */
QString countingText(int number)
{
    const QString signs = QString::fromUtf8(digits);
    const QString placeSigns = QString::fromUtf8(places);
    QString text;
    int divisor = 1000;
    for (const QChar& place : placeSigns) {
        const int digit = number / divisor % 10;
        if (digit > 1)
            text += signs.at(digit);
        if (digit > 0)
            text += place;
        divisor /= 10;
    }
    if (number % 10 > 0)
        text += signs.at(number % 10);
    return text;
}

} // namespace

QString ORVEastAsianNumber::text(unsigned kind, int number)
{
    if (number < 1)
        return QString();
    for (const Sequence& sequence : sequences) {
        if (unsigned(sequence.kind) == kind) {
            const QString signs = QString::fromUtf8(sequence.signs);
            return QString(signs.at((number - 1) % int(signs.size())));
        }
    }
    switch (kind) {
    case ORVTextListLevel::Circled:
        return number > circledNumbers ? QString() : QString(QChar(ushort(circledOne + number - 1)));
    case ORVTextListLevel::IdeographDigit: return digitText(number);
    case ORVTextListLevel::IdeographCounting:
        return number > largestCountingNumber ? QString() : countingText(number);
    default: return QString();
    }
}
