#ifndef ORVRTFCONTROLWORD_P_H
#define ORVRTFCONTROLWORD_P_H

#include "ORVTextRtfCommon.h"

/*!
    A control word or control symbol as it stands in the input.
*/
struct ORVRtfControlWord {
    enum Status {
        Complete,
        /*! Nothing but the backslash is left. */
        CutOff,
        /*! The letters do not end within the look-ahead. */
        TooLong
    };

    /*! Bytes that a control word may have, backslash included. */
    static constexpr int longest = 64;

    /*!
        Scans the control word at \a data, which points at its backslash; \a available bytes can be read.
        Only ASCII letters make a word; any other byte after the backslash makes a control symbol.
    */
    static ORVRtfControlWord scan(const char* data, int available);

    Status status = Complete;
    /*! NoKeyWord when the word is unknown. */
    ORVTextRtfCommon::KeyWord keyWord = ORVTextRtfCommon::NoKeyWord;
    bool hasParameter = false;
    int parameter = 0;
    /*! Bytes to consume: the spelling, the parameter and a blank that ends them. */
    int length = 0;
};

#endif
