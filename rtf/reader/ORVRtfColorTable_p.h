#ifndef ORVRTFCOLORTABLE_P_H
#define ORVRTFCOLORTABLE_P_H

#include <QtCore/QVector>
#include <QtGui/QColor>

/*!
    The colours of a document by their RTF numbers, which count the entries of the colour table from 0.
*/
class ORVRtfColorTable {
public:
    /*! Colour \a number until another entry ends; null when there is none. */
    const QRgb* find(int number) const
    {
        return number >= 0 && number < m_colors.size() ? &m_colors.at(number) : nullptr;
    }

    /*! Begins an entry, which is \a color as far as it names none itself. An invalid colour is black. */
    void beginEntry(const QColor& color) { m_entry = color; }
    void setRed(int red) { m_entry.setRed(red); }
    void setGreen(int green) { m_entry.setGreen(green); }
    void setBlue(int blue) { m_entry.setBlue(blue); }
    /*! Gives the entry the next number. */
    void endEntry() { m_colors.append(m_entry.rgb()); }

private:
    QVector<QRgb> m_colors;
    QColor m_entry = Qt::black;
};

#endif
