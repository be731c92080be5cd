#include "ORVHtmlLists_p.h"

namespace {

ORVHtmlStyleSheet::Element elementOf(const ORVHtmlMarker& marker)
{
    return marker.isNumbered ? ORVHtmlStyleSheet::NumberedList : ORVHtmlStyleSheet::BulletList;
}

/*! Distances above, behind, below and in front of text. */
QByteArray sidesOf(const ORVHtmlLists::Item& item, double top, double end, double bottom, double start)
{
    return item.isRightToLeft ? ORVHtmlDeclarations::sides(top, start, bottom, end)
                              : ORVHtmlDeclarations::sides(top, end, bottom, start);
}

// Documents in Qt's form can have any level, and each has elements around it.
const int deepestLevel = 15;

} // namespace

bool ORVHtmlLists::goesOn(const Item& item) const
{
    const List& last = m_open.back();
    return last.number == item.label.list && last.isRightToLeft == item.isRightToLeft
        && last.marker.isNumbered == item.marker.isNumbered && last.marker.type == item.marker.type
        && (last.marker.isOwn ? item.marker.isOwn : last.marker.style == item.marker.style);
}

void ORVHtmlLists::begin(const Item& item)
{
    const int level = qMin(item.label.level, deepestLevel);
    while (int(m_open.size()) > level + 1)
        close();
    if (int(m_open.size()) == level + 1 && !goesOn(item))
        close();
    while (int(m_open.size()) < level)
        openBridge();
    if (int(m_open.size()) == level)
        open(item);
    else
        m_context->output->markup("</li>\n");
    writeItem(item);
}

void ORVHtmlLists::open(const Item& item)
{
    List list;
    list.number = item.label.list;
    list.marker = item.marker;
    list.start = item.start;
    list.isRightToLeft = item.isRightToLeft;
    list.nextNumber = item.label.number;
    ORVHtmlDeclarations declarations;
    // Padding cannot be negative.
    const double indent = item.start - start();
    declarations.set(indent < 0 ? ORVHtmlDeclarations::Margin : ORVHtmlDeclarations::Padding,
                     sidesOf(item, 0, 0, 0, indent));
    if (!item.marker.isOwn)
        declarations.set(ORVHtmlDeclarations::ListStyleType, item.marker.style);
    const ORVHtmlStyleSheet::Element element = elementOf(item.marker);
    ORVHtmlOutput& output = *m_context->output;
    if (!m_open.empty() && m_isInLine)
        output.markup("\n");
    output.markup(QByteArray("<") + ORVHtmlStyleSheet::tag(element)
                  + m_context->sheet->attribute(m_context->sheet->use(element, declarations)));
    if (item.marker.type)
        output.markup(QByteArray(" type=\"") + item.marker.type + '"');
    if (item.marker.isNumbered && list.nextNumber != 1)
        output.markup(" start=\"" + QByteArray::number(list.nextNumber) + '"');
    output.markup(">\n");
    m_open.push_back(list);
}

/*! An item deeper than by one level stands in items without a marker. */
void ORVHtmlLists::openBridge()
{
    Item item;
    item.start = start();
    item.declarations.set(ORVHtmlDeclarations::ListStyleType, "none");
    open(item);
    writeItem(item);
}

void ORVHtmlLists::writeItem(const Item& item)
{
    List& list = m_open.back();
    ORVHtmlDeclarations declarations = item.declarations;
    declarations.set(ORVHtmlDeclarations::Margin,
                     sidesOf(item, item.top, item.end, item.bottom, item.start - list.start));
    if (item.marker.isOwn)
        declarations.set(ORVHtmlDeclarations::ListStyleType, item.marker.style);
    m_context->output->markup(
        "<li" + m_context->sheet->attribute(m_context->sheet->use(ORVHtmlStyleSheet::Item, declarations)));
    if (item.marker.isNumbered && item.label.number != list.nextNumber)
        m_context->output->markup(" value=\"" + QByteArray::number(item.label.number) + '"');
    list.nextNumber = qint64(item.label.number) + 1;
    m_isInLine = !item.hasParagraph;
    m_context->output->markup(item.isRightToLeft ? " dir=\"rtl\">" : ">");
}

void ORVHtmlLists::close()
{
    m_context->output->markup(QByteArray("</li>\n</")
                              + ORVHtmlStyleSheet::tag(elementOf(m_open.back().marker)) + ">\n");
    m_open.pop_back();
}

void ORVHtmlLists::end()
{
    while (!m_open.empty())
        close();
}
