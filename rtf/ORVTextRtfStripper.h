#ifndef ORVTEXTRTFSTRIPPER_H
#define ORVTEXTRTFSTRIPPER_H

#include "ORVTextRtfReader.h"

class QIODevice;

/*!
    Copies Rich Text Format from one device to another in a normalised, lighter form.

    Every group begins on a line of its own, control words get canonical numbers, control words that the
    library does not know are dropped, and of pictures and of the texts of list numbers only the braces and
    the first word stay. No document is built: the input passes through in pieces of a few kilobytes,
    whatever its size.

    Both devices belong to the caller, who opens and closes them.

    The inherited read() is of no use here. Without an output device it reads the input to its end, returns
    false, and error() is 10.
*/
class ORV_RTF_EXPORT ORVTextRtfStripper : public ORVTextRtfReader {
public:
    /*! A stripper without devices; setDevice() sets the input. */
    ORVTextRtfStripper();
    ~ORVTextRtfStripper() override;

    /*! Makes \a output the device to write to; it stays the caller's. */
    void setOutput(QIODevice* output);

    /*!
        Copies the input from its current position to its end. Nothing happens when a device is missing or
        when both are closed. Damaged input is copied as far as it makes sense, and failures of the output
        are not reported: ask the device.
    */
    void process();

private:
    Q_DISABLE_COPY(ORVTextRtfStripper)
};

#endif
