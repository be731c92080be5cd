#ifndef ORVTEXTRTFREADER_P_H
#define ORVTEXTRTFREADER_P_H

#include "ORVRtfCharFormatCache_p.h"
#include "ORVRtfColorTable_p.h"
#include "ORVRtfControlWord_p.h"
#include "ORVRtfFontTable_p.h"
#include "ORVRtfInput_p.h"
#include "ORVRtfListTable_p.h"
#include "ORVRtfPage_p.h"
#include "ORVRtfParagraph_p.h"
#include "ORVRtfPicture_p.h"
#include "ORVRtfTableLevels_p.h"
#include "ORVRtfTextInserter_p.h"
#include "ORVTextRtfCommon.h"

#include <QtCore/QStack>
#include <QtGui/QColor>
#include <QtGui/QTextCharFormat>

class QTextDocument;

/*!
    One read of RTF: the tokenizer's main loop, the state of groups, and what control words and the ends of
    groups do. What outlasts a word is kept by classes of their own: input, fonts, colours, lists, tables, the
    paragraph format, pictures, and the text that waits for its insertion.
*/
class ORVTextRtfReaderPrivate : public ORVTextRtfCommon {
public:
    enum Status {
        NoError = 0,
        UnmatchedClosingBrace = 1,
        UnmatchedOpeningBrace = 2,
        AssertionError = 6,
        UnexpectedEnd = 7,
        InvalidControlWord = 8,
        InvalidParameter = 9,
        DeviceNotOpen = 10
    };

    ORVTextRtfReaderPrivate();
    ~ORVTextRtfReaderPrivate() override;

    /*! Acts on one control word; the result is a Status. May take more of the input. */
    virtual int translateControlWord(KeyWord keyWord, bool hasParameter, int parameter);

    /*! Reads from the input device into \a document; true when no error was met. */
    bool read(QTextDocument* document, bool removeInvalidChars);

    ORVRtfInput m_input;
    int m_error = NoError;
    // A subclass that writes what it reads has no device to write to: it reads, and fails with DeviceNotOpen.
    bool m_lacksOutput = false;
    ORVRtfPage m_page;

protected:
    /*! Scans the control word at the read position and has it translated. */
    int parseKeyword();

    // Words that only another dialect of RTF knows.
    ORVRtfControlWord::FindPrivate m_findPrivateWord = nullptr;

    // Above zero inside a group that is skipped: the number of its open braces.
    int m_skipDepth = 0;

    /*! What a group is: where its text goes and what its end does. */
    enum Destination : int {
        Body = 0,
        FontTableGroup,
        ColorTableGroup,
        ListTableGroup,
        LevelTextGroup,
        ListOverrideTableGroup,
        ListOverrideGroup,
        PictureGroup,
        EmbeddedPdfGroup,
        PdfFileNameGroup,
        NisusFileNameGroup,
        MathMLGroup,
        FieldGroup,
        FieldInstructionGroup,
        FieldResultGroup,
        AnnotationReferenceGroup,
        AnnotationRangeStartGroup,
        AnnotationRangeEndGroup,
        // Other dialects go on from here.
        LastDestination = AnnotationRangeEndGroup
    };

    /*! What bytes outside control words are. */
    enum ExpectedFormat { TextData, HexadecimalData };

    /*! The state that a closing brace restores. */
    struct GroupState {
        QTextCharFormat charFormat;
        Destination destination = Body;
        // Bytes of fallback text after a Unicode character (\uc).
        int fallbackBytes = 1;
        // Code page of the current font, -1 for the document's.
        int codePage = ORVRtfFontTable::noCodePage;
        ExpectedFormat expectedFormat = TextData;
        // The next group is the ANSI form of the one behind it, which is in Unicode (\upr).
        bool skipNextGroup = false;
    };

    // The read, groups, and the document (ORVTextRtfReaderPrivate.cpp)
    virtual void beginRead(QTextDocument* document, bool removeInvalidChars);
    virtual void endRead();
    int parseFile();
    int parseContent();
    int scanControlWord(ORVRtfControlWord& word);
    virtual int actOn(const ORVRtfControlWord& word);
    virtual void takeText();
    virtual int pushProperties();
    virtual int popProperties();
    virtual void drawText();
    void drawPendingText();
    void cleanPendingText();
    virtual void drawBodyText();
    void commitBlockFormat();
    virtual void placeParagraph();
    void initializeTables(int level);
    void endCell();
    void finalizeRow();
    void finalizeTables(int level);
    virtual void assembleLists();
    void setDefaultCharFormat(const QTextCharFormat& format);
    void adoptDefaultCharFormat(const QTextCharFormat& format);
    QColor defaultForegroundColor() const;
    bool isIn(Destination destination) const { return m_state.destination == destination; }
    bool isInBodyText() const { return isIn(Body) || isIn(FieldResultGroup); }
    bool isInNote() const;

    // Control words (ORVTextRtfReaderWords.cpp)
    void translateUnicode(bool hasParameter, int unit);
    int translateHexadecimalByte();
    int readBinaryData(int count);
    template <typename Value>
    void setCharProperty(int id, Value value)
    {
        m_charFormats.set(m_state.charFormat, id, value);
    }
    void clearCharProperty(int id) { m_charFormats.clear(m_state.charFormat, id); }
    template <typename Value>
    void setCharColor(int id, QRgb color);
    void resetCharFormat();
    void setBold(bool on);
    void setOutline(bool on);
    void setVerticalAlignment(KeyWord word, bool on);
    void setBaselineShift(int halfPoints);
    void setFontPitch(int pitch);
    void setForegroundColor(int number);
    void setBackgroundColor(int number);
    void setUnderlineColor(int number);
    void selectFont(int number);
    bool setFont(int number);
    void setFontCharset(int charset);
    void setFontCodePage(int codePage);
    void setFontStyleHint(QFont::StyleHint hint);
    void resetParagraph();
    void setBlockProperty(int id, const QVariant& value);
    void clearBlockProperty(int id);
    void setLeftIndent(double points);
    void setTextIndent(double points);
    void setRightIndent(double points);
    void setRightMargin(int twips);
    bool isRightToLeft() const;
    void setLeadingIndent(int twips);
    void setTrailingIndent(int twips);
    void setLevelOrLeftIndent(int twips);
    void setLevelOrTextIndent(int twips);
    void setLineMultiple(int multiple);
    void endParagraph();
    void endPage();
    void setTableLevel(int level);
    ORVTextRtfRow& openRow();
    void setCellColor(int number);
    QColor borderColor(bool hasParameter, int number) const;
    void setPictureType(const char* type);
    void translateListTableWord(KeyWord keyWord, int parameter);
    void setListId(int id);
    void setListOverrideNumber(int number);

    // Destinations: how they open, what becomes of their text, and their ends
    // (ORVTextRtfReaderDestinations.cpp)
    void openDestination(Destination destination);
    void openColorTable();
    void openListOverride();
    void openPictureData(Destination destination);
    virtual void drawDestinationText();
    void drawColorTableText();
    void finalizeDestination();
    virtual void setFontFamily(const QString& name);
    void finalizeFontTable();
    void finalizeColorTable();
    void finalizePicture();
    void insertPicture(const QImage& image, const QByteArray& data);
    virtual void finalizeFieldInstruction();
    void setLink(QTextCharFormat& format, const QString& target);

    // The document, and where it grows
    QTextDocument* m_document = nullptr;
    ORVRtfTextInserter m_inserter;
    bool m_removeInvalidChars = false;

    // Text and data since the last control word or brace that took them
    QString m_pendingText;
    QByteArray m_binaryData;

    // Groups
    GroupState m_state;
    QStack<GroupState> m_groups;
    bool m_ignorableDestination = false;

    // The document's default character format, and what \plain makes of it
    QTextCharFormat m_defaultCharFormat;
    QTextCharFormat m_plainCharFormat;
    ORVRtfCharFormatCache m_charFormats;

    // Fonts, colours and encoding
    ORVRtfFontTable m_fonts;
    int m_defaultFont = 0;
    int m_currentFont = 0;
    ORVRtfColorTable m_colors;
    int m_documentCodePage = 1252;

    // Paragraphs, lists and tables
    ORVRtfParagraph m_paragraph;
    ORVRtfListTable m_lists;
    ORVRtfTableLevels m_tables;

    // Fields and pictures
    QString m_fieldInstruction;
    QString m_pdfFileName;
    ORVRtfPicture m_picture;
    int m_pictureNumber = 1;
};

#endif
