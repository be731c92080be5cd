#include "DiffCommand.h"

#include "Messages.h"
#include "Reading.h"
#include "Streams.h"
#include "TextExport.h"
#include "diff/DocumentComparison.h"
#include "diff/HtmlReport.h"
#include "diff/ReportTexts.h"
#include "diff/TextReport.h"

#include <ORVStockFormats.h>
#include <TextDocSupport.h>

#include <QTextDocument>

namespace {

/*! A format that is read without another program, and so is that of the document. */
bool isOf(const Source& source, FileFormat format)
{
    return !source.needsEngine && source.format == format;
}

/*! Reads \a source into \a document, in the application's form. Whether there is something to compare. */
bool readSide(const Source& source, const ReadOptions& options, QTextDocument& document, bool* isSound)
{
    const ReadResult result = readDocument(source, options, document);
    *isSound = reportReading(source.path, result) == Success && *isSound;
    document.setUndoRedoEnabled(false);
    if (isOf(source, FileFormat::Html))
        ORVStockFormats::fromStock(&document);
    TextDocSupport::normalizePageBreaks(&document);
    return result.hasInput;
}

/*! The text of \a document as convert writes it, without the line feed at the end. */
QString plainText(QTextDocument& document, bool isPlain)
{
    QString text = isPlain ? document.toRawText() : QString::fromUtf8(documentToPlainText(document));
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    text.replace(QChar::LineSeparator, QLatin1Char('\n'));
    if (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    return text;
}

/*! Plain text has no formats: where one side is that, the other one is reduced to it. */
Differences textDifferences(const Options& options, QTextDocument& before, QTextDocument& after)
{
    QTextDocument textBefore;
    QTextDocument textAfter;
    textBefore.setPlainText(plainText(before, isOf(options.input, FileFormat::PlainText)));
    textAfter.setPlainText(plainText(after, isOf(options.other, FileFormat::PlainText)));
    return DocumentComparison::compare(textBefore, textAfter, DocumentComparison::Scope());
}

Differences differencesOf(const Options& options, QTextDocument& before, QTextDocument& after)
{
    const Source* const sources[] = {&options.input, &options.other};
    DocumentComparison::Scope scope;
    for (const Source* const source : sources) {
        if (isOf(*source, FileFormat::PlainText))
            return textDifferences(options, before, after);
        // Qt reads neither of HTML.
        if (isOf(*source, FileFormat::Html))
            scope.hasLanguages = scope.hasPages = false;
    }
    return DocumentComparison::compare(before, after, scope);
}

QByteArray report(const Differences& differences, const Options& options)
{
    const ComparedFiles files = {shownInput(options.input.path), shownInput(options.other.path)};
    return options.output.format == FileFormat::Html ? htmlReport(differences, files)
                                                     : textReport(differences, files);
}

/*! Writes the report to where it belongs; without a difference a text report is empty. */
bool writeReport(const QByteArray& data, const Options& options)
{
    QString errorString;
    if (writeOutput(options.output.path, data, &errorString))
        return true;
    printUnwritten(options.output.path, errorString);
    return false;
}

} // namespace

ExitCode diff(const Options& options)
{
    ReadOptions reading;
    reading.storage = options.storage;
    reading.engine = options.engine;
    QTextDocument before;
    QTextDocument after;
    bool isSound = true;
    const bool hasBefore = readSide(options.input, reading, before, &isSound);
    const bool hasAfter = readSide(options.other, reading, after, &isSound);
    if (!hasBefore || !hasAfter)
        return DiffFailure;
    const Differences differences = differencesOf(options, before, after);
    if (!writeReport(report(differences, options), options) || !isSound)
        return DiffFailure;
    return differences.isEmpty() ? Success : Different;
}
