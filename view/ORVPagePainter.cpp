#include "ORVPagePainter.h"

#include "ORVFrames_p.h"
#include "ORVPageBorders_p.h"
#include "ORVPageLabels_p.h"
#include "ORVPageLeaders_p.h"
#include "ORVPageLimits_p.h"
#include "ORVPageNavigation_p.h"
#include "ORVPageSpacing_p.h"
#include "ORVRounding_p.h"
#include "ORVRtfPageTags_p.h"
#include "ORVStockOriginals_p.h"
#include "ORVTabStops_p.h"
#include "ORVTextPage.h"
#include "ORVUnit.h"
#include "TextDocSupport.h"

#include <QtCore/QVariant>
#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextOption>
#include <QtGui/QTextTable>

#include <cmath>

namespace {

// Of a pixel: Qt's layout cuts off what is finer, which would add up from page to page.
const double layoutUnits = 64;
const double pageEdge = 0.5 / layoutUnits;
const double inchesPerMeter = 1 / 0.0254;
// Distance between tab stops where a paragraph has none, and of header and footer from the edges of the
// paper, in points: half an inch, as RTF has both unless a file says otherwise.
const double tabDistance = 36;
const double marginTextDistance = 36;

QPaintDevice* deviceOf(int dotsPerInch)
{
    QImage* const device = new QImage(1, 1, QImage::Format_RGB32);
    const int dotsPerMeter = ORVRounding::halfAway(dotsPerInch * inchesPerMeter);
    device->setDotsPerMeterX(dotsPerMeter);
    device->setDotsPerMeterY(dotsPerMeter);
    return device;
}

/*! Paper is white, whatever the colours of windows are. */
QAbstractTextDocumentLayout::PaintContext blackOnWhite()
{
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    return context;
}

/*! Qt's tab stops of views are wider than those of word processors; others than these are meant. */
void setTabDistance(QTextDocument* document)
{
    QTextOption option = document->defaultTextOption();
    if (ORVTabStops::distance(option) != ORVTabStops::distance(QTextDocument().defaultTextOption()))
        return;
    ORVTabStops::setDistance(option, tabDistance * ORVUnit::screenResolution() / 72);
    document->setDefaultTextOption(option);
}

/*! Tables begin where they do in the original, also to the left of where views can show them. */
void setTableMargins(QTextDocument* document)
{
    const QList<QTextFrame*> frames = ORVFrames::all(document);
    for (QTextFrame* const frame : frames) {
        QTextTable* const table = qobject_cast<QTextTable*>(frame);
        if (!table || table->format().leftMargin() >= 0 || !ORVStockOriginals::isStock(table->format()))
            continue;
        QTextTableFormat format = table->format();
        const double margin = ORVPageLimits::length(ORVStockOriginals::original(format).leftMargin());
        format.setLeftMargin(margin * ORVUnit::screenResolution() / 72);
        format.setRightMargin(-format.leftMargin());
        table->setFormat(format);
    }
}

/*!
    Makes each line of \a text a paragraph of \a document. Lines with tabs have the stops that the header style
    of word processors has: the first tab centres, the second one aligns at the right.
*/
void setMarginText(QTextDocument* document, QString text, double width)
{
    document->setPlainText(text.replace(QChar::LineSeparator, QLatin1Char('\n')));
    QTextBlockFormat format;
    format.setAlignment(Qt::AlignLeft);
    format.setTabPositions(QList<QTextOption::Tab>() << QTextOption::Tab(width / 2, QTextOption::CenterTab)
                                                     << QTextOption::Tab(width, QTextOption::RightTab));
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        if (block.text().contains(QLatin1Char('\t')))
            QTextCursor(block).mergeBlockFormat(format);
    }
}

ORVPageSetup::MarginText marginText(const QTextDocument* document, const char* property)
{
    const ORVTextPage page = qvariant_cast<ORVTextPage>(document->property(property));
    return {page.text, page.option.alignment(), page.font};
}

} // namespace

ORVPageSetup ORVPageSetup::of(const QTextDocument* document)
{
    ORVPageSetup setup;
    if (!document)
        return setup;
    setup.page = ORVPageGeometry::of(document);
    setup.header = marginText(document, "header");
    setup.footer = marginText(document, "footer");
    setup.firstPageHasMarginTexts = !document->property("notOnFirstPage").toBool();
    setup.firstNumber = document->property("countFirstPage").toBool() ? 1 : 0;
    return setup;
}

class ORVPagePainterPrivate {
public:
    ORVPagePainterPrivate(const QTextDocument* document, const ORVPageSetup& setup, int resolution);

    int resolution() const { return m_resolution; }
    QSizeF paperSize() const { return m_setup.page.usablePaperSize(); }
    int pageCount() const;
    QVector<ORVPageHeading> headings() const { return m_navigation->headings(*m_labels, pageArea()); }
    QVector<ORVPageLink> links() const { return m_navigation->links(pageArea()); }
    void paintPage(QPainter* painter, int page) const;

private:
    QRectF layoutArea() const;
    ORVPageArea pageArea() const;
    void paintText(QPainter* painter, int page) const;
    void paintMarginTexts(QPainter* painter, int page) const;
    void paintMarginText(QPainter* painter, const ORVPageSetup::MarginText& marginText, const QRectF& area,
                         Qt::AlignmentFlag side, int page) const;

    ORVPageSetup m_setup;
    int m_resolution;
    // What the layout takes the resolution from; nothing is painted on it.
    QScopedPointer<QPaintDevice> m_device;
    QScopedPointer<QTextDocument> m_document;
    QScopedPointer<ORVPageNavigation> m_navigation;
    QScopedPointer<ORVPageLabels> m_labels;
    QScopedPointer<ORVPageBorders> m_borders;
    QScopedPointer<ORVPageLeaders> m_leaders;
};

ORVPagePainterPrivate::ORVPagePainterPrivate(const QTextDocument* document, const ORVPageSetup& setup,
                                             int resolution)
    : m_setup(setup), m_resolution(qMax(1, resolution)), m_device(deviceOf(ORVUnit::screenResolution())),
      m_document(document ? TextDocSupport::cloneDocumentQtStyle(document, nullptr) : new QTextDocument)
{
    m_navigation.reset(new ORVPageNavigation(m_document.data()));
    setTabDistance(m_document.data());
    ORVPageSpacing::leaveOut(m_document.data());
    m_leaders.reset(new ORVPageLeaders(m_document.data(), m_device.data()));
    setTableMargins(m_document.data());
    m_borders.reset(new ORVPageBorders(m_document.data(), ORVUnit::screenResolution()));
    m_labels.reset(new ORVPageLabels(m_document.data(), m_device.data()));
    ORVPageLimits::apply(m_document.data(), m_setup.page, ORVUnit::screenResolution());
    m_document->setUseDesignMetrics(true);
    m_document->documentLayout()->setPaintDevice(m_device.data());
    m_document->setDocumentMargin(0);
    m_document->setPageSize(layoutArea().size());
    m_labels->assignPages(layoutArea().height());
    m_borders->assignPages(layoutArea().height());
    m_leaders->assignPages(layoutArea().height());
}

int ORVPagePainterPrivate::pageCount() const
{
    return qMax(1, m_document->pageCount());
}

/*! Where the text stands on the paper, in pixels of the layout, and with the height that Qt's pages have. */
QRectF ORVPagePainterPrivate::layoutArea() const
{
    const QRectF area = m_setup.page.textArea();
    const double scale = ORVUnit::screenResolution() / 72.0;
    const double height = std::floor(area.height() * scale * layoutUnits) / layoutUnits;
    return QRectF(area.left() * scale, area.top() * scale, area.width() * scale, height);
}

ORVPageArea ORVPagePainterPrivate::pageArea() const
{
    const QRectF area = layoutArea();
    const double scale = ORVUnit::screenResolution() / 72.0;
    return {area.topLeft(), area.height(), paperSize() * scale, scale, pageCount()};
}

void ORVPagePainterPrivate::paintPage(QPainter* painter, int page) const
{
    const double scale = double(m_resolution) / ORVUnit::screenResolution();
    painter->save();
    painter->scale(scale, scale);
    paintText(painter, page);
    if (page > 0 || m_setup.firstPageHasMarginTexts)
        paintMarginTexts(painter, page);
    painter->restore();
}

/*! What stands in the side margins, as markers of lists do, is painted too. */
void ORVPagePainterPrivate::paintText(QPainter* painter, int page) const
{
    const QRectF area = layoutArea();
    const double paperWidth = m_setup.page.usablePaperSize().width() * ORVUnit::screenResolution() / 72;
    const double top = page * area.height();
    const QRectF clip(-area.left(), top, paperWidth, area.height());
    painter->save();
    painter->translate(area.left(), area.top() - top);
    painter->setClipRect(clip, Qt::IntersectClip);
    QAbstractTextDocumentLayout::PaintContext context = blackOnWhite();
    // Qt also draws what only touches the clip: the first line of the next page would be in a PDF file twice.
    context.clip = clip.adjusted(0, pageEdge, 0, -pageEdge);
    m_document->documentLayout()->draw(painter, context);
    m_labels->paint(painter, page);
    m_leaders->paint(painter, page);
    painter->restore();
    painter->save();
    painter->translate(area.left(), area.top() - top);
    m_borders->paint(painter, page);
    painter->restore();
}

void ORVPagePainterPrivate::paintMarginTexts(QPainter* painter, int page) const
{
    const double scale = ORVUnit::screenResolution() / 72.0;
    const QRectF text = layoutArea();
    const double below = m_setup.page.usablePaperSize().height() * scale - text.bottom();
    const double top = qMin(marginTextDistance * scale, text.top() / 2);
    const double bottom = qMin(marginTextDistance * scale, below / 2);
    const QRectF header(text.left(), top, text.width(), text.top() - top);
    const QRectF footer(text.left(), text.bottom(), text.width(), below - bottom);
    paintMarginText(painter, m_setup.header, header, Qt::AlignTop, page);
    paintMarginText(painter, m_setup.footer, footer, Qt::AlignBottom, page);
}

/*! \a side is the side of \a area at which the text stands. A longer text goes beyond the other. */
void ORVPagePainterPrivate::paintMarginText(QPainter* painter, const ORVPageSetup::MarginText& marginText,
                                            const QRectF& area, Qt::AlignmentFlag side, int page) const
{
    if (marginText.text.isEmpty())
        return;
    QTextOption option;
    option.setAlignment(marginText.alignment & Qt::AlignHorizontal_Mask);
    QString text = marginText.text;
    text.replace(QLatin1String(ORVRtfPageTags::pageNumber), QString::number(m_setup.firstNumber + page));
    text.replace(QLatin1String(ORVRtfPageTags::pageCount), QString::number(pageCount()));

    QTextDocument document;
    document.setUseDesignMetrics(true);
    document.documentLayout()->setPaintDevice(m_device.data());
    document.setDocumentMargin(0);
    document.setDefaultFont(marginText.font);
    document.setDefaultTextOption(option);
    setMarginText(&document, text, area.width());
    document.setTextWidth(area.width());
    painter->save();
    painter->translate(area.left(),
                       side == Qt::AlignTop ? area.top() : area.bottom() - document.size().height());
    document.documentLayout()->draw(painter, blackOnWhite());
    painter->restore();
}

ORVPagePainter::ORVPagePainter(const QTextDocument* document, const ORVPageSetup& setup, int resolution)
    : d(new ORVPagePainterPrivate(document, setup, resolution))
{
}

ORVPagePainter::~ORVPagePainter() { }

int ORVPagePainter::resolution() const
{
    return d->resolution();
}

QSizeF ORVPagePainter::paperSize() const
{
    return d->paperSize();
}

int ORVPagePainter::pageCount() const
{
    return d->pageCount();
}

QVector<ORVPageHeading> ORVPagePainter::headings() const
{
    return d->headings();
}

QVector<ORVPageLink> ORVPagePainter::links() const
{
    return d->links();
}

void ORVPagePainter::paintPage(QPainter* painter, int page) const
{
    if (painter && page >= 0 && page < pageCount())
        d->paintPage(painter, page);
}
