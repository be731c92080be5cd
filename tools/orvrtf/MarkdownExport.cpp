#include "MarkdownExport.h"

#include "ExportOptions.h"
#include "Media.h"

#include <ORVMarkdownWriter.h>

bool writeMarkdown(const QTextDocument& document, const ExportOptions& options, QString* errorString)
{
    const Media media =
        options.media.isEmpty() ? Media::beside(options.path) : Media::inFolder(options.media, options.path);
    const auto write = [&](QIODevice* device, QStringList* pictures, QString* reason) {
        ORVMarkdownWriter writer(device);
        return writeMarkup(writer, document, media, pictures, reason);
    };
    return writeWithPictures(options.path, media, write, errorString);
}
