#ifndef ORVRTFFORMATSERIALS_P_H
#define ORVRTFFORMATSERIALS_P_H

#include "ORVRtfLimits_p.h"

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QVariant>
#include <QtGui/QTextFormat>

/*!
    Sets list-valued properties so that a document finds formats with them quickly.

    A document finds its formats by a hash into which Qt takes a list by its length alone: thousands of
    different tab stops or column widths would be compared one by one. Formats beyond
    ORVRtfLimits::formatsWithoutSerial get a serial number, which the hash covers.

    Equal lists are one QVariant, so that comparing them takes no time. For Qt 4, which compares tab stops by
    their addresses, only such lists are equal at all.
*/
class ORVRtfFormatSerials {
public:
    /*! int, block and table formats. Means nothing to applications. */
    static const int property = QTextFormat::UserProperty + 220;

    /*!
        Sets the property \a id of \a format to a list, and the serial number of the list. \a key differs for
        different lists; \a makeList makes a QVariant of a list that is new.
    */
    template <typename MakeList>
    void setList(QTextFormat& format, int id, const QByteArray& key, MakeList makeList)
    {
        QHash<QByteArray, List>::iterator list = m_lists.find(key);
        if (list == m_lists.end())
            list = m_lists.insert(key, {int(m_lists.size()), makeList()});
        format.setProperty(id, list->value);
        if (list->serial >= ORVRtfLimits::formatsWithoutSerial)
            format.setProperty(property, list->serial);
        else
            format.clearProperty(property);
    }

private:
    struct List {
        int serial;
        QVariant value;
    };
    QHash<QByteArray, List> m_lists;
};

#endif
