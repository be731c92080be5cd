#ifndef ORVPAGEGEOMETRY_H
#define ORVPAGEGEOMETRY_H

#include "ORVRtfGlobal.h"

#include <QtCore/QMargins>
#include <QtCore/QRectF>
#include <QtCore/QSizeF>

class QTextDocument;

/*!
    A page: the size of the paper and the margins around the text, in points. A value type.

    A default-constructed page is US Letter with margins of 1.25 inches at the sides and 1 inch above and
    below, as RTF has it where a file says nothing of its page.
*/
struct ORV_RTF_EXPORT ORVPageGeometry {
    /*! Width and height of the paper. */
    QSizeF paperSize = QSizeF(612, 792);
    /*! \name Margins
        Empty space between the edges of the paper and the text. */
    //!@{
    double leftMargin = 90; //!< At the left.
    double rightMargin = 90; //!< At the right.
    double topMargin = 72; //!< Above the text; the header stands in it.
    double bottomMargin = 72; //!< Below the text; the footer stands in it.
    //!@}

    /*!
        The page that the dynamic properties "paperSize" (QSizeF), "leftMargin", "rightMargin", "topMargin"
        and "bottomMargin" (numbers) of \a document describe, all in points; what is missing is as
        default-constructed. A default-constructed page when \a document is null.
    */
    static ORVPageGeometry of(const QTextDocument* document);
    /*!
        The page with paper of the size \a paper and the margins \a margins, both in twips, as
        ORVTextRtfReader has them.
    */
    static ORVPageGeometry fromTwips(const QSize& paper, const QMargins& margins);
    /*! Sets those properties of \a document; does nothing when it is null. */
    void setOn(QTextDocument* document) const;

    /*! Width of the text between the margins, in points, as exact as twips are. May be 0 or less. */
    double textWidth() const;
    /*!
        Where the text stands on the paper, in points. Paper that is too small to show anything counts as US
        Letter, margins that are no finite numbers as 0, and margins that leave no room for text make way for
        it.
    */
    QRectF textArea() const;
    /*! The paper that textArea() lies on, in points: paperSize, unless that is too small or too large. */
    QSizeF usablePaperSize() const;
};

#endif
