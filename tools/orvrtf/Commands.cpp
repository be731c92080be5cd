#include "Commands.h"

#include "DocumentExport.h"
#include "DocumentInfo.h"
#include "Interruption.h"
#include "Messages.h"
#include "Streams.h"
#include "TextDecoding.h"

#include <ORVPageGeometry.h>
#include <ORVTextRtf.h>
#include <ORVTextRtfReader.h>
#include <ORVTextRtfStripper.h>

#include <QIODevice>
#include <QJsonDocument>
#include <QTextDocument>

namespace {

/*! How a file was read. */
struct ReadResult {
    /*! Whether the bytes of the file could be had at all; how sound the RTF in them is, status says. */
    bool hasInput = false;
    int status = 0;
    QString message;
};

void readRtf(QIODevice* device, QTextDocument& document, bool storage, ReadResult& result)
{
    ORVTextRtfReader reader(device);
    reader.setInterchange(!storage);
    reader.read(&document);
    ORVPageGeometry::of(reader).setOn(&document);
    result.status = reader.error();
    result.message = reader.errorString();
}

/*! Reads the input of \a options, which is in \a format. */
ReadResult readDocument(const Options& options, Options::Format format, QTextDocument& document)
{
    ReadResult result;
    InputStream input;
    if (input.open(options.input)) {
        switch (format) {
        case Options::Rtf: readRtf(input.device(), document, options.storage, result); break;
        case Options::Html: document.setHtml(decodedText(input.device()->readAll())); break;
        default: document.setPlainText(decodedText(input.device()->readAll())); break;
        }
        result.hasInput = input.isReadToEnd();
    }
    if (!result.hasInput)
        result.message = input.errorString();
    return result;
}

QString shownName(const QString& path, const QString& standardStream)
{
    return path == QLatin1String("-") ? standardStream : path;
}

/*! Tells the user how reading \a path went wrong, if it did, and gives the exit status for it. */
ExitCode reportReading(const QString& path, const ReadResult& result)
{
    if (result.hasInput && result.status == 0)
        return Success;
    const QString name = shownName(path, Messages::tr("standard input"));
    if (result.hasInput)
        printError(QString::fromLatin1("%1: %2").arg(name, result.message));
    else
        printError(Messages::tr("cannot read %1: %2").arg(name, result.message));
    return Failure;
}

ExitCode reportUnwritten(const QString& path, const QString& errorString)
{
    printError(Messages::tr("cannot write %1: %2")
                   .arg(shownName(path, Messages::tr("standard output")), errorString));
    return Failure;
}

/*! Writes \a data; \a success when that works, else a line for the user and Failure. */
ExitCode output(const QString& path, const QByteArray& data, ExitCode success)
{
    QString errorString;
    if (writeOutput(path, data, &errorString))
        return success;
    return reportUnwritten(path, errorString);
}

/*! Writes \a document as convert is to; \a success when that works, else a line for the user and Failure. */
ExitCode writeConverted(QTextDocument& document, const Options& options, ExitCode success)
{
    QString path;
    QString errorString;
    if (exportDocument(document, options, &path, &errorString))
        return success;
    return reportUnwritten(path, errorString);
}

/*! Has another program convert the input, and puts the page of the result on \a document; what went wrong. */
QStringList readWithEngine(const Options& options, QTextDocument& document)
{
    const StartedPrograms programs;
    ORVTextRtfReader reader;
    reader.setInterchange(!options.storage);
    QStringList errors;
    ORVTextRtf::loadFileIntoDocument(options.input, &document, options.engine, &errors, reader);
    ORVPageGeometry::of(reader).setOn(&document);
    return errors;
}

/*! For input that another program converts; nothing is written unless all of it could be read. */
ExitCode convertWithEngine(const Options& options)
{
    QTextDocument document;
    const QStringList errors = readWithEngine(options, document);
    if (errors.isEmpty())
        return writeConverted(document, options, Success);
    for (const QString& error : errors)
        printError(error);
    return Failure;
}

ExitCode convert(const Options& options)
{
    if (options.needsEngine)
        return convertWithEngine(options);
    QTextDocument document;
    const ReadResult result = readDocument(options, options.inputFormat, document);
    const ExitCode code = reportReading(options.input, result);
    if (!result.hasInput)
        return code;
    return writeConverted(document, options, code);
}

ExitCode info(const Options& options)
{
    QTextDocument document;
    const ReadResult result = readDocument(options, Options::Rtf, document);
    const ExitCode code = reportReading(options.input, result);
    if (!result.hasInput)
        return code;
    const DocumentInfo info(document);
    QByteArray data;
    if (options.json) {
        QJsonObject object = info.toJson();
        object.insert(QLatin1String("status"), result.status);
        object.insert(QLatin1String("message"), result.message);
        data = QJsonDocument(object).toJson();
    } else {
        const QString status = DocumentInfo::line(Messages::tr("status"), result.status, result.message);
        data = (info.toText() + status).toUtf8();
    }
    return output(QLatin1String("-"), data, code);
}

ExitCode check(const Options& options)
{
    QTextDocument document;
    return reportReading(options.input, readDocument(options, Options::Rtf, document));
}

ExitCode strip(const Options& options)
{
    ReadResult result;
    InputStream input;
    OutputStream output;
    if (!input.open(options.input, InputStream::Streamed)) {
        result.message = input.errorString();
        return reportReading(options.input, result);
    }
    if (!output.open(options.output))
        return reportUnwritten(options.output, output.errorString());
    ORVTextRtfStripper stripper;
    stripper.setDevice(input.device());
    stripper.setOutput(output.device());
    stripper.process();
    result.hasInput = input.isReadToEnd();
    if (!result.hasInput) {
        result.message = input.errorString();
        return reportReading(options.input, result);
    }
    return output.finish() ? Success : reportUnwritten(options.output, output.errorString());
}

} // namespace

ExitCode runCommand(const Options& options)
{
    switch (options.command) {
    case Options::Convert: return convert(options);
    case Options::Info: return info(options);
    case Options::Strip: return strip(options);
    default: return check(options);
    }
}
