#ifndef ORVRTF_OPTIONS_H
#define ORVRTF_OPTIONS_H

#include "BatchPlan.h"
#include "RtfExport.h"

#include <ORVImportExport.h>

#include <QString>
#include <QStringList>

/*! What the program exits with. */
enum ExitCode { Success = 0, Failure = 1, UsageError = 2 };

/*! What the command line asks for. */
struct Options {
    enum Command { Help, Version, Convert, Batch, Info, Check, Strip, Invalid };
    /*! The first three can be read as well as written. */
    enum Format { Html, PlainText, Rtf, Odt, Pdf, Png };

    Command command = Invalid;
    /*! Path of the input, "-" for the standard input. */
    QString input;
    /*! Path of the output, "-" for the standard output; of Convert and Strip. */
    QString output;
    Format inputFormat = Rtf;
    /*! Whether the input is of a word processor, which engine converts, and inputFormat says nothing. */
    bool needsEngine = false;
    ORVImportExport::Engine engine = ORVImportExport::AutomaticEngine;
    Format outputFormat = Html;
    /*! Whether RTF is read and written in the application's own storage form. */
    bool storage = false;
    RtfExportOptions rtf;
    /*! Of Batch, and all that it needs. */
    BatchPlan batch;
    bool json = false;
    /*! Languages of the messages, see Translations. */
    QStringList languages;
    /*! What --help prints, for Help; what is wrong with the command line, for Invalid. */
    QString text;

    /*! Whether the command reads a document: Convert, Info, Check and Strip. */
    bool needsDocuments() const;
    /*! Whether the command measures or writes text, and so needs a QGuiApplication: Convert and Info. */
    bool needsFonts() const { return command == Convert || command == Info; }

    /*! Reads \a arguments, the program's name first. Needs a QCoreApplication. */
    static Options parse(const QStringList& arguments);
};

#endif
