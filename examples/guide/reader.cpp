// The reader: any device, the first error by number, and what its settings do.

#include <ORVTextRtfReader.h>

#include <QBuffer>
#include <QColor>
#include <QTextCharFormat>
#include <QTextDocument>
#include <QTextStream>

int main()
{
    QTextStream out(stdout);
    QBuffer device;
    device.setData("{\\rtf1\\ansi Caf\\'e9\\u128? au lait}} and milk\\par");

    ORVTextRtfReader reader;
    reader.setDevice(&device);
    QTextDocument document;
    const bool sound = reader.read(&document);
    out << (sound ? "sound" : "damaged") << ", error " << reader.error() << ": " << reader.errorString()
        << '\n';
    out << document.toPlainText() << '\n';
    out << "for a progress bar: " << (reader.pos() > 0) << '\n';

    // Characters U+007F to U+009F are removed, or shown as U+FFFD; text starts in a format of your own.
    QTextCharFormat format;
    format.setFontPointSize(11);
    device.close();
    ORVTextRtfReader second(&device);
    second.read(&document, false, format);
    out << document.toPlainText() << '\n';

    // Defaults of all readers of the process, to be set before the first thread reads.
    ORVTextRtfReader::DefaultTextColor = QColor(Qt::black);
    ORVTextRtfReader::DefaultRemoveInvalidRtfChars = true;
    ORVTextRtfReader::DefaultFontHinting = false;
    return 0;
}
