#include "FuzzChecks.h"
#include "ORVTextFormat.h"
#include "ORVTextRtfWriter.h"

#include <QtCore/QStringList>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>
#include <QtGui/QTextFragment>

#include <algorithm>

namespace {

enum Mode { Storage, Exporting };

// What the application's placeholders stand for, and what their fields show until a reader updates them.
const QChar pageNumberPlaceholder(0xE000);
const QChar pageCountPlaceholder(0xE001);
const QChar pageReferencePlaceholder(0xE002);
const char* const pageCountResult = "1";
const char* const pageReferenceResult = "?";

bool hasPlaceholder(const QString& text)
{
    return text.contains(QLatin1String("<$p")) || text.contains(pageNumberPlaceholder)
        || text.contains(pageCountPlaceholder) || text.contains(pageReferencePlaceholder);
}

bool hasPlaceholderInName(const QTextFormat& format)
{
    const QMap<int, QVariant> properties = format.properties();
    for (const QVariant& value : properties) {
        if (hasPlaceholder(value.toString()) || hasPlaceholder(value.toStringList().join(QLatin1Char('\n'))))
            return true;
    }
    return false;
}

/*!
    Whether a font, a link or a picture of \a document is named like a page field. The writer writes a field
    there as well, whose result reads as text.
*/
bool hasPlaceholderInName(const QTextDocument& document)
{
    const QVector<QTextFormat> formats = document.allFormats();
    return hasPlaceholderInName(ORVTextFormat::defaultCharFormat(&document))
        || std::any_of(formats.begin(), formats.end(),
                       [](const QTextFormat& format) { return hasPlaceholderInName(format); });
}

/*! The text of \a fragment as it is after writing in \a mode and reading. */
QString expectedText(const QTextFragment& fragment, Mode mode)
{
    QString text = fragment.text();
    // In exporting mode tags become page fields, which as read have no page number, and a count of 1.
    if (mode == Exporting) {
        text.replace(QLatin1String("<$p>"), QString(pageNumberPlaceholder));
        text.replace(QLatin1String("<$pagecount>"), QString(pageCountPlaceholder));
    }
    // The placeholders of the fields may also stand in the text itself, in both modes.
    text.remove(pageNumberPlaceholder);
    text.replace(pageCountPlaceholder, QLatin1String(pageCountResult));
    text.replace(pageReferencePlaceholder, QLatin1String(pageReferenceResult));
    // A picture is written only where its pixels are known.
    text.remove(QChar(QChar::ObjectReplacementCharacter));
    return text;
}

/*!
    The paragraphs of \a document, without empty ones: a paragraph around each table is Qt's, and not written
    or made again where it is needed; exporting mode ends the paragraph in front of a table, which reads as an
    empty one more.
*/
QStringList expectedParagraphs(const QTextDocument& document, Mode mode)
{
    QStringList paragraphs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QString text;
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it)
            text += expectedText(it.fragment(), mode);
        if (!text.isEmpty())
            paragraphs << text;
    }
    return paragraphs;
}

void checkRoundTrip(const QTextDocument& document, Mode mode)
{
    ORVTextRtfWriter writer;
    writer.setExportingMode(mode == Exporting);
    QTextDocument again;
    fuzz::readBack(fuzz::written(writer, document), &again);
    fuzz::require(hasPlaceholderInName(document)
                      || expectedParagraphs(again, Storage) == expectedParagraphs(document, mode),
                  "text survives writing and reading");
}

} // namespace

/*! Reads any input, writes it and reads it again: the second read must find no error and the same text. */
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QTextDocument document;
    fuzz::read(QByteArray(reinterpret_cast<const char*>(data), int(size)), &document);
    checkRoundTrip(document, Storage);
    checkRoundTrip(document, Exporting);
    return 0;
}
