#include "conversionhelpers.h"

#include "TextTransform.h"

#include <QCoreApplication>

using namespace conversiontest;

/*!
    Converts in a program that has no application object at all, with a program that works and with one that
    hangs; the exit code is the number of the first step that failed. QtTest always makes such an object.
*/
int main()
{
    if (QCoreApplication::instance())
        return 1;
    const Folders folders;
    const QString source = folders.path(QStringLiteral("in.docx"));
    const QString target = folders.path(QStringLiteral("out.rtf"));
    const QString tool = folders.path(QStringLiteral("tool"));
    writeFile(source, "content");
    TextTransform::setToolPath(ORVImportExport::PandocEngine, tool);

    writeScript(tool, "cp source.docx output/source.rtf");
    if (TextTransform::transformFileViaTools(source, target, ORVFormat::Rtf, ORVImportExport::PandocEngine,
                                             nullptr, true)
            != TextTransform::NoError
        || readFile(target) != "content")
        return 2;

    writeScript(tool, "sleep 1000");
    TextTransform::setTimeout(300);
    QString message;
    if (TextTransform::transformFileViaTools(source, target, ORVFormat::Rtf, ORVImportExport::PandocEngine,
                                             &message, true)
            != TextTransform::ToolTimedOut
        || message != QLatin1String("pandoc did not end within 0.3 seconds"))
        return 3;
    return folders.leftovers().isEmpty() ? 0 : 4;
}
