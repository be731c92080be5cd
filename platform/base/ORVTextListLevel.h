#ifndef ORVTEXTLISTLEVEL_H
#define ORVTEXTLISTLEVEL_H

#include "ORVPlatformGlobal.h"

#include <QtCore/QMetaType>
#include <QtCore/QString>

/*!
    One level of a multi-level list: how its items are marked and where they stand. A value type.

    The text is a template: "%0" stands for the item's number on this level, "%1" for the number one level
    above, and so on; everything else, a bullet for example, stands for itself.
*/
class ORV_PLATFORM_EXPORT ORVTextListLevel {
public:
    /*! How the numbers of a level are written. */
    enum Kind { Bullet = 0, Decimal, LowerLetter, UpperLetter, LowerRoman, UpperRoman };

    /*! A decimal level with an empty template and no indents. */
    ORVTextListLevel();

    /*! The template of the marker. */
    QString text() const { return m_text; }
    /*! Makes \a text the template of the marker. */
    void setText(const QString& text) { m_text = text; }

    /*! A value of Kind; other values are kept as they are. */
    unsigned kind() const { return m_kind; }
    /*! Makes \a kind the kind of the numbers. */
    void setKind(unsigned kind) { m_kind = kind; }

    /*! Left indent of the items, in points. */
    double indent() const { return m_indent; }
    /*! Makes \a indent, in points, the left indent of the items. */
    void setIndent(double indent) { m_indent = indent; }

    /*! Position of an item's first line, in points, measured from the same edge as indent(). */
    double firstLinePosition() const { return m_firstLinePosition; }
    /*! Makes \a position, in points, the position of an item's first line. */
    void setFirstLinePosition(double position) { m_firstLinePosition = position; }

    /*! Whether template, kind and both positions are those of \a other. */
    bool operator==(const ORVTextListLevel& other) const;
    /*! Whether this level and \a other differ in anything. */
    bool operator!=(const ORVTextListLevel& other) const { return !(*this == other); }

private:
    QString m_text;
    unsigned m_kind;
    double m_indent;
    double m_firstLinePosition;
};

#endif
