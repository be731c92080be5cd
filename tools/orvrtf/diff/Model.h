#ifndef ORVRTF_MODEL_H
#define ORVRTF_MODEL_H

#include "Facts.h"

#include <ORVNotes.h>
#include <ORVTextListLabels.h>

#include <QTextFormat>
#include <QVector>

#include <memory>
#include <vector>

class QTextDocument;

/*! Documents as they are compared: paragraphs and tables, in a sequence. */
namespace Model {

/*! Text of one format. */
struct Run {
    /*! The first character; the run ends where the next one begins. */
    int begin;
    /*! The number of the facts of its format, see Document::textFacts. */
    int format;
};

/*! A picture or note that a character of a paragraph stands for. */
struct Object {
    int position;
    bool isNote;
    /*! Of a note. */
    ORVNote note;
    /*! Of a picture. */
    QTextImageFormat picture;
    /*! The number of the picture or, among those of its kind, of the note, from 1. */
    int number;
};

struct Paragraph {
    /*! With one character for each picture and note. */
    QString text;
    QVector<Run> runs;
    QVector<Object> objects;
    /*! The number of its facts, see Document::paragraphFacts. */
    int format;
    /*! The facts of its end, which labels and empty paragraphs have. */
    int endFormat;
    ORVTextListLabels::Label label;
};

struct Table;

/*! A paragraph, or else a table. */
struct Item {
    /*! Equal for equal text, in both documents. */
    int text;
    int paragraph;
    std::shared_ptr<const Table> table;
};

/*! What the body of a document, a cell of a table or a note has. */
typedef std::vector<Item> Flow;

struct Cell {
    int row;
    int column;
    FactList facts;
    Flow flow;
};

struct Table {
    int rows;
    int columns;
    FactList facts;
    std::vector<Cell> cells;
    /*! By row and column: the index of the cell that is there. */
    QVector<int> grid;

    const Cell& cellAt(int row, int column) const
    {
        return cells[std::size_t(grid.at(row * columns + column))];
    }
};

struct Document {
    /*! It has to live as long as this. */
    const QTextDocument* source = nullptr;
    Flow body;
    std::vector<Paragraph> paragraphs;
    std::vector<FactList> textFacts;
    std::vector<FactList> paragraphFacts;
};

} // namespace Model

#endif
