#ifndef TABLEDIALOG_H
#define TABLEDIALOG_H

#include <QDialog>

class QSpinBox;

/*! Asks for the size of a table. */
class TableDialog : public QDialog {
    Q_OBJECT

public:
    explicit TableDialog(QWidget* parent = nullptr);

    int rows() const;
    int columns() const;

private:
    QSpinBox* m_rows;
    QSpinBox* m_columns;
};

#endif
