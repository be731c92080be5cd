#ifndef REVISIONACTIONS_H
#define REVISIONACTIONS_H

#include <QObject>

class QAction;
class QTextEdit;

/*! The actions that set the revision level of text; the one of the level at the cursor is checked. */
class RevisionActions : public QObject {
    Q_OBJECT

public:
    explicit RevisionActions(QTextEdit* edit);

    /*! No level, then the levels 1 to 5. */
    QList<QAction*> actions() const { return m_actions; }

private:
    void add(const QString& text, int level);
    void setLevel(int level);
    void showLevel();

    QTextEdit* m_edit;
    QList<QAction*> m_actions;
};

#endif
