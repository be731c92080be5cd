#ifndef LINKDIALOG_H
#define LINKDIALOG_H

#include <QDialog>

class QLineEdit;

/*! Asks for a link: the text that shows it, and its target. */
class LinkDialog : public QDialog {
    Q_OBJECT

public:
    LinkDialog(const QString& text, const QString& target, QWidget* parent);

    /*! Just what it was at first, whatever characters that has, unless the user has changed it. */
    QString text() const;
    QString target() const;

private:
    QString m_firstText;
    QString m_firstShown;
    QLineEdit* m_text;
    QLineEdit* m_target;
};

#endif
