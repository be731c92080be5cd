#include "VisibleDocument.h"

#include <ORVFragments.h>
#include <ORVListLevels.h>
#include <ORVTextListFormat.h>
#include <TextDocSupport.h>

#include <QImage>
#include <QStringList>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QUrl>

namespace {

/*! Word processors number their headings by lists whose numbers are empty; Qt would show numbers. */
bool isItemWithoutMarker(const QTextBlock& block)
{
    QTextList* list = block.textList();
    if (!list)
        return false;
    const QList<ORVTextListLevel> levels = ORVTextListFormat::levels(list->format());
    const int level = ORVTextListFormat::blockLevel(list, block);
    return level < levels.size() && levels.at(level).text().isEmpty();
}

/*! Qt hides an empty paragraph in front of a table, but not its marker. */
bool isHiddenItem(const QTextBlock& block)
{
    return block.textList() && block.length() == 1 && block.next().isValid()
        && QTextCursor(block.next()).currentFrame() != QTextCursor(block).currentFrame();
}

/*! The paragraph stays where it is: what the list indents it by becomes a part of its margin. */
void releaseFromList(const QTextBlock& block, QTextCursor& cursor)
{
    QTextBlockFormat format = block.blockFormat();
    const double indent = block.textList()->format().indent() * block.document()->indentWidth();
    if (block.textDirection() == Qt::RightToLeft)
        format.setRightMargin(format.rightMargin() + indent);
    else
        format.setLeftMargin(format.leftMargin() + indent);
    format.setObjectIndex(-1);
    cursor.setPosition(block.position());
    cursor.setBlockFormat(format);
}

void releaseItemsWithoutMarker(QTextDocument& document)
{
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (isItemWithoutMarker(block) || isHiddenItem(block))
            releaseFromList(block, cursor);
    }
    cursor.endEditBlock();
}

} // namespace

/*! A document looks for a picture that it does not hold in the file system. */
void makePicturesVisible(QTextDocument& document)
{
    QImage empty(1, 1, QImage::Format_ARGB32);
    empty.fill(Qt::transparent);
    const QStringList names = ORVFragments::pictureNames(&document);
    for (const QString& name : names) {
        const QImage image = TextDocSupport::image(&document, name);
        document.addResource(QTextDocument::ImageResource, QUrl(name), image.isNull() ? empty : image);
    }
}

void makeVisible(QTextDocument& document)
{
    document.setUndoRedoEnabled(false);
    releaseItemsWithoutMarker(document);
    ORVListLevels::separate(&document);
    makePicturesVisible(document);
}
