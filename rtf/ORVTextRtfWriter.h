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

    The device and the document belong to the caller. A writer can write several documents, but fonts and
    colours of earlier ones stay in its tables, so a new writer for each document is better. A writer and the
    document that it writes must be used by one thread at a time.
*/
class ORV_RTF_EXPORT ORVTextRtfWriter {
public:
    /*! A writer without a device. */
    ORVTextRtfWriter();
    /*! A writer to \a device, which belongs to the caller. */
    explicit ORVTextRtfWriter(QIODevice* device);
    ~ORVTextRtfWriter();

    /*! Sets the output device. write() opens it for writing if it is not open. */
    void setDevice(QIODevice* device);
    /*! The output device, null when there is none. */
    QIODevice* device() const;

    /*!
        Final output for other programs (off by default): "<$p>" and "<$pagecount>" become page fields,
        revision levels become colours, list items get a hanging indent, and a paragraph before a table is
        ended.
    */
    void setExportingMode(bool exportingMode);
    /*!
        Whether a paragraph before a table is ended (off by default; exporting mode always does it). Otherwise
        word processors lose the paragraph. This library's reader sees an empty paragraph instead.
    */
    void setParagraphBeforeTableEnded(bool ended);
    /*! Writes text backgrounds as shading for MS Word instead of as highlighting (off by default). */
    void setHightlightForMsWord(bool highlight);
    /*! Colour of decorated hyperlinks (default: blue). */
    void setHyperlinksColor(const QColor& color);
    /*! Whether hyperlinks are underlined and coloured (off by default). */
    void setDecorateHyperlinks(bool decorate);
    /*! Whether each note begins with exactly one blank (off by default). */
    void setFootnotesWithLeadingSpace(bool leadingSpace);
    /*! How footnotes are written (default: as footnotes). */
    void setFootnoteDestination(ORVTextRtf::ExportStyle destination);
    /*! How footnotes are written. */
    ORVTextRtf::ExportStyle footnoteDestination() const;
    /*! How annotations are written (default: as annotations). */
    void setAnnotationDestination(ORVTextRtf::ExportStyle destination);
    /*! How annotations are written. */
    ORVTextRtf::ExportStyle annotationDestination() const;

    /*!
        Writes \a document. With \a inPlace false the writer works on a copy. With true the document itself
        loses its undo history, its default text option flags and its page breaks after paragraphs (they
        become breaks before the next paragraph).

        Paper, margins (points), page numbering, header and footer are taken from the document's dynamic
        properties "paperSize", "topMargin", "leftMargin", "rightMargin", "bottomMargin", "notOnFirstPage",
        "countFirstPage", "header" and "footer".

        False when there is no device or no document, when the device cannot be opened, or when it does not
        accept the beginning of the output. Check the device for later write errors.
    */
    bool write(const QTextDocument* document, bool inPlace);

    /*! US Letter in twips; if \a withoutMargins, the size of the area within the default margins. */
    static QSize defaultPaperSize(bool withoutMargins);
    /*! The paper size of \a document in twips: its property "paperSize" (points), else US Letter. */
    static QSize paperSizeForDocument(const QTextDocument* document);

private:
    Q_DISABLE_COPY(ORVTextRtfWriter)
    ORVTextRtfWriterPrivate* const d;
};

#endif
