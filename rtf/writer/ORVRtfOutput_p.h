#ifndef ORVRTFOUTPUT_P_H
#define ORVRTFOUTPUT_P_H

#include "ORVRtfSink_p.h"
#include "ORVTextRtfCommon.h"

class QByteArray;
class QString;

/*!
    Writes RTF to a device: control words, structural characters and text.

    A control word followed by text must be ended by a blank. The output remembers whether one is due. Bytes
    are written in pieces of a few kilobytes. The device belongs to the caller.
*/
class ORVRtfOutput {
public:
    void setDevice(QIODevice* device) { m_sink.setDevice(device); }
    QIODevice* device() const { return m_sink.device(); }
    /*! Whether header and footer placeholders in texts become page fields. */
    void setExportingMode(bool exportingMode) { m_exportingMode = exportingMode; }

    /*! Begins a new stream: resets the pending blank and the failure. */
    void begin();
    /*! Writes all buffered bytes to the device. False when the device refused some, now or earlier. */
    bool flush() { return m_sink.flush(); }

    /*! Writes the control word \a spelling, which includes the backslash. */
    bool write(const char* spelling);
    bool write(ORVTextRtfCommon::KeyWord keyWord);
    /*! Writes a control word and its number without a blank between them. */
    bool write(const char* spelling, int value);
    bool write(ORVTextRtfCommon::KeyWord keyWord, int value);
    /*! Writes a control word and the blank that ends it. */
    void writeClosedWord(ORVTextRtfCommon::KeyWord keyWord);
    /*! Writes \a words, control words with their numbers as another output has written them. */
    void writeWords(const QByteArray& words);
    /*! Writes one of "{", "}", ";", a line feed or a blank. It ends a control word. */
    void writeStructure(char c);
    void openGroup() { writeStructure('{'); }
    void closeGroup() { writeStructure('}'); }
    /*! Opens a group with the destination \a keyWord, which programs skip if they do not know it. */
    void openIgnorableGroup(ORVTextRtfCommon::KeyWord keyWord);
    /*! Writes the blank that ends the last control word, if one is due. */
    void endKeyword();
    bool isKeywordPending() const { return m_keywordPending; }

    /*!
        Writes \a text as literal text, in the font of number \a fontNumber.

        With \a leadingSpace a blank that is due is written first. In \a verbatim mode "{", "}", "\" and the
        characters that have control words are written as they are. Page placeholders refer to the page of \a
        bookmark, or to the current page if it is empty. Always true.
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
