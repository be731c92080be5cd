#ifndef STRIPPINGHELPERS_H
#define STRIPPINGHELPERS_H

#include "ORVTextRtfStripper.h"

#include <QtCore/QBuffer>

namespace rtftest {

/*! What the stripper makes of what it reads from \a input. */
inline QByteArray stripped(QIODevice& input)
{
    QBuffer output;
    output.open(QIODevice::WriteOnly);
    ORVTextRtfStripper stripper;
    stripper.setDevice(&input);
    stripper.setOutput(&output);
    stripper.process();
    return output.data();
}

inline QByteArray stripped(const QByteArray& rtf)
{
    QBuffer input;
    input.setData(rtf);
    input.open(QIODevice::ReadOnly);
    return stripped(input);
}

} // namespace rtftest

#endif
