#include "LinkDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

LinkDialog::LinkDialog(const QString& text, const QString& target, QWidget* parent)
    : QDialog(parent), m_firstText(text), m_text(new QLineEdit(text, this)),
      m_target(new QLineEdit(target, this))
{
    m_firstShown = m_text->text();
    setWindowTitle(tr("Link"));
    m_text->setObjectName(QStringLiteral("text"));
    m_target->setObjectName(QStringLiteral("target"));
    m_target->setPlaceholderText(QStringLiteral("https://"));
    m_target->setMinimumWidth(300);

    auto buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto layout = new QFormLayout(this);
    layout->addRow(tr("Te&xt:"), m_text);
    layout->addRow(tr("&Target:"), m_target);
    layout->addRow(buttons);
}

QString LinkDialog::text() const
{
    return m_text->text() == m_firstShown ? m_firstText : m_text->text();
}

QString LinkDialog::target() const
{
    return m_target->text().trimmed();
}
