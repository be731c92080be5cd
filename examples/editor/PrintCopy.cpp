#include "PrintCopy.h"

#include <ORVFragments.h>
#include <ORVNotes.h>
#include <ORVRtfProperties.h>
#include <ORVTextRtfCommon.h>
#include <TextDocSupport.h>

#include <QTextDocument>

namespace {

void showRevisions(QTextDocument* document)
{
    ORVFragments::changeFormats(document, 0, document->characterCount(), [](QTextCharFormat* format) {
        const int level = format->intProperty(ORVRtfProperty::RevisionLevel);
        if (level > 0)
            format->setForeground(ORVTextRtfCommon::revisionColor(level));
    });
}

} // namespace

std::unique_ptr<QTextDocument> PrintCopy::of(const QTextDocument& document)
{
    std::unique_ptr<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
    ORVNotes::moveToEnd(copy.get(), ORVNotes::StockForm);
    showRevisions(copy.get());
    return copy;
}
