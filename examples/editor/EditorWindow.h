#ifndef EDITORWINDOW_H
#define EDITORWINDOW_H

#include <QMainWindow>

#include <memory>

class FormatActions;
class InsertActions;
class LinkActions;
class MarkupHighlighter;
class NoteActions;
class NotesPanel;
class PageActions;
class QTextDocument;
class RevisionActions;
class RichTextEdit;

/*! A window that edits one RTF file. */
class EditorWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit EditorWindow(QWidget* parent = nullptr);

    RichTextEdit* textEdit() const { return m_edit; }
    InsertActions* insertActions() const { return m_insertActions; }
    NotesPanel* notesPanel() const { return m_notesPanel; }
    PageActions* pageActions() const { return m_pageActions; }
    QString fileName() const { return m_fileName; }

    /*! Replaces the document, saved or not, by \a fileName; false, with a message box, on failure. */
    bool openFile(const QString& fileName);
    /*! Saves the document as \a fileName; false, with a message box, on failure. */
    bool saveFile(const QString& fileName);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void createFileMenu();
    void createEditMenu();
    void createFormatMenus();
    void createNotesPanel();
    void createStatusMessages();

    void newDocument();
    void open();
    bool save();
    bool saveAs();
    void exportRtf();
    bool mayDiscardDocument();

    std::unique_ptr<QTextDocument> createDocument();
    void setDocument(std::unique_ptr<QTextDocument> document, const QString& fileName);
    void setFileName(const QString& fileName);
    void reportError(const QString& text, const QString& fileName, const QString& message);

    RichTextEdit* m_edit;
    FormatActions* m_formatActions;
    InsertActions* m_insertActions;
    NoteActions* m_noteActions;
    LinkActions* m_linkActions;
    RevisionActions* m_revisionActions;
    PageActions* m_pageActions;
    NotesPanel* m_notesPanel;
    MarkupHighlighter* m_highlighter;
    QString m_fileName;
};

#endif
