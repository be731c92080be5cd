#include "ORVRtfNoteDocuments_p.h"

#include "ORVTextFormat.h"
#include "ORVTextRtfReader.h"

#include <QtCore/QBuffer>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextDocument>

namespace {

bool readRtf(const QByteArray& content, QTextDocument* document)
{
    QBuffer buffer;
    buffer.setData(content);
    buffer.open(QIODevice::ReadOnly);
    return ORVTextRtfReader(&buffer).read(document);
}

} // namespace

QSharedPointer<QTextDocument> ORVRtfNoteDocuments::document(const QByteArray& content,
                                                            const QTextDocument* owner)
{
    const QHash<QByteArray, QSharedPointer<QTextDocument>>::const_iterator known =
        m_documents.constFind(content);
    if (known != m_documents.constEnd())
        return known.value();

    // Damaged notes are remembered as well, by a null pointer, and not parsed again.
    QSharedPointer<QTextDocument> document(new QTextDocument);
    ORVTextFormat::setDefaultCharFormat(document.data(), ORVTextFormat::defaultCharFormat(owner));
    if (!readRtf(content, document.data()) || document->isEmpty())
        document.clear();
    m_documents.insert(content, document);
    return document;
}
