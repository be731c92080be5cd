#include "hostileinputs.h"
#include "testsupport.h"

#include <cstdlib>
#include <ctime>

#include <sys/resource.h>

namespace {

const int megabyte = 1024 * 1024;
// What a conversion of one megabyte may use.
const rlim_t memoryLimit = rlim_t(512) * megabyte;
const rlim_t secondsLimit = 10;
// How much longer twice the input may take.
const double mostGrowth = 2.6;
// Times below, in milliseconds, are too short to be compared.
const double shortest = 20;
const int mostAttempts = 8;

double cpuMilliseconds()
{
    timespec time;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

void limitMemory()
{
    const rlimit memory = {memoryLimit, memoryLimit};
    setrlimit(RLIMIT_DATA, &memory);
    const rlimit core = {0, 0};
    setrlimit(RLIMIT_CORE, &core);
}

/*! From now on the process may run for secondsLimit. */
void limitTime()
{
    const rlimit time = {rlim_t(cpuMilliseconds() / 1e3) + secondsLimit, RLIM_INFINITY};
    setrlimit(RLIMIT_CPU, &time);
}

/*! The milliseconds that \a work takes. */
template <typename Work>
double timeOf(Work work)
{
    limitTime();
    const double before = cpuMilliseconds();
    work();
    return cpuMilliseconds() - before;
}

double timeToRead(QByteArray rtf, QTextDocument* document, bool interchange = false)
{
    QBuffer buffer(&rtf);
    ORVTextRtfReader reader(&buffer);
    reader.setInterchange(interchange);
    return timeOf([&] { reader.read(document); });
}

double timeToWrite(QTextDocument* document)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    ORVTextRtfWriter writer(&buffer);
    return timeOf([&] { writer.write(document, true); });
}

/*! Runs in a process of its own, within limits: prints the milliseconds that each conversion takes. */
int measure(int number, int bytes)
{
    const QByteArray rtf = number < 0 ? hostile::bombDocument() : hostile::inputs().at(number).make(bytes);
    // What a first document costs, as looking for fonts, is not to be counted.
    QTextDocument first;
    timeToRead("{\\rtf1{\\fonttbl\\f0 Aa;}\\f0 x\\trowd\\cellx5\\intbl y\\cell\\row}", &first);
    timeToWrite(&first);
    timeToRead("{\\rtf1 x}", &first, true);

    limitMemory();
    QTextDocument document;
    std::printf("%.3f ", timeToRead(rtf, &document));
    std::printf("%.3f ", timeToWrite(&document));
    document.clear();
    std::printf("%.3f ", timeOf([&rtf] { rtftest::stripped(rtf); }));
    std::printf("%.3f\n", timeToRead(rtf, &document, true));
    std::fflush(stdout);
    std::_Exit(0);
}

/*! A table of 20,000 rows and 5 columns, without any conversion. */
void buildBigTable(QTextDocument& document)
{
    document.setUndoRedoEnabled(false);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    QTextTable* const table = cursor.insertTable(20000, 5);
    QTextCharFormat format;
    format.setVerticalAlignment(QTextCharFormat::AlignTop);
    for (int i = 0; i < 20000 * 5; ++i) {
        QTextTableCell cell = table->cellAt(i / 5, i % 5);
        cell.setFormat(format);
        cell.firstCursorPosition().insertText("content"_s);
    }
    cursor.endEditBlock();
}

/*! The highest memory use of this process so far, in KB. */
qint64 peakMemory()
{
    QFile status("/proc/self/status"_s);
    status.open(QIODevice::ReadOnly);
    const QByteArray text = status.readAll();
    return text.mid(text.indexOf("VmHWM:") + 6).simplified().split(' ').first().toLongLong();
}

/*! How a table of 20,000 rows comes into a document. */
enum TableSource { Built, Read, Imported };

/*! Runs in a process of its own: prints how much memory that table takes at its highest, in KB. */
int measureBigTable(TableSource source)
{
    const QByteArray row =
        rtftest::row("1000 2000 3000 4000 5000", "content content content content content");
    const QByteArray rtf = "{\\rtf1 " + row.repeated(20000) + "\\pard after}";
    const qint64 before = peakMemory();
    QTextDocument document;
    if (source == Built)
        buildBigTable(document);
    else
        timeToRead(rtf, &document, source == Imported);
    std::printf("%lld\n", static_cast<long long>(peakMemory() - before));
    const QTextTable* const table = rtftest::tablesOf(document).value(0);
    return table && table->rows() == 20000 && table->columns() == 5 ? 0 : 1;
}

/*! The numbers that this program prints in another process, empty when it did not end well. */
QVector<double> measured(const QStringList& arguments)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), QStringList("hostile"_s) + arguments);
    QVector<double> numbers;
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit
        || process.exitCode() != 0)
        return numbers;
    for (const QByteArray& number : process.readAllStandardOutput().trimmed().split(' '))
        numbers.append(number.toDouble());
    return numbers;
}

/*! The times that measure() prints. */
QVector<double> measured(int number, int bytes)
{
    return measured({"--measure"_s, QString::number(number), QString::number(bytes)});
}

/*! Lowers each of \a times to that of \a others. */
void takeMinima(QVector<double>& times, const QVector<double>& others)
{
    for (int i = 0; i < times.size(); ++i)
        times[i] = qMin(times.at(i), others.value(i, times.at(i)));
}

/*! Whether one of the times is more than \a mostGrowth times as long for \a large as for \a small inputs. */
bool growsTooMuch(const QVector<double>& small, const QVector<double>& large, double mostGrowth)
{
    for (int i = 0; i < small.size(); ++i) {
        if (large.at(i) > shortest && large.at(i) > mostGrowth * small.at(i))
            return true;
    }
    return false;
}

QString listOf(const QVector<double>& times)
{
    QStringList texts;
    for (double time : times)
        texts << QString::number(time, 'f', 1);
    return texts.join(QLatin1Char(' '));
}

} // namespace

/*! What costs much and says little is converted in bounded memory, in a time that grows as the input does. */
class TestHostile : public QObject {
    Q_OBJECT

private slots:
    /*! A process that uses more than it may does end badly. */
    void limitsAreInForce()
    {
        for (const char* what : {"--use-memory", "--use-time"}) {
            QProcess process;
            process.start(QCoreApplication::applicationFilePath(), {"hostile"_s, QLatin1String(what)});
            QVERIFY(process.waitForFinished(120000));
            QVERIFY2(process.exitStatus() == QProcess::CrashExit, what);
        }
    }

    /*!
        Reading, writing again, stripping, and reading as other programs mean it. Other programs make a measured time longer and never shorter,
        so that the shortest of several is taken. Where the larger input no longer fits the processor's cache,
        one step is longer than the others: then the times grow little enough over two steps.
    */
    ORV_ROWS(conversions)
    {
        const Rows add([](int number) {
            QVector<double> half = measured(number, megabyte / 2);
            QVector<double> whole = measured(number, megabyte);
            QCOMPARE(half.size(), 4);
            QCOMPARE(whole.size(), 4);
            for (int attempt = 1; attempt < mostAttempts && growsTooMuch(half, whole, mostGrowth);
                 ++attempt) {
                takeMinima(half, measured(number, megabyte / 2));
                takeMinima(whole, measured(number, megabyte));
            }
            if (!growsTooMuch(half, whole, mostGrowth))
                return;
            const QVector<double> quarter = measured(number, megabyte / 4);
            QCOMPARE(quarter.size(), 4);
            QVERIFY2(!growsTooMuch(quarter, whole, mostGrowth * mostGrowth),
                     qPrintable("%1 -> %2 -> %3"_s.arg(listOf(quarter), listOf(half), listOf(whole))));
        });
        int number = 0;
        const QList<hostile::Input> inputs = hostile::inputs();
        for (const hostile::Input& input : inputs)
            add(input.name, number++);
    }

    /*! A picture that would take 450 megabytes, and several gigabytes in colours. */
    void decompressionBomb()
    {
        const QVector<double> times = measured(-1, 0);
        QCOMPARE(times.size(), 4);
        QVERIFY2(times.at(0) < 1000, qPrintable(listOf(times)));
    }

    /*!
        Reading may take a multiple of the memory of the finished document, since the cells wait for the
        table's end, but no document for each of the 100,000 cells.
    */
    void memoryOfABigTable()
    {
        const auto memory = [](TableSource source) {
            return measured({"--table"_s, QString::number(source)}).value(0);
        };
        const double built = memory(Built);
        QVERIFY(built > 0);
        for (const TableSource source : {Read, Imported}) {
            const double used = memory(source);
            QVERIFY2(used > 0 && used < 6 * built, qPrintable("%1 KB, built %2 KB"_s.arg(used).arg(built)));
        }
    }
};

static int runTestHostile(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    if (argc == 4 && qstrcmp(argv[1], "--measure") == 0)
        return measure(atoi(argv[2]), atoi(argv[3]));
    if (argc == 2 && qstrcmp(argv[1], "--use-memory") == 0) {
        limitMemory();
        return QByteArray(int(memoryLimit), 'x').isEmpty();
    }
    if (argc == 3 && qstrcmp(argv[1], "--table") == 0)
        return measureBigTable(TableSource(atoi(argv[2])));
    if (argc == 2 && qstrcmp(argv[1], "--use-time") == 0) {
        limitTime();
        while (cpuMilliseconds() < 60000) { }
        return 0;
    }
    TestHostile test;
    return QTest::qExec(&test, argc, argv);
}

ORV_TEST_MAIN("hostile", runTestHostile, TestHostile)
#include "hostile.moc"
