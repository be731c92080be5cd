#include "ORVRtfInterchangeReader_p.h"

namespace Words = ORVRtfInterchangeWords;

/*! Words that place text in tables or describe their rows; false for all others. */
bool ORVRtfInterchangeReader::translateTableWord(KeyWord keyWord, bool hasParameter, int n)
{
    switch (keyWord) {
    case ResetParagraph:
        m_border = Border();
        m_builder.setLevel(0);
        return false;
    case InTable: m_builder.setInTable(); break;
    case TableNesting: m_builder.setLevel(n); break;
    case NestedTableRowDefinition: m_builder.isDefiningNestedRow = true; break;
    case TableRowDefinition: m_builder.beginRow(); break;
    case TableLeftOffset: m_builder.setLeftEdge(n); break;
    case TableRowCellPadding: m_builder.look().gap = n; break;
    case CellRightBoundary:
        m_border = Border();
        m_builder.closeDefinition(n);
        break;
    case CellMergePreceeding: m_builder.row().currentDefinition().mergeWithPrevious = true; break;
    case CellVerticalMergePreceeding:
        m_builder.row().currentDefinition().verticalMergeWithPrevious = true;
        break;
    case CellVerticalAlignTop: setCellAlignment(QTextCharFormat::AlignTop); break;
    case CellVerticalAlignCenter: setCellAlignment(QTextCharFormat::AlignMiddle); break;
    case CellVerticalAlignBottom: setCellAlignment(QTextCharFormat::AlignBottom); break;
    // Word processors have always taken the words for the top and the left for each other's.
    case CellPadTop: m_builder.look().currentCell().padding[ORVTextBorder::Left].set(n); break;
    case CellPadLeft: m_builder.look().currentCell().padding[ORVTextBorder::Top].set(n); break;
    case CellPadRight: m_builder.look().currentCell().padding[ORVTextBorder::Right].set(n); break;
    case CellPadBottom: m_builder.look().currentCell().padding[ORVTextBorder::Bottom].set(n); break;
    case BackgroundPatternColor:
        m_builder.look().currentCell().shading.stated().background = colorOf(n);
        break;
    case NoCellShading: m_builder.look().currentCell().shading.statedRaw() = ORVRtfShading(); break;
    case EndCell:
    case EndNestedCell: endCell(keyWord == EndNestedCell); break;
    case EndRow:
    case EndNestedRow: endRow(keyWord == EndNestedRow); break;
    case LastRow: break;
    default: return translateBorderWord(keyWord, hasParameter, n);
    }
    return true;
}

bool ORVRtfInterchangeReader::translatePrivateTableWord(Words::Word word, int n)
{
    return translatePrivateBorderWord(word, n) || translateShadingWord(word, n) || translateRowWord(word, n);
}

/*! Words for the background of cells; false for all others. */
bool ORVRtfInterchangeReader::translateShadingWord(Words::Word word, int n)
{
    switch (word) {
    case Words::CellPatternColor:
        m_builder.look().currentCell().shading.stated().foreground = colorOf(n);
        break;
    case Words::CellShading: m_builder.look().currentCell().shading.stated().setCoverage(n); break;
    case Words::CellRawBackground:
        m_builder.look().currentCell().shading.statedRaw().background = colorOf(n);
        break;
    case Words::CellRawPatternColor:
        m_builder.look().currentCell().shading.statedRaw().foreground = colorOf(n);
        break;
    case Words::CellRawShading: m_builder.look().currentCell().shading.statedRaw().setCoverage(n); break;
    case Words::RowBackground: m_builder.look().shading.stated().background = colorOf(n); break;
    case Words::RowPatternColor: m_builder.look().shading.stated().foreground = colorOf(n); break;
    case Words::RowShading: m_builder.look().shading.stated().setCoverage(n); break;
    default: return false;
    }
    return true;
}

/*! Words for the place and the measures of rows and cells; false for all others. */
bool ORVRtfInterchangeReader::translateRowWord(Words::Word word, int n)
{
    switch (word) {
    case Words::RowHeader: m_builder.look().isHeader = true; break;
    case Words::RowLeft: m_builder.look().alignment = Qt::AlignLeft; break;
    case Words::RowCentered: m_builder.look().alignment = Qt::AlignHCenter; break;
    case Words::RowRight: m_builder.look().alignment = Qt::AlignRight; break;
    case Words::RowIndent: m_builder.look().indent.set(n); break;
    case Words::RowIndentUnit: m_builder.look().indent.unit = n; break;
    case Words::RowWidth: m_builder.look().width.set(n); break;
    case Words::RowWidthUnit: m_builder.look().width.unit = n; break;
    case Words::RowPaddingTop: m_builder.look().padding[ORVTextBorder::Top].set(n); break;
    case Words::RowPaddingBottom: m_builder.look().padding[ORVTextBorder::Bottom].set(n); break;
    case Words::RowPaddingLeft: m_builder.look().padding[ORVTextBorder::Left].set(n); break;
    case Words::RowPaddingRight: m_builder.look().padding[ORVTextBorder::Right].set(n); break;
    case Words::RowPaddingTopUnit: m_builder.look().padding[ORVTextBorder::Top].unit = n; break;
    case Words::RowPaddingBottomUnit: m_builder.look().padding[ORVTextBorder::Bottom].unit = n; break;
    case Words::RowPaddingLeftUnit: m_builder.look().padding[ORVTextBorder::Left].unit = n; break;
    case Words::RowPaddingRightUnit: m_builder.look().padding[ORVTextBorder::Right].unit = n; break;
    case Words::CellWidth: m_builder.look().currentCell().width.set(n); break;
    case Words::CellWidthUnit: m_builder.look().currentCell().width.unit = n; break;
    case Words::CellPaddingTopUnit:
        m_builder.look().currentCell().padding[ORVTextBorder::Left].unit = n;
        break;
    case Words::CellPaddingBottomUnit:
        m_builder.look().currentCell().padding[ORVTextBorder::Bottom].unit = n;
        break;
    case Words::CellPaddingLeftUnit:
        m_builder.look().currentCell().padding[ORVTextBorder::Top].unit = n;
        break;
    case Words::CellPaddingRightUnit:
        m_builder.look().currentCell().padding[ORVTextBorder::Right].unit = n;
        break;
    default: return false;
    }
    return true;
}

void ORVRtfInterchangeReader::endCell(bool isNested)
{
    if (!hasParagraphs())
        return;
    m_builder.textWidth = m_page.textWidth();
    m_builder.reachCell(isNested);
    const bool isRuler = beginRuler();
    m_inserter.setBlockFormats(m_paragraph, m_state.charFormat);
    if (isRuler)
        endRuler();
    appendBoxes();
    m_builder.endCell();
    m_text.oldList.endParagraph(m_paragraph);
    m_text.hasShownText = false;
    m_text.raisedText.clear();
}

/*! Where no row is open, its end is that of a paragraph. */
void ORVRtfInterchangeReader::endRow(bool isNested)
{
    if (!hasParagraphs())
        return;
    m_builder.textWidth = m_page.textWidth();
    appendBoxes();
    if (!m_builder.endRow(isNested) && m_text.hasShownText)
        endShownParagraph();
    m_text.hasShownText = false;
    m_text.raisedText.clear();
}

void ORVRtfInterchangeReader::setCellAlignment(QTextCharFormat::VerticalAlignment alignment)
{
    m_builder.row().currentDefinition().verticalAlignment = alignment;
}
