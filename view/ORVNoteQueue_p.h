#ifndef ORVNOTEQUEUE_P_H
#define ORVNOTEQUEUE_P_H

#include "ORVNotes.h"

#include <QtCore/QVector>
#include <QtGui/QTextDocument>

#include <deque>
#include <memory>

/*! The notes of a document and of its notes, in the order in which they are written behind it. */
class ORVNoteQueue {
public:
    struct Entry {
        /*! With the mark that it is shown with. */
        ORVNote note;
        /*! Counted from 1 among all notes of its kind. */
        int count = 0;
    };

    explicit ORVNoteQueue(ORVNotes::Form form) : m_form(form) { }

    /*!
        The notes of \a document, whose texts are to be written. It stays until then, unless it is the text of a note
        (\a isNote) itself. Notes within notes continue the count.
    */
    QVector<Entry> take(const QTextDocument* document, bool isNote);
    /*! Whether no note of \a kind is left. */
    bool isEmpty(ORVNote::Kind kind) const { return m_pending[kind].empty(); }
    /*! Removes the next note of \a kind, of which there is one. Returns its text, and sets \a entry to it. */
    std::unique_ptr<QTextDocument> next(ORVNote::Kind kind, Entry* entry);

private:
    struct Pending {
        Entry entry;
        // The document that has the note; null for a note within a note.
        const QTextDocument* document = nullptr;
        // Of a note within a note: it outlives the document that has it.
        std::unique_ptr<QTextDocument> content;
    };

    ORVNotes::Form m_form;
    std::deque<Pending> m_pending[3];
    // The last number, and how many there are of each kind.
    int m_numbers[3] = {0, 0, 0};
    int m_counts[3] = {0, 0, 0};
};

#endif
