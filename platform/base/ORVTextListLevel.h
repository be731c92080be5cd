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
    enum Kind {
        Bullet = 0,
        Decimal,
        LowerLetter,
        UpperLetter,
        LowerRoman,
        UpperRoman,
        // Numbers of East Asia, which Qt has no list style for.
        KatakanaAiueo = 0x100, //!< Katakana in the order of the syllabary.
        KatakanaIroha, //!< Katakana in the order of the poem.
        HangulSyllable, //!< Ga, na, da.
        HangulConsonant, //!< The consonants alone.
        HeavenlyStem, //!< The ten stems of the calendar.
        EarthlyBranch, //!< The twelve branches of the calendar.
        Circled, //!< Decimal numbers in circles up to 20.
        IdeographDigit, //!< Chinese digits, one for each decimal digit.
        IdeographCounting //!< Chinese numbers with ten, hundred and thousand.
    };

    /*! What stands between the marker of an item and its text. */
    enum Follow { Tab = 0, Space, Nothing };

    /*! The part of a marker that stands at the position of the first line. */
    enum Justification { Left = 0, Center, Right };

    /*! A decimal level with an empty template and no indents, which starts with 1, with a tab behind markers. */
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

    /*! The number of the first item. */
    int start() const { return m_start; }
    /*! Sets the number of the first item. */
    void setStart(int start) { m_start = start; }

    /*! What stands between the marker of an item and its text. */
    Follow follow() const { return m_follow; }
    /*! Sets what stands between the marker of an item and its text. */
    void setFollow(Follow follow) { m_follow = follow; }

    /*! The part of a marker that stands at the position of the first line. */
    Justification justification() const { return m_justification; }
    /*! Sets the part of a marker that stands at the position of the first line. */
    void setJustification(Justification justification) { m_justification = justification; }

    /*! Whether template, kind, both positions, start, what follows and justification equal those of \a other. */
    bool operator==(const ORVTextListLevel& other) const;
    /*! Whether this level and \a other differ. */
    bool operator!=(const ORVTextListLevel& other) const { return !(*this == other); }

private:
    QString m_text;
    unsigned m_kind;
    double m_indent;
    double m_firstLinePosition;
    int m_start;
    Follow m_follow;
    Justification m_justification;
};

#endif
