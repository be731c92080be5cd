#include "RtfImport.h"

#include <ORVPageGeometry.h>
#include <ORVTextRtfReader.h>

bool readRtfWithPage(ORVTextRtfReader& reader, QTextDocument* document)
{
    const bool isSound = reader.read(document);
    const ORVPageGeometry page = ORVPageGeometry::fromTwips(
        QSize(reader.paperWidth(), reader.paperHeight()),
        QMargins(reader.marginLeft(), reader.marginTop(), reader.marginRight(), reader.marginBottom()));
    page.setOn(document);
    return isSound;
}
