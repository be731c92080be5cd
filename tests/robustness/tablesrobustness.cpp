#include "testsupport.h"

using namespace rtftest;

namespace {

const int deepestNesting = 12;
const int mostColumns = 256;

/*! How tables of a document nest, and whether all of them are sound. */
struct Soundness {
    int depth = 0;
    QString complaint;
};

void inspect(const QTextTable* table, int depth, Soundness& result);

void inspectCell(const QTextTable* table, int row, int column, int depth, Soundness& result)
{
    const QTextTableCell cell = table->cellAt(row, column);
    const bool covered = cell.isValid() && cell.row() <= row && row < cell.row() + cell.rowSpan()
        && cell.column() <= column && column < cell.column() + cell.columnSpan()
        && cell.row() + cell.rowSpan() <= table->rows()
        && cell.column() + cell.columnSpan() <= table->columns();
    if (!covered) {
        result.complaint = "no cell at %1,%2"_s.arg(row).arg(column);
    } else if (cell.row() == row && cell.column() == column) {
        const QList<QTextTable*> inner = tablesOf(cell);
        for (const QTextTable* nested : inner)
            inspect(nested, depth + 1, result);
    }
}

void inspect(const QTextTable* table, int depth, Soundness& result)
{
    result.depth = qMax(result.depth, depth);
    if (table->rows() < 1 || table->columns() < 1 || table->columns() > mostColumns)
        result.complaint = "%1 rows, %2 columns"_s.arg(table->rows()).arg(table->columns());
    const auto widths = table->format().columnWidthConstraints();
    if (!widths.isEmpty() && widths.size() != table->columns())
        result.complaint = "%1 widths for %2 columns"_s.arg(widths.size()).arg(table->columns());
    for (const QTextLength& width : widths) {
        if (!std::isfinite(width.rawValue()))
            result.complaint = "a width that is no number"_s;
    }
    for (int r = 0; r < table->rows(); ++r) {
        for (int c = 0; c < table->columns(); ++c)
            inspectCell(table, r, c, depth, result);
    }
}

Soundness soundnessOf(const QTextDocument& document)
{
    Soundness result;
    const QList<QTextTable*> tables = tablesOf(document);
    for (const QTextTable* table : tables)
        inspect(table, 1, result);
    if (result.depth > deepestNesting)
        result.complaint = "%1 levels"_s.arg(result.depth);
    return result;
}

/*! Tries what an application does next with a document that was read: empty when all of it works. */
QString complaintAbout(const Reading& reading)
{
    const Soundness soundness = soundnessOf(*reading.document);
    if (!soundness.complaint.isEmpty())
        return soundness.complaint;
    // Qt's layout time doubles with each level of nesting.
    if (soundness.depth <= 3 && reading.document->characterCount() < 400
        && !reading.document->documentLayout()->documentSize().isValid())
        return "no layout"_s;

    QSignalSpy changes(reading.document.data(), &QTextDocument::contentsChanged);
    QTextCursor cursor(reading.document.data());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText("typed"_s);
    if (changes.count() != 1)
        return "%1 changes reported"_s.arg(changes.count());
    if (!reading.document->toPlainText().endsWith("typed"_s))
        return "not typed at the end"_s;
    return QString();
}

/*! The digits of a PNG picture. */
QByteArray smallPicture()
{
    QImage image(1, 1, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png.toHex();
}

/*! Sequences of table words in any order, of a fixed seed. */
class Sequence {
public:
    explicit Sequence(unsigned seed) : m_engine(seed)
    {
        const int count = 5 + int(m_engine() % 60);
        rtf = seed % 4 == 0 ? "" : "{\\rtf1 ";
        m_open = seed % 4 == 0 ? 0 : 1;
        for (int i = 0; i < count; ++i)
            add(token());
        for (; seed % 3 == 0 && m_open > 0; --m_open)
            rtf += '}';
        // A word that the end of the input cuts off would be an error of its own.
        rtf += '\n';
    }

    QByteArray rtf;
    /*! What the reader has to report for the braces. */
    int status() const { return m_unmatched ? 1 : m_open > 0 ? 2 : 0; }

private:
    void add(QByteArray token)
    {
        static const QByteArray png = smallPicture();
        rtf += token.replace("@", png);
        const int opened = int(token.count('{')), closed = int(token.count('}'));
        if (m_open + opened < closed)
            m_unmatched = true;
        m_open = qMax(0, m_open + opened - closed);
    }

    QByteArray token()
    {
        // The frequent words of real tables, so that rows and tables come about.
        static const QList<QByteArray> common =
            QByteArray("\\intbl|\\cell|\\row|\\cellx2000|\\cellx4320|\\cellx8640|\\trowd|\\nestcell|"
                       "\\nestrow|\\itap2|\\pard|\\clvmrg|\\clmrg| text")
                .split('|');
        static const QList<QByteArray> odd =
            QByteArray("\\par|\\page|\\lastrow|\\itap1|\\itap3|\\itap0|\\itap-1|\\itap9999|\\itap|"
                       "\\itap12|\\cellx-500|\\cellx0|\\cellx-2147483648|\\cellx2147483647|\\cellx|"
                       "\\cellx1000|\\cellx3000|\\trgaph108|\\trgaph-108|\\clcbpat1|\\clcbpat-7|"
                       "\\clshdrawnil|\\clvertalc|\\clvertalb|\\clbrdrb|\\trbrdrb|\\brdrs|\\brdrw30000|"
                       "\\brdrcf3|\\brdrnil|{|{|}|}|{\\*\\nesttableprops|\\pict|{\\pict\\pngblip @}|"
                       "{\\nonesttables a{b}c}|{\\footnote n}|\\footnote|\\plain|\\ls1\\ilvl3|\\line|"
                       "\\tab|\\u10 ?|\\paperw0|\\paperw2147483647|\\paperw12240|\\margl-2147483648|"
                       "{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt y}}|{\\*\\unknown\\cell\\row}|"
                       "\\\n")
                .split('|');
        const QList<QByteArray>& words = m_engine() % 3 != 0 ? common : odd;
        return words.at(int(m_engine() % unsigned(words.size())));
    }

    std::mt19937 m_engine;
    int m_open = 0;
    bool m_unmatched = false;
};

const int bigRows = 20000;
const int bigColumns = 5;

QByteArray bigTable()
{
    return "{\\rtf1 " + row("1000 2000 3000 4000 5000", "first second third fourth fifth").repeated(bigRows)
        + "\\pard after}";
}

/*! The document that bigTable() makes, without any conversion. */
void buildBigTable(QTextDocument& document)
{
    document.setUndoRedoEnabled(false);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    QTextTable* table = cursor.insertTable(bigRows, bigColumns);
    static const char* const texts[] = {"first", "second", "third", "fourth", "fifth"};
    for (int r = 0; r < bigRows; ++r) {
        for (int c = 0; c < bigColumns; ++c) {
            QTextCharFormat format;
            format.setVerticalAlignment(QTextCharFormat::AlignTop);
            QTextTableCell cell = table->cellAt(r, c);
            cell.setFormat(format);
            cell.firstCursorPosition().insertText(QLatin1String(texts[c]));
        }
    }
    cursor.endEditBlock();
}

/*! The highest memory use of this process so far, in KB; 0 where the system does not tell. */
qint64 peakMemory()
{
    QFile status("/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).simplified().split(' ').first().toLongLong();
    }
    return 0;
}

#if defined(__SANITIZE_ADDRESS__)
const bool freedMemoryIsKept = true;
#else
const bool freedMemoryIsKept = false;
#endif

/*! Runs in a process of its own: prints how much memory \a what takes at its highest, in KB. */
int measure(const QByteArray& what)
{
    QTextDocument document;
    const QByteArray rtf = bigTable();
    const qint64 before = peakMemory();
    bool complete = true;
    if (what == "build") {
        buildBigTable(document);
    } else {
        QBuffer buffer;
        buffer.setData(rtf);
        buffer.open(QIODevice::ReadOnly);
        ORVTextRtfReader reader(&buffer);
        complete = reader.read(&document);
    }
    const QTextTable* table = tablesOf(document).value(0);
    complete = complete && table && table->rows() == bigRows && table->columns() == bigColumns;
    std::printf("%lld\n", static_cast<long long>(peakMemory() - before));
    return complete ? 0 : 1;
}

/*! The memory that the process of measure() reports, in KB; 0 when it failed. */
qint64 measured(const char* what)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(),
                  QStringList() << "tables_robustness"_s
                                << "--measure"_s << QLatin1String(what));
    if (!process.waitForFinished(120000) || process.exitCode() != 0)
        return 0;
    return process.readAllStandardOutput().trimmed().toLongLong();
}

} // namespace

/*! No order of table words and no size of a table does harm. */
class TestTablesRobustness : public QObject {
    Q_OBJECT

private slots:
    /*! The checks below notice a document that is still within an edit block. */
    void complaintsAreFound()
    {
        Reading reading;
        reading.document = newDocument();
        QCOMPARE(complaintAbout(reading), QString());
        QTextCursor cursor(reading.document.data());
        cursor.beginEditBlock();
        QCOMPARE(complaintAbout(reading), "0 changes reported"_s);
        cursor.endEditBlock();
    }

    /*! Words that end cells and rows, in every order, without a row definition. */
    ORV_ROWS(threeWords)
    {
        const Rows add([](const QByteArray& start) {
            const QList<QByteArray> words = {"\\cell",    "\\row",   "\\nestcell", "\\nestrow",
                                             "\\lastrow", "\\clmrg", "\\clvmrg",   "\\cellx5000"};
            for (const QByteArray& first : words) {
                for (const QByteArray& second : words) {
                    for (const QByteArray& third : words) {
                        for (const QByteArray& text : {QByteArray(), " x"_b}) {
                            const QByteArray rtf =
                                start + first + text + second + text + third + text + "\\intbl y\\cell\\row";
                            const Reading reading = readBody(rtf);
                            QVERIFY2(reading.status == 0, rtf.constData());
                            const QString complaint = complaintAbout(reading);
                            QVERIFY2(complaint.isEmpty(),
                                     qPrintable(complaint + ' ' + QString::fromLatin1(rtf)));
                        }
                    }
                }
            }
        });
        add("nothing", QByteArray());
        add("text", "text");
        add("in a paragraph of a table", "\\intbl");
        add("in a nested paragraph", "\\itap2");
        add("in a cell with text", "\\intbl text");
        add("behind a row", row("4320 8640", "A B"));
        add("behind a nested row", "\\intbl\\itap2 N\\nestcell{\\*\\nesttableprops\\cellx900\\nestrow}");
    }

    /*! The sequences are worth trying: many make tables, some of them nested, some with pictures. */
    void randomSequencesMakeTables()
    {
        int withTables = 0, nested = 0, withPictures = 0;
        for (int seed = 0; seed < 500; ++seed) {
            const Reading reading = read(Sequence(unsigned(seed)).rtf);
            const int depth = soundnessOf(*reading.document).depth;
            withTables += depth > 0;
            nested += depth > 1;
            withPictures += !reading.images().isEmpty();
        }
        QVERIFY(withTables > 100);
        QVERIFY(nested > 5);
        QVERIFY(withPictures > 5);
    }

    ORV_ROWS(randomSequences)
    {
        const Rows add([](int firstSeed) {
            for (int seed = firstSeed; seed < firstSeed + 100; ++seed) {
                const Sequence sequence{unsigned(seed)};
                const Reading reading = read(sequence.rtf);
                QVERIFY2(reading.status == sequence.status(), sequence.rtf.constData());
                QVERIFY2(reading.ok == (reading.status == 0), sequence.rtf.constData());
                const QString complaint = complaintAbout(reading);
                QVERIFY2(complaint.isEmpty(),
                         qPrintable(complaint + ' ' + QString::fromLatin1(sequence.rtf)));
            }
        });
        for (int seed = 0; seed < 5000; seed += 100)
            add(qPrintable(QString::number(seed)), seed);
    }

    ORV_ROWS(largeInputs)
    {
        const Rows add([](const QByteArray& rtf) {
            const Reading reading = readBody(rtf);
            QCOMPARE(reading.status, 0);
            QCOMPARE(complaintAbout(reading), QString());
        });
        add("cells without rows", "\\intbl " + "x\\cell "_b.repeated(50000));
        add("empty cells without rows", "\\intbl" + "\\cell"_b.repeated(100000));
        add("definitions without rows", "\\intbl" + "\\cellx100"_b.repeated(100000));
        add("growing definitions", [] {
            QByteArray rtf = "\\intbl";
            for (int i = 1; i <= 20000; ++i)
                rtf += "\\cellx" + QByteArray::number(i);
            return rtf + " x\\cell\\row";
        }());
        add("rows without cells", "\\intbl\\row"_b.repeated(20000));
        add("rows of different widths", [] {
            QByteArray rtf;
            for (int i = 0; i < 400; ++i)
                rtf += row(QByteArray::number(1000 + i * 7919 % 4000) + " 8640", "a b");
            return rtf;
        }());
        add("tables without text between", "\\trowd\\cellx900\\lastrow\\intbl x\\cell\\row"_b.repeated(5000));
        add("levels opened and closed", "\\pard\\itap12 x\\pard\\itap1 y"_b.repeated(5000));
        add("a long text in one cell", "\\intbl " + "x\\b0 y\\b1 "_b.repeated(20000) + "\\cell\\row");
        add("many paragraphs in one cell", "\\intbl " + "x\\par "_b.repeated(20000) + "\\cell\\row");
        add("never closed", "\\intbl\\itap12 " + "x\\nestcell\\nestrow\\itap12 "_b.repeated(3000));
    }

    /*! Beyond the last column text goes on in the last cell, however much it is. */
    void rowOfManyCells()
    {
        const Reading reading = readBody("\\intbl " + "x\\cell "_b.repeated(20000) + "\\row");
        const QTextTable* table = tablesOf(*reading.document).value(0);
        QVERIFY(table);
        QCOMPARE(table->columns(), mostColumns);
        QCOMPARE(contentOf(table->cellAt(0, 254)), "x"_s);
        QCOMPARE(int(contentOf(table->cellAt(0, 255)).count(QLatin1Char('x'))), 20000 - 255);
    }

    ORV_ROWS(verticalMergeOverManyRows)
    {
        const Rows add([](int rows) {
            const Reading reading = readBody(row("4320 8640", "A B")
                                             + row("4320v 8640", "- C").repeated(rows - 1) + "\\pard after");
            const QTextTable* table = tablesOf(*reading.document).value(0);
            QVERIFY(table);
            QCOMPARE(table->rows(), rows);
            QCOMPARE(table->columns(), 2);
            QCOMPARE(cellShape(table->cellAt(rows - 1, 0)), "A(r%1)"_s.arg(rows));
            QCOMPARE(cellShape(table->cellAt(rows - 1, 1)), "C"_s);
        });
        add("2000", 2000);
        add("4000", 4000);
    }

    void manyNestedTables()
    {
        const QByteArray outer = "\\trowd\\cellx8640\\pard\\intbl\\itap2 N\\nestcell"
                                 "{\\*\\nesttableprops\\cellx900\\nestrow}\\pard\\intbl o\\cell\\row\n";
        const Reading reading = readBody(outer.repeated(2000) + "\\pard after");
        QCOMPARE(reading.status, 0);
        const QTextTable* table = tablesOf(*reading.document).value(0);
        QVERIFY(table);
        QCOMPARE(table->rows(), 2000);
        QCOMPARE(contentOf(table->cellAt(1999, 0)), "|{1: N}||o"_s);
    }

    /*!
        Reading may take a multiple of the memory of the finished document, since the cells wait for the
        table's end, but no document for each of the 100,000 cells.
    */
    void memoryOfABigTable()
    {
        if (freedMemoryIsKept)
            QSKIP("the sanitizer's allocator keeps memory that was freed");
        if (peakMemory() == 0)
            QSKIP("this system does not tell a process how much memory it used");
        const qint64 build = measured("build");
        const qint64 read = measured("read");
        QVERIFY(build > 0);
        QVERIFY(read > 0);
        const double factor = double(read) / double(build);
        qInfo("building takes %lld KB, reading %lld KB: %.2f times as much", static_cast<long long>(build),
              static_cast<long long>(read), factor);
        QVERIFY2(factor < 6.0, qPrintable(QString::number(factor)));
    }
};

static int runTestTablesRobustness(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "--measure") == 0)
        return measure(argv[2]);
    TestTablesRobustness test;
    return QTest::qExec(&test, argc, argv);
}

ORV_TEST_MAIN("tables_robustness", runTestTablesRobustness, TestTablesRobustness)
#include "tablesrobustness.moc"
