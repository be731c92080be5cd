#ifndef ORVTEXTLISTLEVEL_H
#define ORVTEXTLISTLEVEL_H

#include "ORVPlatformGlobal.h"

#include <QtCore/QMetaType>
#include <QtCore/QString>

/*!
    One level of a multi-level list: markers and indents of its items. A value type.

    The text is a template: "%0" is replaced by the item's number on this level, "%1" by the number one level
    above, and so on. Any other text, for example a bullet, is shown literally.
*/
class ORV_PLATFORM_EXPORT ORVTextListLevel {
public:
    /*! The number format of a level. */
    enum Kind { Bullet = 0, Decimal, LowerLetter, UpperLetter, LowerRoman, UpperRoman };

    /*! A decimal level with an empty template and no indents. */
    ORVTextListLevel();

    /*! The template of the marker. */
    QString text() const { return m_text; }
    /*! Sets the template of the marker. */
    void setText(const QString& text) { m_text = text; }

    /*! A value of Kind. Other values are stored unchanged. */
    unsigned kind() const { return m_kind; }
    /*! Sets the number format. */
    void setKind(unsigned kind) { m_kind = kind; }

    /*! Left indent of the items, in points. */
    double indent() const { return m_indent; }
    /*! Sets the left indent of the items, in points. */
    void setIndent(double indent) { m_indent = indent; }

    /*! Position of an item's first line, in points, measured from the same edge as indent(). */
    double firstLinePosition() const { return m_firstLinePosition; }
    /*! Sets the position of an item's first line, in points. */
    void setFirstLinePosition(double position) { m_firstLinePosition = position; }

    /*! Whether template, kind and both positions equal those of \a other. */
    bool operator==(const ORVTextListLevel& other) const;
    /*! Whether this level and \a other differ. */
    bool operator!=(const ORVTextListLevel& other) const { return !(*this == other); }

private:
    QString m_text;
    unsigned m_kind;
    double m_indent;
    double m_firstLinePosition;
};

#endif
