#include "testpaths.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

/*! A document in which every kind of group and nearly every control word occurs. */
QByteArray sample()
{
    QFile file(FUZZ_SEEDS_DIR "/everything.rtf"_s);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/*! What is wrong with the outcome of a read, empty when nothing is. */
QString complaint(const Reading& reading)
{
    const QList<int> known{0, 1, 2, 7, 8, 9};
    if (!known.contains(reading.status))
        return "status %1"_s.arg(reading.status);
    if (reading.ok != (reading.status == 0) || reading.message.isEmpty() != (reading.status == 0))
        return "result and message do not fit to status %1"_s.arg(reading.status);
    for (QTextBlock block = reading.document->begin(); block.isValid(); block = block.next()) {
        const Properties properties = propertiesOf(block.blockFormat());
        for (const QVariant& value : properties) {
            if (value.userType() == QMetaType::Double && !std::isfinite(value.toDouble()))
                return "a length is no number"_s;
        }
    }
    for (const QTextImageFormat& format : reading.images()) {
        if (!(format.width() >= 0 && format.width() <= 32767 && format.height() >= 0
              && format.height() <= 32767))
            return "a picture has no sensible size"_s;
    }
    return QString();
}

} // namespace

/*! Damaged input: every read ends with one of the known codes, and leaves a document that can be used. */
class TestDamaged : public QObject {
    Q_OBJECT

private slots:
    // The picture decoders and fonts of Qt warn of each damaged input; here these warnings are only noise.
    void initTestCase()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    }

    void sampleIsSound()
    {
        const Reading reading = read(sample());
        QCOMPARE(reading.status, 0);
        QCOMPARE(complaint(reading), QString());
        QCOMPARE(reading.images().size(), 2);
    }

    // The group of the document closes with the very last byte.
    void cutOffAnywhere()
    {
        const QByteArray rtf = sample();
        QCOMPARE(read(rtf.left(0)).status, 0);
        const QList<int> expected{2, 7, 8, 9};
        for (int length = 1; length < rtf.size(); ++length) {
            const Reading reading = read(rtf.left(length));
            const QByteArray message = "cut off after " + QByteArray::number(length) + " bytes";
            QVERIFY2(expected.contains(reading.status), message.constData());
            QVERIFY2(complaint(reading).isEmpty(), message.constData());
        }
    }

    ORV_ROWS(manyOfAKind)
    {
        const Rows add([](const QByteArray& piece, int status) {
            const Reading reading = read(piece.repeated(2000));
            QCOMPARE(complaint(reading), QString());
            QCOMPARE(reading.status, status);
        });
        add("opening braces", "{", 2);
        add("closing braces", "}", 1);
        add("backslashes and letters", "\\x", 8);
        add("unclosed skipped groups", "{\\*\\unknown ", 2);
        add("unclosed fields", "{\\field{\\*\\fldinst x", 2);
        add("unclosed pictures", "{\\pict\\pngblip 89504e47", 2);
        add("unclosed notes", "{\\footnote x", 2);
        add("unclosed cells", "\\intbl x\\cell ", 0);
        add("nesting without end", "{\\itap99 x\\nestcell ", 2);
        add("bad escapes", "\\'zz", 9);
        add("bad binary data", "\\bin2147483647 ", 9);
        add("NUL bytes", QByteArray("\0", 1), 0);
    }
};

ORV_TEST("damaged", TestDamaged, QGuiApplication)
#include "damaged.moc"
