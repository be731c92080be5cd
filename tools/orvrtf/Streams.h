#ifndef ORVRTF_STREAMS_H
#define ORVRTF_STREAMS_H

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryFile>

/*!
    The input of a command: a file, or the standard input for the path "-".

    A device that cannot say where it ends before more data arrives, such as a pipe, is copied to a temporary
    file first, because a reader would take a pause of the writing program for the end.
*/
class InputStream {
public:
    /*! Opens \a path; false, with errorString() set, when it cannot be read. */
    bool open(const QString& path);
    /*! The device to read, open and owned by this object. */
    QIODevice* device();
    /*! Whether a reader that reads all it gets has got all there is; if not, errorString() is set. */
    bool isReadToEnd();
    QString errorString() const { return m_errorString; }

private:
    bool spool();

    QFile m_file;
    QTemporaryFile m_spool;
    bool m_spooled = false;
    QString m_errorString;
};

/*!
    Writes \a data to the file \a path, or to the standard output for "-". A file appears whole or not at
    all. Returns false on failure, with the reason in \a errorString.
*/
bool writeOutput(const QString& path, const QByteArray& data, QString* errorString);

/*! Writes "orvrtf: ", \a message and a line feed to the standard error, whatever line breaks it has. */
void printError(const QString& message);

#endif
