#include "ORVRtfInterchangeReader_p.h"

#include "ORVRtfLimits_p.h"
#include "ORVTextFormat.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextDocumentFragment>

#include <utility>

namespace {

/*! Takes the mark and the blanks behind it off the beginning of the text of a note. */
void removeMark(QTextDocument* document, int length)
{
    const QString text = document->begin().text();
    while (length < text.size() && text.at(length).isSpace())
        ++length;
    QTextCursor cursor(document);
    cursor.setPosition(length, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

/*! A document has an empty paragraph in front of such a table. */
bool beginsWithTable(const QTextDocument& document)
{
    const QTextBlock first = document.begin();
    return first.length() == 1 && first.next().isValid() && QTextCursor(first.next()).currentTable();
}

} // namespace

/*!
    Reads what follows, up to the end of the group, to a document of its own. False, and the group is skipped,
    where it is not seen.
*/
bool ORVRtfInterchangeReader::beginStory(ORVRtfStory::Kind kind)
{
    if (!isShown() || int(m_stories.size()) >= ORVRtfLimits::noteNesting) {
        ++m_skipDepth;
        return false;
    }
    giveUpCharacter();
    ORVRtfStory story;
    story.kind = kind;
    story.document = QSharedPointer<QTextDocument>(new QTextDocument);
    story.document->setUndoRedoEnabled(false);
    ORVTextFormat::setDefaultCharFormat(story.document.data(), m_defaultCharFormat);
    story.depth = int(m_groups.size());
    story.charFormat = m_groups.isEmpty() ? m_state.charFormat : m_groups.top().charFormat;
    story.paragraph = m_paragraph;
    story.place = m_builder.place;
    story.outerDocument = m_document;
    leaveText(story);
    // A box is inserted in the document around it, which has to have its pictures.
    if (kind != ORVRtfStory::TextBox)
        m_document = story.document.data();
    QTextCursor start(story.document.data());
    start.beginEditBlock();
    m_inserter.moveTo(start);
    m_stories.push_back(story);

    openDestination(Body);
    m_paragraph = ORVRtfParagraph();
    m_builder.place = ORVRtfTableBuilder::Place();
    m_state.charFormat = m_plainCharFormat;
    m_own.symbolFont = ORVRtfSymbolFonts::none;
    m_own.text = ORVRtfTextState();
    m_own.scripts = ORVRtfScripts();
    m_own.paragraphState = ORVRtfParagraphState();
    return true;
}

/*! Exchanges the text that is read with the one that \a story keeps. */
void ORVRtfInterchangeReader::leaveText(ORVRtfStory& story)
{
    std::swap(m_inserter, story.inserter);
    m_builder.swapTables(story.tables);
    std::swap(m_text, story.text);
    std::swap(m_fieldInstruction, story.fieldInstruction);
}

/*! Ends the stories that end when \a depth groups are open. */
void ORVRtfInterchangeReader::endStories(int depth)
{
    while (!m_stories.empty() && m_stories.back().depth >= depth)
        endStory();
}

void ORVRtfInterchangeReader::endStory()
{
    giveUpCharacter();
    ORVTextRtfReaderPrivate::drawText();
    m_pendingText.resize(0);
    appendBoxes();
    m_builder.textWidth = m_page.textWidth();
    m_builder.endTables();
    // The end of the last paragraph begins no further one.
    bool isBehindParagraph = false;
    QTextCursor end = m_inserter.placeBehindText(&isBehindParagraph);

    ORVRtfStory story = std::move(m_stories.back());
    m_stories.pop_back();
    if (story.kind == ORVRtfStory::Note)
        assembleLists();
    end.endEditBlock();
    m_inserter = ORVRtfTextInserter();
    leaveText(story);
    m_document = story.outerDocument;
    m_paragraph = story.paragraph;
    m_builder.place = story.place;
    switch (story.kind) {
    case ORVRtfStory::Note: insertNote(story); break;
    case ORVRtfStory::PageText: m_pageTexts.add(story.side, story.pages, *story.document); break;
    case ORVRtfStory::TextBox:
        if (!story.document->isEmpty())
            keepBox(story.document);
        break;
    }
}

/*! Notes of headers and footers are dropped: a document has those as plain text, which has none. */
void ORVRtfInterchangeReader::beginNote(ORVRtfNote::Kind kind)
{
    if (!isInBodyText() || isInPageText()) {
        ++m_skipDepth;
        return;
    }
    const bool hasOwnMark = kind != ORVRtfNote::Comment && !m_text.hasNoteNumber
        && m_text.raisedText.size() <= ORVRtfLimits::noteMark;
    const QString ownMark = hasOwnMark ? m_text.raisedText.trimmed() : QString();
    if (!beginStory(ORVRtfStory::Note))
        return;
    ORVRtfNote& note = m_stories.back().note;
    note.kind = kind;
    note.number = m_noteMarks.take(kind);
    note.mark = ownMark;
    if (kind == ORVRtfNote::Comment) {
        note.author = std::exchange(m_commentAuthor, QString()).trimmed();
        note.initials = std::exchange(m_commentInitials, QString()).trimmed();
        note.date = std::exchange(m_commentTime, ORVRtfTime()).dateTime();
    }
}

/*! The word for an endnote stands behind that for a footnote. */
void ORVRtfInterchangeReader::setEndnote()
{
    if (m_stories.empty() || m_stories.back().kind != ORVRtfStory::Note)
        return;
    ORVRtfNote& note = m_stories.back().note;
    if (note.kind != ORVRtfNote::Footnote)
        return;
    m_noteMarks.giveBack(note.kind, note.number);
    note.kind = ORVRtfNote::Endnote;
    note.number = m_noteMarks.take(note.kind);
}

void ORVRtfInterchangeReader::setNoteNumberPlace()
{
    m_text.hasNoteNumber = true;
    if (!m_stories.empty() && !m_text.hasShownText)
        m_stories.back().beginsWithNumber = true;
}

/*! Inserts the mark of a note that has been read, in front of the text that follows the note. */
void ORVRtfInterchangeReader::insertNote(ORVRtfStory& story)
{
    ORVRtfNote& note = story.note;
    QTextDocument* const document = story.document.data();
    commitBlockFormat();
    if (!note.mark.isEmpty() && document->begin().text().trimmed().startsWith(note.mark)) {
        m_noteMarks.giveBack(note.kind, note.number);
        note.number = 0;
        removeOwnMark(int(m_text.raisedText.size() - m_text.raisedText.indexOf(note.mark)));
        removeMark(document, int(document->begin().text().indexOf(note.mark) + note.mark.size()));
    } else {
        if (story.beginsWithNumber)
            removeMark(document, 0);
        note.mark = m_noteMarks.mark(note.kind, note.number);
    }
    m_page.setOn(document);
    QTextCharFormat format = story.charFormat;
    note.attach(format, *document);
    setAnchorNames(format);
    m_inserter.insertText(note.mark, format);
    m_text.raisedText.clear();
    m_text.hasNoteNumber = false;
    m_text.hasShownText = true;
    if (isIn(FieldResultGroup))
        m_text.field.hasResult = true;
}

/*! The mark that the author has chosen stands in the text already. */
void ORVRtfInterchangeReader::removeOwnMark(int length)
{
    QTextCursor& cursor = m_inserter.place();
    cursor.setPosition(cursor.position() - length, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

void ORVRtfInterchangeReader::beginPageText(ORVRtfPageTexts::Side side, ORVRtfPageTexts::Pages pages)
{
    if (!isInBodyText() || !m_stories.empty()) {
        ++m_skipDepth;
        return;
    }
    if (!beginStory(ORVRtfStory::PageText))
        return;
    m_stories.back().side = side;
    m_stories.back().pages = pages;
}

bool ORVRtfInterchangeReader::isInPageText() const
{
    return !m_stories.empty() && m_stories.front().kind == ORVRtfStory::PageText;
}

/*! The box waits for the end of the paragraph that it hangs on. */
void ORVRtfInterchangeReader::keepBox(const QSharedPointer<QTextDocument>& document)
{
    ORVRtfTextBox box;
    if (beginsWithTable(*document))
        box.document = document;
    else
        box.content = ORVRtfCellContent(document);
    m_text.boxes.append(box);
    m_isPictureShown = true;
}

/*! Inserts the text boxes that hang on the paragraph behind it. */
void ORVRtfInterchangeReader::appendBoxes()
{
    if (m_text.boxes.isEmpty())
        return;
    const QList<ORVRtfTextBox> boxes = std::exchange(m_text.boxes, {});
    commitBlockFormat();
    for (const ORVRtfTextBox& box : boxes) {
        if (box.document) {
            m_inserter.place().insertFragment(QTextDocumentFragment(box.document.data()));
            continue;
        }
        m_inserter.endBlock();
        box.content.insertAt(m_inserter.place());
    }
}
