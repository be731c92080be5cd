#ifndef ORVPICTUREFILES_P_H
#define ORVPICTUREFILES_P_H

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>

class QTextDocument;
class QTextImageFormat;

/*!
    The pictures of a document that is written as text with links: as files in a folder, or as data within the links.
    JPEG pictures keep their bytes, all others become PNG. Equal pictures share a file.
*/
class ORVPictureFiles {
public:
    /*!
        Makes pictures files of the folder \a path, which is created for the first of them. \a reference is the address
        of the folder in links, as it stands there. Names of files are \a namePrefix and a number.
    */
    void setFolder(const QString& path, const QString& reference, const QString& namePrefix);

    /*!
        The address of the picture of \a format, one of \a document, as links have it. Empty when the document does not
        hold it, and when its file could not be written: see errorString().
    */
    QString address(const QTextDocument& document, const QTextImageFormat& format);
    /*! Empty unless a file could not be written. */
    const QString& errorString() const { return m_errorString; }
    /*!
        Ends a document. Unless \a isKept, removes the files that were written, and the folder if it was made for them.
        Returns the paths of those that stay.
    */
    QStringList finish(bool isKept);

private:
    QString stored(const QByteArray& data, const char* type);
    bool writeFile(const QString& path, const QByteArray& data);

    QString m_folder;
    QString m_reference;
    QString m_namePrefix;
    QString m_errorString;
    // Addresses by the hash of the bytes.
    QHash<QByteArray, QString> m_addresses;
    QStringList m_written;
    bool m_hasMadeFolder = false;
};

#endif
