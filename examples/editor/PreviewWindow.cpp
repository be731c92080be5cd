#include "PreviewWindow.h"

#include "PageView.h"

#include <QAction>
#include <QLabel>
#include <QToolBar>

namespace {

const double zoomStep = 1.25;
const double leastZoom = 0.2;
const double greatestZoom = 5;

} // namespace

PreviewWindow::PreviewWindow(const QTextDocument& document, QWidget* parent)
    : QMainWindow(parent), m_view(new PageView(document, this))
{
    setWindowTitle(tr("Print preview"));
    setCentralWidget(m_view);
    QToolBar* bar = addToolBar(tr("Zoom"));
    const auto addZoom = [&](const QString& text, QKeySequence::StandardKey key, double factor) {
        QAction* action = bar->addAction(text);
        action->setShortcut(key);
        connect(action, &QAction::triggered, m_view,
                [=] { m_view->setZoom(qBound(leastZoom, m_view->zoom() * factor, greatestZoom)); });
    };
    addZoom(tr("Zoom &in"), QKeySequence::ZoomIn, zoomStep);
    addZoom(tr("Zoom &out"), QKeySequence::ZoomOut, 1 / zoomStep);
    bar->addSeparator();
    QAction* close = bar->addAction(tr("&Close"));
    close->setShortcut(Qt::Key_Escape);
    connect(close, &QAction::triggered, this, &QWidget::close);
    bar->addSeparator();
    bar->addWidget(new QLabel(tr("Pages: %1").arg(m_view->pageCount()), bar));
    resize(900, 760);
}
