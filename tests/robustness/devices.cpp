#include "testsupport.h"

using namespace rtftest;

namespace {

QByteArray sampleRtf()
{
    return "{\\rtf1\\ansi{\\fonttbl{\\f0 Quibble Serif;}}{\\colortbl;\\red255\\green0\\blue0;}\n"
           "\\pard\\f0\\fs24 caf\\'e9 \\u8364?\\par\n{\\pict\\pngblip 5035203120312032353520\n41}\\par\n"
           "\\trowd\\cellx3000\\pard\\intbl cell\\cell\\row\n\\pard after\\par}";
}

/*! An input of a few bytes at a time, which fails or closes where it is told to. */
class UnreliableInput : public QIODevice {
public:
    enum End { Sound, Fails, Closes };

    UnreliableInput(const QByteArray& data, int pieceSize, bool sequential, End end = Sound, int endAt = 0)
        : m_data(data), m_pieceSize(pieceSize), m_sequential(sequential), m_end(end), m_endAt(endAt)
    {
    }

    bool isSequential() const override { return m_sequential; }
    // A device may be closed whenever its functions run, but for readData(), where Qt does not allow it.
    bool atEnd() const override
    {
        if (m_end == Closes && m_position >= m_endAt && isOpen())
            const_cast<UnreliableInput*>(this)->close();
        return m_end == Sound && m_position >= m_data.size();
    }
    qint64 size() const override { return m_data.size(); }
    qint64 bytesAvailable() const override { return m_data.size() - m_position; }
    int calls() const { return m_calls; }

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        ++m_calls;
        if (m_end != Sound && m_position >= m_endAt)
            return -1;
        const int count = int(qMin(qMin(maxSize, qint64(m_pieceSize)), m_data.size() - qint64(m_position)));
        memcpy(data, m_data.constData() + m_position, size_t(count));
        m_position += count;
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_data;
    int m_pieceSize;
    bool m_sequential;
    End m_end;
    int m_endAt;
    int m_position = 0;
    int m_calls = 0;
};

/*! Takes \a room bytes and refuses the rest: a full disk, or a reader of a pipe that is gone. */
class FullOutput : public QIODevice {
public:
    explicit FullOutput(int room) : m_room(room) { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }
    const QByteArray& bytes() const { return m_bytes; }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override
    {
        const int count = int(qMin(size, qint64(m_room - m_bytes.size())));
        m_bytes.append(data, count);
        return count > 0 || size == 0 ? count : -1;
    }

private:
    int m_room;
    QByteArray m_bytes;
};

QString textRead(QIODevice& device, int* status)
{
    QTextDocument document;
    ORVTextRtfReader reader(&device);
    reader.read(&document);
    *status = reader.error();
    return textOf(document);
}

void inputRows()
{
    const Columns<bool, bool> add("sequential", "buffered");
    add("random access", false, true);
    add("random access, not buffered by Qt", false, false);
    add("sequential", true, true);
    add("sequential, not buffered by Qt", true, false);
}

QIODevice::OpenMode modeOf(bool buffered)
{
    return buffered ? QIODevice::OpenMode(QIODevice::ReadOnly)
                    : QIODevice::OpenMode(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

} // namespace

/*! Devices that fail, or that give and take little at a time, end a conversion and never hang it. */
class TestDevices : public QObject {
    Q_OBJECT

private slots:
    void shortReads_data() { inputRows(); }

    void shortReads()
    {
        FETCH(bool, sequential, bool, buffered);
        const QByteArray rtf = sampleRtf();
        const QByteArray expected = stripped(rtf);
        for (int pieceSize : {1, 2, 7, 1000}) {
            UnreliableInput input(rtf, pieceSize, sequential);
            input.open(modeOf(buffered));
            int status = -1;
            QCOMPARE(textRead(input, &status), read(rtf).text());
            QCOMPARE(status, 0);
            QVERIFY(input.calls() <= rtf.size() + 10);
            UnreliableInput toStrip(rtf, pieceSize, sequential);
            toStrip.open(modeOf(buffered));
            QCOMPARE(stripped(toStrip), expected);
        }
    }

    void failingInput_data() { inputRows(); }

    /*! What came before the failure is read as if it were all; for every place where it can happen. */
    void failingInput()
    {
        FETCH(bool, sequential, bool, buffered);
        const QByteArray rtf = sampleRtf();
        for (UnreliableInput::End end : {UnreliableInput::Fails, UnreliableInput::Closes}) {
            for (int endAt = 0; endAt < rtf.size(); ++endAt) {
                UnreliableInput input(rtf, 1, sequential, end, endAt);
                input.open(modeOf(buffered));
                int status = -1;
                const Reading expected = read(rtf.left(endAt));
                QCOMPARE(textRead(input, &status), expected.text());
                QCOMPARE(status, expected.status);
                QVERIFY(input.calls() <= 3 * rtf.size());
                UnreliableInput toStrip(rtf, 1, sequential, end, endAt);
                toStrip.open(modeOf(buffered));
                QCOMPARE(stripped(toStrip), stripped(rtf.left(endAt)));
            }
        }
    }

    void fullOutputOfTheWriter()
    {
        const Reading reading = read(sampleRtf());
        const QByteArray all = write(*reading.document);
        for (int room = 0; room <= all.size(); ++room) {
            FullOutput output(room);
            ORVTextRtfWriter writer(&output);
            writer.write(reading.document.data(), false);
            QVERIFY2(all.startsWith(output.bytes()), QByteArray::number(room).constData());
        }
    }

    void fullOutputOfTheStripper()
    {
        QBuffer whole;
        whole.setData(sampleRtf());
        whole.open(QIODevice::ReadOnly);
        const QByteArray all = stripped(whole);
        for (int room = 0; room <= all.size(); ++room) {
            whole.seek(0);
            FullOutput output(room);
            ORVTextRtfStripper stripper;
            stripper.setDevice(&whole);
            stripper.setOutput(&output);
            stripper.process();
            QCOMPARE(output.bytes(), all.left(room));
        }
    }
};

ORV_TEST("devices", TestDevices, QGuiApplication)
#include "devices.moc"
