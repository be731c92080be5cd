#include "TextFacts.h"

#include "Colors.h"

#include <ORVRtfProperties.h>

#include <QFont>
#include <QFontInfo>
#include <QGuiApplication>
#include <QTextCharFormat>

namespace {

// In the order of QTextCharFormat::UnderlineStyle.
const char* const underlineNames[] = {
    "",
    QT_TRANSLATE_NOOP("orvrtf", "single"),
    QT_TRANSLATE_NOOP("orvrtf", "dashed"),
    QT_TRANSLATE_NOOP("orvrtf", "dotted"),
    QT_TRANSLATE_NOOP("orvrtf", "dash-dotted"),
    QT_TRANSLATE_NOOP("orvrtf", "dash-dot-dotted"),
    QT_TRANSLATE_NOOP("orvrtf", "wavy"),
    QT_TRANSLATE_NOOP("orvrtf", "spelling mistake"),
};

// In the order of QFont::Capitalization.
const char* const capitalsNames[] = {
    "",
    QT_TRANSLATE_NOOP("orvrtf", "all letters"),
    QT_TRANSLATE_NOOP("orvrtf", "no letters"),
    QT_TRANSLATE_NOOP("orvrtf", "small ones"),
    QT_TRANSLATE_NOOP("orvrtf", "first letters"),
};

/*! Adds facts about the format of one run of text. */
class TextFactFinder : private FactCollector {
public:
    TextFactFinder(const QTextCharFormat& format, const QString& language, bool hasLanguages)
        : m_format(format), m_font(format.font()), m_language(language), m_hasLanguages(hasLanguages)
    {
    }

    FactList run();

private:
    void addFont();
    void addUnderline();
    QColor textColor() const;
    void addColors();
    void addPosition();
    void addSpacing();
    void addReferences();

    const QTextCharFormat& m_format;
    const QFont m_font;
    const QString m_language;
    const bool m_hasLanguages;
};

FactList TextFactFinder::run()
{
    addFont();
    addUnderline();
    addIf(m_font.overline(), Facts::Overline);
    addIf(m_font.strikeOut(), Facts::StrikeOut);
    const int capitals = m_font.capitalization();
    if (capitals > QFont::MixedCase && capitals <= QFont::Capitalize)
        add(Facts::Capitals, FactValue().word(capitalsNames[capitals]));
    addColors();
    addPosition();
    addSpacing();
    addReferences();
    return facts();
}

/*! The fonts that stand in for a missing one depend on the computer, not on the document. */
void TextFactFinder::addFont()
{
    const QStringList families = m_font.families();
    QString family = families.isEmpty() ? m_font.family() : families.first();
    // Text without a stated font has that of the application, which can be a name for another one.
    if (family == QGuiApplication::font().family())
        family = QFontInfo(QGuiApplication::font()).family();
    add(Facts::Font, FactValue().text(family));
    const double size =
        m_font.pointSizeF() > 0 ? m_font.pointSizeF() : m_font.pixelSize() * Facts::pointsPerPixel;
    add(Facts::FontSize, FactValue().points(size));
    addIf(m_font.weight() > QFont::Medium, Facts::Bold);
    addIf(m_font.italic(), Facts::Italic);
}

void TextFactFinder::addUnderline()
{
    int style = m_format.intProperty(QTextFormat::TextUnderlineStyle);
    if (style == QTextCharFormat::NoUnderline && m_font.underline())
        style = QTextCharFormat::SingleUnderline;
    if (style <= QTextCharFormat::NoUnderline || style > QTextCharFormat::SpellCheckUnderline)
        return;
    FactValue value = FactValue().word(underlineNames[style]);
    const QColor color = m_format.underlineColor();
    if (color.isValid() && color != textColor())
        value.color(color);
    add(Facts::Underline, value);
}

/*! Outlined text is drawn in a transparent colour. */
QColor TextFactFinder::textColor() const
{
    const QColor color = m_format.hasProperty(QTextFormat::TextOutline)
        ? Colors::of(m_format.textOutline().brush())
        : Colors::of(m_format, QTextFormat::ForegroundBrush);
    return color.isValid() ? color : QColor(Qt::black);
}

void TextFactFinder::addColors()
{
    addIf(m_format.hasProperty(QTextFormat::TextOutline), Facts::Outline);
    const QColor color = textColor();
    if (color != QColor(Qt::black))
        add(Facts::TextColor, FactValue().color(color));
    const QColor background = Colors::of(m_format, QTextFormat::BackgroundBrush);
    if (background.isValid() && background.alpha() > 0)
        add(Facts::TextBackground, FactValue().color(background));
}

/*! A shift counts instead of superscript and subscript, which are no lengths. */
void TextFactFinder::addPosition()
{
    const int alignment = m_format.intProperty(QTextFormat::TextVerticalAlignment);
    const int shift = m_format.intProperty(ORVRtfProperty::BaselineShift);
    if (alignment == QTextCharFormat::AlignMiddle && shift != 0)
        add(Facts::TextPosition,
            FactValue()
                .word(shift > 0 ? QT_TRANSLATE_NOOP("orvrtf", "raised by")
                                : QT_TRANSLATE_NOOP("orvrtf", "lowered by"))
                .points(qAbs(shift / 2.0)));
    else if (alignment == QTextCharFormat::AlignSuperScript)
        add(Facts::TextPosition, FactValue().word(QT_TRANSLATE_NOOP("orvrtf", "superscript")));
    else if (alignment == QTextCharFormat::AlignSubScript)
        add(Facts::TextPosition, FactValue().word(QT_TRANSLATE_NOOP("orvrtf", "subscript")));
}

void TextFactFinder::addSpacing()
{
    const double spacing = m_format.doubleProperty(QTextFormat::FontLetterSpacing);
    const bool isLength = m_format.intProperty(QTextFormat::FontLetterSpacingType) == QFont::AbsoluteSpacing;
    if (isLength && spacing != 0)
        add(Facts::LetterSpacing, FactValue().points(spacing));
    else if (!isLength && spacing > 0 && spacing != 100)
        add(Facts::LetterSpacing, FactValue().percent(spacing));
    const int stretch = m_font.stretch();
    if (stretch > 0 && stretch != QFont::Unstretched)
        add(Facts::Stretch, FactValue().percent(stretch));
    addIf(!m_font.kerning(), Facts::Kerning);
}

void TextFactFinder::addReferences()
{
    const QString stated = m_format.stringProperty(ORVRtfProperty::Language);
    const QString language = stated.isEmpty() ? m_language : stated;
    if (m_hasLanguages && !language.isEmpty())
        add(Facts::Language, FactValue().text(language));
    if (m_format.isAnchor() && !m_format.anchorHref().isEmpty())
        add(Facts::Link, FactValue().quoted(m_format.anchorHref()));
    QStringList names = m_format.anchorNames();
    names += m_format.stringProperty(ORVRtfProperty::BookmarkName);
    names.removeAll(QString());
    names.sort();
    if (!names.isEmpty())
        add(Facts::Bookmark, FactValue().quoted(names.join(QLatin1String(", "))));
    const QString page = m_format.stringProperty(ORVRtfProperty::PageReference);
    if (!page.isEmpty())
        add(Facts::PageReference, FactValue().quoted(page));
    const int revision = m_format.intProperty(ORVRtfProperty::RevisionLevel);
    if (revision > 0)
        add(Facts::Revision, FactValue().number(revision));
}

} // namespace

FactList TextFacts::of(const QTextCharFormat& format, const QString& language, bool hasLanguages)
{
    return TextFactFinder(format, language, hasLanguages).run();
}

FactList TextFacts::onBlanks(const FactList& facts)
{
    return Facts::only(facts,
                       {Facts::Font, Facts::FontSize, Facts::Underline, Facts::Overline, Facts::StrikeOut,
                        Facts::TextBackground, Facts::LetterSpacing, Facts::Stretch, Facts::Link,
                        Facts::Bookmark, Facts::PageReference, Facts::Revision});
}

FactList TextFacts::onObjects(const FactList& facts)
{
    return Facts::only(facts, {Facts::Link, Facts::Bookmark});
}

FactList TextFacts::onEmptyParagraph(const FactList& facts)
{
    return Facts::only(facts, {Facts::Font, Facts::FontSize});
}

FactList TextFacts::onLabel(const FactList& facts)
{
    return Facts::only(facts, {Facts::Font, Facts::FontSize, Facts::Bold, Facts::Italic, Facts::TextColor});
}
