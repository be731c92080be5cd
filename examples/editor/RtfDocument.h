#ifndef RTFDOCUMENT_H
#define RTFDOCUMENT_H

#include <memory>

class QByteArray;
class QString;
class QTextDocument;

/*!
    RTF from and for documents that a QTextEdit shows.

    The library reads and writes documents whose lengths are points, in properties of its own. A QTextEdit
    shows Qt's own properties, in pixels. So documents are translated after reading and before writing.
*/
namespace RtfDocument {

/*! Whose RTF it is: that of word processors, or that of this application. */
enum class Form { Interchange, Storage };

/*!
    Replaces the content of \a document by \a rtf, ready to be shown, with the page of the RTF as its
    properties. False for damaged RTF; \a document then has what can be read, and \a message the error.
*/
bool read(const QByteArray& rtf, Form form, QTextDocument* document, QString* message);

/*! A copy of \a document as it was read, but for what has been changed since: to be written as RTF. */
std::unique_ptr<QTextDocument> toWrite(const QTextDocument& document);

/*! Whether some text of \a document has a revision level, for which RTF of other programs has no word. */
bool hasRevisionLevels(const QTextDocument& document);

} // namespace RtfDocument

#endif
