#ifndef ORVHTMLPICTURES_P_H
#define ORVHTMLPICTURES_P_H

#include <QtCore/QByteArray>
#include <QtCore/QDir>
#include <QtCore/QHash>
#include <QtCore/QString>

class QTextDocument;
class QTextImageFormat;

/*!
    The pictures of documents: as a part of the HTML file, or as files in a folder. JPEG pictures keep their bytes, all
    others become PNG.
*/
class ORVHtmlPictures {
public:
    /*! Makes pictures files of the folder \a path, which is created; \a reference is its name in links. */
    void setFolder(const QString& path, const QString& reference);

    /*! The address of the picture of \a format, one of \a document; its name when the document does not hold it. */
    QString address(const QTextDocument& document, const QTextImageFormat& format);
    /*! Empty unless a file could not be written. */
    const QString& errorString() const { return m_errorString; }

private:
    QString stored(const QByteArray& data, const char* type);

    QString m_folder;
    QString m_reference;
    QString m_errorString;
    // By their bytes.
    QHash<QByteArray, QString> m_files;
};

#endif
