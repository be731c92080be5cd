#ifndef ORVRTFTABLELEVELS_P_H
#define ORVRTFTABLELEVELS_P_H

#include "ORVRtfFormatSerials_p.h"
#include "ORVRtfLimits_p.h"
#include "ORVTextRtfRow_p.h"

#include <QtCore/QStack>

/*!
    The tables that are open while a document is read, each in a cell of the one around it, and the level that
    the paragraph says it stands in.

    Text goes into the document of the innermost cell. Who inserts it asks for the place: functions that open,
    end or close something return where text goes on. Text that waits for its insertion must be inserted
    before a cell or row ends.
*/
class ORVRtfTableLevels {
public:
    /*! The next paragraph stands outside tables unless it says otherwise (`\pard`, `\row`). */
    void beginParagraph();
    /*! The paragraph stands in \a level, which is brought within ORVRtfLimits::tableNesting. */
    void setParagraphLevel(int level);
    int paragraphLevel() const { return m_paragraphLevel; }
    /*!
        The paragraph has its place. True the first time, when tables deeper than its level are to be closed.
    */
    bool commitParagraph();
    /*!
        The paragraph ends a cell. In a row that begins with a vertically merged cell it stands at level 1
        even when it does not say so: word processors leave that out.
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
        result is null when it was the last one of its table, which is then to be closed.
    */
    QTextCursor endRow(double textWidth);
    /*! Inserts the tables of the levels beyond \a level, at least one, into the documents around them. */
    QTextCursor close(int level, double textWidth);
    /*!
        Ends all levels at the end of the input, where no table is closed: the outermost one keeps the rows
        that have ended, and no widths. Rows within cells of an unended row are lost with it.
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
    QTextTableFormat* borderFormat();

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
