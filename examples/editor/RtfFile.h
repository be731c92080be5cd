#ifndef RTFFILE_H
#define RTFFILE_H

class QMimeData;
class QString;
class QTextDocument;

/*! Documents in files: what an application needs besides the library's own functions. */
namespace RtfFile {

enum class Opened { Completely, InPart, NotAtAll };

/*!
    Replaces the content of \a document by the file \a fileName. Of a damaged file the document gets what can
    be read; when the file cannot be read at all, the document stays as it is. In both cases \a message says
    what is wrong.
*/
Opened open(const QString& fileName, QTextDocument* document, QString* message);

/*!
    Writes \a document to the file \a fileName: for any word processor to open, unless it has revision levels.
    Those are kept, in the application's own form of RTF, of which word processors may leave out the text that
    has them. On failure \a message says why, and a file that was there before is still there.
*/
bool save(const QString& fileName, const QTextDocument& document, QString* message);

/*! As save(), for any word processor in any case: revision levels become colours. */
bool exportTo(const QString& fileName, const QTextDocument& document, QString* message);

/*! The RTF file that \a mime holds when it is dragged from a file manager, empty when it holds none. */
QString nameOn(const QMimeData* mime);

} // namespace RtfFile

#endif
