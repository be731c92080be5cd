#include "LinkActions.h"

#include "LinkDialog.h"
#include "RichTextEdit.h"

#include <QAction>
#include <QCursor>
#include <QDesktopServices>
#include <QMouseEvent>
#include <QTextCursor>
#include <QUrl>

namespace {

bool isControlClick(const QEvent* event)
{
    if (event->type() != QEvent::MouseButtonRelease)
        return false;
    const auto mouse = static_cast<const QMouseEvent*>(event);
    return mouse->button() == Qt::LeftButton && mouse->modifiers() == Qt::ControlModifier;
}

} // namespace

LinkActions::LinkActions(RichTextEdit* edit) : QObject(edit), m_edit(edit)
{
    QAction* link = new QAction(tr("&Link…"), this);
    link->setShortcut(QKeySequence(QStringLiteral("Ctrl+K")));
    connect(link, &QAction::triggered, this, &LinkActions::askForLink);
    QAction* remove = new QAction(tr("&Remove link"), this);
    connect(remove, &QAction::triggered, this, &LinkActions::removeLink);
    m_actions << link << remove;

    m_edit->viewport()->setMouseTracking(true);
    m_edit->viewport()->installEventFilter(this);
    connect(m_edit, &QTextEdit::cursorPositionChanged, this, &LinkActions::enableActions);
    connect(m_edit, &QTextEdit::textChanged, this, &LinkActions::enableActions);
    enableActions();
}

/*! The link at the cursor is edited as a whole. An empty target removes it. */
void LinkActions::askForLink()
{
    QTextCursor cursor = m_edit->textCursor();
    const Link link = Links::at(cursor);
    if (link.length > 0) {
        cursor.setPosition(link.position);
        cursor.setPosition(link.position + link.length, QTextCursor::KeepAnchor);
    }
    LinkDialog dialog(cursor.selectedText(), link.target, m_edit->window());
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (dialog.target().isEmpty())
        Links::remove(m_edit->document(), link);
    else
        Links::set(cursor, dialog.text().isEmpty() ? dialog.target() : dialog.text(), dialog.target());
}

void LinkActions::removeLink()
{
    Links::remove(m_edit->document(), Links::at(m_edit->textCursor()));
}

void LinkActions::enableActions()
{
    m_actions.last()->setEnabled(Links::at(m_edit->textCursor()).length > 0);
}

bool LinkActions::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::MouseMove || event->type() == QEvent::Leave)
        hover();
    else if (isControlClick(event) && !m_edit->textCursor().hasSelection())
        open();
    return QObject::eventFilter(object, event);
}

Link LinkActions::linkAtMouse() const
{
    const QPoint point = m_edit->viewport()->mapFromGlobal(QCursor::pos());
    return Links::at(*m_edit->document(), m_edit->characterAt(point));
}

void LinkActions::hover()
{
    const QString target = Links::shownTarget(linkAtMouse());
    if (target == m_hovered)
        return;
    m_hovered = target;
    emit hovered(target);
}

void LinkActions::open()
{
    const Link link = linkAtMouse();
    const QUrl address = Links::addressToOpen(link);
    if (!address.isEmpty())
        QDesktopServices::openUrl(address);
    else if (link.length > 0)
        emit refused(link.target);
}
