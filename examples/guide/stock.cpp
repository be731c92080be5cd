// Stock formats: what Qt's own views, HTML and ODF show, and back to what the RTF said.

#include <ORVListLevels.h>
#include <ORVRtfProperties.h>
#include <ORVStockFormats.h>
#include <ORVTextRtf.h>

#include <QScopedPointer>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextStream>

int main()
{
    QTextStream out(stdout);
    QTextDocument document;
    ORVTextRtf::fromRtfData("{\\rtf1\\pard\\li720\\fi360 An indented paragraph\\par}", &document, nullptr);

    // In the application's form: an inch, in points, in a property that Qt does not know.
    QTextBlockFormat format = document.begin().blockFormat();
    out << format.doubleProperty(ORVRtfProperty::LeftIndent) << " points; " << format.leftMargin()
        << " pixels\n";

    // For a view, an HTML or an ODF file: Qt's own properties, in pixels.
    ORVStockFormats::toStock(&document);
    format = document.begin().blockFormat();
    out << format.leftMargin() << " pixels, the first line " << format.textIndent() << " further in\n";

    // Lists of several levels, for a copy that is only shown.
    const QScopedPointer<QTextDocument> shown(document.clone());
    ORVListLevels::separate(shown.data());

    // Before it is written as RTF. Documents made from HTML want this, too.
    ORVStockFormats::fromStock(&document);
    out << ORVTextRtf::toRtfData(&document, true, true).count("\\li720\\fi360") << " paragraph as before\n";
    return 0;
}
