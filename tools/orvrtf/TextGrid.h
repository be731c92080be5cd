#ifndef ORVRTF_TEXTGRID_H
#define ORVRTF_TEXTGRID_H

#include <QStringList>
#include <QVector>

#include <vector>

/*!
    Puts cells of several lines side by side: columns have bars between them, and a rule stands below the head. Where a
    row has several lines, an empty line stands between the rows.
*/
class TextGrid {
public:
    /*! A table of \a rows rows, the first \a headRows of which are the head, with columns of \a widths. */
    TextGrid(int rows, int headRows, const QVector<int>& widths);

    /*! The number of columns of text between two columns of a table. */
    static int gap() { return 3; }
    /*! The columns of text of \a span columns from \a column on. */
    int width(int column, int span) const;
    /*! Adds a cell. Cells come by row, then by column. */
    void add(int row, int column, int rowSpan, int columnSpan, const QStringList& lines);
    /*! The most characters that lines() can have. */
    qint64 size();
    QStringList lines();

private:
    struct Cell {
        int column;
        int columnSpan;
        int lastRow;
        QStringList lines;
        // The first line that has not been written.
        int next;
    };

    void measureRows();
    std::vector<int> cellsOf(int row, const std::vector<int>& above) const;
    QString line(const std::vector<int>& cells);
    QString rule() const;

    int m_rowCount;
    int m_headRows;
    QVector<int> m_widths;
    // The columns of text in front of each column, and those of the whole.
    QVector<int> m_positions;
    std::vector<Cell> m_cells;
    // By row: the first cell that begins there or below.
    std::vector<size_t> m_firstCells;
    // Numbers of lines by row; empty before measureRows().
    std::vector<int> m_heights;
    bool m_hasHighRows = false;
};

#endif
