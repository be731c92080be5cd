#ifndef ORVPAGELABELS_P_H
#define ORVPAGELABELS_P_H

#include "ORVStockLists_p.h"
#include "ORVTextListLabels.h"

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QTextBlockFormat>

class QPaintDevice;
class QPainter;
class QTextBlock;
class QTextDocument;
class QTextLayout;

/*!
    The labels of list items on pages. Qt's own have one level, and stand wherever the text leaves room; in word
    processors they stand at the position of the first line, and what follows them decides where the text begins.
*/
class ORVPageLabels {
public:
    /*!
        Makes room for the labels in \a document, which is in stock form and shows no other ones from now on.
        \a device is that of its layout, which must not have begun.
    */
    ORVPageLabels(QTextDocument* document, QPaintDevice* device);

    /*! The text of the label of \a block; empty when it has none. */
    QString text(const QTextBlock& block) const;

    /*! Finds the page of each label, once the document is laid out on pages of \a pageHeight. */
    void assignPages(double pageHeight);

    /*! Paints the labels of \a page; the painter's origin is that of the document. */
    void paint(QPainter* painter, int page) const;

private:
    struct Label {
        QString text;
        int block;
        /*! From where the label begins to where the text does, in pixels. */
        double distance;
    };

    void addItem(const QTextBlock& block, const ORVTextListLabels::Label& label);
    double textStart(const QTextBlock& block, const QTextBlockFormat& format, double labelStart,
                     double labelEnd, ORVTextListLevel::Follow follow) const;
    double nextTabStop(const QTextBlock& block, const QTextBlockFormat& format, double labelStart,
                       double position) const;
    void hideQtLabels();
    void lay(QTextLayout& layout, const QTextBlock& block) const;
    void paintLabel(QPainter* painter, const Label& label) const;

    QTextDocument* m_document;
    QPaintDevice* m_device;
    ORVStockLists m_lists;
    // In the order of their blocks.
    QVector<Label> m_labels;
    // The numbers of the labels on each page.
    QHash<int, QVector<int>> m_pages;
};

#endif
