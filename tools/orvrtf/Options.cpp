#include "Options.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QFileInfo>

namespace {

const char* const description =
    "Converts and examines Rich Text Format files.\n"
    "\n"
    "Commands:\n"
    "  convert IN OUT  Convert the RTF file IN to HTML or plain text. The suffix of OUT\n"
    "                  (.html, .htm or .txt) says which, unless --to does.\n"
    "  info IN         Count what IN holds: paragraphs, words, characters, fonts,\n"
    "                  pictures, links, notes, tables and lists.\n"
    "  check IN        Say whether IN is sound.\n"
    "\n"
    "IN and OUT can be \"-\" for the standard input and output. HTML is UTF-8 and holds its\n"
    "pictures. Plain text is UTF-8 too: a line for each paragraph, table cell and line\n"
    "break, no-break spaces kept, pictures left out.\n"
    "\n"
    "Damaged RTF loses no text: what can be read is written, one line on the standard\n"
    "error says what is wrong, and the exit status is 1.\n"
    "\n"
    "Exit status: 0 all is well; 1 IN is damaged, or reading or writing failed; 2 the\n"
    "command line is wrong. A failed conversion leaves no partial output file.";

struct Arguments {
    Arguments();

    QCommandLineOption help{{QLatin1String("h"), QLatin1String("help")}, QLatin1String("Show this help.")};
    QCommandLineOption version{{QLatin1String("v"), QLatin1String("version")},
                               QLatin1String("Show the version.")};
    QCommandLineOption to{QLatin1String("to"), QLatin1String("Format of OUT for convert: html or txt."),
                          QLatin1String("format")};
    QCommandLineOption json{QLatin1String("json"), QLatin1String("Let info print JSON.")};
    QCommandLineParser parser;
};

Arguments::Arguments()
{
    parser.setApplicationDescription(QLatin1String(description));
    parser.addOptions({help, version, to, json});
    parser.addPositionalArgument(QLatin1String("COMMAND"), QLatin1String("convert, info or check."));
    parser.addPositionalArgument(QLatin1String("IN"), QLatin1String("RTF file to read."));
    parser.addPositionalArgument(QLatin1String("OUT"), QLatin1String("File that convert writes."),
                                 QLatin1String("[OUT]"));
}

Options invalid(const QString& what)
{
    Options options;
    options.command = Options::Invalid;
    options.text = what;
    return options;
}

bool formatFromName(const QString& name, Options::OutputFormat* format)
{
    const QString lower = name.toLower();
    if (lower == QLatin1String("html") || lower == QLatin1String("htm"))
        *format = Options::Html;
    else if (lower == QLatin1String("txt"))
        *format = Options::PlainText;
    else
        return false;
    return true;
}

/*! Whether both are one existing file; the standard streams never are. */
bool isSameFile(const QString& input, const QString& output)
{
    const QString standardStream = QLatin1String("-");
    if (input == standardStream || output == standardStream || !QFileInfo(input).isFile())
        return false;
    return QFileInfo(input).canonicalFilePath() == QFileInfo(output).canonicalFilePath();
}

Options convertOptions(const Arguments& arguments, const QStringList& files)
{
    if (files.size() != 2)
        return invalid(QLatin1String("convert takes an input and an output file"));
    Options options;
    options.command = Options::Convert;
    options.input = files.at(0);
    options.output = files.at(1);
    if (arguments.parser.isSet(arguments.to)) {
        const QString name = arguments.parser.value(arguments.to);
        if (!formatFromName(name, &options.outputFormat))
            return invalid(
                QString::fromLatin1("unknown output format \"%1\", known are html and txt").arg(name));
    } else if (options.output == QLatin1String("-")) {
        return invalid(QLatin1String("the standard output needs --to html or --to txt"));
    } else if (!formatFromName(QFileInfo(options.output).suffix(), &options.outputFormat)) {
        return invalid(QString::fromLatin1("cannot tell the format of \"%1\" by its suffix, known are "
                                           ".html, .htm and .txt")
                           .arg(options.output));
    }
    if (isSameFile(options.input, options.output))
        return invalid(QString::fromLatin1("\"%1\" is both input and output").arg(options.input));
    return options;
}

Options oneFileOptions(Options::Command command, const QString& name, const QStringList& files)
{
    if (files.size() != 1)
        return invalid(QString::fromLatin1("%1 takes one input file").arg(name));
    Options options;
    options.command = command;
    options.input = files.at(0);
    return options;
}

Options commandOptions(const Arguments& arguments)
{
    QStringList files = arguments.parser.positionalArguments();
    if (files.isEmpty())
        return invalid(QLatin1String("no command given"));
    const QString name = files.takeFirst();
    const bool converts = name == QLatin1String("convert");
    const bool informs = name == QLatin1String("info");
    if (!converts && !informs && name != QLatin1String("check"))
        return invalid(QString::fromLatin1("unknown command \"%1\"").arg(name));
    if (arguments.parser.isSet(arguments.to) && !converts)
        return invalid(QString::fromLatin1("--to does not go with %1").arg(name));
    if (arguments.parser.isSet(arguments.json) && !informs)
        return invalid(QString::fromLatin1("--json does not go with %1").arg(name));
    if (converts)
        return convertOptions(arguments, files);
    Options options = oneFileOptions(informs ? Options::Info : Options::Check, name, files);
    options.json = arguments.parser.isSet(arguments.json);
    return options;
}

} // namespace

Options Options::parse(const QStringList& arguments)
{
    Arguments known;
    if (!known.parser.parse(arguments))
        return invalid(known.parser.errorText());
    Options options;
    if (known.parser.isSet(known.help)) {
        options.command = Help;
        options.text = known.parser.helpText();
        return options;
    }
    if (known.parser.isSet(known.version)) {
        options.command = Version;
        return options;
    }
    return commandOptions(known);
}
