#include "MarkupHighlighter.h"

#include <ORVRtfProperties.h>
#include <ORVTextRtfCommon.h>

#include <QGuiApplication>
#include <QPalette>
#include <QTextBlock>

namespace {

// Translucent, so that they suit dark and light windows and the text's own background.
const QColor footnoteTint(255, 190, 0, 70);
const QColor commentTint(0, 150, 255, 60);

bool hasAny(const QTextCharFormat& format, int property, int otherProperty)
{
    return format.boolProperty(property) || format.boolProperty(otherProperty);
}

} // namespace

MarkupHighlighter::MarkupHighlighter(QObject* parent) : QSyntaxHighlighter(parent) { }

QTextCharFormat MarkupHighlighter::markup(const QTextCharFormat& format)
{
    using namespace ORVRtfProperty;
    QTextCharFormat markup;
    if (format.isAnchor() && !format.anchorHref().isEmpty()) {
        markup.setForeground(QGuiApplication::palette().link());
        markup.setUnderlineStyle(QTextCharFormat::SingleUnderline);
    }
    const int level = format.intProperty(RevisionLevel);
    if (level > 0)
        markup.setForeground(ORVTextRtfCommon::revisionColor(level));
    if (hasAny(format, InAnnotation, AnnotationAnchor))
        markup.setBackground(commentTint);
    else if (hasAny(format, InFootnote, FootnoteAnchor))
        markup.setBackground(footnoteTint);
    return markup;
}

void MarkupHighlighter::highlightBlock(const QString&)
{
    const QTextBlock block = currentBlock();
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const QTextCharFormat format = markup(fragment.charFormat());
        if (format.propertyCount() > 0)
            setFormat(fragment.position() - block.position(), fragment.length(), format);
    }
}
