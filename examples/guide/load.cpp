// Files of other formats, by their suffix; .doc, .docx and .odt through another program.

#include <ORVTextRtf.h>
#include <TextTransform.h>

#include <QGuiApplication>
#include <QTextDocument>
#include <QTextStream>

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QTextStream out(stdout);
    TextTransform::setTimeout(60000); // milliseconds
    QTextDocument document;
    QStringList errors;
    for (int i = 1; i < argc; ++i) {
        const QString fileName = QString::fromLocal8Bit(argv[i]);
        if (ORVTextRtf::loadFileIntoDocument(fileName, &document, ORVImportExport::AutomaticEngine, &errors))
            out << fileName << ": " << document.toPlainText() << '\n';
        else
            out << "errors: " << errors.join(QLatin1String("; ")) << '\n';
    }

    // The programs themselves, without a document.
    QString details;
    const TextTransform::Error error = TextTransform::transformFileViaTools(
        QString::fromLatin1("missing.odt"), QString::fromLatin1("missing.rtf"), ORVFormat::Rtf,
        ORVImportExport::AutomaticEngine, &details, false);
    out << TextTransform::errorDescription(error) << '\n';
    return 0;
}
