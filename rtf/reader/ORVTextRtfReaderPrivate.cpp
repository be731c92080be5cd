#include "ORVTextRtfReader_p.h"

#include "ORVRtfHexadecimal_p.h"
#include "ORVRtfLimits_p.h"
#include "ORVRtfProperties.h"
#include "ORVTextFormat.h"
#include "ORVTextListFormat.h"
#include "QtStringCompat_p.h"
#include "TextDocSupport.h"

#include <QtCore/QHash>
#include <QtCore/QIODevice>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>
#include <QtGui/QTextList>

#include <algorithm>
#include <cstring>

namespace {

// Digits of picture data that are decoded at a time.
const int hexadecimalRun = 1024;
// Characters that are usually pending at most: the length of a buffered line.
const int pendingTextSize = 1024;

bool isInvalid(QChar c)
{
    return c.unicode() >= 0x7F && c.unicode() <= 0x9F;
}

/*! Whether there is anything to clean. Mostly all is ASCII, which is seen for eight characters at a time. */
bool hasInvalid(const QString& text)
{
    const size_t step = 8;
    const quint64 ones = 0x0001000100010001;
    const size_t size = size_t(text.size());
    size_t start = 0;
    for (; start + step <= size; start += step) {
        quint64 units[2];
        std::memcpy(units, text.constData() + start, sizeof units);
        if (((units[0] + ones) | (units[1] + ones)) & (ones * 0xFF80))
            break;
    }
    return std::any_of(text.begin() + start, text.end(), isInvalid);
}

bool addsCharacter(ORVTextRtfCommon::KeyWord keyWord)
{
    switch (keyWord) {
    case ORVTextRtfCommon::UnicodeCharacterValue:
    case ORVTextRtfCommon::ExtendedCharacterValue:
    case ORVTextRtfCommon::NonBreakableSpace:
    case ORVTextRtfCommon::EnDash:
    case ORVTextRtfCommon::EmDash:
    case ORVTextRtfCommon::LeftQuote:
    case ORVTextRtfCommon::RightQuote:
    case ORVTextRtfCommon::LeftDoubleQuote:
    case ORVTextRtfCommon::RightDoubleQuote: return true;
    default: return false;
    }
}

} // namespace

ORVTextRtfReaderPrivate::ORVTextRtfReaderPrivate()
{
    // Reserved memory is kept when the text is taken.
    m_pendingText.reserve(pendingTextSize);
}

ORVTextRtfReaderPrivate::~ORVTextRtfReaderPrivate() { }

bool ORVTextRtfReaderPrivate::read(QTextDocument* document, bool removeInvalidChars)
{
    if (!document) {
        m_error = AssertionError;
        return false;
    }
    document->clear();
    const bool undoRedoEnabled = document->isUndoRedoEnabled();
    document->setUndoRedoEnabled(false);

    // All changes are one. No cursor is kept for that: each insertion costs more with each cursor there is.
    QTextCursor(document).beginEditBlock();
    beginRead(document, removeInvalidChars);
    m_error = parseFile();
    m_cursor.moveTo(QTextCursor());
    m_document = nullptr;
    QTextCursor(document).endEditBlock();

    TextDocSupport::clearDefaultTextOptionFlags(document);
    TextDocSupport::normalizePageBreaks(document);
    document->setUndoRedoEnabled(undoRedoEnabled);
    return m_error == NoError;
}

/*! Forgets what an earlier read left open; its tables of fonts, colours and lists stay. */
void ORVTextRtfReaderPrivate::beginRead(QTextDocument* document, bool removeInvalidChars)
{
    m_document = document;
    m_cursor.moveTo(QTextCursor(document));
    adoptDefaultCharFormat(ORVTextFormat::defaultCharFormat(document));
    m_removeInvalidChars = removeInvalidChars;
    m_emptyBlockUnsettled = false;
    m_pendingText.resize(0);
    m_heldText = 0;
    m_binaryData.clear();
    m_state = GroupState();
    m_groups.clear();
    m_skipDepth = 0;
    m_ignorableDestination = false;
    m_paragraph = ORVRtfParagraph();
    m_columnWidths = ORVRtfFormatSerials();
    m_rows.clear();
    m_tableLevel = 0;
    m_tablesCommitted = false;
    m_tableCellsLeft = ORVRtfLimits::spareTableCells;
    m_bordersAreCells = false;
    m_picture = ORVRtfPicture();
    m_pictureNumber = 1;
}

int ORVTextRtfReaderPrivate::parseFile()
{
    QIODevice* device = m_input.device();
    if (!device || (!device->isOpen() && !device->open(QIODevice::ReadOnly)))
        return DeviceNotOpen;

    m_page = ORVRtfPage();

    const int status = parseContent();
    abandonTables();
    assembleLists();
    if (m_lacksOutput)
        return DeviceNotOpen;
    if (status != NoError)
        return status;
    return m_groups.isEmpty() ? NoError : UnmatchedOpeningBrace;
}

int ORVTextRtfReaderPrivate::parseContent()
{
    int result = NoError;
    bool ok = true;
    for (char c = m_input.charAt(0, &ok); ok; c = m_input.charAt(0, &ok)) {
        int status = NoError;
        switch (c) {
        case '\\': {
            ScannedWord word;
            status = scanKeyword(word);
            drawTextBefore(word.keyWord);
            if (status == NoError)
                status = actOn(word);
            break;
        }
        case '{':
            drawText();
            status = pushProperties();
            m_input.release(1);
            break;
        case '}':
            drawText();
            status = popProperties();
            m_input.release(1);
            break;
        case '\n':
        case '\r': m_input.release(1); break;
        default: takeText(); break;
        }
        if (result == NoError)
            result = status;
    }
    drawHeldText();
    m_cursor.complete();
    return result;
}

int ORVTextRtfReaderPrivate::parseKeyword()
{
    ScannedWord word;
    const int status = scanKeyword(word);
    return status == NoError ? actOn(word) : status;
}

/*! Takes the control word at the read position off the input. */
int ORVTextRtfReaderPrivate::scanKeyword(ScannedWord& result)
{
    // The look-ahead fetches at most one more line: enough for any control word.
    m_input.charAt(ORVRtfControlWord::longest);
    const ORVRtfWordCache::Word& word = m_words.scan(m_input.data(), m_input.available());
    if (word.scanned.status != ORVRtfControlWord::Complete) {
        // Without its backslash the rest is text, and the rest of the document can be read.
        m_input.release(1);
        return word.scanned.status == ORVRtfControlWord::CutOff ? UnexpectedEnd : InvalidControlWord;
    }

    result.keyWord = word.keyWord;
    result.hasParameter = word.scanned.hasParameter;
    result.parameter = word.scanned.parameter;
    m_input.release(word.scanned.length);
    return NoError;
}

int ORVTextRtfReaderPrivate::actOn(const ScannedWord& word)
{
    if (m_skipDepth > 0)
        return NoError;
    const bool ignorable = m_ignorableDestination;
    m_ignorableDestination = false;
    if (word.keyWord != NoKeyWord)
        return translateControlWord(word.keyWord, word.hasParameter, word.parameter);
    if (ignorable)
        m_skipDepth = 1;
    return NoError;
}

/*
    Takes what stands between control words, as far as the buffer goes: text as Latin-1 (the code page only
    counts for escaped bytes), or digits of a picture, where blanks and stray bytes are dropped.
*/
void ORVTextRtfReaderPrivate::takeText()
{
    if (m_skipDepth == 0 && m_state.expectedFormat == HexadecimalData) {
        const int digits = m_input.hexadecimalDigits(hexadecimalRun);
        ORVRtfHexadecimal::appendDecoded(m_binaryData, m_input.data(), digits);
        m_input.release(qMax(digits, 1));
        return;
    }

    const int length = m_input.textLength();
    if (m_skipDepth == 0)
        compat::appendLatin1(m_pendingText, m_input.data(), length);
    m_input.release(length);
}

int ORVTextRtfReaderPrivate::pushProperties()
{
    if (m_skipDepth > 0) {
        ++m_skipDepth;
        return NoError;
    }
    if (m_state.skipNextGroup || m_groups.size() >= ORVRtfLimits::openGroups)
        m_skipDepth = 1;
    m_state.skipNextGroup = false;
    m_groups.push(m_state);
    return NoError;
}

int ORVTextRtfReaderPrivate::popProperties()
{
    if (m_skipDepth > 0 && --m_skipDepth > 0)
        return NoError;
    if (m_groups.isEmpty())
        return UnmatchedClosingBrace;
    finalizeDestination();
    settleEmptyBlock();
    m_state = m_groups.top();
    m_groups.removeLast();
    return NoError;
}

void ORVTextRtfReaderPrivate::drawText()
{
    if (m_skipDepth > 0)
        return;
    m_heldText = 0;
    if (!m_pendingText.isEmpty())
        drawPendingText();
    else if (isInBodyText())
        noteEmptyText();
}

void ORVTextRtfReaderPrivate::drawPendingText()
{
    // A font name is complete when its group or its entry ends.
    if (isIn(FontTableGroup))
        return;
    cleanPendingText();
    switch (m_state.destination) {
    case Body:
    case FieldResultGroup: drawBodyText(); break;
    case ColorTableGroup: drawColorTableText(); break;
    case LevelTextGroup: m_lists.appendLevelText(m_pendingText); break;
    case PdfFileNameGroup: m_pdfFileName += m_pendingText; break;
    case NisusFileNameGroup: m_picture.fileName += m_pendingText; break;
    case MathMLGroup: m_picture.mathML += m_pendingText; break;
    case FieldInstructionGroup:
        m_fieldInstruction +=
            m_pendingText.left(ORVRtfLimits::fieldInstruction - int(m_fieldInstruction.size()));
        break;
    default: break;
    }
    m_pendingText.resize(0);
}

/*
    Every control word has the text before it drawn. One that only adds a character to it changes nothing that
    counts for the text, so that is put off: a word with accents goes into the document in one piece. If no
   other word or brace follows, what stood before the last character is still drawn, and no more.
*/
void ORVTextRtfReaderPrivate::drawTextBefore(KeyWord keyWord)
{
    const int length = int(m_pendingText.size());
    if (length > 0 && length < pendingTextSize && isInBodyText() && addsCharacter(keyWord)
        && !ORVRtfTextInserter::endsParagraph(m_pendingText.at(length - 1)))
        m_heldText = length;
    else
        drawText();
}

void ORVTextRtfReaderPrivate::drawHeldText()
{
    if (m_heldText == 0)
        return;
    m_pendingText.truncate(m_heldText);
    drawText();
}

/*! Removes or replaces the characters U+007F to U+009F, which no text means. */
void ORVTextRtfReaderPrivate::cleanPendingText()
{
    if (!hasInvalid(m_pendingText))
        return;
    if (m_removeInvalidChars) {
        const QString::iterator end = std::remove_if(m_pendingText.begin(), m_pendingText.end(), isInvalid);
        m_pendingText.truncate(int(end - m_pendingText.begin()));
    } else {
        std::replace_if(m_pendingText.begin(), m_pendingText.end(), isInvalid,
                        QChar(QChar::ReplacementCharacter));
    }
}

void ORVTextRtfReaderPrivate::drawBodyText()
{
    // All of it may have been cleaned away.
    if (m_pendingText.isEmpty()) {
        noteEmptyText();
        return;
    }
    commitBlockFormat();
    m_cursor.insertText(m_pendingText, m_state.charFormat);
}

/*
    An empty paragraph takes the formats in force at every control word and brace, so that the last of them
    count. They are only put into the document when something else happens to the paragraph: many words
    usually stand before its text. Near the end of the input nothing may come any more, so it is done at once.
*/
void ORVTextRtfReaderPrivate::noteEmptyText()
{
    m_emptyBlockUnsettled = true;
    if (m_input.isFetched())
        settleEmptyBlock();
}

/*! A semicolon ends an entry of the colour table; several in one piece of text count once. */
void ORVTextRtfReaderPrivate::drawColorTableText()
{
    if (!m_pendingText.contains(QLatin1Char(';')))
        return;
    m_colors.append(m_definedColor.rgb());
    m_definedColor = defaultForegroundColor();
}

void ORVTextRtfReaderPrivate::commitBlockFormat()
{
    if (!m_tablesCommitted) {
        m_tablesCommitted = true;
        finalizeTables(m_tableLevel);
    }
    m_emptyBlockUnsettled = false;
    m_cursor.setBlockFormats(m_paragraph.format(), m_state.charFormat);
}

/*! Gives the cursor's block the formats in force if it is empty and waits for them; see noteEmptyText(). */
void ORVTextRtfReaderPrivate::settleEmptyBlock()
{
    if (!m_emptyBlockUnsettled)
        return;
    m_emptyBlockUnsettled = false;
    m_cursor.setBlockFormats(m_paragraph.format(), m_state.charFormat);
}

/*! Makes one list of all paragraphs that cite the same override, however far apart they stand. */
void ORVTextRtfReaderPrivate::assembleLists()
{
    QHash<int, QTextList*> listOfOverride;
    int otherFormat = -1;
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        // Most paragraphs are in no list, and many have the same format.
        const int index = block.blockFormatIndex();
        if (index == otherFormat)
            continue;
        const QTextBlockFormat format = block.blockFormat();
        if (!format.hasProperty(ORVRtfProperty::ListOverride)) {
            otherFormat = index;
            continue;
        }
        const int number = format.intProperty(ORVRtfProperty::ListOverride);
        const int level = format.intProperty(ORVRtfProperty::ListLevel);
        QTextList*& list = listOfOverride[number];
        if (list)
            list->add(block);
        else
            list = QTextCursor(block).createList(m_lists.findListFormat(number));
        ORVTextListFormat::setBlockLevel(list, block, level);
    }
}
