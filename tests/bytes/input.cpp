#include "ORVRtfInput_p.h"
#include "testsupport.h"

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
            const QByteArray all = "\\{}\n\r";
            for (int neighbour = 0; neighbour < 256; ++neighbour) {
                if (all.contains(char(neighbour)))
                    continue;
                for (int place = 1; place < 20; ++place) {
                    QByteArray bytes(24, char(neighbour));
                    bytes[place] = special;
                    QBuffer buffer(&bytes);
                    QVERIFY(buffer.open(QIODevice::ReadOnly));
                    ORVRtfInput input;
                    input.setDevice(&buffer);
                    QCOMPARE(input.charAt(0), char(neighbour));
                    QCOMPARE(input.textLength(), place);
                }
            }
        });
        for (const char special : {'\\', '{', '}', '\n', '\r'})
            add(qPrintable(QString::number(special, 16)), special);
    }

    void textEndsWithTheBuffer()
    {
        for (int size = 1; size < 40; ++size) {
            QByteArray bytes(size, 'a');
            // The first byte is text whatever it is.
            bytes[0] = '{';
            QBuffer buffer(&bytes);
            QVERIFY(buffer.open(QIODevice::ReadOnly));
            ORVRtfInput input;
            input.setDevice(&buffer);
            QCOMPARE(input.charAt(0), '{');
            QCOMPARE(input.textLength(), size);
        }
    }
};

ORV_TEST("input", TestInput, QCoreApplication)
#include "input.moc"
