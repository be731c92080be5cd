#include "interchangehelpers.h"
#include "runhelpers.h"
#include "testpaths.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

const int deepestNesting = 12;
const int mostColumns = 256;

/*! A document in which every kind of group and nearly every control word occurs. */
QByteArray sample()
{
    QFile file(FUZZ_SEEDS_DIR "/everything.rtf"_s);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/*! What is wrong with \a table, which stands at \a depth, or with a table within; empty when nothing is. */
QString complaintAbout(const QTextTable* table, int depth = 1)
{
    const int rows = table->rows();
    const int columns = table->columns();
    const auto widths = table->format().columnWidthConstraints();
    if (depth > deepestNesting || rows < 1 || columns < 1 || columns > mostColumns)
        return "%1 rows, %2 columns at level %3"_s.arg(rows).arg(columns).arg(depth);
    if (!widths.isEmpty() && widths.size() != columns)
        return "%1 widths for %2 columns"_s.arg(widths.size()).arg(columns);
    for (const QTextLength& width : widths) {
        if (!std::isfinite(width.rawValue()))
            return "a width that is no number"_s;
    }
    for (int i = 0; i < rows * columns; ++i) {
        const int row = i / columns, column = i % columns;
        const QTextTableCell cell = table->cellAt(row, column);
        const int below = cell.row() + cell.rowSpan(), behind = cell.column() + cell.columnSpan();
        if (!cell.isValid() || cell.row() > row || row >= below || cell.column() > column || column >= behind
            || below > rows || behind > columns)
            return "no cell at %1,%2"_s.arg(row).arg(column);
        const bool starts = cell.row() == row && cell.column() == column;
        for (const QTextTable* nested : starts ? tablesOf(cell) : QList<QTextTable*>()) {
            const QString complaint = complaintAbout(nested, depth + 1);
            if (!complaint.isEmpty())
                return complaint;
        }
    }
    return QString();
}

/*! What is wrong with the formats of \a document, empty when nothing is. */
QString complaintAboutFormats(const QTextDocument& document)
{
    for (const QTextFormat& format : document.allFormats()) {
        for (const QVariant& value : format.properties()) {
            if (value.userType() == QMetaType::Double && !std::isfinite(value.toDouble()))
                return "a length is no number"_s;
        }
        const double width = format.toImageFormat().width(), height = format.toImageFormat().height();
        if (format.isImageFormat() && !(width >= 0 && width <= 32767 && height >= 0 && height <= 32767))
            return "a picture has no sensible size"_s;
    }
    return QString();
}

/*! What is wrong with a read and with what an application does next, empty when nothing is. */
QString complaintAbout(const Reading& reading)
{
    const bool good = reading.status == 0;
    if (!QList<int>{0, 1, 2, 7, 8, 9}.contains(reading.status))
        return "status %1"_s.arg(reading.status);
    if (reading.ok != good || reading.message.isEmpty() != good)
        return "result and message do not fit to status %1"_s.arg(reading.status);
    QString complaint = complaintAboutFormats(*reading.document);
    for (const QTextTable* table : tablesOf(*reading.document))
        complaint += complaintAbout(table);
    if (!complaint.isEmpty())
        return complaint;

    const QSignalSpy changes(reading.document.data(), &QTextDocument::contentsChanged);
    QTextCursor cursor(reading.document.data());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText("typed"_s);
    if (changes.count() != 1)
        return "%1 changes reported"_s.arg(changes.count());
    return reading.document->toPlainText().endsWith("typed"_s) ? QString() : "not typed at the end"_s;
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
        QCOMPARE(complaintAbout(reading), QString());
        QCOMPARE(reading.images().size(), 2);
    }

    /*! The checks notice a document that is still within an edit block. */
    void complaintsAreFound()
    {
        const Reading reading = read(QByteArray());
        QCOMPARE(complaintAbout(reading), QString());
        QTextCursor cursor(reading.document.data());
        cursor.beginEditBlock();
        QCOMPARE(complaintAbout(reading), "0 changes reported"_s);
        cursor.endEditBlock();
    }

    // The group of the document closes with the very last byte.
    void cutOffAnywhere()
    {
        const QByteArray rtf = sample();
        QCOMPARE(read(rtf.left(0)).status, 0);
        const QList<int> expected{2, 7, 8, 9};
        for (int length = 1; length < rtf.size(); ++length) {
            const QByteArray message = "cut off after " + QByteArray::number(length) + " bytes";
            for (const Reading& reading : inBothForms(rtf.left(length))) {
                QVERIFY2(expected.contains(reading.status), message.constData());
                QVERIFY2(complaintAbout(reading).isEmpty(), message.constData());
            }
        }
    }

    ORV_ROWS(manyOfAKind)
    {
        const Rows add([](const QByteArray& rtf, int status) {
            const Reading reading = read(rtf);
            QCOMPARE(complaintAbout(reading), QString());
            QCOMPARE(reading.status, status);
            QCOMPARE(complaintAbout(import(rtf)), QString());
        });
        const auto many = [&add](const char* name, const QByteArray& piece, int status) {
            add(name, piece.repeated(2000), status);
        };
        const auto tables = [&add](const char* name, const QByteArray& body) {
            add(name, "{\\rtf1\\ansi " + body + "}", 0);
        };
        many("opening braces", "{", 2);
        many("closing braces", "}", 1);
        many("backslashes and letters", "\\x", 8);
        many("unclosed skipped groups", "{\\*\\unknown ", 2);
        many("unclosed fields", "{\\field{\\*\\fldinst x", 2);
        many("unclosed pictures", "{\\pict\\pngblip 89504e47", 2);
        many("unclosed notes", "{\\footnote x", 2);
        many("unclosed cells", "\\intbl x\\cell ", 0);
        many("nesting without end", "{\\itap99 x\\nestcell ", 2);
        many("bad escapes", "\\'zz", 9);
        many("bad binary data", "\\bin2147483647 ", 9);
        many("NUL bytes", QByteArray("\0", 1), 0);

        tables("cells without rows", "\\intbl " + "x\\cell "_b.repeated(50000));
        tables("empty cells without rows", "\\intbl" + "\\cell"_b.repeated(100000));
        tables("definitions without rows", "\\intbl" + "\\cellx100"_b.repeated(100000));
        tables("growing definitions", "\\intbl" + counted("\\cellx#", 20000) + " x\\cell\\row");
        tables("rows without cells", "\\intbl\\row"_b.repeated(20000));
        QByteArray rows;
        for (int i = 0; i < 400; ++i)
            rows += row(QByteArray::number(1000 + i * 7919 % 4000) + " 8640", "a b");
        tables("rows of different widths", rows);
        tables("tables without text between",
               "\\trowd\\cellx900\\lastrow\\intbl x\\cell\\row"_b.repeated(5000));
        tables("levels opened and closed", "\\pard\\itap12 x\\pard\\itap1 y"_b.repeated(5000));
        tables("a long text in one cell", "\\intbl " + "x\\b0 y\\b1 "_b.repeated(20000) + "\\cell\\row");
        tables("many paragraphs in one cell", "\\intbl " + "x\\par "_b.repeated(20000) + "\\cell\\row");
        tables("never closed", "\\intbl\\itap12 " + "x\\nestcell\\nestrow\\itap12 "_b.repeated(3000));
    }

    /*! Words that end cells and rows, in every order, without a row definition. */
    ORV_ROWS(tableWordsInAnyOrder)
    {
        const Rows add([](const QByteArray& start) {
            const QList<QByteArray> words = {"\\cell",    "\\row",   "\\nestcell", "\\nestrow",
                                             "\\lastrow", "\\clmrg", "\\clvmrg",   "\\cellx5000"};
            const int count = int(words.size());
            for (int i = 0; i < count * count * count * 2; ++i) {
                const QByteArray text = i % 2 == 0 ? "" : " x";
                const QByteArray rtf = start + words.at(i / 2 / count / count) + text
                    + words.at(i / 2 / count % count) + text + words.at(i / 2 % count) + text
                    + "\\intbl y\\cell\\row";
                for (const Reading& reading : {readBody(rtf), importBody(rtf)}) {
                    QVERIFY2(reading.status == 0, rtf.constData());
                    QVERIFY2(reading.document->documentLayout()->documentSize().isValid(), rtf.constData());
                    QVERIFY2(complaintAbout(reading).isEmpty(), rtf.constData());
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
};

ORV_TEST("damaged", TestDamaged, QGuiApplication)
#include "damaged.moc"
