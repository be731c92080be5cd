#include "testsupport.h"

#include <atomic>

namespace {

const int threadCount = 8;
const int rounds = 20;

/*! A document with something of everything that threads could share; each thread has one of its own. */
QByteArray sample(int number)
{
    const QByteArray n = QByteArray::number(number);
    QByteArray rtf = "{\\rtf1\\ansi{\\fonttbl{\\f0\\froman Quibble Serif;}{\\f1\\fswiss DejaVu "
                     "Sans;}{\\f2\\fcharset128 Font"
        + n + ";}}{\\colortbl;\\red255\\green0\\blue" + n
        + ";}{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}}\\listid1}}"
          "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}\n";
    for (int i = 0; i < 10; ++i) {
        rtf += "\\pard\\plain\\f" + QByteArray::number(i % 3) + "\\fs" + QByteArray::number(20 + number)
            + "\\cf1 Thread " + n + " caf\\'e9 \\'93\\'fa \\u8364? \\emdash{\\b bold}{\\super 1}\\par\n"
            + "\\pard\\ls1\\ilvl0 item\\par\n" + "{\\field{\\*\\fldinst HYPERLINK \"http://example.com/" + n
            + "\"}{\\fldrslt link}}\\par\n" + "{\\pict\\pngblip " + "P5 1 1 255 A"_b.toHex() + "}\\par\n"
            + "\\trowd\\cellx3000\\cellx6000\\pard\\intbl A" + n + "\\cell B\\cell\\row\\pard\n";
    }
    return rtf + "}";
}

/*! Reads \a rtf in either form and writes it again. */
QByteArray converted(QByteArray rtf, bool interchange)
{
    QTextDocument document;
    QBuffer input(&rtf);
    ORVTextRtfReader reader(&input);
    reader.setInterchange(interchange);
    if (!reader.read(&document))
        return "not read";
    QBuffer output;
    output.open(QIODevice::WriteOnly);
    ORVTextRtfWriter writer(&output);
    return writer.write(&document, false) ? output.data() : "not written"_b;
}

/*! Runs \a work(thread number) in all threads, which begin it together. */
template <typename Work>
void runInThreads(Work work)
{
    std::atomic<int> waiting(threadCount);
    std::vector<std::thread> threads;
    for (int number = 0; number < threadCount; ++number) {
        threads.emplace_back([number, &waiting, &work] {
            --waiting;
            while (waiting > 0)
                std::this_thread::yield();
            work(number);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace

/*! Different documents may be converted in different threads at the same time. */
class TestThreads : public QObject {
    Q_OBJECT

private slots:
    /*! Nothing was converted in this process before: the threads race for the tables of control words. */
    void conversions()
    {
        std::vector<QByteArray> results(threadCount);
        runInThreads(
            [&results](int number) { results[size_t(number)] = converted(sample(number), number % 2 == 0); });
        for (int number = 0; number < threadCount; ++number) {
            QVERIFY2(results[size_t(number)].startsWith("{\\rtf1\\ansi"),
                     results[size_t(number)].constData());
            QCOMPARE(results[size_t(number)], converted(sample(number), number % 2 == 0));
        }
        std::atomic<int> differences(0);
        runInThreads([&](int number) {
            const QByteArray rtf = sample(number);
            for (int round = 0; round < rounds; ++round) {
                if (converted(rtf, number % 2 == 0) != results[size_t(number)])
                    ++differences;
            }
        });
        QCOMPARE(differences.load(), 0);
    }
};

ORV_TEST("threads", TestThreads, QGuiApplication)
#include "threads.moc"
