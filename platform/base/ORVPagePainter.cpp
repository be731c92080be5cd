#include "ORVPagePainter.h"

#include "ORVUnit.h"
#include "QtCompat_p.h"
#include "TextDocSupport.h"

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QTextDocument>
#include <QtGui/QTextOption>

namespace {

const double inchesPerMeter = 1 / 0.0254;
// Distance between tab stops where a paragraph has none, and of header and footer from the edges of the
// paper, in points: half an inch, as RTF has both unless a file says otherwise.
const double tabDistance = 36;
const double marginTextDistance = 36;

QPaintDevice* deviceOf(int dotsPerInch)
{
    QImage* const device = new QImage(1, 1, QImage::Format_RGB32);
    const int dotsPerMeter = compat::roundHalfAway(dotsPerInch * inchesPerMeter);
    device->setDotsPerMeterX(dotsPerMeter);
    device->setDotsPerMeterY(dotsPerMeter);
    return device;
}

/*! Qt's tab stops of views are wider than those of word processors; others than these are meant. */
void setTabDistance(QTextDocument* document)
{
    QTextOption option = document->defaultTextOption();
    if (compat::tabDistance(option) != compat::tabDistance(QTextOption()))
        return;
    compat::setTabDistance(option, tabDistance * ORVUnit::screenResolution() / 72);
    document->setDefaultTextOption(option);
}

} // namespace

ORVPagePainter::ORVPagePainter(const QTextDocument* document, const ORVPageSetup& setup, int resolution)
    : m_setup(setup), m_resolution(qMax(1, resolution)), m_device(deviceOf(m_resolution)),
      m_document(TextDocSupport::cloneDocumentQtStyle(document, nullptr))
{
    setTabDistance(m_document.data());
    m_document->setUseDesignMetrics(true);
    m_document->documentLayout()->setPaintDevice(m_device.data());
    m_document->setDocumentMargin(0);
    m_document->setPageSize(pixels(m_setup.page.textArea()).size());
}

ORVPagePainter::~ORVPagePainter() { }

int ORVPagePainter::pageCount() const
{
    return qMax(1, m_document->pageCount());
}

double ORVPagePainter::pixels(double points) const
{
    return points * m_resolution / 72;
}

QRectF ORVPagePainter::pixels(const QRectF& points) const
{
    return QRectF(pixels(points.x()), pixels(points.y()), pixels(points.width()), pixels(points.height()));
}

void ORVPagePainter::paintPage(QPainter* painter, int page) const
{
    if (page < 0 || page >= pageCount())
        return;
    painter->save();
    paintText(painter, page);
    painter->restore();
    if (page > 0 || m_setup.firstPageHasMarginTexts)
        paintMarginTexts(painter, page);
}

/*! What stands in the side margins, as markers of lists do, is painted too. */
void ORVPagePainter::paintText(QPainter* painter, int page) const
{
    const QRectF area = pixels(m_setup.page.textArea());
    const double top = page * area.height();
    painter->translate(area.left(), area.top() - top);
    const QRectF clip(-area.left(), top, pixels(m_setup.page.usablePaperSize().width()), area.height());
    painter->setClipRect(clip, Qt::IntersectClip);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    context.clip = clip;
    m_document->documentLayout()->draw(painter, context);
}

void ORVPagePainter::paintMarginTexts(QPainter* painter, int page) const
{
    const QRectF text = m_setup.page.textArea();
    const double paperHeight = m_setup.page.usablePaperSize().height();
    const double below = paperHeight - text.bottom();
    const double top = qMin(marginTextDistance, text.top() / 2);
    const double bottom = qMin(marginTextDistance, below / 2);
    const QRectF header(text.left(), top, text.width(), text.top() - top);
    const QRectF footer(text.left(), text.bottom(), text.width(), below - bottom);
    paintMarginText(painter, m_setup.header, header, Qt::AlignTop, page);
    paintMarginText(painter, m_setup.footer, footer, Qt::AlignBottom, page);
}

/*! \a side is the side of \a area, in points, at which the text stands. A longer text goes beyond the other.
 */
void ORVPagePainter::paintMarginText(QPainter* painter, const ORVPageSetup::MarginText& marginText,
                                     const QRectF& area, Qt::AlignmentFlag side, int page) const
{
    if (marginText.text.isEmpty())
        return;
    QString text = marginText.text;
    text.replace(QLatin1String("<$p>"), QString::number(m_setup.firstNumber + page));
    text.replace(QLatin1String("<$pagecount>"), QString::number(pageCount()));
    painter->save();
    painter->setPen(Qt::black);
    painter->setFont(QFont(marginText.font, m_device.data()));
    const int alignment = int(marginText.alignment & Qt::AlignHorizontal_Mask) | side;
    painter->drawText(pixels(area), alignment | Qt::TextWordWrap | Qt::TextDontClip, text);
    painter->restore();
}
