#include "PdfFile.h"

#include "FileWriting.h"
#include "PrintCopy.h"

#include <ORVPagePdf.h>

#include <QCoreApplication>
#include <QTextDocument>

bool PdfFile::save(const QString& fileName, const QTextDocument& document, QString* message)
{
    const QByteArray data = ORVPagePdf::make(PrintCopy::of(document).get(), ORVPageSetup::of(&document));
    if (!data.isEmpty())
        return FileWriting::replace(fileName, data, message);
    *message = QCoreApplication::translate("PdfFile", "the file cannot be made");
    return false;
}
