#ifndef ORVPAGENAVIGATION_P_H
#define ORVPAGENAVIGATION_P_H

#include "ORVPagePlaces.h"

#include <QtCore/QHash>
#include <QtCore/QSizeF>
#include <QtCore/QVector>
#include <QtGui/QTextFormat>

class ORVPageLabels;
class QTextDocument;
class QTextFragment;

/*! Where the text stands on the pages of a document, in pixels of its layout. */
struct ORVPageArea {
    /*! Upper left corner of the text on each page. */
    QPointF topLeft;
    /*! Height of the text on a page. */
    double height;
    /*! Of the whole paper. */
    QSizeF paperSize;
    double pixelsPerPoint;
    int pageCount;
};

/*! What leads from one place of a document to another: headings, links and notes. */
class ORVPageNavigation {
public:
    /*!
        Finds the links of \a document, which is in stock form, before its layout begins. Those that stay
        anchors there are the ones that Qt's own writer of PDF can write: to addresses, which are ASCII now.
    */
    explicit ORVPageNavigation(QTextDocument* document);

    /*! All headings that have text, from the beginning to the end. \a labels are of the same document. */
    QVector<ORVPageHeading> headings(const ORVPageLabels& labels, const ORVPageArea& area) const;
    /*! All links that lead somewhere, in the order of the text. */
    QVector<ORVPageLink> links(const ORVPageArea& area) const;

private:
    /*! A run of text within a paragraph that is one link. */
    struct Link {
        int position;
        int length;
        /*! Empty for a link to an anchor. */
        QByteArray uri;
        QString anchor;
    };
    struct Change {
        int position;
        int length;
        QTextCharFormat format;
    };

    void addFragment(const QTextFragment& fragment, QVector<Change>* changes);
    void addLink(const Link& link);
    int positionOf(const QString& anchor) const;

    QTextDocument* m_document;
    QVector<Link> m_links;
    // Where the text of each anchor begins.
    QHash<QString, int> m_anchors;
};

#endif
