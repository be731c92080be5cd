// Page size, margins, header and footer are dynamic properties of the document; lengths are points.

#include <ORVTextPage.h>
#include <ORVTextRtf.h>
#include <ORVTextRtfWriter.h>

#include <QSizeF>
#include <QTextDocument>
#include <QTextStream>

int main()
{
    QTextStream out(stdout);
    QTextDocument document;
    document.setPlainText(QLatin1String("Chapter One"));
    document.setProperty("paperSize", QSizeF(420, 595)); // A5
    document.setProperty("leftMargin", 54.0);
    document.setProperty("rightMargin", 54.0);
    document.setProperty("notOnFirstPage", true);

    ORVTextPage footer;
    footer.text = QLatin1String("Page <$p> of <$pagecount>");
    footer.option.setAlignment(Qt::AlignRight);
    document.setProperty("footer", QVariant::fromValue(footer));

    const QSize paper = ORVTextRtfWriter::paperSizeForDocument(&document);
    out << "paper: " << paper.width() << " x " << paper.height() << " twips\n";
    const QSize usual = ORVTextRtfWriter::defaultPaperSize(false);
    out << "unless set: " << usual.width() << " x " << usual.height() << " twips\n";

    const QByteArray rtf = ORVTextRtf::toRtfData(&document, false, true);
    for (const char* word : {"\\paperw8400\\paperh11900", "\\margl1080\\margr1080", "\\titlepg", "{\\footer"})
        out << (rtf.contains(word) ? "has " : "lacks ") << word << '\n';
    return 0;
}
