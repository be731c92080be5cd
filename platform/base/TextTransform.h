#ifndef TEXTTRANSFORM_H
#define TEXTTRANSFORM_H

#include "ORVFormat.h"
#include "ORVImportExport.h"
#include "ORVPlatformGlobal.h"

class QString;

/*!
    Converts files of word processors by running other programs: LibreOffice, AbiWord or pandoc, whichever is
    installed. All functions are thread-safe. None needs an event loop or an application object.
*/
namespace TextTransform {

/*! The result of a conversion. errorDescription() describes it in words. */
enum Error : int {
    /*! The target holds the converted document. */
    NoError = 0,
    /*! No supported program converts from the source's format, or to the requested one. */
    UnsupportedFormat,
    /*! The source does not exist, is not a file, or may not be read. */
    SourceNotReadable,
    /*! The program is not installed; with AutomaticEngine, none is. */
    ToolNotFound,
    /*! The program could not be started, crashed, or ended with an error. */
    ToolFailed,
    /*! The program was killed at the time limit. */
    ToolTimedOut,
    /*! The program wrote no output, or the output could not be stored. */
    NoOutput
};

/*!
    Converts the file \a source (.doc, .docx, .odt, .rtf, .html or .htm) to the file \a target in \a format
    with \a engine, and waits until that is done, at most as long as set with setTimeout().

    AutomaticEngine runs the first installed program that can do the conversion. If that fails, no other is
    tried. LibreOffice converts between all of these formats; AbiWord reads no HTML and pandoc no .doc, and
    both write Rtf and PlainText (UTF-8) only.

    A new \a target is readable by its owner only. An existing one is replaced and keeps its permissions.
    Unless NoError is returned, \a target is left alone, and \a errorString, unless null, gets more detail
    than errorDescription(): the programs that were looked for, the program's output. On success it is left
    alone. No other file is left behind. The last argument is ignored; callers of libraries that replace this
    one pass it.

    The program works on a copy in a folder of its own, with its own settings, and does not load pictures or
    other files from elsewhere. It has no display. At the time limit it is killed, together with the programs
    that it started.
*/
ORV_PLATFORM_EXPORT Error transformFileViaTools(const QString& source, const QString& target,
                                                ORVFormat::Format format, ORVImportExport::Engine engine,
                                                QString* errorString, bool);

/*! A description of \a error in the user's language, empty for NoError. */
ORV_PLATFORM_EXPORT QString errorDescription(Error error);

/*!
    Sets the program that is run for \a engine: a path, or a name that is looked up in PATH. An empty string
    restores the default. Does nothing for AutomaticEngine, which has no program of its own.
*/
ORV_PLATFORM_EXPORT void setToolPath(ORVImportExport::Engine engine, const QString& program);

/*! Limits each conversion to \a milliseconds (default 120000). A value below 1 removes the limit. */
ORV_PLATFORM_EXPORT void setTimeout(int milliseconds);

} // namespace TextTransform

#endif
