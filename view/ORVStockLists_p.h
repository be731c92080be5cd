#ifndef ORVSTOCKLISTS_P_H
#define ORVSTOCKLISTS_P_H

#include "ORVTextListLevel.h"

#include <QtCore/QHash>
#include <QtCore/QList>

class QTextBlockFormat;
class QTextList;

/*! The properties of a paragraph's list that decide about its indents. */
struct ORVStockListItem {
    /*! Steps of indentation that the list adds. */
    int indent = 0;
    /*!
        Whether the level stored in the list decides about the paragraph's position, instead of Qt's indent.
    */
    bool hasLevel = false;
    ORVTextListLevel level;
    /*! Whether a marker stands in front of the item. */
    bool hasMarker = false;
};

/*! The lists of a document. Each list is examined once and cached. */
class ORVStockLists {
public:
    /*! The item that a paragraph of \a format is in \a list, which may be null. */
    ORVStockListItem item(QTextList* list, const QTextBlockFormat& format);

private:
    struct List {
        int indent = 0;
        bool storesLevels = false;
        // The level of all items; -1 where each item has its own.
        int shownLevel = -1;
        QList<ORVTextListLevel> levels;
    };

    static List examined(const QTextList* list);

    QHash<QTextList*, List> m_lists;
};

#endif
