#include "testsupport.h"

using namespace rtftest;

namespace {

QByteArray sampleRtf()
{
    return "{\\rtf1\\ansi{\\fonttbl{\\f0 Quibble Serif;}{\\f1\\fcharset128 "
           "A;}}{\\colortbl;\\red255\\green0\\blue0;}\n"
           "\\pard\\f0\\fs24 caf\\'e9 \\u8364?{\\f1\\'93\\'fa x\\'93\\'fa}{\\v y}\\par\n{\\pict\\pngblip "
           "5035203120312032353520\n41}\\par\n"
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

/*! The status and the text of reading one device and importing another, and the result of stripping a third. */
QStringList outcomeOf(QIODevice& toRead, QIODevice& toImport, QIODevice& toStrip)
{
    QStringList outcome(QString::fromLatin1(stripped(toStrip)));
    for (QIODevice* const device : {&toRead, &toImport}) {
        QTextDocument document;
        ORVTextRtfReader reader(device);
        reader.setInterchange(device == &toImport);
        reader.read(&document);
        outcome << QString::number(reader.error()) << textOf(document);
    }
    return outcome;
}

QStringList outcomeOf(QByteArray rtf)
{
    QBuffer toRead(&rtf), toImport(&rtf), toStrip(&rtf);
    toStrip.open(QIODevice::ReadOnly);
    return outcomeOf(toRead, toImport, toStrip);
}

} // namespace

/*! Devices that fail, or that give and take little at a time, end a conversion and never hang it. */
class TestDevices : public QObject {
    Q_OBJECT

private slots:
    /*! What came before a failure is read as if it were all; for every place where it can happen. */
    ORV_ROWS(inputs)
    {
        const Rows add([](bool sequential, QIODevice::OpenMode mode) {
            const QByteArray rtf = sampleRtf();
            for (const int pieceSize : {1, 2, 7, 1000}) {
                UnreliableInput toRead(rtf, pieceSize, sequential), toImport(rtf, pieceSize, sequential),
                    toStrip(rtf, pieceSize, sequential);
                for (QIODevice* const device : {&toRead, &toImport, &toStrip})
                    device->open(mode);
                QCOMPARE(outcomeOf(toRead, toImport, toStrip), outcomeOf(rtf));
                QVERIFY(toRead.calls() <= rtf.size() + 10);
                QCOMPARE(toRead.bytesAvailable(), qint64(0));
            }
            for (int i = 0; i < 2 * rtf.size(); ++i) {
                const UnreliableInput::End end = i % 2 ? UnreliableInput::Fails : UnreliableInput::Closes;
                UnreliableInput toRead(rtf, 1, sequential, end, i / 2),
                    toImport(rtf, 1, sequential, end, i / 2), toStrip(rtf, 1, sequential, end, i / 2);
                for (QIODevice* const device : {&toRead, &toImport, &toStrip})
                    device->open(mode);
                QCOMPARE(outcomeOf(toRead, toImport, toStrip), outcomeOf(rtf.left(i / 2)));
                QVERIFY(toRead.calls() <= 3 * rtf.size());
            }
        });
        const QIODevice::OpenMode buffered = QIODevice::ReadOnly;
        const QIODevice::OpenMode unbuffered = QIODevice::ReadOnly | QIODevice::Unbuffered;
        add("random access", false, buffered);
        add("random access, not buffered by Qt", false, unbuffered);
        add("sequential", true, buffered);
        add("sequential, not buffered by Qt", true, unbuffered);
    }

    void fullOutput()
    {
        const Reading reading = read(sampleRtf());
        const QByteArray written = write(*reading.document);
        for (int room = 0; room <= written.size(); ++room) {
            FullOutput output(room);
            ORVTextRtfWriter writer(&output);
            writer.write(reading.document.data(), false);
            QVERIFY2(written.startsWith(output.bytes()), QByteArray::number(room).constData());
        }
        const QByteArray all = stripped(sampleRtf());
        for (int room = 0; room <= all.size(); ++room) {
            QByteArray rtf = sampleRtf();
            QBuffer input(&rtf);
            input.open(QIODevice::ReadOnly);
            FullOutput output(room);
            ORVTextRtfStripper stripper;
            stripper.setDevice(&input);
            stripper.setOutput(&output);
            stripper.process();
            QCOMPARE(output.bytes(), all.left(room));
        }
    }
};

ORV_TEST("devices", TestDevices, QGuiApplication)
#include "devices.moc"
