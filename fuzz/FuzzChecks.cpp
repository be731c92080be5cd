#include "FuzzChecks.h"

#include "FuzzInput.h"
#include "ORVTextRtfReader.h"
#include "ORVTextRtfWriter.h"

#include <QtCore/QBuffer>
#include <QtCore/QVector>
#include <QtGui/QTextDocument>
#include <QtGui/QTextFormat>

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace {

const int highestStatus = 10;
const double longestPictureSide = 32767;

bool isFinite(const QTextFormat& format)
{
    const QMap<int, QVariant> properties = format.properties();
    for (const QVariant& value : properties) {
        if (value.userType() == QMetaType::Double && !std::isfinite(value.toDouble()))
            return false;
        const QVector<QTextLength> lengths = value.value<QVector<QTextLength>>();
        for (const QTextLength& length : lengths) {
            if (!std::isfinite(length.rawValue()))
                return false;
        }
    }
    return true;
}

bool isSensibleSide(double side)
{
    return side >= 0 && side <= longestPictureSide;
}

/*! Whether all groups of \a rtf close, the outermost one with the last brace. */
bool isBalanced(const QByteArray& rtf)
{
    int depth = 0;
    for (int i = 0; i < rtf.size(); ++i) {
        const char c = rtf.at(i);
        if (c == '\\')
            ++i;
        else if (c == '{')
            ++depth;
        else if (c == '}' && --depth == 0)
            return i + 1 == rtf.size();
    }
    return false;
}

int readBy(ORVTextRtfReader& reader, const QByteArray& rtf, QTextDocument* document)
{
    QBuffer buffer;
    buffer.setData(rtf);
    buffer.open(QIODevice::ReadOnly);
    reader.setDevice(&buffer);
    const bool ok = reader.read(document);
    const int status = reader.error();
    fuzz::require(status >= 0 && status <= highestStatus, "a read ends with a known status");
    fuzz::require(ok == (status == 0) && reader.errorString().isEmpty() == ok,
                  "result, status and message agree");
    fuzz::checkDocument(*document);
    return status;
}

} // namespace

void fuzz::require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "Failed check: %s\n", what);
    std::abort();
}

int fuzz::read(const QByteArray& rtf, QTextDocument* document)
{
    ORVTextRtfReader reader;
    return readBy(reader, rtf, document);
}

int fuzz::import(const QByteArray& rtf, QTextDocument* document)
{
    ORVTextRtfReader reader;
    reader.setInterchange(true);
    return readBy(reader, rtf, document);
}

void fuzz::checkDocument(const QTextDocument& document)
{
    const QVector<QTextFormat> formats = document.allFormats();
    for (const QTextFormat& format : formats) {
        require(isFinite(format), "every length is a number");
        if (format.isImageFormat()) {
            const QTextImageFormat image = format.toImageFormat();
            require(isSensibleSide(image.width()) && isSensibleSide(image.height()),
                    "a picture has a sensible size");
        }
    }
}

void fuzz::configure(ORVTextRtfWriter& writer, FuzzInput& input)
{
    writer.setExportingMode(input.flag());
    writer.setParagraphBeforeTableEnded(input.flag());
    writer.setHightlightForMsWord(input.flag());
    writer.setDecorateHyperlinks(input.flag());
    writer.setFootnotesWithLeadingSpace(input.flag());
    writer.setFootnoteDestination(ORVTextRtf::ExportStyle(input.choice(3)));
    writer.setAnnotationDestination(ORVTextRtf::ExportStyle(input.choice(3)));
}

QByteArray fuzz::written(ORVTextRtfWriter& writer, const QTextDocument& document)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    writer.setDevice(&buffer);
    require(writer.write(&document, false), "a document can be written");
    require(isBalanced(buffer.data()), "the groups of what is written are balanced");
    return buffer.data();
}

void fuzz::readBack(const QByteArray& rtf, QTextDocument* document)
{
    require(read(rtf, document) == 0, "what is written is read without an error");
}
