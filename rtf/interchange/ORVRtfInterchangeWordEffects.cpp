#include "ORVRtfCodePages_p.h"
#include "ORVRtfHexadecimal_p.h"
#include "ORVRtfInterchangeReader_p.h"
#include "ORVRtfProperties.h"
#include "ORVRtfUnits_p.h"
#include "QtStringCompat_p.h"

#include <cstring>

using namespace ORVRtfUnits;

namespace Words = ORVRtfInterchangeWords;

namespace {

// Escaped bytes that are decoded together.
const int escapedRun = 256;

// "\'" and two digits.
const int escapedLength = 4;

bool isEscapedByte(const char* text)
{
    return std::memcmp(text, "\\'", 2) == 0 && ORVRtfHexadecimal::byte(text + 2) >= 0;
}

struct Unescaped {
    int bytes;
    int used;
};

/*! Takes up to \a limit bytes, plain or escaped, from the \a length bytes at \a text, to \a bytes. */
Unescaped unescape(const char* text, int length, char* bytes, int limit)
{
    const char* const end = text + length;
    const char* in = text;
    char* out = bytes;
    char* const outEnd = bytes + limit;
    for (;;) {
        auto most = qMin(outEnd - out, (end - in) / escapedLength);
        for (; most > 0 && isEscapedByte(in); --most, in += escapedLength)
            *out++ = char(ORVRtfHexadecimal::byte(in + 2));
        if (out == outEnd || in == end || ORVRtfInput::isSpecial(*in))
            break;
        *out++ = *in++;
    }
    return {int(out - bytes), int(in - text)};
}

/*! Words that add text or end it, so that a character whose last bytes are missing is given up. */
bool endsCharacter(ORVTextRtfCommon::KeyWord keyWord)
{
    switch (keyWord) {
    case ORVTextRtfCommon::TabCharacter:
    case ORVTextRtfCommon::SoftLineBreak:
    case ORVTextRtfCommon::NonBreakableSpace:
    case ORVTextRtfCommon::EnDash:
    case ORVTextRtfCommon::EmDash:
    case ORVTextRtfCommon::Bullet:
    case ORVTextRtfCommon::LeftQuote:
    case ORVTextRtfCommon::RightQuote:
    case ORVTextRtfCommon::LeftDoubleQuote:
    case ORVTextRtfCommon::RightDoubleQuote:
    case ORVTextRtfCommon::NewPage:
    case ORVTextRtfCommon::EndCell:
    case ORVTextRtfCommon::EndNestedCell:
    case ORVTextRtfCommon::EndRow:
    case ORVTextRtfCommon::EndNestedRow: return true;
    default: return false;
    }
}

} // namespace

int ORVRtfInterchangeReader::translateControlWord(KeyWord keyWord, bool hasParameter, int parameter)
{
    if (m_decoder.isWithinCharacter() && endsCharacter(keyWord))
        giveUpCharacter();
    if (translateListWord(keyWord, parameter) || translateTableWord(keyWord, hasParameter, parameter)
        || translateDocumentWord(keyWord, parameter) || translateFormatWord(keyWord, hasParameter, parameter)
        || translateParagraphWord(keyWord, parameter))
        return NoError;
    switch (keyWord) {
    // Encoding
    case AnsiCodePage: setDocumentCodePage(parameter); break;
    case FontCharSet:
        if (m_currentFont != m_fontWithStatedPage || !isIn(FontTableGroup))
            setFontCodePage(ORVRtfCodePages::ofCharset(parameter));
        break;
    case CodePage: setStatedCodePage(parameter); break;

    // Text
    case ExtendedCharacterValue: return translateEscapedBytes();
    case UnicodeCharacterValue: translateUnicodeUnit(hasParameter, parameter); break;
    case OptionalHyphen: appendCharacter(QChar::SoftHyphen); break;
    case NonBreakingHyphen: appendCharacter(0x2011); break;
    case EscapedSlash: appendBytes("\\", 1); break;
    case EscapedOpenBrace: appendBytes("{", 1); break;
    case EscapedCloseBrace: appendBytes("}", 1); break;
    case NewParagraph:
    case NewParagraphSymbol: endShownParagraph(); break;
    case NewPage: endAtBreak(&ORVRtfInterchangeReader::endShownPage); break;

    // Pictures and fields
    case Picture: beginPicture(); break;
    case ShpPicture: m_isPictureShown = false; break;
    case NonShpPicture:
        if (m_isPictureShown)
            ++m_skipDepth;
        m_isPictureShown = false;
        break;
    case PictureGoalWidth:
        m_pictureData.goalWidth = parameter;
        return ORVTextRtfReaderPrivate::translateControlWord(keyWord, hasParameter, parameter);
    case PictureGoalHeight:
        m_pictureData.goalHeight = parameter;
        return ORVTextRtfReaderPrivate::translateControlWord(keyWord, hasParameter, parameter);
    case PictureWidth: m_pictureData.bitmap.size.setWidth(parameter); break;
    case PictureHeight: m_pictureData.bitmap.size.setHeight(parameter); break;
    case Field: beginField(); break;
    case FieldResult: beginFieldResult(); break;
    case ListText: beginListText(); break;
    default: return ORVTextRtfReaderPrivate::translateControlWord(keyWord, hasParameter, parameter);
    }
    return NoError;
}

int ORVRtfInterchangeReader::translatePrivateWord(Words::Word word, bool hasParameter, int parameter)
{
    if (translatePrivateListWord(word, parameter) || translatePrivateTableWord(word, parameter)
        || translatePrivateFormatWord(word, hasParameter, parameter)
        || translatePrivateParagraphWord(word, hasParameter, parameter))
        return NoError;
    const bool on = !hasParameter || parameter != 0;
    switch (word) {
    case Words::None:
    case Words::WordCount: break;

    case Words::Mac: setSystemCodePage(10000); break;
    case Words::Pc: setSystemCodePage(437); break;
    case Words::Pca: setSystemCodePage(850); break;

    case Words::EmSpace: appendCharacter(0x2003); break;
    case Words::EnSpace: appendCharacter(0x2002); break;
    case Words::QuarterSpace: appendCharacter(0x2005); break;
    case Words::ZeroWidthJoiner: appendCharacter(0x200D); break;
    case Words::ZeroWidthNonJoiner: appendCharacter(0x200C); break;
    case Words::ZeroWidthBreak: appendCharacter(0x200B); break;
    case Words::ZeroWidthNoBreak: appendCharacter(0x2060); break;
    case Words::LeftToRightMark: appendCharacter(0x200E); break;
    case Words::RightToLeftMark: appendCharacter(0x200F); break;
    case Words::CarriageReturn: endShownParagraph(); break;

    case Words::Hidden: m_own.isHidden = on; break;
    case Words::Deleted: m_own.isDeleted = on; break;
    case Words::IndexEntry:
    case Words::IndexRange:
    case Words::IndexText:
    case Words::IndexNumber:
    case Words::ContentsEntry:
    case Words::FootnoteSeparator:
    case Words::ContinuedFootnoteSeparator:
    case Words::FootnoteNotice:
    case Words::EndnoteSeparator:
    case Words::ContinuedEndnoteSeparator:
    case Words::EndnoteNotice:
    case Words::Private: ++m_skipDepth; break;

    case Words::DeviceIndependentBitmap:
        m_pictureData.kind = ORVRtfPictureData::DeviceIndependentBitmap;
        break;
    case Words::DeviceBitmap: m_pictureData.kind = ORVRtfPictureData::DeviceBitmap; break;
    case Words::BitmapBitsPerPixel: m_pictureData.bitmap.bitsPerPixel = parameter; break;
    case Words::BitmapPlanes: m_pictureData.bitmap.planes = parameter; break;
    case Words::BitmapRowBytes: m_pictureData.bitmap.rowBytes = parameter; break;
    case Words::EnhancedMetafile: m_picture.type = QLatin1String("EMF"); break;
    case Words::MacPicture:
    case Words::PmMetafile: break;
    case Words::CropLeft: m_pictureData.cropLeft = parameter; break;
    case Words::CropTop: m_pictureData.cropTop = parameter; break;
    case Words::CropRight: m_pictureData.cropRight = parameter; break;
    case Words::CropBottom: m_pictureData.cropBottom = parameter; break;

    case Words::ShapeInstance: beginShape(); break;
    case Words::ShapeLeft: m_shapeBox.left = parameter; break;
    case Words::ShapeTop: m_shapeBox.top = parameter; break;
    case Words::ShapeRight: m_shapeBox.right = parameter; break;
    case Words::ShapeBottom: m_shapeBox.bottom = parameter; break;
    case Words::ShapeResult:
        if (m_isShapeShown)
            ++m_skipDepth;
        break;
    case Words::DrawnObject: beginShape(); break;
    case Words::ShapeText:
    case Words::DrawnText: beginStory(ORVRtfStory::TextBox); break;
    case Words::ShapeProperty: m_shapeProperty.clear(); break;
    case Words::ShapePropertyName: openDestination(Destination(ShapePropertyNameGroup)); break;

    case Words::AlternativeFont: beginAlternativeFont(); break;
    case Words::FormField: openDestination(Destination(FormFieldGroup)); break;
    case Words::FormFieldResult: m_text.field.formResult = parameter; break;
    case Words::FormFieldDefault: m_text.field.formDefault = parameter; break;
    default: translatePrivateDocumentWord(word, parameter); break;
    }
    return NoError;
}

/*! The byte whose two digits stand at the read position; negative where others stand there. */
int ORVRtfInterchangeReader::escapedByte()
{
    m_input.charAt(1);
    return m_input.available() < 2 ? -1 : ORVRtfHexadecimal::byte(m_input.data());
}

/*!
    The byte whose digits stand at the read position, and the text that follows it up to another control word,
    a brace or a line end: the words of most languages are escaped byte by byte, with plain blanks between.
*/
int ORVRtfInterchangeReader::translateEscapedBytes()
{
    const int first = escapedByte();
    if (first < 0)
        return InvalidParameter;
    m_input.release(2);
    char bytes[escapedRun] = {char(first)};
    int count = 1;
    int used = 0;
    do {
        // One more escaped byte at least.
        m_input.charAt(3);
        const int limit = m_state.expectedFormat == TextData ? escapedRun - count : 0;
        const Unescaped text = unescape(m_input.data(), m_input.available(), bytes + count, limit);
        count += text.bytes;
        used = text.used;
        m_input.release(used);
    } while (used > 0);
    appendBytes(bytes, count);
    return NoError;
}

/*! A UTF-16 unit, and a fallback for programs that know none, counted in characters. */
void ORVRtfInterchangeReader::translateUnicodeUnit(bool hasParameter, int unit)
{
    m_fallback = qMax(0, m_state.fallbackBytes);
    if (!hasParameter)
        return;
    // Units are signed 16 bit numbers; some programs write greater ones, beyond the first plane.
    const char32_t character = unit < 0 ? ushort(unit) : char32_t(unit);
    if (m_own.symbolFont != ORVRtfSymbolFonts::none && isInBodyText()
        && ORVRtfSymbolFonts::isPrivateCharacter(character))
        appendSymbol(uchar(character & 0xFF));
    else
        appendCharacter(character <= 0xFFFF || compat::isCharacter(character) ? character : 0xFFFD);
}

/*! The end of a paragraph of which nothing is seen is not seen either. */
void ORVRtfInterchangeReader::endShownParagraph()
{
    if (!hasParagraphs()) {
        if (isIn(Destination(InformationTextGroup)))
            m_pendingText += QChar(QChar::LineSeparator);
        return;
    }
    giveUpCharacter();
    appendBoxes();
    if (isShown() || m_text.hasShownText) {
        const bool isRuler = beginRuler();
        endParagraph();
        if (isRuler)
            endRuler();
        m_text.oldList.endParagraph(m_paragraph);
    }
    m_text.hasShownText = false;
    m_text.raisedText.clear();
}

void ORVRtfInterchangeReader::endShownPage()
{
    if (!hasParagraphs() || !isShown())
        return;
    appendBoxes();
    endPage();
    m_text.hasShownText = false;
    m_text.raisedText.clear();
}

/*!
    Calls \a end, which ends the paragraph at a break. An empty one is neither list item nor heading and begins no
    page: word processors take the break for the beginning of the next paragraph, and a label would shift the
    numbers of all later items.
*/
void ORVRtfInterchangeReader::endAtBreak(void (ORVRtfInterchangeReader::*end)())
{
    giveUpCharacter();
    if (m_text.hasShownText) {
        (this->*end)();
        return;
    }
    const ORVRtfParagraph paragraph = m_paragraph;
    const ORVRtfOldList oldList = m_text.oldList;
    m_paragraph.clearProperty(ORVRtfProperty::ListOverride);
    m_paragraph.clearProperty(ORVRtfProperty::ListLevel);
    m_paragraph.clearProperty(QTextFormat::PageBreakPolicy);
    m_paragraph.setHeadingLevel(0);
    (this->*end)();
    m_paragraph = paragraph;
    m_text.oldList = oldList;
}

/*! The page of a font by its number, which counts more than its character set. */
void ORVRtfInterchangeReader::setStatedCodePage(int codePage)
{
    const int supported = ORVRtfCodePages::supported(codePage);
    if (!isIn(FontTableGroup) || supported == ORVRtfCodePages::unknown)
        return;
    setFontCodePage(supported);
    m_fontWithStatedPage = m_currentFont;
}

/*! Sets the page of the font that is being defined, and of its name. */
void ORVRtfInterchangeReader::setFontCodePage(int codePage)
{
    if (!isIn(FontTableGroup))
        return;
    m_state.codePage = ORVRtfCodePages::supported(codePage);
    m_fonts.setCodePage(m_currentFont, m_state.codePage);
}

void ORVRtfInterchangeReader::setDocumentCodePage(int codePage)
{
    const int supported = ORVRtfCodePages::supported(codePage);
    if (supported == ORVRtfCodePages::unknown)
        return;
    m_documentCodePage = supported;
    m_isDocumentCodePageStated = true;
}

void ORVRtfInterchangeReader::setSystemCodePage(int codePage)
{
    if (!m_isDocumentCodePageStated)
        m_documentCodePage = codePage;
}
