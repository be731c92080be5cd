#include "RtfExport.h"

#include <ORVTextRtfWriter.h>

#include <QBuffer>

QByteArray documentToRtf(const QTextDocument& document, const RtfExportOptions& options)
{
    QByteArray data;
    QBuffer buffer(&data);
    ORVTextRtfWriter writer(&buffer);
    writer.setExportingMode(!options.storage);
    writer.setFootnotesWithLeadingSpace(!options.storage);
    writer.setHightlightForMsWord(options.msWordHighlight);
    writer.setDecorateHyperlinks(options.decorateLinks);
    writer.setFootnoteDestination(options.footnotes);
    writer.setAnnotationDestination(options.annotations);
    writer.write(&document, true);
    return data;
}
