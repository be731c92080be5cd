#include "FuzzChecks.h"

#include <QtGui/QTextDocument>

// Reads anything: it ends, with a known status, and leaves a document that can be used.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QTextDocument document;
    fuzz::read(QByteArray(reinterpret_cast<const char*>(data), int(size)), &document);
    return 0;
}
