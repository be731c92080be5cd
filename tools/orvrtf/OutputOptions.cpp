#include "OutputOptions.h"

#include "ExportOptions.h"
#include "Messages.h"

#include <QCommandLineParser>

namespace {

// Columns: fewer have no room for the cells of a table, and more are not readable.
const int minWidth = 20;
const int maxWidth = 10000;

const char* const msWordHighlight = "ms-word-highlight";
const char* const decorateLinks = "decorate-links";
const char* const footnotes = "footnotes";
const char* const annotations = "annotations";
const char* const htmlStyle = "html-style";
const char* const media = "media";
const char* const tableLayout = "table-layout";
const char* const width = "width";

/*! An option that needs one of two formats, which may be the same. */
struct Requirement {
    const char* option;
    FileFormat format;
    FileFormat otherFormat;
    /*! How messages name the formats. */
    const char* formats;
};

const Requirement requirements[] = {
    {msWordHighlight, FileFormat::Rtf, FileFormat::Rtf, "RTF"},
    {decorateLinks, FileFormat::Rtf, FileFormat::Rtf, "RTF"},
    {footnotes, FileFormat::Rtf, FileFormat::Rtf, "RTF"},
    {annotations, FileFormat::Rtf, FileFormat::Rtf, "RTF"},
    {htmlStyle, FileFormat::Html, FileFormat::Html, "HTML"},
    {media, FileFormat::Html, FileFormat::Markdown, QT_TRANSLATE_NOOP("orvrtf", "HTML and Markdown")},
    {tableLayout, FileFormat::PlainText, FileFormat::PlainText, QT_TRANSLATE_NOOP("orvrtf", "plain text")},
    {width, FileFormat::PlainText, FileFormat::PlainText, QT_TRANSLATE_NOOP("orvrtf", "plain text")},
};

bool isSet(const QCommandLineParser& parser, const char* option)
{
    return parser.isSet(QLatin1String(option));
}

QString value(const QCommandLineParser& parser, const char* option)
{
    return parser.value(QLatin1String(option));
}

/*! An error message about an option that does not go with \a format; empty when there is none. */
QString misplaced(const QCommandLineParser& parser, FileFormat format)
{
    for (const Requirement& requirement : requirements) {
        if (isSet(parser, requirement.option) && format != requirement.format
            && format != requirement.otherFormat)
            return Messages::tr("--%1 goes with %2 output only")
                .arg(QLatin1String(requirement.option), Messages::tr(requirement.formats));
    }
    return QString();
}

bool exportStyleFromName(const QString& name, ORVTextRtf::ExportStyle* style)
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

bool htmlStyleFromName(const QString& name, ORVHtmlWriter::Style* style)
{
    if (name == QLatin1String("full"))
        *style = ORVHtmlWriter::FullStyle;
    else if (name == QLatin1String("minimal"))
        *style = ORVHtmlWriter::MinimalStyle;
    else if (name == QLatin1String("none"))
        *style = ORVHtmlWriter::NoStyle;
    else
        return false;
    return true;
}

/*! Returns an error message, empty on success. */
QString readRtfOptions(const QCommandLineParser& parser, RtfExportOptions* rtf)
{
    rtf->msWordHighlight = isSet(parser, msWordHighlight);
    rtf->decorateLinks = isSet(parser, decorateLinks);
    const QString unknown =
        Messages::tr("unknown style \"%1\", known are annotation, footnote and alternate");
    if (isSet(parser, footnotes) && !exportStyleFromName(value(parser, footnotes), &rtf->footnotes))
        return unknown.arg(value(parser, footnotes));
    if (isSet(parser, annotations) && !exportStyleFromName(value(parser, annotations), &rtf->annotations))
        return unknown.arg(value(parser, annotations));
    return QString();
}

/*! Returns an error message, empty on success. */
QString readMarkupOptions(const QCommandLineParser& parser, ExportOptions* options)
{
    options->media = value(parser, media);
    if (isSet(parser, media) && options->media.isEmpty())
        return Messages::tr("--media takes a directory");
    if (isSet(parser, htmlStyle) && !htmlStyleFromName(value(parser, htmlStyle), &options->htmlStyle))
        return Messages::tr("unknown style \"%1\", known are full, minimal and none")
            .arg(value(parser, htmlStyle));
    return QString();
}

/*! Returns an error message, empty on success. */
QString readTextOptions(const QCommandLineParser& parser, ExportOptions* options)
{
    options->tableLayout = isSet(parser, tableLayout);
    if (!isSet(parser, width))
        return QString();
    bool isNumber = false;
    options->width = value(parser, width).toInt(&isNumber);
    if (isNumber && options->width >= minWidth && options->width <= maxWidth)
        return QString();
    return Messages::tr("--width takes a number from %1 to %2, not \"%3\"")
        .arg(QString::number(minWidth), QString::number(maxWidth), value(parser, width));
}

} // namespace

QList<QCommandLineOption> OutputOptions::all()
{
    return {
        QCommandLineOption(QLatin1String(htmlStyle),
                           Messages::tr("How much of the formats HTML has: full, minimal or none."),
                           Messages::tr("style")),
        QCommandLineOption(QLatin1String(media),
                           Messages::tr("Write the pictures of HTML or Markdown as files to this directory."),
                           Messages::tr("directory")),
        QCommandLineOption(QLatin1String(tableLayout),
                           Messages::tr("Write the cells of tables side by side in plain text.")),
        QCommandLineOption(QLatin1String(width),
                           Messages::tr("Wrap lines of plain text at this number of columns."),
                           Messages::tr("number")),
        QCommandLineOption(QLatin1String(msWordHighlight),
                           Messages::tr("Write text backgrounds as MS Word takes them in any colour.")),
        QCommandLineOption(QLatin1String(decorateLinks), Messages::tr("Write links blue and underlined.")),
        QCommandLineOption(QLatin1String(footnotes),
                           Messages::tr("Write footnotes as annotation, footnote or alternate."),
                           Messages::tr("style")),
        QCommandLineOption(QLatin1String(annotations),
                           Messages::tr("Write annotations as annotation, footnote or alternate."),
                           Messages::tr("style")),
    };
}

QString OutputOptions::read(const QCommandLineParser& parser, ExportOptions* options)
{
    QString problem = misplaced(parser, options->format);
    if (problem.isEmpty())
        problem = readRtfOptions(parser, &options->rtf);
    if (problem.isEmpty())
        problem = readMarkupOptions(parser, options);
    return problem.isEmpty() ? readTextOptions(parser, options) : problem;
}
