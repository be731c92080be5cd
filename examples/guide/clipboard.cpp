// The clipboard, and drag and drop: what goes on a QMimeData, and what comes from it.

#include <ORV.h>
#include <ORVTextRtf.h>

#include <QMimeData>
#include <QTextDocument>
#include <QTextStream>

int main()
{
    QTextStream out(stdout);
    QTextDocument document;
    document.setHtml(QLatin1String("<p>Take <b>three</b> eggs</p>"));

    // To QClipboard::setMimeData() or a QDrag: RTF for word processors, and the application's own flavour.
    QMimeData mime;
    ORVTextRtf::setRtfMimeData(&mime, &document);
    ORVTextRtf::setOrvellineMarkupRtfMimeData(&mime, &document, false);
    out << mime.formats().join(QLatin1Char('\n')) << '\n';

    // From QClipboard::mimeData() or a drop: the own flavour first, as nothing is lost in it.
    QTextDocument pasted;
    if (ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, &pasted)
        || (ORVTextRtf::hasRtfMimeData(&mime) && ORVTextRtf::importRtfMimeData(&mime, &pasted)))
        out << "pasted: " << pasted.toPlainText() << '\n';

    // One type by name.
    if (ORVTextRtf::parseRtfMimeData(ORV::rtfMimeTypes().first(), &mime, &pasted))
        out << "as " << ORV::rtfMimeTypes().first() << ": " << pasted.toPlainText() << '\n';
    return 0;
}
