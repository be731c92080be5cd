#include "TextTips.h"

#include "Links.h"
#include "NotesPanel.h"
#include "RichTextEdit.h"

#include <QHelpEvent>
#include <QToolTip>

namespace {

// As much of a note or target as a tool tip shows, in characters.
const int shownLength = 1000;

/*! Lines that are broken where they get long, whatever \a text looks like. */
QString toHtml(const QString& text)
{
    QString html = text.toHtmlEscaped();
    return QLatin1String("<p>") + html.replace(QLatin1Char('\n'), QLatin1String("<br>"))
        + QLatin1String("</p>");
}

} // namespace

TextTips::TextTips(RichTextEdit* edit) : QObject(edit), m_edit(edit)
{
    m_edit->viewport()->installEventFilter(this);
}

QString TextTips::textAt(int position) const
{
    QStringList lines;
    const ORVNote note = ORVNotes::at(m_edit->document(), position);
    if (note.length > 0)
        lines << NotesPanel::line(note, ORVNotes::text(m_edit->document(), note).left(shownLength));
    const Link link = Links::at(*m_edit->document(), position);
    if (link.length > 0) {
        lines << Links::shownTarget(link).left(shownLength);
        if (!Links::addressToOpen(link).isEmpty())
            lines << tr("Ctrl+click opens the link");
    }
    return lines.join(QLatin1Char('\n'));
}

bool TextTips::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QObject::eventFilter(object, event);
    const auto help = static_cast<const QHelpEvent*>(event);
    const QString text = textAt(m_edit->characterAt(help->pos()));
    QToolTip::showText(help->globalPos(), text.isEmpty() ? text : toHtml(text), m_edit->viewport());
    return true;
}
