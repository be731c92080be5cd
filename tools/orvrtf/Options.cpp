#include "Options.h"

#include "Messages.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QHash>

namespace {

const char* const description = QT_TRANSLATE_NOOP(
    "orvrtf",
    "Converts and examines Rich Text Format files.\n"
    "\n"
    "Commands:\n"
    "  convert IN OUT  Convert between RTF, HTML and plain text. The suffixes (.rtf,\n"
    "                  .html, .htm or .txt) say which, unless --from and --to do. IN\n"
    "                  can also be .doc, .docx or .odt, where LibreOffice, AbiWord or\n"
    "                  pandoc is installed. Any other IN is taken for RTF.\n"
    "  info IN         Count what IN holds: paragraphs, words, characters, fonts,\n"
    "                  pictures, links, notes, tables and lists.\n"
    "  check IN        Say whether IN is sound.\n"
    "  strip IN OUT    Copy RTF without pictures, list numbers and unknown control words.\n"
    "\n"
    "IN and OUT can be \"-\" for the standard input and output. HTML is UTF-8 and holds its\n"
    "pictures. Plain text is UTF-8 too: a line for each paragraph, table cell and line\n"
    "break, no-break spaces kept, pictures left out. RTF is written for other programs\n"
    "unless --storage asks for the application's own form.\n"
    "\n"
    "Damaged RTF loses no text: what can be read is written, one line on the standard\n"
    "error says what is wrong, and the exit status is 1.\n"
    "\n"
    "Exit status: 0 all is well; 1 IN is damaged, or reading or writing failed; 2 the\n"
    "command line is wrong. A failed conversion leaves no partial output file.");

struct Arguments {
    Arguments();

    QCommandLineOption help{{QLatin1String("h"), QLatin1String("help")}, Messages::tr("Show this help.")};
    QCommandLineOption version{{QLatin1String("v"), QLatin1String("version")},
                               Messages::tr("Show the version.")};
    QCommandLineOption from{QLatin1String("from"),
                            Messages::tr("Format of IN for convert: rtf, html or txt."),
                            Messages::tr("format")};
    QCommandLineOption engine{
        QLatin1String("engine"),
        Messages::tr("Program that reads .doc, .docx and .odt: auto, libreoffice, abiword or pandoc."),
        Messages::tr("name")};
    QCommandLineOption to{QLatin1String("to"), Messages::tr("Format of OUT for convert: rtf, html or txt."),
                          Messages::tr("format")};
    QCommandLineOption storage{QLatin1String("storage"),
                               Messages::tr("Write RTF in the application's own form.")};
    QCommandLineOption msWordHighlight{
        QLatin1String("ms-word-highlight"),
        Messages::tr("Write text backgrounds as MS Word takes them in any colour.")};
    QCommandLineOption decorateLinks{QLatin1String("decorate-links"),
                                     Messages::tr("Write links blue and underlined.")};
    QCommandLineOption footnotes{QLatin1String("footnotes"),
                                 Messages::tr("Write footnotes as annotation, footnote or alternate."),
                                 Messages::tr("style")};
    QCommandLineOption annotations{QLatin1String("annotations"),
                                   Messages::tr("Write annotations as annotation, footnote or alternate."),
                                   Messages::tr("style")};
    QCommandLineOption json{QLatin1String("json"), Messages::tr("Let info print JSON.")};
    QCommandLineParser parser;
};

Arguments::Arguments()
{
    parser.setApplicationDescription(Messages::tr(description));
    parser.addOptions({help, version, from, engine, to, storage, msWordHighlight, decorateLinks, footnotes,
                       annotations, json});
    parser.addPositionalArgument(QLatin1String("COMMAND"), Messages::tr("convert, info, check or strip."));
    parser.addPositionalArgument(QLatin1String("IN"), Messages::tr("File to read."));
    parser.addPositionalArgument(QLatin1String("OUT"), Messages::tr("File that convert and strip write."),
                                 QLatin1String("[OUT]"));
}

Options invalid(const QString& what)
{
    Options options;
    options.command = Options::Invalid;
    options.text = what;
    return options;
}

bool formatFromName(const QString& name, Options::Format* format)
{
    const QString lower = name.toLower();
    if (lower == QLatin1String("html") || lower == QLatin1String("htm"))
        *format = Options::Html;
    else if (lower == QLatin1String("txt"))
        *format = Options::PlainText;
    else if (lower == QLatin1String("rtf"))
        *format = Options::Rtf;
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

bool styleFromName(const QString& name, ORVTextRtf::ExportStyle* style)
{
    if (name == QLatin1String("annotation"))
        *style = ORVTextRtf::ExportAsAnnotation;
    else if (name == QLatin1String("footnote"))
        *style = ORVTextRtf::ExportAsFootnote;
    else if (name == QLatin1String("alternate"))
        *style = ORVTextRtf::ExportAsAlternateFootnote;
    else
        return false;
    return true;
}

bool engineFromName(const QString& name, ORVImportExport::Engine* engine)
{
    if (name == QLatin1String("auto"))
        *engine = ORVImportExport::AutomaticEngine;
    else if (name == QLatin1String("libreoffice"))
        *engine = ORVImportExport::LibreOfficeEngine;
    else if (name == QLatin1String("abiword"))
        *engine = ORVImportExport::AbiWordEngine;
    else if (name == QLatin1String("pandoc"))
        *engine = ORVImportExport::PandocEngine;
    else
        return false;
    return true;
}

/*! Whether files that end in \a suffix are read through another program. */
bool isWordProcessorSuffix(const QString& suffix)
{
    const QString lower = suffix.toLower();
    return lower == QLatin1String("doc") || lower == QLatin1String("docx") || lower == QLatin1String("odt");
}

/*! Finds out what the input of convert is; a text says what is wrong with the options, if anything is. */
QString readInputOptions(const Arguments& arguments, Options* options)
{
    const QCommandLineParser& parser = arguments.parser;
    const QString suffix = QFileInfo(options->input).suffix();
    if (parser.isSet(arguments.from)) {
        const QString name = parser.value(arguments.from);
        if (!formatFromName(name, &options->inputFormat))
            return Messages::tr("unknown input format \"%1\", known are rtf, html and txt").arg(name);
    } else if (!formatFromName(suffix, &options->inputFormat)) {
        options->needsEngine = isWordProcessorSuffix(suffix);
    }
    if (!parser.isSet(arguments.engine))
        return QString();
    if (!options->needsEngine)
        return Messages::tr("--engine goes with .doc, .docx and .odt input only");
    const QString name = parser.value(arguments.engine);
    if (engineFromName(name, &options->engine))
        return QString();
    return Messages::tr("unknown engine \"%1\", known are auto, libreoffice, abiword and pandoc").arg(name);
}

/*! Reads the options that steer the writing of RTF; a text says what is wrong with them, if anything is. */
QString readRtfOptions(const Arguments& arguments, Options* options)
{
    const QCommandLineParser& parser = arguments.parser;
    if (options->outputFormat != Options::Rtf) {
        for (const QCommandLineOption& option :
             {arguments.storage, arguments.msWordHighlight, arguments.decorateLinks, arguments.footnotes,
              arguments.annotations}) {
            if (parser.isSet(option))
                return Messages::tr("--%1 goes with RTF output only").arg(option.names().constFirst());
        }
    }
    options->rtf.storage = parser.isSet(arguments.storage);
    options->rtf.msWordHighlight = parser.isSet(arguments.msWordHighlight);
    options->rtf.decorateLinks = parser.isSet(arguments.decorateLinks);
    const QString unknown =
        Messages::tr("unknown style \"%1\", known are annotation, footnote and alternate");
    if (parser.isSet(arguments.footnotes)
        && !styleFromName(parser.value(arguments.footnotes), &options->rtf.footnotes))
        return unknown.arg(parser.value(arguments.footnotes));
    if (parser.isSet(arguments.annotations)
        && !styleFromName(parser.value(arguments.annotations), &options->rtf.annotations))
        return unknown.arg(parser.value(arguments.annotations));
    return QString();
}

Options twoFileOptions(Options::Command command, const QString& name, const QStringList& files)
{
    if (files.size() != 2)
        return invalid(Messages::tr("%1 takes an input and an output file").arg(name));
    if (isSameFile(files.at(0), files.at(1)))
        return invalid(Messages::tr("\"%1\" is both input and output").arg(files.at(0)));
    Options options;
    options.command = command;
    options.input = files.at(0);
    options.output = files.at(1);
    return options;
}

Options convertOptions(const Arguments& arguments, Options options)
{
    const QString inputProblem = readInputOptions(arguments, &options);
    if (!inputProblem.isEmpty())
        return invalid(inputProblem);
    if (arguments.parser.isSet(arguments.to)) {
        const QString name = arguments.parser.value(arguments.to);
        if (!formatFromName(name, &options.outputFormat))
            return invalid(
                Messages::tr("unknown output format \"%1\", known are rtf, html and txt").arg(name));
    } else if (options.output == QLatin1String("-")) {
        return invalid(Messages::tr("the standard output needs --to rtf, --to html or --to txt"));
    } else if (!formatFromName(QFileInfo(options.output).suffix(), &options.outputFormat)) {
        return invalid(Messages::tr("cannot tell the format of \"%1\" by its suffix, known are "
                                    ".rtf, .html, .htm and .txt")
                           .arg(options.output));
    }
    const QString problem = readRtfOptions(arguments, &options);
    if (!problem.isEmpty())
        return invalid(problem);
    return options;
}

Options oneFileOptions(Options::Command command, const QString& name, const QStringList& files)
{
    if (files.size() != 1)
        return invalid(Messages::tr("%1 takes one input file").arg(name));
    Options options;
    options.command = command;
    options.input = files.at(0);
    return options;
}

Options::Command commandFromName(const QString& name)
{
    static const QHash<QString, Options::Command> commands{{QLatin1String("convert"), Options::Convert},
                                                           {QLatin1String("info"), Options::Info},
                                                           {QLatin1String("check"), Options::Check},
                                                           {QLatin1String("strip"), Options::Strip}};
    return commands.value(name, Options::Invalid);
}

Options commandOptions(const Arguments& arguments)
{
    QStringList files = arguments.parser.positionalArguments();
    if (files.isEmpty())
        return invalid(Messages::tr("no command given"));
    const QString name = files.takeFirst();
    const Options::Command command = commandFromName(name);
    if (command == Options::Invalid)
        return invalid(Messages::tr("unknown command \"%1\"").arg(name));
    for (const QCommandLineOption& option :
         {arguments.from, arguments.engine, arguments.to, arguments.storage, arguments.msWordHighlight,
          arguments.decorateLinks, arguments.footnotes, arguments.annotations}) {
        if (arguments.parser.isSet(option) && command != Options::Convert)
            return invalid(Messages::tr("--%1 does not go with %2").arg(option.names().constFirst(), name));
    }
    if (arguments.parser.isSet(arguments.json) && command != Options::Info)
        return invalid(Messages::tr("--json does not go with %1").arg(name));
    if (command == Options::Convert || command == Options::Strip) {
        const Options options = twoFileOptions(command, name, files);
        return options.command == Options::Convert ? convertOptions(arguments, options) : options;
    }
    Options options = oneFileOptions(command, name, files);
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
