#include "RevisionActions.h"

#include "Icons.h"

#include <ORVFragments.h>
#include <ORVRtfProperties.h>
#include <ORVTextRtfCommon.h>

#include <QAction>
#include <QTextCursor>
#include <QTextEdit>

namespace {

const int greatestLevel = 5;

void set(QTextCharFormat* format, int level)
{
    if (level > 0)
        format->setProperty(ORVRtfProperty::RevisionLevel, level);
    else
        format->clearProperty(ORVRtfProperty::RevisionLevel);
}

} // namespace

RevisionActions::RevisionActions(QTextEdit* edit) : QObject(edit), m_edit(edit)
{
    add(tr("&None"), 0);
    for (int level = 1; level <= greatestLevel; ++level) {
        add(tr("Revision &%1").arg(level), level);
        m_actions.last()->setIcon(Icons::color(ORVTextRtfCommon::revisionColor(level)));
    }
    connect(m_edit, &QTextEdit::currentCharFormatChanged, this, &RevisionActions::showLevel);
    showLevel();
}

void RevisionActions::add(const QString& text, int level)
{
    QAction* action = new QAction(text, this);
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, [=] { setLevel(level); });
    m_actions << action;
}

/*! Of the selection; without one, of what is typed next. */
void RevisionActions::setLevel(int level)
{
    QTextCharFormat typing = m_edit->currentCharFormat();
    const QTextCursor cursor = m_edit->textCursor();
    set(&typing, level);
    if (cursor.hasComplexSelection()) {
        // Cells of a table, whose text does not stand together.
        QTextCharFormat format;
        format.setProperty(ORVRtfProperty::RevisionLevel, level);
        m_edit->mergeCurrentCharFormat(format);
    } else if (cursor.hasSelection()) {
        ORVFragments::changeFormats(m_edit->document(), cursor.selectionStart(), cursor.selectionEnd(),
                                    [=](QTextCharFormat* format) { set(format, level); });
    } else {
        m_edit->setCurrentCharFormat(typing);
    }
    showLevel();
}

void RevisionActions::showLevel()
{
    const int level = m_edit->currentCharFormat().intProperty(ORVRtfProperty::RevisionLevel);
    for (int i = 0; i < m_actions.size(); ++i)
        m_actions.at(i)->setChecked(i == level);
}
