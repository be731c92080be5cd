#include "Facts.h"

#include "Messages.h"

#include <cmath>

namespace {

// In points: a twip, and what is lost in calculating with it.
const double equalLength = 0.06;
// A share of the page of that is about a twip.
const double equalPercent = 0.05;

// In the order of Facts::Property.
const char* const propertyNames[] = {
    QT_TRANSLATE_NOOP("orvrtf", "font"),
    QT_TRANSLATE_NOOP("orvrtf", "size"),
    QT_TRANSLATE_NOOP("orvrtf", "bold"),
    QT_TRANSLATE_NOOP("orvrtf", "italic"),
    QT_TRANSLATE_NOOP("orvrtf", "underline"),
    QT_TRANSLATE_NOOP("orvrtf", "overline"),
    QT_TRANSLATE_NOOP("orvrtf", "strike-out"),
    QT_TRANSLATE_NOOP("orvrtf", "capitals"),
    QT_TRANSLATE_NOOP("orvrtf", "outline"),
    QT_TRANSLATE_NOOP("orvrtf", "text colour"),
    QT_TRANSLATE_NOOP("orvrtf", "text background"),
    QT_TRANSLATE_NOOP("orvrtf", "position"),
    QT_TRANSLATE_NOOP("orvrtf", "letter spacing"),
    QT_TRANSLATE_NOOP("orvrtf", "stretch"),
    QT_TRANSLATE_NOOP("orvrtf", "no kerning"),
    QT_TRANSLATE_NOOP("orvrtf", "language"),
    QT_TRANSLATE_NOOP("orvrtf", "link"),
    QT_TRANSLATE_NOOP("orvrtf", "bookmark"),
    QT_TRANSLATE_NOOP("orvrtf", "page number of"),
    QT_TRANSLATE_NOOP("orvrtf", "revision level"),
    QT_TRANSLATE_NOOP("orvrtf", "alignment"),
    QT_TRANSLATE_NOOP("orvrtf", "right-to-left"),
    QT_TRANSLATE_NOOP("orvrtf", "heading level"),
    QT_TRANSLATE_NOOP("orvrtf", "left indent"),
    QT_TRANSLATE_NOOP("orvrtf", "right indent"),
    QT_TRANSLATE_NOOP("orvrtf", "first-line indent"),
    QT_TRANSLATE_NOOP("orvrtf", "label position"),
    QT_TRANSLATE_NOOP("orvrtf", "space above"),
    QT_TRANSLATE_NOOP("orvrtf", "space below"),
    QT_TRANSLATE_NOOP("orvrtf", "line height"),
    QT_TRANSLATE_NOOP("orvrtf", "tab stops"),
    QT_TRANSLATE_NOOP("orvrtf", "background"),
    QT_TRANSLATE_NOOP("orvrtf", "border above"),
    QT_TRANSLATE_NOOP("orvrtf", "border below"),
    QT_TRANSLATE_NOOP("orvrtf", "border on the left"),
    QT_TRANSLATE_NOOP("orvrtf", "border on the right"),
    QT_TRANSLATE_NOOP("orvrtf", "ruler"),
    QT_TRANSLATE_NOOP("orvrtf", "page break before"),
    QT_TRANSLATE_NOOP("orvrtf", "page break after"),
    QT_TRANSLATE_NOOP("orvrtf", "keep with next"),
    QT_TRANSLATE_NOOP("orvrtf", "keep lines together"),
    QT_TRANSLATE_NOOP("orvrtf", "no space between equal styles"),
    QT_TRANSLATE_NOOP("orvrtf", "no line breaks"),
    QT_TRANSLATE_NOOP("orvrtf", "column widths"),
    QT_TRANSLATE_NOOP("orvrtf", "table width"),
    QT_TRANSLATE_NOOP("orvrtf", "header rows"),
    QT_TRANSLATE_NOOP("orvrtf", "cell spacing"),
    QT_TRANSLATE_NOOP("orvrtf", "padding above"),
    QT_TRANSLATE_NOOP("orvrtf", "padding below"),
    QT_TRANSLATE_NOOP("orvrtf", "padding on the left"),
    QT_TRANSLATE_NOOP("orvrtf", "padding on the right"),
    QT_TRANSLATE_NOOP("orvrtf", "vertical alignment"),
    QT_TRANSLATE_NOOP("orvrtf", "rows of the cell"),
    QT_TRANSLATE_NOOP("orvrtf", "columns of the cell"),
    QT_TRANSLATE_NOOP("orvrtf", "width"),
    QT_TRANSLATE_NOOP("orvrtf", "height"),
    QT_TRANSLATE_NOOP("orvrtf", "formula"),
    QT_TRANSLATE_NOOP("orvrtf", "label"),
    QT_TRANSLATE_NOOP("orvrtf", "list level"),
    QT_TRANSLATE_NOOP("orvrtf", "behind the label"),
    QT_TRANSLATE_NOOP("orvrtf", "label alignment"),
    QT_TRANSLATE_NOOP("orvrtf", "mark"),
    QT_TRANSLATE_NOOP("orvrtf", "author"),
    QT_TRANSLATE_NOOP("orvrtf", "date"),
    QT_TRANSLATE_NOOP("orvrtf", "page size"),
    QT_TRANSLATE_NOOP("orvrtf", "left margin"),
    QT_TRANSLATE_NOOP("orvrtf", "right margin"),
    QT_TRANSLATE_NOOP("orvrtf", "top margin"),
    QT_TRANSLATE_NOOP("orvrtf", "bottom margin"),
    QT_TRANSLATE_NOOP("orvrtf", "tab distance"),
    QT_TRANSLATE_NOOP("orvrtf", "no header and footer on the first page"),
    QT_TRANSLATE_NOOP("orvrtf", "first page number"),
    QT_TRANSLATE_NOOP("orvrtf", "look of the header"),
    QT_TRANSLATE_NOOP("orvrtf", "look of the footer"),
};

static_assert(sizeof(propertyNames) / sizeof(propertyNames[0]) == Facts::PropertyCount,
              "each property has a name");

QString shownNumber(double number)
{
    // Up to a hundredth: a twip is a twentieth of a point. Without digits that have no meaning.
    QString text = QString::number(number, 'f', 2);
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

bool areClose(double first, double second, double difference)
{
    // Documents can have any number, also none.
    return first == second || std::fabs(first - second) <= difference
        || (std::isnan(first) && std::isnan(second));
}

/*! A property with another value than before; null where it is not stated. */
struct ChangedFact {
    int property;
    const FactValue* before;
    const FactValue* after;
};

bool areEqual(const FactValue* one, const FactValue* other)
{
    return one && other ? *one == *other : one == other;
}

QString described(const QString& name, const ChangedFact& fact)
{
    const FactValue& value = fact.before ? *fact.before : *fact.after;
    if (value.isEmpty())
        return (fact.before ? Messages::tr("%1 removed") : Messages::tr("%1 added")).arg(name);
    return Facts::change(name, fact.before ? fact.before->shown() : QString(),
                         fact.after ? fact.after->shown() : QString());
}

/*! Properties of the four sides of something. */
struct Sides {
    int first;
    const char* name;
};

const Sides allSides[] = {
    {Facts::BorderAbove, QT_TRANSLATE_NOOP("orvrtf", "borders")},
    {Facts::PaddingAbove, QT_TRANSLATE_NOOP("orvrtf", "padding")},
};
const int sideCount = 4;

/*! The name of the sides that the facts from \a index on are about, if all of them have the same change. */
const char* commonSides(const QVector<ChangedFact>& changed, int index)
{
    for (const Sides& sides : allSides) {
        if (changed.at(index).property != sides.first || index + sideCount > changed.size())
            continue;
        for (int side = 1; side < sideCount; ++side) {
            const ChangedFact& fact = changed.at(index + side);
            if (fact.property != sides.first + side || !areEqual(fact.before, changed.at(index).before)
                || !areEqual(fact.after, changed.at(index).after))
                return nullptr;
        }
        return sides.name;
    }
    return nullptr;
}

QStringList described(const QVector<ChangedFact>& changed)
{
    QStringList changes;
    for (int i = 0; i < changed.size(); ++i) {
        const char* const sides = commonSides(changed, i);
        changes << described(Messages::tr(sides ? sides : propertyNames[changed.at(i).property]),
                             changed.at(i));
        if (sides)
            i += sideCount - 1;
    }
    return changes;
}

} // namespace

FactValue& FactValue::word(const char* word)
{
    m_parts.append({Word, QString::fromLatin1(word), 0});
    return *this;
}

FactValue& FactValue::text(const QString& text)
{
    m_parts.append({Text, text, 0});
    return *this;
}

FactValue& FactValue::quoted(const QString& text)
{
    m_parts.append({Quoted, text, 0});
    return *this;
}

FactValue& FactValue::points(double points)
{
    m_parts.append({Points, QString(), points});
    return *this;
}

FactValue& FactValue::percent(double percent)
{
    m_parts.append({Percent, QString(), percent});
    return *this;
}

FactValue& FactValue::number(int number)
{
    return text(QString::number(number));
}

FactValue& FactValue::color(const QColor& color)
{
    if (!color.isValid())
        return text(QColor(Qt::black).name());
    return text(color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb));
}

FactValue& FactValue::alignment(Qt::Alignment alignment, bool isMirrored)
{
    if (alignment & Qt::AlignHCenter)
        return word(QT_TRANSLATE_NOOP("orvrtf", "centred"));
    if (alignment & Qt::AlignJustify)
        return word(QT_TRANSLATE_NOOP("orvrtf", "justified"));
    const bool isRight = (alignment & Qt::AlignRight) != 0;
    return word(isRight != isMirrored ? QT_TRANSLATE_NOOP("orvrtf", "right")
                                      : QT_TRANSLATE_NOOP("orvrtf", "left"));
}

bool FactValue::operator==(const FactValue& other) const
{
    if (m_parts.size() != other.m_parts.size())
        return false;
    for (int i = 0; i < m_parts.size(); ++i) {
        const Part& part = m_parts.at(i);
        const Part& counterpart = other.m_parts.at(i);
        if (part.kind != counterpart.kind || part.text != counterpart.text
            || !areClose(part.number, counterpart.number, part.kind == Percent ? equalPercent : equalLength))
            return false;
    }
    return true;
}

QString FactValue::shown() const
{
    QStringList texts;
    for (const Part& part : m_parts) {
        switch (part.kind) {
        case Word: texts << Messages::tr(part.text.toLatin1().constData()); break;
        case Text: texts << part.text; break;
        case Quoted: texts << Messages::tr("\"%1\"").arg(part.text); break;
        case Points: texts << Messages::tr("%1 pt").arg(shownNumber(part.number)); break;
        case Percent: texts << Messages::tr("%1 %").arg(shownNumber(part.number)); break;
        }
    }
    return texts.join(QLatin1Char(' '));
}

QString Facts::change(const QString& name, const QString& before, const QString& after)
{
    if (before.isEmpty())
        return after.isEmpty() ? name : Messages::tr("%1 %2 added").arg(name, after);
    if (after.isEmpty())
        return Messages::tr("%1 %2 removed").arg(name, before);
    return Messages::tr("%1 %2 → %3").arg(name, before, after);
}

QStringList Facts::changes(const FactList& before, const FactList& after)
{
    QVector<ChangedFact> changed;
    int i = 0;
    int j = 0;
    while (i < before.size() || j < after.size()) {
        const int first = i < before.size() ? before.at(i).property : int(PropertyCount);
        const int second = j < after.size() ? after.at(j).property : int(PropertyCount);
        const FactValue* const old = first <= second ? &before.at(i).value : nullptr;
        const FactValue* const now = second <= first ? &after.at(j).value : nullptr;
        if (!old || !now || !(*old == *now))
            changed.append({qMin(first, second), old, now});
        i += old ? 1 : 0;
        j += now ? 1 : 0;
    }
    return described(changed);
}

FactList Facts::only(const FactList& facts, const QVector<int>& properties)
{
    FactList result;
    for (const Fact& fact : facts) {
        if (properties.contains(fact.property))
            result.append(fact);
    }
    return result;
}
