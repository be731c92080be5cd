#ifndef ORVRTFOUTPUT_P_H
#define ORVRTFOUTPUT_P_H

#include "ORVRtfSink_p.h"
#include "ORVTextRtfCommon.h"

class QByteArray;
class QString;

/*!
    The bytes of RTF on their way to a device: control words, structural characters and text.

    A control word that is followed by text must be ended by a blank; whether one is owed is remembered here.
    Bytes are handed on in pieces of a few kilobytes; the device belongs to the caller.
*/
class ORVRtfOutput {
public:
    void setDevice(QIODevice* device) { m_sink.setDevice(device); }
    QIODevice* device() const { return m_sink.device(); }
    /*! Whether header and footer placeholders in texts become page fields. */
    void setExportingMode(bool exportingMode) { m_exportingMode = exportingMode; }

    /*! Begins a new stream: nothing is owed and nothing has failed. */
    void begin();
    /*! Hands all bytes on. False when the device refused some, now or earlier. */
    bool flush() { return m_sink.flush(); }

    /*! Writes the control word \a spelling, which includes the backslash. */
    bool write(const char* spelling);
    bool write(ORVTextRtfCommon::KeyWord keyWord);
    /*! Writes a control word and its number without a blank between them. */
    bool write(const char* spelling, int value);
    bool write(ORVTextRtfCommon::KeyWord keyWord, int value);
    /*! Writes a control word and the blank that ends it, whatever follows. */
    void writeClosedWord(ORVTextRtfCommon::KeyWord keyWord);
    /*! Writes \a words, control words with their numbers as another output has written them. */
    void writeWords(const QByteArray& words);
    /*! Writes one of "{", "}", ";", a line feed or a blank. It ends a control word. */
    void writeStructure(char c);
    void openGroup() { writeStructure('{'); }
    void closeGroup() { writeStructure('}'); }
    /*! Opens a group that programs may skip when they do not know \a keyWord, which is written too. */
    void openIgnorableGroup(ORVTextRtfCommon::KeyWord keyWord);
    /*! Writes the blank that the last control word is owed. */
    void endKeyword();
    bool isKeywordPending() const { return m_keywordPending; }

    /*!
        Writes \a text so that any RTF reader takes it for text, in the font of number \a fontNumber.

        \a leadingSpace lets it begin with the blank owed to a control word. In \a verbatim mode "{", "}", "\"
        and the characters that have control words of their own are written as they are. \a bookmark is what
        page placeholders refer to, if not to the page they stand on. Always true.
    */
    bool writePrintableCharacters(QString text, int fontNumber, bool leadingSpace, bool verbatim,
                                  const QString& bookmark);
    /*!
        Writes two lower-case hexadecimal digits for each byte of \a data. False unless \a data is empty: the
        result compares the number of digits with that of bytes, and callers ignore it.
    */
    bool writeHexadecimalCharacters(const QByteArray& data);

    /*! \a text with "{", "}" and "\" escaped, for use in raw RTF. */
    static QString escaped(const QString& text);

private:
    void writeRaw(const char* rtf);
    bool writeSpecialCharacter(ushort unit, int fontNumber, const QString& bookmark);
    void writeEscapedByte(int byte);
    void writeUnicode(ushort unit, int fontNumber, bool& preambleWritten);
    void writePageField(ushort placeholder, const QString& bookmark);

    ORVRtfSink m_sink;
    bool m_keywordPending = false;
    bool m_exportingMode = false;
};

#endif
