#include "RichTextEdit.h"

#include "DocumentParts.h"
#include "RtfDocument.h"
#include "RtfFile.h"

#include <ORV.h>
#include <ORVPageGeometry.h>
#include <ORVStockFormats.h>
#include <ORVTextFormat.h>
#include <ORVTextRtf.h>

#include <QAbstractTextDocumentLayout>
#include <QMimeData>
#include <QScrollBar>
#include <QTextDocumentFragment>

namespace {

bool readRtf(const QMimeData* mime, const QString& type, RtfDocument::Form form, QTextDocument* part)
{
    const QByteArray rtf = mime->data(type);
    QString message;
    return !rtf.isEmpty() && RtfDocument::read(rtf, form, part, &message);
}

/*!
    Reads the first RTF on \a mime that is not damaged; false when there is none. Our own flavour comes first,
    since nothing is lost in it.
*/
bool readRtf(const QMimeData* mime, QTextDocument* part)
{
    if (readRtf(mime, QLatin1String(ORV::OrvellineMarkupRtfMimeType), RtfDocument::Form::Storage, part))
        return true;
    const QStringList types = ORV::rtfMimeTypes();
    for (const QString& type : types) {
        if (readRtf(mime, type, RtfDocument::Form::Interchange, part))
            return true;
    }
    return false;
}

} // namespace

RichTextEdit::RichTextEdit(QWidget* parent) : QTextEdit(parent) { }

int RichTextEdit::characterAt(const QPoint& point) const
{
    const QScrollBar* bar = horizontalScrollBar();
    const int scrolled = isRightToLeft() ? bar->maximum() - bar->value() : bar->value();
    const QPointF place = point + QPointF(scrolled, verticalScrollBar()->value());
    return document()->documentLayout()->hitTest(place, Qt::ExactHit);
}

QMimeData* RichTextEdit::createMimeDataFromSelection() const
{
    QTextDocument part;
    DocumentParts::copySelection(textCursor(), &part);
    if (document()->property("paperSize").isValid())
        ORVPageGeometry::of(document()).setOn(&part);
    ORVStockFormats::fromStock(&part);
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
