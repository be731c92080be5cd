#include "FuzzChecks.h"
#include "ORVTextRtfWriter.h"

#include <QtGui/QTextDocument>

/*! Reads any input as other programs mean it: the document must be usable, and what is written of it readable. */
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QTextDocument document;
    fuzz::import(QByteArray(reinterpret_cast<const char*>(data), int(size)), &document);
    ORVTextRtfWriter writer;
    QTextDocument again;
    fuzz::readBack(fuzz::written(writer, document), &again);
    return 0;
}
