#include "TypingFormat.h"

#include "Links.h"
#include "Notes.h"

#include <QTextCursor>
#include <QTextEdit>

TypingFormat::TypingFormat(QTextEdit* edit) : QObject(edit), m_edit(edit)
{
    connect(m_edit, &QTextEdit::cursorPositionChanged, this, &TypingFormat::leaveEndedTexts);
}

/*! What is typed has the format of the character in front of the cursor. */
void TypingFormat::leaveEndedTexts()
{
    const QTextCursor cursor = m_edit->textCursor();
    if (cursor.hasSelection() || cursor.atBlockStart())
        return;
    const int position = cursor.position();
    const Link link = Links::at(*m_edit->document(), position - 1);
    const Note note = Notes::at(*m_edit->document(), position - 1);
    QTextCharFormat format = cursor.charFormat();
    if (link.length > 0 && link.position + link.length == position)
        Links::clear(&format);
    if (note.length > 0 && note.position + note.length == position)
        Notes::clear(&format);
    if (format != cursor.charFormat())
        m_edit->setCurrentCharFormat(format);
}
