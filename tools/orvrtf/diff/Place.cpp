#include "Place.h"

#include "Messages.h"

#include <QStringList>

Place Place::within(Kind kind, int number) const
{
    Place place(*this);
    place.m_steps.append({kind, number});
    return place;
}

QString Place::shown(const Step& step)
{
    switch (step.kind) {
    case Table: return Messages::tr("table %1").arg(step.number);
    case Row: return Messages::tr("row %1").arg(step.number);
    case Column: return Messages::tr("column %1").arg(step.number);
    case Footnote: return Messages::tr("footnote %1").arg(step.number);
    case Endnote: return Messages::tr("endnote %1").arg(step.number);
    case Comment: return Messages::tr("comment %1").arg(step.number);
    case Picture: return Messages::tr("picture %1").arg(step.number);
    default: return Messages::tr("paragraph %1").arg(step.number);
    }
}

QString Place::shown(int from, int end) const
{
    QStringList texts;
    for (int i = from; i < end; ++i)
        texts << shown(m_steps.at(i));
    return texts.join(QLatin1String(", "));
}

QString Place::shown() const
{
    return m_steps.isEmpty() ? Messages::tr("document") : shown(0, int(m_steps.size()));
}

/*! What both begin with is named once. */
QString Place::shownTo(const Place& last) const
{
    if (*this == last)
        return shown();
    int common = 0;
    while (common < m_steps.size() - 1 && common < last.m_steps.size() - 1
           && m_steps.at(common) == last.m_steps.at(common))
        ++common;
    const bool isInOneText = common == m_steps.size() - 1 && m_steps.size() == last.m_steps.size();
    if (isInOneText && m_steps.last().kind == Paragraph && last.m_steps.last().kind == Paragraph)
        return QStringList{
            shown(0, common),
            Messages::tr("paragraphs %1–%2").arg(m_steps.last().number).arg(last.m_steps.last().number)}
            .join(common > 0 ? QStringLiteral(", ") : QString());
    return Messages::tr("%1 to %2").arg(shown(), last.shown(common, int(last.m_steps.size())));
}
