#include "BatchPlan.h"

#include "Messages.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>

namespace {

/*!
    PNG is a file for each page, "a.png", "a-2.png" and so on: the first of them, if \a output is a further
    one.
*/
QString firstPageOf(const QString& output)
{
    const QString suffix = QLatin1String(".png");
    const int dash = output.lastIndexOf(QLatin1Char('-'));
    if (dash < 0 || !output.endsWith(suffix))
        return QString();
    const QString number = output.mid(dash + 1, output.size() - suffix.size() - dash - 1);
    const int page = number.toInt();
    // "a-02.png" is the first page of a file of its own.
    return page < 2 || number != QString::number(page) ? QString() : output.left(dash) + suffix;
}

QString conflict(const QString& input, const QString& otherInput, const QString& output)
{
    return Messages::tr("\"%1\" and \"%2\" would both become \"%3\"").arg(input, otherInput, output);
}

/*! An error message if two of the files would be written to the same output; empty otherwise. */
QString sharedOutput(const QList<BatchFile>& files)
{
    QHash<QString, QString> inputs;
    for (const BatchFile& file : files) {
        if (inputs.contains(file.output))
            return conflict(inputs.value(file.output), file.input, file.output);
        inputs.insert(file.output, file.input);
    }
    for (const BatchFile& file : files) {
        const QString firstPage = firstPageOf(file.output);
        if (inputs.contains(firstPage))
            return conflict(inputs.value(firstPage), file.input, file.output);
    }
    return QString();
}

/*! An error message if an output is also one of the inputs; empty otherwise. */
QString overwrittenInput(const QList<BatchFile>& files)
{
    QSet<QString> inputs;
    for (const BatchFile& file : files)
        inputs.insert(QFileInfo(file.input).canonicalFilePath());
    for (const BatchFile& file : files) {
        const QString existing = QFileInfo(file.output).canonicalFilePath();
        if (!existing.isEmpty() && inputs.contains(existing))
            return Messages::tr("\"%1\" is both input and output").arg(file.output);
    }
    return QString();
}

} // namespace

QString batchOutput(const QString& directory, const QString& input, const QString& suffix)
{
    const QFileInfo info(input);
    // Of a hidden file such as ".rtf", the dot begins no suffix.
    const QString name = info.completeBaseName().isEmpty() ? info.fileName() : info.completeBaseName();
    return QDir(directory).filePath(name + QLatin1Char('.') + suffix);
}

QString batchConflict(const QList<BatchFile>& files)
{
    const QString shared = sharedOutput(files);
    return shared.isEmpty() ? overwrittenInput(files) : shared;
}
