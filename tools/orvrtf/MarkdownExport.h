#ifndef ORVRTF_MARKDOWNEXPORT_H
#define ORVRTF_MARKDOWNEXPORT_H

#include <QString>

class QTextDocument;
struct ExportOptions;

/*!
    Writes \a document, which is in stock form, as Markdown to the path of \a options, with its pictures as files beside
    it or in the folder that the options name. Returns false on failure, with the reason in \a errorString; then no
    pictures are left behind.
*/
bool writeMarkdown(const QTextDocument& document, const ExportOptions& options, QString* errorString);

#endif
