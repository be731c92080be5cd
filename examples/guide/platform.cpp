// The platform libraries: what the conversion needs of an application, for applications as well.

#include <ORVCoreUtil.h>
#include <ORVGuiUtil.h>
#include <ORVTextFormat.h>
#include <ORVTextUtil.h>
#include <ORVUnit.h>
#include <TextDocSupport.h>

#include <QGuiApplication>
#include <QImage>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextStream>

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QTextStream out(stdout);
    QTextDocument document;
    QTextCharFormat format;
    format.setFontPointSize(14);
    ORVTextFormat::setDefaultCharFormat(&document, format);
    out << "default size: " << ORVTextFormat::defaultCharFormat(&document).fontPointSize() << '\n';

    QTextCursor cursor(&document);
    cursor.insertText(QLatin1String("  Dear Ann,  "));
    cursor.select(QTextCursor::Document);
    ORVTextUtil::trim(cursor);
    out << "trimmed: \"" << document.toPlainText() << "\"\n";

    // A deep copy, resources and dynamic properties included; the caller owns it.
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    document.addResource(QTextDocument::ImageResource, QUrl(ORVGuiUtil::resourceId(image)), image);
    const QScopedPointer<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
    const QImage kept = TextDocSupport::image(copy.data(), ORVGuiUtil::resourceId(image));
    out << "picture in the copy: " << kept.width() << " x " << kept.height() << '\n';

    out << "an inch: " << ORVUnit::rtfTwipsToPixels(1440) << " pixels at " << ORVUnit::screenResolution()
        << " dpi\n";
    out << "no such font: \"" << ORVTextUtil::findBestFontFamily(QLatin1String("No Such Font")) << "\"\n";
    out << "a temporary file ends in " << ORVCoreUtil::GetNewTempFilePath(QLatin1String("rtf")).right(4)
        << '\n';
    return 0;
}
