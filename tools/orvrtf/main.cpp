#include "DocumentModule.h"
#include "Messages.h"
#include "Options.h"
#include "Streams.h"

#include <QCoreApplication>
#include <QLibrary>

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

Options parseOptions(int argc, char** argv, QString* programFolder)
{
    const QCoreApplication application(argc, argv);
    *programFolder = QCoreApplication::applicationDirPath();
    return Options::parse(QCoreApplication::arguments());
}

ExitCode print(const QString& text)
{
    QString errorString;
    if (writeOutput(QLatin1String("-"), text.toUtf8(), &errorString))
        return Success;
    printError(Messages::tr("cannot write standard output: %1").arg(errorString));
    return Failure;
}

/*! Runs a command in the module that has what it needs. */
int runInModule(const Options& options, char* programName, const QString& programFolder)
{
    QLibrary module(programFolder + QLatin1String("/" ORVRTF_MODULE));
    const DocumentModule::Entry run =
        reinterpret_cast<DocumentModule::Entry>(module.resolve(DocumentModule::entryName));
    if (run)
        return run(options, programName);
    printError(Messages::tr("the program is not installed completely: %1").arg(module.errorString()));
    return Failure;
}

} // namespace

int main(int argc, char** argv)
{
    useUtf8InsteadOfAscii();
    qInstallMessageHandler(ignoreMessages);
    QString programFolder;
    const Options options = parseOptions(argc, argv, &programFolder);
    switch (options.command) {
    case Options::Invalid:
        printError(Messages::tr("%1; see orvrtf --help").arg(options.text));
        return UsageError;
    case Options::Help: return print(options.text);
    case Options::Version: return print(QLatin1String("orvrtf " ORVRTF_VERSION "\n"));
    case Options::Convert:
    case Options::Info:
    case Options::Check:
    case Options::Strip: break;
    }
    return runInModule(options, argv[0], programFolder);
}
