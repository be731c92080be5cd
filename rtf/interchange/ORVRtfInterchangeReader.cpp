#include "ORVRtfInterchangeReader_p.h"

#include "ORVRtfCodePages_p.h"
#include "ORVRtfProperties.h"
#include "QtFontCompat_p.h"
#include "QtStringCompat_p.h"

namespace {

// No character in front of this one is written from right to left.
const char32_t firstRightToLeft = 0x0590;

int findPrivateWord(const char* spelling, int length)
{
    return ORVRtfInterchangeWords::find(spelling, length);
}

} // namespace

ORVRtfInterchangeReader::ORVRtfInterchangeReader() : m_builder(m_inserter)
{
    m_findPrivateWord = findPrivateWord;
}

void ORVRtfInterchangeReader::beginRead(QTextDocument* document, bool removeInvalidChars)
{
    ORVTextRtfReaderPrivate::beginRead(document, removeInvalidChars);
    m_fonts = ORVRtfFontTable();
    m_fonts.keepNames();
    m_colors = ORVRtfColorTable();
    m_numbering = ORVRtfNumbering();
    m_defaultFont = 0;
    m_currentFont = 0;
    m_documentCodePage = ORVRtfCodePages::latin1Windows;
    m_isDocumentCodePageStated = false;
    m_fontWithStatedPage = -1;
    m_symbolFonts.clear();
    m_decoder.reset();
    m_fallback = 0;
    m_isPendingSymbols = false;
    m_own = State();
    m_ownGroups.clear();
    m_builder.reset();
    m_border = Border();
    m_text = ORVRtfRunningText();
    m_stories.clear();
    m_isDocumentClosed = false;
    m_pictureData = ORVRtfPictureData();
    m_isPictureShown = false;
    m_isShapeShown = false;
    m_textBehindGroup.clear();
    m_noteMarks = ORVRtfNoteMarks();
    m_commentAuthor.clear();
    m_commentInitials.clear();
    m_commentTime = ORVRtfTime();
    m_bookmarksLeft = ORVRtfLimits::bookmarks;
    m_anchorSerials = ORVRtfFormatSerials();
    m_pageTexts = ORVRtfPageTexts();
    m_information = ORVRtfInformation();
    m_statedLengths.clear();
    m_isFirstSection = true;
    m_sectionColumns = 1;
    m_sectionsBreakPages = true;
    m_isSectionPending = false;
    m_mayBeRightToLeft = false;
    m_tabDistance = 0;
    m_defaultLanguage.clear();
}

/*!
    What stands behind the last control word, and the cells that have not ended, belong to the document too;
    text behind its last brace does not.
*/
void ORVRtfInterchangeReader::endRead()
{
    if (m_isDocumentClosed && m_groups.isEmpty())
        m_pendingText.resize(0);
    giveUpCharacter();
    ORVTextRtfReaderPrivate::drawText();
    if (isIn(PictureGroup))
        endPicture();
    endStories(0);
    appendBoxes();
    m_builder.textWidth = m_page.textWidth();
    m_builder.endTables();
    ORVTextRtfReaderPrivate::endRead();
    if (m_mayBeRightToLeft)
        stateDirections();
    setDocumentProperties();
}

int ORVRtfInterchangeReader::actOn(const ORVRtfControlWord& word)
{
    // Raw bytes are no RTF, also where they are skipped.
    if (word.keyWord == BinaryData) {
        m_fallback = qMax(0, m_fallback - 1);
        m_ignorableDestination = false;
        if (m_skipDepth == 0 && isIn(PictureGroup))
            m_input.takeBytes(word.parameter, m_pictureData.bytes());
        else
            m_input.skipBytes(word.parameter);
        return NoError;
    }
    if (m_fallback > 0 && word.keyWord != UnicodeCharacterValue) {
        skipFallback(word.keyWord);
        return NoError;
    }
    m_fallback = 0;
    if (m_skipDepth > 0 || word.privateWord == ORVRtfInterchangeWords::None)
        return ORVTextRtfReaderPrivate::actOn(word);
    m_ignorableDestination = false;
    return translatePrivateWord(ORVRtfInterchangeWords::Word(word.privateWord), word.hasParameter,
                                word.parameter);
}

/*! A control word in the fallback of a Unicode character counts as one character. */
void ORVRtfInterchangeReader::skipFallback(KeyWord keyWord)
{
    --m_fallback;
    if (keyWord == ExtendedCharacterValue && escapedByte() >= 0)
        m_input.release(2);
}

int ORVRtfInterchangeReader::pushProperties()
{
    m_fallback = 0;
    m_own.paragraph = m_paragraph;
    m_own.place = m_builder.place;
    m_own.isDefiningNestedRow = m_builder.isDefiningNestedRow;
    const int status = ORVTextRtfReaderPrivate::pushProperties();
    if (m_groups.size() > m_ownGroups.size())
        m_ownGroups.push(m_own);
    return status;
}

int ORVRtfInterchangeReader::popProperties()
{
    m_fallback = 0;
    if (m_skipDepth == 0 && !m_groups.isEmpty() && m_groups.top().destination != m_state.destination)
        endOwnDestination();
    // A brace that ends the skipping ends a group that was read.
    if (m_skipDepth <= 1 && !m_stories.empty())
        endStories(int(m_groups.size()));
    const int status = ORVTextRtfReaderPrivate::popProperties();
    if (m_groups.size() < m_ownGroups.size()) {
        m_own = m_ownGroups.top();
        m_ownGroups.pop_back();
        m_paragraph = m_own.paragraph;
        m_builder.place = m_own.place;
        m_builder.isDefiningNestedRow = m_own.isDefiningNestedRow;
        m_isDocumentClosed = m_groups.isEmpty();
    }
    if (!m_textBehindGroup.isEmpty()) {
        m_pendingText += m_textBehindGroup;
        m_textBehindGroup.clear();
    }
    return status;
}

void ORVRtfInterchangeReader::takeText()
{
    if (m_skipDepth == 0 && m_state.expectedFormat == HexadecimalData && !isIn(PictureGroup)) {
        ORVTextRtfReaderPrivate::takeText();
        return;
    }
    const int length = m_input.textLength();
    const int skipped = qMin(m_fallback, length);
    m_fallback -= skipped;
    if (m_skipDepth == 0 && isIn(PictureGroup))
        m_pictureData.addDigits(m_input.data(), length);
    else if (m_skipDepth == 0 && skipped < length)
        appendBytes(m_input.data() + skipped, length - skipped);
    m_input.release(length);
}

/*! Text that states no font is in the default one. What describes the document is in the page of that. */
int ORVRtfInterchangeReader::codePageInForce() const
{
    int codePage = m_state.codePage;
    if (codePage == ORVRtfFontTable::noCodePage && isInBodyText())
        codePage = m_fonts.codePage(m_defaultFont);
    const bool isStated = codePage != ORVRtfFontTable::noCodePage && codePage != ORVRtfCodePages::symbols;
    return isStated ? codePage : m_documentCodePage;
}

void ORVRtfInterchangeReader::appendBytes(const char* bytes, int count)
{
    if (m_own.symbolFont != ORVRtfSymbolFonts::none && isInBodyText()) {
        appendSymbols(bytes, count);
        return;
    }
    const int codePage = codePageInForce();
    if (codePage != ORVRtfCodePages::latin1Windows)
        m_mayBeRightToLeft = true;
    m_decoder.setCodePage(codePage, m_pendingText);
    m_decoder.append(bytes, count, m_pendingText);
}

void ORVRtfInterchangeReader::appendSymbols(const char* bytes, int count)
{
    for (int i = 0; i < count; ++i)
        appendSymbol(uchar(bytes[i]));
}

/*! A character that Unicode has needs no symbol font; others are seen in theirs only. */
void ORVRtfInterchangeReader::appendSymbol(uchar byte)
{
    const char32_t character = ORVRtfSymbolFonts::character(m_own.symbolFont, byte);
    const bool isKnown = character != 0;
    if (isKnown != m_isPendingSymbols) {
        ORVTextRtfReaderPrivate::drawText();
        m_isPendingSymbols = isKnown;
    }
    appendCharacter(isKnown ? character : ORVRtfSymbolFonts::privateCharacter(byte));
}

void ORVRtfInterchangeReader::appendCharacter(char32_t character)
{
    m_decoder.endText(m_pendingText);
    if (character >= firstRightToLeft)
        m_mayBeRightToLeft = true;
    compat::appendCharacter(m_pendingText, character);
}

/*! Draws U+FFFD for a character whose last bytes are missing. */
void ORVRtfInterchangeReader::giveUpCharacter()
{
    if (!m_decoder.isWithinCharacter())
        return;
    m_decoder.endText(m_pendingText);
    ORVTextRtfReaderPrivate::drawText();
}

/*! Characters that are escaped byte by byte are drawn together, and so are the halves of a character. */
void ORVRtfInterchangeReader::drawText()
{
    if (m_input.charAt(0) == '\\') {
        const char next = m_input.charAt(1);
        const bool isHalf =
            !m_pendingText.isEmpty() && m_pendingText.at(m_pendingText.size() - 1).isHighSurrogate();
        if (next == '\'' || (next == 'u' && isHalf))
            return;
    }
    ORVTextRtfReaderPrivate::drawText();
}

void ORVRtfInterchangeReader::drawBodyText()
{
    const bool isSymbols = m_isPendingSymbols;
    m_isPendingSymbols = false;
    if (!isShown())
        return;
    if (m_text.oldList.hasLabel())
        m_text.oldList.applyLabel(m_paragraph, m_numbering);
    if (!m_text.hasShownText)
        m_text.script = ORVRtfScripts::Western;
    m_text.hasShownText = true;
    m_text.hasNoteNumber = false;
    if (isIn(FieldResultGroup))
        m_text.field.hasResult = true;
    noteRaisedText();
    const QTextCharFormat format = m_state.charFormat;
    if (isSymbols)
        compat::copyFontFamilies(m_state.charFormat, m_plainCharFormat);
    if (!m_text.anchorNames.isEmpty())
        drawAnchoredCharacter();
    if (isSymbols || m_own.scripts.isEmpty())
        ORVTextRtfReaderPrivate::drawBodyText();
    else
        drawScripts();
    m_state.charFormat = format;
}

/*! Remembers raised text, which can be the mark of a note that follows; text that is too long, up to there. */
void ORVRtfInterchangeReader::noteRaisedText()
{
    const QTextCharFormat& format = m_state.charFormat;
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript
        || format.intProperty(ORVRtfProperty::BaselineShift) > 0)
        m_text.raisedText += m_pendingText.left(ORVRtfLimits::noteMark + 1 - int(m_text.raisedText.size()));
    else if (!m_text.raisedText.isEmpty())
        m_text.raisedText.clear();
}

void ORVRtfInterchangeReader::placeParagraph()
{
    m_builder.textWidth = m_page.textWidth();
    m_builder.placeParagraph();
    breakPageForSection();
}
