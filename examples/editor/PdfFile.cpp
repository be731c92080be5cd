#include "PdfFile.h"

#include "FileWriting.h"
#include "PageSettings.h"
#include "PrintCopy.h"

#include <QBuffer>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QTextDocument>

namespace {

const int resolution = 600;

QByteArray toPdf(const QTextDocument& document)
{
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    const ORVPageSetup setup = PageSettings::of(document).setup();
    QPdfWriter writer(&buffer);
    writer.setResolution(resolution);
    writer.setPageSize(
        QPageSize(setup.page.usablePaperSize(), QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    const ORVPagePainter pages(PrintCopy::of(document).get(), setup, resolution);
    QPainter painter(&writer);
    for (int page = 0; page < pages.pageCount(); ++page) {
        if (page > 0)
            writer.newPage();
        pages.paintPage(&painter, page);
    }
    painter.end();
    return data;
}

} // namespace

bool PdfFile::save(const QString& fileName, const QTextDocument& document, QString* message)
{
    return FileWriting::replace(fileName, toPdf(document), message);
}
