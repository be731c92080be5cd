#include "ORVHtmlStyleSheet_p.h"

#include "ORVHtmlOutput_p.h"

namespace {

struct ElementName {
    const char* tag;
    // Of the names of its classes.
    const char* prefix;
};

// In the order of ORVHtmlStyleSheet::Element.
const ElementName elementNames[] = {
    {"p", "p"},    {"h1", "h1-"}, {"h2", "h2-"}, {"h3", "h3-"},    {"h4", "h4-"}, {"h5", "h5-"},
    {"h6", "h6-"}, {"hr", "hr"},  {"ul", "ul"},  {"ol", "ol"},     {"li", "li"},  {"table", "table"},
    {"td", "td"},  {"th", "th"},  {"a", "a"},    {"code", "code"}, {"span", "t"},
};
static_assert(sizeof(elementNames) / sizeof(elementNames[0]) == ORVHtmlStyleSheet::ElementCount,
              "each element has a name");

/*! What the document does not do where browsers do something of their own accord. */
ORVHtmlDeclarations reset(ORVHtmlStyleSheet::Element element)
{
    ORVHtmlDeclarations result;
    switch (element) {
    case ORVHtmlStyleSheet::Heading1:
    case ORVHtmlStyleSheet::Heading2:
    case ORVHtmlStyleSheet::Heading3:
    case ORVHtmlStyleSheet::Heading4:
    case ORVHtmlStyleSheet::Heading5:
    case ORVHtmlStyleSheet::Heading6:
        result.set(ORVHtmlDeclarations::FontSize, "inherit");
        result.set(ORVHtmlDeclarations::FontWeight, "inherit");
        result.set(ORVHtmlDeclarations::Margin, "0");
        break;
    case ORVHtmlStyleSheet::Paragraph: result.set(ORVHtmlDeclarations::Margin, "0"); break;
    case ORVHtmlStyleSheet::BulletList:
    case ORVHtmlStyleSheet::NumberedList:
        result.set(ORVHtmlDeclarations::Margin, "0");
        result.set(ORVHtmlDeclarations::Padding, "0");
        break;
    case ORVHtmlStyleSheet::HeadCell:
        result.set(ORVHtmlDeclarations::FontWeight, "inherit");
        result.set(ORVHtmlDeclarations::TextAlign, "inherit");
        result.set(ORVHtmlDeclarations::Padding, "0");
        result.set(ORVHtmlDeclarations::VerticalAlign, "top");
        break;
    case ORVHtmlStyleSheet::Cell:
        result.set(ORVHtmlDeclarations::Padding, "0");
        result.set(ORVHtmlDeclarations::VerticalAlign, "top");
        break;
    case ORVHtmlStyleSheet::Code: result.set(ORVHtmlDeclarations::FontSize, "inherit"); break;
    case ORVHtmlStyleSheet::Link:
        result.set(ORVHtmlDeclarations::Color, "inherit");
        result.set(ORVHtmlDeclarations::TextDecoration, "none");
        break;
    default: break;
    }
    return result;
}

} // namespace

const char* ORVHtmlStyleSheet::tag(Element element)
{
    return elementNames[element].tag;
}

ORVHtmlDeclarations ORVHtmlStyleSheet::kept(const ORVHtmlDeclarations& declarations) const
{
    switch (m_extent) {
    case Everything: return declarations;
    case Structure: return declarations.structure();
    case Nothing: break;
    }
    return ORVHtmlDeclarations();
}

int ORVHtmlStyleSheet::use(Element element, const ORVHtmlDeclarations& declarations)
{
    const int style = number(element, declarations);
    use(style);
    return style;
}

int ORVHtmlStyleSheet::number(Element element, const ORVHtmlDeclarations& allDeclarations)
{
    const ORVHtmlDeclarations declarations = kept(allDeclarations);
    const QByteArray key = QByteArray(elementNames[element].prefix) + ' ' + declarations.css() + ' '
        + declarations.value(ORVHtmlDeclarations::NeighborMargin);
    const QHash<QByteArray, int>::const_iterator known = m_numbers.constFind(key);
    const int number = known != m_numbers.constEnd() ? *known : int(m_styles.size());
    if (number == m_styles.size()) {
        Style style;
        style.element = element;
        style.declarations = declarations;
        m_styles.append(style);
        m_numbers.insert(key, number);
    }
    return number;
}

/*! A class cannot restore the numbers that the attribute "type" states once the rule of the element replaces them. */
bool ORVHtmlStyleSheet::isBetterDefault(const Style& style, const Style& best)
{
    if (style.element == NumberedList) {
        const bool hasType = !style.declarations.value(ORVHtmlDeclarations::ListStyleType).isEmpty();
        const bool hasBestType = !best.declarations.value(ORVHtmlDeclarations::ListStyleType).isEmpty();
        if (hasType != hasBestType)
            return hasBestType;
    }
    return style.uses > best.uses;
}

void ORVHtmlStyleSheet::decide()
{
    for (int i = 0; i < m_styles.size(); ++i) {
        const Style& style = m_styles.at(i);
        int& best = m_defaults[style.element];
        if (style.uses > 0 && style.element != Text
            && (best < 0 || isBetterDefault(style, m_styles.at(best))))
            best = i;
    }
    int counts[ElementCount] = {};
    for (int i = 0; i < m_styles.size(); ++i) {
        Style& style = m_styles[i];
        if (style.uses == 0 || m_defaults.at(style.element) == i)
            continue;
        style.className = elementNames[style.element].prefix + QByteArray::number(++counts[style.element]);
        style.attribute = " class=\"" + style.className + '"';
    }
}

void ORVHtmlStyleSheet::writeRule(ORVHtmlOutput& output, const QByteArray& selector, const QByteArray& css)
{
    if (!css.isEmpty())
        output.markup(selector + " { " + css + " }\n");
}

/*! Margins overlap: a negative one takes away the lower margin of the neighbour above. */
void ORVHtmlStyleSheet::writeNeighborRule(ORVHtmlOutput& output, const QByteArray& selector,
                                          const ORVHtmlDeclarations& declarations)
{
    const QByteArray& margin = declarations.value(ORVHtmlDeclarations::NeighborMargin);
    if (!margin.isEmpty())
        writeRule(output, selector + " + " + selector, "margin-top: " + margin);
}

void ORVHtmlStyleSheet::write(ORVHtmlOutput& output) const
{
    for (int element = 0; element < ElementCount; ++element) {
        const ORVHtmlDeclarations initial = kept(reset(Element(element)));
        ORVHtmlDeclarations base;
        if (m_defaults.at(element) >= 0) {
            base = initial;
            base.merge(m_styles.at(m_defaults.at(element)).declarations);
            writeRule(output, elementNames[element].tag, base.css());
            writeNeighborRule(output, elementNames[element].tag + QByteArray(":not([class])"), base);
        }
        for (const Style& style : m_styles) {
            if (style.element != element || style.className.isEmpty())
                continue;
            ORVHtmlDeclarations rule = initial;
            rule.merge(style.declarations);
            writeRule(output, '.' + style.className, rule.css(base));
            writeNeighborRule(output, '.' + style.className, rule);
        }
    }
}
