#ifndef ORVNOTEFINDER_P_H
#define ORVNOTEFINDER_P_H

#include "ORVNotes.h"

#include <QtCore/QHash>

class QTextBlock;
class QTextFragment;

/*! Finds the notes in paragraphs that follow each other. */
class ORVNoteFinder {
public:
    void add(const QTextBlock& block);
    /*! Those found so far; only those with a mark have a number. */
    const QVector<ORVNote>& notes() const { return m_notes; }
    /*! Those found so far. The ones without a number continue the count of their kind. */
    QVector<ORVNote> numberedNotes() const;

    /*! False when \a document has no note for sure. In time proportional to its formats. */
    static bool mayHaveNotes(const QTextDocument& document);
    /*! Whether the end of the paragraph in front of \a block can be one within a note in line. */
    static bool mayContinueNote(const QTextBlock& block);
    /*! The mark of the note \a number of its kind. */
    static QString mark(ORVNote::Kind kind, int number);

private:
    /*! The part that a run of text has in notes. */
    struct Run {
        bool isNote = false;
        bool isInFootnote = false;
        bool isInComment = false;
        ORVNote note;
    };

    static Run runOf(const QTextCharFormat& format);
    const Run& run(const QTextFragment& fragment);
    bool goesOn(const Run& run) const;
    bool goesOnIn(const QTextBlock& block) const;
    void addRun(const QTextFragment& fragment);

    QVector<ORVNote> m_notes;
    // Whether the last note ends where the text that has been added ends.
    bool m_isOpen = false;
    // By the index of their format.
    QHash<int, Run> m_runs;
};

#endif
