#include "ORVRtfBorder_p.h"

#include "ORVRtfUnits_p.h"

namespace Words = ORVRtfInterchangeWords;

namespace {

// RTF knows no thicker pen and no greater distance, in twips: lines of 31 points.
const int greatestLength = 620;
// Of a line without a width, in twips.
const int defaultWidth = 15;

struct LineKind {
    QTextFrameFormat::BorderStyle style;
    // Width of all strokes and of the gaps between them: a multiple of the pen, and twips that no pen changes.
    int pens;
    int twips;
};

// The first is that of the word of the storage form, the others in the order of the words.
const LineKind lineKinds[] = {
    {QTextFrameFormat::BorderStyle_Solid, 1, 0},   {QTextFrameFormat::BorderStyle_Solid, 2, 0},
    {QTextFrameFormat::BorderStyle_Solid, 1, 0},   {QTextFrameFormat::BorderStyle_Double, 3, 0},
    {QTextFrameFormat::BorderStyle_Dotted, 1, 0},  {QTextFrameFormat::BorderStyle_Dashed, 1, 0},
    {QTextFrameFormat::BorderStyle_Solid, 1, 0},   {QTextFrameFormat::BorderStyle_Dashed, 1, 0},
    {QTextFrameFormat::BorderStyle_DotDash, 1, 0}, {QTextFrameFormat::BorderStyle_DotDotDash, 1, 0},
    {QTextFrameFormat::BorderStyle_Inset, 2, 15},  {QTextFrameFormat::BorderStyle_Outset, 2, 15},
    {QTextFrameFormat::BorderStyle_Double, 5, 0},  {QTextFrameFormat::BorderStyle_Double, 1, 30},
    {QTextFrameFormat::BorderStyle_Double, 1, 30}, {QTextFrameFormat::BorderStyle_Double, 1, 60},
    {QTextFrameFormat::BorderStyle_Double, 2, 0},  {QTextFrameFormat::BorderStyle_Double, 2, 0},
    {QTextFrameFormat::BorderStyle_Double, 3, 0},  {QTextFrameFormat::BorderStyle_Double, 1, 45},
    {QTextFrameFormat::BorderStyle_Double, 1, 45}, {QTextFrameFormat::BorderStyle_Double, 2, 60},
    {QTextFrameFormat::BorderStyle_Solid, 1, 0},   {QTextFrameFormat::BorderStyle_Double, 3, 0},
    {QTextFrameFormat::BorderStyle_DotDash, 1, 0}, {QTextFrameFormat::BorderStyle_Ridge, 2, 0},
    {QTextFrameFormat::BorderStyle_Groove, 2, 0},  {QTextFrameFormat::BorderStyle_Solid, 1, 0},
};
static_assert(sizeof(lineKinds) / sizeof(lineKinds[0]) == Words::LineFrame - Words::LineThick + 2,
              "each word for a kind of line needs its entry");

} // namespace

qint16 ORVRtfBorder::limited(int twips)
{
    return qint16(qBound(0, twips, greatestLength));
}

bool ORVRtfBorder::setKind(Words::Word word)
{
    if (word < Words::LineThick || word > Words::LineFrame)
        return false;
    m_kind = word - Words::LineThick + 1;
    return true;
}

void ORVRtfBorder::setColor(const QColor& color)
{
    m_color = color.isValid() ? color.rgb() : 0;
}

ORVTextBorder ORVRtfBorder::border() const
{
    ORVTextBorder border;
    if (!isVisible())
        return border;
    const LineKind& kind = lineKinds[m_kind];
    const int pen = m_width > 0 ? m_width : defaultWidth;
    border.style = kind.style;
    border.width = ORVRtfUnits::points(kind.pens * pen + kind.twips);
    border.spacing = ORVRtfUnits::points(m_spacing);
    if (m_color != 0)
        border.color = QColor(m_color);
    return border;
}
