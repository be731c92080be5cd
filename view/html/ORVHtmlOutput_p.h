#ifndef ORVHTMLOUTPUT_P_H
#define ORVHTMLOUTPUT_P_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

class QIODevice;

/*!
    Writes HTML in UTF-8 to a device, in large portions. After the device has failed, nothing is written any more.
*/
class ORVHtmlOutput {
public:
    /*! Writes to \a device, which stays the caller's; to nothing when it is null. */
    explicit ORVHtmlOutput(QIODevice* device);

    /*! Whether nothing is written: for finding out which styles a document needs. */
    bool isDry() const { return !m_device; }
    /*! Writes markup as it stands. */
    void markup(const char* html);
    /*! Writes markup as it stands. */
    void markup(const QByteArray& html);
    /*! Writes text, with what is markup in HTML escaped; a line separator becomes a line break. */
    void text(const QChar* text, int length);
    /*! Writes what is left over to the device. False when the device has failed. */
    bool finish();

    /*! Whether HTML can have \a character: not control characters, but for tabs and line feeds. */
    static bool isAllowed(QChar character);
    /*! \a text for an attribute, or for an element without line breaks; what is not allowed is left out. */
    static QByteArray escaped(const QString& text);
    /*! \a value as the value of an attribute, between quotation marks. */
    static QByteArray attributeValue(const QString& value);

private:
    void append(const char* data, int size);
    void plainText(const QChar* text, int length);
    void flush();

    QIODevice* m_device;
    QByteArray m_buffer;
    bool m_hasFailed = false;
};

#endif
