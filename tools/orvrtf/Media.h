#ifndef ORVRTF_MEDIA_H
#define ORVRTF_MEDIA_H

#include <QString>
#include <QStringList>

#include <functional>

class QIODevice;
class QTextDocument;

/*! Where the pictures of HTML and Markdown are files. */
struct Media {
    /*! Empty when pictures are parts of the text. */
    QString folder;
    /*! The address of the folder in links: the path from the folder of the output, percent-encoded. */
    QString reference;
    /*! What names of files begin with, in front of a number. */
    QString namePrefix;

    /*!
        In \a folder, for the output \a output: for "page.html" the pictures are "page-1.png" and so on, so that
        several outputs can share the folder.
    */
    static Media inFolder(const QString& folder, const QString& output);
    /*!
        In a folder beside \a output: for "page.md" in "page-media". Without a folder where no other file can stand
        beside the output, as it is a pipe or a device.
    */
    static Media beside(const QString& output);
};

/*! Writes a document to a device, and pictures, whose paths are added to the list, also on failure. */
typedef std::function<bool(QIODevice* device, QStringList* pictures, QString* errorString)> MarkupWriting;

/*!
    Writes to \a path, "-" for the standard output, what \a write writes. Returns false on failure, with the reason in
    \a errorString. Then the pictures, which are in the folder of \a media, are removed, as they are when the program is
    interrupted.
*/
bool writeWithPictures(const QString& path, const Media& media, const MarkupWriting& write,
                       QString* errorString);

/*! Lets \a writer, an ORVHtmlWriter or an ORVMarkdownWriter, write \a document: a MarkupWriting. */
template <typename Writer>
bool writeMarkup(Writer& writer, const QTextDocument& document, const Media& media, QStringList* pictures,
                 QString* errorString)
{
    writer.setPictureFolder(media.folder, media.reference, media.namePrefix);
    const bool isWritten = writer.write(&document);
    *pictures = writer.pictureFiles();
    *errorString = writer.errorString();
    return isWritten;
}

#endif
