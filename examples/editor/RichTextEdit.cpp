#include "RichTextEdit.h"

#include "DocumentParts.h"
#include "RtfFile.h"

#include <ORV.h>
#include <ORVTextFormat.h>
#include <ORVTextRtf.h>

#include <QMimeData>
#include <QTextDocumentFragment>

namespace {

/*! Reads RTF on \a mime; our own flavour comes first, since nothing is lost in it. */
bool readRtf(const QMimeData* mime, QTextDocument* part)
{
    return ORVTextRtf::fromOrvellineMarkupRtfMimeData(mime, part) || ORVTextRtf::fromRtfMimeData(mime, part);
}

} // namespace

RichTextEdit::RichTextEdit(QWidget* parent) : QTextEdit(parent) { }

QMimeData* RichTextEdit::createMimeDataFromSelection() const
{
    QTextDocument part;
    DocumentParts::copySelection(textCursor(), &part);
    const QTextDocumentFragment selection = textCursor().selection();

    // The best form first: that is the one other programs prefer.
    QMimeData* mime = new QMimeData;
    ORVTextRtf::setOrvellineMarkupRtfMimeData(mime, &part, false);
    ORVTextRtf::setRtfMimeData(mime, &part);
    mime->setHtml(selection.toHtml());
    mime->setText(selection.toPlainText());
    return mime;
}

bool RichTextEdit::canInsertFromMimeData(const QMimeData* source) const
{
    if (!RtfFile::nameOn(source).isEmpty())
        return false;
    return source->hasFormat(QLatin1String(ORV::OrvellineMarkupRtfMimeType))
        || ORVTextRtf::hasRtfMimeData(source) || QTextEdit::canInsertFromMimeData(source);
}

void RichTextEdit::insertFromMimeData(const QMimeData* source)
{
    QTextDocument part;
    ORVTextFormat::setDefaultCharFormat(&part, ORVTextFormat::defaultCharFormat(document()));
    if (!readRtf(source, &part)) {
        QTextEdit::insertFromMimeData(source);
        return;
    }
    DocumentParts::insert(part, textCursor());
    ensureCursorVisible();
}
