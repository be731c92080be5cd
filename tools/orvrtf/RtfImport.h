#ifndef ORVRTF_RTFIMPORT_H
#define ORVRTF_RTFIMPORT_H

class ORVTextRtfReader;
class QTextDocument;

/*! Has \a reader read into \a document, and puts the page that it finds on it. False when it met an error. */
bool readRtfWithPage(ORVTextRtfReader& reader, QTextDocument* document);

#endif
