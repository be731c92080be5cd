#include "PageActions.h"

#include "PageDialog.h"
#include "PdfFile.h"
#include "PreviewWindow.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QTextDocument>
#include <QTextEdit>

PageActions::PageActions(QTextEdit* edit) : QObject(edit), m_edit(edit)
{
    add(tr("Pa&ge set-up…"), &PageActions::askForPage);
    add(tr("Print pre&view…"), &PageActions::preview);
    add(tr("Export as P&DF…"), &PageActions::askForPdfFile);
}

void PageActions::add(const QString& text, void (PageActions::*slot)())
{
    QAction* action = new QAction(text, this);
    connect(action, &QAction::triggered, this, slot);
    m_actions << action;
}

PreviewWindow* PageActions::showPreview()
{
    PreviewWindow* window = new PreviewWindow(*m_edit->document(), m_edit->window());
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
    return window;
}

void PageActions::askForPage()
{
    PageDialog dialog(PageSettings::of(*m_edit->document()), m_edit->window());
    if (dialog.exec() != QDialog::Accepted)
        return;
    dialog.settings().setOn(m_edit->document());
    m_edit->document()->setModified(true);
}

void PageActions::askForPdfFile()
{
    QFileDialog dialog(m_edit->window(), tr("Export as PDF"), QString(), tr("PDF (*.pdf)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString fileName = dialog.selectedFiles().first();
    QString message;
    if (!PdfFile::save(fileName, *m_edit->document(), &message))
        QMessageBox::warning(m_edit->window(), tr("Export as PDF"),
                             tr("%1 cannot be written: %2").arg(QDir::toNativeSeparators(fileName), message));
}
