#include "ORVRtfInput_p.h"
#include "testsupport.h"

namespace {

/*! The length of the text that \a bytes begin with, the first byte being text whatever it is. */
int textLength(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::ReadOnly))
        qFatal("the buffer does not open");
    ORVRtfInput input;
    input.setDevice(&buffer);
    return input.charAt(0) == bytes.at(0) ? input.textLength() : -1;
}

} // namespace

/*!
    The bytes of a device as the tokenizer sees them. What only they show; the rest is seen in what is read.
*/
class TestInput : public QObject {
    Q_OBJECT

private slots:
    /*! At any place, beside any other bytes: many are looked at together. */
    ORV_ROWS(textEndsAtSpecialBytes)
    {
        const Rows add([](char special) {
            for (int neighbour = 0; neighbour < 256; ++neighbour) {
                if ("\\{}\n\r"_b.contains(char(neighbour)))
                    continue;
                for (int place = 1; place < 20; ++place)
                    QCOMPARE(
                        textLength(QByteArray(24, char(neighbour)).replace(place, 1, QByteArray(1, special))),
                        place);
            }
        });
        for (const char special : {'\\', '{', '}', '\n', '\r'})
            add(QByteArray::number(special, 16), special);
    }

    void textEndsWithTheBuffer()
    {
        for (int size = 1; size < 40; ++size)
            QCOMPARE(textLength('{' + QByteArray(size - 1, 'a')), size);
    }
};

ORV_TEST("input", TestInput, QCoreApplication)
#include "input.moc"
