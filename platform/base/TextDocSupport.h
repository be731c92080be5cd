#ifndef TEXTDOCSUPPORT_H
#define TEXTDOCSUPPORT_H

#include "ORVPlatformGlobal.h"

class QImage;
class QObject;
class QString;
class QTextDocument;

/*!
    Complete copies of documents, page breaks and pictures: what QTextDocument does not offer or does
    incompletely.
*/
namespace TextDocSupport {

/*!
    A deep copy of \a document with \a parent as its parent object. The caller owns it. Null when \a document
    is null.

    The copy has the content, formats, lists, tables, resources, default font, style sheet and text option,
    title and URLs, page size and margins, page breaks and dynamic properties of the original. It has no undo
    stack. State that belongs to a view (hidden blocks, the object name, a limit of blocks) is not copied.
*/
ORV_PLATFORM_EXPORT QTextDocument* cloneDocumentQtStyle(const QTextDocument* document, QObject* parent);

/*!
    Clears the flags of the default text option that make invisible characters visible (tabs, spaces, line and
    paragraph separators, …). Does nothing when \a document is null.
*/
ORV_PLATFORM_EXPORT void clearDefaultTextOptionFlags(QTextDocument* document);

/*!
    Moves each page break after a block to the beginning of the next block (in text order, so also into,
    within and out of a table), so that every break is a break before a block. A break after the last block
    and the other bits of QTextFormat::PageBreakPolicy are kept. One undo step. Does nothing when \a document
    is null.
*/
ORV_PLATFORM_EXPORT void normalizePageBreaks(QTextDocument* document);

/*!
    The picture that \a document stores under \a name, null when there is none. \a name is a URL, relative to
    the document's base URL. Resources can be images, pixmaps (with a QGuiApplication) or encoded bytes.
    "data:" URLs are decoded, and names that begin with "qrc:/" are looked up in the resources compiled into
    the application.

    Nothing is loaded from disk, whatever the name: it may come from an untrusted document. During the call
    the document may temporarily get another parent object, so call this from the thread that may change \a
    document.
*/
ORV_PLATFORM_EXPORT QImage image(const QTextDocument* document, const QString& name);

} // namespace TextDocSupport

#endif
