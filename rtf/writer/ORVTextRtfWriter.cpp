#include "ORVTextRtfWriter.h"

#include "ORVRounding_p.h"
#include "ORVRtfUnits_p.h"
#include "ORVTextRtfWriter_p.h"

#include <QtCore/QSizeF>
#include <QtGui/QTextDocument>

using namespace ORVRtfUnits;

ORVTextRtfWriter::ORVTextRtfWriter() : d(new ORVTextRtfWriterPrivate) { }

ORVTextRtfWriter::ORVTextRtfWriter(QIODevice* device) : d(new ORVTextRtfWriterPrivate)
{
    setDevice(device);
}

ORVTextRtfWriter::~ORVTextRtfWriter()
{
    delete d;
}

void ORVTextRtfWriter::setDevice(QIODevice* device)
{
    d->m_output.setDevice(device);
}

QIODevice* ORVTextRtfWriter::device() const
{
    return d->m_output.device();
}

void ORVTextRtfWriter::setExportingMode(bool exportingMode)
{
    d->m_settings.exportingMode = exportingMode;
    // The output replaces the page placeholders in texts.
    d->m_output.setExportingMode(exportingMode);
}

void ORVTextRtfWriter::setParagraphBeforeTableEnded(bool ended)
{
    d->m_settings.paragraphBeforeTableEnded = ended;
}

void ORVTextRtfWriter::setHightlightForMsWord(bool highlight)
{
    d->m_settings.highlightForMsWord = highlight;
}

void ORVTextRtfWriter::setHyperlinksColor(const QColor& color)
{
    d->m_settings.hyperlinksColor = color;
}

void ORVTextRtfWriter::setDecorateHyperlinks(bool decorate)
{
    d->m_settings.decorateHyperlinks = decorate;
}

void ORVTextRtfWriter::setFootnotesWithLeadingSpace(bool leadingSpace)
{
    d->m_settings.footnotesWithLeadingSpace = leadingSpace;
}

void ORVTextRtfWriter::setFootnoteDestination(ORVTextRtf::ExportStyle destination)
{
    d->m_settings.footnoteDestination = destination;
}

ORVTextRtf::ExportStyle ORVTextRtfWriter::footnoteDestination() const
{
    return d->m_settings.footnoteDestination;
}

void ORVTextRtfWriter::setAnnotationDestination(ORVTextRtf::ExportStyle destination)
{
    d->m_settings.annotationDestination = destination;
}

ORVTextRtf::ExportStyle ORVTextRtfWriter::annotationDestination() const
{
    return d->m_settings.annotationDestination;
}

bool ORVTextRtfWriter::write(const QTextDocument* document, bool inPlace)
{
    return d->write(document, inPlace);
}

QSize ORVTextRtfWriter::defaultPaperSize(bool withoutMargins)
{
    const QSize paper(ORVTextRtfCommon::defaultPaperWidth, ORVTextRtfCommon::defaultPaperHeight);
    if (!withoutMargins)
        return paper;
    return paper
        - QSize(ORVTextRtfCommon::defaultLeftMargin + ORVTextRtfCommon::defaultRightMargin,
                ORVTextRtfCommon::defaultTopMargin + ORVTextRtfCommon::defaultBottomMargin);
}

QSize ORVTextRtfWriter::paperSizeForDocument(const QTextDocument* document)
{
    const QVariant property = document ? document->property("paperSize") : QVariant();
    if (!property.canConvert<QSizeF>())
        return defaultPaperSize(false);
    const QSizeF points = property.toSizeF();
    return QSize(ORVRounding::halfAway(points.width() * twipsPerPoint),
                 ORVRounding::halfAway(points.height() * twipsPerPoint));
}
