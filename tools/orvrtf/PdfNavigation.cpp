#include "PdfNavigation.h"

#include <QCoreApplication>
#include <QLibrary>

QByteArray withNavigation(const QByteArray& pdf, const ORVPagePainter& pages, const QTextDocument& document)
{
    QLibrary module(QCoreApplication::applicationDirPath() + QLatin1String("/" ORVRTF_PDF_MODULE));
    const AddPdfNavigation addNavigation = AddPdfNavigation(module.resolve("orvrtfAddPdfNavigation"));
    if (!addNavigation)
        return pdf;
    QByteArray result;
    addNavigation(pdf, pages, document, &result);
    return result;
}
