// Files: read one, change the document, write it in three ways.

#include <ORVTextRtf.h>

#include <QGuiApplication>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextStream>

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QTextStream out(stdout);
    QTextDocument document;
    QString message;
    // From any word processor. What the application has stored itself is read by fromRtfFile().
    if (!ORVTextRtf::importRtfFile(QString::fromLocal8Bit(argv[1]), &document, &message))
        out << "damaged or missing: " << message << '\n';
    out << document.toPlainText() << '\n';

    QTextCursor cursor(&document);
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QString::fromUtf8(" – P.S. Bring the dog."));

    // For other programs: exporting mode. The document stays as it is, so not in place.
    const QString exported = QString::fromLocal8Bit(argv[2]);
    if (!ORVTextRtf::toRtfFile(exported, &document, &message, false, true))
        out << message << '\n';
    // For the application itself, straight to the disk, and in place: quicker, without a copy in memory.
    if (!ORVTextRtf::toRtfFileDirect(exported + QLatin1String(".stored"), &document, &message, true))
        out << message << '\n';
    // A folder that is not there: false, and the reason in words.
    if (!ORVTextRtf::toRtfFile(QString::fromLatin1("no/such/folder.rtf"), &document, &message, true, true))
        out << message << '\n';
    return 0;
}
