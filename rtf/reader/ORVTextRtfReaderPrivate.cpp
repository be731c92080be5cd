#include "ORVTextRtfReader_p.h"

#include "ORVRtfHexadecimal_p.h"
#include "ORVRtfLimits_p.h"
#include "ORVRtfProperties.h"
#include "ORVTextFormat.h"
#include "ORVTextListFormat.h"
#include "QtFormatCompat_p.h"
#include "QtStringCompat_p.h"
#include "TextDocSupport.h"

#include <QtCore/QHash>
#include <QtCore/QIODevice>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>
#include <QtGui/QTextList>

#include <algorithm>

namespace {

// Digits of picture data that are decoded at a time.
const int hexadecimalRun = 1024;

// U+007F to U+009F. Unlike a function it is compiled into the loops that use it: all text goes through them.
const auto isInvalid = [](QChar c) { return c.unicode() >= 0x7F && c.unicode() <= 0x9F; };

} // namespace

ORVTextRtfReaderPrivate::ORVTextRtfReaderPrivate() { }

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
    m_inserter.moveTo(QTextCursor());
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
    m_inserter = ORVRtfTextInserter();
    m_inserter.moveTo(QTextCursor(document));
    adoptDefaultCharFormat(ORVTextFormat::defaultCharFormat(document));
    m_removeInvalidChars = removeInvalidChars;
    m_pendingText.resize(0);
    m_binaryData.clear();
    m_state = GroupState();
    m_groups.clear();
    m_skipDepth = 0;
    m_ignorableDestination = false;
    m_paragraph = ORVRtfParagraph();
    m_tables = ORVRtfTableLevels();
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
    if (m_tables.isOpen())
        m_inserter.moveTo(m_tables.abandon());
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
        case '\\':
            drawText();
            status = parseKeyword();
            break;
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
        // Lines are those of the file, not of the text.
        case '\n':
        case '\r': m_input.release(1); break;
        default: takeText(); break;
        }
        if (result == NoError)
            result = status;
    }
    endRead();
    return result;
}

/*! What the document holds when its input has ended. */
void ORVTextRtfReaderPrivate::endRead()
{
    m_inserter.complete();
}

int ORVTextRtfReaderPrivate::parseKeyword()
{
    ORVRtfControlWord word;
    const int status = scanControlWord(word);
    return status == NoError ? actOn(word) : status;
}

/*! Takes the control word at the read position off the input. */
int ORVTextRtfReaderPrivate::scanControlWord(ORVRtfControlWord& word)
{
    // The look-ahead fetches at most one more line: enough for any control word.
    m_input.charAt(ORVRtfControlWord::longest);
    word = ORVRtfControlWord::scan(m_input.data(), m_input.available(), m_findPrivateWord);
    if (word.status != ORVRtfControlWord::Complete) {
        // Without its backslash the rest is text, and the rest of the document can be read.
        m_input.release(1);
        return word.status == ORVRtfControlWord::CutOff ? UnexpectedEnd : InvalidControlWord;
    }
    m_input.release(word.length);
    return NoError;
}

int ORVTextRtfReaderPrivate::actOn(const ORVRtfControlWord& word)
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
    // The brace that ends the skipping ends a group that was pushed before its content was skipped.
    if (m_skipDepth > 0 && --m_skipDepth > 0)
        return NoError;
    if (m_groups.isEmpty())
        return UnmatchedClosingBrace;
    finalizeDestination();
    m_state = m_groups.top();
    m_groups.pop_back();
    return NoError;
}

/*!
    Hands the text before a control word or a brace on, to the document or to the destination of the group. An
    empty paragraph takes the formats in force each time, so that the last of them count.
*/
void ORVTextRtfReaderPrivate::drawText()
{
    // A font name is complete when its group or its entry ends.
    if (m_skipDepth > 0 || isIn(FontTableGroup))
        return;
    if (!m_pendingText.isEmpty())
        drawPendingText();
    else if (isInBodyText())
        m_inserter.setBlockFormats(m_paragraph, m_state.charFormat);
}

void ORVTextRtfReaderPrivate::drawPendingText()
{
    cleanPendingText();
    if (isInBodyText())
        drawBodyText();
    else
        drawDestinationText();
    m_pendingText.resize(0);
}

/*! Removes or replaces the characters U+007F to U+009F, which no text means. */
void ORVTextRtfReaderPrivate::cleanPendingText()
{
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
        m_inserter.setBlockFormats(m_paragraph, m_state.charFormat);
        return;
    }
    commitBlockFormat();
    m_inserter.insertText(m_pendingText, m_state.charFormat);
}

/*! Closes the tables that the paragraph does not stand in. */
void ORVTextRtfReaderPrivate::placeParagraph()
{
    if (m_tables.commitParagraph())
        finalizeTables(m_tables.paragraphLevel());
}

void ORVTextRtfReaderPrivate::commitBlockFormat()
{
    placeParagraph();
    m_inserter.setBlockFormats(m_paragraph, m_state.charFormat);
}

/*! Opens table levels until \a level are open. Text then goes into the cells of the innermost one. */
void ORVTextRtfReaderPrivate::initializeTables(int level)
{
    if (m_tables.openLevels() < level)
        m_inserter.moveTo(m_tables.open(level, m_inserter.place()));
}

void ORVTextRtfReaderPrivate::endCell()
{
    m_tables.takeParagraphOfMergedRow();
    commitBlockFormat();
    if (!m_tables.isOpen())
        return;
    m_inserter.complete();
    m_inserter.moveTo(m_tables.endCell());
}

void ORVTextRtfReaderPrivate::finalizeRow()
{
    m_tables.beginParagraph();
    if (!m_tables.isOpen())
        return;
    m_inserter.complete();
    const QTextCursor nextRow = m_tables.endRow(m_page.textWidth());
    if (nextRow.isNull())
        finalizeTables(m_tables.openLevels() - 1);
    else
        m_inserter.moveTo(nextRow);
}

/*! Closes table levels until \a level are open; what follows stands in a new paragraph behind the table. */
void ORVTextRtfReaderPrivate::finalizeTables(int level)
{
    if (m_tables.openLevels() <= level)
        return;
    // Text of a cell that has not ended is lost, also what still waits: its document is gone by now.
    m_inserter.moveTo(m_tables.close(level, m_page.textWidth()));
    m_inserter.endBlock();
}

/*! Makes one list of all paragraphs that cite the same override, however far apart they stand. */
void ORVTextRtfReaderPrivate::assembleLists()
{
    QHash<int, QTextList*> listOfOverride;
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        const QTextBlockFormat format = block.blockFormat();
        if (!format.hasProperty(ORVRtfProperty::ListOverride))
            continue;
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

void ORVTextRtfReaderPrivate::setDefaultCharFormat(const QTextCharFormat& format)
{
    ORVTextFormat::setDefaultCharFormat(m_document, format);
    adoptDefaultCharFormat(format);
}

/*! The plain format is the default one without colours and without what words switch on and off. */
void ORVTextRtfReaderPrivate::adoptDefaultCharFormat(const QTextCharFormat& format)
{
    static const int cleared[] = {
        QTextFormat::ForegroundBrush, QTextFormat::BackgroundBrush, QTextFormat::FontWeight,
        QTextFormat::FontItalic,      QTextFormat::FontUnderline,   QTextFormat::TextUnderlineStyle,
        QTextFormat::FontOverline,    QTextFormat::FontStrikeOut,   QTextFormat::TextOutline};
    m_defaultCharFormat = format;
    m_plainCharFormat = format;
    for (int id : cleared)
        m_plainCharFormat.clearProperty(id);
    m_plainCharFormat.setFontStrikeOut(false);
    m_plainCharFormat.setFontOverline(false);
}

/*! Invalid when the default format names no colour. */
QColor ORVTextRtfReaderPrivate::defaultForegroundColor() const
{
    return compat::brushColor(m_defaultCharFormat, QTextFormat::ForegroundBrush);
}

/*! Paragraph words inside a note must not change the paragraph around it. */
bool ORVTextRtfReaderPrivate::isInNote() const
{
    return m_state.charFormat.boolProperty(ORVRtfProperty::InAnnotation)
        || m_state.charFormat.boolProperty(ORVRtfProperty::InFootnote);
}
