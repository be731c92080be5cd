#ifndef ORVRTFWRITERSETTINGS_P_H
#define ORVRTFWRITERSETTINGS_P_H

#include "ORVTextRtf.h"

#include <QtGui/QColor>

/*! The settings of a writer, each described at its setter in ORVTextRtfWriter. */
struct ORVRtfWriterSettings {
    bool exportingMode = false;
    bool paragraphBeforeTableEnded = false;
    bool highlightForMsWord = false;
    bool decorateHyperlinks = false;
    QColor hyperlinksColor = QColor(0, 0, 255);
    bool footnotesWithLeadingSpace = false;
    ORVTextRtf::ExportStyle footnoteDestination = ORVTextRtf::ExportAsFootnote;
    ORVTextRtf::ExportStyle annotationDestination = ORVTextRtf::ExportAsAnnotation;
};

#endif
