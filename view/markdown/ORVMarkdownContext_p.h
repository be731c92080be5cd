#ifndef ORVMARKDOWNCONTEXT_P_H
#define ORVMARKDOWNCONTEXT_P_H

#include "ORVMarkdownOutput_p.h"
#include "ORVNoteQueue_p.h"
#include "ORVPictureFiles_p.h"
#include "html/ORVHtmlMarkers_p.h"

#include <QtCore/QSet>

/*! What the parts of one Markdown file share. */
struct ORVMarkdownContext {
    ORVMarkdownOutput* output;
    ORVPictureFiles* pictures;
    ORVNoteQueue* notes;
    ORVHtmlMarkers markers;
    /*! Whether fonts of fixed pitch are those of code; not where most of the text has one. */
    bool hasCode;
    /*! The ids that links lead to. */
    QSet<QString> targets;
    /*! Those that have been written. */
    QSet<QString> ids;
};

#endif
