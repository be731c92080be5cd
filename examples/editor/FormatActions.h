#ifndef FORMATACTIONS_H
#define FORMATACTIONS_H

#include <QHash>
#include <QObject>
#include <QTextListFormat>

class QAction;
class QActionGroup;
class QColor;
class QTextEdit;

/*! The actions that format text and paragraphs; they show the format at the cursor of the text edit. */
class FormatActions : public QObject {
    Q_OBJECT

public:
    explicit FormatActions(QTextEdit* edit);

    /*! All actions, in the order of a tool bar, with separators. */
    QList<QAction*> actions() const { return m_actions; }

private:
    void createTextActions();
    void createAlignmentActions();
    void createListActions();
    QAction* addToggle(const QString& text, const QIcon& icon);
    void addSeparator();
    void addAlignment(const QString& text, Qt::Alignment alignment);
    QAction* addList(const QString& text, const QIcon& icon, QTextListFormat::Style style);

    void chooseColor();
    void setList(QTextListFormat::Style style, bool on);
    void showTextFormat();
    void showParagraphFormat();

    QTextEdit* m_edit;
    QList<QAction*> m_actions;
    QAction* m_bold = nullptr;
    QAction* m_italic = nullptr;
    QAction* m_underline = nullptr;
    QAction* m_color = nullptr;
    QActionGroup* m_alignments = nullptr;
    QAction* m_bullets = nullptr;
    QAction* m_numbers = nullptr;
};

#endif
