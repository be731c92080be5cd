#include "TypingFormat.h"

#include "Links.h"

#include <ORVNotes.h>

#include <QTextCursor>
#include <QTextEdit>

TypingFormat::TypingFormat(QTextEdit* edit) : QObject(edit), m_edit(edit)
{
    connect(m_edit, &QTextEdit::cursorPositionChanged, this, &TypingFormat::leaveEndedTexts);
}

/*! What is typed has the format of the character in front of the cursor; of the one behind it in front of all. */
void TypingFormat::leaveEndedTexts()
{
    const QTextCursor cursor = m_edit->textCursor();
    if (cursor.hasSelection())
        return;
    const int position = cursor.position();
    const int origin = cursor.atBlockStart() ? position : position - 1;
    const Link link = Links::at(*m_edit->document(), origin);
    const ORVNote note = ORVNotes::at(m_edit->document(), origin);
    QTextCharFormat format = cursor.charFormat();
    if (link.length > 0 && link.position + link.length == position)
        Links::clear(&format);
    const bool isBesideMark = note.length > 0 && note.holding == ORVNote::Mark;
    if (isBesideMark || (note.length > 0 && note.position + note.length == position))
        ORVNotes::clear(&format);
    if (isBesideMark)
        format.clearProperty(QTextFormat::TextVerticalAlignment);
    if (format != cursor.charFormat())
        m_edit->setCurrentCharFormat(format);
}
