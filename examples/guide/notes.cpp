// Notes, comments, bookmarks and revision levels are properties of the text's format.

#include <ORVRtfProperties.h>
#include <ORVTextRtf.h>

#include <QTextCursor>
#include <QTextDocument>
#include <QTextStream>

int main()
{
    QTextStream out(stdout);
    QTextDocument document;
    QTextCursor cursor(&document);
    cursor.insertText(QLatin1String("The mill"));

    // A footnote hangs on the text before it; its content is RTF of its own.
    QTextCharFormat anchor;
    anchor.setProperty(ORVRtfProperty::HasNoteContent, true);
    anchor.setProperty(ORVRtfProperty::FootnoteAnchor, true);
    anchor.setProperty(ORVRtfProperty::NoteContent,
                       ORVTextRtf::textToRtf(QLatin1String("Burnt down in 1871."), nullptr));
    cursor.insertText(QLatin1String("1"), anchor);
    out << "note: " << ORVTextRtf::rtfProperty(ORVRtfProperty::NoteContent, anchor, false) << '\n';

    // The text of a comment can stand in line as well; so does each note that was read from RTF.
    QTextCharFormat comment;
    comment.setProperty(ORVRtfProperty::InAnnotation, true);
    cursor.insertText(QLatin1String("Check the year."), comment);

    QTextCharFormat revised;
    revised.setProperty(ORVRtfProperty::RevisionLevel, 2);
    cursor.insertText(QLatin1String(" by the river"), revised);

    const QByteArray rtf = ORVTextRtf::toRtfData(&document, false, false);
    out << rtf.count("{\\footnote") << " footnote, " << rtf.count("{\\*\\annotation") << " comment, "
        << rtf.count("\\orvrevlvl2") << " revised\n";
    return 0;
}
