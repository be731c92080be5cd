#ifndef ORVRTFOUTPUTFONTS_P_H
#define ORVRTFOUTPUTFONTS_P_H

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QPair>
#include <QtGui/QFont>

class QTextCharFormat;

/*!
    The fonts of the document that is written; a font's index is its RTF number. Fonts are told apart by
    family and pitch, and the lowest number wins.
*/
class ORVRtfOutputFonts {
public:
    const QList<QFont>& fonts() const { return m_fonts; }
    void insertFirst(const QFont& font);
    void append(const QFont& font);
    /*! Adds the font of \a format unless there is one like it; to a format without family any is. */
    void appendMissing(const QTextCharFormat& format);

    bool contains(const QFont& font) const;
    /*! Number of the font that \a format names, 0 when it names none or one that is not there. */
    int number(const QTextCharFormat& format) const;
    /*! Number of \a font, 0 when it is not there. */
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
