#ifndef ORVRTFTABLELEVELS_P_H
#define ORVRTFTABLELEVELS_P_H

#include "ORVRtfFormatSerials_p.h"
#include "ORVRtfLimits_p.h"
#include "ORVTextRtfRow_p.h"

#include <QtCore/QStack>

/*!
    The tables that are open while a document is read, each in a cell of the one around it, and the table
    level of the current paragraph.

    Text goes into the document of the innermost cell. The caller inserts it: functions that open, end or
    close something return the place where text goes on. Text that waits for its insertion must be inserted
    before a cell or a row ends.
*/
class ORVRtfTableLevels {
public:
    /*! The next paragraph is outside of tables unless its own words set a level (`\pard`, `\row`). */
    void beginParagraph();
    /*! Sets the level of the paragraph, within ORVRtfLimits::tableNesting. */
    void setParagraphLevel(int level);
    int paragraphLevel() const { return m_paragraphLevel; }
    /*! True the first time in a paragraph: tables deeper than its level are to be closed then. */
    bool commitParagraph();
    /*!
        Sets the paragraph that ends a cell to level 1 if its row begins with a vertically merged cell: word
        processors leave out the word for the level there.
    */
    void takeParagraphOfMergedRow();

    bool isOpen() const { return !m_rows.isEmpty(); }
    int openLevels() const { return int(m_rows.size()); }
    /*! The row being read at the innermost level, of which there must be one. */
    ORVTextRtfRow& row() { return m_rows.top(); }

    /*! Opens the levels up to \a level, the first of them at \a place. */
    QTextCursor open(int level, const QTextCursor& place);
    /*! Ends the innermost cell. */
    QTextCursor endCell();
    /*!
        Adds the row to its table; columns get their widths in proportion to \a textWidth, in twips. The
        result is null after the last row of the table, which is then to be closed.
    */
    QTextCursor endRow(double textWidth);
    /*! Inserts the tables of the levels beyond \a level, at least one, into the documents around them. */
    QTextCursor close(int level, double textWidth);
    /*!
        Ends all levels at the end of the input, where no table is closed: the outermost one keeps the rows
        that have ended, and gets no widths. Rows within cells of an unended row are lost with it.
    */
    QTextCursor abandon();

    // Words that describe nothing when no table is open.
    void setCellAlignment(QTextCharFormat::VerticalAlignment alignment);
    void setLastRow();

    /*!
        Whether the border words that follow describe cells, or rows, whose borders are not kept. Cells and
        sides are not told apart, so a table has one border for all.
    */
    void setBordersAreOfCells(bool ofCells) { m_bordersAreOfCells = ofCells; }
    void setBorderWidth(double points);
    void setBorderColor(const QColor& color);
    void clearBorder();

private:
    QTextCursor cellPlace();
    void addToTable(ORVTextRtfRow& row, double textWidth);
    void insertTable(ORVTextRtfRow& row, double textWidth);
    bool areBordersKept() const;

    // Innermost on top.
    QStack<ORVTextRtfRow> m_rows;
    int m_paragraphLevel = 0;
    bool m_isParagraphCommitted = false;
    bool m_bordersAreOfCells = false;
    // Cells that tables may still take; see ORVRtfLimits::spareTableCells.
    qint64 m_cellsLeft = ORVRtfLimits::spareTableCells;
    ORVRtfFormatSerials m_columnWidths;
};

#endif
