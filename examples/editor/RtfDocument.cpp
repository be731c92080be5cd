#include "RtfDocument.h"

#include <ORVPageGeometry.h>
#include <ORVRtfProperties.h>
#include <ORVStockFormats.h>
#include <ORVTextRtfReader.h>
#include <TextDocSupport.h>

#include <QBuffer>
#include <QTextBlock>
#include <QTextDocument>

bool RtfDocument::read(const QByteArray& rtf, Form form, QTextDocument* document, QString* message)
{
    const bool hasUndo = document->isUndoRedoEnabled();
    document->setUndoRedoEnabled(false);
    QBuffer buffer;
    buffer.setData(rtf);
    buffer.open(QIODevice::ReadOnly);
    ORVTextRtfReader reader(&buffer);
    reader.setInterchange(form == Form::Interchange);
    const bool isSound = reader.read(document);
    *message = reader.errorString();
    // First, since the right edges of paragraphs depend on it.
    ORVPageGeometry::of(reader).setOn(document);
    ORVStockFormats::toStock(document);
    document->setUndoRedoEnabled(hasUndo);
    return isSound;
}

std::unique_ptr<QTextDocument> RtfDocument::toWrite(const QTextDocument& document)
{
    std::unique_ptr<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
    ORVStockFormats::fromStock(copy.get());
    return copy;
}

bool RtfDocument::hasRevisionLevels(const QTextDocument& document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
            if (it.fragment().charFormat().intProperty(ORVRtfProperty::RevisionLevel) > 0)
                return true;
        }
    }
    return false;
}
