#ifndef ORVTEXTRTF_H
#define ORVTEXTRTF_H

#include "ORVRtfGlobal.h"

#include "ORVImportExport.h"

#include <QtCore/QStringList>

class ORVTextRtfWriter;
class QByteArray;
class QFont;
class QMimeData;
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
    /*!
        Where footnotes and annotations go in the RTF that is written. A setting of ORVTextRtfWriter;
        applications know it under this class.
    */
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
        Puts \a document on \a mime as RTF for other programs, for the clipboard and for drag and drop: the
        same bytes under each of ORV::rtfMimeTypes(). They are those of toRtfData(document, false, false),
        but a paragraph in front of a table is ended before it, see
        ORVTextRtfWriter::setParagraphBeforeTableEnded(). Other types on \a mime stay. Does nothing when one
        of the two is null.
    */
    static void setRtfMimeData(QMimeData* mime, const QTextDocument* document);

    /*!
        Whether \a mime has one of ORV::rtfMimeTypes(), be it with or without bytes. The application's own
        flavour does not count. \a mime must not be null.
    */
    static bool hasRtfMimeData(const QMimeData* mime);

    /*!
        Replaces the content of \a document by RTF on \a mime: the first of ORV::rtfMimeTypes(), in their
        order, that is there, not empty and not damaged.

        False when there is none or one of the two is null. When nothing but damaged RTF was there, the
        document holds what could be read of the last; when there was no RTF at all, it is untouched.
    */
    static bool fromRtfMimeData(const QMimeData* mime, QTextDocument* document);

    /*!
        Replaces the content of \a document by the RTF that \a mime has under \a type.

        False when one of the two is null, when there is no such type, or nothing under it; then the document
        is untouched. False, too, when the RTF is damaged; then it holds what could be read.
    */
    static bool parseRtfMimeData(const QString& type, const QMimeData* mime, QTextDocument* document);

    /*!
        Puts \a document on \a mime in the application's own flavour, under ORV::OrvellineMarkupRtfMimeType
        only: the bytes of toRtfData(document, inPlace, false), the form in which texts are stored. Does
        nothing when one of the two is null.
    */
    static void setOrvellineMarkupRtfMimeData(QMimeData* mime, const QTextDocument* document, bool inPlace);

    /*! As parseRtfMimeData(), of the type ORV::OrvellineMarkupRtfMimeType. */
    static bool fromOrvellineMarkupRtfMimeData(const QMimeData* mime, QTextDocument* document);

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

private:
    /*! \a document as \a writer, with the settings it has, writes it; empty when it cannot be written. */
    static QByteArray written(ORVTextRtfWriter& writer, const QTextDocument* document, bool inPlace);
};

#endif
