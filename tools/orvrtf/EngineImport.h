#ifndef ORVRTF_ENGINEIMPORT_H
#define ORVRTF_ENGINEIMPORT_H

#include <ORVImportExport.h>

#include <QStringList>

class QTextDocument;

/*!
    Loads the word processor file \a path into \a document, by way of \a engine and of RTF, with the page that
    it is on. Returns what went wrong in words, nothing when all is well.
*/
QStringList loadWithEngine(const QString& path, ORVImportExport::Engine engine, QTextDocument* document);

#endif
