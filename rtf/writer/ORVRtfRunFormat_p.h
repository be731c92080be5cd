#ifndef ORVRTFRUNFORMAT_P_H
#define ORVRTFRUNFORMAT_P_H

#include "ORVRtfFragmentState_p.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtGui/QTextCharFormat>

/*! A character format with everything derived from it, computed once for all runs of text that have it. */
struct ORVRtfRunFormat {
    QTextCharFormat format;
    ORVRtfFragmentState state;
    bool isPicture = false;
    bool isCollected = false;
    // The control words for the format, created when they are first written.
    QByteArray words;
    int fontNumber = 0;
    QString pageReference;
};

#endif
