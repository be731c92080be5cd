#ifndef ORVRTF_EXPORTOPTIONS_H
#define ORVRTF_EXPORTOPTIONS_H

#include "Formats.h"
#include "RtfExport.h"

#include <ORVHtmlWriter.h>

#include <QString>

/*! How a document is written. */
struct ExportOptions {
    /*! "-" for the standard output. */
    QString path;
    FileFormat format = FileFormat::Html;
    RtfExportOptions rtf;
    /*! Of HTML. */
    ORVHtmlWriter::Style htmlStyle = ORVHtmlWriter::FullStyle;
    /*! Folder for the pictures of HTML and Markdown; empty when none is given. */
    QString media;
    /*! Whether the cells of a table stand side by side in plain text. */
    bool tableLayout = false;
    /*! Columns that lines of plain text may have; 0 for any number. */
    int width = 0;
    /*! Whether LibreOffice writes ODT, not Qt. */
    bool odtByLibreOffice = false;
};

#endif
