#ifndef PDFFILE_H
#define PDFFILE_H

class QString;
class QTextDocument;

/*! Documents as PDF. */
namespace PdfFile {

/*!
    Writes \a document, as its print preview shows it, to the file \a fileName. When that fails, \a message
    says why, and a file that was there before is still there.
*/
bool save(const QString& fileName, const QTextDocument& document, QString* message);

} // namespace PdfFile

#endif
