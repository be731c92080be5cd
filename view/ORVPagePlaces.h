#ifndef ORVPAGEPLACES_H
#define ORVPAGEPLACES_H

#include <QtCore/QByteArray>
#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QString>

/*! A place on a page of ORVPagePainter. */
struct ORVPagePlace {
    /*! Counted from 0. */
    int page = 0;
    /*! In points from the upper left corner of the paper. */
    QPointF position;
};

/*! A heading, for an outline of the document. */
struct ORVPageHeading {
    /*! The text in one line, behind its list number; without marks of notes. Never empty. */
    QString title;
    /*! From 1 for the highest level. */
    int level = 1;
    /*! Upper left corner of its first line. */
    ORVPagePlace place;
};

/*! A part of a link that stands in one line. */
struct ORVPageLink {
    /*! Page of the link, counted from 0. */
    int page = 0;
    /*! Where the text or picture of the link is, in points from the upper left corner of the paper. */
    QRectF area;
    /*! An address in ASCII; empty for a link to a place in the document. */
    QByteArray uri;
    /*! Upper left corner of the line that a link without an address leads to. */
    ORVPagePlace target;
};

#endif
