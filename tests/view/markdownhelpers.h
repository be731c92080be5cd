#ifndef MARKDOWNHELPERS_H
#define MARKDOWNHELPERS_H

#include "ORVMarkdownWriter.h"
#include "ORVStockFormats.h"
#include "interchangehelpers.h"
#include "testsupport.h"

namespace rtftest {

/*! \a document, which is in stock form, as Markdown. */
inline QByteArray markdown(const QTextDocument& document)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return ORVMarkdownWriter(&buffer).write(&document) ? buffer.data() : "not written"_b;
}

/*! The Markdown of \a body as the content of an RTF document of other programs; the font 1 is of fixed pitch. */
inline QByteArray markdownOf(const QByteArray& body)
{
    const Reading reading = import(
        "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Alpha;}{\\f1\\fmodern\\fprq1 Courier New;}}\n" + body + "}");
    ORVStockFormats::toStock(reading.document.data());
    return markdown(*reading.document);
}

} // namespace rtftest

#endif
