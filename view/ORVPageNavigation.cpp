#include "ORVPageNavigation_p.h"

#include "ORVHeading_p.h"
#include "ORVLinkTargets_p.h"
#include "ORVPageLabels_p.h"
#include "ORVRtfProperties.h"

#include <QtCore/QUrl>
#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QGlyphRun>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextLayout>

#include <algorithm>

namespace {

// The target of a link that Qt is not to see.
const int hiddenTarget = QTextFormat::UserProperty + 350;
// Further links in one line, and further pictures of a link, have no area: to find one Qt walks over all that stands
// in the line.
const int mostAreasInLine = 250;
// Parts of a link that are this close, in pixels, are one area.
const double partDistance = 1;

/*! An anchor of one end of the link between a mark and its note; no name of a document begins so. */
QString noteAnchor(int number)
{
    return QChar(QChar::Null) + QString::number(number);
}

/*! The anchor that \a format links to; empty for none. */
QString anchorTarget(const QTextCharFormat& format)
{
    const int note = format.intProperty(ORVRtfProperty::NoteLink);
    if (note != 0)
        return noteAnchor(-note);
    const QString target = format.anchorHref();
    return target.startsWith(QLatin1Char('#')) ? target.mid(1) : QString();
}

/*! The address that \a format links to; empty for none. */
QByteArray addressTarget(const QTextCharFormat& format)
{
    const QString target = format.anchorHref();
    if (target.startsWith(QLatin1Char('#')) || ORVLinkTargets::isScript(target))
        return QByteArray();
    return ORVLinkTargets::uri(target);
}

/*! Whether \a label, which stands in front of an item of a list, is more than a bullet. */
bool hasNumber(const QString& label)
{
    return std::any_of(label.begin(), label.end(), [](QChar c) { return c.isLetterOrNumber(); });
}

/*! In one line, and without characters that viewers show as boxes, or end the text at. */
QString titleFrom(const QString& text)
{
    QString title;
    for (const QChar character : text) {
        const bool isSeen = character.isSpace() || character.category() != QChar::Other_Control;
        if (isSeen && character != QChar(QChar::ObjectReplacementCharacter)
            && character != QChar(QChar::SoftHyphen))
            title += character;
    }
    return title.simplified();
}

QString textWithoutMarks(const QTextBlock& block)
{
    QString text;
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        if (fragment.charFormat().intProperty(ORVRtfProperty::NoteLink) == 0)
            text += fragment.text();
    }
    return titleFrom(text);
}

/*! The number of the line of \a layout that has the character at \a position; -1 when it has no lines. */
int lineNumber(const QTextLayout* layout, int position)
{
    int first = 0;
    int last = layout->lineCount() - 1;
    while (first < last) {
        const int middle = (first + last + 1) / 2;
        if (layout->lineAt(middle).textStart() <= position)
            first = middle;
        else
            last = middle - 1;
    }
    return last;
}

/*! Puts those of \a parts together that follow each other from the left to the right. */
QVector<QRectF> joined(QVector<QRectF> parts)
{
    std::sort(parts.begin(), parts.end(),
              [](const QRectF& left, const QRectF& right) { return left.left() < right.left(); });
    QVector<QRectF> areas;
    for (const QRectF& part : parts) {
        if (!areas.isEmpty() && part.left() <= areas.last().right() + partDistance)
            areas.last() |= part;
        else
            areas.append(part);
    }
    return areas;
}

/*! The area of the picture at \a position of \a line, which is one of \a block. */
QRectF pictureArea(const QTextBlock& block, const QTextLine& line, int position)
{
    const QTextDocument* const document = block.document();
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + position + 1);
    const QTextCharFormat format = cursor.charFormat();
    QTextObjectInterface* const object = document->documentLayout()->handlerForObject(format.objectType());
    if (!object)
        return QRectF();
    const QSizeF size =
        object->intrinsicSize(const_cast<QTextDocument*>(document), cursor.position() - 1, format);
    const double x = line.cursorToX(position);
    const double left = line.cursorToX(position + 1) < x ? x - size.width() : x;
    const double below = format.verticalAlignment() == QTextCharFormat::AlignMiddle ? size.height() / 2 : 0;
    return QRectF(QPointF(left, line.y() + line.ascent() + below - size.height()), size);
}

/*! The areas of what stands in \a line between two positions of \a block, which can run in both directions. */
QVector<QRectF> areasInLine(const QTextBlock& block, const QString& text, const QTextLine& line, int from,
                            int to)
{
    QVector<QRectF> parts;
    const QList<QGlyphRun> runs = line.glyphRuns(from, to - from);
    for (const QGlyphRun& run : runs)
        parts.append(run.boundingRect());
    for (int i = from; i < to && parts.size() < mostAreasInLine; ++i) {
        if (text.at(i) == QChar(QChar::ObjectReplacementCharacter))
            parts.append(pictureArea(block, line, i));
    }
    return joined(parts);
}

/*! Finds places on the pages of a document, and is fastest for positions in their order. */
class PlaceFinder {
public:
    PlaceFinder(const QTextDocument* document, const ORVPageArea& area) : m_document(document), m_area(area)
    {
    }

    /*! The upper left corner of the line of the character at \a position. */
    ORVPagePlace place(int position);
    /*! Adds \a link, whose text begins at \a position, to \a links: once for each of its parts. */
    void addLink(ORVPageLink link, int position, int length, QVector<ORVPageLink>* links);

private:
    void goTo(int position);
    int pageOf(double y) const { return qBound(0, int(y / m_area.height), m_area.pageCount - 1); }
    QPointF onPaper(const QPointF& place, int page) const;
    void addArea(ORVPageLink link, const QRectF& area, QVector<ORVPageLink>* links) const;

    const QTextDocument* m_document;
    ORVPageArea m_area;
    QTextBlock m_block;
    QString m_text;
    QPointF m_origin;
    // Where the last links are.
    QTextBlock m_linkBlock;
    int m_linkLine = -1;
    int m_linksInLine = 0;
};

void PlaceFinder::goTo(int position)
{
    if (m_block.isValid() && m_block.contains(position))
        return;
    m_block = m_document->findBlock(position);
    m_text = m_block.text();
    m_origin = m_document->documentLayout()->blockBoundingRect(m_block).topLeft();
}

/*! In points. */
QPointF PlaceFinder::onPaper(const QPointF& place, int page) const
{
    return (place + m_area.topLeft - QPointF(0, page * m_area.height)) / m_area.pixelsPerPoint;
}

ORVPagePlace PlaceFinder::place(int position)
{
    goTo(position);
    const int number = lineNumber(m_block.layout(), position - m_block.position());
    QPointF corner = m_origin;
    if (number >= 0)
        corner += m_block.layout()->lineAt(number).naturalTextRect().topLeft();
    const int page = pageOf(corner.y());
    return {page, onPaper(corner, page)};
}

void PlaceFinder::addLink(ORVPageLink link, int position, int length, QVector<ORVPageLink>* links)
{
    goTo(position);
    const QTextLayout* const layout = m_block.layout();
    const int from = position - m_block.position();
    const int to = from + length;
    const int first = lineNumber(layout, from);
    for (int number = qMax(0, first); number < layout->lineCount(); ++number) {
        const QTextLine line = layout->lineAt(number);
        if (line.textStart() >= to)
            break;
        m_linksInLine = m_linkBlock == m_block && m_linkLine == number ? m_linksInLine + 1 : 1;
        m_linkBlock = m_block;
        m_linkLine = number;
        if (m_linksInLine > mostAreasInLine)
            continue;
        const int end = line.textStart() + line.textLength();
        const QVector<QRectF> areas =
            areasInLine(m_block, m_text, line, qMax(from, line.textStart()), qMin(to, end));
        link.page = pageOf(m_origin.y() + line.y());
        for (const QRectF& area : areas)
            addArea(link, area.translated(m_origin), links);
    }
}

/*! \a area is in pixels of the layout. What goes beyond the paper, or the text of its page, is cut off. */
void PlaceFinder::addArea(ORVPageLink link, const QRectF& area, QVector<ORVPageLink>* links) const
{
    const QRectF page(-m_area.topLeft.x(), link.page * m_area.height, m_area.paperSize.width(),
                      m_area.height);
    const QRectF shown = area & page;
    if (shown.isEmpty())
        return;
    link.area = QRectF(onPaper(shown.topLeft(), link.page), shown.size() / m_area.pixelsPerPoint);
    links->append(link);
}

} // namespace

ORVPageNavigation::ORVPageNavigation(QTextDocument* document) : m_document(document)
{
    QVector<Change> changes;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it)
            addFragment(it.fragment(), &changes);
    }
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    for (const Change& change : qAsConst(changes)) {
        cursor.setPosition(change.position);
        cursor.setPosition(change.position + change.length, QTextCursor::KeepAnchor);
        cursor.setCharFormat(change.format);
    }
    cursor.endEditBlock();
}

/*! Formats stay different where they are, so that text is painted as without links. */
void ORVPageNavigation::addFragment(const QTextFragment& fragment, QVector<Change>* changes)
{
    QTextCharFormat format = fragment.charFormat();
    const int note = format.intProperty(ORVRtfProperty::NoteLink);
    QStringList anchors = format.anchorNames();
    if (note != 0)
        anchors.append(noteAnchor(note));
    for (const QString& anchor : qAsConst(anchors)) {
        if (!m_anchors.contains(anchor))
            m_anchors.insert(anchor, fragment.position());
    }
    const QString anchor = anchorTarget(format);
    const QByteArray uri = anchor.isEmpty() ? addressTarget(format) : QByteArray();
    if (!anchor.isEmpty() || !uri.isEmpty())
        addLink({fragment.position(), fragment.length(), uri, anchor});
    if (!format.isAnchor())
        return;
    if (uri.isEmpty()) {
        format.setAnchor(false);
        format.setProperty(hiddenTarget, format.anchorHref());
        format.clearProperty(QTextFormat::AnchorHref);
    } else {
        format.setAnchorHref(QString::fromLatin1(uri));
    }
    if (format != fragment.charFormat())
        changes->append({fragment.position(), fragment.length(), format});
}

/*! Runs of text that follow each other with the same target are one link. */
void ORVPageNavigation::addLink(const Link& link)
{
    if (!m_links.isEmpty()) {
        Link& last = m_links.last();
        if (last.position + last.length == link.position && last.uri == link.uri
            && last.anchor == link.anchor) {
            last.length += link.length;
            return;
        }
    }
    m_links.append(link);
}

/*! -1 when there is no such anchor. Its name may be escaped, as in addresses. */
int ORVPageNavigation::positionOf(const QString& anchor) const
{
    const QHash<QString, int>::const_iterator found = m_anchors.constFind(anchor);
    if (found != m_anchors.constEnd())
        return *found;
    return m_anchors.value(QUrl::fromPercentEncoding(anchor.toUtf8()), -1);
}

QVector<ORVPageHeading> ORVPageNavigation::headings(const ORVPageLabels& labels,
                                                    const ORVPageArea& area) const
{
    QVector<ORVPageHeading> headings;
    PlaceFinder finder(m_document, area);
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        const int level = ORVHeading::level(block.blockFormat());
        const QString text = level > 0 ? textWithoutMarks(block) : QString();
        if (text.isEmpty())
            continue;
        const QString label = labels.text(block).simplified();
        const QString title = hasNumber(label) ? label + QLatin1Char(' ') + text : text;
        headings.append({title, level, finder.place(block.position())});
    }
    return headings;
}

QVector<ORVPageLink> ORVPageNavigation::links(const ORVPageArea& area) const
{
    QVector<ORVPageLink> links;
    PlaceFinder finder(m_document, area);
    PlaceFinder targets(m_document, area);
    for (const Link& link : m_links) {
        ORVPageLink found;
        found.uri = link.uri;
        if (link.uri.isEmpty()) {
            const int target = positionOf(link.anchor);
            if (target < 0)
                continue;
            found.target = targets.place(target);
        }
        finder.addLink(found, link.position, link.length, &links);
    }
    return links;
}
