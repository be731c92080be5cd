#include "ORVNotes.h"

#include "ORVFragments.h"
#include "ORVNoteFinder_p.h"
#include "ORVPageGeometry.h"
#include "ORVRtfProperties.h"
#include "ORVStockFormats.h"
#include "ORVTextFormat.h"
#include "ORVTextRtfReader.h"

#include <QtCore/QBuffer>
#include <QtCore/QHash>
#include <QtCore/QStringList>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextList>

using namespace ORVRtfProperty;

namespace {

const int noteProperties[] = {InAnnotation,  InFootnote,     AnnotationAnchor, FootnoteAnchor,
                              EndnoteAnchor, HasNoteContent, NoteContent,      NoteNumber,
                              NoteAuthor,    NoteInitials,   NoteDate};

/*! The text of a note in line. */
QTextCursor ownText(const QTextDocument* document, const ORVNote& note)
{
    QTextCursor cursor(const_cast<QTextDocument*>(document));
    cursor.setPosition(note.position);
    cursor.setPosition(note.position + note.length, QTextCursor::KeepAnchor);
    return cursor;
}

bool readStorage(const QByteArray& rtf, QTextDocument* content)
{
    QBuffer buffer;
    buffer.setData(rtf);
    buffer.open(QIODevice::ReadOnly);
    return ORVTextRtfReader(&buffer).read(content);
}

/*! Copies the text from \a from up to, but not with, \a to, of one paragraph, without the property \a flag. */
void copyRuns(const QTextDocument* document, int from, int to, int flag, QTextCursor& target)
{
    // The runs of a paragraph can be walked from its start only, for each note that it has.
    QTextCursor source(const_cast<QTextDocument*>(document));
    QTextCharFormat format;
    QString text;
    for (int position = from; position < to; ++position) {
        source.setPosition(position + 1);
        QTextCharFormat next = source.charFormat();
        next.clearProperty(flag);
        if (next != format && !text.isEmpty()) {
            target.insertText(text, format);
            text.clear();
        }
        format = next;
        text += document->characterAt(position);
    }
    if (!text.isEmpty())
        target.insertText(text, format);
}

/*! Begins a paragraph as \a original is, which is the next of a list where \a lists has its list. */
void beginParagraph(const QTextBlock& original, QHash<QTextList*, QTextList*>* lists, QTextCursor& target)
{
    QTextBlockFormat format = original.blockFormat();
    format.setObjectIndex(-1);
    target.insertBlock(format, QTextCharFormat());
    QTextList* const list = original.textList();
    if (!list)
        return;
    if (QTextList* const known = lists->value(list))
        known->add(target.block());
    else
        lists->insert(list, target.createList(list->format()));
}

/*!
    The note has paragraphs of one cell, and its first one is another than the one that it begins in. Notes
    within it stay: they have the property of the other kind.
*/
void copyInLine(const QTextDocument* document, const ORVNote& note, QTextDocument* content)
{
    const int flag = note.kind == ORVNote::Comment ? InAnnotation : InFootnote;
    const int end = note.position + note.length;
    QHash<QTextList*, QTextList*> lists;
    QTextCursor target(content);
    target.beginEditBlock();
    for (QTextBlock block = document->findBlock(note.position); block.isValid() && block.position() < end;
         block = block.next()) {
        if (block.position() > note.position)
            beginParagraph(block, &lists, target);
        copyRuns(document, qMax(note.position, block.position()),
                 qMin(end, block.position() + block.length() - 1), flag, target);
    }
    target.endEditBlock();
    ORVFragments::copyPictures(ORVFragments::pictureNames(content), document, content);
}

QString plainText(QString text)
{
    text.remove(QChar(QChar::ObjectReplacementCharacter));
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    text.replace(QChar::LineSeparator, QLatin1Char('\n'));
    return text.trimmed();
}

} // namespace

QVector<ORVNote> ORVNotes::all(const QTextDocument* document)
{
    if (!document || !ORVNoteFinder::mayHaveNotes(*document))
        return QVector<ORVNote>();
    ORVNoteFinder finder;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next())
        finder.add(block);
    return finder.numberedNotes();
}

ORVNote ORVNotes::at(const QTextDocument* document, int position)
{
    if (!document || !ORVNoteFinder::mayHaveNotes(*document))
        return ORVNote();
    QTextBlock block = document->findBlock(position);
    while (ORVNoteFinder::mayContinueNote(block))
        block = block.previous();
    ORVNoteFinder finder;
    while (block.isValid() && (block.position() <= position || ORVNoteFinder::mayContinueNote(block))) {
        finder.add(block);
        block = block.next();
    }
    const QVector<ORVNote> notes = finder.notes();
    for (const ORVNote& note : notes) {
        if (position >= note.position && position < note.position + note.length)
            return note;
    }
    return ORVNote();
}

bool ORVNotes::copyContent(const QTextDocument* document, const ORVNote& note, QTextDocument* content,
                           Form form)
{
    if (!document || !content)
        return false;
    content->setUndoRedoEnabled(false);
    content->clear();
    content->setDefaultFont(document->defaultFont());
    ORVTextFormat::setDefaultCharFormat(content, ORVTextFormat::defaultCharFormat(document));
    bool isSound = true;
    if (note.holding == ORVNote::InLine)
        copyInLine(document, note, content);
    else
        isSound = readStorage(note.content, content);
    ORVPageGeometry::of(document).setOn(content);
    if (form == StockForm && note.holding != ORVNote::InLine)
        ORVStockFormats::toStock(content);
    return isSound;
}

QString ORVNotes::text(const QTextDocument* document, const ORVNote& note)
{
    if (!document)
        return QString();
    if (note.holding == ORVNote::InLine)
        return plainText(ownText(document, note).selectedText());
    QTextDocument content;
    readStorage(note.content, &content);
    return plainText(content.toPlainText());
}

QString ORVNotes::origin(const ORVNote& note)
{
    QStringList parts;
    const QString& name = note.author.isEmpty() ? note.initials : note.author;
    if (!name.isEmpty())
        parts << name;
    if (note.date.isValid())
        parts << note.date.date().toString(Qt::ISODate);
    return parts.join(QLatin1String(", "));
}

void ORVNotes::clear(QTextCharFormat* format)
{
    if (!format)
        return;
    for (const int property : noteProperties)
        format->clearProperty(property);
}
