#include "NoteDialog.h"

#include "RichTextEdit.h"

#include <QDialogButtonBox>
#include <QVBoxLayout>

NoteDialog::NoteDialog(const QString& title, QWidget* parent)
    : QDialog(parent), m_edit(new RichTextEdit(this))
{
    setWindowTitle(title);
    auto buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto layout = new QVBoxLayout(this);
    layout->addWidget(m_edit);
    layout->addWidget(buttons);
    resize(400, 200);
}

QTextDocument* NoteDialog::content() const
{
    return m_edit->document();
}

bool NoteDialog::isEmpty() const
{
    return m_edit->document()->isEmpty();
}
