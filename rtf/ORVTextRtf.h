#ifndef ORVTEXTRTF_H
#define ORVTEXTRTF_H

#include "ORVRtfGlobal.h"

#include <ORVImportExport.h>

#include <QtCore/QStringList>

class QByteArray;
class QFont;
class QString;
class QTextCharFormat;
class QTextDocument;

/*!
    Converts between RTF and QTextDocument: the functions that an application calls.

    Each call builds a reader or writer, uses it once and destroys it. Nothing is thrown; documents and
    strings belong to the caller.
*/
class ORV_RTF_EXPORT ORVTextRtf {
public:
    /*! Where footnotes and annotations go in the RTF that is written. */
    enum ExportStyle { ExportAsAnnotation = 0, ExportAsFootnote = 1, ExportAsAlternateFootnote = 2 };

    /*!
        Replaces the content of \a document by the RTF in \a data.

        Returns false when \a document is null or the RTF is damaged; then the document holds what could be
        read, and \a errorMessage, unless null, the reader's message.
    */
    static bool fromRtfData(const QByteArray& data, QTextDocument* document, QString* errorMessage);

    /*! As fromRtfData(), for RTF that the application keeps in its own storage, without a message. */
    static bool fromRtfCData(const QByteArray& data, QTextDocument* document);

    /*! The plain text of the RTF in \a data; a null string when the RTF is damaged. */
    static QString rtfCDataText(const QByteArray& data);

    /*!
        The RTF that property \a propertyId of \a format holds (a note, for example), as HTML when \a asHtml
        is true and as plain text otherwise. A null string when the property is missing, empty or damaged.
    */
    static QString rtfProperty(int propertyId, const QTextCharFormat& format, bool asHtml);

    /*!
        \a document as RTF; empty when it is null or cannot be written. With \a inPlace true no copy of it is
        made, see ORVTextRtfWriter::write(). \a exportingMode is for what other programs or printers are to
        get, see ORVTextRtfWriter::setExportingMode(); notes then begin with a blank.
    */
    static QByteArray toRtfData(const QTextDocument* document, bool inPlace, bool exportingMode);

    /*! As toRtfData(), for RTF that the application keeps in its own storage. */
    static QByteArray toRtfCData(const QTextDocument* document, bool inPlace);

    /*! \a text as RTF, in \a font unless that is null. Line feeds end paragraphs. */
    static QByteArray textToRtf(const QString& text, const QFont* font);

    /*!
        Replaces the content of \a document by the RTF file \a fileName.

        Returns false, without a message, when the file does not exist or cannot be read; otherwise as
        fromRtfData().
    */
    static bool fromRtfFile(const QString& fileName, QTextDocument* document, QString* errorMessage);

    /*!
        Writes \a document to the file \a fileName, step by step checked; \a errorMessage, unless null, gets
        the reason of a failure in words. A file that could not be written in full is left as it is.
    */
    static bool toRtfFile(const QString& fileName, const QTextDocument* document, QString* errorMessage,
                          bool inPlace, bool exportingMode);

    /*!
        Writes \a document straight to the file \a fileName, without having it in memory. Only a file that
        does not open is reported: \a errorMessage, unless null, is then the system's message.
    */
    static bool toRtfFileDirect(const QString& fileName, const QTextDocument* document, QString* errorMessage,
                                bool inPlace);

    /*!
        Replaces the content of \a document by that of the file \a fileName, whose suffix, in upper or lower
        case, says what it is: .txt (Latin-1), .html (UTF-8), .rtf, or .doc, .docx and .odt, which \a engine
        turns into RTF first, see TextTransform::transformFileViaTools(). The thread waits for that.

        Returns true when there is nothing to complain about. Messages in words replace what \a errors holds,
        unless that is null; with RTF that is damaged the document then holds what could be read. Two failures
        come without a message: for any other suffix (also .htm) false is returned and \a errors left alone;
        for a .txt or .html file that is missing or unreadable the result is true. Neither touches the
        document.
    */
    static bool loadFileIntoDocument(const QString& fileName, QTextDocument* document,
                                     ORVImportExport::Engine engine, QStringList* errors);
};

#endif
