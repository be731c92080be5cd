#include "ORVHtmlWriter.h"

#include "ORVPageGeometry.h"
#include "ORVRtfProperties.h"
#include "ORVTextFormat.h"
#include "ORVUnit.h"
#include "html/ORVHtmlContent_p.h"
#include "html/ORVHtmlContext_p.h"

#include <QtCore/QIODevice>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>

class ORVHtmlWriterPrivate {
public:
    bool write(const QTextDocument* document);

    QIODevice* device = nullptr;
    ORVHtmlWriter::Style style = ORVHtmlWriter::FullStyle;
    ORVPictureFiles pictures;
    QStringList pictureFiles;
    QString errorString;

private:
    void writeHead(ORVHtmlOutput& output, const QTextDocument* document, const ORVHtmlContext& context) const;
    void writeInformation(ORVHtmlOutput& output, const QTextDocument* document) const;
    void writeStyles(ORVHtmlOutput& output, const QTextDocument* document,
                     const ORVHtmlContext& context) const;

    ORVHtmlMarkers m_markers;
};

namespace {

ORVHtmlStyleSheet::Extent extentOf(ORVHtmlWriter::Style style)
{
    switch (style) {
    case ORVHtmlWriter::FullStyle: return ORVHtmlStyleSheet::Everything;
    case ORVHtmlWriter::MinimalStyle: return ORVHtmlStyleSheet::Structure;
    case ORVHtmlWriter::NoStyle: break;
    }
    return ORVHtmlStyleSheet::Nothing;
}

/*! Sums up how many characters have each of several values. */
template <typename Value>
class Poll {
public:
    void add(const QByteArray& key, const Value& value, int count)
    {
        const int total = m_totals[key] += count;
        if (total > m_bestTotal) {
            m_best = value;
            m_bestTotal = total;
        }
    }
    const Value& best() const { return m_best; }
    void setBest(const Value& value) { m_best = value; }

private:
    QHash<QByteArray, int> m_totals;
    Value m_best = Value();
    int m_bestTotal = 0;
};

/*! Finds what most of the text of \a document has: the font and colour, and the language unless it is stated. */
void setCommonFormats(ORVHtmlContext* context, const QTextDocument* document, const ORVHtmlRuns& runs)
{
    const ORVHtmlTextStyles styles(context->sheet, ORVTextFormat::defaultCharFormat(document), QString());
    Poll<ORVHtmlDeclarations> fonts;
    Poll<QString> languages;
    fonts.setBest(styles.base(QTextCharFormat(), false));
    const QMap<int, int> lengths = runs.lengthsOfFormats();
    for (QMap<int, int>::const_iterator it = lengths.constBegin(); it != lengths.constEnd(); ++it) {
        const QTextCharFormat format = runs.format(it.key());
        const ORVHtmlDeclarations font = styles.base(format, false);
        const QString language = format.stringProperty(ORVRtfProperty::Language);
        fonts.add(font.css(), font, *it);
        languages.add(language.toUtf8(), language, *it);
    }
    context->body = fonts.best();
    context->language = document->property("language").toString();
    if (context->language.isEmpty())
        context->language = languages.best();
}

/*! The text is as wide as on paper, unless the window is narrower. */
void writeBodyRule(ORVHtmlOutput& output, const QTextDocument* document, const ORVHtmlDeclarations& body)
{
    QByteArray css = body.css();
    const double width = ORVPageGeometry::of(document).textWidth();
    if (width > 0)
        css =
            "max-width: " + ORVHtmlDeclarations::length(width) + "; margin: 2em auto; padding: 0 1em; " + css;
    output.markup("body { " + css + " }\n");
}

void writeMeta(ORVHtmlOutput& output, const char* name, const QString& content)
{
    if (!content.isEmpty())
        output.markup(QByteArray("<meta name=\"") + name
                      + "\" content=" + ORVHtmlOutput::attributeValue(content) + ">\n");
}

} // namespace

void ORVHtmlWriterPrivate::writeInformation(ORVHtmlOutput& output, const QTextDocument* document) const
{
    output.markup("<title>");
    output.markup(ORVHtmlOutput::escaped(document->metaInformation(QTextDocument::DocumentTitle)));
    output.markup("</title>\n");
    writeMeta(output, "author", document->property("author").toString());
    writeMeta(output, "description", document->property("subject").toString());
    writeMeta(output, "keywords", document->property("keywords").toString());
}

void ORVHtmlWriterPrivate::writeStyles(ORVHtmlOutput& output, const QTextDocument* document,
                                       const ORVHtmlContext& context) const
{
    output.markup("<style>\n");
    if (style == ORVHtmlWriter::FullStyle)
        writeBodyRule(output, document, context.body);
    context.sheet->write(output);
    m_markers.write(output);
    output.markup("</style>\n");
}

void ORVHtmlWriterPrivate::writeHead(ORVHtmlOutput& output, const QTextDocument* document,
                                     const ORVHtmlContext& context) const
{
    output.markup("<!DOCTYPE html>\n<html");
    if (!context.language.isEmpty())
        output.markup(" lang=" + ORVHtmlOutput::attributeValue(context.language));
    output.markup(">\n<head>\n<meta charset=\"utf-8\">\n");
    writeInformation(output, document);
    if (style != ORVHtmlWriter::NoStyle)
        writeStyles(output, document, context);
    output.markup("</head>\n<body>\n");
}

bool ORVHtmlWriterPrivate::write(const QTextDocument* document)
{
    ORVHtmlStyleSheet sheet(extentOf(style));
    m_markers = ORVHtmlMarkers();
    ORVHtmlContext context = {};
    context.sheet = &sheet;
    context.markers = &m_markers;
    context.pictures = &pictures;
    context.resolution = ORVUnit::screenResolution();
    const ORVHtmlRuns runs(document);
    setCommonFormats(&context, document, runs);
    ORVHtmlOutput nothing(nullptr);
    ORVHtmlOutput output(device);
    for (ORVHtmlOutput* const pass : {&nothing, &output}) {
        ORVHtmlNotes notes(ORVNotes::StockForm);
        context.output = pass;
        context.notes = &notes;
        context.ids.clear();
        if (pass == &output)
            writeHead(output, document, context);
        ORVHtmlContent(&context, document, runs, false).write();
        notes.write(&context);
        if (pass == &nothing)
            sheet.decide();
    }
    output.markup("</body>\n</html>\n");
    const bool isWritten = output.finish();
    errorString = isWritten ? pictures.errorString() : device->errorString();
    const bool hasSucceeded = isWritten && errorString.isEmpty();
    pictureFiles = pictures.finish(hasSucceeded);
    return hasSucceeded;
}

ORVHtmlWriter::ORVHtmlWriter(QIODevice* device) : d(new ORVHtmlWriterPrivate)
{
    d->device = device;
}

ORVHtmlWriter::~ORVHtmlWriter() = default;

void ORVHtmlWriter::setStyle(Style style)
{
    d->style = style;
}

void ORVHtmlWriter::setPictureFolder(const QString& path, const QString& reference, const QString& namePrefix)
{
    d->pictures.setFolder(path, reference, namePrefix);
}

bool ORVHtmlWriter::write(const QTextDocument* document)
{
    return document && d->write(document);
}

QStringList ORVHtmlWriter::pictureFiles() const
{
    return d->pictureFiles;
}

QString ORVHtmlWriter::errorString() const
{
    return d->errorString;
}
