#include "RtfImport.h"

#include <ORVPageGeometry.h>
#include <ORVTextRtfReader.h>

namespace {

const double twipsPerPoint = 20;

} // namespace

bool readRtfWithPage(ORVTextRtfReader& reader, QTextDocument* document)
{
    const bool isSound = reader.read(document);
    ORVPageGeometry page;
    page.paperSize = QSizeF(reader.paperWidth(), reader.paperHeight()) / twipsPerPoint;
    page.leftMargin = reader.marginLeft() / twipsPerPoint;
    page.rightMargin = reader.marginRight() / twipsPerPoint;
    page.topMargin = reader.marginTop() / twipsPerPoint;
    page.bottomMargin = reader.marginBottom() / twipsPerPoint;
    page.setOn(document);
    return isSound;
}
