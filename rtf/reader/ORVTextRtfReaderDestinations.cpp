#include "ORVGuiUtil.h"
#include "ORVRtfFieldInstruction_p.h"
#include "ORVRtfProperties.h"
#include "ORVTextFormat.h"
#include "ORVTextRtfReader_p.h"
#include "QtFontCompat_p.h"
#include "QtFormatCompat_p.h"

#include <QtCore/QUrl>
#include <QtGui/QTextDocument>
#include <QtGui/QTextImageFormat>

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

void ORVTextRtfReaderPrivate::finalizeFontTable()
{
    if (!m_pendingText.isEmpty())
        setFontFamily(m_pendingText);

    if (const ORVRtfFontTable::Font* const found = m_fonts.find(m_defaultFont)) {
        const int weight = found->font.weight();
        QTextCharFormat format = m_defaultCharFormat;
        compat::setFontFamily(format, found->family);
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
    if (m_colors.isEmpty())
        return;
    QTextCharFormat format = m_defaultCharFormat;
    format.setForeground(QBrush(QColor(m_colors.first())));
    setDefaultCharFormat(format);
}

void ORVTextRtfReaderPrivate::finalizePicture()
{
    if (m_binaryData.isEmpty())
        return;
    const QImage image = m_picture.decode(m_binaryData);
    commitBlockFormat();
    if (!image.isNull()) {
        const QString name = ORVGuiUtil::resourceId(image);
        // A cell's own document hands its text on to the target document, but not its pictures.
        m_document->addResource(QTextDocument::ImageResource, QUrl(name), image);
        m_cursor.place().insertImage(
            m_picture.imageFormat(image, name, m_binaryData, m_pictureNumber, m_state.charFormat));
        if (m_picture.fileName.isEmpty())
            ++m_pictureNumber;
    }
    m_picture = ORVRtfPicture();
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

void ORVTextRtfReaderPrivate::setDefaultCharFormat(const QTextCharFormat& format)
{
    ORVTextFormat::setDefaultCharFormat(m_document, format);
    adoptDefaultCharFormat(format);
}

/*! The plain format is the default one without colours and without what words switch on and off. */
void ORVTextRtfReaderPrivate::adoptDefaultCharFormat(const QTextCharFormat& format)
{
    static const int cleared[] = {
        QTextFormat::ForegroundBrush, QTextFormat::BackgroundBrush, QTextFormat::FontWeight,
        QTextFormat::FontItalic,      QTextFormat::FontUnderline,   QTextFormat::TextUnderlineStyle,
        QTextFormat::FontOverline,    QTextFormat::FontStrikeOut,   QTextFormat::TextOutline};
    m_defaultCharFormat = format;
    m_plainCharFormat = format;
    for (int id : cleared)
        m_plainCharFormat.clearProperty(id);
    m_plainCharFormat.setFontStrikeOut(false);
    m_plainCharFormat.setFontOverline(false);
    m_isPlainInAnnotation = m_plainCharFormat.boolProperty(ORVRtfProperty::InAnnotation);
    m_isPlainInFootnote = m_plainCharFormat.boolProperty(ORVRtfProperty::InFootnote);
}

/*! Invalid when the default format names no colour. */
QColor ORVTextRtfReaderPrivate::defaultForegroundColor() const
{
    return compat::brushColor(m_defaultCharFormat, QTextFormat::ForegroundBrush);
}
