#include "ORVNotes.h"

#include "ORVFragments.h"
#include "ORVNoteFinder_p.h"
#include "ORVPageGeometry.h"
#include "ORVRtfProperties.h"
#include "ORVTextUtil.h"
#include "ORVUnit.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextDocumentFragment>

#include <deque>
#include <memory>

namespace {

const int kindCount = 3;
// Of the rule in front of the notes, in points.
const double ruleWidth = 144;

/*! The format of text that is inserted at \a cursor: that of the text there, which need not be text. */
QTextCharFormat formatAt(const QTextCursor& cursor)
{
    QTextCharFormat format = cursor.charFormat();
    if (format.isImageFormat() || format.isTableCellFormat())
        return QTextCharFormat();
    ORVNotes::clear(&format);
    for (const int property : {int(QTextFormat::IsAnchor), int(QTextFormat::AnchorHref),
                               int(QTextFormat::AnchorName), int(QTextFormat::TextVerticalAlignment),
                               int(ORVRtfProperty::BaselineShift), int(ORVRtfProperty::BookmarkName),
                               int(ORVRtfProperty::PageReference), int(ORVRtfProperty::NoteLink)})
        format.clearProperty(property);
    return format;
}

/*! The format of the first character of \a content. */
QTextCharFormat firstFormat(QTextDocument* content)
{
    QTextCursor cursor(content);
    if (cursor.block().length() > 1)
        cursor.setPosition(1);
    return formatAt(cursor);
}

/*! Moves the notes of one document. */
class NoteMover {
public:
    NoteMover(QTextDocument* document, ORVNotes::Form form, ORVNotes::MarkStyle style)
        : m_document(document), m_form(form), m_style(style)
    {
    }

    void run(const QVector<ORVNote>& notes);

private:
    /*! A note within another one. */
    struct InnerNote {
        ORVNote note;
        int link;
        std::unique_ptr<QTextDocument> content;
    };

    QTextBlockFormat ruleFormat() const;
    void appendRule(QTextCursor& cursor);
    void append(const ORVNote& note, int link, QTextDocument* content, QTextCursor& cursor);
    void takeInnerNotes(QTextDocument* content);
    void insertHead(const ORVNote& note, int link, QTextDocument* content) const;
    void insert(QTextDocument* content, ORVNote::Kind kind, QTextCursor& cursor);
    void showMark(QTextCursor& cursor, const ORVNote& note, int link) const;
    void showMarks(QTextCursor& cursor, const QVector<ORVNote>& notes, int firstLink) const;
    void raise(QTextCharFormat* format) const;
    void setLink(QTextCharFormat* format, int link) const;
    QString shownMark(const ORVNote& note) const;

    QTextDocument* m_document;
    ORVNotes::Form m_form;
    ORVNotes::MarkStyle m_style;
    // In the order in which they follow the notes of the text.
    std::deque<InnerNote> m_innerNotes;
    // The number of notes whose links have numbers: from 1 in the order of the text.
    int m_linkCount = 0;
    // The last number of each kind.
    int m_numbers[kindCount] = {0, 0, 0};
    // Where the last note of each kind ends.
    int m_ends[kindCount] = {0, 0, 0};
};

/*! First the notes are appended, then the marks are shown, so that the positions of the notes stay true. */
void NoteMover::run(const QVector<ORVNote>& notes)
{
    for (const ORVNote& note : notes)
        m_numbers[note.kind] = qMax(m_numbers[note.kind], note.number);
    m_linkCount = notes.size();
    QTextCursor cursor(m_document);
    cursor.beginEditBlock();
    appendRule(cursor);
    for (int i = 0; i < notes.size(); ++i) {
        QTextDocument content;
        ORVNotes::copyContent(m_document, notes.at(i), &content, m_form);
        append(notes.at(i), i + 1, &content, cursor);
    }
    // Notes within notes stand in line there, which ends with the third level: each takes a flag away.
    while (!m_innerNotes.empty()) {
        const InnerNote inner = std::move(m_innerNotes.front());
        m_innerNotes.pop_front();
        append(inner.note, inner.link, inner.content.get(), cursor);
    }
    showMarks(cursor, notes, 1);
    cursor.endEditBlock();
}

QTextBlockFormat NoteMover::ruleFormat() const
{
    QTextBlockFormat format;
    if (m_style == ORVNotes::BracketedMarks)
        return format;
    const double pixelsPerPoint = ORVUnit::screenResolution() / 72.0;
    format.setProperty(QTextFormat::BlockTrailingHorizontalRulerWidth,
                       QTextLength(QTextLength::FixedLength, ruleWidth * pixelsPerPoint));
    // Qt draws the rule in the middle of its paragraph: a narrow one keeps it at the left.
    if (m_form == ORVNotes::ApplicationForm) {
        format.setProperty(ORVRtfProperty::RightIndent, ruleWidth);
    } else {
        const double rest = ORVPageGeometry::of(m_document).textWidth() - ruleWidth;
        format.setRightMargin(qMax(0.0, rest) * pixelsPerPoint);
    }
    return format;
}

/*! A last paragraph that is empty becomes the rule. */
void NoteMover::appendRule(QTextCursor& cursor)
{
    cursor.movePosition(QTextCursor::End);
    if (cursor.block().length() > 1 || cursor.block().textList())
        cursor.insertBlock(ruleFormat(), QTextCharFormat());
    else
        cursor.setBlockFormat(ruleFormat());
    for (int& end : m_ends)
        end = cursor.position();
}

/*! Appends \a content, that of \a note, to the notes of its kind. It is changed. */
void NoteMover::append(const ORVNote& note, int link, QTextDocument* content, QTextCursor& cursor)
{
    QTextCursor all(content);
    all.select(QTextCursor::Document);
    ORVTextUtil::trim(all);
    takeInnerNotes(content);
    insertHead(note, link, content);
    insert(content, note.kind, cursor);
}

void NoteMover::takeInnerNotes(QTextDocument* content)
{
    QVector<ORVNote> notes = ORVNotes::all(content);
    if (notes.isEmpty())
        return;
    const int firstLink = m_linkCount + 1;
    for (ORVNote& note : notes) {
        if (note.number > 0)
            note.mark = ORVNoteFinder::mark(note.kind, ++m_numbers[note.kind]);
        InnerNote inner = {note, ++m_linkCount, std::unique_ptr<QTextDocument>(new QTextDocument)};
        ORVNotes::copyContent(content, note, inner.content.get(), m_form);
        m_innerNotes.push_back(std::move(inner));
    }
    QTextCursor cursor(content);
    cursor.beginEditBlock();
    showMarks(cursor, notes, firstLink);
    cursor.endEditBlock();
}

/*! Inserts what stands in front of the text of \a note: its mark, and where a comment is from. */
void NoteMover::insertHead(const ORVNote& note, int link, QTextDocument* content) const
{
    const QTextCharFormat format = firstFormat(content);
    QTextCharFormat markFormat = format;
    raise(&markFormat);
    setLink(&markFormat, -link);
    const QString origin = note.kind == ORVNote::Comment ? ORVNotes::origin(note) : QString();
    QTextCursor cursor(content);
    cursor.insertText(shownMark(note), markFormat);
    cursor.insertText(origin.isEmpty() ? QString::fromLatin1(" ") : QString::fromLatin1(" %1: ").arg(origin),
                      format);
}

/*!
    Behind an empty paragraph in front of it, the first paragraph of \a content is inserted as the others are,
    with its format and its place in a list.
*/
void NoteMover::insert(QTextDocument* content, ORVNote::Kind kind, QTextCursor& cursor)
{
    QTextCursor front(content);
    front.insertBlock(content->begin().blockFormat(), content->begin().charFormat());
    front.setPosition(0);
    front.setBlockFormat(QTextBlockFormat());
    ORVFragments::copyPictures(ORVFragments::pictureNames(content), content, m_document);
    const int size = m_document->characterCount();
    cursor.setPosition(m_ends[kind]);
    cursor.insertFragment(QTextDocumentFragment(content));
    const int added = m_document->characterCount() - size;
    for (int later = kind; later < kindCount; ++later)
        m_ends[later] += added;
}

/*! From the last on, so that the positions of the notes stay true. */
void NoteMover::showMarks(QTextCursor& cursor, const QVector<ORVNote>& notes, int firstLink) const
{
    const ORVNote& last = notes.last();
    ORVFragments::changeFormats(cursor.document(), notes.first().position, last.position + last.length,
                                [this](QTextCharFormat* format) {
                                    if (format->hasProperty(ORVRtfProperty::NoteNumber))
                                        raise(format);
                                    ORVNotes::clear(format);
                                });
    for (int i = notes.size() - 1; i >= 0; --i)
        showMark(cursor, notes.at(i), firstLink + i);
}

/*! Shows the mark of \a note in place of the note or, when it is attached, behind the text that has it. */
void NoteMover::showMark(QTextCursor& cursor, const ORVNote& note, int link) const
{
    const int end = note.position + note.length;
    cursor.setPosition(note.holding == ORVNote::Mark ? note.position + 1 : end);
    QTextCharFormat format = formatAt(cursor);
    if (note.holding != ORVNote::Attached) {
        cursor.setPosition(note.position);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
    }
    const QString mark = shownMark(note);
    if (note.holding == ORVNote::Mark && cursor.selectedText() == mark) {
        QTextCharFormat change;
        setLink(&change, link);
        cursor.mergeCharFormat(change);
        return;
    }
    if (note.holding == ORVNote::InLine) {
        cursor.removeSelectedText();
        format = formatAt(cursor);
    }
    raise(&format);
    setLink(&format, link);
    cursor.insertText(mark, format);
}

void NoteMover::raise(QTextCharFormat* format) const
{
    if (m_style != ORVNotes::BracketedMarks && format->verticalAlignment() == QTextCharFormat::AlignNormal)
        format->setVerticalAlignment(QTextCharFormat::AlignSuperScript);
}

void NoteMover::setLink(QTextCharFormat* format, int link) const
{
    if (m_style == ORVNotes::LinkedMarks)
        format->setProperty(ORVRtfProperty::NoteLink, link);
}

QString NoteMover::shownMark(const ORVNote& note) const
{
    return m_style == ORVNotes::BracketedMarks ? QLatin1Char('[') + note.mark + QLatin1Char(']') : note.mark;
}

} // namespace

void ORVNotes::moveToEnd(QTextDocument* document, Form form, MarkStyle style)
{
    const QVector<ORVNote> notes = all(document);
    if (!notes.isEmpty())
        NoteMover(document, form, style).run(notes);
}
