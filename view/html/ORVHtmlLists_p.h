#ifndef ORVHTMLLISTS_P_H
#define ORVHTMLLISTS_P_H

#include "ORVHtmlContext_p.h"
#include "ORVTextListLabels.h"

#include <vector>

/*! The lists that are open at a place of the document, one within an item of the other. */
class ORVHtmlLists {
public:
    explicit ORVHtmlLists(ORVHtmlContext* context) : m_context(context) { }

    /*! An item to begin. */
    struct Item {
        ORVTextListLabels::Label label;
        ORVHtmlMarker marker;
        bool isRightToLeft = false;
        /*! Where its text begins, in points from that of the text around the lists. */
        double start = 0;
        /*! Its other margins in points. */
        double top = 0;
        double end = 0;
        double bottom = 0;
        /*! Whether its text is a paragraph in it. */
        bool hasParagraph = false;
        /*! What else it declares; margin and list-style-type are added. */
        ORVHtmlDeclarations declarations;
    };

    /*! Writes the start tag of \a item, behind the tags of the lists that end and begin in front of it. */
    void begin(const Item& item);
    /*! Where the text of items begins that are open, in points. */
    double start() const { return m_open.empty() ? 0 : m_open.back().start; }
    /*! Writes the end tags of all that is open. */
    void end();

private:
    struct List {
        // -1 for one that only bridges a level.
        int number = -1;
        ORVHtmlMarker marker;
        qint64 nextNumber = 1;
        double start = 0;
        // The side that its padding is on.
        bool isRightToLeft = false;
    };

    bool goesOn(const Item& item) const;
    void open(const Item& item);
    void openBridge();
    void close();
    void writeItem(const Item& item);

    ORVHtmlContext* m_context;
    // Whether the last item has text of its own, and the line has not ended.
    bool m_isInLine = false;
    // The list at an index has items of that level.
    std::vector<List> m_open;
};

#endif
