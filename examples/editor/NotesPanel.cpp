#include "NotesPanel.h"

#include <QListWidget>
#include <QTextCursor>
#include <QTextEdit>

namespace {

// How long the user pauses before the list is made anew, in milliseconds.
const int pause = 300;
// As much of a note as the list shows, in characters.
const int shownLength = 200;

} // namespace

NotesPanel::NotesPanel(QTextEdit* edit, QWidget* parent)
    : QDockWidget(tr("Notes"), parent), m_edit(edit), m_list(new QListWidget(this))
{
    setObjectName(QStringLiteral("notes"));
    setWidget(m_list);
    m_list->setWordWrap(true);
    m_list->setSpacing(2);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setAlternatingRowColors(true);
    m_timer.setSingleShot(true);
    m_timer.setInterval(pause);
    connect(&m_timer, &QTimer::timeout, this, &NotesPanel::refresh);
    connect(m_edit, &QTextEdit::textChanged, &m_timer, QOverload<>::of(&QTimer::start));
    const auto rowOf = [this](const QListWidgetItem* item) { return m_list->row(item); };
    // Also with the right button, so that a context menu is about the note.
    connect(m_list, &QListWidget::itemPressed, this, [=](QListWidgetItem* item) { showNote(rowOf(item)); });
    connect(m_list, &QListWidget::itemActivated, this, [=](QListWidgetItem* item) {
        showNote(rowOf(item));
        emit editRequested();
    });
}

void NotesPanel::setMenu(const QList<QAction*>& actions)
{
    m_list->addActions(actions);
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
}

QStringList NotesPanel::texts() const
{
    QStringList texts;
    for (int row = 0; row < m_list->count(); ++row)
        texts << m_list->item(row)->text();
    return texts;
}

void NotesPanel::refresh()
{
    m_timer.stop();
    m_notes = ORVNotes::all(m_edit->document());
    QStringList shown;
    for (const ORVNote& note : qAsConst(m_notes))
        shown << textOf(note);
    forgetOldContents();
    if (shown == texts())
        return; // the user's place in the list stays
    m_list->clear();
    m_list->addItems(shown);
}

QString NotesPanel::line(const ORVNote& note, const QString& text)
{
    const QString names[] = {tr("Footnote"), tr("Endnote"), tr("Comment")};
    QString title = names[note.kind];
    // The one of a comment has a letter in front, which its mark in the text does not have.
    const QString mark = note.kind == ORVNote::Comment ? note.mark.mid(1) : note.mark;
    if (!mark.isEmpty())
        title += QLatin1Char(' ') + mark;
    const QString origin = ORVNotes::origin(note);
    if (!origin.isEmpty())
        title += QStringLiteral(" (%1)").arg(origin);
    return tr("%1: %2", "title and text of a note").arg(title, text);
}

QString NotesPanel::textOf(const ORVNote& note)
{
    QString text;
    if (note.holding == ORVNote::InLine) {
        text = ORVNotes::text(m_edit->document(), note);
    } else {
        if (!m_contents.contains(note.content))
            m_contents.insert(note.content, ORVNotes::text(m_edit->document(), note));
        text = m_contents.value(note.content);
    }
    return line(note, text.left(shownLength).simplified());
}

void NotesPanel::forgetOldContents()
{
    QHash<QByteArray, QString> contents;
    for (const ORVNote& note : qAsConst(m_notes)) {
        if (note.holding != ORVNote::InLine)
            contents.insert(note.content, m_contents.value(note.content));
    }
    m_contents.swap(contents);
}

void NotesPanel::showNote(int row)
{
    if (m_timer.isActive())
        refresh(); // the places have changed
    if (row < 0 || row >= m_notes.size())
        return;
    const ORVNote& note = m_notes.at(row);
    QTextCursor cursor(m_edit->document());
    cursor.setPosition(note.position + note.length);
    cursor.setPosition(note.position, QTextCursor::KeepAnchor);
    m_edit->setTextCursor(cursor);
}
