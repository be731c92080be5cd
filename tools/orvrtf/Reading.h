#ifndef ORVRTF_READING_H
#define ORVRTF_READING_H

#include "Options.h"

#include <QStringList>

class QTextDocument;

/*! How a file was read. */
struct ReadResult {
    /*! Whether the file could be read, though its RTF may be damaged. */
    bool hasInput = false;
    /*! Of RTF: 0 unless it is damaged. */
    int status = 0;
    QString message;
    /*! Why another program could not convert the file. */
    QStringList engineErrors;
};

/*! How files are read. */
struct ReadOptions {
    /*! RTF is in the application's own form. */
    bool storage = false;
    /*! For files of word processors. */
    ORVImportExport::Engine engine = ORVImportExport::AutomaticEngine;
};

/*! Reads \a source into \a document, with the page that it defines. RTF leaves the document in the application's form. */
ReadResult readDocument(const Source& source, const ReadOptions& options, QTextDocument& document);

/*! Prints why reading \a path failed, if it did. Returns the exit status for it. */
ExitCode reportReading(const QString& path, const ReadResult& result);

#endif
