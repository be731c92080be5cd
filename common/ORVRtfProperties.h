#ifndef ORVRTFPROPERTIES_H
#define ORVRTFPROPERTIES_H

#include <QtGui/QTextFormat>

/*!
    Custom properties of text formats, for features of RTF that Qt has no property for. The reader sets them,
    the writer and the application read them. A missing property counts as 0, false or empty.
*/
namespace ORVRtfProperty {

/*! The ids of the properties, each with its type and the kind of format that has it. */
enum Id {
    /*! int, block: number of the paragraph's list as `\ls` gives it. */
    ListOverride = QTextFormat::UserProperty + 1,
    /*! int, block: 0-based level of the paragraph in its list. */
    ListLevel = QTextFormat::UserProperty + 2,
    /*! QString, image: the MathML text of the formula that the picture shows. */
    MathML = QTextFormat::UserProperty + 4,
    /*! QByteArray, image: a PDF document that the picture shows. */
    PdfData = QTextFormat::UserProperty + 5,
    /*! QByteArray or QString, image: the file name that goes with PdfData. */
    PdfFileName = QTextFormat::UserProperty + 6,
    /*! bool, char: the text has a note whose fonts and colours belong in the tables of the document. */
    HasNoteContent = QTextFormat::UserProperty + 7,
    /*! QByteArray, char: the note attached to the text, as RTF. */
    NoteContent = QTextFormat::UserProperty + 8,
    /*! int, char: revision level of the text, 1 to 5. */
    RevisionLevel = QTextFormat::UserProperty + 10,
    /*! QByteArray, image: the undecoded bytes of a JPEG picture, so that it is written back unchanged. */
    SourceImageData = QTextFormat::UserProperty + 12,
    /*! QString, image: "PNG", "JPEG", "WMF" or empty. */
    ImageType = QTextFormat::UserProperty + 13,
    /*! QString, image: the picture's file name. */
    ImageFileName = QTextFormat::UserProperty + 14,
    /*! int, char: shift of the baseline in half-points, upwards positive. */
    BaselineShift = QTextFormat::UserProperty + 15,
    /*! bool, char: the text is that of an annotation, inline in the document. */
    InAnnotation = QTextFormat::UserProperty + 100,
    /*! bool, char: the text is that of a footnote, inline in the document. */
    InFootnote = QTextFormat::UserProperty + 101,
    /*! bool, char: the text has an annotation, whose content is NoteContent. */
    AnnotationAnchor = QTextFormat::UserProperty + 102,
    /*! bool, char: the text has a footnote, whose content is NoteContent. */
    FootnoteAnchor = QTextFormat::UserProperty + 103,
    /*! bool, char: the footnote of FootnoteAnchor is an endnote. */
    EndnoteAnchor = QTextFormat::UserProperty + 104,
    /*!
        int, char: the text is nothing but the mark of its note. Its number, counted from 1 among the notes of
        its kind, or 0 for a mark that the author has chosen.
    */
    NoteNumber = QTextFormat::UserProperty + 105,
    /*! QString, char: who wrote the annotation. */
    NoteAuthor = QTextFormat::UserProperty + 106,
    /*! QString, char: the initials of who wrote the annotation. */
    NoteInitials = QTextFormat::UserProperty + 107,
    /*! QDateTime, char: when the annotation was written, in local time. */
    NoteDate = QTextFormat::UserProperty + 108,
    /*!
        int, char: the text is a mark that ORVNotes::moveToEnd() has linked. A number that no other note has, above 0
        for the mark in the text and the same below 0 for the mark in front of the note.
    */
    NoteLink = QTextFormat::UserProperty + 109,
    /*! QString, char: the bookmark the text belongs to; a name that begins with "@" marks its end. */
    BookmarkName = QTextFormat::UserProperty + 210,
    /*! QString, char: the bookmark whose page number the text shows. */
    PageReference = QTextFormat::UserProperty + 211,

    /*!
        int, block: kind of the line above the paragraph, a QTextFrameFormat::BorderStyle. Those of the lines
        below, on the left and on the right follow, as they do behind the next three. See ORVTextBorder.
    */
    BorderStyle = QTextFormat::UserProperty + 230,
    /*! double, block: width of the line, in points. */
    BorderWidth = QTextFormat::UserProperty + 234,
    /*! double, block: distance of the line from the text, in points. */
    BorderSpacing = QTextFormat::UserProperty + 238,
    /*! QColor, block: colour of the line; missing for that of the text. */
    BorderColor = QTextFormat::UserProperty + 242,
    /*!
        int, block: level of the heading, from 1, where QTextFormat::HeadingLevel has no room for it, because
        the paragraph has a LineSpacing.
    */
    HeadingLevel = QTextFormat::UserProperty + 246,
    /*!
        int, block: there is no space between the paragraph and a neighbour of the same value, which stands
        for a paragraph style.
    */
    ContextualSpacing = QTextFormat::UserProperty + 247,
    /*!
        QString, block: one character for each tab stop, which fills the room in front of it: a blank for none,
        or one of ".", U+00B7, "-", "_" and "=".
    */
    TabLeaders = QTextFormat::UserProperty + 248,
    /*! QString, char: language of the text as a tag of BCP 47, for example "en-US". */
    Language = QTextFormat::UserProperty + 249,

    // The following are ids of the application inside Qt's own range of block properties. Newer Qt versions
    // use 0x1070 for heading levels, as an int; a line spacing is always a double.

    /*!
        double, block: left indent in points. QTextFormat::TextIndent is then the position of the first line,
        measured from the same edge.
    */
    LeftIndent = 0x1036,
    /*! double, block: position of the right text edge in points, measured from the left margin. */
    RightIndent = 0x1037,
    /*! double, block: height of a line in points. */
    LineSpacing = 0x1070,
    /*! double, block: the single-line height, in points, that LineSpacing is relative to. */
    LineMultiple = 0x1071
};

/*! The application's own bits in QTextFormat::PageBreakPolicy. */
enum PageBreakBit {
    /*! Keep the paragraph on one page with the next one. */
    KeepWithNext = 0x20,
    /*! Keep the paragraph's lines on one page. */
    KeepLinesTogether = 0x200
};

} // namespace ORVRtfProperty

#endif
