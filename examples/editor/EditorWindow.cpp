#include "EditorWindow.h"

#include "FormatActions.h"
#include "InsertActions.h"
#include "LinkActions.h"
#include "MarkupHighlighter.h"
#include "NoteActions.h"
#include "NotesPanel.h"
#include "PageActions.h"
#include "RevisionActions.h"
#include "RichTextEdit.h"
#include "RtfDocument.h"
#include "RtfFile.h"
#include "TextTips.h"
#include "TypingFormat.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QStatusBar>
#include <QStyle>
#include <QTextDocument>
#include <QToolBar>

namespace {

const int PageMargin = 24;

QString rtfFilter()
{
    return EditorWindow::tr("Rich Text (*.rtf);;All files (*)");
}

} // namespace

EditorWindow::EditorWindow(QWidget* parent)
    : QMainWindow(parent), m_edit(new RichTextEdit(this)), m_formatActions(new FormatActions(m_edit)),
      m_insertActions(new InsertActions(m_edit)), m_noteActions(new NoteActions(m_edit)),
      m_linkActions(new LinkActions(m_edit)), m_revisionActions(new RevisionActions(m_edit)),
      m_pageActions(new PageActions(m_edit)), m_notesPanel(new NotesPanel(m_edit, this)),
      m_highlighter(new MarkupHighlighter(this))
{
    new TextTips(m_edit);
    new TypingFormat(m_edit);
    setCentralWidget(m_edit);
    setAcceptDrops(true);
    setUnifiedTitleAndToolBarOnMac(true);
    createFileMenu();
    createEditMenu();
    createFormatMenus();
    createNotesPanel();
    createStatusMessages();
    setDocument(createDocument(), QString());
    resize(1000, 700);
}

void EditorWindow::createFileMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    QToolBar* bar = addToolBar(tr("File"));
    const auto add = [&](QStyle::StandardPixmap icon, const QString& text, QKeySequence::StandardKey key) {
        QAction* action = menu->addAction(style()->standardIcon(icon), text);
        action->setShortcut(key);
        bar->addAction(action);
        return action;
    };
    connect(add(QStyle::SP_FileIcon, tr("&New"), QKeySequence::New), &QAction::triggered, this,
            &EditorWindow::newDocument);
    connect(add(QStyle::SP_DialogOpenButton, tr("&Open…"), QKeySequence::Open), &QAction::triggered, this,
            &EditorWindow::open);
    connect(add(QStyle::SP_DialogSaveButton, tr("&Save"), QKeySequence::Save), &QAction::triggered, this,
            &EditorWindow::save);

    QAction* saveAs = menu->addAction(tr("Save &as…"));
    saveAs->setShortcut(QKeySequence::SaveAs);
    connect(saveAs, &QAction::triggered, this, &EditorWindow::saveAs);
    menu->addAction(tr("&Export for other programs…"), this, &EditorWindow::exportRtf);
    menu->addSeparator();
    menu->addActions(m_pageActions->actions());
    menu->addSeparator();
    QAction* quit = menu->addAction(tr("&Quit"));
    quit->setShortcut(QKeySequence::Quit);
    connect(quit, &QAction::triggered, this, &QWidget::close);
}

void EditorWindow::createEditMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Edit"));
    const auto add = [&](const QString& text, QKeySequence::StandardKey key, void (QTextEdit::*slot)()) {
        QAction* action = menu->addAction(text);
        action->setShortcut(key);
        connect(action, &QAction::triggered, m_edit, slot);
    };
    add(tr("&Undo"), QKeySequence::Undo, &QTextEdit::undo);
    add(tr("&Redo"), QKeySequence::Redo, &QTextEdit::redo);
    menu->addSeparator();
    add(tr("Cu&t"), QKeySequence::Cut, &QTextEdit::cut);
    add(tr("&Copy"), QKeySequence::Copy, &QTextEdit::copy);
    add(tr("&Paste"), QKeySequence::Paste, &QTextEdit::paste);
    menu->addSeparator();
    add(tr("Select &all"), QKeySequence::SelectAll, &QTextEdit::selectAll);
}

void EditorWindow::createFormatMenus()
{
    QMenu* insert = menuBar()->addMenu(tr("&Insert"));
    insert->addActions(m_insertActions->actions());
    insert->addSeparator();
    insert->addActions(m_linkActions->actions());
    insert->addSeparator();
    insert->addActions(m_noteActions->actions());
    QMenu* format = menuBar()->addMenu(tr("F&ormat"));
    format->addActions(m_formatActions->actions());
    format->addSeparator();
    format->addMenu(tr("&Revision level"))->addActions(m_revisionActions->actions());
    QToolBar* bar = addToolBar(tr("Format"));
    bar->addActions(m_formatActions->actions());
    bar->addSeparator();
    bar->addActions(m_insertActions->actions());
}

void EditorWindow::createNotesPanel()
{
    addDockWidget(Qt::RightDockWidgetArea, m_notesPanel);
    m_notesPanel->setMenu(m_noteActions->actions());
    connect(m_notesPanel, &NotesPanel::editRequested, m_noteActions, &NoteActions::editNote);
    menuBar()->addMenu(tr("&View"))->addAction(m_notesPanel->toggleViewAction());
}

void EditorWindow::createStatusMessages()
{
    connect(m_linkActions, &LinkActions::hovered, statusBar(),
            [this](const QString& target) { statusBar()->showMessage(target); });
    connect(m_linkActions, &LinkActions::refused, this, [this](const QString& target) {
        statusBar()->showMessage(tr("Only web and mail addresses are opened: %1").arg(target));
    });
}

bool EditorWindow::openFile(const QString& fileName)
{
    QString message;
    std::unique_ptr<QTextDocument> document = createDocument();
    const RtfFile::Opened opened = RtfFile::open(fileName, document.get(), &message);
    if (opened == RtfFile::Opened::NotAtAll) {
        reportError(tr("The file cannot be opened."), fileName, message);
        return false;
    }
    setDocument(std::move(document), fileName);
    if (opened == RtfFile::Opened::InPart)
        statusBar()->showMessage(tr("This file is damaged; what can be read is shown (%1)").arg(message));
    return true;
}

bool EditorWindow::saveFile(const QString& fileName)
{
    QString message;
    if (!RtfFile::save(fileName, *m_edit->document(), &message)) {
        reportError(tr("The document cannot be saved."), fileName, message);
        return false;
    }
    setFileName(fileName);
    if (RtfDocument::hasRevisionLevels(*m_edit->document()))
        statusBar()->showMessage(tr("Saved with revision levels, which other programs may not show; "
                                    "for them, export the document"));
    return true;
}

void EditorWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(mayDiscardDocument());
}

void EditorWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!RtfFile::nameOn(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void EditorWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    if (mayDiscardDocument())
        openFile(RtfFile::nameOn(event->mimeData()));
}

void EditorWindow::newDocument()
{
    if (mayDiscardDocument())
        setDocument(createDocument(), QString());
}

void EditorWindow::open()
{
    if (!mayDiscardDocument())
        return;
    const QString fileName = QFileDialog::getOpenFileName(this, tr("Open"), m_fileName, rtfFilter());
    if (!fileName.isEmpty())
        openFile(fileName);
}

bool EditorWindow::save()
{
    return m_fileName.isEmpty() ? saveAs() : saveFile(m_fileName);
}

bool EditorWindow::saveAs()
{
    QFileDialog dialog(this, tr("Save as"), m_fileName, rtfFilter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("rtf"));
    return dialog.exec() == QDialog::Accepted && saveFile(dialog.selectedFiles().first());
}

void EditorWindow::exportRtf()
{
    QFileDialog dialog(this, tr("Export for other programs"), QString(), rtfFilter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("rtf"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString fileName = dialog.selectedFiles().first();
    QString message;
    if (!RtfFile::exportTo(fileName, *m_edit->document(), &message))
        reportError(tr("The document cannot be saved."), fileName, message);
}

/*! Whether the document may go; asks whether to save changes first. */
bool EditorWindow::mayDiscardDocument()
{
    if (!m_edit->document()->isModified())
        return true;
    const auto answer =
        QMessageBox::warning(this, QApplication::applicationDisplayName(), tr("Save the changes?"),
                             QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    return answer == QMessageBox::Save ? save() : answer == QMessageBox::Discard;
}

/*! A new document, which has no fonts or other settings of the one before. */
std::unique_ptr<QTextDocument> EditorWindow::createDocument()
{
    auto document = std::make_unique<QTextDocument>(m_edit);
    document->setDefaultFont(m_edit->font());
    document->setDocumentMargin(PageMargin);
    return document;
}

/*! Edits \a document, which is what the file \a fileName holds, instead of the document before. */
void EditorWindow::setDocument(std::unique_ptr<QTextDocument> document, const QString& fileName)
{
    connect(document.get(), &QTextDocument::modificationChanged, this, &QWidget::setWindowModified);
    const QPointer<QTextDocument> before = m_edit->document();
    m_edit->setDocument(document.release()); // a child of the text edit
    m_edit->setTextCursor(QTextCursor(m_edit->document())); // without the text format of the one before
    m_highlighter->setDocument(m_edit->document());
    m_notesPanel->refresh();
    delete before; // unless the text edit, which made its very first one, has done so
    setFileName(fileName);
}

/*! The document is what the file \a fileName holds; an empty name stands for a new document. */
void EditorWindow::setFileName(const QString& fileName)
{
    m_fileName = fileName;
    m_edit->document()->setModified(false);
    setWindowModified(false);
    setWindowFilePath(fileName);
    const QString shownName = fileName.isEmpty() ? tr("Unnamed") : QFileInfo(fileName).fileName();
    setWindowTitle(tr("%1[*]").arg(shownName));
    statusBar()->clearMessage();
}

void EditorWindow::reportError(const QString& text, const QString& fileName, const QString& message)
{
    QMessageBox::critical(
        this, QApplication::applicationDisplayName(),
        QStringLiteral("%1\n\n%2\n%3").arg(text, QDir::toNativeSeparators(fileName), message));
}
