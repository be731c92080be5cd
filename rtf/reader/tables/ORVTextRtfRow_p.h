#ifndef ORVTEXTRTFROW_P_H
#define ORVTEXTRTFROW_P_H

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
    bool verticalMergeWithPrevious = false;
    bool mergeWithPrevious = false;
    bool closed = false;
};

/*! One cell of the row being read. Its text goes into a document of its own, which copies share. */
class ORVTextRtfCell {
public:
    /*! The cell's document, made when first asked for. */
    QSharedPointer<QTextDocument> document();
    /*! The cell's document when it is complete. Qt does not report the frames in it before. */
    QSharedPointer<QTextDocument> finishedDocument();
    bool hasDocument() const { return !m_document.isNull(); }

    bool closed = false;

private:
    QSharedPointer<QTextDocument> m_document;
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
