#include "BatchPlan.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>

QString batchOutput(const QString& directory, const QString& input, const QString& suffix)
{
    const QFileInfo info(input);
    // Of a hidden file such as ".rtf", the dot begins no suffix.
    const QString name = info.completeBaseName().isEmpty() ? info.fileName() : info.completeBaseName();
    return QDir(directory).filePath(name + QLatin1Char('.') + suffix);
}

QString batchConflict(const QList<BatchFile>& files)
{
    QSet<QString> inputs;
    for (const BatchFile& file : files)
        inputs.insert(QFileInfo(file.input).canonicalFilePath());
    QHash<QString, QString> inputOfOutput;
    for (const BatchFile& file : files) {
        if (inputOfOutput.contains(file.output))
            return QString::fromLatin1("\"%1\" and \"%2\" would both become \"%3\"")
                .arg(inputOfOutput.value(file.output), file.input, file.output);
        inputOfOutput.insert(file.output, file.input);
        const QString existing = QFileInfo(file.output).canonicalFilePath();
        if (!existing.isEmpty() && inputs.contains(existing))
            return QString::fromLatin1("\"%1\" is both input and output").arg(file.output);
    }
    return QString();
}
