#ifndef ORVPAGEBORDERS_P_H
#define ORVPAGEBORDERS_P_H

#include "ORVTextBorder.h"

#include <QtCore/QHash>
#include <QtCore/QVector>

class QPainter;
class QRectF;
class QTextBlock;
class QTextDocument;

/*!
    Lines around the paragraphs of a document on pages, which Qt does not show. Neighbours with equal lines and
    indents stand in one box.
*/
class ORVPageBorders {
public:
    /*!
        Makes room for the lines in \a document, which is in stock form with \a resolution pixels per inch. The
        rulers by which Qt shows some of them go.
    */
    ORVPageBorders(QTextDocument* document, int resolution);

    /*! Finds the pages of all boxes, once the document is laid out on pages of \a pageHeight. */
    void assignPages(double pageHeight);

    /*! Paints the lines of \a page; the painter's origin is that of the document. */
    void paint(QPainter* painter, int page) const;

private:
    struct Box {
        // Numbers of blocks.
        int first;
        int last;
    };

    void addBoxes();
    void makeRoom();
    bool continuesBox(const QTextBlock& block) const;
    double outside(const QTextBlock& block, ORVTextBorder::Side side) const;
    double widthOf(const ORVTextBorder& border) const;
    QRectF textArea(const Box& box) const;
    QRectF outerArea(const Box& box, const QRectF& textArea) const;
    void paintBox(QPainter* painter, const Box& box, const QRectF& outer) const;

    QTextDocument* m_document;
    double m_pixelsPerPoint;
    double m_pageHeight = 0;
    QVector<Box> m_boxes;
    // Indexes of boxes.
    QHash<int, QVector<int>> m_pages;
};

#endif
