#include "Commands.h"

#include "DiffCommand.h"
#include "DocumentExport.h"
#include "DocumentInfo.h"
#include "Messages.h"
#include "Reading.h"
#include "Streams.h"

#include <ORVTextRtfStripper.h>

#include <QJsonDocument>
#include <QTextDocument>

namespace {

ExitCode reportUnwritten(const QString& path, const QString& errorString)
{
    printUnwritten(path, errorString);
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

ReadOptions readOptions(const Options& options)
{
    ReadOptions result;
    result.storage = options.storage;
    result.engine = options.engine;
    return result;
}

ExitCode convert(const Options& options)
{
    QTextDocument document;
    const ReadResult result = readDocument(options.input, readOptions(options), document);
    const ExitCode code = reportReading(options.input.path, result);
    return result.hasInput ? writeConverted(document, options, code) : code;
}

ExitCode info(const Options& options)
{
    QTextDocument document;
    const ReadResult result = readDocument(options.input, readOptions(options), document);
    const ExitCode code = reportReading(options.input.path, result);
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
    return reportReading(options.input.path, readDocument(options.input, readOptions(options), document));
}

ExitCode strip(const Options& options)
{
    ReadResult result;
    InputStream input;
    OutputStream output;
    if (!input.open(options.input.path, InputStream::Streamed)) {
        result.message = input.errorString();
        return reportReading(options.input.path, result);
    }
    if (!output.open(options.output.path))
        return reportUnwritten(options.output.path, output.errorString());
    ORVTextRtfStripper stripper;
    stripper.setDevice(input.device());
    stripper.setOutput(output.device());
    stripper.process();
    result.hasInput = input.isReadToEnd();
    if (!result.hasInput) {
        result.message = input.errorString();
        return reportReading(options.input.path, result);
    }
    return output.finish() ? Success : reportUnwritten(options.output.path, output.errorString());
}

} // namespace

ExitCode runCommand(const Options& options)
{
    switch (options.command) {
    case Options::Convert: return convert(options);
    case Options::Info: return info(options);
    case Options::Strip: return strip(options);
    case Options::Diff: return diff(options);
    default: return check(options);
    }
}
