#ifndef NOTESPANEL_H
#define NOTESPANEL_H

#include <ORVNotes.h>

#include <QDockWidget>
#include <QHash>
#include <QTimer>

class QAction;
class QListWidget;
class QTextEdit;

/*!
    A list of all notes in the document of a text edit, beside it. A click on one shows its place in the text.

    The list is made anew when the user pauses, since that takes time in proportion to the document.
*/
class NotesPanel : public QDockWidget {
    Q_OBJECT

public:
    NotesPanel(QTextEdit* edit, QWidget* parent);

    /*! Offers \a actions, which are about the note at the cursor, as the context menu. */
    void setMenu(const QList<QAction*>& actions);
    /*! The entry for \a note with its \a text: kind, number and origin. */
    static QString line(const ORVNote& note, const QString& text);
    /*! What the list shows, a note each. */
    QStringList texts() const;
    /*! Brings the list up to date; to be called when the text edit has got another document. */
    void refresh();
    /*! Selects the text that note number \a row has or is, and scrolls there. */
    void showNote(int row);

signals:
    /*! A note has been double-clicked, and the cursor is there. */
    void editRequested();

private:
    QString textOf(const ORVNote& note);
    void forgetOldContents();

    QTextEdit* m_edit;
    QListWidget* m_list;
    QVector<ORVNote> m_notes;
    // What the attached notes that are listed say, so that each is read once.
    QHash<QByteArray, QString> m_contents;
    QTimer m_timer;
};

#endif
