#include "ORVPagePdf.h"

#include <QtCore/QBuffer>
#include <QtCore/QMarginsF>
#include <QtGui/QPageSize>
#include <QtGui/QPainter>
#include <QtGui/QPdfWriter>
#include <QtGui/QTextDocument>

namespace {

// Pixels to the inch that places in the file are rounded to.
const int usualResolution = 600;

void setUp(QPdfWriter* writer, const ORVPagePainter& pages)
{
    writer->setResolution(pages.resolution());
    writer->setPageSize(QPageSize(pages.paperSize(), QPageSize::Point, QString(), QPageSize::ExactMatch));
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
    const QString title = document ? document->metaInformation(QTextDocument::DocumentTitle) : QString();
    return make(ORVPagePainter(document, setup, usualResolution), title, creator);
}

QByteArray ORVPagePdf::make(const ORVPagePainter& pages, const QString& title, const QString& creator)
{
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    setUp(&writer, pages);
    writer.setCreator(creator);
    writer.setTitle(title);
    return paintPages(&writer, pages) ? data : QByteArray();
}
