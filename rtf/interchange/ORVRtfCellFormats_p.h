#ifndef ORVRTFCELLFORMATS_P_H
#define ORVRTFCELLFORMATS_P_H

#include "ORVRtfBorder_p.h"

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtGui/QTextCharFormat>

/*! Formats of the lines and the padding of table cells. Cells that look alike share one, which is made once. */
class ORVRtfCellFormats {
public:
    /*! The format of a cell with \a borders and \a padding, in twips, of its four sides. */
    QTextCharFormat format(const ORVRtfBorder* borders, const int* padding);

    /*! Whether a cell has a line. */
    bool hasLines() const { return m_hasLines; }

private:
    QHash<QByteArray, QTextCharFormat> m_formats;
    bool m_hasLines = false;
};

#endif
