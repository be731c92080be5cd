#ifndef ORVRTFTEXTDECODER_P_H
#define ORVRTFTEXTDECODER_P_H

#include "ORVRtfPageDecoder_p.h"

#include <QtCore/QHash>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>

/*!
    Turns the bytes of text into characters, in the code page in force. The bytes of one character can be
    handed over one by one.
*/
class ORVRtfTextDecoder {
public:
    ORVRtfTextDecoder();

    /*!
        Goes on in \a codePage, one of ORVRtfCodePages. Where that is another one, a character that waits for
        its last bytes is given up, and U+FFFD is added to \a text.
    */
    void setCodePage(int codePage, QString& text)
    {
        if (codePage != m_codePage)
            changeCodePage(codePage, text);
    }

    /*! Adds the characters of \a bytes to \a text. */
    void append(const char* bytes, int count, QString& text);

    /*! Whether the next byte belongs to a character that has begun, whatever it means else. */
    bool isWithinCharacter() const { return m_waiting > 0; }
    /*! Gives up a character that has begun, and adds U+FFFD to \a text for it. */
    void endText(QString& text)
    {
        if (isWithinCharacter())
            text += QChar(QChar::ReplacementCharacter);
        reset();
    }
    /*! Forgets a character that has begun. */
    void reset() { m_waiting = 0; }

private:
    void changeCodePage(int codePage, QString& text);
    QChar* decodeByte(char byte, QChar* out);

    int m_codePage;
    // Opening a page takes longer than decoding a paragraph.
    QHash<int, QSharedPointer<ORVRtfPageDecoder>> m_pages;
    QSharedPointer<ORVRtfPageDecoder> m_page;
    // The first bytes of a character, and how many they are.
    char m_character[ORVRtfPageDecoder::longestCharacter];
    int m_waiting = 0;
};

#endif
