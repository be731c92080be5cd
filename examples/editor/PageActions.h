#ifndef PAGEACTIONS_H
#define PAGEACTIONS_H

#include <QObject>

class PreviewWindow;
class QAction;
class QTextEdit;

/*! The actions that set up the page, and show and export what would be printed. */
class PageActions : public QObject {
    Q_OBJECT

public:
    explicit PageActions(QTextEdit* edit);

    QList<QAction*> actions() const { return m_actions; }

    /*! Opens a window with the pages as they are now; it is gone when it is closed. */
    PreviewWindow* showPreview();

private:
    void add(const QString& text, void (PageActions::*slot)());
    void askForPage();
    void preview() { showPreview(); }
    void askForPdfFile();

    QTextEdit* m_edit;
    QList<QAction*> m_actions;
};

#endif
