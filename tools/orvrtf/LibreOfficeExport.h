#ifndef ORVRTF_LIBREOFFICEEXPORT_H
#define ORVRTF_LIBREOFFICEEXPORT_H

#include <QByteArray>
#include <QString>

class QTextDocument;

/*!
    \a document, which is in the application's form, as an OpenDocument text that LibreOffice makes of our RTF.
    Empty on failure, with the reason in \a errorString. When the program is interrupted meanwhile, LibreOffice
    ends, no file is left behind, and the program ends.
*/
QByteArray documentToOdtByLibreOffice(const QTextDocument& document, QString* errorString);

#endif
