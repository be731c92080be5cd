#ifndef ORVRTFTEXTSTATE_P_H
#define ORVRTFTEXTSTATE_P_H

#include "ORVRtfShading_p.h"

#include <QtGui/QFont>

/*!
    Those formats of text that several words share. Each word ends its own only, and what counts is found among
    all that are in force. A group restores them, `\plain` resets them.
*/
struct ORVRtfTextState {
    /*! `\highlight`, which counts more than the next two; invalid for none. */
    QColor highlight;
    /*! `\chcbpat`, `\chcfpat` and `\chshdng`, which count more than the last. */
    ORVRtfShading shading;
    /*! `\cb`, which most word processors write but do not read. */
    QColor background;

    bool isStruckOut = false;
    bool isDoublyStruckOut = false;
    bool hasCapitals = false;
    bool hasSmallCapitals = false;

    /*! The background that is seen; invalid for none. */
    QColor shownBackground() const
    {
        if (highlight.isValid())
            return highlight;
        const QColor shaded = shading.color();
        return shaded.isValid() ? shaded : background;
    }

    QFont::Capitalization capitalization() const
    {
        if (hasCapitals)
            return QFont::AllUppercase;
        return hasSmallCapitals ? QFont::SmallCaps : QFont::MixedCase;
    }
};

#endif
