#ifndef ORVRTFNOTEDOCUMENTS_P_H
#define ORVRTFNOTEDOCUMENTS_P_H

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QSharedPointer>

class QTextDocument;

/*!
    The documents that the RTF of notes describes. Each is read once, although a note is walked once to
    collect and once to write it, and lives until clear(): the list table refers to its lists.
*/
class ORVRtfNoteDocuments {
public:
    /*!
        The document that \a content describes, with the default format of \a owner, the document that has the
        note. Null when \a content is damaged or holds no text.
    */
    QSharedPointer<QTextDocument> document(const QByteArray& content, const QTextDocument* owner);
    void clear() { m_documents.clear(); }

private:
    QHash<QByteArray, QSharedPointer<QTextDocument>> m_documents;
};

#endif
