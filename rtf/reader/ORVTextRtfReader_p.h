#ifndef ORVTEXTRTFREADER_P_H
#define ORVTEXTRTFREADER_P_H

#include "ORVRtfCharFormatCache_p.h"
#include "ORVRtfFontTable_p.h"
#include "ORVRtfInput_p.h"
#include "ORVRtfListTable_p.h"
#include "ORVRtfPage_p.h"
#include "ORVRtfParagraph_p.h"
#include "ORVRtfPicture_p.h"
#include "ORVRtfTextInserter_p.h"
#include "ORVRtfWordCache_p.h"
#include "ORVTextRtfCommon.h"
#include "ORVTextRtfRow_p.h"

#include <QtCore/QStack>
#include <QtCore/QVector>
#include <QtGui/QColor>
#include <QtGui/QTextCharFormat>

class QTextDocument;

/*!
    One read of RTF: the tokenizer's main loop, the state of groups, and what control words and the ends of
    groups do. Font and list tables, pictures and the paragraph format are kept by classes of their own.
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
    /*! A control word that is known, or not, and taken off the input. */
    struct ScannedWord {
        KeyWord keyWord = NoKeyWord;
        bool hasParameter = false;
        int parameter = 0;
    };

    /*! Scans the control word at the read position and has it translated. */
    int parseKeyword();
    int scanKeyword(ScannedWord& word);
    int actOn(const ScannedWord& word);

    // Above zero inside a group that is skipped: the number of its open braces.
    int m_skipDepth = 0;

private:
    /*! What a group is: where its text goes and what its end does. */
    enum Destination {
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
        AnnotationRangeEndGroup
    };

    /*! What bytes outside control words are. */
    enum ExpectedFormat { TextData, HexadecimalData };

    /*! What a closing brace brings back. */
    struct GroupState {
        QTextCharFormat charFormat;
        Destination destination = Body;
        // Bytes of fallback text after a Unicode character (\uc).
        int fallbackBytes = 1;
        // Code page of the current font, -1 for the document's.
        int codePage = ORVRtfFontTable::noCodePage;
        ExpectedFormat expectedFormat = TextData;
        // Whether the text is that of a note, which the format says as well.
        bool inAnnotation = false;
        bool inFootnote = false;
        // The next group repeats in ANSI what the one after it says in Unicode (\upr).
        bool skipNextGroup = false;
    };

    // Frame (ORVTextRtfReaderPrivate.cpp)
    void beginRead(QTextDocument* document, bool removeInvalidChars);
    int parseFile();
    int parseContent();
    void takeText();
    int pushProperties();
    int popProperties();
    void drawText();
    void drawTextBefore(KeyWord keyWord);
    void drawHeldText();
    void drawPendingText();
    void drawBodyText();
    void noteEmptyText();
    void drawColorTableText();
    void cleanPendingText();
    void commitBlockFormat();
    void settleEmptyBlock();
    void assembleLists();

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
    void beginNote(int id);
    bool isInNote() const { return m_state.inAnnotation || m_state.inFootnote; }
    void setBlockProperty(int id, const QVariant& value);
    void clearBlockProperty(int id);
    void setLeftIndent(double points);
    void setTextIndent(double points);
    void setRightIndent(double points);
    void setRightMargin(int twips);
    bool isRightToLeft() const;
    void setLeadingIndent(int twips);
    void setTrailingIndent(int twips);
    void resetCharFormat();
    void resetParagraph();
    void setBold(bool on);
    void setOutline(bool on);
    void setVerticalAlignment(KeyWord word, bool on);
    void setBaselineShift(int halfPoints);
    void setFontPitch(int pitch);
    void setForegroundColor(int index);
    void setBackgroundColor(int index);
    void setUnderlineColor(int index);
    bool hasColor(int index) const;
    void selectFont(int number);
    void setFontCharset(int charset);
    void setFontCodePage(int codePage);
    void setFontStyleHint(QFont::StyleHint hint);
    void setFontFamily(const QString& name);
    bool isIn(Destination destination) const { return m_state.destination == destination; }
    bool isInBodyText() const { return isIn(Body) || isIn(FieldResultGroup); }
    void openColorTable();
    void openDestination(Destination destination);
    void openPictureData(Destination destination);
    void setPictureType(const char* type);
    void translateListTableWord(KeyWord keyWord, int parameter);
    void beginListOverride();
    void setListId(int id);
    void setListOverrideNumber(int number);
    void setLevelOrLeftIndent(int twips);
    void setLevelOrTextIndent(int twips);
    void setLineMultiple(int multiple);
    void endParagraph();
    void endPage();

    // Tables (ORVTextRtfReaderTables.cpp)
    void setTableLevel(int level);
    void initializeTables(int level);
    ORVTextRtfRow& openRow();
    void enterLastCell();
    void endCell();
    void finalizeRow();
    void addRowToTable(ORVTextRtfRow& row);
    void finalizeTables(int level);
    void abandonTables();
    void setCellAlignment(QTextCharFormat::VerticalAlignment alignment);
    void setCellColor(int index);
    void setCellPadding(int twips);
    QTextTableFormat* borderFormat();
    void setBorderWidth(double points);
    void setBorderColor(bool hasParameter, int index);
    void clearBorder();

    // Ends of groups (ORVTextRtfReaderDestinations.cpp)
    void finalizeDestination();
    void finalizeFontTable();
    void finalizeColorTable();
    void finalizePicture();
    void finalizeFieldInstruction();
    void setLink(QTextCharFormat& format, const QString& target);
    void setDefaultCharFormat(const QTextCharFormat& format);
    void adoptDefaultCharFormat(const QTextCharFormat& format);
    QColor defaultForegroundColor() const;

    // Where the document grows
    QTextDocument* m_document = nullptr;
    ORVRtfTextInserter m_cursor;
    bool m_removeInvalidChars = false;
    // The cursor's block may be empty and then has not been given its formats yet; see noteEmptyText().
    bool m_emptyBlockUnsettled = false;

    ORVRtfWordCache m_words;

    // Read so far and not yet in the document
    QString m_pendingText;
    // How much of it is to be drawn although nothing has followed that has it drawn; see drawTextBefore().
    int m_heldText = 0;
    QByteArray m_binaryData;

    // The document's default character format, and what \plain makes of it
    QTextCharFormat m_defaultCharFormat;
    QTextCharFormat m_plainCharFormat;
    // A note may be read with its own format as the default.
    bool m_isPlainInAnnotation = false;
    bool m_isPlainInFootnote = false;
    ORVRtfCharFormatCache m_charFormats;

    // Groups
    GroupState m_state;
    QStack<GroupState> m_groups;
    bool m_ignorableDestination = false;

    // Document tables
    ORVRtfFontTable m_fonts;
    int m_defaultFont = 0;
    int m_currentFont = 0;
    QVector<QRgb> m_colors;
    QColor m_definedColor = Qt::black;
    int m_documentCodePage = 1252;
    ORVRtfListTable m_lists;

    // Paragraphs
    ORVRtfParagraph m_paragraph;

    // Tables: the open levels, innermost on top
    QStack<ORVTextRtfRow> m_rows;
    // Level the current paragraph is said to stand in, and whether deeper ones have been closed for it.
    int m_tableLevel = 0;
    bool m_tablesCommitted = false;
    // Cells that tables may still take; see ORVRtfLimits::spareTableCells.
    qint64 m_tableCellsLeft = 0;
    ORVRtfFormatSerials m_columnWidths;
    // Whether border words describe cells, or rows, whose borders are not kept.
    bool m_bordersAreCells = false;

    // Fields and pictures
    QString m_fieldInstruction;
    QString m_pdfFileName;
    ORVRtfPicture m_picture;
    int m_pictureNumber = 1;
};

#endif
