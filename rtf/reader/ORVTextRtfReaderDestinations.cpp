#include "ORVTextRtfReader_p.h"

#include "ORVGuiUtil.h"
#include "ORVRtfFieldInstruction_p.h"
#include "ORVRtfLimits_p.h"
#include "QtFontCompat_p.h"

#include <QtCore/QUrl>
#include <QtGui/QTextDocument>
#include <QtGui/QTextImageFormat>

void ORVTextRtfReaderPrivate::openDestination(Destination destination)
{
    m_state.destination = destination;
}

void ORVTextRtfReaderPrivate::openColorTable()
{
    openDestination(ColorTableGroup);
    m_colors.beginEntry(defaultForegroundColor());
}

/*! Overrides are entries of their table only. */
void ORVTextRtfReaderPrivate::openListOverride()
{
    if (!isIn(ListOverrideTableGroup))
        return;
    openDestination(ListOverrideGroup);
    m_lists.beginOverride();
}

void ORVTextRtfReaderPrivate::openPictureData(Destination destination)
{
    openDestination(destination);
    m_state.expectedFormat = HexadecimalData;
}

/*! Adds the text to what the destination collects; any other destination has no use for text. */
void ORVTextRtfReaderPrivate::drawDestinationText()
{
    switch (m_state.destination) {
    case ColorTableGroup: drawColorTableText(); break;
    case LevelTextGroup: m_lists.appendLevelText(m_pendingText); break;
    case PdfFileNameGroup: m_pdfFileName += m_pendingText; break;
    case NisusFileNameGroup: m_picture.fileName += m_pendingText; break;
    case MathMLGroup: m_picture.mathML += m_pendingText; break;
    case FieldInstructionGroup:
        m_fieldInstruction +=
            m_pendingText.left(ORVRtfLimits::fieldInstruction - int(m_fieldInstruction.size()));
        break;
    default: break;
    }
}

/*! A semicolon ends an entry of the colour table; several in one piece of text count once. */
void ORVTextRtfReaderPrivate::drawColorTableText()
{
    if (!m_pendingText.contains(QLatin1Char(';')))
        return;
    m_colors.endEntry();
    m_colors.beginEntry(defaultForegroundColor());
}

void ORVTextRtfReaderPrivate::finalizeDestination()
{
    switch (m_state.destination) {
    case FontTableGroup: finalizeFontTable(); break;
    case ColorTableGroup: finalizeColorTable(); break;
    case LevelTextGroup: m_lists.finishLevelText(); break;
    case PictureGroup: finalizePicture(); break;
    case EmbeddedPdfGroup: m_pdfFileName.clear(); break;
    case FieldGroup: m_fieldInstruction.clear(); break;
    case FieldInstructionGroup: finalizeFieldInstruction(); break;
    default: break;
    }
    m_pendingText.resize(0);
    m_binaryData.clear();
}

/*! Completes the font that is being defined. */
void ORVTextRtfReaderPrivate::setFontFamily(const QString& name)
{
    m_fonts.define(m_currentFont, name, m_state.charFormat);
    m_pendingText.resize(0);
}

void ORVTextRtfReaderPrivate::finalizeFontTable()
{
    if (!m_pendingText.isEmpty())
        setFontFamily(m_pendingText);

    if (const ORVRtfFontTable::Font* const found = m_fonts.find(m_defaultFont)) {
        const int weight = found->font.weight();
        QTextCharFormat format = m_defaultCharFormat;
        compat::setFontFamilies(format, found->font);
        // The application stores the normal weight as 0.
        format.setProperty(QTextFormat::FontWeight, weight == QFont::Normal ? 0 : weight);
        format.setProperty(QTextFormat::FontFixedPitch, found->font.fixedPitch());
        setDefaultCharFormat(format);
    }

    // The end of one entry's group is not the end of the table.
    if (m_groups.top().destination != FontTableGroup) {
        m_currentFont = 0;
        m_state.codePage = ORVRtfFontTable::noCodePage;
    }
}

void ORVTextRtfReaderPrivate::finalizeColorTable()
{
    const QRgb* const color = m_colors.find(0);
    if (!color)
        return;
    QTextCharFormat format = m_defaultCharFormat;
    format.setForeground(QBrush(QColor(*color)));
    setDefaultCharFormat(format);
}

void ORVTextRtfReaderPrivate::finalizePicture()
{
    if (m_binaryData.isEmpty())
        return;
    const QImage image = m_picture.decode(m_binaryData);
    commitBlockFormat();
    if (!image.isNull())
        insertPicture(image, m_binaryData);
    m_picture = ORVRtfPicture();
}

/*! Inserts \a image, which was decoded from \a data, in the place of the current picture. */
void ORVTextRtfReaderPrivate::insertPicture(const QImage& image, const QByteArray& data)
{
    const QString name = ORVGuiUtil::resourceId(image);
    // A cell's own document hands its text on to the target document, but not its pictures.
    m_document->addResource(QTextDocument::ImageResource, QUrl(name), image);
    m_inserter.place().insertImage(
        m_picture.imageFormat(image, name, data, m_pictureNumber, m_state.charFormat));
    if (m_picture.fileName.isEmpty())
        ++m_pictureNumber;
}

/*!
    A link begins with the group that follows the instruction. That group is a sibling of this one, so the
    format that it inherits is the one saved for the group around both.
*/
void ORVTextRtfReaderPrivate::finalizeFieldInstruction()
{
    const QString target = ORVRtfFieldInstruction::hyperlinkTarget(m_fieldInstruction);
    if (target.isNull())
        return;
    setLink(m_state.charFormat, target);
    setLink(m_groups.top().charFormat, target);
}

void ORVTextRtfReaderPrivate::setLink(QTextCharFormat& format, const QString& target)
{
    format.setAnchor(true);
    format.setAnchorHref(target);
}
