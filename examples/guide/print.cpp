// Pages: the one that the file states, and painting them, for a printer, a preview or a picture.

#include <ORVPageGeometry.h>
#include <ORVPagePainter.h>
#include <ORVStockFormats.h>
#include <ORVTextRtfReader.h>

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTextDocument>
#include <QTextStream>

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    QGuiApplication application(argc, argv);
    QTextStream out(stdout);
    QFile file(QString::fromLocal8Bit(argv[1]));
    QTextDocument document;
    ORVTextRtfReader reader(&file);
    reader.read(&document);
    out << "paper: " << reader.paperWidth() << " x " << reader.paperHeight() << " twips\n";
    out << "left margin: " << reader.marginLeft() << " twips\n";

    // Properties of the document, from which the writer takes the page as well.
    ORVPageGeometry::of(reader).setOn(&document);

    ORVPageSetup setup = ORVPageSetup::of(&document);
    setup.footer.text = QString::fromLatin1("<$p> / <$pagecount>");
    setup.footer.alignment = Qt::AlignHCenter;
    ORVStockFormats::toStock(&document);

    const int resolution = 96; // pixels to the inch
    const ORVPagePainter pages(&document, setup, resolution);
    QImage image(560, 793, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    pages.paintPage(&painter, 0);
    painter.end();
    out << pages.pageCount() << " page\n";
    return image.save(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
}
