#ifndef ORVRTFSHADING_P_H
#define ORVRTFSHADING_P_H

#include <QtGui/QColor>

/*!
    The background of text, of a paragraph or of a cell: a pattern of two colours, of which words state the parts
    in any order. What is shown is the colour that the pattern looks like from afar.
*/
class ORVRtfShading {
public:
    /*! The colour behind the pattern; invalid for that of the paper. */
    QColor background;
    /*! The colour of the pattern's dots and lines; invalid for that of plain text. */
    QColor foreground;

    /*! Sets how much of the area the dots cover, in hundredths of a percent. */
    void setCoverage(int hundredths) { m_coverage = qBound(0, hundredths, complete); }

    /*!
        The mixture of the two colours, channel by channel in proportion to their areas. Invalid where nothing is
        shaded.
    */
    QColor color() const;

private:
    static constexpr int complete = 10000;

    int m_coverage = 0;
};

#endif
