#ifndef ORVRTFBORDER_P_H
#define ORVRTFBORDER_P_H

#include "ORVRtfInterchangeWords_p.h"
#include "ORVTextBorder.h"

#include <QtGui/QColor>

/*!
    The line along one side of a cell or paragraph as words describe it, in any order. It takes little memory, as
    each cell of a table has four until the table ends.
*/
class ORVRtfBorder {
public:
    /*! Whether words state a line, or that there is none. */
    bool isStated() const { return m_kind != unstated; }
    bool isVisible() const { return m_kind >= 0; }

    /*! The kind of a line; false for words that mean none. */
    bool setKind(ORVRtfInterchangeWords::Word word);
    void setSingle() { m_kind = 0; }
    void setNone() { m_kind = none; }
    /*! Width of the pen, in twips; lines of several strokes are wider. */
    void setWidth(int twips) { m_width = limited(twips); }
    void setSpacing(int twips) { m_spacing = limited(twips); }
    void setColor(const QColor& color);

    /*! The line, with lengths in points. */
    ORVTextBorder border() const;

private:
    static constexpr int unstated = -2;
    static constexpr int none = -1;

    static qint16 limited(int twips);

    // Index of a kind, or one of the two above.
    int m_kind = unstated;
    qint16 m_width = 0;
    qint16 m_spacing = 0;
    // Transparent for that of the text.
    QRgb m_color = 0;
};

#endif
