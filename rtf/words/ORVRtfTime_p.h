#ifndef ORVRTFTIME_P_H
#define ORVRTFTIME_P_H

#include <QtCore/QDateTime>

/*! A time as words describe it, one for each part. */
struct ORVRtfTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;

    /*! The time in the time zone of the user, as files name none; invalid when there is no such day. */
    QDateTime dateTime() const;
    static ORVRtfTime of(const QDateTime& time);

    /*! The time packed in 32 bits, without seconds, as annotations have it. */
    static ORVRtfTime fromPacked(quint32 bits);
    /*! 0 for a year that has no place in them. */
    quint32 packed() const;
};

#endif
