#include "LabelComparison.h"

#include "Facts.h"

namespace {

const int levelCount = 16;

/*! The part of \a label that does not depend on numbers: its signs, and the kinds of its numbers. */
QString pattern(const QString& label)
{
    QString pattern;
    for (const QChar character : label) {
        QChar sign = character;
        if (character.isDigit())
            sign = QLatin1Char('0');
        else if (character.isLetter())
            sign = character.isLower() ? QLatin1Char('a') : QLatin1Char('A');
        const bool isNumber = sign != character || character.isLetterOrNumber();
        if (!isNumber || !pattern.endsWith(sign))
            pattern += sign;
    }
    return pattern;
}

FactList labelFacts(const ORVTextListLabels::Label& label, bool hasText)
{
    FactList facts;
    if (label.list < 0)
        return facts;
    if (hasText && !label.text.isEmpty())
        facts.append({Facts::Label, FactValue().quoted(label.text)});
    facts.append({Facts::LabelLevel, FactValue().number(label.level + 1)});
    if (label.text.isEmpty())
        return facts;
    const char* const follows[] = {QT_TRANSLATE_NOOP("orvrtf", "tab"), QT_TRANSLATE_NOOP("orvrtf", "space"),
                                   QT_TRANSLATE_NOOP("orvrtf", "nothing")};
    const Qt::AlignmentFlag alignments[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    facts.append({Facts::LabelFollow, FactValue().word(follows[qBound(0, int(label.follow), 2)])});
    facts.append({Facts::LabelJustification,
                  FactValue().alignment(alignments[qBound(0, int(label.justification), 2)])});
    return facts;
}

} // namespace

bool LabelComparison::followsFromOthers(const Label& before, const Label& after) const
{
    if (before.list < 0 || after.list < 0 || pattern(before.text) != pattern(after.text))
        return false;
    const QVector<int> shifts = m_shifts.value({before.list, after.list});
    const int level = before.level;
    if (shifts.value(level) != after.number - before.number)
        return false;
    for (int i = 0; i <= level; ++i) {
        if (shifts.value(i) != 0)
            return true;
    }
    return false;
}

QStringList LabelComparison::changes(const Label& before, const Label& after)
{
    const bool isOfOthers =
        before.text != after.text && before.level == after.level && followsFromOthers(before, after);
    if (before.list >= 0 && after.list >= 0 && before.level == after.level && before.level < levelCount) {
        QVector<int>& shifts = m_shifts[{before.list, after.list}];
        shifts.resize(levelCount);
        shifts[before.level] = after.number - before.number;
    }
    return Facts::changes(labelFacts(before, !isOfOthers), labelFacts(after, !isOfOthers));
}
