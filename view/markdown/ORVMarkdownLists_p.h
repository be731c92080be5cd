#ifndef ORVMARKDOWNLISTS_P_H
#define ORVMARKDOWNLISTS_P_H

#include "ORVTextListLabels.h"

#include <vector>

/*! The lists that are open at a place of the document, one within an item of the other. */
class ORVMarkdownLists {
public:
    /*! How an item begins. */
    struct Item {
        /*! "- " or "1. ". */
        QString marker;
        /*! Columns in front of it. */
        int indent = 0;
        /*! Whether it follows another item without an empty line. */
        bool isTight = false;
    };

    /*! Whether Markdown can have \a number. */
    static bool isNumber(int number) { return number >= 0 && number <= 999999999; }

    /*! Begins an item whose label is \a label, behind the items that end in front of it. */
    Item begin(const ORVTextListLabels::Label& label, bool isNumbered);
    /*! Something else than an item follows. */
    void end() { m_open.clear(); }

private:
    struct List {
        int number = -1;
        int level = 0;
        // What its markers end with.
        char mark = 0;
        bool isNumbered = false;
        qint64 nextNumber = 0;
        int indent = 0;
        // Where the text of the last item begins.
        int contentIndent = 0;
    };

    bool goesOn(const ORVTextListLabels::Label& label, bool isNumbered) const;
    char close(const ORVTextListLabels::Label& label, bool isNumbered);

    std::vector<List> m_open;
};

#endif
