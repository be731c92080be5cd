#ifndef ORVRTFRUNFORMAT_P_H
#define ORVRTFRUNFORMAT_P_H

#include "ORVRtfFragmentState_p.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtGui/QTextCharFormat>

/*! A character format and what follows from it, worked out once however many runs of text have it. */
struct ORVRtfRunFormat {
    QTextCharFormat format;
    ORVRtfFragmentState state;
    bool isPicture = false;
    bool isCollected = false;
    // The control words that state the format, made when they are first written.
    QByteArray words;
    int fontNumber = 0;
    QString pageReference;
};

#endif
