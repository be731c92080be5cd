#ifndef ORVRTF_DIFFERENCE_H
#define ORVRTF_DIFFERENCE_H

#include "Place.h"

#include <QStringList>

/*! A part of a text that was changed. */
struct TextPiece {
    enum Kind { Equal, Removed, Added };
    Kind kind;
    /*! As reports show it, with names for pictures and notes. */
    QString text;
    /*! The number of words in it, without these names. */
    int words;
};

/*! A difference between two documents. */
struct Difference {
    enum Kind {
        /*! The pieces are the changed text of a paragraph. */
        Text,
        /*! The pieces are all texts of what is no longer there. */
        Removed,
        /*! The pieces are all texts of what is new. */
        Added,
        /*! The changes are those of a property of the place, or of some words in it. */
        Format
    };

    Kind kind = Format;
    /*! In the first document, of what is new in the second one. */
    Place place;
    /*! Where the difference ends. */
    Place last;
    QVector<TextPiece> pieces;
    /*! The words whose format was changed; empty when all of the place has the changes. */
    QString words;
    QStringList changes;
    /*! Where the place comes in the order of the report. */
    int order = 0;
};

/*! A change of formats that many places have. */
struct FrequentChange {
    QString change;
    int count = 0;
    /*! The first of the places, with the words. */
    QVector<Difference> examples;
};

/*! All that a report has. */
struct Differences {
    /*! In the order of the text. */
    QVector<Difference> list;
    /*! Changes that are not in the list, as there are too many of them. */
    QVector<FrequentChange> frequent;
    int wordsRemoved = 0;
    int wordsAdded = 0;
    /*! Differences without a changed word, each place counted. */
    int others = 0;

    bool isEmpty() const { return list.isEmpty() && frequent.isEmpty(); }
};

#endif
