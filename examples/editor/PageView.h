#ifndef PAGEVIEW_H
#define PAGEVIEW_H

#include <ORVPagePainter.h>

#include <QAbstractScrollArea>

/*! Shows the pages of a document below each other, for scrolling. */
class PageView : public QAbstractScrollArea {
    Q_OBJECT

public:
    /*! Shows \a document as it is now; later changes of it are not shown. */
    PageView(const QTextDocument& document, QWidget* parent = nullptr);

    int pageCount() const { return m_pages.pageCount(); }
    /*! 1 shows the paper in its real size. */
    double zoom() const { return m_zoom; }
    void setZoom(double zoom);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QRect pageRect(int page) const;
    void updateScrollBars();

    QSizeF m_paperSize;
    ORVPagePainter m_pages;
    double m_zoom = 1;
};

#endif
