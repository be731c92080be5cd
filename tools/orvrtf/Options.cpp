#include "Options.h"

#include "BatchOptions.h"
#include "Messages.h"
#include "OutputOptions.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <iterator>

namespace {

const char* const description = QT_TRANSLATE_NOOP(
    "orvrtf",
    "Converts and examines Rich Text Format files.\n"
    "\n"
    "Commands:\n"
    "  convert IN OUT  Convert between RTF, HTML and plain text, and to Markdown, ODT,\n"
    "                  PDF and PNG. The suffixes (.rtf, .html, .htm, .txt; .md, .odt,\n"
    "                  .pdf, .png) determine the formats, unless --from and --to are\n"
    "                  given. IN can also be .doc, .docx or .odt if LibreOffice, AbiWord\n"
    "                  or pandoc is installed. Any other IN is read as RTF.\n"
    "  convert IN... --output-dir DIR --to FORMAT\n"
    "                  Convert each IN to a file in DIR of the same name, with the suffix\n"
    "                  of the format. DIR is created if it is missing.\n"
    "  info IN         Print title, author, dates, header and footer of IN, and count what it\n"
    "                  contains: paragraphs, words, characters, fonts, pictures, links,\n"
    "                  notes, tables and lists.\n"
    "  check IN        Report whether IN is damaged.\n"
    "  strip IN OUT    Copy RTF without pictures, list numbers and unknown control words.\n"
    "  diff A B [OUT]  Compare the text and the formats of A and B, which can be all that\n"
    "                  convert reads. The report is text or HTML (--to, or the suffix of OUT),\n"
    "                  by default text on the standard output.\n"
    "\n"
    "IN and OUT can be \"-\" for the standard input and output. Put file names with a leading\n"
    "dash after \"--\". HTML is UTF-8 and embeds its pictures, or with --media refers to files.\n"
    "Plain text is UTF-8 too: a line for each paragraph, table cell and line break, with the\n"
    "numbers of list items; it keeps no-break spaces and has no pictures. Markdown is CommonMark\n"
    "with tables and footnotes, and its pictures are files in a folder beside OUT. Notes stand\n"
    "at the end, in plain text behind marks such as [1], [i] for an endnote and [c1] for a\n"
    "comment. RTF is that of other programs, or with --storage the application's own form.\n"
    "PDF and PNG have the pages that the RTF defines, by default US Letter, and A4 for\n"
    "other IN. PNG is one picture a page: OUT.png, OUT-2.png and so on.\n"
    "\n"
    "Damaged RTF is converted as far as it can be read. Then one line on the standard error\n"
    "reports the first error, and the exit status is 1.\n"
    "\n"
    "Exit status: 0 success; 1 IN is damaged, or reading or writing failed; 2 the command\n"
    "line is wrong. That of diff: 0 no difference; 1 differences; 2 an error. A failed\n"
    "conversion leaves no partial output file.");

struct Arguments {
    Arguments();

    QCommandLineOption help{{QLatin1String("h"), QLatin1String("help")}, Messages::tr("Show this help.")};
    QCommandLineOption version{{QLatin1String("v"), QLatin1String("version")},
                               Messages::tr("Show the version.")};
    QCommandLineOption from{QLatin1String("from"),
                            Messages::tr("Format of IN for convert, of A and B for diff: rtf, html or txt."),
                            Messages::tr("format")};
    QCommandLineOption engine{
        QLatin1String("engine"),
        Messages::tr("Program that reads .doc, .docx and .odt: auto, libreoffice, abiword or "
                     "pandoc. If libreoffice, it writes .odt too."),
        Messages::tr("name")};
    QCommandLineOption to{
        QLatin1String("to"),
        Messages::tr("Format of OUT: rtf, html, txt, md, odt, pdf or png; for diff html or txt."),
        Messages::tr("format")};
    QCommandLineOption storage{QLatin1String("storage"),
                               Messages::tr("Read and write RTF in the application's own form.")};
    QCommandLineOption json{QLatin1String("json"), Messages::tr("Let info print JSON.")};
    QCommandLineParser parser;

    /*! The options of convert that control the conversion of a file. */
    QList<QCommandLineOption> conversion() const
    {
        return QList<QCommandLineOption>{from, engine, to, storage} + OutputOptions::all();
    }
};

Arguments::Arguments()
{
    parser.setApplicationDescription(Messages::tr(description));
    parser.addOptions({help, version});
    parser.addOptions(conversion());
    parser.addOptions(BatchOptions::all());
    parser.addOption(json);
    parser.addPositionalArgument(QLatin1String("COMMAND"),
                                 Messages::tr("convert, info, check, strip or diff."));
    parser.addPositionalArgument(QLatin1String("IN"), Messages::tr("File to read."));
    parser.addPositionalArgument(QLatin1String("OUT"),
                                 Messages::tr("File that convert, strip and diff write."),
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

/*! Whether both are one existing file; the standard streams never are. */
bool isSameFile(const QString& input, const QString& output)
{
    const QString standardStream = QLatin1String("-");
    if (input == standardStream || output == standardStream || !QFileInfo(input).isFile())
        return false;
    return QFileInfo(input).canonicalFilePath() == QFileInfo(output).canonicalFilePath();
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

/*! Sets the format of \a source. Returns an error message about --from, empty on success. */
QString readFrom(const Arguments& arguments, Source* source)
{
    const QCommandLineParser& parser = arguments.parser;
    const QString suffix = QFileInfo(source->path).suffix();
    if (parser.isSet(arguments.from)) {
        const QString name = parser.value(arguments.from);
        if (!Formats::fromName(name, Formats::Use::Input, &source->format))
            return Messages::tr("unknown input format \"%1\", known are rtf, html and txt").arg(name);
    } else if (!Formats::fromName(suffix, Formats::Use::Input, &source->format)) {
        source->needsEngine = Formats::isOfWordProcessor(suffix);
    }
    return QString();
}

/*! Reads --engine, of which some input or the output can make use. Returns an error message, empty on success. */
QString readEngine(const Arguments& arguments, Options* options)
{
    const QCommandLineParser& parser = arguments.parser;
    if (!parser.isSet(arguments.engine))
        return QString();
    const bool isRead = options->input.needsEngine || options->other.needsEngine;
    const bool writesOdt = options->output.format == FileFormat::Odt;
    if (!isRead && !writesOdt)
        return Messages::tr("--engine goes with .doc, .docx and .odt only");
    const QString name = parser.value(arguments.engine);
    if (!engineFromName(name, &options->engine))
        return Messages::tr("unknown engine \"%1\", known are auto, libreoffice, abiword and pandoc")
            .arg(name);
    options->output.odtByLibreOffice = writesOdt && options->engine == ORVImportExport::LibreOfficeEngine;
    if (isRead || options->output.odtByLibreOffice)
        return QString();
    return Messages::tr("engine \"%1\" does not write .odt, only libreoffice does").arg(name);
}

/*! Reads --storage, which needs RTF to read or to write. Returns an error message, empty on success. */
QString readStorage(const Arguments& arguments, Options* options)
{
    options->storage = arguments.parser.isSet(arguments.storage);
    options->output.rtf.storage = options->storage;
    const FileFormat formats[] = {options->input.format, options->other.format, options->output.format};
    const bool hasRtf =
        std::find(std::begin(formats), std::end(formats), FileFormat::Rtf) != std::end(formats);
    return options->storage && !hasRtf ? Messages::tr("--storage goes with RTF only") : QString();
}

Options twoFileOptions(Options::Command command, const QString& name, const QStringList& files)
{
    if (files.size() != 2)
        return invalid(Messages::tr("%1 takes an input and an output file").arg(name));
    if (isSameFile(files.at(0), files.at(1)))
        return invalid(Messages::tr("\"%1\" is both input and output").arg(files.at(0)));
    Options options;
    options.command = command;
    options.input.path = files.at(0);
    options.output.path = files.at(1);
    return options;
}

/*! Determines the output format of convert. Returns an error message, empty on success. */
QString readOutputFormat(const Arguments& arguments, ExportOptions* output)
{
    const bool isStandardOutput = output->path == QLatin1String("-");
    if (arguments.parser.isSet(arguments.to)) {
        const QString name = arguments.parser.value(arguments.to);
        if (!Formats::fromName(name, Formats::Use::Output, &output->format))
            return Messages::tr(
                       "unknown output format \"%1\", known are rtf, html, txt, md, odt, pdf and png")
                .arg(name);
    } else if (isStandardOutput) {
        return Messages::tr("the standard output needs --to rtf, html, txt, md, odt or pdf");
    } else if (!Formats::fromName(QFileInfo(output->path).suffix(), Formats::Use::Output, &output->format)) {
        return Messages::tr("cannot tell the format of \"%1\" by its suffix, known are "
                            ".rtf, .html, .htm, .txt, .md, .odt, .pdf and .png")
            .arg(output->path);
    }
    if (isStandardOutput && output->format == FileFormat::Png)
        return Messages::tr("png is a file for each page and cannot go to the standard output");
    return QString();
}

Options convertOptions(const Arguments& arguments, Options options)
{
    // No second input needs RTF.
    options.other.format = FileFormat::PlainText;
    QString problem = readFrom(arguments, &options.input);
    if (problem.isEmpty())
        problem = readOutputFormat(arguments, &options.output);
    if (problem.isEmpty())
        problem = readEngine(arguments, &options);
    if (problem.isEmpty())
        problem = readStorage(arguments, &options);
    if (problem.isEmpty())
        problem = OutputOptions::read(arguments.parser, &options.output);
    return problem.isEmpty() ? options : invalid(problem);
}

/*! The options given for the conversion, as a worker takes them for the file that \a options name. */
QStringList workerOptions(const Arguments& arguments, Options options)
{
    QStringList result;
    const bool takesEngine = readEngine(arguments, &options).isEmpty();
    const bool takesStorage = readStorage(arguments, &options).isEmpty();
    const QList<QCommandLineOption> conversion = arguments.conversion();
    for (const QCommandLineOption& option : conversion) {
        if (!arguments.parser.isSet(option) || (option.names() == arguments.engine.names() && !takesEngine)
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
    Options any = *options;
    any.input.format = FileFormat::PlainText;
    for (const QString& file : files) {
        if (file == QLatin1String("-"))
            return Messages::tr("the standard input does not go with --output-dir");
        Options one = *options;
        one.input.path = file;
        QString problem = readFrom(arguments, &one.input);
        if (!problem.isEmpty())
            return problem;
        any.input.needsEngine = any.input.needsEngine || one.input.needsEngine;
        if (one.input.format == FileFormat::Rtf)
            any.input.format = FileFormat::Rtf;
        plan.files.append(
            {file, batchOutput(plan.outputDirectory, file, suffix), workerOptions(arguments, one)});
    }
    // Of these options each goes with some of the files.
    QString problem = readEngine(arguments, &any);
    if (problem.isEmpty())
        problem = readStorage(arguments, &any);
    return problem.isEmpty() ? batchConflict(plan.files) : problem;
}

Options batchOptions(const Arguments& arguments, const QStringList& files)
{
    Options options;
    options.command = Options::Batch;
    options.other.format = FileFormat::PlainText;
    QString problem = BatchOptions::read(arguments.parser, &options.batch);
    if (problem.isEmpty() && !arguments.parser.isSet(arguments.to))
        problem = Messages::tr("--output-dir needs --to");
    if (problem.isEmpty())
        problem = readOutputFormat(arguments, &options.output);
    if (problem.isEmpty())
        problem = OutputOptions::read(arguments.parser, &options.output);
    if (problem.isEmpty())
        problem = readBatchFiles(arguments, files, &options);
    return problem.isEmpty() ? options : invalid(problem);
}

/*! Determines the format of diff's report, by default text. Returns an error message, empty on success. */
QString readReportFormat(const Arguments& arguments, ExportOptions* output)
{
    const bool isFormatGiven = arguments.parser.isSet(arguments.to);
    output->format = FileFormat::PlainText;
    if (!isFormatGiven && output->path == QLatin1String("-"))
        return QString();
    const QString name =
        isFormatGiven ? arguments.parser.value(arguments.to) : QFileInfo(output->path).suffix();
    const bool isKnown = Formats::fromName(name, Formats::Use::Output, &output->format);
    if (isKnown && (output->format == FileFormat::Html || output->format == FileFormat::PlainText))
        return QString();
    if (isFormatGiven)
        return Messages::tr("unknown report format \"%1\", known are html and txt").arg(name);
    return Messages::tr("cannot tell the format of \"%1\" by its suffix, known are .html, .htm and .txt")
        .arg(output->path);
}

Options diffOptions(const Arguments& arguments, const QStringList& files)
{
    if (files.size() != 2 && files.size() != 3)
        return invalid(Messages::tr("diff takes two input files, and an output file if wanted"));
    Options options;
    options.command = Options::Diff;
    options.input.path = files.at(0);
    options.other.path = files.at(1);
    options.output.path = files.value(2, QLatin1String("-"));
    if (options.input.path == QLatin1String("-") && options.other.path == QLatin1String("-"))
        return invalid(Messages::tr("the standard input cannot be both files of diff"));
    for (const Source& source : {options.input, options.other}) {
        if (isSameFile(source.path, options.output.path))
            return invalid(Messages::tr("\"%1\" is both input and output").arg(source.path));
    }
    QString problem = readFrom(arguments, &options.input);
    if (problem.isEmpty())
        problem = readFrom(arguments, &options.other);
    if (problem.isEmpty())
        problem = readReportFormat(arguments, &options.output);
    if (problem.isEmpty())
        problem = readEngine(arguments, &options);
    if (problem.isEmpty())
        problem = readStorage(arguments, &options);
    return problem.isEmpty() ? options : invalid(problem);
}

Options oneFileOptions(Options::Command command, const QString& name, const QStringList& files)
{
    if (files.size() != 1)
        return invalid(Messages::tr("%1 takes one input file").arg(name));
    Options options;
    options.command = command;
    options.input.path = files.at(0);
    return options;
}

Options::Command commandFromName(const QString& name)
{
    static const QHash<QString, Options::Command> commands{{QLatin1String("convert"), Options::Convert},
                                                           {QLatin1String("info"), Options::Info},
                                                           {QLatin1String("check"), Options::Check},
                                                           {QLatin1String("strip"), Options::Strip},
                                                           {QLatin1String("diff"), Options::Diff}};
    return commands.value(name, Options::Invalid);
}

/*! The name of an option that was given but does not go with \a command; empty when there is none. */
QString misplacedOption(const Arguments& arguments, Options::Command command)
{
    QSet<QString> allowed;
    const auto allow = [&allowed](const QList<QCommandLineOption>& options) {
        for (const QCommandLineOption& option : options)
            allowed.insert(option.names().constFirst());
    };
    if (command == Options::Convert)
        allow(arguments.conversion() + BatchOptions::all());
    if (command == Options::Diff)
        allow({arguments.from, arguments.engine, arguments.to});
    if (command != Options::Strip)
        allow({arguments.storage});
    if (command == Options::Info)
        allow({arguments.json});
    const QStringList given = arguments.parser.optionNames();
    for (const QString& name : given) {
        if (!allowed.contains(name))
            return name;
    }
    return QString();
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
    const QString misplaced = misplacedOption(arguments, command);
    if (!misplaced.isEmpty())
        return invalid(Messages::tr("--%1 does not go with %2").arg(misplaced, name));
    if (BatchOptions::isBatch(arguments.parser))
        return batchOptions(arguments, files);
    const QString stray = BatchOptions::stray(arguments.parser);
    if (!stray.isEmpty())
        return invalid(Messages::tr("--%1 goes with --output-dir only").arg(stray));
    if (command == Options::Diff)
        return diffOptions(arguments, files);
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
