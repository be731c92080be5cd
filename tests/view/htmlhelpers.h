#ifndef HTMLHELPERS_H
#define HTMLHELPERS_H

#include "ORVHtmlWriter.h"
#include "ORVStockFormats.h"
#include "interchangehelpers.h"
#include "testsupport.h"

namespace rtftest {

/*! \a document, which is in stock form, as HTML. */
inline QByteArray html(const QTextDocument& document, ORVHtmlWriter::Style style = ORVHtmlWriter::FullStyle)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    ORVHtmlWriter writer(&buffer);
    writer.setStyle(style);
    return writer.write(&document) ? buffer.data() : QByteArray();
}

/*! The HTML of \a body as the content of an RTF document of other programs, in the font "Alpha", size 12. */
inline QByteArray htmlOf(const QByteArray& body, ORVHtmlWriter::Style style = ORVHtmlWriter::FullStyle)
{
    const Reading reading = import("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Alpha;}{\\f1 Beta;}}"
                                   "{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}\n"
                                   + body + "}");
    ORVStockFormats::toStock(reading.document.data());
    return html(*reading.document, style);
}

/*! What stands between \a begin and \a end in \a html. */
inline QByteArray between(const QByteArray& html, const QByteArray& begin, const QByteArray& end)
{
    const auto from = html.indexOf(begin) + begin.size();
    return html.mid(from, html.indexOf(end, from) - from);
}

inline QByteArray htmlBody(const QByteArray& html)
{
    return between(html, "<body>\n", "</body>");
}

inline QByteArray htmlRules(const QByteArray& html)
{
    return between(html, "<style>\n", "</style>");
}

} // namespace rtftest

#endif
