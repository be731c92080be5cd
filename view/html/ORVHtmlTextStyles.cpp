#include "ORVHtmlTextStyles_p.h"

#include "ORVFontFamilies_p.h"
#include "ORVHtmlLinks_p.h"
#include "ORVHtmlOutput_p.h"
#include "ORVRtfProperties.h"
#include "QtFontCompat_p.h"

#include <QtGui/QFont>

namespace {

using Declarations = ORVHtmlDeclarations;

QByteArray families(const QTextCharFormat& format)
{
    QStringList names;
#if QT_VERSION >= QT_VERSION_CHECK(5, 13, 0)
    names = format.property(QTextFormat::FontFamilies).toStringList();
#endif
    if (names.isEmpty())
        names += compat::fontFamily(format);
    QByteArray result;
    for (const QString& name : names) {
        if (!name.isEmpty())
            result += (result.isEmpty() ? "" : ", ") + Declarations::string(name);
    }
    const QByteArray generic = ORVFontFamilies::generic(names.first());
    return result.isEmpty() || generic.isEmpty() ? result : result + ", " + generic;
}

QByteArray size(const QTextCharFormat& format)
{
    if (format.fontPointSize() > 0)
        return Declarations::length(format.fontPointSize());
    if (format.intProperty(QTextFormat::FontPixelSize) > 0)
        return Declarations::length(format.intProperty(QTextFormat::FontPixelSize), "px");
    return QByteArray();
}

bool isBold(const QTextCharFormat& format)
{
    return compat::font(format).weight() > QFont::Medium;
}

QColor solidColor(const QBrush& brush)
{
    return brush.style() == Qt::NoBrush ? QColor() : brush.color();
}

/*! The colour of the text; invalid for that of the paper's other text. */
QColor textColor(const QTextCharFormat& format)
{
    // Outlined text is drawn in a transparent colour and would vanish.
    if (format.hasProperty(QTextFormat::TextOutline))
        return solidColor(format.textOutline().brush());
    return format.hasProperty(QTextFormat::ForegroundBrush) ? solidColor(format.foreground()) : QColor();
}

const char* lineStyle(int style)
{
    switch (style) {
    case QTextCharFormat::DashUnderline:
    case QTextCharFormat::DashDotLine:
    case QTextCharFormat::DashDotDotLine: return " dashed";
    case QTextCharFormat::DotLine: return " dotted";
    case QTextCharFormat::WaveUnderline:
    case QTextCharFormat::SpellCheckUnderline: return " wavy";
    default: return "";
    }
}

/*! An underline of its own kind or colour, and an overline: "u" cannot express them. Empty for others. */
QByteArray specialLines(const QTextCharFormat& format)
{
    QByteArray lines;
    const int style = format.intProperty(QTextFormat::TextUnderlineStyle);
    const QColor color = format.underlineColor();
    if (style > QTextCharFormat::SingleUnderline || (style != QTextCharFormat::NoUnderline && color.isValid())
        || format.fontOverline()) {
        if (format.fontOverline())
            lines = "overline";
        if (style != QTextCharFormat::NoUnderline)
            lines += QByteArray(lines.isEmpty() ? "" : " ") + "underline" + lineStyle(style);
        if (color.isValid())
            lines += ' ' + Declarations::color(color);
    }
    return lines;
}

bool hasPlainUnderline(const QTextCharFormat& format)
{
    return format.intProperty(QTextFormat::TextUnderlineStyle) == QTextCharFormat::SingleUnderline
        && specialLines(format).isEmpty();
}

int position(const QTextCharFormat& format)
{
    const int shift = format.intProperty(ORVRtfProperty::BaselineShift);
    if (format.intProperty(QTextFormat::TextVerticalAlignment) == QTextCharFormat::AlignMiddle && shift != 0)
        return shift > 0 ? QTextCharFormat::AlignSuperScript : QTextCharFormat::AlignSubScript;
    return format.intProperty(QTextFormat::TextVerticalAlignment);
}

/*! What neither the paragraph nor an element of its own states. */
Declarations appearance(const QTextCharFormat& format)
{
    Declarations result;
    const QColor background =
        format.hasProperty(QTextFormat::BackgroundBrush) ? solidColor(format.background()) : QColor();
    if (background.isValid() && background.alpha() > 0)
        result.set(Declarations::BackgroundColor, Declarations::color(background));
    result.set(Declarations::TextDecoration, specialLines(format));
    switch (format.intProperty(QTextFormat::FontCapitalization)) {
    case QFont::AllUppercase: result.set(Declarations::TextTransform, "uppercase"); break;
    case QFont::AllLowercase: result.set(Declarations::TextTransform, "lowercase"); break;
    case QFont::Capitalize: result.set(Declarations::TextTransform, "capitalize"); break;
    case QFont::SmallCaps: result.set(Declarations::FontVariant, "small-caps"); break;
    case QFont::MixedCase: break;
    }
    if (format.intProperty(QTextFormat::FontLetterSpacingType) == QFont::AbsoluteSpacing
        && format.fontLetterSpacing() != 0)
        result.set(Declarations::LetterSpacing, Declarations::length(format.fontLetterSpacing(), "px"));
    const int stretch = format.intProperty(QTextFormat::FontStretch);
    if (stretch > 0 && stretch != 100)
        result.set(Declarations::FontStretch, QByteArray::number(stretch) + '%');
    return result;
}

/*! The font of computer code; empty when \a own states more than such a font, or none. */
Declarations codeFont(const Declarations& own)
{
    Declarations rest = own;
    rest.set(Declarations::FontFamily, QByteArray());
    rest.set(Declarations::FontSize, QByteArray());
    Declarations font;
    if (rest.isEmpty() && own.value(Declarations::FontFamily).endsWith("monospace")) {
        font.set(Declarations::FontFamily, own.value(Declarations::FontFamily));
        font.set(Declarations::FontSize, own.value(Declarations::FontSize));
    }
    return font;
}

} // namespace

ORVHtmlTextStyles::ORVHtmlTextStyles(ORVHtmlStyleSheet* sheet, const QTextCharFormat& defaultFormat,
                                     const QString& language)
    : m_sheet(sheet), m_default(defaultFormat), m_language(language)
{
}

bool ORVHtmlTextStyles::hasPlainBlanks(const QTextCharFormat& format)
{
    const Declarations own = appearance(format);
    return own.value(Declarations::BackgroundColor).isEmpty()
        && own.value(Declarations::TextDecoration).isEmpty() && !hasPlainUnderline(format)
        && !format.fontStrikeOut() && position(format) == QTextCharFormat::AlignNormal
        && ORVHtmlLinks::attribute(format).isEmpty();
}

ORVHtmlDeclarations ORVHtmlTextStyles::font(const QTextCharFormat& format) const
{
    Declarations result;
    result.set(Declarations::FontFamily, families(format));
    if (result.value(Declarations::FontFamily).isEmpty())
        result.set(Declarations::FontFamily, families(m_default));
    result.set(Declarations::FontSize, size(format));
    if (result.value(Declarations::FontSize).isEmpty())
        result.set(Declarations::FontSize, size(m_default));
    // Black is what text is in any case.
    const QColor color = textColor(format);
    if (color.isValid() && color != QColor(Qt::black))
        result.set(Declarations::Color, Declarations::color(color));
    return result;
}

ORVHtmlDeclarations ORVHtmlTextStyles::base(const QTextCharFormat& format, bool isHeading) const
{
    Declarations result = font(format);
    if (isHeading && isBold(format))
        result.set(Declarations::FontWeight, "bold");
    if (isHeading && format.fontItalic())
        result.set(Declarations::FontStyle, "italic");
    return result;
}

/*! A link states its colour and its line itself: they are taken from \a own. */
void ORVHtmlTextStyles::addLink(Elements* elements, const QTextCharFormat& format,
                                ORVHtmlDeclarations* own) const
{
    Declarations link;
    for (const Declarations::Property property : {Declarations::Color, Declarations::TextDecoration}) {
        link.set(property, own->value(property));
        own->set(property, QByteArray());
    }
    if (hasPlainUnderline(format))
        link.set(Declarations::TextDecoration, "underline");
    ORVHtmlInlineElement element("a");
    element.attributes = ORVHtmlLinks::attribute(format);
    element.style = m_sheet->number(ORVHtmlStyleSheet::Link, link);
    elements->append(element);
}

/*! Formats that no element of HTML stands for are a class of a span. */
void ORVHtmlTextStyles::addSpan(Elements* elements, const QTextCharFormat& format,
                                const ORVHtmlDeclarations& own) const
{
    QString language = format.stringProperty(ORVRtfProperty::Language);
    if (language == m_language)
        language.clear();
    const Declarations kept = m_sheet->kept(own);
    if (kept.isEmpty() && language.isEmpty())
        return;
    ORVHtmlInlineElement element("span");
    if (!language.isEmpty())
        element.attributes = " lang=" + ORVHtmlOutput::attributeValue(language);
    if (!kept.isEmpty())
        element.style = m_sheet->number(ORVHtmlStyleSheet::Text, kept);
    elements->append(element);
}

QVector<ORVHtmlInlineElement> ORVHtmlTextStyles::elements(const QTextCharFormat& format,
                                                          const ORVHtmlDeclarations& base) const
{
    Elements result;
    Declarations own = appearance(format);
    const Declarations font = this->font(format);
    for (const Declarations::Property property :
         {Declarations::FontFamily, Declarations::FontSize, Declarations::Color}) {
        if (font.value(property) != base.value(property))
            own.set(property,
                    font.value(property).isEmpty() ? Declarations::automatic(property)
                                                   : font.value(property));
    }
    const bool isBaseBold = !base.value(Declarations::FontWeight).isEmpty();
    if (isBaseBold && !isBold(format))
        own.set(Declarations::FontWeight, "normal");
    const bool isBaseItalic = !base.value(Declarations::FontStyle).isEmpty();
    if (isBaseItalic && !format.fontItalic())
        own.set(Declarations::FontStyle, "normal");
    const bool isLink = !ORVHtmlLinks::attribute(format).isEmpty();
    if (isLink)
        addLink(&result, format, &own);
    const Declarations code = codeFont(own);
    if (!code.isEmpty()) {
        own.set(Declarations::FontFamily, QByteArray());
        own.set(Declarations::FontSize, QByteArray());
    }
    addSpan(&result, format, own);
    if (!code.isEmpty()) {
        ORVHtmlInlineElement element("code");
        element.style = m_sheet->number(ORVHtmlStyleSheet::Code, code);
        result.append(element);
    }
    const auto addIf = [&result](bool condition, const char* tag) {
        if (condition)
            result.append(ORVHtmlInlineElement(tag));
    };
    addIf(isBold(format) && !isBaseBold, "strong");
    addIf(format.fontItalic() && !isBaseItalic, "em");
    addIf(hasPlainUnderline(format) && !isLink, "u");
    addIf(format.fontStrikeOut(), "s");
    addIf(position(format) == QTextCharFormat::AlignSuperScript, "sup");
    addIf(position(format) == QTextCharFormat::AlignSubScript, "sub");
    return result;
}
