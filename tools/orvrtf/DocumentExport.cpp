#include "DocumentExport.h"

#include "HtmlExport.h"
#include "LibreOfficeExport.h"
#include "MarkdownExport.h"
#include "Messages.h"
#include "OdtExport.h"
#include "Options.h"
#include "PageExport.h"
#include "RtfExport.h"
#include "Streams.h"
#include "TextExport.h"

#include <ORVNotes.h>
#include <ORVStockFormats.h>

#include <QFileInfo>
#include <QTextDocument>

namespace {

/*! Whether the document is written as RTF, if only for another program. */
bool isWrittenAsRtf(const ExportOptions& output)
{
    return output.format == FileFormat::Rtf || output.odtByLibreOffice;
}

/*! RTF is in the application's form, HTML and all that shows a document in Qt's own. */
void adaptFormats(QTextDocument& document, const Options& options)
{
    const bool isFromRtf = options.input.needsEngine || options.input.format == FileFormat::Rtf;
    document.setUndoRedoEnabled(false);
    if (options.output.format == FileFormat::PlainText)
        return;
    if (!isWrittenAsRtf(options.output) && isFromRtf) {
        // First, since the content of notes is in the application's form too.
        if (options.output.format == FileFormat::Pdf)
            ORVNotes::moveToEnd(&document, ORVNotes::ApplicationForm, ORVNotes::LinkedMarks);
        else if (options.output.format != FileFormat::Html && options.output.format != FileFormat::Markdown)
            ORVNotes::moveToEnd(&document);
        ORVStockFormats::toStock(&document);
    } else if (isWrittenAsRtf(options.output) && !isFromRtf) {
        ORVStockFormats::fromStock(&document);
    }
}

/*! HTML needs a title: for a document that has none, the name of its file \a path. */
void addTitle(QTextDocument& document, const QString& path)
{
    if (document.metaInformation(QTextDocument::DocumentTitle).isEmpty() && path != QLatin1String("-"))
        document.setMetaInformation(QTextDocument::DocumentTitle, QFileInfo(path).completeBaseName());
}

QByteArray odt(QTextDocument& document, const ExportOptions& output, QString* errorString)
{
    return output.odtByLibreOffice ? documentToOdtByLibreOffice(document, errorString)
                                   : documentToOdt(document);
}

/*! Empty on failure, which \a errorString describes if it can; of all formats only plain text may be that. */
QByteArray converted(QTextDocument& document, const Options& options, QString* errorString)
{
    switch (options.output.format) {
    case FileFormat::PlainText:
        return documentToPlainText(document, {options.output.tableLayout, options.output.width});
    case FileFormat::Rtf: return documentToRtf(document, options.output.rtf);
    case FileFormat::Odt: return odt(document, options.output, errorString);
    case FileFormat::Pdf: return documentToPdf(document);
    case FileFormat::Html:
    case FileFormat::Markdown:
    case FileFormat::Png: break;
    }
    return QByteArray();
}

} // namespace

bool exportDocument(QTextDocument& document, const Options& options, QString* path, QString* errorString)
{
    adaptFormats(document, options);
    *path = options.output.path;
    if (options.output.format == FileFormat::Png)
        return writePagePictures(document, options.input.path, path, errorString);
    if (options.output.format == FileFormat::Html) {
        addTitle(document, options.input.path);
        return writeHtml(document, options.output, errorString);
    }
    if (options.output.format == FileFormat::Markdown)
        return writeMarkdown(document, options.output, errorString);
    *errorString = Messages::tr("the file cannot be made");
    const QByteArray data = converted(document, options, errorString);
    if (!data.isEmpty() || options.output.format == FileFormat::PlainText)
        return writeOutput(*path, data, errorString);
    return false;
}
