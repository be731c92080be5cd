#ifndef ORVRTF_HTMLEXPORT_H
#define ORVRTF_HTMLEXPORT_H

#include <QString>

class QTextDocument;
struct ExportOptions;

/*!
    Writes \a document, which is in stock form, as HTML to the path of \a options, with its pictures as a part of it or
    as files in the folder that the options name. Returns false on failure, with the reason in \a errorString; then no
    pictures are left behind.
*/
bool writeHtml(const QTextDocument& document, const ExportOptions& options, QString* errorString);

#endif
