#include "ORVTextRtfWriter_p.h"

#include "ORVGuiUtil.h"
#include "ORVRounding_p.h"
#include "ORVRtfPictureKind_p.h"
#include "ORVRtfProperties.h"
#include "ORVRtfWordValues_p.h"
#include "ORVTextFormat.h"
#include "ORVUnit.h"
#include "QtStringCompat_p.h"
#include "TextDocSupport.h"

#include <QtGui/QImage>
#include <QtGui/QTextImageFormat>

#include <limits>

using namespace ORVRtfProperty;

namespace {

// The application recognises its formulas by this prefix of the file name.
const char pdfNamePrefix[] = "MathTypeEdEq";

/*! \a value as text. Bytes are UTF-8 if they are valid UTF-8, else Latin-1. */
QString toText(const QVariant& value)
{
    if (value.userType() != QMetaType::QByteArray)
        return value.toString();
    const QByteArray bytes = value.toByteArray();
    const QString text = compat::fromUtf8(bytes);
    return text.toUtf8() == bytes ? text : compat::fromLatin1(bytes);
}

QString pdfFileName(const QTextImageFormat& format)
{
    const QLatin1String prefix(pdfNamePrefix);
    const QString name = toText(format.property(ORVRtfProperty::PdfFileName));
    return name.startsWith(prefix) ? name : prefix + name;
}

} // namespace

void ORVTextRtfWriterPrivate::writePicture(const QTextImageFormat& format)
{
    writePicturePosition(format);
    QString name = ORVTextFormat::imageName(format);
    // Resource paths of Qt are no URLs, which is what documents look pictures up by.
    if (name.startsWith(QLatin1String(":/")))
        name.prepend(QLatin1String("qrc"));
    const QImage image = TextDocSupport::image(m_text.document(), name);
    if (image.isNull())
        return;
    if (!format.property(PdfData).toByteArray().isEmpty())
        writeEmbeddedPdf(format);
    else
        writePictureData(format, image);
}

void ORVTextRtfWriterPrivate::writePicturePosition(const QTextImageFormat& format)
{
    if (format.hasProperty(BaselineShift) && format.hasProperty(ORVRtfProperty::PdfFileName)) {
        const int shift = qMax(-std::numeric_limits<int>::max(), format.property(BaselineShift).toInt());
        m_output.write(shift < 0 ? TextDown : TextUp, qAbs(shift));
    } else if (const KeyWord word =
                   ORVRtfWordValues::wordOf(ORVRtfWordValues::verticalAlignments,
                                            format.property(QTextFormat::TextVerticalAlignment).toInt())) {
        m_output.write(word);
    }
    m_output.endKeyword();
}

void ORVTextRtfWriterPrivate::writeEmbeddedPdf(const QTextImageFormat& format)
{
    m_output.openIgnorableGroup(OrvellinePdf);
    m_output.endKeyword();
    m_output.openGroup();
    writeTextGroup(PdfFileName, pdfFileName(format));
    m_output.writeHexadecimalCharacters(format.property(PdfData).toByteArray());
    m_output.closeGroup();
    m_output.closeGroup();
}

void ORVTextRtfWriterPrivate::writePictureData(const QTextImageFormat& format, const QImage& image)
{
    m_output.openIgnorableGroup(ShpPicture);
    m_output.openGroup();
    m_output.write(Picture);
    writeTextGroup(PictureName, ORVTextFormat::imageName(format));
    if (format.hasProperty(MathML))
        writeTextGroup(MathMLEquation, format.property(MathML).toString());
    m_output.write(PictureWidth, image.width());
    m_output.write(PictureHeight, image.height());
    m_output.write(PictureGoalWidth, ORVUnit::rtfPixelsToTwips(ORVRounding::truncated(format.width())));
    m_output.write(PictureGoalHeight, ORVUnit::rtfPixelsToTwips(ORVRounding::truncated(format.height())));

    // Encoding a JPEG again would lose quality.
    QByteArray data;
    if (ORVRtfPictureKind::isJpeg(format.property(ImageType).toString()))
        data = format.property(SourceImageData).toByteArray();
    m_output.write(data.isEmpty() ? PngData : JpegData);
    m_output.endKeyword();
    if (data.isEmpty())
        data = ORVGuiUtil::toByteArray(image, "PNG", -1);
    m_output.writeHexadecimalCharacters(data);
    m_output.closeGroup();
    m_output.closeGroup();
}
