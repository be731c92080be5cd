#ifndef ORVHTMLNOTES_P_H
#define ORVHTMLNOTES_P_H

#include "ORVNoteQueue_p.h"

#include <QtCore/QByteArray>
#include <QtCore/QVector>

class QTextDocument;
struct ORVHtmlContext;

/*! A note, with the mark that it is shown with. */
struct ORVHtmlNote {
    ORVNote note;
    /*! The id of its text, of which that of the mark is made. */
    QByteArray id;
};

/*! The notes of a document and of its notes, in the order in which they are written. */
class ORVHtmlNotes {
public:
    explicit ORVHtmlNotes(ORVNotes::Form form) : m_queue(form) { }

    /*!
        The notes of \a document, whose texts are to be written. It stays until then, unless it is the text of a note
        (\a isNote) itself. Notes within notes continue the count.
    */
    QVector<ORVHtmlNote> take(const QTextDocument* document, bool isNote);
    /*! Writes the texts of all notes taken, and of those within them. */
    void write(ORVHtmlContext* context);

    /*! What stands in front of the text of \a note, which leads back to its mark. */
    static QByteArray head(const ORVHtmlNote& note);
    /*! The mark of \a note in the text, which leads to its text. */
    static QByteArray mark(const ORVHtmlNote& note);

private:
    static ORVHtmlNote shown(const ORVNoteQueue::Entry& entry);
    bool writeKinds(ORVHtmlContext* context);
    void writeNext(ORVHtmlContext* context, ORVNote::Kind kind);

    ORVNoteQueue m_queue;
};

#endif
