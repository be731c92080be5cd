#include "ORVRtfInterchangeReader_p.h"

namespace Words = ORVRtfInterchangeWords;

/*! Words that describe lines; false for all others. */
bool ORVRtfInterchangeReader::translateBorderWord(KeyWord keyWord, bool hasParameter, int n)
{
    switch (keyWord) {
    case CellBorderTop: beginBorder(BorderOfCell, ORVTextBorder::Top); break;
    case CellBorderBottom: beginBorder(BorderOfCell, ORVTextBorder::Bottom); break;
    case CellBorderLeft: beginBorder(BorderOfCell, ORVTextBorder::Left); break;
    case CellBorderRight: beginBorder(BorderOfCell, ORVTextBorder::Right); break;
    case TableRowBorderTop: beginBorder(BorderOfRow, ORVTextBorder::Top); break;
    case TableRowBorderBottom: beginBorder(BorderOfRow, ORVTextBorder::Bottom); break;
    case TableRowBorderLeft: beginBorder(BorderOfRow, ORVTextBorder::Left); break;
    case TableRowBorderRight: beginBorder(BorderOfRow, ORVTextBorder::Right); break;
    case BorderWidth:
        m_border.line.setWidth(n);
        applyBorder();
        break;
    case SingleWidthBorder:
        m_border.line.setSingle();
        applyBorder();
        break;
    case BorderColor:
        m_border.line.setColor(hasParameter ? colorOf(n) : QColor());
        applyBorder();
        break;
    case NoBorder:
        m_border.line.setNone();
        applyBorder();
        break;
    default: return false;
    }
    return true;
}

/*! As the other one. What describes lines that are not shown has no effect on others. */
bool ORVRtfInterchangeReader::translatePrivateBorderWord(Words::Word word, int n)
{
    if (m_border.line.setKind(word)) {
        applyBorder();
        return true;
    }
    switch (word) {
    case Words::LineNone:
    case Words::LineNoneOfTable:
        m_border.line.setNone();
        applyBorder();
        break;
    case Words::LineSpacing:
        m_border.line.setSpacing(n);
        applyBorder();
        break;
    case Words::ParagraphBorderTop: beginBorder(BorderOfParagraph, ORVTextBorder::Top); break;
    case Words::ParagraphBorderBottom: beginBorder(BorderOfParagraph, ORVTextBorder::Bottom); break;
    case Words::ParagraphBorderLeft: beginBorder(BorderOfParagraph, ORVTextBorder::Left); break;
    case Words::ParagraphBorderRight: beginBorder(BorderOfParagraph, ORVTextBorder::Right); break;
    case Words::ParagraphBox: beginBorder(BorderOfParagraph, ORVTextBorder::SideCount); break;
    case Words::RowBorderHorizontal: beginBorder(BorderBetweenRows, ORVTextBorder::Top); break;
    case Words::RowBorderVertical: beginBorder(BorderBetweenColumns, ORVTextBorder::Left); break;
    case Words::BorderBetween:
    case Words::BorderBar:
    case Words::TextBorder:
    case Words::PageBorderTop:
    case Words::PageBorderBottom:
    case Words::PageBorderLeft:
    case Words::PageBorderRight:
    case Words::CellDiagonalDown:
    case Words::CellDiagonalUp: m_border = Border(); break;
    default: return false;
    }
    return true;
}

void ORVRtfInterchangeReader::beginBorder(BorderOwner owner, int side)
{
    m_border = Border();
    m_border.owner = owner;
    m_border.side = side;
}

/*! Gives the line that is being described, as far as that is known, to its owner. */
void ORVRtfInterchangeReader::applyBorder()
{
    switch (m_border.owner) {
    case NoBorderOwner: break;
    case BorderOfCell: m_builder.look().currentCell().borders[m_border.side] = m_border.line; break;
    case BorderOfRow: m_builder.look().borders[m_border.side] = m_border.line; break;
    case BorderBetweenRows: m_builder.look().horizontal = m_border.line; break;
    case BorderBetweenColumns: m_builder.look().vertical = m_border.line; break;
    case BorderOfParagraph: applyParagraphBorder(); break;
    }
}

void ORVRtfInterchangeReader::applyParagraphBorder()
{
    const ORVTextBorder border = m_border.line.border();
    for (int side = 0; side < ORVTextBorder::SideCount; ++side) {
        if (m_border.side == side || m_border.side == ORVTextBorder::SideCount)
            m_paragraph.setBorder(border, ORVTextBorder::Side(side));
    }
}

/*! A paragraph that is nothing but the line below it is a ruler, which Qt shows; false for others. */
bool ORVRtfInterchangeReader::beginRuler()
{
    if (m_text.hasShownText || !m_paragraph.isRuler())
        return false;
    m_paragraph.setProperty(QTextFormat::BlockTrailingHorizontalRulerWidth,
                            QTextLength(QTextLength::PercentageLength, 100));
    return true;
}

/*! The next paragraph is no ruler before its end is known. */
void ORVRtfInterchangeReader::endRuler()
{
    m_paragraph.clearProperty(QTextFormat::BlockTrailingHorizontalRulerWidth);
}
