#ifndef ORVMARKDOWNWRITER_H
#define ORVMARKDOWNWRITER_H

#include "ORVRtfGlobal.h"

#include <QtCore/QScopedPointer>
#include <QtCore/QString>
#include <QtCore/QStringList>

class ORVMarkdownWriterPrivate;
class QIODevice;
class QTextDocument;

/*!
    Writes documents as Markdown in UTF-8: CommonMark with the tables, the struck-out text and the footnotes of GitHub.
    Each paragraph is a line. What Markdown would take for its own syntax is escaped.

    Nothing is loaded from disk or network, whatever the document names, and links that a browser would run as a program
    are left out.
*/
class ORV_RTF_EXPORT ORVMarkdownWriter {
public:
    /*! Writes to \a device, which is open for writing and stays the caller's. */
    explicit ORVMarkdownWriter(QIODevice* device);
    ~ORVMarkdownWriter();

    /*!
        Writes pictures as files to the folder \a path, which is created for the first of them. \a reference is the
        address of the folder as it stands in links. The names of the files are \a namePrefix and a number. An empty
        path, the default, makes pictures a part of the Markdown file.
    */
    void setPictureFolder(const QString& path, const QString& reference,
                          const QString& namePrefix = QString::fromLatin1("image"));

    /*!
        Writes \a document, which is in stock form (see ORVStockFormats) and stays as it is. Memory is needed for the
        text, and one note and one table at a time.

        Returns false when the device or a picture's file fails, see errorString(), or when \a document is null. Then
        the files of pictures are removed.
    */
    bool write(const QTextDocument* document);

    /*! The paths of the pictures' files that write() has written, unless it has failed. */
    QStringList pictureFiles() const;
    /*! Why write() has failed; empty when it has not. */
    QString errorString() const;

private:
    Q_DISABLE_COPY(ORVMarkdownWriter)
    const QScopedPointer<ORVMarkdownWriterPrivate> d;
};

#endif
