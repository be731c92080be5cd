#ifndef ORVRTFTABLEBUILDER_P_H
#define ORVRTFTABLEBUILDER_P_H

#include "ORVRtfFormatSerials_p.h"
#include "ORVRtfLimits_p.h"
#include "ORVRtfRowLook_p.h"
#include "ORVRtfTableGrid_p.h"
#include "ORVTextRtfRow_p.h"

#include <vector>

class ORVRtfTextInserter;

/*!
    The tables of a document as word processors mean them: which paragraphs stand in which cell, and the tables
    that are open, each in a cell of the one around it.

    A row is open from its first word to its end, and all paragraphs meanwhile belong to it. Words that end
    cells and rows where none has begun take the text before them along, so that no text is lost.
*/
class ORVRtfTableBuilder {
public:
    /*! Moves \a inserter, which stays the caller's, to the cells and back. */
    explicit ORVRtfTableBuilder(ORVRtfTextInserter& inserter);

    /*! Where a paragraph says that it stands; ends with the group that said so. */
    struct Place {
        bool isInTable = false;
        // Table level, 0 if not stated.
        int level = 0;
    };
    Place place;
    /*! The paragraph stands in a table, on the level that it states, if any. */
    void setInTable();
    /*! The paragraph stands in a table on \a level, or in none if that is 0. */
    void setLevel(int level);
    /*! Whether definitions are those of the row of a nested table (`\nesttableprops`). */
    bool isDefiningNestedRow = false;
    /*! Width of the text between the margins, in twips. */
    double textWidth = 0;

    /*! Forgets all tables. */
    void reset();

    class Tables;
    /*! Exchanges the open tables with \a tables: a text within another one has tables of its own. */
    void swapTables(Tables& tables);

    /*! Moves the inserter to where text and the end of the paragraph go. */
    void placeParagraph();

    /*! Whether a table is open, in the text that is read. */
    bool hasTables() const { return !m_tables.levels.empty(); }
    /*! The outermost table begins on a new page if none of its rows has ended. */
    void breakPageBefore();

    /*! Begins the definition of a row. */
    void beginRow();
    /*! The row being defined; one that is nowhere if there is none. */
    ORVTextRtfRow& row();
    /*! The look of the same row. */
    ORVRtfRowLook& look();
    /*! Ends the definition of a cell of the same row, whose right edge is at \a edge, in twips. */
    void closeDefinition(int edge);
    /*! Sets the left edge of the row, in twips. */
    void setLeftEdge(int twips);

    /*!
        Moves the inserter into the cell that ends, of the outermost table or of a nested one. A cell that has
        not begun takes the paragraph's text.
    */
    void reachCell(bool isNested);
    /*! Ends the cell that was reached. */
    void endCell();
    /*! False if there is no row to end. */
    bool endRow(bool isNested);
    /*! Ends what is open, at the end of the input, and moves the inserter behind it. */
    void endTables() { closeLevels(0); }

private:
    struct Level {
        ORVRtfTableGrid grid;
        // The row being read.
        ORVTextRtfRow row;
        ORVRtfRowLook look;
        int leftEdge = 0;
        bool isRowOpen = false;
        // There is more of it than paragraphs that say so.
        bool isRowCertain = false;
        // The definitions of the row before, for rows that have none.
        QList<ORVTextRtfCellDefinition> lastDefinitions;
        ORVRtfRowLook lastLook;
        int lastLeftEdge = 0;
        // Where the table goes, in the cell or the document around it.
        QTextCursor parent;
        // That is directly behind the text of a paragraph that has ended.
        bool isBehindParagraph = false;
    };

public:
    /*! The tables of one text that are open. */
    class Tables {
        friend class ORVRtfTableBuilder;
        // Innermost last.
        std::vector<Level> levels;
        // What words describe that belong to no row.
        ORVTextRtfRow strayRow;
        ORVRtfRowLook strayLook;
    };

private:
    int levels() const { return int(m_tables.levels.size()); }
    int statedLevel() const;
    int deepestOpenRow() const;
    void openLevels(int level);
    Level& certainRow();
    Level* definedRow();
    void passDefinitionOn();
    void takeParagraph(int level);
    void endRow(Level& level);
    void addToTable(Level& level);
    void closeLevels(int level);
    void closeInnermostLevel();

    ORVRtfTextInserter& m_inserter;
    Tables m_tables;
    ORVRtfFormatSerials m_columnWidths;
    qint64 m_cellsLeft = ORVRtfLimits::spareTableCells;
};

#endif
