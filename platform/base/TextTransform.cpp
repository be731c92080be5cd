#include "TextTransform.h"

#include "ORVConversionTool_p.h"
#include "ORVToolProcess_p.h"
#include "QtFileCompat_p.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QMap>
#include <QtCore/QMutex>
#include <QtCore/QMutexLocker>

namespace {

const int chunkSize = 65536;

/*! The outcome of a conversion or one of its steps, with a message for the user. */
struct Result {
    TextTransform::Error error = TextTransform::NoError;
    QString message;
};

/*! The settings of all conversions. */
struct Settings {
    QMutex mutex;
    QMap<ORVImportExport::Engine, QString> programs;
    int timeout = 120000;
};

Settings& settings()
{
    static Settings theSettings;
    return theSettings;
}

int timeout()
{
    QMutexLocker locker(&settings().mutex);
    return settings().timeout;
}

/*! The names or paths to try for \a tool. */
QStringList programsOf(const ORVConversionTool& tool)
{
    QMutexLocker locker(&settings().mutex);
    const QString program = settings().programs.value(tool.engine());
    return program.isEmpty() ? tool.programs() : QStringList(program);
}

/*! The absolute path of \a program, empty when it does not exist or is not executable. */
QString executable(const QString& program)
{
    if (!program.contains(QLatin1Char('/'))) {
        const QString found = compat::findExecutable(program);
        return found.isEmpty() ? found : QFileInfo(found).absoluteFilePath();
    }
    const QFileInfo info(program);
    return info.isFile() && info.isExecutable() ? info.absoluteFilePath() : QString();
}

bool isMeantBy(ORVImportExport::Engine engine, const ORVConversionTool& tool)
{
    return engine == ORVImportExport::AutomaticEngine || engine == tool.engine();
}

/*! The tools that may be used, the preferred one first. */
QList<ORVConversionTool> candidates(const QString& suffix, ORVFormat::Format format,
                                    ORVImportExport::Engine engine)
{
    QList<ORVConversionTool> tools;
    const QList<ORVConversionTool> all = ORVConversionTool::all();
    for (const ORVConversionTool& tool : all) {
        if (isMeantBy(engine, tool) && tool.converts(suffix, format))
            tools.append(tool);
    }
    return tools;
}

/*! A tool and the program, by its absolute path, that it is installed as. */
struct InstalledTool {
    ORVConversionTool tool;
    QString program;
};

/*! Those of \a tools that are installed, in the same order. */
QList<InstalledTool> installed(const QList<ORVConversionTool>& tools)
{
    QList<InstalledTool> found;
    for (const ORVConversionTool& tool : tools) {
        const QStringList programs = programsOf(tool);
        for (const QString& program : programs) {
            const QString path = executable(program);
            if (!path.isEmpty())
                found.append({tool, path});
        }
    }
    return found;
}

Result unsupported(const QString& suffix, ORVImportExport::Engine engine)
{
    QStringList names;
    const QList<ORVConversionTool> all = ORVConversionTool::all();
    for (const ORVConversionTool& tool : all) {
        if (isMeantBy(engine, tool))
            names << tool.name();
    }
    return {TextTransform::UnsupportedFormat,
            QCoreApplication::translate("TextTransform", "Cannot convert '.%1' files to this format: %2")
                .arg(suffix, names.join(QLatin1String(", ")))};
}

Result lookedFor(const QList<ORVConversionTool>& tools)
{
    QStringList names;
    for (const ORVConversionTool& tool : tools)
        names << QString::fromLatin1("%1 (%2)").arg(tool.name(), programsOf(tool).join(QLatin1String(", ")));
    return {
        TextTransform::ToolNotFound,
        QCoreApplication::translate("TextTransform", "Looked for: %1").arg(names.join(QLatin1String(", ")))};
}

Result cannotRead(const QString& path, const QString& reason)
{
    return {TextTransform::SourceNotReadable,
            QCoreApplication::translate("TextTransform", "Could not read '%1': %2").arg(path, reason)};
}

Result cannotWrite(const QString& path, const QString& reason)
{
    return {TextTransform::NoOutput,
            QCoreApplication::translate("TextTransform", "Could not write '%1': %2").arg(path, reason)};
}

/*! Copies all of \a from, which is open, to the file \a to, which is open as well. */
Result copy(QFile& from, compat::FileDevice& to)
{
    QByteArray chunk(chunkSize, Qt::Uninitialized);
    qint64 count = 0;
    while ((count = from.read(chunk.data(), chunk.size())) > 0) {
        if (to.write(chunk.constData(), count) != count)
            return cannotWrite(to.fileName(), to.errorString());
    }
    if (count < 0)
        return cannotRead(from.fileName(), from.errorString());
    return to.flush() ? Result() : cannotWrite(to.fileName(), to.errorString());
}

/*! Puts the file \a output at \a target, whole or not at all. */
Result store(const QString& output, const QString& target)
{
    QFile from(output);
    compat::SaveFile to(target);
    const bool isNew = !QFile::exists(target);
    if (!from.open(QIODevice::ReadOnly))
        return cannotWrite(target, from.errorString());
    if (!to.open(QIODevice::WriteOnly))
        return cannotWrite(target, to.errorString());
    // A document from a private folder must not become readable for others.
    if (isNew)
        to.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    Result result = copy(from, to);
    if (result.error != TextTransform::NoError)
        return result;
    return to.commit() ? Result() : cannotWrite(target, to.errorString());
}

/*! \a message, and below it what \a process printed. */
QString withOutput(const QString& message, const ORVToolProcess& process)
{
    const QString output = process.errorOutput();
    return output.isEmpty() ? message : message + QLatin1Char('\n') + output;
}

/*! Runs \a process, which is one of \a tool. */
Result run(ORVToolProcess& process, const ORVConversionTool& tool, const QStringList& arguments)
{
    const int milliseconds = timeout();
    QString message;
    switch (process.run(arguments, milliseconds)) {
    case ORVToolProcess::Succeeded: return Result();
    case ORVToolProcess::NotStarted:
        message = QCoreApplication::translate("TextTransform", "%1 could not be started").arg(tool.name());
        break;
    case ORVToolProcess::Crashed:
        message = QCoreApplication::translate("TextTransform", "%1 crashed").arg(tool.name());
        break;
    case ORVToolProcess::Failed:
        message = QCoreApplication::translate("TextTransform", "%1 ended with exit status %2")
                      .arg(tool.name(), QString::number(process.exitCode()));
        break;
    case ORVToolProcess::TimedOut:
        message = QCoreApplication::translate("TextTransform", "%1 did not end within %2 seconds")
                      .arg(tool.name(), QString::number(milliseconds / 1000.0));
        return {TextTransform::ToolTimedOut, withOutput(message, process)};
    }
    return {TextTransform::ToolFailed, withOutput(message, process)};
}

/*! Converts \a source, which is open and ends in \a suffix, in \a folder, which is empty. */
Result convert(QFile& source, const QString& suffix, const QString& target, ORVFormat::Format format,
               const InstalledTool& installed, const QString& folder)
{
    const ORVConversionTool& tool = installed.tool;
    QFile copied(QDir(folder).filePath(ORVConversionTool::sourceName(suffix)));
    if (!tool.prepare(folder) || !copied.open(QIODevice::WriteOnly))
        return cannotWrite(copied.fileName(), copied.errorString());
    Result result = copy(source, copied);
    copied.close();
    if (result.error != TextTransform::NoError)
        return result;

    ORVToolProcess process(installed.program, folder);
    result = run(process, tool, tool.arguments(folder, suffix, format));
    tool.removeLeftovers(folder);
    if (result.error != TextTransform::NoError)
        return result;
    const QString output = QDir(folder).filePath(ORVConversionTool::outputName(format));
    const QFileInfo info(output);
    // Only plain text can be empty.
    if (!info.isFile() || (info.size() == 0 && format != ORVFormat::PlainText))
        return {TextTransform::NoOutput,
                withOutput(QCoreApplication::translate("TextTransform", "%1 wrote nothing").arg(tool.name()),
                           process)};
    return store(output, target);
}

/*! Converts as transformFileViaTools() does. */
Result transform(const QString& source, const QString& target, ORVFormat::Format format,
                 ORVImportExport::Engine engine)
{
    const QString suffix = QFileInfo(source).suffix().toLower();
    const QList<ORVConversionTool> tools = candidates(suffix, format, engine);
    if (tools.isEmpty())
        return unsupported(suffix, engine);
    // Opening something else, for example a pipe, could block forever.
    if (QFileInfo(source).exists() && !QFileInfo(source).isFile())
        return cannotRead(source, QCoreApplication::translate("TextTransform", "not a file"));
    QFile file(source);
    if (!file.open(QIODevice::ReadOnly))
        return cannotRead(source, file.errorString());
    const QList<InstalledTool> found = installed(tools);
    if (found.isEmpty())
        return lookedFor(tools);
    compat::TemporaryFolder folder;
    // Where the system's folder for temporary files is missing, Qt takes the current one.
    if (!folder.isValid() || !QFileInfo(QDir::tempPath()).isDir())
        return {TextTransform::NoOutput,
                QCoreApplication::translate("TextTransform", "There is no folder for temporary files")};
    Result result = convert(file, suffix, target, format, found.first(), folder.path());
    // A program that was killed may have been making one more file meanwhile; the destructor tries again.
    folder.remove();
    return result;
}

} // namespace

TextTransform::Error TextTransform::transformFileViaTools(const QString& source, const QString& target,
                                                          ORVFormat::Format format,
                                                          ORVImportExport::Engine engine,
                                                          QString* errorString, bool)
{
    const Result result = transform(source, target, format, engine);
    if (errorString && result.error != NoError)
        *errorString = result.message;
    return result.error;
}

QString TextTransform::errorDescription(Error error)
{
    switch (error) {
    case NoError: break;
    case UnsupportedFormat:
        return QCoreApplication::translate("TextTransform", "No program for this conversion is known");
    case SourceNotReadable: return QCoreApplication::translate("TextTransform", "The file could not be read");
    case ToolNotFound:
        return QCoreApplication::translate("TextTransform", "No program for this conversion is installed");
    case ToolFailed: return QCoreApplication::translate("TextTransform", "The conversion program failed");
    case ToolTimedOut:
        return QCoreApplication::translate("TextTransform", "The conversion program took too long");
    case NoOutput: return QCoreApplication::translate("TextTransform", "The converted file was not written");
    }
    return QString();
}

void TextTransform::setToolPath(ORVImportExport::Engine engine, const QString& program)
{
    QMutexLocker locker(&settings().mutex);
    settings().programs.insert(engine, program);
}

void TextTransform::setTimeout(int milliseconds)
{
    QMutexLocker locker(&settings().mutex);
    settings().timeout = milliseconds;
}
