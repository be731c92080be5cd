#include "ORVRtfInterchangeReader_p.h"

#include "ORVRtfLanguages_p.h"
#include "ORVRtfProperties.h"
#include "ORVRtfUnits_p.h"
#include "ORVRtfWordValues_p.h"
#include "QtFontCompat_p.h"
#include "QtFormatCompat_p.h"

#include <QtGui/QBrush>

using namespace ORVRtfUnits;

namespace Words = ORVRtfInterchangeWords;

typedef ORVRtfScripts::Formats ScriptFormats;

namespace {

/*! Letter spacing up to this, in twips, is shown. */
const int widestSpacing = 31680;
const int twipsPerQuarterPoint = 5;
/*! The greatest size of letters, in half points, that word processors have. */
const int greatestHalfPoints = 3276;
/*! Letters are this wide at most, in percent. */
const int widestLetters = 600;
const int ordinaryLetters = 100;

} // namespace

/*! Words for formats of text that the storage form reads in another way or not at all; false for all others. */
bool ORVRtfInterchangeReader::translateFormatWord(KeyWord keyWord, bool hasParameter, int n)
{
    const bool on = !hasParameter || n != 0;
    switch (keyWord) {
    case ResetFormat: resetOwnFormat(); break;
    case Font: selectOwnFont(n); break;
    case FontSize:
        m_own.scripts.setPlain(&ScriptFormats::halfPoints);
        if (n <= greatestHalfPoints)
            return false;
        setCharProperty(QTextFormat::FontPointSize, greatestHalfPoints * 0.5);
        break;
    case Bold: m_own.scripts.setPlain(&ScriptFormats::bold); return false;
    case Italic: m_own.scripts.setPlain(&ScriptFormats::italic); return false;

    case UnderlineSolid:
    case UnderlineWord:
    case UnderlineDouble: setUnderline(QTextCharFormat::SingleUnderline, on); break;
    case UnderlineDot:
    case UnderlineDash:
    case UnderlineDashDot:
    case UnderlineDashDotDot:
    case UnderlineWave:
        setUnderline(ORVRtfWordValues::valueOf(ORVRtfWordValues::underlineStyles, keyWord), on);
        break;
    case StrikeThrough:
        m_own.text.isStruckOut = on;
        setStrikeOut();
        break;
    case SmallCaps:
        m_own.text.hasSmallCapitals = on;
        setCapitalization();
        break;
    case HighlightColor:
        m_own.text.highlight = colorOf(n);
        setTextBackground();
        break;
    case BackgroundColor: {
        // Word processors paint a white background as colour 1 to say that there is none.
        const QColor color = colorOf(n);
        m_own.text.background = n == 1 && color == QColor(Qt::white) ? QColor() : color;
        setTextBackground();
        break;
    }

    case LeftToRightCharacters:
    case RightToLeftCharacters: {
        const bool isComplex = keyWord == RightToLeftCharacters;
        m_own.scripts.setPlainScript(isComplex ? ORVRtfScripts::Complex : ORVRtfScripts::Western);
        m_own.scripts.select(isComplex ? ORVRtfScripts::Complex : ORVRtfScripts::Western);
        break;
    }
    case LowAnsiCharacters:
        m_own.scripts.select(ORVRtfScripts::Western);
        m_own.scripts.setSignsAreWestern(true);
        break;
    case HighAnsiCharacters: m_own.scripts.deselect(); break;
    case DoubleAnsiCharacters:
        m_own.scripts.select(ORVRtfScripts::EastAsian);
        m_own.scripts.setSignsAreWestern(false);
        break;
    case AssociatedFont: m_own.scripts.set(&ScriptFormats::font, n); break;
    default: return false;
    }
    return true;
}

/*! The same for words of this form. */
bool ORVRtfInterchangeReader::translatePrivateFormatWord(Words::Word word, bool hasParameter, int n)
{
    const bool on = !hasParameter || n != 0;
    switch (word) {
    case Words::AllCaps:
        m_own.text.hasCapitals = on;
        setCapitalization();
        break;
    case Words::DoubleStrikeThrough:
        m_own.text.isDoublyStruckOut = on;
        setStrikeOut();
        break;
    case Words::UnderlineThick: setUnderline(QTextCharFormat::SingleUnderline, on); break;
    case Words::UnderlineThickDot: setUnderline(QTextCharFormat::DotLine, on); break;
    case Words::UnderlineThickDash:
    case Words::UnderlineLongDash:
    case Words::UnderlineThickLongDash: setUnderline(QTextCharFormat::DashUnderline, on); break;
    case Words::UnderlineThickDashDot: setUnderline(QTextCharFormat::DashDotLine, on); break;
    case Words::UnderlineThickDashDotDot: setUnderline(QTextCharFormat::DashDotDotLine, on); break;
    case Words::UnderlineHeavyWave:
    case Words::UnderlineDoubleWave: setUnderline(QTextCharFormat::WaveUnderline, on); break;
    case Words::Overline: setSwitch(QTextFormat::FontOverline, on); break;
    case Words::LetterSpacingQuarters:
        setLetterSpacing(qBound(-widestSpacing, n, widestSpacing) * twipsPerQuarterPoint);
        break;
    case Words::LetterSpacing: setLetterSpacing(n); break;
    case Words::CharacterScale: setStretch(n); break;
    case Words::Kerning:
        if (on)
            clearCharProperty(QTextFormat::FontKerning);
        else
            setCharProperty(QTextFormat::FontKerning, false);
        break;
    case Words::TextBackground:
        m_own.text.shading.background = colorOf(n);
        setTextBackground();
        break;
    case Words::TextPatternColor:
        m_own.text.shading.foreground = colorOf(n);
        setTextBackground();
        break;
    case Words::TextShading:
        m_own.text.shading.setCoverage(n);
        setTextBackground();
        break;
    case Words::Language: setLanguage(n); break;
    case Words::DefaultLanguage: m_defaultLanguage = ORVRtfLanguages::tag(n); break;

    case Words::AssociatedSize:
        if (n > 0)
            m_own.scripts.set(&ScriptFormats::halfPoints, qMin(n, greatestHalfPoints));
        break;
    case Words::AssociatedBold: m_own.scripts.set(&ScriptFormats::bold, int(on)); break;
    case Words::AssociatedItalic: m_own.scripts.set(&ScriptFormats::italic, int(on)); break;
    default: return false;
    }
    return true;
}

/*! A link goes on, as it is not a matter of formats. */
void ORVRtfInterchangeReader::resetOwnFormat()
{
    const bool isLink = m_state.charFormat.isAnchor();
    const QString target = isLink ? m_state.charFormat.anchorHref() : QString();
    resetCharFormat();
    if (isLink)
        setLink(m_state.charFormat, target);
    m_own.isHidden = false;
    m_own.symbolFont = m_symbolFonts.value(m_defaultFont, ORVRtfSymbolFonts::none);
    m_own.text = ORVRtfTextState();
    m_own.scripts = ORVRtfScripts();
}

void ORVRtfInterchangeReader::selectOwnFont(int number)
{
    selectFont(number);
    if (isIn(FontTableGroup)) {
        m_fonts.setAlternative(QString());
        return;
    }
    m_own.symbolFont = m_symbolFonts.value(number, ORVRtfSymbolFonts::none);
    m_state.codePage = m_fonts.codePage(number);
    if (m_state.codePage == ORVRtfFontTable::noCodePage)
        m_state.codePage = m_documentCodePage;
    if (isInListTables())
        m_numbering.setLevelFont(m_own.symbolFont);
    m_own.scripts.setPlain(&ScriptFormats::font);
}

/*! Sets what is stated for the script of the text. */
void ORVRtfInterchangeReader::applyFormats(const ORVRtfScripts::Formats& formats)
{
    if (formats.font >= 0)
        setFont(formats.font);
    if (formats.halfPoints >= 0)
        setCharProperty(QTextFormat::FontPointSize, formats.halfPoints * 0.5);
    if (formats.bold >= 0)
        setCharProperty(QTextFormat::FontWeight, int(formats.bold ? QFont::Bold : QFont::Normal));
    if (formats.italic >= 0)
        setCharProperty(QTextFormat::FontItalic, formats.italic != 0);
}

/*! The colour with \a number; invalid for the automatic one, which is number 0, and for one that is not there. */
QColor ORVRtfInterchangeReader::colorOf(int number) const
{
    const QRgb* const color = number == 0 ? nullptr : m_colors.find(number);
    return color ? QColor(*color) : QColor();
}

void ORVRtfInterchangeReader::setUnderline(int style, bool on)
{
    if (on)
        setCharProperty(QTextFormat::TextUnderlineStyle, style);
    else
        clearCharProperty(QTextFormat::TextUnderlineStyle);
}

/*! What is off needs no property, so that runs stay whole. */
void ORVRtfInterchangeReader::setSwitch(int id, bool on)
{
    if (on)
        setCharProperty(id, true);
    else
        clearCharProperty(id);
}

void ORVRtfInterchangeReader::setStrikeOut()
{
    setSwitch(QTextFormat::FontStrikeOut, m_own.text.isStruckOut || m_own.text.isDoublyStruckOut);
}

void ORVRtfInterchangeReader::setCapitalization()
{
    const QFont::Capitalization capitalization = m_own.text.capitalization();
    if (capitalization == QFont::MixedCase)
        clearCharProperty(QTextFormat::FontCapitalization);
    else
        setCharProperty(QTextFormat::FontCapitalization, int(capitalization));
}

void ORVRtfInterchangeReader::setTextBackground()
{
    const QColor color = m_own.text.shownBackground();
    if (!color.isValid()) {
        clearCharProperty(QTextFormat::BackgroundBrush);
        return;
    }
    m_charFormats.set(m_state.charFormat, QTextFormat::BackgroundBrush, color.rgb(),
                      [=](QTextCharFormat& format) { format.setBackground(QBrush(color)); });
}

/*! Spacing is absolute, in points. Before Qt 5 formats had room for relative spacing only. */
void ORVRtfInterchangeReader::setLetterSpacing(int twips)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    if (twips == 0) {
        clearCharProperty(QTextFormat::FontLetterSpacingType);
        clearCharProperty(QTextFormat::FontLetterSpacing);
        return;
    }
    setCharProperty(QTextFormat::FontLetterSpacingType, int(QFont::AbsoluteSpacing));
    setCharProperty(QTextFormat::FontLetterSpacing, points(qBound(-widestSpacing, twips, widestSpacing)));
#else
    Q_UNUSED(twips);
#endif
}

void ORVRtfInterchangeReader::setStretch(int percent)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    if (percent <= 0 || percent == ordinaryLetters)
        clearCharProperty(QTextFormat::FontStretch);
    else
        setCharProperty(QTextFormat::FontStretch, qMin(percent, widestLetters));
#else
    Q_UNUSED(percent);
#endif
}

/*! Text in the language of the document states none, so that runs stay whole. */
void ORVRtfInterchangeReader::setLanguage(int number)
{
    const QString tag = ORVRtfLanguages::tag(number);
    if (tag.isEmpty() || tag == m_defaultLanguage) {
        clearCharProperty(ORVRtfProperty::Language);
        return;
    }
    m_charFormats.set(m_state.charFormat, ORVRtfProperty::Language, quint64(number),
                      [&](QTextCharFormat& format) { format.setProperty(ORVRtfProperty::Language, tag); });
}

/*! Draws the pending text run by run, each with the format of its script. */
void ORVRtfInterchangeReader::drawScripts()
{
    const QTextCharFormat plain = m_state.charFormat;
    const QString text = m_pendingText;
    if (m_own.scripts.areSignsWestern())
        m_text.script = ORVRtfScripts::Western;
    int start = 0;
    do {
        const int length = ORVRtfScripts::run(text, start, m_text.script);
        if (length < text.size())
            m_pendingText = text.mid(start, length);
        m_state.charFormat = plain;
        applyFormats(m_own.scripts.formats(m_text.script));
        ORVTextRtfReaderPrivate::drawBodyText();
        start += length;
    } while (start < text.size());
}
