#ifndef ORVTEXTRTFWRITER_H
#define ORVTEXTRTFWRITER_H

#include "ORVRtfGlobal.h"
// For ORVTextRtf::ExportStyle, the one name of the facade that the writer needs.
#include "ORVTextRtf.h"

class ORVTextRtfWriterPrivate;
class QColor;
class QIODevice;
class QSize;
class QTextDocument;

/*!
    Writes a QTextDocument as Rich Text Format to a device.

    The device and the document belong to the caller. A writer can write several times; fonts and colours of
    earlier documents then stay in its tables, so a writer for each document is better. A writer and the
    document it writes are used by one thread.
*/
class ORV_RTF_EXPORT ORVTextRtfWriter {
public:
    /*! A writer without a device. */
    ORVTextRtfWriter();
    /*! A writer to \a device, which stays the caller's. */
    explicit ORVTextRtfWriter(QIODevice* device);
    ~ORVTextRtfWriter();

    /*! Makes \a device the output; it is opened for writing by write() when it is not open yet. */
    void setDevice(QIODevice* device);
    /*! The output; null when there is none. */
    QIODevice* device() const;

    /*!
        Final output for other programs (off unless set): "<$p>" and "<$pagecount>" become page fields,
        revision levels become colours, list items get a hanging indent, and a paragraph in front of a table
        is ended before it.
    */
    void setExportingMode(bool exportingMode);
    /*!
        Whether a paragraph in front of a table is ended before it (off unless set; exporting mode does it
        anyway). Word processors lose it otherwise; this library's reader would see an empty paragraph.
    */
    void setParagraphBeforeTableEnded(bool ended);
    /*! Writes text backgrounds as the shading of MS Word instead of as highlighting (off unless set). */
    void setHightlightForMsWord(bool highlight);
    /*! Colour of decorated hyperlinks; blue unless set. */
    void setHyperlinksColor(const QColor& color);
    /*! Whether hyperlinks are underlined and coloured (off unless set). */
    void setDecorateHyperlinks(bool decorate);
    /*! Begins each note with exactly one blank (off unless set). */
    void setFootnotesWithLeadingSpace(bool leadingSpace);
    /*! What footnotes are written as: footnotes unless set. */
    void setFootnoteDestination(ORVTextRtf::ExportStyle destination);
    /*! What footnotes are written as. */
    ORVTextRtf::ExportStyle footnoteDestination() const;
    /*! What annotations are written as: annotations unless set. */
    void setAnnotationDestination(ORVTextRtf::ExportStyle destination);
    /*! What annotations are written as. */
    ORVTextRtf::ExportStyle annotationDestination() const;

    /*!
        Writes \a document. With \a inPlace false it works on a copy; with true the document itself loses its
        undo history, its default text-option flags and page breaks after paragraphs.

        Paper, margins (points), page numbering, header and footer come from the document's dynamic
        properties "paperSize", "topMargin", "leftMargin", "rightMargin", "bottomMargin", "notOnFirstPage",
        "countFirstPage", "header" and "footer".

        False when there is no device or no document, when the device does not open, or when it does not take
        the beginning of the output. What the device refuses later is only to be seen on the device.
    */
    bool write(const QTextDocument* document, bool inPlace);

    /*! US Letter in twips, or the area within the default margins when \a withoutMargins is true. */
    static QSize defaultPaperSize(bool withoutMargins);
    /*! The paper size of \a document in twips: its property "paperSize" (points), else US Letter. */
    static QSize paperSizeForDocument(const QTextDocument* document);

private:
    Q_DISABLE_COPY(ORVTextRtfWriter)
    ORVTextRtfWriterPrivate* const d;
};

#endif
