#include "ORVRtfPage_p.h"

#include "ORVRtfUnits_p.h"

#include <QtCore/QSizeF>
#include <QtCore/QVariant>
#include <QtGui/QTextDocument>

using namespace ORVRtfUnits;

void ORVRtfPage::setOn(QTextDocument* document) const
{
    document->setProperty("paperSize", QSizeF(points(paperWidth), points(paperHeight)));
    document->setProperty("leftMargin", points(leftMargin));
    document->setProperty("rightMargin", points(rightMargin));
    document->setProperty("topMargin", points(topMargin));
    document->setProperty("bottomMargin", points(bottomMargin));
}
