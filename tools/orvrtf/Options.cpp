#include "Options.h"

#include "BatchOptions.h"
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
    "  convert IN OUT  Convert between RTF, HTML and plain text, and to ODT, PDF and\n"
    "                  PNG. The suffixes (.rtf, .html, .htm, .txt; .odt, .pdf, .png)\n"
    "                  determine the formats, unless --from and --to are given. IN can\n"
    "                  also be .doc, .docx or .odt if LibreOffice, AbiWord or pandoc is\n"
    "                  installed. Any other IN is read as RTF.\n"
    "  convert IN... --output-dir DIR --to FORMAT\n"
    "                  Convert each IN to a file in DIR of the same name, with the suffix\n"
    "                  of the format. DIR is created if it is missing.\n"
    "  info IN         Print title, author, dates, header and footer of IN, and count what it\n"
    "                  contains: paragraphs, words, characters, fonts, pictures, links,\n"
    "                  notes, tables and lists.\n"
    "  check IN        Report whether IN is damaged.\n"
    "  strip IN OUT    Copy RTF without pictures, list numbers and unknown control words.\n"
    "\n"
    "IN and OUT can be \"-\" for the standard input and output. Put file names with a leading\n"
    "dash after \"--\". HTML is UTF-8 and embeds its pictures. Plain text is UTF-8 too: a line\n"
    "for each paragraph, table cell and line break, with the numbers of list items; it keeps\n"
    "no-break spaces and has no pictures. Notes stand at the end, in plain text behind marks\n"
    "such as [1], [i] for an endnote and [c1] for a comment. RTF is that of other programs,\n"
    "or with --storage the application's own form.\n"
    "PDF and PNG have the pages that the RTF defines, by default US Letter, and A4 for\n"
    "other IN. PNG is one picture a page: OUT.png, OUT-2.png and so on.\n"
    "\n"
    "Damaged RTF is converted as far as it can be read. Then one line on the standard error\n"
    "reports the first error, and the exit status is 1.\n"
    "\n"
    "Exit status: 0 success; 1 IN is damaged, or reading or writing failed; 2 the command\n"
    "line is wrong. A failed conversion leaves no partial output file.");

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
    QCommandLineOption to{QLatin1String("to"),
                          Messages::tr("Format of OUT for convert: rtf, html, txt, odt, pdf or png."),
                          Messages::tr("format")};
    QCommandLineOption storage{QLatin1String("storage"),
                               Messages::tr("Read and write RTF in the application's own form.")};
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

    /*! The options of convert that control the conversion of a file. */
    QList<QCommandLineOption> conversion() const
    {
        return {from, engine, to, storage, msWordHighlight, decorateLinks, footnotes, annotations};
    }
};

Arguments::Arguments()
{
    parser.setApplicationDescription(Messages::tr(description));
    parser.addOptions({help, version});
    parser.addOptions(conversion());
    parser.addOptions(BatchOptions::all());
    parser.addOption(json);
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

/*! What Qt finds wrong, without the full stop: it becomes the first half of a line. */
QString parsingError(const QCommandLineParser& parser)
{
    QString text = parser.errorText();
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text;
}

/*! A format by the name that options and suffixes have for it. */
struct FormatName {
    const char* name;
    Options::Format format;
    bool isRead;
};

const FormatName formatNames[] = {
    {"rtf", Options::Rtf, true},       {"html", Options::Html, true}, {"htm", Options::Html, true},
    {"txt", Options::PlainText, true}, {"odt", Options::Odt, false},  {"pdf", Options::Pdf, false},
    {"png", Options::Png, false},
};

enum class Use { Input, Output };

bool formatFromName(const QString& name, Use use, Options::Format* format)
{
    for (const FormatName& known : formatNames) {
        if ((known.isRead || use == Use::Output) && name.toLower() == QLatin1String(known.name)) {
            *format = known.format;
            return true;
        }
    }
    return false;
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

/*! Determines the input format of convert. Returns an error message about --from, empty on success. */
QString readFrom(const Arguments& arguments, Options* options)
{
    const QCommandLineParser& parser = arguments.parser;
    const QString suffix = QFileInfo(options->input).suffix();
    if (parser.isSet(arguments.from)) {
        const QString name = parser.value(arguments.from);
        if (!formatFromName(name, Use::Input, &options->inputFormat))
            return Messages::tr("unknown input format \"%1\", known are rtf, html and txt").arg(name);
    } else if (!formatFromName(suffix, Use::Input, &options->inputFormat)) {
        options->needsEngine = isWordProcessorSuffix(suffix);
    }
    return QString();
}

/*! Reads --engine. Returns an error message, empty on success. */
QString readEngine(const Arguments& arguments, Options* options)
{
    const QCommandLineParser& parser = arguments.parser;
    if (!parser.isSet(arguments.engine))
        return QString();
    if (!options->needsEngine)
        return Messages::tr("--engine goes with .doc, .docx and .odt input only");
    const QString name = parser.value(arguments.engine);
    if (engineFromName(name, &options->engine))
        return QString();
    return Messages::tr("unknown engine \"%1\", known are auto, libreoffice, abiword and pandoc").arg(name);
}

/*! Reads --storage, which needs RTF to read or to write. Returns an error message, empty on success. */
QString readStorage(const Arguments& arguments, Options* options)
{
    options->storage = arguments.parser.isSet(arguments.storage);
    if (options->storage && options->outputFormat != Options::Rtf && options->inputFormat != Options::Rtf)
        return Messages::tr("--storage goes with RTF only");
    return QString();
}

/*! Reads the options that control the writing of RTF. Returns an error message, empty on success. */
QString readRtfOptions(const Arguments& arguments, Options* options)
{
    const QCommandLineParser& parser = arguments.parser;
    if (options->outputFormat != Options::Rtf) {
        for (const QCommandLineOption& option : {arguments.msWordHighlight, arguments.decorateLinks,
                                                 arguments.footnotes, arguments.annotations}) {
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

/*! Determines the output format of convert. Returns an error message, empty on success. */
QString readOutputFormat(const Arguments& arguments, Options* options)
{
    const bool isStandardOutput = options->output == QLatin1String("-");
    if (arguments.parser.isSet(arguments.to)) {
        const QString name = arguments.parser.value(arguments.to);
        if (!formatFromName(name, Use::Output, &options->outputFormat))
            return Messages::tr("unknown output format \"%1\", known are rtf, html, txt, odt, pdf and png")
                .arg(name);
    } else if (isStandardOutput) {
        return Messages::tr("the standard output needs --to rtf, html, txt, odt or pdf");
    } else if (!formatFromName(QFileInfo(options->output).suffix(), Use::Output, &options->outputFormat)) {
        return Messages::tr("cannot tell the format of \"%1\" by its suffix, known are "
                            ".rtf, .html, .htm, .txt, .odt, .pdf and .png")
            .arg(options->output);
    }
    if (isStandardOutput && options->outputFormat == Options::Png)
        return Messages::tr("png is a file for each page and cannot go to the standard output");
    return QString();
}

Options convertOptions(const Arguments& arguments, Options options)
{
    QString problem = readFrom(arguments, &options);
    if (problem.isEmpty())
        problem = readEngine(arguments, &options);
    if (problem.isEmpty())
        problem = readOutputFormat(arguments, &options);
    if (problem.isEmpty())
        problem = readStorage(arguments, &options);
    if (problem.isEmpty())
        problem = readRtfOptions(arguments, &options);
    return problem.isEmpty() ? options : invalid(problem);
}

/*! The options given for the conversion, as a worker takes them for the input that \a options name. */
QStringList workerOptions(const Arguments& arguments, Options options)
{
    QStringList result;
    const bool takesStorage = readStorage(arguments, &options).isEmpty();
    const QList<QCommandLineOption> conversion = arguments.conversion();
    for (const QCommandLineOption& option : conversion) {
        if (!arguments.parser.isSet(option)
            || (option.names() == arguments.engine.names() && !options.needsEngine)
            || (option.names() == arguments.storage.names() && !takesStorage))
            continue;
        const QString name = QLatin1String("--") + option.names().constFirst();
        result << (option.valueName().isEmpty() ? name
                                                : name + QLatin1Char('=') + arguments.parser.value(option));
    }
    return result;
}

/*! Plans the output of each of \a files. Returns an error message, empty on success. */
QString readBatchFiles(const Arguments& arguments, const QStringList& files, Options* options)
{
    if (files.isEmpty())
        return Messages::tr("convert --output-dir takes input files");
    const QString suffix = arguments.parser.value(arguments.to).toLower();
    BatchPlan& plan = options->batch;
    bool readsRtf = false;
    for (const QString& file : files) {
        if (file == QLatin1String("-"))
            return Messages::tr("the standard input does not go with --output-dir");
        Options one;
        one.input = file;
        one.outputFormat = options->outputFormat;
        QString problem = readFrom(arguments, &one);
        if (!problem.isEmpty())
            return problem;
        options->needsEngine = options->needsEngine || one.needsEngine;
        readsRtf = readsRtf || one.inputFormat == Options::Rtf;
        plan.files.append(
            {file, batchOutput(plan.outputDirectory, file, suffix), workerOptions(arguments, one)});
    }
    options->inputFormat = readsRtf ? Options::Rtf : Options::PlainText;
    QString problem = readEngine(arguments, options);
    if (problem.isEmpty())
        problem = readStorage(arguments, options);
    return problem.isEmpty() ? batchConflict(plan.files) : problem;
}

Options batchOptions(const Arguments& arguments, const QStringList& files)
{
    Options options;
    options.command = Options::Batch;
    QString problem = BatchOptions::read(arguments.parser, &options.batch);
    if (problem.isEmpty() && !arguments.parser.isSet(arguments.to))
        problem = Messages::tr("--output-dir needs --to");
    if (problem.isEmpty())
        problem = readOutputFormat(arguments, &options);
    if (problem.isEmpty())
        problem = readRtfOptions(arguments, &options);
    if (problem.isEmpty())
        problem = readBatchFiles(arguments, files, &options);
    return problem.isEmpty() ? options : invalid(problem);
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
    const QList<QCommandLineOption> convertOnly = arguments.conversion() + BatchOptions::all();
    for (const QCommandLineOption& option : convertOnly) {
        const bool isForReading = option.names() == arguments.storage.names() && command != Options::Strip;
        if (arguments.parser.isSet(option) && command != Options::Convert && !isForReading)
            return invalid(Messages::tr("--%1 does not go with %2").arg(option.names().constFirst(), name));
    }
    if (arguments.parser.isSet(arguments.json) && command != Options::Info)
        return invalid(Messages::tr("--json does not go with %1").arg(name));
    if (BatchOptions::isBatch(arguments.parser))
        return batchOptions(arguments, files);
    const QString stray = BatchOptions::stray(arguments.parser);
    if (!stray.isEmpty())
        return invalid(Messages::tr("--%1 goes with --output-dir only").arg(stray));
    if (command == Options::Convert || command == Options::Strip) {
        const Options options = twoFileOptions(command, name, files);
        return options.command == Options::Convert ? convertOptions(arguments, options) : options;
    }
    Options options = oneFileOptions(command, name, files);
    options.json = arguments.parser.isSet(arguments.json);
    options.storage = arguments.parser.isSet(arguments.storage);
    return options;
}

} // namespace

bool Options::needsDocuments() const
{
    return needsFonts() || command == Check || command == Strip;
}

Options Options::parse(const QStringList& arguments)
{
    Arguments known;
    if (!known.parser.parse(arguments))
        return invalid(parsingError(known.parser));
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
