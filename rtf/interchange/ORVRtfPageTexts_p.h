#ifndef ORVRTFPAGETEXTS_P_H
#define ORVRTFPAGETEXTS_P_H

#include "ORVTextPage.h"

class QTextDocument;

/*!
    The headers and footers of a file. A file can have different ones for first, left and right pages and for
    each section, a document one of each: the first that has text, with those for all pages going before those
    for right, left and first ones.
*/
class ORVRtfPageTexts {
public:
    enum Side { Header, Footer, SideCount };
    enum Pages { AllPages, RightPages, LeftPages, FirstPage, PagesCount };

    /*! Takes the text of \a document, which is a header or footer, unless there is one for these pages. */
    void add(Side side, Pages pages, const QTextDocument& document);

    /*! The first page is another one (`\titlepg`). */
    bool isFirstPageSpecial = false;
    void setFirstNumber(int number);

    /*!
        Sets the properties "header" and "footer" (ORVTextPage), "notOnFirstPage" and "countFirstPage" of
        \a document. What the file does not state is unset, but the first page counts where numbers of pages
        may be shown.
    */
    void setOn(QTextDocument* document) const;

private:
    const ORVTextPage* find(Side side) const;

    ORVTextPage m_texts[SideCount][PagesCount];
    // The number of the first page (`\pgnstarts`).
    int m_firstNumber = 1;
    bool m_isFirstNumberStated = false;
};

#endif
