#include "Links.h"

#include <ORVFragments.h>

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>

namespace {

QString targetOf(const QTextCharFormat& format)
{
    return format.isAnchor() ? format.anchorHref() : QString();
}

} // namespace

Link Links::at(const QTextDocument& document, int position)
{
    Link link;
    const QTextBlock block = document.findBlock(position);
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const QString target = targetOf(fragment.charFormat());
        const bool goesOn = target == link.target && fragment.position() == link.position + link.length;
        if (!goesOn && position < fragment.position())
            break;
        if (!goesOn)
            link = {fragment.position(), 0, target};
        link.length += fragment.length();
    }
    const bool isHere = position >= link.position && position < link.position + link.length;
    return isHere && !link.target.isEmpty() ? link : Link();
}

Link Links::at(const QTextCursor& cursor)
{
    const Link link = at(*cursor.document(), cursor.selectionStart());
    return link.length > 0 ? link : at(*cursor.document(), cursor.selectionStart() - 1);
}

void Links::set(QTextCursor place, const QString& text, const QString& target)
{
    place.beginEditBlock();
    const int begin = place.selectionStart();
    int end = place.selectionEnd();
    if (text != place.selectedText()) {
        place.insertText(text);
        end = begin + text.size();
    }
    ORVFragments::changeFormats(place.document(), begin, end, [&](QTextCharFormat* format) {
        format->setAnchor(true);
        format->setAnchorHref(target);
    });
    place.endEditBlock();
}

void Links::remove(QTextDocument* document, const Link& link)
{
    ORVFragments::changeFormats(document, link.position, link.position + link.length, clear);
}

void Links::clear(QTextCharFormat* format)
{
    format->clearProperty(QTextFormat::IsAnchor);
    format->clearProperty(QTextFormat::AnchorHref);
}

QUrl Links::addressToOpen(const Link& link)
{
    const QUrl address(link.target);
    const QString scheme = address.scheme();
    const bool isHarmless = scheme == QLatin1String("http") || scheme == QLatin1String("https")
        || scheme == QLatin1String("mailto");
    return isHarmless ? address : QUrl();
}

QString Links::shownTarget(const Link& link)
{
    const QUrl address = addressToOpen(link);
    return address.isEmpty() ? link.target : address.toString(QUrl::FullyEncoded);
}
