#ifndef ORVRTF_PLACE_H
#define ORVRTF_PLACE_H

#include <QString>
#include <QVector>

/*! Where something stands in a document: "table 2, row 3, column 1, paragraph 2". */
class Place {
public:
    enum Kind { Paragraph, Table, Row, Column, Footnote, Endnote, Comment, Picture };

    Place() { }

    /*! The place with \a number, counted from 1, within this one. */
    Place within(Kind kind, int number) const;

    bool operator==(const Place& other) const { return m_steps == other.m_steps; }
    bool operator!=(const Place& other) const { return !(*this == other); }
    /*! The place for people. */
    QString shown() const;
    /*! All from this place up to \a last, for people. */
    QString shownTo(const Place& last) const;

private:
    struct Step {
        Kind kind;
        int number;
        bool operator==(const Step& other) const { return kind == other.kind && number == other.number; }
    };

    static QString shown(const Step& step);
    QString shown(int from, int end) const;

    QVector<Step> m_steps;
};

#endif
