#ifndef ORVSTOCKLISTS_P_H
#define ORVSTOCKLISTS_P_H

#include "ORVTextListLevel.h"

#include <QtCore/QHash>
#include <QtCore/QList>

class QTextBlockFormat;
class QTextList;

/*! The list that a paragraph is in, as far as it counts for its indents. */
struct ORVStockListItem {
    /*! Steps of indentation that the list adds. */
    int indent = 0;
    /*! Whether the level of the list decides where the paragraph is, instead of Qt's indent. */
    bool hasLevel = false;
    ORVTextListLevel level;
    /*! Whether a marker stands in front of the item. */
    bool hasMarker = false;
};

/*! Knows the lists of a document, each of which is examined once. */
class ORVStockLists {
public:
    /*! The place of a paragraph with \a format in \a list, which may be null. */
    ORVStockListItem item(QTextList* list, const QTextBlockFormat& format);

private:
    struct List {
        int indent = 0;
        bool storesLevels = false;
        QList<ORVTextListLevel> levels;
    };

    static List examined(const QTextList* list);

    QHash<QTextList*, List> m_lists;
};

#endif
