// Markdown: text with as little markup as it needs, for wikis and for version control.

#include <ORVMarkdownWriter.h>
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
    // As HTML, Markdown is written from the properties that Qt itself shows.
    ORVStockFormats::toStock(&document);

    QBuffer markdown;
    markdown.open(QIODevice::WriteOnly);
    ORVMarkdownWriter writer(&markdown);
    if (!writer.write(&document)) {
        QTextStream(stderr) << writer.errorString() << '\n';
        return 1;
    }
    QTextStream(stdout) << markdown.data();
    return 0;
}
