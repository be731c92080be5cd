#ifndef ORVTEXTRTFREADER_H
#define ORVTEXTRTFREADER_H

#include "ORVRtfGlobal.h"

#include <QtCore/qglobal.h>

class ORVTextRtfReaderPrivate;
class QColor;
class QIODevice;
class QString;
class QTextCharFormat;
class QTextDocument;

/*!
    Reads Rich Text Format from a device into a QTextDocument.

    A reader serves one read; build a new one for each conversion. The device and the document belong to the
    caller. A read never stops at an error: the first one is kept, and the document holds everything that
    could be read. A reader is used by one thread; several readers may work in several threads.
*/
class ORV_RTF_EXPORT ORVTextRtfReader {
public:
    /*! A reader without a device. */
    ORVTextRtfReader();
    /*! A reader of \a device, which stays the caller's. */
    explicit ORVTextRtfReader(QIODevice* device);
    virtual ~ORVTextRtfReader();

    /*! Makes \a device the input; it is opened for reading by the read when it is not open yet. */
    void setDevice(QIODevice* device);
    /*! The input; null when there is none. */
    QIODevice* device() const;

    /*!
        Whether RTF is read as word processors mean it, and not in the storage form of this library, which is
        the default; docs/interchange.md has the differences. A change forgets what earlier reads have found.
        A stripper has the storage form only.
    */
    void setInterchange(bool interchange);
    /*! The setting; always false for a stripper. */
    bool interchange() const;

    /*!
        Replaces the content of \a document by what the device holds, starting from the document's default
        character format and with the static defaults below.

        Returns true when no error was met; otherwise error() and errorString() tell the first one. With a
        null \a document the result is false and error() is 6.
    */
    bool read(QTextDocument* document);
    /*!
        As above, starting from the character format \a format, whose colours are left out. Characters U+007F
        to U+009F are removed when \a removeInvalidChars is true and replaced by U+FFFD otherwise.
    */
    bool read(QTextDocument* document, bool removeInvalidChars, const QTextCharFormat& format);
    /*! As above; the document's default character format stays what it is. */
    bool read(QTextDocument* document, bool removeInvalidChars);

    /*! Code of the first error of the last read, 0 for none; docs/rtf.md lists the codes. */
    int error() const;
    /*! The text for error(), translated in the context "ORVTextRtf"; empty when there was no error. */
    QString errorString() const;
    /*!
        The device's position plus the number of buffered bytes already read. The buffer also holds bytes
        that are still to be read, so this is an estimate for progress displays, not an offset.
    */
    qint64 pos() const;

    /*!
        \name The page
        Size and margins of the page as the last read found them, in twips and as they stand in the file: a
        damaged file may have any numbers. The document itself does not keep them. To have them written
        again, the writer takes them from properties of the document, see ORVTextRtfWriter::write().
    */
    //!@{
    int paperWidth() const; //!< `\paperw`, 12240 unless stated.
    int paperHeight() const; //!< `\paperh`, 15840 unless stated.
    int marginLeft() const; //!< `\margl`, 1800 unless stated.
    int marginRight() const; //!< `\margr`, 1800 unless stated.
    int marginTop() const; //!< `\margt`, 1440 unless stated.
    int marginBottom() const; //!< `\margb`, 1440 unless stated.
    //!@}

    /*! Whether fonts are hinted: full hinting when true, none when false (the default). */
    static bool DefaultFontHinting;
    /*! What read(QTextDocument*) does with U+007F to U+009F: remove when true (the default). */
    static bool DefaultRemoveInvalidRtfChars;
    /*! Text colour of the application where a document names none. */
    static QColor DefaultTextColor;

protected:
    /*! Adopts the private object of a subclass. */
    explicit ORVTextRtfReader(ORVTextRtfReaderPrivate* dd);
    /*! What the reader is made of; deleted with it. */
    ORVTextRtfReaderPrivate* d;

private:
    Q_DISABLE_COPY(ORVTextRtfReader)

    // A subclass has a private object of its own.
    const bool m_hasDialects;
    bool m_interchange = false;
};

#endif
