#ifndef ORVTEXTRTFROW_P_H
#define ORVTEXTRTFROW_P_H

#include "ORVRtfCellContent_p.h"

#include <QtCore/QList>
#include <QtCore/QSharedPointer>
#include <QtGui/QColor>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextCursor>
#include <QtGui/QTextTableFormat>

class ORVTextRtfTable;
class QTextDocument;

/*! The definition of one cell of a row; `\cellx` ends it. */
struct ORVTextRtfCellDefinition {
    // Invalid: not shaded.
    QColor backgroundColor;
    // Right edge of the cell, in twips.
    int rightBoundary = 0;
    int verticalAlignment = QTextCharFormat::AlignTop;
    // Borders and padding, which only the interchange form reads.
    QTextCharFormat look;
    bool verticalMergeWithPrevious = false;
    bool mergeWithPrevious = false;
    bool closed = false;
};

/*! One cell of the row being read. Its text goes into a document of its own, which copies share. */
class ORVTextRtfCell {
public:
    /*! A cell that has ended and holds nothing. */
    static ORVTextRtfCell empty();

    /*! The cell's document, made when first asked for. */
    QSharedPointer<QTextDocument> document();
    bool hasDocument() const { return !m_document.isNull(); }

    /*! Ends the cell's text, unless that was done. Its document goes, and what it held can be asked for. */
    void finish();
    ORVRtfCellContent& content() { return m_content; }
    /*! The format of the first paragraph's end. */
    const QTextCharFormat& charFormat() const { return m_charFormat; }

    bool closed = false;

private:
    QSharedPointer<QTextDocument> m_document;
    ORVRtfCellContent m_content;
    QTextCharFormat m_charFormat;
    bool m_isFinished = false;
};

/*! The state of one open table level: the row being read, and where the table goes. */
struct ORVTextRtfRow {
    ORVTextRtfRow();

    /*! Begins a new row of the same table. */
    void reset();
    ORVTextRtfCellDefinition& currentDefinition() { return cellDefinitions.last(); }
    /*! Ends the current definition at \a boundary, in twips. */
    void closeDefinition(int boundary);
    /*! Ends the current cell. */
    void closeCell();
    /*!
        Makes the row ready for its table: what was begun and not ended goes, a definition given twice counts
        once, and what exceeds ORVRtfLimits::tableColumns is joined to the last cell.
    */
    void finish();
    /*!
        A cell that continues its left neighbour, up to the boundary of the cell at \a index, which lies
        beyond the column it stands in.
    */
    void insertContinuation(int index);
    /*! Leaves out the boundary at \a index: the cells on its two sides become one. */
    void removeBoundary(int index);

    /*! Gives the table a line of \a points, or of \a color: one for all of its cells and sides. */
    void setBorderWidth(double points);
    void setBorderColor(const QColor& color);
    /*! Takes the line away. */
    void clearBorder();

    QTextTableFormat tableFormat;
    QList<ORVTextRtfCellDefinition> cellDefinitions;
    QList<ORVTextRtfCell> cells;
    bool lastRow = false;

    // Where text went before this level opened, and goes again when it closes.
    QTextCursor parentCursor;
    QSharedPointer<ORVTextRtfTable> table;

private:
    bool isDefinedTwice() const;
    void joinCells(int left);
};

#endif
