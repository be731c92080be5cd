#include "PrintCopy.h"

#include "DocumentParts.h"
#include "Notes.h"

#include <ORVFragments.h>
#include <ORVListLevels.h>
#include <ORVRtfProperties.h>
#include <ORVTextRtfCommon.h>
#include <TextDocSupport.h>

#include <QTextCursor>
#include <QTextDocument>

#include <vector>

namespace {

void showRevisions(QTextDocument* document)
{
    ORVFragments::changeFormats(document, 0, document->characterCount(), [](QTextCharFormat* format) {
        const int level = format->intProperty(ORVRtfProperty::RevisionLevel);
        if (level > 0)
            format->setForeground(ORVTextRtfCommon::revisionColor(level));
    });
}

/*! Inserts the number of a note at \a cursor. */
void insertMark(QTextCursor& cursor, int number)
{
    QTextCharFormat format = cursor.charFormat();
    format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    cursor.insertText(QString::number(number), format);
}

/*! Puts the mark \a number in the place of \a note or, when it is attached, behind the text that has it. */
void markNote(QTextDocument* document, const Note& note, int number)
{
    QTextCursor cursor(document);
    cursor.setPosition(note.position + note.length);
    if (!note.isAttached) {
        cursor.setPosition(note.position, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }
    insertMark(cursor, number);
}

void appendNote(QTextDocument* document, const QTextDocument& content, int number)
{
    QTextCursor cursor(document);
    cursor.movePosition(QTextCursor::End);
    cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    insertMark(cursor, number);
    cursor.insertText(QStringLiteral(" "), QTextCharFormat());
    DocumentParts::insert(content, cursor);
}

void moveNotesBehindText(QTextDocument* document)
{
    const QVector<Note> notes = Notes::in(*document);
    std::vector<std::unique_ptr<QTextDocument>> contents;
    for (const Note& note : notes) {
        contents.push_back(std::make_unique<QTextDocument>());
        Notes::copyContent(*document, note, contents.back().get());
    }
    // From the last on, so that the positions of the others stay true.
    for (int i = notes.size() - 1; i >= 0; --i)
        markNote(document, notes.at(i), i + 1);
    for (int i = 0; i < notes.size(); ++i)
        appendNote(document, *contents[size_t(i)], i + 1);
}

} // namespace

std::unique_ptr<QTextDocument> PrintCopy::of(const QTextDocument& document)
{
    std::unique_ptr<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
    ORVListLevels::separate(copy.get());
    showRevisions(copy.get());
    moveNotesBehindText(copy.get());
    return copy;
}
