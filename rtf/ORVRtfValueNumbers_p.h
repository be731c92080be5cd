#ifndef ORVRTFVALUENUMBERS_P_H
#define ORVRTFVALUENUMBERS_P_H

#include "ORVRtfLimits_p.h"
#include "ORVRtfProperties.h"

#include <QtCore/QByteArray>
#include <QtCore/QHash>

/*!
    Tells formats apart that differ in nothing but a list. A document finds its formats by a hash in which
   lists count by their length alone, so that thousands of different tab stops or column widths are compared
   one by one. Formats beyond ORVRtfLimits::unnumberedLists therefore get a number, which is part of the hash.
*/
class ORVRtfValueNumbers {
public:
    /*! Makes \a format, one of whose properties is a list with the content \a list, easy to find. */
    void tellApart(QTextFormat& format, const QByteArray& list)
    {
        const int count = int(m_numbers.size());
        const int number = m_numbers.value(list, count);
        if (number == count)
            m_numbers.insert(list, number);
        if (number >= ORVRtfLimits::unnumberedLists)
            format.setProperty(ORVRtfProperty::ListNumber, number);
        else
            format.clearProperty(ORVRtfProperty::ListNumber);
    }

private:
    QHash<QByteArray, int> m_numbers;
};

#endif
