#include "Commands.h"
#include "Options.h"
#include "Streams.h"

#include <QCoreApplication>
#include <QGuiApplication>

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

/*! Nothing is ever shown; with a display Qt would want to reach it all the same. */
void needNoDisplay()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

/*! Keeps what Qt says of its own, about environment and damaged pictures, from the standard error. */
void ignoreMessages(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtFatalMsg)
        printError(message);
}

Options parseOptions(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return Options::parse(QCoreApplication::arguments());
}

ExitCode print(const QString& text)
{
    QString errorString;
    if (writeOutput(QLatin1String("-"), text.toUtf8(), &errorString))
        return Success;
    printError(QString::fromLatin1("cannot write standard output: %1").arg(errorString));
    return Failure;
}

/*! Starts the application that the command of \a options needs, and runs it. */
ExitCode run(const Options& options, char* programName)
{
    // Qt does not see the arguments: "-platform" and the like may be names of files.
    int count = 1;
    char* arguments[] = {programName, nullptr};
    if (options.command == Options::Check || options.command == Options::Strip) {
        const QCoreApplication application(count, arguments);
        return runCommand(options);
    }
    needNoDisplay();
    const QGuiApplication application(count, arguments);
    return runCommand(options);
}

} // namespace

int main(int argc, char** argv)
{
    useUtf8InsteadOfAscii();
    qInstallMessageHandler(ignoreMessages);
    const Options options = parseOptions(argc, argv);
    switch (options.command) {
    case Options::Invalid:
        printError(QString::fromLatin1("%1; see orvrtf --help").arg(options.text));
        return UsageError;
    case Options::Help: return print(options.text);
    case Options::Version: return print(QLatin1String("orvrtf " ORVRTF_VERSION "\n"));
    case Options::Convert:
    case Options::Info:
    case Options::Check:
    case Options::Strip: break;
    }
    return run(options, argv[0]);
}
