#include "ORVMarkdownTable_p.h"

#include "ORVTextColumns_p.h"

#include <QtGui/QTextTable>

namespace {

// Wider tables are not padded: their rows take up several lines of a screen anyway.
const int mostPaddedColumns = 120;

// Of the dashes between head and body.
const int leastWidth = 3;

QString padding(const QString& text, int width)
{
    return QString(qMax(0, width - ORVTextColumns::of(text)), QLatin1Char(' '));
}

} // namespace

bool ORVMarkdownTable::canHave(const QTextTable& table)
{
    if (!table.childFrames().isEmpty())
        return false;
    for (int row = 0; row < table.rows(); ++row) {
        for (int column = 0; column < table.columns(); ++column) {
            const QTextTableCell cell = table.cellAt(row, column);
            if (cell.rowSpan() > 1 || cell.columnSpan() > 1)
                return false;
        }
    }
    return true;
}

void ORVMarkdownTable::add(const QString& cell, Alignment alignment)
{
    Alignment& column = m_alignments[m_cells.size() % m_alignments.size()];
    m_cells.append(cell);
    if (alignment == Unknown || cell.isEmpty())
        return;
    if (column == Unknown)
        column = alignment;
    else if (column != alignment)
        column = Left;
}

/*! Of the columns with padding; none where there is to be no padding. */
QVector<int> ORVMarkdownTable::widths() const
{
    QVector<int> widths(m_alignments.size(), leastWidth);
    for (int i = 0; i < m_cells.size(); ++i) {
        int& width = widths[i % m_alignments.size()];
        width = qMax(width, ORVTextColumns::of(m_cells.at(i)));
    }
    qint64 sum = 1;
    for (const int width : widths)
        sum += width + 3;
    return sum <= mostPaddedColumns ? widths : QVector<int>(m_alignments.size(), 0);
}

QString ORVMarkdownTable::row(int first, const QVector<int>& widths) const
{
    QString line(QLatin1Char('|'));
    for (int column = 0; column < m_alignments.size(); ++column) {
        const QString cell = first < 0 ? QString() : m_cells.at(first + column);
        const QString blanks = padding(cell, widths.at(column));
        const bool isRight = m_alignments.at(column) == Right;
        line += QLatin1Char(' ') + (isRight ? blanks + cell : cell + blanks) + QLatin1String(" |");
    }
    return line;
}

QString ORVMarkdownTable::rule(const QVector<int>& widths) const
{
    QString line(QLatin1Char('|'));
    for (int column = 0; column < m_alignments.size(); ++column) {
        const Alignment alignment = m_alignments.at(column);
        QString dashes(qMax(leastWidth, widths.at(column)), QLatin1Char('-'));
        if (alignment == Centered)
            dashes[0] = QLatin1Char(':');
        if (alignment == Centered || alignment == Right)
            dashes[dashes.size() - 1] = QLatin1Char(':');
        line += QLatin1Char(' ') + dashes + QLatin1String(" |");
    }
    return line;
}

QString ORVMarkdownTable::lines(bool hasHead) const
{
    const int columns = int(m_alignments.size());
    const QVector<int> widths = this->widths();
    QStringList lines(row(hasHead ? 0 : -1, widths));
    lines += rule(widths);
    for (int first = hasHead ? columns : 0; first < m_cells.size(); first += columns)
        lines += row(first, widths);
    return lines.join(QLatin1String("\n"));
}
