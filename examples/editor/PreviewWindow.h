#ifndef PREVIEWWINDOW_H
#define PREVIEWWINDOW_H

#include <QMainWindow>

class PageView;
class QTextDocument;

/*! A window that shows the pages of a document as they would be printed. */
class PreviewWindow : public QMainWindow {
    Q_OBJECT

public:
    PreviewWindow(const QTextDocument& document, QWidget* parent);

    PageView* pageView() const { return m_view; }

private:
    PageView* m_view;
};

#endif
