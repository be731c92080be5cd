#ifndef ORVPAGEPAINTER_H
#define ORVPAGEPAINTER_H

#include "ORVPageGeometry.h"
#include "ORVPagePlaces.h"
#include "ORVRtfGlobal.h"

#include <QtCore/QScopedPointer>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QFont>

class ORVPagePainterPrivate;
class QPainter;
class QTextDocument;

/*! What all pages of a document have in common. */
struct ORV_RTF_EXPORT ORVPageSetup {
    /*! A header or footer. */
    struct MarginText {
        /*!
            "<$p>" stands for the page number, "<$pagecount>" for the number of pages; empty for none. What
            follows the first tab of a line is centred, what follows the second one ends at the right edge.
        */
        QString text;
        /*! Only the horizontal alignment is used. */
        Qt::Alignment alignment = Qt::AlignLeft;
        /*! Font of the whole text. */
        QFont font;
    };

    /*! Paper and margins. */
    ORVPageGeometry page;
    /*! In the top margin. */
    MarginText header;
    /*! In the bottom margin. */
    MarginText footer;
    /*! Whether the first page has a header and footer too. */
    bool firstPageHasMarginTexts = true;
    /*! Number of the first page. */
    int firstNumber = 1;

    /*!
        The set-up that dynamic properties of \a document describe: the page (see ORVPageGeometry::of()),
        "header" and "footer" (ORVTextPage), "notOnFirstPage" and "countFirstPage" (bool). ORVTextRtfWriter
        writes the same properties. Unless the first page is counted, the second page has the number 1.
        A default-constructed set-up when \a document is null.
    */
    static ORVPageSetup of(const QTextDocument* document);
};

/*!
    Divides a document into pages and paints them: for printing, a preview, PDF or pictures. The pages are the
    same for all of them.

    The document is to be in stock form (see ORVStockFormats), with pixels of ORVUnit::screenResolution(),
    which must be the resolution that Qt counts with (QScreen::logicalDotsPerInch(), or 96 with
    Qt::AA_Use96Dpi). Needs a QGuiApplication.
*/
class ORV_RTF_EXPORT ORVPagePainter {
public:
    /*!
        Lays out a copy of \a document, which stays as it is, on pages of \a setup, for painting with
        \a resolution pixels to the inch. A null \a document counts as an empty one.
    */
    ORVPagePainter(const QTextDocument* document, const ORVPageSetup& setup, int resolution);
    ~ORVPagePainter();

    /*! Pixels to the inch, at least 1. */
    int resolution() const;

    /*! Size of the paper, in points. */
    QSizeF paperSize() const;

    /*! Number of pages, at least 1. */
    int pageCount() const;

    /*!
        The headings that have text, from the beginning of the document to its end. A heading that is an item of
        a numbered list has its number in the title.
    */
    QVector<ORVPageHeading> headings() const;

    /*!
        The links, in the order of the text: one for each line of a link. A link is text or a picture with a
        target (QTextCharFormat::anchorHref()), or a mark of a note that ORVNotes::moveToEnd() has linked.
        "#" and a name lead to the text that has this anchor name, and nowhere if none has it. Scripts are not
        links. Nor are, in a line with more than 250 links, the further ones.
    */
    QVector<ORVPageLink> links() const;

    /*!
        Paints page \a page, counted from 0. The painter's origin is where the upper left corner of the paper
        is to be, and its pixels are those of the resolution. Nothing is painted where the paper is empty, and
        nothing at all for a page that does not exist. Does nothing when \a painter is null.
    */
    void paintPage(QPainter* painter, int page) const;

private:
    Q_DISABLE_COPY(ORVPagePainter)
    const QScopedPointer<ORVPagePainterPrivate> d;
};

#endif
