#ifndef NOTEDIALOG_H
#define NOTEDIALOG_H

#include <QDialog>

class QTextDocument;
class RichTextEdit;

/*! Edits what a note says. */
class NoteDialog : public QDialog {
    Q_OBJECT

public:
    NoteDialog(const QString& title, QWidget* parent);

    /*! What the note says; empty at first, and for the caller to fill. */
    QTextDocument* content() const;
    bool isEmpty() const;

private:
    RichTextEdit* m_edit;
};

#endif
