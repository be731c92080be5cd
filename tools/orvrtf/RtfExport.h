#ifndef ORVRTF_RTFEXPORT_H
#define ORVRTF_RTFEXPORT_H

#include <ORVTextRtf.h>

#include <QByteArray>

class QTextDocument;

/*! How RTF is to be written. */
struct RtfExportOptions {
    /*! The application's own form, instead of one for other programs. */
    bool storage = false;
    bool msWordHighlight = false;
    bool decorateLinks = false;
    ORVTextRtf::ExportStyle footnotes = ORVTextRtf::ExportAsFootnote;
    ORVTextRtf::ExportStyle annotations = ORVTextRtf::ExportAsAnnotation;
};

/*! \a document as RTF. The document is changed: see ORVTextRtfWriter::write() in place. */
QByteArray documentToRtf(const QTextDocument& document, const RtfExportOptions& options);

#endif
