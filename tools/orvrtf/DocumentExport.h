#ifndef ORVRTF_DOCUMENTEXPORT_H
#define ORVRTF_DOCUMENTEXPORT_H

#include <QString>

struct Options;
class QTextDocument;

/*!
    Writes \a document, as it has been read from the input of \a options, in the format and to the place that
    they say. Returns false when that fails, with the path that could not be written in \a path and the reason
    in \a errorString. The document is changed.
*/
bool exportDocument(QTextDocument& document, const Options& options, QString* path, QString* errorString);

#endif
