#include "ORVHtmlDeclarations_p.h"

#include "ORVHtmlOutput_p.h"
#include "ORVTextBorder.h"

#include <QtCore/QString>
#include <QtGui/QColor>

#include <cmath>

namespace {

struct PropertyName {
    const char* name;
    // What undoes the value of another rule.
    const char* initial;
    bool isStructure;
};

// In the order of ORVHtmlDeclarations::Property.
const PropertyName propertyNames[] = {
    {"font-family", "inherit", false}, {"font-size", "inherit", false},
    {"font-weight", "normal", false},  {"font-style", "normal", false},
    {"font-stretch", "normal", false}, {"font-variant", "normal", false},
    {"text-transform", "none", false}, {"letter-spacing", "normal", false},
    {"color", "inherit", false},       {"background-color", "transparent", false},
    {"text-decoration", "none", true}, {"vertical-align", "baseline", false},
    {"text-align", "start", true},     {"text-indent", "0", false},
    {"line-height", "normal", false},  {"white-space", "normal", true},
    {"width", "auto", false},          {"margin", "0", false},
    {"margin-top", "0", false},        {"padding", "0", false},
    {"border", "none", true},          {"border-top", "none", true},
    {"border-right", "none", true},    {"border-bottom", "none", true},
    {"border-left", "none", true},     {"border-collapse", "separate", true},
    {"border-spacing", "0", false},    {"list-style-type", "inherit", true},
    {"break-before", "auto", true},    {"break-after", "auto", true},
};
// The largest length: more than any page has, and short as text.
const double largest = 1e6;

static_assert(sizeof(propertyNames) / sizeof(propertyNames[0]) == ORVHtmlDeclarations::PropertyCount,
              "each property has a name");

} // namespace

void ORVHtmlDeclarations::merge(const ORVHtmlDeclarations& other)
{
    for (int i = 0; i < PropertyCount; ++i) {
        if (!other.m_values[i].isEmpty())
            m_values[i] = other.m_values[i];
    }
}

bool ORVHtmlDeclarations::isEmpty() const
{
    for (const QByteArray& value : m_values) {
        if (!value.isEmpty())
            return false;
    }
    return true;
}

ORVHtmlDeclarations ORVHtmlDeclarations::structure() const
{
    ORVHtmlDeclarations result;
    for (int i = 0; i < PropertyCount; ++i) {
        if (propertyNames[i].isStructure)
            result.m_values[i] = m_values[i];
    }
    return result;
}

QByteArray ORVHtmlDeclarations::css(const ORVHtmlDeclarations& base) const
{
    QByteArray css;
    for (int i = 0; i < PropertyCount; ++i) {
        const QByteArray& value = m_values[i];
        if (value == base.m_values[i] || i == NeighborMargin)
            continue;
        // The line around all sides replaces those of single ones.
        const bool isSide = i >= BorderTop && i <= BorderLeft;
        if (isSide && value.isEmpty() && !m_values[Border].isEmpty())
            continue;
        if (!css.isEmpty())
            css += "; ";
        css += propertyNames[i].name;
        css += ": ";
        css += value.isEmpty() ? QByteArray(propertyNames[i].initial) : value;
    }
    return css;
}

QByteArray ORVHtmlDeclarations::automatic(Property property)
{
    return property == Color ? "black" : propertyNames[property].initial;
}

QByteArray ORVHtmlDeclarations::length(double value, const char* unit)
{
    // Documents can have any number, also those that CSS has no notation for.
    QByteArray number = QByteArray::number(std::isnan(value) ? 0 : qBound(-largest, value, largest), 'f', 2);
    while (number.endsWith('0'))
        number.chop(1);
    if (number.endsWith('.'))
        number.chop(1);
    return number == "0" || number == "-0" ? QByteArray("0") : number + unit;
}

QByteArray ORVHtmlDeclarations::sides(double top, double right, double bottom, double left)
{
    const QByteArray values[] = {length(top), length(right), length(bottom), length(left)};
    int count = 4;
    if (values[3] == values[1])
        count = values[2] != values[0] ? 3 : values[1] != values[0] ? 2 : 1;
    QByteArray result = values[0];
    for (int i = 1; i < count; ++i)
        result += ' ' + values[i];
    return result == "0" ? QByteArray() : result;
}

QByteArray ORVHtmlDeclarations::color(const QColor& color)
{
    if (color.alpha() == 255)
        return color.name().toLatin1();
    return QStringLiteral("rgba(%1, %2, %3, %4)")
        .arg(color.red())
        .arg(color.green())
        .arg(color.blue())
        .arg(color.alphaF(), 0, 'g', 3)
        .toLatin1();
}

QByteArray ORVHtmlDeclarations::border(const ORVTextBorder& border)
{
    static const char* const names[] = {"none",   "dotted", "dashed", "solid", "double", "dashed",
                                        "dashed", "groove", "ridge",  "inset", "outset"};
    if (!border.isVisible())
        return QByteArray();
    QByteArray value = length(border.width) + ' ' + names[qBound(0, int(border.style), 10)];
    if (border.color.isValid())
        value += ' ' + ORVHtmlDeclarations::color(border.color);
    return value;
}

QByteArray ORVHtmlDeclarations::string(const QString& text)
{
    QString result;
    for (const QChar character : text) {
        // A style element ends with "</", and a string with the end of the line.
        if (character == QLatin1Char('"') || character == QLatin1Char('\\') || character == QLatin1Char('<')
            || character.unicode() < 0x20 || !ORVHtmlOutput::isAllowed(character))
            result += QLatin1Char('\\') + QString::number(character.unicode(), 16) + QLatin1Char(' ');
        else
            result += character;
    }
    return '"' + result.toUtf8() + '"';
}
