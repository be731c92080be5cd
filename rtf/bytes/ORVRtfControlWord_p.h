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

    /*! Looks for a word of a length in bytes among words that are not exported; 0 for none. */
    typedef int (*FindPrivate)(const char* spelling, int length);

    /*!
        Scans the control word at \a data, which points at its backslash; \a available bytes can be read.
        Only ASCII letters make a word; any other byte after the backslash makes a control symbol. What is
        none of the exported words is looked for by \a findPrivate.
    */
    static ORVRtfControlWord scan(const char* data, int available, FindPrivate findPrivate = nullptr);

    Status status = Complete;
    /*! NoKeyWord when the word is unknown. */
    ORVTextRtfCommon::KeyWord keyWord = ORVTextRtfCommon::NoKeyWord;
    /*! What FindPrivate found. */
    int privateWord = 0;
    bool hasParameter = false;
    int parameter = 0;
    /*! Bytes to consume: the spelling, the parameter and a blank that ends them. */
    int length = 0;

private:
    void find(const char* spelling, int size, FindPrivate findPrivate);
};

#endif
