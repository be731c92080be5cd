#ifndef TEXTDOCSUPPORT_H
#define TEXTDOCSUPPORT_H

#include "ORVPlatformGlobal.h"

class QImage;
class QObject;
class QString;
class QTextDocument;

/*! What QTextDocument does not do, or not well: whole copies, page breaks stated in one way, pictures. */
namespace TextDocSupport {

/*!
    A deep copy of \a document with \a parent as its parent object; the caller owns it. Null when \a document
    is null.

    The copy has the content, formats, lists, tables, resources, default font, style sheet and text option,
    title and URLs, page size and margins, page breaks and dynamic properties of the original. It has no undo
    stack, and what belongs to a view only (hidden blocks, the object name, a limit of blocks) is not copied.
*/
ORV_PLATFORM_EXPORT QTextDocument* cloneDocumentQtStyle(const QTextDocument* document, QObject* parent);

/*!
    Switches off the flags of the document's default text option that show what is not text (tabs and spaces,
    line and paragraph separators, …). Does nothing when \a document is null.
*/
ORV_PLATFORM_EXPORT void clearDefaultTextOptionFlags(QTextDocument* document);

/*!
    Turns each page break after a block into a page break before the block that follows it (in the order of
    the text, so also into a table, within it and out of it), so that every break is stated in one way. A
    break after the last block stays, and so does what else QTextFormat::PageBreakPolicy says. One undo step.
    Does nothing when \a document is null.
*/
ORV_PLATFORM_EXPORT void normalizePageBreaks(QTextDocument* document);

/*!
    The picture that \a document stores under \a name, null when there is none. \a name is a URL, relative to
    the document's base URL. Resources that are images, pixmaps (with a QGuiApplication) or encoded bytes give
    a picture, and so do "data:" URLs and, with names that begin with "qrc:/", the resources compiled into the
    application.

    Nothing is loaded from disk, whatever the name: a name can come from a document that a stranger made. For
    the time of the call a document that is asked for a local name is the child of another object, so the
    thread that calls must be the one that may change \a document.
*/
ORV_PLATFORM_EXPORT QImage image(const QTextDocument* document, const QString& name);

} // namespace TextDocSupport

#endif
