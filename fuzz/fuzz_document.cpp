#include "FuzzChecks.h"
#include "FuzzInput.h"
#include "ORVTextRtfWriter.h"
#include "RandomDocument.h"

#include <QtGui/QTextDocument>

/*!
    Writes documents of any structure with any properties. The output must be readable and the document
    unchanged.
*/
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
