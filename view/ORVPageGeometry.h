#ifndef ORVPAGEGEOMETRY_H
#define ORVPAGEGEOMETRY_H

#include "ORVRtfGlobal.h"

#include <QtCore/QMargins>
#include <QtCore/QRectF>
#include <QtCore/QSizeF>

class ORVTextRtfReader;
class QTextDocument;

/*!
    The geometry of a page in points: paper size and margins. A value type.

    A default-constructed page is US Letter with margins of 1.25 inches at the sides and 1 inch at top and
    bottom, the defaults of RTF.
*/
struct ORV_RTF_EXPORT ORVPageGeometry {
    /*! Width and height of the paper. */
    QSizeF paperSize = QSizeF(612, 792);
    /*!
        \name Margins
        Distances between the edges of the paper and the text.
    */
    //!@{
    double leftMargin = 90; //!< Left margin.
    double rightMargin = 90; //!< Right margin.
    double topMargin = 72; //!< Top margin, which contains the header.
    double bottomMargin = 72; //!< Bottom margin, which contains the footer.
    //!@}

    /*!
        The page described by the dynamic properties "paperSize" (QSizeF), "leftMargin", "rightMargin",
        "topMargin" and "bottomMargin" (numbers) of \a document, all in points. Missing properties have the
        default values. A default-constructed page when \a document is null.
    */
    static ORVPageGeometry of(const QTextDocument* document);
    /*!
        The page with paper size \a paper and margins \a margins, both in twips, as ORVTextRtfReader returns
        them.
    */
    static ORVPageGeometry fromTwips(const QSize& paper, const QMargins& margins);
    /*! The page that \a reader has found in what it read last. */
    static ORVPageGeometry of(const ORVTextRtfReader& reader);
    /*! Sets those properties of \a document; does nothing when it is null. */
    void setOn(QTextDocument* document) const;

    /*! Width of the text between the margins, in points, rounded to twips. May be 0 or less. */
    double textWidth() const;
    /*!
        The area of the text on the paper, in points. Paper too small to show anything is replaced by US
        Letter, margins that are not finite by 0, and margins that leave no room for text are reduced.
    */
    QRectF textArea() const;
    /*!
        The paper size that textArea() refers to, in points: paperSize, or US Letter when that is too small or
        too large.
    */
    QSizeF usablePaperSize() const;
};

#endif
