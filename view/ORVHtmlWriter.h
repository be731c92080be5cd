#ifndef ORVHTMLWRITER_H
#define ORVHTMLWRITER_H

#include "ORVRtfGlobal.h"

#include <QtCore/QScopedPointer>
#include <QtCore/QString>
#include <QtCore/QStringList>

class ORVHtmlWriterPrivate;
class QIODevice;
class QTextDocument;

/*!
    Writes documents as HTML5 in UTF-8: headings, paragraphs, nested lists, tables, pictures, links, and notes at the
    end, linked both ways with their marks. The formats are one short style sheet: what most of the paragraphs have
    belongs to the element, and each other format is a class.

    Nothing is loaded from disk or network, whatever the document names, and links that a browser would run as a program
    are left out.
*/
class ORV_RTF_EXPORT ORVHtmlWriter {
public:
    /*! How much of the formats is written. */
    enum Style {
        FullStyle, //!< All formats.
        MinimalStyle, //!< What makes up the structure: alignment, markers of lists, borders, breaks.
        NoStyle //!< No style sheet and no classes.
    };

    /*! Writes to \a device, which is open for writing and stays the caller's. */
    explicit ORVHtmlWriter(QIODevice* device);
    ~ORVHtmlWriter();

    /*! Sets how much of the formats is written; all by default. */
    void setStyle(Style style);
    /*!
        Writes pictures as files to the folder \a path, which is created for the first of them. \a reference is the
        address of the folder as it stands in links. The names of the files are \a namePrefix and a number. An empty
        path, the default, makes pictures a part of the HTML file.
    */
    void setPictureFolder(const QString& path, const QString& reference,
                          const QString& namePrefix = QString::fromLatin1("image"));

    /*!
        Writes \a document, which is in stock form (see ORVStockFormats) and stays as it is. Memory is needed for the
        styles and one note at a time.

        Returns false when the device or a picture's file fails, see errorString(), or when \a document is null. Then
        the files of pictures are removed.
    */
    bool write(const QTextDocument* document);

    /*! The paths of the pictures' files that write() has written, unless it has failed. */
    QStringList pictureFiles() const;
    /*! Why write() has failed; empty when it has not. */
    QString errorString() const;

private:
    Q_DISABLE_COPY(ORVHtmlWriter)
    const QScopedPointer<ORVHtmlWriterPrivate> d;
};

#endif
