#ifndef ORVRTF_OPTIONS_H
#define ORVRTF_OPTIONS_H

#include "BatchPlan.h"
#include "ExportOptions.h"

#include <ORVImportExport.h>

#include <QString>
#include <QStringList>

/*! What the program exits with. */
enum ExitCode {
    Success = 0,
    Failure = 1,
    UsageError = 2,
    /*! Of Diff, whose exit status is that of diff(1). */
    Different = 1,
    DiffFailure = 2
};

/*! A file to read. */
struct Source {
    /*! "-" for the standard input. */
    QString path;
    FileFormat format = FileFormat::Rtf;
    /*! Whether the file is of a word processor, which an engine converts, and its format is of no importance. */
    bool needsEngine = false;
};

/*! What the command line asks for. */
struct Options {
    enum Command { Help, Version, Convert, Batch, Info, Check, Strip, Diff, Invalid };

    Command command = Invalid;
    Source input;
    /*! Of Diff, what the input is compared with. */
    Source other;
    /*! Of Convert, Strip and Diff. */
    ExportOptions output;
    ORVImportExport::Engine engine = ORVImportExport::AutomaticEngine;
    /*! Whether RTF is read and written in the application's own storage form. */
    bool storage = false;
    /*! Of Batch, and all that it needs. */
    BatchPlan batch;
    bool json = false;
    /*! Languages of the messages, see Translations. */
    QStringList languages;
    /*! What --help prints, for Help; what is wrong with the command line, for Invalid. */
    QString text;

    /*! Whether the command reads a document: Convert, Info, Check, Strip and Diff. */
    bool needsDocuments() const;
    /*! Whether the command measures or writes text, and so needs a QGuiApplication: Convert, Info and Diff. */
    bool needsFonts() const { return command == Convert || command == Info || command == Diff; }

    /*! Reads \a arguments, the program's name first. Needs a QCoreApplication. */
    static Options parse(const QStringList& arguments);
};

#endif
