#include "ORVPageGeometry.h"

#include "ORVRounding_p.h"
#include "ORVRtfUnits_p.h"
#include "ORVTextRtfReader.h"

#include <QtCore/QVariant>
#include <QtCore/qnumeric.h>
#include <QtGui/QTextDocument>

using namespace ORVRtfUnits;

namespace {

// Sides of paper that can be shown, in points: half an inch, and the 22 inches of word processors four times.
const double shortestSide = 36;
const double longestSide = 6336;
// Least width and height of the text, in points.
const double leastText = 18;

double margin(const QTextDocument* document, const char* name, double missing)
{
    const QVariant property = document->property(name);
    return property.isValid() ? property.toDouble() : missing;
}

int toTwips(double points)
{
    return ORVRounding::halfAway(points * twipsPerPoint);
}

bool isUsable(double side)
{
    return side >= shortestSide && side <= longestSide;
}

double usableMargin(double margin)
{
    return qIsFinite(margin) ? qMax(0.0, margin) : 0;
}

/*! Shortens both margins of a side by the same share until text fits between them. */
void makeRoom(double side, double* before, double* after)
{
    *before = usableMargin(*before);
    *after = usableMargin(*after);
    const double room = side - leastText;
    const double margins = *before + *after;
    if (margins <= room)
        return;
    *before *= room / margins;
    *after *= room / margins;
}

} // namespace

ORVPageGeometry ORVPageGeometry::of(const QTextDocument* document)
{
    ORVPageGeometry page;
    if (!document)
        return page;
    const QVariant size = document->property("paperSize");
    if (size.canConvert<QSizeF>())
        page.paperSize = size.toSizeF();
    page.leftMargin = margin(document, "leftMargin", page.leftMargin);
    page.rightMargin = margin(document, "rightMargin", page.rightMargin);
    page.topMargin = margin(document, "topMargin", page.topMargin);
    page.bottomMargin = margin(document, "bottomMargin", page.bottomMargin);
    return page;
}

ORVPageGeometry ORVPageGeometry::fromTwips(const QSize& paper, const QMargins& margins)
{
    ORVPageGeometry page;
    page.paperSize = QSizeF(paper) / twipsPerPoint;
    page.leftMargin = points(margins.left());
    page.rightMargin = points(margins.right());
    page.topMargin = points(margins.top());
    page.bottomMargin = points(margins.bottom());
    return page;
}

ORVPageGeometry ORVPageGeometry::of(const ORVTextRtfReader& reader)
{
    const QSize paper(reader.paperWidth(), reader.paperHeight());
    const QMargins margins(reader.marginLeft(), reader.marginTop(), reader.marginRight(),
                           reader.marginBottom());
    return fromTwips(paper, margins);
}

void ORVPageGeometry::setOn(QTextDocument* document) const
{
    if (!document)
        return;
    document->setProperty("paperSize", paperSize);
    document->setProperty("leftMargin", leftMargin);
    document->setProperty("rightMargin", rightMargin);
    document->setProperty("topMargin", topMargin);
    document->setProperty("bottomMargin", bottomMargin);
}

double ORVPageGeometry::textWidth() const
{
    return (double(toTwips(paperSize.width())) - toTwips(leftMargin) - toTwips(rightMargin)) / twipsPerPoint;
}

QSizeF ORVPageGeometry::usablePaperSize() const
{
    const bool usable = isUsable(paperSize.width()) && isUsable(paperSize.height());
    return usable ? paperSize : ORVPageGeometry().paperSize;
}

QRectF ORVPageGeometry::textArea() const
{
    const QSizeF paper = usablePaperSize();
    double left = leftMargin;
    double right = rightMargin;
    double top = topMargin;
    double bottom = bottomMargin;
    makeRoom(paper.width(), &left, &right);
    makeRoom(paper.height(), &top, &bottom);
    return QRectF(left, top, paper.width() - left - right, paper.height() - top - bottom);
}
