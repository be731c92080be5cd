#ifndef ORVRTFPARAGRAPHSTATE_P_H
#define ORVRTFPARAGRAPHSTATE_P_H

#include "ORVRtfShading_p.h"

/*! Those formats of a paragraph of which several words state parts. A group restores them, `\pard` resets them. */
struct ORVRtfParagraphState {
    ORVRtfShading shading;
    /*! Number of the paragraph's style. */
    int style = 0;
    /*! No space between paragraphs of one style. */
    bool hasContextualSpacing = false;
};

#endif
