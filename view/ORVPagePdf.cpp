#include "ORVPagePdf.h"

#include <QtCore/QBuffer>
#include <QtCore/QMarginsF>
#include <QtGui/QPageSize>
#include <QtGui/QPainter>
#include <QtGui/QPdfWriter>
#include <QtGui/QTextDocument>

namespace {

// Pixels to the inch that places in the file are rounded to.
const int resolution = 600;

void setUp(QPdfWriter* writer, const QSizeF& paper)
{
    writer->setResolution(resolution);
    writer->setPageSize(QPageSize(paper, QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer->setPageMargins(QMarginsF());
}

bool paintPages(QPdfWriter* writer, const ORVPagePainter& pages)
{
    QPainter painter;
    if (!painter.begin(writer))
        return false;
    for (int page = 0; page < pages.pageCount(); ++page) {
        if (page > 0 && !writer->newPage())
            return false;
        pages.paintPage(&painter, page);
    }
    return painter.end();
}

} // namespace

QByteArray ORVPagePdf::make(const QTextDocument* document, const ORVPageSetup& setup, const QString& creator)
{
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    setUp(&writer, setup.page.usablePaperSize());
    writer.setCreator(creator);
    if (document)
        writer.setTitle(document->metaInformation(QTextDocument::DocumentTitle));
    return paintPages(&writer, ORVPagePainter(document, setup, resolution)) ? data : QByteArray();
}
