#ifndef ORVRTFINTERCHANGEREADER_P_H
#define ORVRTFINTERCHANGEREADER_P_H

#include "ORVRtfBorder_p.h"
#include "ORVRtfInformation_p.h"
#include "ORVRtfInterchangeWords_p.h"
#include "ORVRtfNoteMarks_p.h"
#include "ORVRtfNumbering_p.h"
#include "ORVRtfPageTexts_p.h"
#include "ORVRtfParagraphState_p.h"
#include "ORVRtfPictureData_p.h"
#include "ORVRtfScripts_p.h"
#include "ORVRtfStory_p.h"
#include "ORVRtfSymbolFonts_p.h"
#include "ORVRtfTableBuilder_p.h"
#include "ORVRtfTextDecoder_p.h"
#include "ORVRtfTextState_p.h"
#include "ORVRtfTime_p.h"
#include "ORVTextRtfReader_p.h"

/*!
    The reader of RTF as word processors mean it. It reads as the other one does, but for what stands here:
    text in any code page, tables that keep all their text, pictures of all kinds, what is not to be shown,
    notes, headers and footers, text boxes, and the information about the document.
*/
class ORVRtfInterchangeReader : public ORVTextRtfReaderPrivate {
public:
    ORVRtfInterchangeReader();

    int translateControlWord(KeyWord keyWord, bool hasParameter, int parameter) override;

private:
    /*! Destinations of words that the storage form does not know. */
    enum PrivateDestination {
        FormFieldGroup = LastDestination + 1,
        ShapeGroup,
        ShapePropertyNameGroup,
        InformationGroup,
        InformationTextGroup,
        InformationDateGroup,
        BookmarkNameGroup,
        CommentAuthorGroup,
        CommentInitialsGroup,
        CommentDateGroup,
        CommentTimeGroup,
        OldNumberGroup,
        OldNumberTextBeforeGroup,
        OldNumberTextAfterGroup,
        OldLabelGroup,
        AlternativeFontGroup
    };

    /*! What the end of a group restores, beside the state of the storage form. */
    struct State {
        ORVRtfParagraph paragraph;
        ORVRtfTableBuilder::Place place;
        bool isDefiningNestedRow = false;
        bool isHidden = false;
        bool isDeleted = false;
        // In a field that the instruction of another one uses.
        bool isInOperandField = false;
        // In the label of a list item that is text.
        bool isInListText = false;
        // One of ORVRtfSymbolFonts.
        int symbolFont = ORVRtfSymbolFonts::none;
        ORVRtfTextState text;
        ORVRtfScripts scripts;
        ORVRtfParagraphState paragraphState;
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
    void noteRaisedText();
    void skipFallback(KeyWord keyWord);
    int codePageInForce() const;
    void appendBytes(const char* bytes, int count);
    void appendSymbols(const char* bytes, int count);
    void appendSymbol(uchar byte);
    void appendCharacter(char32_t character);
    void giveUpCharacter();
    bool isShown() const { return !m_own.isHidden && !m_own.isDeleted; }
    /*! Whether the ends of paragraphs, cells and pages that stand here are those of text. */
    bool hasParagraphs() const { return isInBodyText() || isIn(FieldGroup); }

    // Control words (ORVRtfInterchangeWordEffects.cpp)
    int translatePrivateWord(ORVRtfInterchangeWords::Word word, bool hasParameter, int parameter);
    bool translateTableWord(KeyWord keyWord, bool hasParameter, int n);
    bool translatePrivateTableWord(ORVRtfInterchangeWords::Word word, int n);
    bool translateShadingWord(ORVRtfInterchangeWords::Word word, int n);
    bool translateRowWord(ORVRtfInterchangeWords::Word word, int n);
    int escapedByte();
    int translateEscapedBytes();
    void translateUnicodeUnit(bool hasParameter, int unit);
    void endShownParagraph();
    void endShownPage();
    void endAtBreak(void (ORVRtfInterchangeReader::*end)());
    void endCell(bool isNested);
    void endRow(bool isNested);
    void setCellAlignment(QTextCharFormat::VerticalAlignment alignment);
    void setStatedCodePage(int codePage);
    void setFontCodePage(int codePage);
    void setDocumentCodePage(int codePage);
    void setSystemCodePage(int codePage);

    // Lines (ORVRtfInterchangeBorders.cpp)
    enum BorderOwner {
        NoBorderOwner,
        BorderOfCell,
        BorderOfRow,
        BorderBetweenRows,
        BorderBetweenColumns,
        BorderOfParagraph
    };
    bool translateBorderWord(KeyWord keyWord, bool hasParameter, int n);
    bool translatePrivateBorderWord(ORVRtfInterchangeWords::Word word, int n);
    void beginBorder(BorderOwner owner, int side);
    void applyBorder();
    void applyParagraphBorder();
    bool beginRuler();
    void endRuler();

    // Formats of text (ORVRtfInterchangeFormats.cpp)
    bool translateFormatWord(KeyWord keyWord, bool hasParameter, int n);
    bool translatePrivateFormatWord(ORVRtfInterchangeWords::Word word, bool hasParameter, int n);
    void resetOwnFormat();
    void selectOwnFont(int number);
    void applyFormats(const ORVRtfScripts::Formats& formats);
    QColor colorOf(int number) const;
    void setUnderline(int style, bool on);
    void setSwitch(int id, bool on);
    void setStrikeOut();
    void setCapitalization();
    void setTextBackground();
    void setLetterSpacing(int twips);
    void setStretch(int percent);
    void setLanguage(int number);
    void drawScripts();

    // Formats of paragraphs, and sections (ORVRtfInterchangeParagraphs.cpp)
    bool translateParagraphWord(KeyWord keyWord, int n);
    bool translatePrivateParagraphWord(ORVRtfInterchangeWords::Word word, bool hasParameter, int n);
    bool translateSectionWord(ORVRtfInterchangeWords::Word word, int n);
    void setParagraphBackground();
    void setContextualSpacing();
    void endSection();
    void endColumn();
    void breakPageForSection();
    void stateDirections();

    // Lists (ORVRtfInterchangeLists.cpp)
    bool translateListWord(KeyWord keyWord, int n);
    bool translateLevelWord(KeyWord keyWord, int n);
    bool translateLevelNumberWord(KeyWord keyWord, int n);
    bool translatePrivateListWord(ORVRtfInterchangeWords::Word word, int n);
    bool translateOldNumberWord(ORVRtfInterchangeWords::Word word, int n);
    bool isInListTables() const { return isIn(ListTableGroup) || isIn(ListOverrideGroup); }
    bool isInOldNumber() const;
    void setItemList(int number);
    void setItemLevel(int level);
    bool drawListText();
    void endListDestination();
    void assembleLists() override;

    // Words of the document and its pages (ORVRtfInterchangeDocument.cpp)
    bool translateDocumentWord(KeyWord keyWord, int n);
    bool translatePrivateDocumentWord(ORVRtfInterchangeWords::Word word, int n);
    bool translateNoteNumberWord(ORVRtfInterchangeWords::Word word, int n);
    void openInformation(ORVRtfInformation::Text text);
    void openInformation(ORVRtfInformation::Date date);
    void setDocumentPage(int ORVRtfPage::*length, int twips);
    void setSectionPage(int ORVRtfPage::*length, int twips);
    void endDocumentDestination();
    void setCommentDate(const ORVRtfTime& time);
    void setDocumentProperties();
    void setTabDistance();

    // Texts apart from the running one (ORVRtfInterchangeStories.cpp)
    bool beginStory(ORVRtfStory::Kind kind);
    void leaveText(ORVRtfStory& story);
    void endStories(int depth);
    void endStory();
    void beginNote(ORVRtfNote::Kind kind);
    void setEndnote();
    void setNoteNumberPlace();
    void insertNote(ORVRtfStory& story);
    void removeOwnMark(int length);
    void beginPageText(ORVRtfPageTexts::Side side, ORVRtfPageTexts::Pages pages);
    bool isInPageText() const;
    void keepBox(const QSharedPointer<QTextDocument>& document);
    void appendBoxes();

    // Links and bookmarks (ORVRtfInterchangeLinks.cpp)
    void finalizeFieldInstruction() override;
    void addAnchorName();
    void setAnchorNames(QTextCharFormat& format);
    void drawAnchoredCharacter();
    void beginField();
    void beginFieldResult();
    void endField();
    bool isPageField() const;
    void beginListText();
    bool hasParagraphEnd();

    // Destinations (ORVRtfInterchangeDestinations.cpp)
    void setFontFamily(const QString& name) override;
    void drawDestinationText() override;
    void endOwnDestination();
    void beginAlternativeFont();
    void beginShape();
    void beginPicture();
    void endPicture();
    void fitIntoShape();

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
    // The line that words describe. Its side is one of ORVTextBorder, or their number for all of them.
    struct Border {
        BorderOwner owner = NoBorderOwner;
        int side = ORVTextBorder::Top;
        ORVRtfBorder line;
    };
    Border m_border;
    ORVRtfRunningText m_text;
    // Innermost last.
    std::vector<ORVRtfStory> m_stories;
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

    // What stands behind the group that has ended: what a field shows, or the name of a font.
    QString m_textBehindGroup;
    // The name of the font whose alternative is being read.
    QString m_fontName;
    QString m_alternativeFont;
    // The language of the document; empty when it states none.
    QString m_defaultLanguage;

    ORVRtfNumbering m_numbering;

    // Notes and bookmarks
    ORVRtfNoteMarks m_noteMarks;
    QString m_commentAuthor;
    QString m_commentInitials;
    QString m_commentDate;
    ORVRtfTime m_commentTime;
    QString m_bookmark;
    int m_bookmarksLeft = ORVRtfLimits::bookmarks;
    ORVRtfFormatSerials m_anchorSerials;

    // The document: its pages and its information
    ORVRtfPageTexts m_pageTexts;
    ORVRtfInformation m_information;
    ORVRtfInformation::Text m_informationText = ORVRtfInformation::Title;
    ORVRtfInformation::Date m_informationDate = ORVRtfInformation::Created;
    ORVRtfTime m_time;
    QVector<int ORVRtfPage::*> m_statedLengths;
    bool m_isFirstSection = true;
    int m_sectionColumns = 1;
    // Sections that begin as the last one begin on a new page.
    bool m_sectionsBreakPages = true;
    // A section has ended, and nothing of the next one has been drawn.
    bool m_isSectionPending = false;
    // There is text in a code page, or a character, that can be written from right to left.
    bool m_mayBeRightToLeft = false;
    // In twips.
    int m_tabDistance = 0;
};

#endif
