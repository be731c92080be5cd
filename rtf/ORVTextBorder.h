#ifndef ORVTEXTBORDER_H
#define ORVTEXTBORDER_H

#include "ORVRtfGlobal.h"

#include <QtGui/QColor>
#include <QtGui/QTextFormat>

/*!
    The line along one side of a paragraph or of a table cell.

    Qt has borders of cells, and shows them since version 5.14. Those of paragraphs are custom properties
    (ORVRtfProperties.h), which ORVPagePainter shows. Neighbouring paragraphs with equal borders and indents
    stand in one box.
*/
class ORV_RTF_EXPORT ORVTextBorder {
public:
    /*! The sides of a paragraph or cell, in the order of Qt's properties. */
    enum Side { Top, Bottom, Left, Right, SideCount };

    /*! No line. */
    ORVTextBorder();

    /*! Kind of the line. */
    QTextFrameFormat::BorderStyle style;
    /*! Width of the line in points: with all of its lines, where it is a double one. */
    double width;
    /*! Distance between the line and the text, in points. Only paragraphs have it; cells have padding. */
    double spacing;
    /*! Invalid: the colour of the text. */
    QColor color;

    /*! Whether there is a line. */
    bool isVisible() const { return style != QTextFrameFormat::BorderStyle_None && width > 0; }
    /*! Whether all values are equal. */
    bool operator==(const ORVTextBorder& other) const;
    /*! Whether a value differs. */
    bool operator!=(const ORVTextBorder& other) const { return !(*this == other); }

    /*! The kind with the number \a style, which a document states: a solid line for a number that Qt does not have. */
    static QTextFrameFormat::BorderStyle styleOf(int style);

    /*! The border of a paragraph on \a side; no line where \a format has none. */
    static ORVTextBorder ofParagraph(const QTextBlockFormat& format, Side side);
    /*! Sets the border of a paragraph on \a side; no line removes it. */
    void setToParagraph(QTextBlockFormat& format, Side side) const;

    /*! The border of a table cell on \a side; no line where \a format has none. */
    static ORVTextBorder ofCell(const QTextCharFormat& format, Side side);
    /*!
        Sets the border of a table cell on \a side. No line is stated, too: it hides the one that the table
        would have there.
    */
    void setToCell(QTextCharFormat& format, Side side) const;
};

#endif
