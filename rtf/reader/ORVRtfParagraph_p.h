#ifndef ORVRTFPARAGRAPH_P_H
#define ORVRTFPARAGRAPH_P_H

#include "ORVTextBorder.h"

#include <QtCore/QVariant>
#include <QtCore/QVector>
#include <QtGui/QTextBlockFormat>
#include <QtGui/QTextOption>

class ORVRtfFormatSerials;

/*!
    The paragraph format in force. Unlike character formats it does not end with a group: it holds until it
    is changed or reset.
*/
class ORVRtfParagraph {
public:
    /*! The complete format. All paragraphs of a document share \a tabLists. */
    QTextBlockFormat format(ORVRtfFormatSerials& tabLists) const;
    /*! Whether the formats are equal. */
    bool operator==(const ORVRtfParagraph& other) const;

    /*! Back to the default format (`\pard`). */
    void reset();

    void setProperty(int id, const QVariant& value) { m_format.setProperty(id, value); }
    int intProperty(int id) const { return m_format.intProperty(id); }
    void clearProperty(int id) { m_format.clearProperty(id); }

    /*! Sets the left indent, in points; the first line keeps its offset from it. */
    void setLeftIndent(double indent);
    /*! Sets the first line's offset from the left indent, in points. It is stored as a position. */
    void setTextIndent(double offset);
    /*! Sets the position of the right text edge, in points, measured from the left margin. */
    void setRightIndent(double position);
    /*! Sets the line along \a side. */
    void setBorder(const ORVTextBorder& border, ORVTextBorder::Side side)
    {
        border.setToParagraph(m_format, side);
    }
    /*! Whether there is a line below and no other one. */
    bool isRuler() const;
    /*! Adds \a bits to the page-break policy. */
    void addPageBreakBits(int bits);

    /*! Sets the line spacing, in points, or the level of a heading; neither touches the other. */
    void setLineSpacing(double spacing);
    void setHeadingLevel(int level);

    /*! What fills the room in front of the next tab stop. */
    void setNextTabLeader(QChar leader) { m_nextTabLeader = leader; }
    /*! Kind of the next tab stop; later ones are left tab stops again. */
    void setNextTabType(QTextOption::TabType type) { m_nextTabType = type; }
    /*! Adds a tab stop at \a position, in points. */
    void addTab(double position);

private:
    // Everything but the tab stops: a format copies all of them for each that is added.
    QTextBlockFormat m_format;
    QVector<QTextOption::Tab> m_tabs;
    QTextOption::TabType m_nextTabType = QTextOption::LeftTab;
    // For each of the tab stops; empty where none has one.
    QString m_tabLeaders;
    QChar m_nextTabLeader = QLatin1Char(' ');
};

#endif
