#include "PageExport.h"

#include "Interruption.h"
#include "Messages.h"
#include "PdfNavigation.h"
#include "Streams.h"
#include "VisibleDocument.h"
#include "WrittenFiles.h"

#include <ORVPagePainter.h>
#include <ORVPagePdf.h>

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QTextDocument>

namespace {

// Pixels to the inch; places in PDF files are rounded to them.
const int pictureResolution = 96;
const int pdfResolution = 600;

/*! Other files than RTF state no page: theirs is A4. */
ORVPageSetup pageSetup(const QTextDocument& document)
{
    ORVPageSetup setup = ORVPageSetup::of(&document);
    if (!document.property("paperSize").isValid())
        setup.page.paperSize = QPageSize(QPageSize::A4).size(QPageSize::Point);
    return setup;
}

/*! The file for the page \a number, counted from 1. */
QString picturePath(const QString& firstPath, int number)
{
    if (number == 1)
        return firstPath;
    const QString suffix = QLatin1String(".png");
    const bool hasSuffix = firstPath.endsWith(suffix, Qt::CaseInsensitive);
    QString path = firstPath;
    return path.insert(firstPath.size() - (hasSuffix ? suffix.size() : 0),
                       QString::fromLatin1("-%1").arg(number));
}

/*! The page as a file of PNG; empty when there is no memory for it. */
QByteArray picture(const ORVPagePainter& pages, const QSize& size, int page)
{
    const int dotsPerMeter = qRound(pictureResolution / 0.0254);
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        return QByteArray();
    image.setDotsPerMeterX(dotsPerMeter);
    image.setDotsPerMeterY(dotsPerMeter);
    image.fill(Qt::white);
    QPainter painter(&image);
    pages.paintPage(&painter, page);
    painter.end();
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "PNG") ? data : QByteArray();
}

bool writePicture(const QByteArray& data, const QString& path, QString* errorString)
{
    if (!data.isEmpty())
        return writeOutput(path, data, errorString);
    *errorString = Messages::tr("the picture cannot be made");
    return false;
}

/*! Whether both are one file that exists. */
bool isSameExistingFile(const QString& path, const QString& otherPath)
{
    const QString file = QFileInfo(path).canonicalFilePath();
    return !file.isEmpty() && file == QFileInfo(otherPath).canonicalFilePath();
}

/*! The first of \a pageCount pictures that would take the place of \a input; empty when none would. */
QString overwritingPicture(const QString& firstPath, int pageCount, const QString& input)
{
    for (int number = 1; number <= pageCount; ++number) {
        QString path = picturePath(firstPath, number);
        if (isSameExistingFile(path, input))
            return path;
    }
    return QString();
}

/*! False when one cannot be written, and on an interruption, which then ends the program. */
bool writePictures(const ORVPagePainter& pages, const QSize& size, QString* path, QString* errorString)
{
    const InterruptionBlock block;
    WrittenFiles written;
    const QString firstPath = *path;
    for (int page = 0; page < pages.pageCount(); ++page) {
        *path = picturePath(firstPath, page + 1);
        if (InterruptionBlock::isInterrupted()
            || !writePicture(picture(pages, size, page), *path, errorString))
            return false;
        written.add(*path);
    }
    written.keep();
    return true;
}

} // namespace

QByteArray documentToPdf(QTextDocument& document)
{
    makePicturesVisible(document);
    const ORVPagePainter pages(&document, pageSetup(document), pdfResolution);
    const QByteArray pdf = ORVPagePdf::make(pages, document.metaInformation(QTextDocument::DocumentTitle),
                                            QLatin1String("orvrtf"));
    return withNavigation(pdf, pages, document);
}

bool writePagePictures(QTextDocument& document, const QString& input, QString* path, QString* errorString)
{
    makePicturesVisible(document);
    const ORVPageSetup setup = pageSetup(document);
    const QSize size = (setup.page.usablePaperSize() * pictureResolution / 72).toSize();
    const ORVPagePainter pages(&document, setup, pictureResolution);
    const QString overwriting = overwritingPicture(*path, pages.pageCount(), input);
    if (overwriting.isEmpty())
        return writePictures(pages, size, path, errorString);
    *path = overwriting;
    *errorString = Messages::tr("it is the input");
    return false;
}
