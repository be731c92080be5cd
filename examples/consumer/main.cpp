// consumer IN.rtf OUT.rtf: prints the plain text of IN.rtf, and writes what was read as RTF.

#include <ORVRtfVersion.h>
#include <ORVTextRtf.h>

#include <QString>
#include <QTextDocument>
#include <QTextStream>

#if ORV_RTF_VERSION < 0x010000
#error "this program needs OrvRtf 1.0"
#endif

int main(int argc, char** argv)
{
    QTextStream out(stdout);
    QTextStream err(stderr);
    if (argc != 3) {
        err << "usage: consumer IN.rtf OUT.rtf\n";
        return 2;
    }

    // No application object: fonts are then taken as the file names them.
    QTextDocument document;
    QString message;
    if (!ORVTextRtf::importRtfFile(QString::fromLocal8Bit(argv[1]), &document, &message)) {
        err << "cannot read " << argv[1] << ": " << message << '\n';
        return 1;
    }
    out << document.toPlainText() << '\n';

    // For other programs (exporting), and without a copy (in place): the document is not needed afterwards.
    if (!ORVTextRtf::toRtfFile(QString::fromLocal8Bit(argv[2]), &document, &message, true, true)) {
        err << "cannot write " << argv[2] << ": " << message << '\n';
        return 1;
    }
    return 0;
}
