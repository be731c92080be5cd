#ifndef ORVRTFOUTPUTCOLORS_P_H
#define ORVRTFOUTPUTCOLORS_P_H

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtGui/QColor>

/*!
    The colours of the document that is written. The first one added also adds black and white as numbers 1
    and 2. Number 0 is the automatic colour, which is not in the list. Transparency is ignored.
*/
class ORVRtfOutputColors {
public:
    const QList<QRgb>& colors() const { return m_colors; }
    /*! Adds \a color, unless it is there already or invalid. */
    void appendMissing(const QColor& color);
    /*! Number of \a color; that of black if it is not there. */
    int number(const QColor& color) const;

private:
    void append(QRgb color);

    QList<QRgb> m_colors;
    QHash<QRgb, int> m_numbers;
};

#endif
