#ifndef ORVRTFOUTPUTFONTS_P_H
#define ORVRTFOUTPUTFONTS_P_H

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QPair>
#include <QtGui/QFont>

class QTextCharFormat;

/*!
    The fonts of the document that is written. A font's index is its number in RTF. Fonts are distinguished by
    family and pitch; of equal ones the lowest number is used.
*/
class ORVRtfOutputFonts {
public:
    const QList<QFont>& fonts() const { return m_fonts; }
    void insertFirst(const QFont& font);
    void append(const QFont& font);
    /*! Adds the font of \a format, unless there is an equal one. A format without family equals any font. */
    void appendMissing(const QTextCharFormat& format);

    bool contains(const QFont& font) const;
    /*! Number of the font of \a format, 0 if it has none or one that is not there. */
    int number(const QTextCharFormat& format) const;
    /*! Number of \a font, 0 if it is not there. */
    int number(const QFont& font) const;

    /*! The size of \a font in half-points, without fractions of a point even if it is given in pixels. */
    static int halfPoints(const QFont& font);

private:
    int find(const QString& family, bool fixedPitch) const;

    QList<QFont> m_fonts;
    // Lowest number of each family and pitch.
    QHash<QPair<QString, bool>, int> m_numbers;
};

#endif
