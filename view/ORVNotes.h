#ifndef ORVNOTES_H
#define ORVNOTES_H

#include "ORVRtfGlobal.h"

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QVector>

class QTextCharFormat;
class QTextDocument;

/*! A footnote, endnote or comment in a document. A value type. */
struct ORV_RTF_EXPORT ORVNote {
    /*! What the note is. Notes of each kind have a count of their own. */
    enum Kind { Footnote, Endnote, Comment };
    /*! How the document holds the note. */
    enum Holding {
        Mark, //!< A run of text is nothing but the mark of the note, and has its content as a property.
        Attached, //!< A run of text has the content of the note as a property; there is no mark.
        InLine //!< The text of the note stands in the midst of the other text, over paragraph ends too.
    };

    /*! Footnote, endnote or comment. */
    Kind kind = Footnote;
    /*! Mark, attached or in line. */
    Holding holding = Mark;
    /*! First character of the mark, of the text that has the note, or of the note's own text. */
    int position = 0;
    /*! Number of characters of that text; 0 when there is no note. */
    int length = 0;
    /*! Counted from 1 among the notes of the kind; 0 for a mark that the author has chosen. */
    int number = 0;
    /*! The mark as it is shown: "1" for a footnote, "i" for an endnote, "c1" for a comment, or the author's. */
    QString mark;
    /*! The content as RTF of the storage form; empty for a note in line. */
    QByteArray content;
    /*! Who wrote a comment; empty when that is not known. */
    QString author;
    /*! The initials of the author; empty when they are not known. */
    QString initials;
    /*! When a comment was written, in local time; invalid when that is not known. */
    QDateTime date;
};

/*! The notes of documents, and documents that show their notes. */
namespace ORVNotes {

/*! In which form a document is, see ORVStockFormats. */
enum Form {
    ApplicationForm, //!< As ORVTextRtfReader creates it.
    StockForm //!< As ORVStockFormats::toStock() makes it.
};

/*! How moveToEnd() shows marks. */
enum MarkStyle {
    RaisedMarks, //!< As superscript, with a short rule in front of the notes.
    BracketedMarks, //!< "[1]", with an empty paragraph in front of the notes: for plain text.
    LinkedMarks //!< As raised ones, linked with those in front of the notes: see ORVPagePainter::links().
};

/*!
    All notes of \a document, in the order of the text; none when it is null. Notes without a number of their
    own continue the count of their kind.
*/
ORV_RTF_EXPORT QVector<ORVNote> all(const QTextDocument* document);

/*!
    The note that the character at \a position of \a document belongs to; with length 0 when there is none.
    In time proportional to the paragraph, therefore only a note with a mark has a number and a mark.
*/
ORV_RTF_EXPORT ORVNote at(const QTextDocument* document, int position);

/*!
    Makes \a content the content of \a note, which is one of \a document. Both documents are in the form
    \a form. \a content gets the default format, the page and the pictures that the note needs, and no undo
    stack.

    Returns false when the RTF of the note is damaged. Then \a content has what could be read. Does nothing
    and returns false when a document is null.
*/
ORV_RTF_EXPORT bool copyContent(const QTextDocument* document, const ORVNote& note, QTextDocument* content,
                                Form form = ApplicationForm);

/*! The text of \a note, which is one of \a document, without white space around it. */
ORV_RTF_EXPORT QString text(const QTextDocument* document, const ORVNote& note);

/*! Who wrote \a note and when, "Author, 2020-05-01", as far as that is known. */
ORV_RTF_EXPORT QString origin(const ORVNote& note);

/*! Makes \a format that of text without a note. Does nothing when it is null. */
ORV_RTF_EXPORT void clear(QTextCharFormat* format);

/*!
    Moves the contents of all notes in \a document, which is in the form \a form, to its end: for a copy that
    is displayed, printed or exported.

    Each note becomes a mark in the text, and the notes stand behind the text, each beginning with its mark:
    footnotes, endnotes, then comments with author and date. Notes within notes get marks that continue the
    count, and follow the others of their kind. The text has no notes afterwards.

    One undo step, in time proportional to the size of the document and its notes. Does nothing when
    \a document is null or has no notes.
*/
ORV_RTF_EXPORT void moveToEnd(QTextDocument* document, Form form = ApplicationForm,
                              MarkStyle style = RaisedMarks);

} // namespace ORVNotes

#endif
