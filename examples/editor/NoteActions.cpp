#include "NoteActions.h"

#include "NoteDialog.h"

#include <ORVTextFormat.h>

#include <QAction>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>

NoteActions::NoteActions(QTextEdit* edit) : QObject(edit), m_edit(edit)
{
    add(tr("&Footnote…"), &NoteActions::insertFootnote);
    add(tr("&Comment…"), &NoteActions::insertComment);
    add(tr("&Edit note…"), &NoteActions::editNote);
    add(tr("&Delete note"), &NoteActions::deleteNote);
    connect(m_edit, &QTextEdit::cursorPositionChanged, this, &NoteActions::enableActions);
    connect(m_edit, &QTextEdit::textChanged, this, &NoteActions::enableActions);
    enableActions();
}

void NoteActions::add(const QString& text, void (NoteActions::*slot)())
{
    QAction* action = new QAction(text, this);
    connect(action, &QAction::triggered, this, slot);
    m_actions << action;
}

void NoteActions::insertNote(ORVNote::Kind kind, const QString& title)
{
    NoteDialog dialog(title, m_edit->window());
    ORVTextFormat::setDefaultCharFormat(dialog.content(),
                                        ORVTextFormat::defaultCharFormat(m_edit->document()));
    if (dialog.exec() == QDialog::Accepted && !dialog.isEmpty())
        Notes::insert(m_edit->textCursor(), kind, *dialog.content());
}

QString NoteActions::titleFor(ORVNote::Kind kind)
{
    switch (kind) {
    case ORVNote::Comment: return tr("Edit comment");
    case ORVNote::Endnote: return tr("Edit endnote");
    default: return tr("Edit footnote");
    }
}

void NoteActions::editNote()
{
    const ORVNote note = Notes::at(m_edit->textCursor());
    if (note.length == 0)
        return;
    NoteDialog dialog(titleFor(note.kind), m_edit->window());
    QTextDocument* content = dialog.content();
    const bool hasUndo = content->isUndoRedoEnabled();
    ORVNotes::copyContent(m_edit->document(), note, content, ORVNotes::StockForm);
    content->setUndoRedoEnabled(hasUndo);
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (dialog.isEmpty())
        Notes::remove(m_edit->document(), note);
    else
        Notes::setContent(m_edit->document(), note, *dialog.content());
}

void NoteActions::deleteNote()
{
    const ORVNote note = Notes::at(m_edit->textCursor());
    if (note.length > 0)
        Notes::remove(m_edit->document(), note);
}

void NoteActions::enableActions()
{
    const bool isAtNote = Notes::at(m_edit->textCursor()).length > 0;
    m_actions.at(2)->setEnabled(isAtNote);
    m_actions.at(3)->setEnabled(isAtNote);
}
