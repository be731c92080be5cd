// Bytes in memory: text and documents to RTF, and back.

#include <ORVTextRtf.h>

#include <QByteArray>
#include <QFont>
#include <QTextDocument>
#include <QTextStream>

int main()
{
    QTextStream out(stdout);

    // Plain text, each line a paragraph; with a null font nothing is said about one.
    const QByteArray rtf = ORVTextRtf::textToRtf(QString::fromUtf8("Tea: 3 €\nCake: {free}"), nullptr);
    QTextDocument document;
    QString message;
    if (ORVTextRtf::fromRtfData(rtf, &document, &message))
        out << document.blockCount() << " paragraphs: " << document.toPlainText() << '\n';

    // For other programs, and for the application's own storage.
    const QByteArray exported = ORVTextRtf::toRtfData(&document, false, true);
    const QByteArray stored = ORVTextRtf::toRtfCData(&document, true);
    QTextDocument again;
    out << "stored and read: " << ORVTextRtf::fromRtfCData(stored, &again) << '\n';
    out << "the text alone: " << ORVTextRtf::rtfCDataText(exported) << '\n';

    // Damaged bytes: false, a message, and all the text that there is.
    if (!ORVTextRtf::fromRtfData("{\\rtf1 Half a {\\b letter}", &document, &message))
        out << message << ": " << document.toPlainText() << '\n';
    return 0;
}
