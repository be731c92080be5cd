#include "Batch.h"
#include "DocumentModule.h"
#include "Messages.h"
#include "Options.h"
#include "Streams.h"
#include "Translations.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QProcessEnvironment>

#include <clocale>
#include <langinfo.h>

namespace {

/*!
    In the "C" locale, which programs started by a system often run in, Qt could not pass on file names beyond
    ASCII.
*/
void useUtf8InsteadOfAscii()
{
    std::setlocale(LC_ALL, "");
    if (qstrcmp(nl_langinfo(CODESET), "ANSI_X3.4-1968") == 0)
        qputenv("LC_ALL", "C.UTF-8");
}

/*! Keeps what Qt says of its own, about environment and damaged pictures, from the standard error. */
void ignoreMessages(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtFatalMsg)
        printError(message);
}

ExitCode print(const QString& text)
{
    QString errorString;
    if (writeOutput(QLatin1String("-"), text.toUtf8(), &errorString))
        return Success;
    printError(Messages::tr("cannot write standard output: %1").arg(errorString));
    return Failure;
}

/*! Whether the command works on documents. */
bool needsModule(Options::Command command)
{
    switch (command) {
    case Options::Convert:
    case Options::Info:
    case Options::Check:
    case Options::Strip: return true;
    default: return false;
    }
}

/*! Carries out what needs no documents: starts the conversions of many files, says what the options ask for,
 * or what is wrong with them. \a environment is that of the program as it was started. */
int answer(const Options& options, const QProcessEnvironment& environment)
{
    if (options.command == Options::Help)
        return print(options.text);
    if (options.command == Options::Version)
        return print(QLatin1String("orvrtf " ORVRTF_VERSION "\n"));
    if (options.command == Options::Batch)
        return runBatch(options.batch, QCoreApplication::applicationFilePath(), environment);
    printError(Messages::tr("%1; see orvrtf --help").arg(options.text));
    return UsageError;
}

ExitCode reportMissingModule(const Options& options, char* programName, const QString& reason)
{
    int count = 1;
    char* arguments[] = {programName, nullptr};
    const QCoreApplication application(count, arguments);
    const Translations translations(options.languages);
    printError(Messages::tr("the program is not installed completely: %1").arg(reason));
    return Failure;
}

/*! Runs a command in the module that has what it needs, also an application of its own. */
int runInModule(const Options& options, char* programName, const QString& programFolder)
{
    QLibrary module(programFolder + QLatin1String("/" ORVRTF_MODULE));
    const DocumentModule::Entry run =
        reinterpret_cast<DocumentModule::Entry>(module.resolve(DocumentModule::entryName));
    return run ? run(options, programName) : reportMissingModule(options, programName, module.errorString());
}

} // namespace

int main(int argc, char** argv)
{
    const QStringList languages = Translations::wantedLanguages();
    const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    useUtf8InsteadOfAscii();
    qInstallMessageHandler(ignoreMessages);
    QString programFolder;
    Options options;
    {
        const QCoreApplication application(argc, argv);
        const Translations translations(languages);
        programFolder = QCoreApplication::applicationDirPath();
        options = Options::parse(QCoreApplication::arguments());
        if (!needsModule(options.command))
            return answer(options, environment);
    }
    options.languages = languages;
    return runInModule(options, argv[0], programFolder);
}
