#ifndef BUFFEREDOUTPUT_H
#define BUFFEREDOUTPUT_H

#include "ORVRtfOutput_p.h"

#include <QtCore/QBuffer>
#include <QtTest/QtTest>

namespace rtftest {

/*! An output with a buffer of its own. */
class BufferedOutput : public ORVRtfOutput {
public:
    BufferedOutput()
    {
        m_buffer.open(QIODevice::WriteOnly);
        setDevice(&m_buffer);
        begin();
    }
    QByteArray bytes()
    {
        if (!flush())
            QTest::qFail("the buffer takes everything", __FILE__, __LINE__);
        return m_buffer.data();
    }

private:
    QBuffer m_buffer;
};

} // namespace rtftest

#endif
