#ifndef ORVTEXTRTFSTRIPPER_P_H
#define ORVTEXTRTFSTRIPPER_P_H

#include "ORVRtfSink_p.h"
#include "ORVTextRtfReader_p.h"

/*!
    The copying of ORVTextRtfStripper: the reader's tokenizer, whose control words are written again.
*/
class ORVTextRtfStripperPrivate : public ORVTextRtfReaderPrivate {
public:
    ORVTextRtfStripperPrivate();

    int translateControlWord(KeyWord keyWord, bool hasParameter, int parameter) override;

    void setOutput(QIODevice* output);
    void process();

private:
    void copyInput();
    void openGroup();
    void closeGroup();
    void copyText();
    void copyBytes(int count);
    void endLine();

    ORVRtfSink m_sink;
    // The last thing written is a control word that text must be kept apart from.
    bool m_spaceOwed = false;
};

#endif
