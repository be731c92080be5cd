#ifndef ORVRTFOUTPUTLISTS_P_H
#define ORVRTFOUTPUTLISTS_P_H

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QPair>
#include <QtGui/QTextCharFormat>

class QTextBlock;
class QTextDocument;
class QTextList;

/*! The lists of the document that is written, those of its notes included, in order of appearance. */
class ORVRtfOutputLists {
public:
    struct List {
        QTextList* list;
        /*! Format of the markers: that of the first item. */
        QTextCharFormat markerFormat;
    };

    /*! A document, and the number of one of its lists of which several QTextLists hold the levels. */
    typedef QPair<const QTextDocument*, int> Joined;

    const QList<List>& lists() const { return m_lists; }
    bool contains(QTextList* list) const { return m_numbers.contains(list); }
    void append(QTextList* list, const QTextCharFormat& markerFormat);
    /*! The same for \a list as a part of \a joined, all parts of which have one number. */
    void append(QTextList* list, const QTextCharFormat& markerFormat, const Joined& joined);
    /*! Number by which paragraphs refer to \a list, counted from 1; 0 when it is not there. */
    int number(QTextList* list) const { return m_numbers.value(list, 0); }
    /*! Number of the item \a block in \a list, counted from 1. Fast when asked for the items in order. */
    int itemNumber(const QTextList* list, const QTextBlock& block);
    void clear();

private:
    QList<List> m_lists;
    QHash<QTextList*, int> m_numbers;
    QHash<Joined, int> m_joinedNumbers;
    // Index of the item that is expected next.
    QHash<const QTextList*, int> m_nextItems;
};

#endif
