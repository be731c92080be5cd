// HTML: what a browser shows of a document, for people to read and edit.

#include <ORVHtmlWriter.h>
#include <ORVStockFormats.h>
#include <ORVTextRtf.h>

#include <QBuffer>
#include <QTextDocument>
#include <QTextStream>

int main()
{
    QTextDocument document;
    ORVTextRtf::importRtfData(
        "{\\rtf1{\\*\\pn\\pnlvlbody\\pndec\\pnstart1{\\pntxta .}}Take {\\b three} eggs\\par Beat them}",
        &document, nullptr);
    // HTML is written from the properties that Qt itself shows.
    ORVStockFormats::toStock(&document);

    QBuffer html;
    html.open(QIODevice::WriteOnly);
    ORVHtmlWriter writer(&html);
    if (!writer.write(&document)) {
        QTextStream(stderr) << writer.errorString() << '\n';
        return 1;
    }
    QByteArray body = html.data();
    body.remove(0, body.indexOf("<body>\n") + 7);
    body.truncate(body.indexOf("</body>"));
    QTextStream(stdout) << body;
    return 0;
}
