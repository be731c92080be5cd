#ifndef ORVRTFPAGE_P_H
#define ORVRTFPAGE_P_H

#include "ORVTextRtfCommon.h"

class QTextDocument;

/*! The page as RTF describes it: paper and margins in twips, US Letter by default. */
struct ORVRtfPage {
    int paperWidth = ORVTextRtfCommon::defaultPaperWidth;
    int paperHeight = ORVTextRtfCommon::defaultPaperHeight;
    int leftMargin = ORVTextRtfCommon::defaultLeftMargin;
    int rightMargin = ORVTextRtfCommon::defaultRightMargin;
    int topMargin = ORVTextRtfCommon::defaultTopMargin;
    int bottomMargin = ORVTextRtfCommon::defaultBottomMargin;

    /*! Width of the text between the margins, in twips. May be 0 or less, as files can have any numbers. */
    double textWidth() const { return double(paperWidth) - leftMargin - rightMargin; }

    /*!
        Sets the properties "paperSize", "leftMargin", "rightMargin", "topMargin" and "bottomMargin" of
        \a document, in points.
    */
    void setOn(QTextDocument* document) const;
};

#endif
