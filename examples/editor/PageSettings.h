#ifndef PAGESETTINGS_H
#define PAGESETTINGS_H

#include <ORVPageGeometry.h>
#include <ORVTextPage.h>

class QTextDocument;

/*! The page of a document, with all that the library keeps of it as properties of the document. */
struct PageSettings {
    ORVPageGeometry page;
    ORVTextPage header;
    ORVTextPage footer;
    /*! Whether the first page goes without header and footer. */
    bool notOnFirstPage = false;
    /*! Whether the first page has the number 1; else that is the second one. */
    bool countFirstPage = false;

    static PageSettings of(const QTextDocument& document);
    void setOn(QTextDocument* document) const;
};

#endif
