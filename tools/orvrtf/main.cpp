#include "Batch.h"
#include "Commands.h"
#include "Messages.h"
#include "Options.h"
#include "Streams.h"
#include "Translations.h"

#include <QCoreApplication>
#include <QFont>
#include <QGuiApplication>
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
    std::setlocale(LC_CTYPE, "");
    if (qstrcmp(nl_langinfo(CODESET), "ANSI_X3.4-1968") != 0)
        return;
    // Only this category matters. Each other one is a file that the C library would load at every start.
    qputenv(qEnvironmentVariableIsEmpty("LC_ALL") ? "LC_CTYPE" : "LC_ALL", "C.UTF-8");
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

/*!
    Runs the commands that need no documents: starts the conversions of many files, prints the help or the
    version, or reports errors of the options. \a environment is that of the program as it was started.
*/
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

/*!
    Reading and writing documents never shows anything, so that no display is needed, whatever the environment
    names.
*/
void needNoDisplay()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

/*! Text without a stated size has 12 points, as in RTF, independent of the display that Qt assumes. */
void useUsualFontSize()
{
    QFont font = QGuiApplication::font();
    font.setPointSize(12);
    QGuiApplication::setFont(font);
}

/*! Carries out a command that works on documents, with the least application that it needs. */
ExitCode runWithApplication(const Options& options, char* programName)
{
    // Qt does not see the arguments: "-platform" and the like may be names of files.
    int count = 1;
    char* arguments[] = {programName, nullptr};
    if (!options.needsFonts()) {
        const QCoreApplication application(count, arguments);
        const Translations translations(options.languages);
        return runCommand(options);
    }
    needNoDisplay();
    // The output must not depend on a screen: a pixel is a 96th of an inch, as in HTML.
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    const QGuiApplication application(count, arguments);
    useUsualFontSize();
    const Translations translations(options.languages);
    return runCommand(options);
}

} // namespace

int main(int argc, char** argv)
{
    const QStringList languages = Translations::wantedLanguages();
    const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    useUtf8InsteadOfAscii();
    qInstallMessageHandler(ignoreMessages);
    Options options;
    {
        // A QGuiApplication takes far longer to start than --version and --help, which must not wait for it.
        const QCoreApplication application(argc, argv);
        const Translations translations(languages);
        options = Options::parse(QCoreApplication::arguments());
        if (!options.needsDocuments())
            return answer(options, environment);
    }
    options.languages = languages;
    return runWithApplication(options, argv[0]);
}
