#ifndef ORVRTFROWLOOK_P_H
#define ORVRTFROWLOOK_P_H

#include "ORVRtfBorder_p.h"
#include "ORVRtfShading_p.h"

#include <QtCore/QVector>

/*! A length and the word for its unit. Both can be missing, and come in any order. */
struct ORVRtfMeasure {
    /*! What the number counts. */
    enum Unit { Ignored = 0, Automatic = 1, Percent = 2, Twips = 3 };

    int length = 0;
    bool isStated = false;
    int unit = Twips;

    void set(int value)
    {
        length = value;
        isStated = true;
    }
    /*! Whether it is a length in twips. */
    bool isTwips() const { return isStated && unit == Twips; }
};

/*! The shading of a cell, by words of two generations: those of the newer one count where the others are missing. */
struct ORVRtfCellShading {
    ORVRtfShading plain;
    ORVRtfShading raw;
    bool isStated = false;
    bool isRawStated = false;

    QColor color() const { return isStated ? plain.color() : raw.color(); }
    ORVRtfShading& stated()
    {
        isStated = true;
        return plain;
    }
    ORVRtfShading& statedRaw()
    {
        isRawStated = true;
        return raw;
    }
};

/*! How the words of its definition want a cell to look. Sides are in the order of ORVTextBorder. */
struct ORVRtfCellLook {
    ORVRtfBorder borders[ORVTextBorder::SideCount];
    ORVRtfMeasure padding[ORVTextBorder::SideCount];
    ORVRtfCellShading shading;
    ORVRtfMeasure width;
};

/*! How the words of its definition want a row to look, and its cells as far as they state nothing themselves. */
struct ORVRtfRowLook {
    /*! The definitions of the cells; the last one has not ended. */
    QVector<ORVRtfCellLook> cells = QVector<ORVRtfCellLook>(1);
    /*! Lines around the table, in the order of ORVTextBorder, and between its cells. */
    ORVRtfBorder borders[ORVTextBorder::SideCount];
    ORVRtfBorder horizontal;
    ORVRtfBorder vertical;
    ORVRtfMeasure padding[ORVTextBorder::SideCount];
    /*! Half the space between the texts of two cells, in twips. */
    int gap = 0;
    ORVRtfCellShading shading;
    Qt::Alignment alignment = Qt::AlignLeft;
    bool isHeader = false;
    ORVRtfMeasure width;
    ORVRtfMeasure indent;
    bool hasLeftEdge = false;

    ORVRtfCellLook& currentCell() { return cells.last(); }
    /*! Ends the definition of a cell, after which there are \a definitions, with one that has not ended. */
    void closeCell(int definitions);

    /*! The padding of \a cell on \a side, in twips. */
    int paddingOf(const ORVRtfCellLook& cell, ORVTextBorder::Side side) const;
    /*! The background of \a cell; invalid for none. */
    QColor colorOf(const ORVRtfCellLook& cell) const;
};

#endif
