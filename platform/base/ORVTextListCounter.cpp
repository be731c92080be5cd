#include "ORVTextListCounter.h"

#include "ORVTextNumber.h"

namespace {

// "%" and the digits of a level; more digits than any level has are text.
const int longestPlaceholder = 4;

/*! The end of the placeholder that begins at \a begin in \a text; \a begin when none does. */
int placeholderEnd(const QString& text, int begin)
{
    if (text.at(begin) != QLatin1Char('%'))
        return begin;
    int end = begin + 1;
    while (end < text.size() && end - begin < longestPlaceholder && text.at(end).isDigit())
        ++end;
    return end > begin + 1 ? end : begin;
}

} // namespace

int ORVTextListCounter::count(const QList<ORVTextListLevel>& levels, int level)
{
    const bool goesOn = level < m_numbers.size();
    while (m_numbers.size() <= level)
        m_numbers.append(levels.at(int(m_numbers.size())).start());
    m_numbers.resize(level + 1);
    if (goesOn)
        ++m_numbers[level];
    return m_numbers.at(level);
}

QString ORVTextListCounter::label(const QList<ORVTextListLevel>& levels, int level) const
{
    return filled(levels, level, true);
}

QString ORVTextListCounter::itemTemplate(const QList<ORVTextListLevel>& levels, int level) const
{
    return filled(levels, level, false);
}

QString ORVTextListCounter::filled(const QList<ORVTextListLevel>& levels, int level, bool fillsOwn) const
{
    const QString text = levels.at(level).text();
    QString result;
    for (int i = 0; i < text.size();) {
        const int end = placeholderEnd(text, i);
        const int above = text.mid(i + 1, end - i - 1).toInt();
        if (end == i || (above == 0 && !fillsOwn))
            result += text.mid(i, qMax(1, end - i));
        else if (above <= level)
            result += ORVTextNumber::wordProcessorText(levels.at(level - above).kind(),
                                                       m_numbers.value(level - above));
        i = qMax(i + 1, end);
    }
    return result;
}
