#ifndef ORVPAGELEADERS_P_H
#define ORVPAGELEADERS_P_H

#include <QtCore/QHash>
#include <QtCore/QVector>

class QPaintDevice;
class QPainter;
class QTextBlock;
class QTextDocument;
class QTextLine;

/*! What fills the room of tabs on pages (ORVRtfProperty::TabLeaders), for example the dots of a table of contents. */
class ORVPageLeaders {
public:
    /*! For \a document, which is in stock form. \a device is that of its layout. */
    ORVPageLeaders(const QTextDocument* document, QPaintDevice* device);

    /*! Finds the pages of all tabs, once the document is laid out on pages of \a pageHeight. */
    void assignPages(double pageHeight);

    /*! Paints the leaders of \a page; the painter's origin is that of the document. */
    void paint(QPainter* painter, int page) const;

private:
    struct Tab {
        int block;
        /*! In the text of the block. */
        int position;
        ushort leader;
    };

    void addTabs(const QTextBlock& block, double pageHeight);
    void paintTab(QPainter* painter, const Tab& tab) const;

    const QTextDocument* m_document;
    QPaintDevice* m_device;
    QHash<int, QVector<Tab>> m_pages;
};

#endif
