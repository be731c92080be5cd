#include "ORVRtfListItemText_p.h"

#include "QtFormatCompat_p.h"

#include <QtGui/QTextListFormat>

namespace {

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

/*! a to z, then aa, ab and so on. */
QString letterNumber(int number)
{
    const int letters = 26;
    QString result;
    for (; number > 0; number = (number - 1) / letters)
        result.prepend(QLatin1Char(char('a' + (number - 1) % letters)));
    return result;
}

QString plainNumber(int style, int number)
{
    switch (style) {
    case QTextListFormat::ListDecimal: return QString::number(number);
    case QTextListFormat::ListLowerAlpha: return letterNumber(number);
    case QTextListFormat::ListUpperAlpha: return letterNumber(number).toUpper();
    case QTextListFormat::ListLowerRoman: return romanNumber(number);
    case QTextListFormat::ListUpperRoman: return romanNumber(number).toUpper();
    default: return QString();
    }
}

} // namespace

QString ORVRtfListItemText::itemText(const QTextListFormat& format, int number, bool isRightToLeft)
{
    const QString prefix = format.numberPrefix();
    const QString suffix = compat::numberSuffix(format);
    const QString text = plainNumber(format.style(), number);
    return isRightToLeft ? suffix + text + prefix : prefix + text + suffix;
}
