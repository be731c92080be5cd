#include "FuzzChecks.h"

#include <QtGui/QTextDocument>

/*! Reads any input: reading must end with a known status and leave a usable document. */
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QTextDocument document;
    fuzz::read(QByteArray(reinterpret_cast<const char*>(data), int(size)), &document);
    return 0;
}
