#ifndef ORVRTFPARAGRAPH_P_H
#define ORVRTFPARAGRAPH_P_H

#include "ORVRtfFormatSerials_p.h"

#include <QtCore/QList>
#include <QtCore/QVariant>
#include <QtGui/QTextBlockFormat>
#include <QtGui/QTextOption>

/*!
    The paragraph format in force. Unlike character formats it does not end with a group: it holds until it
    is changed or reset.
*/
class ORVRtfParagraph {
public:
    /*! The format with everything said so far. */
    const QTextBlockFormat& format();

    /*! Back to the default format (`\pard`). */
    void reset();

    void setProperty(int id, const QVariant& value) { m_format.setProperty(id, value); }
    void clearProperty(int id) { m_format.clearProperty(id); }

    /*! Sets the left indent, in points; the first line keeps its offset from it. */
    void setLeftIndent(double indent);
    /*! Sets the first line's offset from the left indent, in points. It is stored as a position. */
    void setTextIndent(double offset);
    /*! Sets the position of the right text edge, in points, measured from the left margin. */
    void setRightIndent(double position);
    /*! Adds \a bits to the page-break policy. */
    void addPageBreakBits(int bits);

    /*! Kind of the next tab stop; later ones are left tab stops again. */
    void setNextTabType(QTextOption::TabType type) { m_nextTabType = type; }
    /*! Adds a tab stop at \a position, in points. */
    void addTab(double position);

private:
    QTextBlockFormat m_format;
    // Tab stops are collected here and put into the format once: each change of it copies them all.
    QList<QTextOption::Tab> m_tabs;
    QByteArray m_tabList;
    ORVRtfFormatSerials m_tabLists;
    bool m_tabsChanged = false;
    QTextOption::TabType m_nextTabType = QTextOption::LeftTab;
};

#endif
