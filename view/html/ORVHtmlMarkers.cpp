#include "ORVHtmlMarkers_p.h"

#include "ORVHtmlDeclarations_p.h"
#include "ORVHtmlOutput_p.h"
#include "ORVTextListFormat.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextList>

namespace {

/*! A kind of numbers that HTML has. */
struct Kind {
    // The value of "type"; 0 for decimal numbers, which need none.
    char type;
    // As CSS names it.
    const char* name;
};

/*! Without a name where HTML does not have the kind. */
Kind kindOf(unsigned kind)
{
    switch (kind) {
    case ORVTextListLevel::Decimal: return {0, "decimal"};
    case ORVTextListLevel::LowerLetter: return {'a', "lower-alpha"};
    case ORVTextListLevel::UpperLetter: return {'A', "upper-alpha"};
    case ORVTextListLevel::LowerRoman: return {'i', "lower-roman"};
    case ORVTextListLevel::UpperRoman: return {'I', "upper-roman"};
    default: return {0, nullptr};
    }
}

/*! The bullets that CSS has a name for. */
QByteArray bullet(const QString& text)
{
    if (text.size() == 1) {
        switch (text.at(0).unicode()) {
        case 0x2022:
        case 0x00b7:
        case 0x25cf: return "disc";
        case 'o':
        case 0x25e6:
        case 0x25cb: return "circle";
        case 0x25aa:
        case 0x25a0: return "square";
        default: break;
        }
    }
    return ORVHtmlDeclarations::string(text + QLatin1Char(' '));
}

ORVTextListLevel levelOf(const QTextBlock& block, int level)
{
    return ORVTextListFormat::levels(block.textList()->format()).value(level);
}

} // namespace

ORVHtmlMarker ORVHtmlMarkers::marker(const QTextBlock& block, const ORVTextListLabels::Label& label)
{
    ORVHtmlMarker marker;
    const bool isStored = ORVTextListFormat::storesLevels(block.textList()->format());
    const ORVTextListLevel level = levelOf(block, isStored ? label.level : 0);
    const QString text = level.text();
    const int placeholder = int(text.indexOf(QLatin1String("%0")));
    const bool isBullet = !text.contains(QLatin1Char('%')) || level.kind() == ORVTextListLevel::Bullet;
    if (isBullet) {
        marker.style = bullet(label.text);
        return marker;
    }
    marker.isNumbered = true;
    const Kind kind = kindOf(level.kind());
    const QString prefix = text.left(placeholder);
    const QString suffix = text.mid(placeholder + 2);
    if (placeholder < 0 || (prefix + suffix).contains(QLatin1Char('%')) || !kind.name) {
        marker.style = ORVHtmlDeclarations::string(label.text + QLatin1Char(' '));
        marker.isOwn = true;
        return marker;
    }
    marker.type = kind.type;
    if (!prefix.isEmpty() || suffix != QLatin1String("."))
        marker.style = counterStyle(kind.name, prefix, suffix);
    return marker;
}

QByteArray ORVHtmlMarkers::counterStyle(const QByteArray& system, const QString& prefix,
                                        const QString& suffix)
{
    QByteArray rule = "{ system: extends " + system;
    if (!prefix.isEmpty())
        rule += "; prefix: " + ORVHtmlDeclarations::string(prefix);
    rule += "; suffix: " + ORVHtmlDeclarations::string(suffix + QLatin1Char(' ')) + " }";
    QByteArray& name = m_names[rule];
    if (name.isEmpty()) {
        name = "marker" + QByteArray::number(m_names.size());
        m_rules.append("@counter-style " + name + ' ' + rule + '\n');
    }
    return name;
}

void ORVHtmlMarkers::write(ORVHtmlOutput& output) const
{
    for (const QByteArray& rule : m_rules)
        output.markup(rule);
}
