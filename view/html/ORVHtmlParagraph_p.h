#ifndef ORVHTMLPARAGRAPH_P_H
#define ORVHTMLPARAGRAPH_P_H

#include "ORVHtmlDeclarations_p.h"

#include <QtGui/QTextBlock>

struct ORVHtmlContext;

/*! The format of a paragraph as HTML. */
struct ORVHtmlParagraph {
    /*! Level of a heading, from 1 to 6; 0 for other paragraphs. */
    int heading = 0;
    /*! Whether the text runs from right to left. */
    bool isRightToLeft = false;
    /*! Margins in points. */
    double top = 0;
    double right = 0;
    double bottom = 0;
    double left = 0;
    /*! Offset of the first line in points. */
    double firstLine = 0;
    /*! What it declares but for margins, indent of the first line, the font and white space. */
    ORVHtmlDeclarations declarations;

    /*! The format of \a block, which is in stock form. */
    static ORVHtmlParagraph of(const QTextBlock& block, const ORVHtmlContext& context);
    /*! The declarations with margins and indent of the first line. */
    ORVHtmlDeclarations all() const;
};

#endif
