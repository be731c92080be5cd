#include "HtmlExport.h"

#include "VisibleDocument.h"

#include <ORVFragments.h>
#include <ORVGuiUtil.h>
#include <ORVRtfProperties.h>
#include <TextDocSupport.h>

#include <QHash>
#include <QImage>
#include <QPen>
#include <QStringList>
#include <QTextDocument>
#include <QTextImageFormat>

namespace {

const char* const jpegSignature = "\xff\xd8\xff";

QString dataUri(const char* mimeType, const QByteArray& data)
{
    return QString::fromLatin1("data:%1;base64,%2")
        .arg(QLatin1String(mimeType), QString::fromLatin1(data.toBase64()));
}

/*! The picture of \a format as a data URI; its name when the document does not hold it. */
QString pictureUri(const QTextDocument& document, const QTextImageFormat& format)
{
    const QByteArray source = format.property(ORVRtfProperty::SourceImageData).toByteArray();
    if (source.startsWith(jpegSignature))
        return dataUri("image/jpeg", source);
    const QImage image = TextDocSupport::image(&document, format.name());
    if (image.isNull())
        return format.name();
    return dataUri("image/png", ORVGuiUtil::toByteArray(image, "PNG", -1));
}

/*! Outlined text is drawn in a transparent colour and would vanish. */
void fillOutline(QTextCharFormat& format)
{
    if (!format.hasProperty(QTextFormat::TextOutline))
        return;
    format.setForeground(format.textOutline().brush());
    format.clearProperty(QTextFormat::TextOutline);
}

/*! Dotted, dashed and wavy underlines would be left out. */
void simplifyUnderline(QTextCharFormat& format)
{
    if (format.underlineStyle() != QTextCharFormat::NoUnderline)
        format.setUnderlineStyle(QTextCharFormat::SingleUnderline);
}

/*! Makes formats fit for HTML, each picture being encoded once. */
class FormatAdapter {
public:
    explicit FormatAdapter(const QTextDocument& document) : m_document(document) { }

    QTextCharFormat adapted(const QTextCharFormat& format)
    {
        QTextCharFormat result(format);
        fillOutline(result);
        simplifyUnderline(result);
        if (format.isImageFormat())
            result.setProperty(QTextFormat::ImageName, uri(format.toImageFormat()));
        return result;
    }

private:
    QString uri(const QTextImageFormat& format)
    {
        QString& uri = m_uris[format.name()];
        if (uri.isNull())
            uri = pictureUri(m_document, format);
        return uri;
    }

    const QTextDocument& m_document;
    QHash<QString, QString> m_uris;
};

void adaptFormats(QTextDocument& document)
{
    FormatAdapter adapter(document);
    ORVFragments::changeFormats(&document, 0, document.characterCount(),
                                [&adapter](QTextCharFormat* format) { *format = adapter.adapted(*format); });
}

/*! The HTML of \a document without its title, which Qt would write as if it were HTML itself. */
QString untitledHtml(QTextDocument& document)
{
    document.setMetaInformation(QTextDocument::DocumentTitle, QString());
    return document.toHtml();
}

/*! Adds \a title, and the encoding: without it a browser takes the file for its system's 8-bit one. */
void completeHead(QString& html, const QString& title)
{
    const QString head = QLatin1String("<head>");
    const auto start = html.indexOf(head) + head.size();
    const auto end = html.indexOf(QLatin1String("</head>"));
    QString added;
    if (!html.mid(start, end - start).contains(QLatin1String("charset=")))
        added += QLatin1String("<meta charset=\"utf-8\" />");
    if (!title.isEmpty())
        added += QLatin1String("<title>") + title.toHtmlEscaped() + QLatin1String("</title>");
    html.insert(start, added);
}

/*! Qt leaves out the unit of an exact line height: a browser would take the pixels for lines. */
void addLineHeightUnit(QString& html)
{
    const QString type = QLatin1String("; -qt-line-height-type: fixed;");
    // In text, a quotation mark is "&quot;": this stands in tags only.
    const QString attribute = QLatin1String(" style=\"");
    QStringList parts = html.split(attribute);
    for (int i = 1; i < parts.size(); ++i) {
        QString& part = parts[i];
        const auto length = part.indexOf(QLatin1Char('"'));
        part.replace(0, length, part.left(length).replace(type, QLatin1String("px") + type));
    }
    html = parts.join(attribute);
}

} // namespace

QByteArray documentToHtml(QTextDocument& document)
{
    document.setUndoRedoEnabled(false);
    adaptFormats(document);
    makeListsVisible(document);
    const QString title = document.metaInformation(QTextDocument::DocumentTitle);
    QString html = untitledHtml(document);
    completeHead(html, title);
    addLineHeightUnit(html);
    return html.toUtf8();
}
