#ifndef INSERTACTIONS_H
#define INSERTACTIONS_H

#include <QObject>

class QAction;
class QTextEdit;

/*! The actions that insert tables and pictures at the cursor of the text edit. */
class InsertActions : public QObject {
    Q_OBJECT

public:
    explicit InsertActions(QTextEdit* edit);

    QList<QAction*> actions() const { return m_actions; }

    /*! Inserts a table, and puts the cursor in its first cell. */
    void insertTable(int rows, int columns);
    /*! Inserts the picture file \a fileName; false, with the reason in \a message, when there is none. */
    bool insertPicture(const QString& fileName, QString* message);

private:
    void askForTable();
    void askForPicture();

    QTextEdit* m_edit;
    QList<QAction*> m_actions;
};

#endif
