#ifndef ORVTEXTRTF_H
#define ORVTEXTRTF_H

#include "ORVRtfGlobal.h"

#include "ORVImportExport.h"

#include <QtCore/QStringList>

class ORVTextRtfReader;
class QByteArray;
class QFont;
class QMimeData;
class QString;
class QTextCharFormat;
class QTextDocument;

/*!
    Converts between RTF and QTextDocument: the functions for applications.

    Each call creates a reader or writer, uses it once and destroys it. No exceptions are thrown. Documents
    and strings belong to the caller.
*/
class ORV_RTF_EXPORT ORVTextRtf {
public:
    /*!
        How footnotes and annotations are written. Used by ORVTextRtfWriter, but applications expect it in
        this class.
    */
    enum ExportStyle { ExportAsAnnotation = 0, ExportAsFootnote = 1, ExportAsAlternateFootnote = 2 };

    /*!
        Replaces the content of \a document by the RTF in \a data.

        Returns false when \a document is null or the RTF is damaged. Then the document contains what could be
        read, and \a errorMessage, unless null, the reader's message.
    */
    static bool fromRtfData(const QByteArray& data, QTextDocument* document, QString* errorMessage);

    /*!
        As fromRtfData(), for RTF from other programs, see ORVTextRtfReader::setInterchange().
    */
    static bool importRtfData(const QByteArray& data, QTextDocument* document, QString* errorMessage);

    /*! As fromRtfData(), for RTF in the application's own storage form, without a message. */
    static bool fromRtfCData(const QByteArray& data, QTextDocument* document);

    /*! The plain text of the RTF in \a data; a null string when the RTF is damaged. */
    static QString rtfCDataText(const QByteArray& data);

    /*!
        The RTF stored in property \a propertyId of \a format (a note, for example), as HTML if \a asHtml is
        true, else as plain text. A null string when the property is missing, empty or damaged.
    */
    static QString rtfProperty(int propertyId, const QTextCharFormat& format, bool asHtml);

    /*!
        \a document as RTF, empty when it is null or cannot be written. With \a inPlace true no copy of it is
        made, see ORVTextRtfWriter::write(). \a exportingMode is for output to other programs or printers, see
        ORVTextRtfWriter::setExportingMode(); notes then begin with a blank.
    */
    static QByteArray toRtfData(const QTextDocument* document, bool inPlace, bool exportingMode);

    /*! As toRtfData(), for RTF in the application's own storage form. */
    static QByteArray toRtfCData(const QTextDocument* document, bool inPlace);

    /*! \a text as RTF, in \a font unless that is null. Line feeds end paragraphs. */
    static QByteArray textToRtf(const QString& text, const QFont* font);

    /*!
        Replaces the content of \a document by the RTF file \a fileName.

        Returns false, without a message, when the file does not exist or cannot be read; otherwise as
        fromRtfData().
    */
    static bool fromRtfFile(const QString& fileName, QTextDocument* document, QString* errorMessage);

    /*! As fromRtfFile(), for RTF from other programs, see ORVTextRtfReader::setInterchange(). */
    static bool importRtfFile(const QString& fileName, QTextDocument* document, QString* errorMessage);

    /*!
        Writes \a document to the file \a fileName and checks every step (open, write, flush). On failure \a
        errorMessage, unless null, gets a description. An incompletely written file is not removed.
    */
    static bool toRtfFile(const QString& fileName, const QTextDocument* document, QString* errorMessage,
                          bool inPlace, bool exportingMode);

    /*!
        Writes \a document directly to the file \a fileName, without a copy of the RTF in memory. Only a
        failure to open the file is reported: \a errorMessage, unless null, then gets the system's message.
    */
    static bool toRtfFileDirect(const QString& fileName, const QTextDocument* document, QString* errorMessage,
                                bool inPlace);

    /*!
        Adds \a document to \a mime as RTF for other programs, for the clipboard and for drag and drop: the
        same bytes under each of ORV::rtfMimeTypes(). They are those of toRtfData(document, false, false),
        except that a paragraph before a table is ended, see ORVTextRtfWriter::setParagraphBeforeTableEnded().
        Other types in \a mime are kept. Does nothing when \a mime or \a document is null.
    */
    static void setRtfMimeData(QMimeData* mime, const QTextDocument* document);

    /*!
        Whether \a mime has one of ORV::rtfMimeTypes(), even if its data is empty. The application's own
        flavour does not count. \a mime must not be null.
    */
    static bool hasRtfMimeData(const QMimeData* mime);

    /*!
        Replaces the content of \a document by the RTF in \a mime: the first of ORV::rtfMimeTypes() that is
        present, not empty and not damaged.

        False when there is none, or when \a mime or \a document is null. If all RTF was damaged, the document
        contains what could be read of the last type. If there was no RTF at all, it is unchanged.
    */
    static bool fromRtfMimeData(const QMimeData* mime, QTextDocument* document);

    /*! As fromRtfMimeData(), for RTF from other programs, see ORVTextRtfReader::setInterchange(). */
    static bool importRtfMimeData(const QMimeData* mime, QTextDocument* document);

    /*!
        Replaces the content of \a document by the RTF that \a mime has under \a type.

        False when \a mime or \a document is null, or when there is no data of that type: then the document is
        unchanged. Also false when the RTF is damaged: then the document contains what could be read.
    */
    static bool parseRtfMimeData(const QString& type, const QMimeData* mime, QTextDocument* document);

    /*!
        Adds \a document to \a mime in the application's own flavour, under ORV::OrvellineMarkupRtfMimeType
        only: the bytes of toRtfData(document, inPlace, false), the storage form. Does nothing when \a mime or
        \a document is null.
    */
    static void setOrvellineMarkupRtfMimeData(QMimeData* mime, const QTextDocument* document, bool inPlace);

    /*! As parseRtfMimeData(), of the type ORV::OrvellineMarkupRtfMimeType. */
    static bool fromOrvellineMarkupRtfMimeData(const QMimeData* mime, QTextDocument* document);

    /*!
        Replaces the content of \a document by that of the file \a fileName. Its suffix, in upper or lower
        case, determines the format: .txt (Latin-1), .html (UTF-8), .rtf, or .doc, .docx and .odt, which \a
        engine converts to RTF first, see TextTransform::transformFileViaTools(). The calling thread waits for
        that.

        Returns true when there were no errors. Unless null, \a errors is replaced by the error messages. When
        the RTF was damaged, the document contains what could be read. Two failures have no message: for any
        other suffix (also .htm) the function returns false and leaves \a errors alone; for a .txt or .html
        file that is missing or unreadable it returns true. Neither changes the document.
    */
    static bool loadFileIntoDocument(const QString& fileName, QTextDocument* document,
                                     ORVImportExport::Engine engine, QStringList* errors);
    /*!
        As above. \a reader reads the RTF, so that it can be asked for the page afterwards; its device is then
        null.
    */
    static bool loadFileIntoDocument(const QString& fileName, QTextDocument* document,
                                     ORVImportExport::Engine engine, QStringList* errors,
                                     ORVTextRtfReader& reader);
};

#endif
