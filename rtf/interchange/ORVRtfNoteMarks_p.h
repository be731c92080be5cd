#ifndef ORVRTFNOTEMARKS_P_H
#define ORVRTFNOTEMARKS_P_H

#include <QtCore/QDateTime>
#include <QtCore/QString>

class QTextCharFormat;
class QTextDocument;

/*! A note while it is read. */
struct ORVRtfNote {
    enum Kind { Footnote, Endnote, Comment, KindCount };

    Kind kind = Footnote;
    /*! Counted from the number that the file begins with; 0 for a mark that the author has chosen. */
    int number = 0;
    QString mark;
    /*! Of comments. */
    QString author;
    QString initials;
    QDateTime date;

    /*! Gives \a format, that of the mark, what makes the mark an anchor of the note with the text of \a document. */
    void attach(QTextCharFormat& format, const QTextDocument& document) const;
};

/*! Counts notes, those of each kind apart, and makes their marks. */
class ORVRtfNoteMarks {
public:
    /*! Kinds of numbers. */
    enum Style { Decimal, LowerLetter, UpperLetter, LowerRoman, UpperRoman, Symbol };

    ORVRtfNoteMarks();

    void setStyle(ORVRtfNote::Kind kind, Style style) { m_styles[kind] = style; }
    void setStart(ORVRtfNote::Kind kind, int number);
    /*! The number of the next note of this kind. */
    int take(ORVRtfNote::Kind kind) { return m_next[kind]++; }
    /*! The note that took \a number has another kind, or a mark of its own. */
    void giveBack(ORVRtfNote::Kind kind, int number);
    QString mark(ORVRtfNote::Kind kind, int number) const;

private:
    Style m_styles[ORVRtfNote::KindCount];
    int m_next[ORVRtfNote::KindCount];
};

#endif
