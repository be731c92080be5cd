#ifndef ORVRTF_FORMATS_H
#define ORVRTF_FORMATS_H

#include <QString>

/*! A format that the program writes. The first three are read too. */
enum class FileFormat { Html, PlainText, Rtf, Markdown, Odt, Pdf, Png };

/*! The names that options and suffixes have for formats. */
namespace Formats {

enum class Use { Input, Output };

/*! Sets \a format to the one called \a name in any case; false when there is none for this use. */
bool fromName(const QString& name, Use use, FileFormat* format);

/*! Whether files that end in \a suffix are read through another program. */
bool isOfWordProcessor(const QString& suffix);

} // namespace Formats

#endif
