#ifndef LINKACTIONS_H
#define LINKACTIONS_H

#include "Links.h"

#include <QObject>

class QAction;
class RichTextEdit;

/*!
    The actions that insert, edit and remove links, and what the mouse does with them: the window shows where
    a link below it leads, and a click with the control key held opens it.
*/
class LinkActions : public QObject {
    Q_OBJECT

public:
    explicit LinkActions(RichTextEdit* edit);

    QList<QAction*> actions() const { return m_actions; }

signals:
    /*! The mouse is on a link to \a target now; empty when it has left one. */
    void hovered(const QString& target);
    /*! A link to \a target is not opened, see Links::addressToOpen(). */
    void refused(const QString& target);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void askForLink();
    void removeLink();
    void enableActions();
    Link linkAtMouse() const;
    void hover();
    void open();

    RichTextEdit* m_edit;
    QList<QAction*> m_actions;
    QString m_hovered;
};

#endif
