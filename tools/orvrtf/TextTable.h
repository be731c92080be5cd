#ifndef ORVRTF_TEXTTABLE_H
#define ORVRTF_TEXTTABLE_H

#include <QString>
#include <QStringList>
#include <QTextFrame>
#include <QVector>

#include <memory>
#include <vector>

class ORVTextListLabels;
class QTextTable;

/*! A table whose cells stand side by side in plain text. */
class TextTable {
public:
    /*! \a table with the texts of its cells, whose labels are in \a labels; \a depth is 0 for an outermost one. */
    TextTable(const QTextTable& table, const ORVTextListLabels& labels, int depth = 0);

    /*!
        The lines of the table, of at most \a width columns; 0 for any number. Where that is too few, or the blanks
        between the cells would make the text many times as large, all paragraphs stand below each other.
    */
    QStringList lines(int width) const;

private:
    /*! A paragraph or a table in a cell. */
    struct Item {
        QString label;
        QString text;
        std::unique_ptr<TextTable> table;
    };
    struct Cell {
        int row = 0;
        int column = 0;
        int rowSpan = 1;
        int columnSpan = 1;
        std::vector<Item> items;
        // Columns without line breaks, and those of the longest word.
        int natural = 0;
        int least = 0;
    };

    void readFrame(QTextFrame::iterator it, const ORVTextListLabels& labels, Cell* cell, int depth);
    void readFlat(const QTextFrame& frame, const ORVTextListLabels& labels, Cell* cell);
    void addParagraph(const QTextBlock& block, const ORVTextListLabels& labels, Cell* cell);
    void addTable(const QTextTable& table, const ORVTextListLabels& labels, Cell* cell);
    void measure();
    static void makeRoom(const Cell& cell, int needed, QVector<int>* widths);
    int natural() const;
    int least() const;
    QVector<int> widths(int width) const;
    static QStringList linesOf(const Cell& cell, int width);
    QStringList flatLines(int width) const;

    int m_depth;
    int m_rowCount;
    int m_columnCount;
    int m_headRows;
    // Characters, paragraphs and cells, those of tables within it too.
    qint64 m_size = 0;
    // In the order of the text.
    std::vector<Cell> m_cells;
    // By column, as in Cell.
    QVector<int> m_natural;
    QVector<int> m_least;
};

#endif
