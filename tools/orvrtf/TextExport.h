#ifndef ORVRTF_TEXTEXPORT_H
#define ORVRTF_TEXTEXPORT_H

#include <QByteArray>

class QTextDocument;

/*!
    The text of \a document as UTF-8: a line for each paragraph, table cell and line break, no-break spaces
    kept, pictures left out. The text of notes stands at the end. Ends with a line feed unless it is empty. The
    document is changed.
*/
QByteArray documentToPlainText(QTextDocument& document);

#endif
