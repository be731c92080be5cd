#include "HtmlExport.h"

#include "ExportOptions.h"
#include "Media.h"

bool writeHtml(const QTextDocument& document, const ExportOptions& options, QString* errorString)
{
    const Media media = options.media.isEmpty() ? Media() : Media::inFolder(options.media, options.path);
    const auto write = [&](QIODevice* device, QStringList* pictures, QString* reason) {
        ORVHtmlWriter writer(device);
        writer.setStyle(options.htmlStyle);
        return writeMarkup(writer, document, media, pictures, reason);
    };
    return writeWithPictures(options.path, media, write, errorString);
}
