#ifndef ORVTEXTRTF_H
#define ORVTEXTRTF_H

#include "ORVRtfGlobal.h"

class QByteArray;
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
};

#endif
