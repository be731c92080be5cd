#include "ORVRtfCodePages_p.h"
#include "ORVRtfInterchangeReader_p.h"

#include "ORVRtfLimits_p.h"
#include "ORVUnit.h"

#include <limits>
#include <utility>

namespace {

// The property of a drawn object that is its picture; others fill it or its lines.
const char shapePicture[] = "pib";

} // namespace

/*! The end of a font's name. */
void ORVRtfInterchangeReader::setFontFamily(const QString& name)
{
    QString family = name.trimmed();
    if (family.endsWith(QLatin1Char(';')))
        family.chop(1);
    const int codePage = m_fonts.codePage(m_currentFont);
    int symbolFont = ORVRtfSymbolFonts::find(family);
    if (symbolFont == ORVRtfSymbolFonts::none && codePage == ORVRtfCodePages::symbols)
        symbolFont = ORVRtfSymbolFonts::unknown;
    if (symbolFont != ORVRtfSymbolFonts::none && m_symbolFonts.size() < ORVRtfLimits::fonts)
        m_symbolFonts.insert(m_currentFont, symbolFont);
    else if (codePage == ORVRtfFontTable::noCodePage)
        m_fonts.setCodePage(m_currentFont, ORVRtfCodePages::ofFontName(family));
    ORVTextRtfReaderPrivate::setFontFamily(name);
}

/*! The name of a font can stand on both sides of the alternative. */
void ORVRtfInterchangeReader::beginAlternativeFont()
{
    if (!isIn(FontTableGroup)) {
        ++m_skipDepth;
        return;
    }
    giveUpCharacter();
    m_fontName = m_pendingText.left(ORVRtfLimits::bookmarkName);
    m_pendingText.resize(0);
    m_alternativeFont.clear();
    openDestination(Destination(AlternativeFontGroup));
}

/*! The group ends, and with it the destination that it opened. */
void ORVRtfInterchangeReader::endOwnDestination()
{
    giveUpCharacter();
    endListDestination();
    if (isIn(PictureGroup))
        endPicture();
    else if (isIn(FieldGroup))
        endField();
    else if (isIn(Destination(ShapeGroup)))
        m_isShapeShown = std::exchange(m_isPictureShown, false);
    else if (isIn(Destination(AlternativeFontGroup))) {
        m_fonts.setAlternative(m_alternativeFont);
        m_textBehindGroup = m_fontName;
    } else
        endDocumentDestination();
}

void ORVRtfInterchangeReader::drawDestinationText()
{
    if (drawListText())
        return;
    const auto append = [this](QString& text, int most) {
        text += m_pendingText.left(most - int(text.size()));
    };
    switch (int(m_state.destination)) {
    case ShapePropertyNameGroup: append(m_shapeProperty, ORVRtfLimits::bookmarkName); break;
    case InformationTextGroup: m_information.append(m_informationText, m_pendingText); break;
    case AlternativeFontGroup: append(m_alternativeFont, ORVRtfLimits::bookmarkName); break;
    case BookmarkNameGroup: append(m_bookmark, ORVRtfLimits::bookmarkName); break;
    case CommentAuthorGroup: append(m_commentAuthor, ORVRtfLimits::informationText); break;
    case CommentInitialsGroup: append(m_commentInitials, ORVRtfLimits::informationText); break;
    case CommentDateGroup: append(m_commentDate, ORVRtfLimits::bookmarkName); break;
    default: ORVTextRtfReaderPrivate::drawDestinationText(); break;
    }
}

void ORVRtfInterchangeReader::beginShape()
{
    openDestination(Destination(ShapeGroup));
    m_shapeBox = {};
}

void ORVRtfInterchangeReader::beginPicture()
{
    if (isIn(Destination(ShapeGroup)) && m_shapeProperty != QLatin1String(shapePicture)) {
        ++m_skipDepth;
        return;
    }
    if (isIn(PictureGroup))
        endPicture();
    m_isPictureOfShape = isIn(Destination(ShapeGroup));
    openDestination(PictureGroup);
    m_pictureData = ORVRtfPictureData();
}

void ORVRtfInterchangeReader::endPicture()
{
    const QByteArray file = m_pictureData.file();
    const QImage image = file.isEmpty() ? QImage() : m_pictureData.cropped(m_picture.decode(file));
    if (!image.isNull() && isShown()) {
        if (m_pictureData.isCropped()) {
            // What the file holds is not what is shown.
            m_picture.type = QLatin1String("PNG");
            m_picture.goalWidth -= m_pictureData.croppedWidth();
            m_picture.goalHeight -= m_pictureData.croppedHeight();
        }
        if (m_isPictureOfShape)
            fitIntoShape();
        commitBlockFormat();
        setAnchorNames(m_state.charFormat);
        insertPicture(image, file);
        m_text.hasShownText = true;
        m_text.raisedText.clear();
        m_isPictureShown = true;
    }
    m_picture = ORVRtfPicture();
    m_pictureData = ORVRtfPictureData();
}

/*! A floating picture fills its box, whatever size it states itself. */
void ORVRtfInterchangeReader::fitIntoShape()
{
    const qint64 width = qint64(m_shapeBox.right) - m_shapeBox.left;
    const qint64 height = qint64(m_shapeBox.bottom) - m_shapeBox.top;
    const int longest = std::numeric_limits<qint16>::max();
    if (width <= 0 || height <= 0 || width > longest || height > longest)
        return;
    m_picture.goalWidth = ORVUnit::rtfTwipsToPixels(int(width));
    m_picture.goalHeight = ORVUnit::rtfTwipsToPixels(int(height));
    m_picture.scaleX = -1;
    m_picture.scaleY = -1;
}
