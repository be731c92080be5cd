#include "Reading.h"

#include "Interruption.h"
#include "Messages.h"
#include "Streams.h"
#include "TextDecoding.h"

#include <ORVPageGeometry.h>
#include <ORVTextRtf.h>
#include <ORVTextRtfReader.h>

#include <QIODevice>
#include <QTextDocument>

namespace {

void readRtf(QIODevice* device, QTextDocument& document, bool storage, ReadResult& result)
{
    ORVTextRtfReader reader(device);
    reader.setInterchange(!storage);
    reader.read(&document);
    ORVPageGeometry::of(reader).setOn(&document);
    result.status = reader.error();
    result.message = reader.errorString();
}

ReadResult readFile(const Source& source, const ReadOptions& options, QTextDocument& document)
{
    ReadResult result;
    InputStream input;
    if (input.open(source.path)) {
        switch (source.format) {
        case FileFormat::Rtf: readRtf(input.device(), document, options.storage, result); break;
        case FileFormat::Html: document.setHtml(decodedText(input.device()->readAll())); break;
        default: document.setPlainText(decodedText(input.device()->readAll())); break;
        }
        result.hasInput = input.isReadToEnd();
    }
    if (!result.hasInput)
        result.message = input.errorString();
    return result;
}

/*! The document is of no use unless all of it could be read. */
ReadResult readWithEngine(const Source& source, const ReadOptions& options, QTextDocument& document)
{
    ReadResult result;
    const StartedPrograms programs;
    ORVTextRtfReader reader;
    reader.setInterchange(!options.storage);
    ORVTextRtf::loadFileIntoDocument(source.path, &document, options.engine, &result.engineErrors, reader);
    ORVPageGeometry::of(reader).setOn(&document);
    result.hasInput = result.engineErrors.isEmpty();
    return result;
}

} // namespace

ReadResult readDocument(const Source& source, const ReadOptions& options, QTextDocument& document)
{
    return source.needsEngine ? readWithEngine(source, options, document)
                              : readFile(source, options, document);
}

ExitCode reportReading(const QString& path, const ReadResult& result)
{
    if (result.hasInput && result.status == 0)
        return Success;
    for (const QString& error : result.engineErrors)
        printError(error);
    const QString name = shownInput(path);
    if (result.hasInput)
        printError(QString::fromLatin1("%1: %2").arg(name, result.message));
    else if (result.engineErrors.isEmpty())
        printError(Messages::tr("cannot read %1: %2").arg(name, result.message));
    return Failure;
}
