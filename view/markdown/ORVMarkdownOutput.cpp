#include "ORVMarkdownOutput_p.h"

#include <QtCore/QStringList>

void ORVMarkdownOutput::line(const QString& text)
{
    m_output.markup(text.toUtf8());
    m_output.markup("\n");
    m_isEmpty = false;
}

/*! Writes \a text, the first line as it stands, and the others with so many blanks in front. */
void ORVMarkdownOutput::lines(const QString& text, int indent)
{
    int from = 0;
    while (from <= text.size()) {
        int end = int(text.indexOf(QLatin1Char('\n'), from));
        if (end < 0)
            end = int(text.size());
        const QString next = text.mid(from, end - from);
        line(from == 0 || next.isEmpty() ? next : QString(indent, QLatin1Char(' ')) + next);
        from = end + 1;
    }
}

void ORVMarkdownOutput::endHead()
{
    if (m_head.isEmpty())
        return;
    if (!m_isEmpty)
        line(QString());
    line(m_head.trimmed());
    m_head.clear();
}

void ORVMarkdownOutput::block(const QString& text)
{
    if (!m_isEmpty)
        line(QString());
    const QString begin = m_head.isEmpty() ? QString(m_indent, QLatin1Char(' ')) : m_head;
    m_head.clear();
    lines(begin + text, m_indent);
}

void ORVMarkdownOutput::item(const QString& marker, const QString& text, int indent, bool isTight)
{
    if (!isTight && !m_isEmpty)
        line(QString());
    const int columns = m_indent + indent;
    lines(QString(columns, QLatin1Char(' ')) + marker + text, columns + int(marker.size()));
}
