#include "HtmlExport.h"

#include <ORVGuiUtil.h>
#include <ORVRtfProperties.h>
#include <TextDocSupport.h>

#include <QHash>
#include <QImage>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextImageFormat>
#include <QVector>

namespace {

struct PictureRun {
    int position;
    int length;
    QTextImageFormat format;
};

const char* const jpegSignature = "\xff\xd8\xff";

QVector<PictureRun> pictureRuns(const QTextDocument& document)
{
    QVector<PictureRun> runs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            if (fragment.charFormat().isImageFormat())
                runs.append({fragment.position(), fragment.length(), fragment.charFormat().toImageFormat()});
        }
    }
    return runs;
}

QString dataUri(const char* mimeType, const QByteArray& data)
{
    return QString::fromLatin1("data:%1;base64,%2")
        .arg(QLatin1String(mimeType), QString::fromLatin1(data.toBase64()));
}

/*! The picture of \a format as a data URI; empty when the document does not hold it. */
QString pictureUri(const QTextDocument& document, const QTextImageFormat& format)
{
    const QByteArray source = format.property(ORVRtfProperty::SourceImageData).toByteArray();
    if (source.startsWith(jpegSignature))
        return dataUri("image/jpeg", source);
    const QImage image = TextDocSupport::image(&document, format.name());
    if (image.isNull())
        return QString();
    return dataUri("image/png", ORVGuiUtil::toByteArray(image, "PNG", -1));
}

void embedPictures(QTextDocument& document)
{
    QHash<QString, QString> uris;
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    const QVector<PictureRun> runs = pictureRuns(document);
    for (const PictureRun& run : runs) {
        QString& uri = uris[run.format.name()];
        if (uri.isNull())
            uri = pictureUri(document, run.format);
        if (uri.isEmpty())
            continue;
        QTextImageFormat format(run.format);
        format.setName(uri);
        cursor.setPosition(run.position);
        cursor.setPosition(run.position + run.length, QTextCursor::KeepAnchor);
        cursor.setCharFormat(format);
    }
    cursor.endEditBlock();
}

/*! Without it a browser takes the file for its system's 8-bit encoding. */
void declareEncoding(QString& html)
{
    const QString head = QLatin1String("<head>");
    const int start = html.indexOf(head);
    const int end = html.indexOf(QLatin1String("</head>"));
    if (start < 0 || html.indexOf(QLatin1String("charset="), start) < end)
        return;
    html.insert(start + head.size(), QLatin1String("<meta charset=\"utf-8\" />"));
}

} // namespace

QByteArray documentToHtml(QTextDocument& document)
{
    embedPictures(document);
    QString html = document.toHtml();
    declareEncoding(html);
    return html.toUtf8();
}
