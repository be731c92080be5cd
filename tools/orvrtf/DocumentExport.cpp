#include "DocumentExport.h"

#include "HtmlExport.h"
#include "Messages.h"
#include "OdtExport.h"
#include "Options.h"
#include "PageExport.h"
#include "RtfExport.h"
#include "Streams.h"
#include "TextExport.h"

#include <ORVNotes.h>
#include <ORVStockFormats.h>

#include <QTextDocument>

namespace {

/*! RTF is in the application's form, HTML and all that shows a document in Qt's own. */
void adaptFormats(QTextDocument& document, const Options& options)
{
    const bool isFromRtf = options.needsEngine || options.inputFormat == Options::Rtf;
    document.setUndoRedoEnabled(false);
    if (options.outputFormat == Options::PlainText)
        return;
    if (options.outputFormat != Options::Rtf && isFromRtf) {
        // First, since the content of notes is in the application's form too.
        if (options.outputFormat != Options::Html)
            ORVNotes::moveToEnd(&document);
        ORVStockFormats::toStock(&document);
    } else if (options.outputFormat == Options::Rtf && !isFromRtf) {
        ORVStockFormats::fromStock(&document);
    }
}

/*! Empty on failure; of all formats only plain text may be that. */
QByteArray converted(QTextDocument& document, const Options& options)
{
    switch (options.outputFormat) {
    case Options::Html: return documentToHtml(document);
    case Options::PlainText: return documentToPlainText(document);
    case Options::Rtf: return documentToRtf(document, options.rtf);
    case Options::Odt: return documentToOdt(document);
    case Options::Pdf: return documentToPdf(document);
    case Options::Png: break;
    }
    return QByteArray();
}

} // namespace

bool exportDocument(QTextDocument& document, const Options& options, QString* path, QString* errorString)
{
    adaptFormats(document, options);
    *path = options.output;
    if (options.outputFormat == Options::Png)
        return writePagePictures(document, options.input, path, errorString);
    const QByteArray data = converted(document, options);
    if (!data.isEmpty() || options.outputFormat == Options::PlainText)
        return writeOutput(*path, data, errorString);
    *errorString = Messages::tr("the file cannot be made");
    return false;
}
