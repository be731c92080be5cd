#include "FuzzChecks.h"
#include "FuzzInput.h"
#include "ORVRtfProperties.h"
#include "ORVTextPage.h"
#include "ORVTextRtf.h"
#include "ORVTextRtfWriter.h"

#include <QtCore/QVariant>
#include <QtGui/QImage>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextTable>

namespace {

const char* const pictureName = "picture";
// Stands before and after whatever the notes hold, and must still be there afterwards.
const char* const textBefore = "before";
const char* const textAfter = "after";
// At the end of an input; the rest is the content of notes.
const int decisionBytes = 48;

/*! A format with \a content as its note, and any combination of what makes it one. */
QTextCharFormat noteFormat(FuzzInput& input, const QVariant& content)
{
    QTextCharFormat format;
    format.setProperty(ORVRtfProperty::NoteContent, content);
    format.setProperty(ORVRtfProperty::HasNoteContent, input.flag());
    const int flags[] = {ORVRtfProperty::InAnnotation, ORVRtfProperty::InFootnote,
                         ORVRtfProperty::AnnotationAnchor, ORVRtfProperty::FootnoteAnchor};
    for (int flag : flags) {
        if (input.flag())
            format.setProperty(flag, true);
    }
    if (input.flag()) {
        format.setAnchor(true);
        format.setAnchorHref(QString::fromLatin1(content.toByteArray()));
    }
    if (input.flag())
        format.setProperty(ORVRtfProperty::BookmarkName, content);
    if (input.flag())
        format.setProperty(ORVRtfProperty::PageReference, content);
    return format;
}

/*! A picture with \a content as whatever its format keeps as bytes or text. */
QTextImageFormat pictureFormat(FuzzInput& input, const QVariant& content)
{
    const char* const types[] = {"", "PNG", "JPEG", "WMF"};
    QTextImageFormat format;
    format.setName(QLatin1String(pictureName));
    format.setProperty(ORVRtfProperty::ImageType, QLatin1String(types[input.choice(4)]));
    const int properties[] = {ORVRtfProperty::MathML, ORVRtfProperty::PdfData, ORVRtfProperty::PdfFileName,
                              ORVRtfProperty::SourceImageData, ORVRtfProperty::ImageFileName};
    for (int property : properties) {
        if (input.flag())
            format.setProperty(property, content);
    }
    return format;
}

void fill(QTextDocument* document, FuzzInput& input)
{
    document->addResource(QTextDocument::ImageResource, QUrl(QLatin1String(pictureName)),
                          QImage(1, 1, QImage::Format_RGB32));
    const QByteArray content = input.restBut(decisionBytes);
    QTextCursor cursor(document);
    cursor.insertText(QLatin1String(textBefore), QTextCharFormat());
    if (input.flag())
        cursor.insertTable(1, 2);
    for (int notes = 1 + input.choice(3); notes > 0; --notes) {
        cursor.insertText(QLatin1String("mark"), noteFormat(input, content));
        if (input.flag())
            cursor.insertBlock();
    }
    cursor.insertImage(pictureFormat(input, content));
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QLatin1String(textAfter), QTextCharFormat());
    if (input.flag()) {
        ORVTextPage page;
        page.text = QString::fromUtf8(content);
        document->setProperty("header", QVariant::fromValue(page));
    }
}

} // namespace

/*! Writes documents whose formats hold arbitrary notes, names, links and picture data. */
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    ORVTextRtfWriter writer;
    fuzz::configure(writer, input);
    QTextDocument document;
    fill(&document, input);
    QTextDocument again;
    fuzz::readBack(fuzz::written(writer, document), &again);
    const QString text = again.toPlainText();
    // A page header reads as text in front of it.
    fuzz::require(text.contains(QLatin1String(textBefore)), "the text in front of a note survives");
    fuzz::require(text.endsWith(QLatin1String(textAfter)), "the text behind a note survives");

    QTextCharFormat format;
    format.setProperty(ORVRtfProperty::NoteContent,
                       QByteArray(reinterpret_cast<const char*>(data), int(size)));
    ORVTextRtf::rtfProperty(ORVRtfProperty::NoteContent, format, false);
    ORVTextRtf::rtfProperty(ORVRtfProperty::NoteContent, format, true);
    return 0;
}
