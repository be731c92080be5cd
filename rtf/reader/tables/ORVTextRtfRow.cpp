#include "ORVTextRtfRow_p.h"

#include "ORVRtfLimits_p.h"

#include <QtGui/QBrush>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>
#include <QtGui/QTextDocumentFragment>

namespace {

// A row may be defined before its cells and again behind them.
const int mostDefinitions = 2 * ORVRtfLimits::tableColumns + 1;

} // namespace

QSharedPointer<QTextDocument> ORVTextRtfCell::document()
{
    if (!m_document) {
        m_document = QSharedPointer<QTextDocument>(new QTextDocument);
        m_document->setUndoRedoEnabled(false);
        // Outside an edit block each insertion costs as much as its paragraph is long.
        QTextCursor(m_document.data()).beginEditBlock();
    }
    return m_document;
}

ORVTextRtfCell ORVTextRtfCell::empty()
{
    ORVTextRtfCell cell;
    cell.closed = true;
    cell.m_isFinished = true;
    return cell;
}

void ORVTextRtfCell::finish()
{
    if (m_isFinished)
        return;
    m_isFinished = true;
    // Qt does not report the frames of a document while an edit block is open.
    QTextCursor(document().data()).endEditBlock();
    m_content = ORVRtfCellContent(m_document);
    m_charFormat = m_document->begin().charFormat();
    m_document.clear();
}

ORVTextRtfRow::ORVTextRtfRow()
{
    reset();
}

void ORVTextRtfRow::reset()
{
    tableFormat = QTextTableFormat();
    tableFormat.setCellSpacing(0.0);
    tableFormat.setCellPadding(0.0);
    cellDefinitions = QList<ORVTextRtfCellDefinition>() << ORVTextRtfCellDefinition();
    cells = QList<ORVTextRtfCell>() << ORVTextRtfCell();
    lastRow = false;
}

void ORVTextRtfRow::closeDefinition(int boundary)
{
    if (cellDefinitions.size() >= mostDefinitions) {
        currentDefinition() = ORVTextRtfCellDefinition();
        return;
    }
    currentDefinition().rightBoundary = boundary;
    currentDefinition().closed = true;
    cellDefinitions.append(ORVTextRtfCellDefinition());
}

void ORVTextRtfRow::closeCell()
{
    // Of a full row the last cell takes what stands in further ones.
    if (cells.size() > ORVRtfLimits::tableColumns)
        joinCells(int(cells.size()) - 2);
    cells.last().closed = true;
    cells.append(ORVTextRtfCell());
}

/*! Moves the text of the cell behind \a left into it. */
void ORVTextRtfRow::joinCells(int left)
{
    ORVTextRtfCell surplus = cells.takeAt(left + 1);
    if (!surplus.hasDocument() || surplus.document()->isEmpty())
        return;
    QTextCursor end(cells[left].document().data());
    end.movePosition(QTextCursor::End);
    end.insertText(QLatin1String(" "));
    end.insertFragment(QTextDocumentFragment(surplus.document().data()));
}

void ORVTextRtfRow::insertContinuation(int index)
{
    ORVTextRtfCellDefinition definition;
    definition.rightBoundary = cellDefinitions.at(index).rightBoundary;
    definition.verticalMergeWithPrevious = cellDefinitions.at(index).verticalMergeWithPrevious;
    definition.mergeWithPrevious = true;
    cellDefinitions.insert(index + 1, definition);
    cells.insert(index + 1, ORVTextRtfCell());
}

void ORVTextRtfRow::removeBoundary(int index)
{
    cellDefinitions.removeAt(index);
    if (index + 1 < cells.size())
        joinCells(index);
    else if (index > 0)
        joinCells(index - 1);
}

void ORVTextRtfRow::finish()
{
    if (!cells.last().closed && cells.size() > 1)
        cells.removeLast();
    if (!cellDefinitions.last().closed)
        cellDefinitions.removeLast();
    if (isDefinedTwice())
        cellDefinitions = cellDefinitions.mid(0, cellDefinitions.size() / 2);
    if (cellDefinitions.size() > ORVRtfLimits::tableColumns)
        cellDefinitions = cellDefinitions.mid(0, ORVRtfLimits::tableColumns);
}

bool ORVTextRtfRow::isDefinedTwice() const
{
    const int half = int(cellDefinitions.size()) / 2;
    if (half == 0 || cellDefinitions.size() % 2 != 0)
        return false;
    for (int i = 0; i < half; ++i) {
        if (cellDefinitions.at(i).rightBoundary != cellDefinitions.at(i + half).rightBoundary)
            return false;
    }
    return true;
}

void ORVTextRtfRow::setBorderWidth(double points)
{
    tableFormat.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    tableFormat.setBorder(points);
}

void ORVTextRtfRow::setBorderColor(const QColor& color)
{
    tableFormat.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    tableFormat.setBorderBrush(QBrush(color));
}

void ORVTextRtfRow::clearBorder()
{
    tableFormat.setBorderStyle(QTextFrameFormat::BorderStyle_None);
    tableFormat.clearProperty(QTextFormat::FrameBorder);
    tableFormat.clearProperty(QTextFormat::FrameBorderBrush);
}
