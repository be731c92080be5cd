#ifndef ORVRTFOUTPUTTABLES_P_H
#define ORVRTFOUTPUTTABLES_P_H

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QPair>
#include <QtGui/QColor>
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

private:
    int find(const QString& family, bool fixedPitch) const;

    QList<QFont> m_fonts;
    // Lowest number of each family and pitch.
    QHash<QPair<QString, bool>, int> m_numbers;
};

/*!
    The colours of the document that is written. The first one added brings black and white with it, as
    numbers 1 and 2; number 0 is the automatic colour, which is not in the list. Transparency is not kept.
*/
class ORVRtfOutputColors {
public:
    const QList<QRgb>& colors() const { return m_colors; }
    /*! Adds \a color unless it is there, or is invalid. */
    void appendMissing(const QColor& color);
    /*! Number of \a color, that of black when it is not there. */
    int number(const QColor& color) const;

private:
    void append(QRgb color);

    QList<QRgb> m_colors;
    QHash<QRgb, int> m_numbers;
};

#endif
