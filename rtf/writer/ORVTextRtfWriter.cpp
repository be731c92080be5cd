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
    d->m_exportingMode = exportingMode;
    d->m_output.setExportingMode(exportingMode);
}

void ORVTextRtfWriter::setParagraphBeforeTableEnded(bool ended)
{
    d->m_paragraphBeforeTableEnded = ended;
}

void ORVTextRtfWriter::setHightlightForMsWord(bool highlight)
{
    d->m_highlightForMsWord = highlight;
}

void ORVTextRtfWriter::setHyperlinksColor(const QColor& color)
{
    d->m_hyperlinksColor = color;
}

void ORVTextRtfWriter::setDecorateHyperlinks(bool decorate)
{
    d->m_decorateHyperlinks = decorate;
}

void ORVTextRtfWriter::setFootnotesWithLeadingSpace(bool leadingSpace)
{
    d->m_footnotesWithLeadingSpace = leadingSpace;
}

void ORVTextRtfWriter::setFootnoteDestination(ORVTextRtf::ExportStyle destination)
{
    d->m_footnoteDestination = destination;
}

ORVTextRtf::ExportStyle ORVTextRtfWriter::footnoteDestination() const
{
    return d->m_footnoteDestination;
}

void ORVTextRtfWriter::setAnnotationDestination(ORVTextRtf::ExportStyle destination)
{
    d->m_annotationDestination = destination;
}

ORVTextRtf::ExportStyle ORVTextRtfWriter::annotationDestination() const
{
    return d->m_annotationDestination;
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
