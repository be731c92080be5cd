#ifndef TEXTTRANSFORM_H
#define TEXTTRANSFORM_H

#include "ORVFormat.h"
#include "ORVImportExport.h"
#include "ORVPlatformGlobal.h"

class QString;

/*!
    Converts files of word processors by running other programs: LibreOffice, AbiWord or pandoc, as they are
    installed. All functions are thread-safe; none needs an event loop or an application object.
*/
namespace TextTransform {

/*! How a conversion went. errorDescription() has it in words. */
enum Error {
    /*! The target holds the converted document. */
    NoError = 0,
    /*! No program known here converts from the source's format, or into the one asked for. */
    UnsupportedFormat,
    /*! The source does not exist, is not a file, or may not be read. */
    SourceNotReadable,
    /*! The program is not installed; with AutomaticEngine, none is. */
    ToolNotFound,
    /*! The program could not be started, crashed, or ended with an error. */
    ToolFailed,
    /*! The program was killed at the time limit. */
    ToolTimedOut,
    /*! The program wrote nothing, or what it wrote could not be stored. */
    NoOutput
};

/*!
    Converts the file \a source (.doc, .docx, .odt, .rtf, .html or .htm) into the file \a target in \a format
    with \a engine, and waits until that is done, at most as long as setTimeout() says.

    AutomaticEngine takes the first installed program that can do the conversion; when that one fails, no
    other is tried. LibreOffice converts between all of these; AbiWord reads no HTML, pandoc no .doc, and both
    write Rtf and PlainText (UTF-8) only.

    A new \a target can be read by its owner only; one that was there is replaced and keeps its permissions.
    Unless NoError is returned, \a target is left as it was, and \a errorString, unless null, says more about
    what went wrong than errorDescription() does: which programs were looked for, what the program printed. It
    is left alone on success. No other file stays behind. The last argument is there for the callers of
    libraries that stand in for this one; it makes no difference here.

    The program works on a copy in a folder of its own, with settings of its own, and does not fetch pictures
    and the like from other places. It is given no display. At the time limit it is killed, and with it the
    programs that it started.
*/
ORV_PLATFORM_EXPORT Error transformFileViaTools(const QString& source, const QString& target,
                                                ORVFormat::Format format, ORVImportExport::Engine engine,
                                                QString* errorString, bool);

/*! What \a error means, in the user's language; empty for NoError. */
ORV_PLATFORM_EXPORT QString errorDescription(Error error);

/*!
    Makes \a program the one to run for \a engine: a path, or a name to be looked up in PATH. An empty string
    brings back the usual name. AutomaticEngine has no program of its own: nothing happens.
*/
ORV_PLATFORM_EXPORT void setToolPath(ORVImportExport::Engine engine, const QString& program);

/*! Limits each conversion to \a milliseconds, 120000 unless set; below 1 there is no limit. */
ORV_PLATFORM_EXPORT void setTimeout(int milliseconds);

} // namespace TextTransform

#endif
