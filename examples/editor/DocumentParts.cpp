#include "DocumentParts.h"

#include <ORVFragments.h>
#include <ORVTextFormat.h>

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextList>

namespace {

/*! Gives \a target, a copy of the paragraph \a original, the same format and a place in the same list. */
void adoptFormat(const QTextBlock& target, const QTextBlock& original)
{
    QTextCursor cursor(target);
    QTextBlockFormat format = original.blockFormat();
    format.setObjectIndex(-1); // the list's number in the other document
    cursor.setBlockFormat(format);
    QTextList* list = original.textList();
    if (!list)
        return;
    QTextList* listBehind = target.next().textList();
    if (listBehind && original.next().textList() == list)
        listBehind->add(target); // copied with the paragraph behind
    else
        cursor.createList(list->format());
}

/*! With its end a paragraph hands on its format; a few words of it do not. */
void copyFirstFormat(const QTextCursor& selection, QTextDocument* part)
{
    const QTextBlock first = selection.document()->findBlock(selection.selectionStart());
    const int end = first.position() + first.length() - 1;
    if (selection.hasComplexSelection() || selection.selectionStart() >= end)
        return;
    QTextCursor cursor(part);
    if (part->begin().length() == 1)
        cursor.deleteChar(); // a paragraph that Qt puts in front of list items
    if (selection.selectionEnd() >= end)
        adoptFormat(part->begin(), first);
    else
        cursor.setBlockFormat(QTextBlockFormat());
}

/*! Whether the paragraph that \a target is in becomes one like the first paragraph of \a part. */
bool bringsFormat(const QTextDocument& part, const QTextCursor& target)
{
    if (part.blockCount() > 1)
        return target.atBlockStart();
    return target.block().length() == 1 && part.begin().blockFormat().propertyCount() > 0;
}

} // namespace

void DocumentParts::copySelection(const QTextCursor& selection, QTextDocument* part)
{
    const QTextDocument* document = selection.document();
    part->setUndoRedoEnabled(false);
    ORVTextFormat::setDefaultCharFormat(part, ORVTextFormat::defaultCharFormat(document));
    QTextCursor(part).insertFragment(selection.selection());
    copyFirstFormat(selection, part);
    ORVFragments::copyPictures(ORVFragments::pictureNames(part), document, part);
}

void DocumentParts::insert(const QTextDocument& part, QTextCursor target)
{
    // First, since the text is laid out with them as soon as it is there.
    ORVFragments::copyPictures(ORVFragments::pictureNames(&part), &part, target.document());
    target.beginEditBlock();
    target.removeSelectedText();
    const int position = target.position();
    const QTextBlockFormat format = target.blockFormat();
    const bool adoptsFormat = bringsFormat(part, target);
    target.insertFragment(QTextDocumentFragment(&part));
    const QTextBlock first = target.document()->findBlock(position);
    if (adoptsFormat)
        adoptFormat(first, part.begin());
    else
        QTextCursor(first).setBlockFormat(format); // in an empty document Qt has changed it
    target.endEditBlock();
}
