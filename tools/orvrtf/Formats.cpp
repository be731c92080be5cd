#include "Formats.h"

namespace {

struct FormatName {
    const char* name;
    FileFormat format;
    bool isRead;
};

const FormatName formatNames[] = {
    {"rtf", FileFormat::Rtf, true},      {"html", FileFormat::Html, true},
    {"htm", FileFormat::Html, true},     {"txt", FileFormat::PlainText, true},
    {"md", FileFormat::Markdown, false}, {"odt", FileFormat::Odt, false},
    {"pdf", FileFormat::Pdf, false},     {"png", FileFormat::Png, false},
};

} // namespace

bool Formats::fromName(const QString& name, Use use, FileFormat* format)
{
    for (const FormatName& known : formatNames) {
        if ((known.isRead || use == Use::Output) && name.toLower() == QLatin1String(known.name)) {
            *format = known.format;
            return true;
        }
    }
    return false;
}

bool Formats::isOfWordProcessor(const QString& suffix)
{
    const QString lower = suffix.toLower();
    return lower == QLatin1String("doc") || lower == QLatin1String("docx") || lower == QLatin1String("odt");
}
