#ifndef ORVRTFFORMATSERIALS_P_H
#define ORVRTFFORMATSERIALS_P_H

#include "ORVRtfLimits_p.h"

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtGui/QTextFormat>

/*!
    Makes formats distinguishable that differ only in a list-valued property. A document finds its formats by
    a hash into which Qt takes such a list by its length alone: thousands of different tab stops or column
    widths would be compared one by one. Formats beyond ORVRtfLimits::formatsWithoutSerial get a serial
    number, which the hash covers.
*/
class ORVRtfFormatSerials {
public:
    /*! int, block and table formats. Means nothing to applications. */
    static const int property = QTextFormat::UserProperty + 220;

    /*! Gives \a format, one of whose properties is a list with the content \a list, its serial number. */
    void distinguish(QTextFormat& format, const QByteArray& list)
    {
        const int count = int(m_serials.size());
        const int serial = m_serials.value(list, count);
        if (serial == count)
            m_serials.insert(list, serial);
        if (serial >= ORVRtfLimits::formatsWithoutSerial)
            format.setProperty(property, serial);
        else
            format.clearProperty(property);
    }

private:
    QHash<QByteArray, int> m_serials;
};

#endif
