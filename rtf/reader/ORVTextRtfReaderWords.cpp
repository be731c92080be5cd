#include "ORVTextRtfReader_p.h"

#include "ORVRtfHexadecimal_p.h"
#include "ORVRtfProperties.h"
#include "ORVRtfUnits_p.h"
#include "ORVRtfWordValues_p.h"
#include "ORVTextUtil.h"
#include "ORVUnit.h"
#include "QtFontCompat_p.h"
#include "QtFormatCompat_p.h"

#include <QtGui/QBrush>
#include <QtGui/QPen>

using namespace ORVRtfUnits;
using namespace ORVRtfProperty;
using namespace ORVRtfWordValues;

namespace {

// What is read as text where a Unicode character or a byte gives none.
const char missingCharacter = '?';
// Bytes of a fallback character: backslash, apostrophe and two digits.
const int escapedByteLength = 4;

const double defaultPointSize = 10.0;
// Font sizes up to this many half-points are taken for missing.
const int smallestFontSize = 2;

int channel(bool hasParameter, int parameter)
{
    return hasParameter ? qBound(0, parameter, 255) : 255;
}

} // namespace

/*
    The index of all control words: what each does stands below or in a class of its own. A word that is not
    listed is known and has no effect.
*/
int ORVTextRtfReaderPrivate::translateControlWord(KeyWord keyWord, bool hasParameter, int parameter)
{
    m_state.expectedFormat = TextData;
    const int n = parameter;
    const bool on = !hasParameter || n != 0;

    switch (keyWord) {
    case NoKeyWord: return AssertionError;

    // Document and encoding
    case AnsiCodePage: m_documentCodePage = n < 1 ? 1252 : n; break;
    case UnicodeCharacterBytes: m_state.fallbackBytes = n; break;
    case UnicodeCharacterValue: translateUnicode(hasParameter, n); break;
    case ExtendedCharacterValue: return translateHexadecimalByte();
    case BinaryData: return readBinaryData(n);
    case OptionalDestination: m_ignorableDestination = true; break;
    case CompatibilityText: m_state.skipNextGroup = true; break;

    // Special characters
    case TabCharacter: m_pendingText += QLatin1Char('\t'); break;
    case SoftLineBreak: m_pendingText += QChar(QChar::LineSeparator); break;
    case NonBreakableSpace: m_pendingText += QChar(QChar::Nbsp); break;
    case OptionalHyphen:
    case NonBreakingHyphen: m_pendingText += QLatin1Char('-'); break;
    case EscapedSlash: m_pendingText += QLatin1Char('\\'); break;
    case EscapedOpenBrace: m_pendingText += QLatin1Char('{'); break;
    case EscapedCloseBrace: m_pendingText += QLatin1Char('}'); break;
    case EnDash: m_pendingText += QChar(0x2013); break;
    case EmDash: m_pendingText += QChar(0x2014); break;
    case Bullet: m_pendingText += QChar(0x2022); break;
    case LeftQuote: m_pendingText += defaultSingleQuotes.first; break;
    case RightQuote: m_pendingText += defaultSingleQuotes.second; break;
    case LeftDoubleQuote: m_pendingText += defaultDoubleQuotes.first; break;
    case RightDoubleQuote: m_pendingText += defaultDoubleQuotes.second; break;

    // Font table
    case FontTable: openDestination(FontTableGroup); break;
    case DefaultFontNumber: m_defaultFont = n; break;
    case FontCharSet: setFontCharset(n); break;
    case CodePage: setFontCodePage(n); break;
    case RomanFont: setFontStyleHint(QFont::Serif); break;
    case SwissFont: setFontStyleHint(QFont::SansSerif); break;
    case ModernFont:
    case TechFont: setFontStyleHint(QFont::TypeWriter); break;
    case ScriptFont:
    case DecorFont: setFontStyleHint(QFont::Decorative); break;
    case NilFont:
    case BidirectionalFont: setFontStyleHint(QFont::AnyStyle); break;

    // Colour table
    case ColorTable: openColorTable(); break;
    case Red: m_colors.setRed(channel(hasParameter, n)); break;
    case Green: m_colors.setGreen(channel(hasParameter, n)); break;
    case Blue: m_colors.setBlue(channel(hasParameter, n)); break;

    // Character formats
    case ResetFormat: resetCharFormat(); break;
    case Font: selectFont(n); break;
    case FontPitchType: setFontPitch(n); break;
    case FontSize:
        setCharProperty(QTextFormat::FontPointSize, n > smallestFontSize ? n * 0.5 : defaultPointSize);
        break;
    case Bold: setBold(on); break;
    case Italic: setCharProperty(QTextFormat::FontItalic, on); break;
    case StrikeThrough: setCharProperty(QTextFormat::FontStrikeOut, on); break;
    case SmallCaps:
        setCharProperty(QTextFormat::FontCapitalization, int(on ? QFont::SmallCaps : QFont::MixedCase));
        break;
    case Outline: setOutline(on); break;
    case UnderlineSolid:
    case UnderlineWord:
    case UnderlineDouble:
        setCharProperty(QTextFormat::TextUnderlineStyle, on ? valueOf(underlineStyles, UnderlineSolid) : 0);
        break;
    case UnderlineDot:
    case UnderlineDash:
    case UnderlineDashDot:
    case UnderlineDashDotDot:
    case UnderlineWave:
        setCharProperty(QTextFormat::TextUnderlineStyle, valueOf(underlineStyles, keyWord));
        break;
    case NoUnderline:
        clearCharProperty(QTextFormat::TextUnderlineStyle);
        clearCharProperty(QTextFormat::TextUnderlineColor);
        break;
    case UnderlineColor: setUnderlineColor(n); break;
    case SuperScript:
    case SubScript:
    case TextVerticalAlignTop:
    case TextVerticalAlignCenter:
    case TextVerticalAlignBottom:
    case TextVerticalAlignJustified: setVerticalAlignment(keyWord, on); break;
    case TextVerticalAlign: setVerticalAlignment(TextVerticalAlignBottom, on); break;
    case NoSuperSubScript: clearCharProperty(QTextFormat::TextVerticalAlignment); break;
    case TextUp: setBaselineShift(n); break;
    case TextDown: setBaselineShift(int(0u - unsigned(n))); break;
    case ForegroundColor: setForegroundColor(n); break;
    case BackgroundColor:
    case HighlightColor: setBackgroundColor(n); break;
    case OrvellineRevisionLevel: setCharProperty(RevisionLevel, n); break;
    case Annotation: setCharProperty(InAnnotation, true); break;
    case Footnote: setCharProperty(InFootnote, true); break;

    // Paragraphs
    case NewParagraph:
    case NewParagraphSymbol: endParagraph(); break;
    case NewPage: endPage(); break;
    case ResetParagraph: resetParagraph(); break;
    case KeepParagraphIntact: m_paragraph.addPageBreakBits(KeepLinesTogether); break;
    case KeepParagraphWithNext: m_paragraph.addPageBreakBits(KeepWithNext); break;
    case StartParagraphOnNewPage: m_paragraph.addPageBreakBits(QTextFormat::PageBreak_AlwaysBefore); break;
    case LeftAlignParagraph:
    case RightAlignParagraph:
    case CenterParagraph:
    case JustifyParagraph:
        setBlockProperty(QTextFormat::BlockAlignment, valueOf(paragraphAlignments, keyWord));
        break;
    case LeftToRightParagraph: setBlockProperty(QTextFormat::LayoutDirection, int(Qt::LeftToRight)); break;
    case RightToLeftParagraph: setBlockProperty(QTextFormat::LayoutDirection, int(Qt::RightToLeft)); break;
    case SpaceBeforeParagraph: setBlockProperty(QTextFormat::BlockTopMargin, points(n)); break;
    case SpaceAfterParagraph: setBlockProperty(QTextFormat::BlockBottomMargin, points(n)); break;
    case LineSpacing: setBlockProperty(ORVRtfProperty::LineSpacing, points(n)); break;
    case LineSpacingMultiple: setLineMultiple(n); break;
    case LeftIndent: setLevelOrLeftIndent(n); break;
    case TextIndent: setLevelOrTextIndent(n); break;
    case RightIndent: setRightMargin(n); break;
    case LeftIndentI18n: setLeadingIndent(n); break;
    case RightIndentI18n: setTrailingIndent(n); break;
    case FlushRightTab: m_paragraph.setNextTabType(QTextOption::RightTab); break;
    case CenteredTab: m_paragraph.setNextTabType(QTextOption::CenterTab); break;
    case DecimalTab: m_paragraph.setNextTabType(QTextOption::DelimiterTab); break;
    case TabPosition: m_paragraph.addTab(points(n)); break;

    // Page, in twips
    case PaperWidth: m_page.paperWidth = n; break;
    case PaperHeight: m_page.paperHeight = n; break;
    case LeftMargin: m_page.leftMargin = n; break;
    case RightMargin: m_page.rightMargin = n; break;
    case TopMargin: m_page.topMargin = n; break;
    case BottomMargin: m_page.bottomMargin = n; break;

    // Tables
    case InTable: setTableLevel(qMax(1, m_tables.paragraphLevel())); break;
    case TableNesting: setTableLevel(n); break;
    case TableRowCellPadding: openRow().tableFormat.setCellPadding(points(n)); break;
    case CellRightBoundary: openRow().closeDefinition(n); break;
    case CellMergePreceeding: openRow().currentDefinition().mergeWithPrevious = true; break;
    case CellVerticalMergePreceeding: openRow().currentDefinition().verticalMergeWithPrevious = true; break;
    case CellVerticalAlignTop: m_tables.setCellAlignment(QTextCharFormat::AlignTop); break;
    case CellVerticalAlignCenter: m_tables.setCellAlignment(QTextCharFormat::AlignMiddle); break;
    case CellVerticalAlignBottom: m_tables.setCellAlignment(QTextCharFormat::AlignBottom); break;
    case BackgroundPatternColor: setCellColor(n); break;
    case NoCellShading: openRow().currentDefinition().backgroundColor = QColor(); break;
    case CellBorderTop:
    case CellBorderLeft:
    case CellBorderRight:
    case CellBorderBottom: m_tables.setBordersAreOfCells(true); break;
    case TableRowBorderTop:
    case TableRowBorderLeft:
    case TableRowBorderRight:
    case TableRowBorderBottom: m_tables.setBordersAreOfCells(false); break;
    case BorderWidth: m_tables.setBorderWidth(points(n)); break;
    case SingleWidthBorder: m_tables.setBorderWidth(1.0); break;
    case BorderColor: m_tables.setBorderColor(borderColor(hasParameter, n)); break;
    case NoBorder: m_tables.clearBorder(); break;
    case EndCell:
    case EndNestedCell: endCell(); break;
    case EndRow:
    case EndNestedRow: finalizeRow(); break;
    case LastRow: m_tables.setLastRow(); break;

    // Lists
    case List:
    case ListTemplateId:
    case HybridList:
    case ListLevel:
    case ListLevelFormat:
    case ListLevelFormatNew: translateListTableWord(keyWord, n); break;
    case ListId: setListId(n); break;
    case ListTable: openDestination(ListTableGroup); break;
    case ListLevelText: openDestination(LevelTextGroup); break;
    case ListOverrideTable: openDestination(ListOverrideTableGroup); break;
    case ListOverrideItem: openListOverride(); break;
    case ListOverrideIndex: setListOverrideNumber(n); break;
    case BlockListLevel: m_paragraph.setProperty(ORVRtfProperty::ListLevel, n); break;

    // Fields and notes
    case Field: openDestination(FieldGroup); break;
    case FieldInstruction: openDestination(FieldInstructionGroup); break;
    case FieldResult: openDestination(FieldResultGroup); break;
    case AnnotationRef: openDestination(AnnotationReferenceGroup); break;
    case AnnotationRefStart: openDestination(AnnotationRangeStartGroup); break;
    case AnnotationRefEnd: openDestination(AnnotationRangeEndGroup); break;

    // Pictures
    case Picture: openPictureData(PictureGroup); break;
    case OrvellinePdf: openPictureData(EmbeddedPdfGroup); break;
    case PngData: setPictureType("PNG"); break;
    case JpegData: setPictureType("JPEG"); break;
    case WindowsMetaFile: setPictureType("WMF"); break;
    case PictureGoalWidth: m_picture.goalWidth = ORVUnit::rtfTwipsToPixels(n); break;
    case PictureGoalHeight: m_picture.goalHeight = ORVUnit::rtfTwipsToPixels(n); break;
    case PictureScaleX: m_picture.scaleX = n; break;
    case PictureScaleY: m_picture.scaleY = n; break;
    case PdfFileName: openDestination(PdfFileNameGroup); break;
    case PictureName: openDestination(NisusFileNameGroup); break;
    case MathMLEquation: openDestination(MathMLGroup); break;

    // Groups whose text is not part of the document, or repeats another part of it
    case AnnotationId:
    case AnnotationAuthor:
    case BookmarkStart:
    case BookmarkEnd:
    case NoNestTables:
    case NonShpPicture:
    case ListName:
    case ListText:
    case ListLevelMarker:
    case ListBulletPlainText:
    case ListFormatOverrideLevel:
    case StyleSheet:
    case MetaInformation: ++m_skipDepth; break;

    default: break;
    }
    return NoError;
}

/*!
    A Unicode character, followed by a fallback for programs that know none. A fallback of escaped bytes is
    counted by characters, a question mark stands for all of it, and anything else is counted by bytes.
*/
void ORVTextRtfReaderPrivate::translateUnicode(bool hasParameter, int unit)
{
    m_pendingText += hasParameter ? QChar(ushort(unit)) : QChar(ushort(missingCharacter));
    const qint64 count = qMax(0, m_state.fallbackBytes);
    const char first = m_input.charAt(0);
    if (first == '\\' && m_input.charAt(1) == '\'')
        m_input.skipBytes(count * escapedByteLength);
    else if (first == missingCharacter)
        m_input.skipBytes(1);
    else
        m_input.skipBytes(count);
}

/*!
    One character as an escaped byte. Only code pages of one byte per character can be converted; in every
    other a byte stands for a character that cannot be known.
*/
int ORVTextRtfReaderPrivate::translateHexadecimalByte()
{
    const int high = ORVRtfHexadecimal::value(m_input.charAt(0));
    const int low = ORVRtfHexadecimal::value(m_input.charAt(1));
    if (high < 0 || low < 0)
        return InvalidParameter;
    m_input.release(2);

    const char byte = char(high * 16 + low);
    const int codePage =
        m_state.codePage == ORVRtfFontTable::noCodePage ? m_documentCodePage : m_state.codePage;
    m_pendingText += unicodeFromAnsi(&byte, unsigned(codePage), 1, QChar());
    return NoError;
}

/*! Takes \a count raw bytes. They must lie within what one look-ahead fetches, and one more must follow. */
int ORVTextRtfReaderPrivate::readBinaryData(int count)
{
    if (count < 1)
        return NoError;
    bool ok = false;
    m_input.charAt(count, &ok);
    if (!ok)
        return InvalidParameter;
    m_binaryData = QByteArray(m_input.data(), count);
    m_input.release(count);
    return NoError;
}

/*! Sets a property that is a \a Value made of \a color. */
template <typename Value>
void ORVTextRtfReaderPrivate::setCharColor(int id, QRgb color)
{
    m_charFormats.set(m_state.charFormat, id, color,
                      [=](QTextCharFormat& format) { format.setProperty(id, Value(QColor(color))); });
}

/*! Back to the plain format; notes go on. */
void ORVTextRtfReaderPrivate::resetCharFormat()
{
    const bool inAnnotation = m_state.charFormat.boolProperty(InAnnotation);
    const bool inFootnote = m_state.charFormat.boolProperty(InFootnote);
    m_state.charFormat = m_plainCharFormat;
    if (inAnnotation)
        setCharProperty(InAnnotation, true);
    if (inFootnote)
        setCharProperty(InFootnote, true);
    m_state.codePage = ORVRtfFontTable::noCodePage;
    m_currentFont = m_defaultFont;
}

void ORVTextRtfReaderPrivate::setBold(bool on)
{
    int weight = QFont::Bold;
    if (!on) {
        const QString family = compat::fontFamily(m_state.charFormat);
        weight =
            family.isEmpty() ? int(QFont::Normal) : ORVTextUtil::defaultFontWeight(family, QFont::Normal);
    }
    setCharProperty(QTextFormat::FontWeight, weight);
}

/*! Outlined text is drawn by its outline alone: the colour of the text moves to the pen and back. */
void ORVTextRtfReaderPrivate::setOutline(bool on)
{
    if (on) {
        const QColor color = compat::brushColor(m_state.charFormat, QTextFormat::ForegroundBrush);
        m_state.charFormat.setTextOutline(QPen(color.isValid() ? color : QColor(Qt::black)));
        m_state.charFormat.setForeground(QBrush(Qt::transparent));
    } else {
        m_state.charFormat.setForeground(QBrush(m_state.charFormat.textOutline().color()));
        clearCharProperty(QTextFormat::TextOutline);
    }
}

void ORVTextRtfReaderPrivate::setVerticalAlignment(KeyWord word, bool on)
{
    setCharProperty(QTextFormat::TextVerticalAlignment, on ? valueOf(verticalAlignments, word) : 0);
}

void ORVTextRtfReaderPrivate::setBaselineShift(int halfPoints)
{
    setCharProperty(QTextFormat::TextVerticalAlignment, int(QTextCharFormat::AlignMiddle));
    setCharProperty(BaselineShift, halfPoints);
}

void ORVTextRtfReaderPrivate::setFontPitch(int pitch)
{
    const int fixed = 1;
    const int variable = 2;
    if (pitch == fixed || pitch == variable)
        setCharProperty(QTextFormat::FontFixedPitch, pitch == fixed);
    else
        clearCharProperty(QTextFormat::FontFixedPitch);
}

void ORVTextRtfReaderPrivate::setForegroundColor(int number)
{
    const QRgb* const color = m_colors.find(number);
    if (!color)
        return;
    if (m_state.charFormat.hasProperty(QTextFormat::TextOutline)) {
        QPen outline = m_state.charFormat.textOutline();
        outline.setColor(QColor(*color));
        m_state.charFormat.setTextOutline(outline);
    } else {
        setCharColor<QBrush>(QTextFormat::ForegroundBrush, *color);
    }
}

/*! Word processors paint a white background as colour 1 to say that there is none. */
void ORVTextRtfReaderPrivate::setBackgroundColor(int number)
{
    const QRgb* const color = m_colors.find(number);
    if (!color)
        return;
    if (number == 1 && QColor(*color) == QColor(Qt::white))
        clearCharProperty(QTextFormat::BackgroundBrush);
    else
        setCharColor<QBrush>(QTextFormat::BackgroundBrush, *color);
}

void ORVTextRtfReaderPrivate::setUnderlineColor(int number)
{
    if (const QRgb* const color = m_colors.find(number))
        setCharColor<QColor>(QTextFormat::TextUnderlineColor, *color);
}

/*! In the font table the number begins an entry, and may end the one before. */
void ORVTextRtfReaderPrivate::selectFont(int number)
{
    if (isIn(FontTableGroup)) {
        if (!m_fonts.find(m_currentFont) && !m_pendingText.isEmpty())
            setFontFamily(m_pendingText);
        m_currentFont = number;
        return;
    }
    m_currentFont = number;
    if (setFont(number))
        m_state.codePage = m_fonts.codePage(number);
}

/*! Gives text the families of a font; false where the font is not defined. */
bool ORVTextRtfReaderPrivate::setFont(int number)
{
    const ORVRtfFontTable::Font* const found = m_fonts.find(number);
    if (!found)
        return false;
    m_charFormats.set(m_state.charFormat, QTextFormat::FontFamily, found->serial,
                      [=](QTextCharFormat& format) {
                          compat::setFontFamilies(format, found->font);
                          format.setProperty(QTextFormat::FontFixedPitch, found->font.fixedPitch());
                      });
    return true;
}

void ORVTextRtfReaderPrivate::setFontCharset(int charset)
{
    if (!isIn(FontTableGroup))
        return;
    m_state.codePage = charSetToCodePage(charset);
    m_fonts.setCodePage(m_currentFont, m_state.codePage);
}

void ORVTextRtfReaderPrivate::setFontCodePage(int codePage)
{
    if (isIn(FontTableGroup))
        m_fonts.setCodePage(m_currentFont, codePage);
}

void ORVTextRtfReaderPrivate::setFontStyleHint(QFont::StyleHint hint)
{
    if (isIn(FontTableGroup))
        m_fonts.setStyleHint(hint);
}

void ORVTextRtfReaderPrivate::resetParagraph()
{
    if (isInNote())
        return;
    m_paragraph.reset();
    m_tables.beginParagraph();
}

void ORVTextRtfReaderPrivate::setBlockProperty(int id, const QVariant& value)
{
    if (!isInNote())
        m_paragraph.setProperty(id, value);
}

void ORVTextRtfReaderPrivate::clearBlockProperty(int id)
{
    if (!isInNote())
        m_paragraph.clearProperty(id);
}

void ORVTextRtfReaderPrivate::setLeftIndent(double points)
{
    if (!isInNote())
        m_paragraph.setLeftIndent(points);
}

void ORVTextRtfReaderPrivate::setTextIndent(double points)
{
    if (!isInNote())
        m_paragraph.setTextIndent(points);
}

void ORVTextRtfReaderPrivate::setRightIndent(double points)
{
    if (!isInNote())
        m_paragraph.setRightIndent(points);
}

/*! A distance from the right margin; what is stored is the position of the text edge from the left margin. */
void ORVTextRtfReaderPrivate::setRightMargin(int twips)
{
    setRightIndent((m_page.textWidth() - twips) / twipsPerPoint);
}

bool ORVTextRtfReaderPrivate::isRightToLeft() const
{
    // The direction of the characters counts, not that of the paragraph.
    return m_state.charFormat.hasProperty(QTextFormat::LayoutDirection)
        && m_state.charFormat.layoutDirection() == Qt::RightToLeft;
}

void ORVTextRtfReaderPrivate::setLeadingIndent(int twips)
{
    if (isRightToLeft())
        setRightMargin(twips);
    else
        setLevelOrLeftIndent(twips);
}

void ORVTextRtfReaderPrivate::setTrailingIndent(int twips)
{
    if (isRightToLeft())
        setLeftIndent(points(twips));
    else
        setRightMargin(twips);
}

void ORVTextRtfReaderPrivate::setLevelOrLeftIndent(int twips)
{
    if (isIn(ListTableGroup))
        m_lists.setLevelIndent(points(twips));
    else
        setLeftIndent(points(twips));
}

void ORVTextRtfReaderPrivate::setLevelOrTextIndent(int twips)
{
    if (isIn(ListTableGroup))
        m_lists.setLevelFirstLineOffset(points(twips));
    else
        setTextIndent(points(twips));
}

void ORVTextRtfReaderPrivate::setLineMultiple(int multiple)
{
    if (multiple == 1)
        setBlockProperty(LineMultiple, singleLineHeight);
    else
        clearBlockProperty(LineMultiple);
}

void ORVTextRtfReaderPrivate::endParagraph()
{
    commitBlockFormat();
    m_inserter.endBlock();
}

/*! The break is stated on the paragraph that ends, and not on the one that begins. */
void ORVTextRtfReaderPrivate::endPage()
{
    commitBlockFormat();
    QTextCursor& cursor = m_inserter.place();
    QTextBlockFormat format = cursor.blockFormat();
    const int policy = format.intProperty(QTextFormat::PageBreakPolicy);
    format.setProperty(QTextFormat::PageBreakPolicy, policy | QTextFormat::PageBreak_AlwaysAfter);
    cursor.setBlockFormat(format);
    cursor.insertBlock();
    format.setProperty(QTextFormat::PageBreakPolicy, policy & ~int(QTextFormat::PageBreak_AlwaysAfter));
    cursor.setBlockFormat(format);
}

void ORVTextRtfReaderPrivate::setTableLevel(int level)
{
    m_tables.setParagraphLevel(level);
    initializeTables(m_tables.paragraphLevel());
}

/*! The innermost open row; words that describe cells or rows open a table when there is none. */
ORVTextRtfRow& ORVTextRtfReaderPrivate::openRow()
{
    initializeTables(1);
    return m_tables.row();
}

void ORVTextRtfReaderPrivate::setCellColor(int number)
{
    ORVTextRtfRow& row = openRow();
    if (const QRgb* const color = m_colors.find(number))
        row.currentDefinition().backgroundColor = QColor(*color);
}

QColor ORVTextRtfReaderPrivate::borderColor(bool hasParameter, int number) const
{
    const QRgb* const color = hasParameter ? m_colors.find(number) : nullptr;
    return color ? QColor(*color) : defaultForegroundColor();
}

void ORVTextRtfReaderPrivate::setPictureType(const char* type)
{
    m_picture.type = QLatin1String(type);
    m_state.expectedFormat = HexadecimalData;
}

/*! Words that describe lists do so in the list table only. */
void ORVTextRtfReaderPrivate::translateListTableWord(KeyWord keyWord, int parameter)
{
    if (!isIn(ListTableGroup))
        return;
    switch (keyWord) {
    case List: m_lists.beginList(); break;
    case ListTemplateId: m_lists.setTemplateId(parameter); break;
    case HybridList: m_lists.setHybrid(); break;
    case ListLevel: m_lists.beginLevel(); break;
    default: m_lists.setLevelFormat(parameter); break;
    }
}

void ORVTextRtfReaderPrivate::setListId(int id)
{
    if (isIn(ListTableGroup))
        m_lists.setListId(id);
    else if (isIn(ListOverrideGroup))
        m_lists.setOverrideListId(id);
}

void ORVTextRtfReaderPrivate::setListOverrideNumber(int number)
{
    if (isIn(ListOverrideGroup))
        m_lists.setOverrideNumber(number);
    else if (isIn(Body))
        m_paragraph.setProperty(ListOverride, number);
}
