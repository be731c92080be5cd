#include "ORVPageSpacing_p.h"

#include "ORVRtfProperties.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextTable>

namespace {

int styleOf(const QTextBlock& block)
{
    return block.isValid() ? block.blockFormat().intProperty(ORVRtfProperty::ContextualSpacing) : 0;
}

/*! Whether nothing stands between the two paragraphs, one behind the other. */
bool areTogether(const QTextBlock& block, const QTextBlock& next)
{
    const QTextCursor cursor(block);
    if (QTextCursor(next).currentFrame() != cursor.currentFrame())
        return false;
    QTextTable* const table = cursor.currentTable();
    return !table || table->cellAt(block.position()) == table->cellAt(next.position());
}

void clearSpace(const QTextBlock& block, int property)
{
    QTextBlockFormat format = block.blockFormat();
    format.setProperty(property, 0.0);
    QTextCursor(block).setBlockFormat(format);
}

} // namespace

void ORVPageSpacing::leaveOut(QTextDocument* document)
{
    QTextCursor edit(document);
    edit.beginEditBlock();
    int style = 0;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        const int nextStyle = styleOf(block);
        if (nextStyle > 0 && nextStyle == style && areTogether(block.previous(), block)) {
            clearSpace(block.previous(), QTextFormat::BlockBottomMargin);
            clearSpace(block, QTextFormat::BlockTopMargin);
        }
        style = nextStyle;
    }
    edit.endEditBlock();
}
