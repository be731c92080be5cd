#ifndef NOTEACTIONS_H
#define NOTEACTIONS_H

#include "Notes.h"

#include <QObject>

class QAction;
class QTextEdit;

/*! The actions that insert footnotes and comments, and edit and delete the one at the cursor. */
class NoteActions : public QObject {
    Q_OBJECT

public:
    explicit NoteActions(QTextEdit* edit);

    QList<QAction*> actions() const { return m_actions; }

    /*! Has the user edit the note at the cursor, if there is one. */
    void editNote();

private:
    void add(const QString& text, void (NoteActions::*slot)());
    void insertFootnote() { insertNote(ORVNote::Footnote, tr("Insert footnote")); }
    void insertComment() { insertNote(ORVNote::Comment, tr("Insert comment")); }
    void insertNote(ORVNote::Kind kind, const QString& title);
    static QString titleFor(ORVNote::Kind kind);
    void deleteNote();
    void enableActions();

    QTextEdit* m_edit;
    QList<QAction*> m_actions;
};

#endif
