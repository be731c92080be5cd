#include "FuzzChecks.h"
#include "FuzzInput.h"
#include "ORVTextRtfWriter.h"
#include "RandomDocument.h"

#include <QtGui/QTextDocument>

// Writes documents of any structure and with any properties: what is written can be read, and the document
// stays as it is.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    ORVTextRtfWriter writer;
    fuzz::configure(writer, input);
    QTextDocument document;
    RandomDocument(&document, input).fill();

    const QString text = document.toPlainText();
    QTextDocument again;
    fuzz::readBack(fuzz::written(writer, document), &again);
    fuzz::require(document.toPlainText() == text, "writing leaves the document as it is");
    return 0;
}
