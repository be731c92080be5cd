#include "PageView.h"

#include "PrintCopy.h"

#include <ORVUnit.h>

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextDocument>

namespace {

// Between pages and around them, in pixels.
const int gap = 16;

} // namespace

PageView::PageView(const QTextDocument& document, QWidget* parent)
    : QAbstractScrollArea(parent),
      m_paperSize(ORVPageGeometry::of(&document).usablePaperSize() * ORVUnit::screenResolution() / 72),
      m_pages(PrintCopy::of(document).get(), ORVPageSetup::of(&document), ORVUnit::screenResolution())
{
    viewport()->setBackgroundRole(QPalette::Dark);
    verticalScrollBar()->setSingleStep(3 * gap);
    horizontalScrollBar()->setSingleStep(3 * gap);
}

void PageView::setZoom(double zoom)
{
    const double place = double(verticalScrollBar()->value()) / m_zoom;
    m_zoom = zoom;
    updateScrollBars();
    verticalScrollBar()->setValue(int(place * zoom));
    viewport()->update();
}

/*! Where the page stands in the viewport. */
QRect PageView::pageRect(int page) const
{
    const QSize size = (m_paperSize * m_zoom).toSize();
    const int left = qMax(gap, (viewport()->width() - size.width()) / 2);
    const int top = gap + page * (size.height() + gap);
    return QRect(QPoint(left - horizontalScrollBar()->value(), top - verticalScrollBar()->value()), size);
}

void PageView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    for (int page = 0; page < pageCount(); ++page) {
        const QRect rect = pageRect(page);
        if (!rect.intersects(event->rect()))
            continue;
        painter.fillRect(rect, Qt::white);
        painter.save();
        painter.setClipRect(rect);
        painter.translate(rect.topLeft());
        painter.scale(m_zoom, m_zoom);
        m_pages.paintPage(&painter, page);
        painter.restore();
    }
}

void PageView::resizeEvent(QResizeEvent*)
{
    updateScrollBars();
}

void PageView::updateScrollBars()
{
    const QSize page = (m_paperSize * m_zoom).toSize();
    const QSize all(page.width() + 2 * gap, gap + pageCount() * (page.height() + gap));
    horizontalScrollBar()->setRange(0, all.width() - viewport()->width());
    horizontalScrollBar()->setPageStep(viewport()->width());
    verticalScrollBar()->setRange(0, all.height() - viewport()->height());
    verticalScrollBar()->setPageStep(viewport()->height());
}
