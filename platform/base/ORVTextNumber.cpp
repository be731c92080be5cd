#include "ORVTextNumber.h"

#include "ORVEastAsianNumber_p.h"
#include "ORVTextListLevel.h"

namespace {

const int letters = 26;
// Word processors begin again with "a" behind thirty letters.
const int mostLettersOfOneKind = 30;

// Larger numbers have no roman form.
const int largestRoman = 4999;

struct RomanDigit {
    int value;
    const char* letters;
};

const RomanDigit romanDigits[] = {{1000, "m"}, {900, "cm"}, {500, "d"}, {400, "cd"}, {100, "c"},
                                  {90, "xc"},  {50, "l"},   {40, "xl"}, {10, "x"},   {9, "ix"},
                                  {5, "v"},    {4, "iv"},   {1, "i"}};

QString romanNumber(int number)
{
    if (number > largestRoman)
        return QLatin1String("?");
    QString result;
    for (const RomanDigit& digit : romanDigits) {
        for (; number >= digit.value; number -= digit.value)
            result += QLatin1String(digit.letters);
    }
    return result;
}

QChar letter(int index)
{
    return QLatin1Char(char('a' + index));
}

/*! a to z, then aa, ab and so on. */
QString letterNumber(int number)
{
    QString result;
    for (; number > 0; number = (number - 1) / letters)
        result.prepend(letter((number - 1) % letters));
    return result;
}

/*! a to z, then aa, bb and so on. */
QString repeatedLetter(int number)
{
    if (number <= 0)
        return QString();
    const int index = (number - 1) % (letters * mostLettersOfOneKind);
    return QString(index / letters + 1, letter(index % letters));
}

QString formatted(unsigned kind, int number, QString (*letterText)(int))
{
    switch (kind) {
    case ORVTextListLevel::Bullet: return QString();
    case ORVTextListLevel::LowerLetter: return letterText(number);
    case ORVTextListLevel::UpperLetter: return letterText(number).toUpper();
    case ORVTextListLevel::LowerRoman: return romanNumber(number);
    case ORVTextListLevel::UpperRoman: return romanNumber(number).toUpper();
    default: break;
    }
    const QString eastAsian = ORVEastAsianNumber::text(kind, number);
    return eastAsian.isEmpty() ? QString::number(number) : eastAsian;
}

} // namespace

QString ORVTextNumber::text(unsigned kind, int number)
{
    return formatted(kind, number, letterNumber);
}

QString ORVTextNumber::wordProcessorText(unsigned kind, int number)
{
    return formatted(kind, number, repeatedLetter);
}

int ORVTextNumber::romanValue(const QString& text)
{
    const QString lower = text.toLower();
    int value = 0;
    int read = 0;
    for (const RomanDigit& digit : romanDigits) {
        const QString letters = QLatin1String(digit.letters);
        for (; lower.mid(read, letters.size()) == letters && value <= largestRoman;
             read += int(letters.size()))
            value += digit.value;
    }
    return value <= largestRoman && romanNumber(value) == lower ? value : 0;
}
