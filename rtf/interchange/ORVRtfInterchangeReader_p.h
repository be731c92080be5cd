#ifndef ORVRTFINTERCHANGEREADER_P_H
#define ORVRTFINTERCHANGEREADER_P_H

#include "ORVRtfInterchangeWords_p.h"
#include "ORVRtfPictureData_p.h"
#include "ORVRtfSymbolFonts_p.h"
#include "ORVRtfTableBuilder_p.h"
#include "ORVRtfTextDecoder_p.h"
#include "ORVTextRtfReader_p.h"

/*!
    The reader of RTF as word processors mean it. It reads as the other one does, but for what stands here:
    text in any code page, tables that keep all their text, pictures of all kinds, and what is not to be shown.
*/
class ORVRtfInterchangeReader : public ORVTextRtfReaderPrivate {
public:
    ORVRtfInterchangeReader();

    int translateControlWord(KeyWord keyWord, bool hasParameter, int parameter) override;

private:
    /*! Destinations of words that the storage form does not know. */
    enum PrivateDestination { FormFieldGroup = LastDestination + 1, ShapeGroup, ShapePropertyNameGroup };
    /*! The state of a form's check box that means its default. */
    static constexpr int unsetFormField = 25;

    /*! What the end of a group restores, beside the state of the storage form. */
    struct State {
        ORVRtfParagraph paragraph;
        ORVRtfTableBuilder::Place place;
        bool isDefiningNestedRow = false;
        bool isHidden = false;
        bool isDeleted = false;
        // In a field that the instruction of another one uses.
        bool isInOperandField = false;
        // One of ORVRtfSymbolFonts.
        int symbolFont = ORVRtfSymbolFonts::none;
    };

    // The read and its groups (ORVRtfInterchangeReader.cpp)
    void beginRead(QTextDocument* document, bool removeInvalidChars) override;
    void endRead() override;
    int actOn(const ORVRtfControlWord& word) override;
    int pushProperties() override;
    int popProperties() override;
    void takeText() override;
    void drawText() override;
    void drawBodyText() override;
    void placeParagraph() override;
    void skipFallback(KeyWord keyWord);
    int codePageInForce() const;
    void appendBytes(const char* bytes, int count);
    void appendSymbols(const char* bytes, int count);
    void appendSymbol(uchar byte);
    void appendCharacter(char32_t character);
    void giveUpCharacter();
    bool isShown() const { return !m_own.isHidden && !m_own.isDeleted; }

    // Control words (ORVRtfInterchangeWordEffects.cpp)
    int translatePrivateWord(ORVRtfInterchangeWords::Word word, bool hasParameter, int parameter);
    bool translateTableWord(KeyWord keyWord, bool hasParameter, int n);
    bool translateBorderWord(KeyWord keyWord, bool hasParameter, int n);
    int escapedByte();
    int translateEscapedBytes();
    void translateUnicodeUnit(bool hasParameter, int unit);
    void endShownParagraph();
    void endCell(bool isNested);
    void endRow(bool isNested);
    void setCellAlignment(QTextCharFormat::VerticalAlignment alignment);
    void setCellColor(int number);
    void resetOwnFormat();
    void selectOwnFont(int number);
    void setLevelFont(int symbolFont);
    void setStatedCodePage(int codePage);
    void setFontCodePage(int codePage);
    void setDocumentCodePage(int codePage);
    void setSystemCodePage(int codePage);

    // Destinations (ORVRtfInterchangeDestinations.cpp)
    void setFontFamily(const QString& name) override;
    void drawDestinationText() override;
    void endOwnDestination();
    void beginShape();
    void beginPicture();
    void endPicture();
    void fitIntoShape();
    void beginField();
    void endField();

    ORVRtfTextDecoder m_decoder;
    // Characters behind a Unicode character that stand for it.
    int m_fallback = 0;
    // What stands in the pending text are characters of a symbol font, which need another font.
    bool m_isPendingSymbols = false;
    // The page of fonts that state none is stated by a number, which a word for the system does not change.
    bool m_isDocumentCodePageStated = false;
    // The last font whose page is stated by its number.
    int m_fontWithStatedPage = -1;
    QHash<int, int> m_symbolFonts;

    State m_own;
    QStack<State> m_ownGroups;
    ORVRtfTableBuilder m_builder;
    // The words for lines that follow describe those of cells.
    bool m_isInCellBorder = false;
    // The paragraph has text that is seen.
    bool m_hasShownText = false;
    // The group of the document has ended.
    bool m_isDocumentClosed = false;

    ORVRtfPictureData m_pictureData;
    // The last picture that has a form for older programs was shown.
    bool m_isPictureShown = false;
    // Where a drawn object stands, in twips, and whether the picture is one.
    struct {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
    } m_shapeBox;
    bool m_isPictureOfShape = false;
    // The property of a drawn object whose value follows.
    QString m_shapeProperty;
    // The last drawn object was a picture that was shown.
    bool m_isShapeShown = false;

    // The check box of the field, and what the result of the field shows.
    int m_formFieldResult = unsetFormField;
    int m_formFieldDefault = 0;
    bool m_hasFieldResult = false;
    QString m_fieldText;
};

#endif
