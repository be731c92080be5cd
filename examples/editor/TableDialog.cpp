#include "TableDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QSpinBox>

TableDialog::TableDialog(QWidget* parent)
    : QDialog(parent), m_rows(new QSpinBox(this)), m_columns(new QSpinBox(this))
{
    setWindowTitle(tr("Insert table"));
    m_rows->setRange(1, 100);
    m_rows->setValue(3);
    m_columns->setRange(1, 20);
    m_columns->setValue(3);

    auto buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto layout = new QFormLayout(this);
    layout->addRow(tr("&Rows:"), m_rows);
    layout->addRow(tr("&Columns:"), m_columns);
    layout->addRow(buttons);
}

int TableDialog::rows() const
{
    return m_rows->value();
}

int TableDialog::columns() const
{
    return m_columns->value();
}
