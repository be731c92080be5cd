// Notes, comments, bookmarks and revision levels are properties of the text's format.

#include <ORVNotes.h>
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

    // Text can be the mark of a footnote, whose content is RTF of its own.
    QTextCharFormat anchor;
    anchor.setProperty(ORVRtfProperty::HasNoteContent, true);
    anchor.setProperty(ORVRtfProperty::FootnoteAnchor, true);
    anchor.setProperty(ORVRtfProperty::NoteContent,
                       ORVTextRtf::textToRtf(QLatin1String("Burnt down in 1871."), nullptr));
    anchor.setProperty(ORVRtfProperty::NoteNumber, 1);
    anchor.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    cursor.insertText(QLatin1String("1"), anchor);
    out << "note: " << ORVTextRtf::rtfProperty(ORVRtfProperty::NoteContent, anchor, false) << '\n';

    // The text of a note can stand in line as well, as in what fromRtfData() reads.
    QTextCharFormat comment;
    comment.setProperty(ORVRtfProperty::InAnnotation, true);
    cursor.insertText(QLatin1String("Check the year."), comment);

    QTextCharFormat revised;
    revised.setProperty(ORVRtfProperty::RevisionLevel, 2);
    cursor.insertText(QLatin1String(" by the river"), revised);

    const QVector<ORVNote> notes = ORVNotes::all(&document);
    for (const ORVNote& note : notes)
        out << note.mark << ": " << ORVNotes::text(&document, note) << '\n';

    const QByteArray rtf = ORVTextRtf::toRtfData(&document, false, false);
    out << rtf.count("{\\footnote") << " footnote, " << rtf.count("{\\*\\annotation") << " comment, "
        << rtf.count("\\orvrevlvl2") << " revised\n";
    return 0;
}
