#ifndef INTERCHANGEHELPERS_H
#define INTERCHANGEHELPERS_H

#include "rtftesthelpers.h"

namespace rtftest {

/*! Reads \a rtf as it is, as other programs mean it. */
inline Reading import(const QByteArray& rtf)
{
    QBuffer buffer;
    buffer.setData(rtf);
    buffer.open(QIODevice::ReadOnly);
    ORVTextRtfReader reader(&buffer);
    reader.setInterchange(true);
    Reading reading;
    reading.document = newDocument();
    reading.ok = reader.read(reading.document.data());
    reading.status = reader.error();
    reading.message = reader.errorString();
    return reading;
}

/*! Reads \a body as the content of an RTF document, as other programs mean it. */
inline Reading importBody(const QByteArray& body)
{
    return import("{\\rtf1\\ansi " + body + "}");
}

/*! The text of \a body, as other programs mean it. */
inline QString importedText(const QByteArray& body)
{
    return importBody(body).text();
}

/*! Reads \a rtf in the storage form and in the interchange form. */
inline QList<Reading> inBothForms(const QByteArray& rtf)
{
    return {read(rtf), import(rtf)};
}

} // namespace rtftest

#endif
