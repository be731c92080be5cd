#include "ORVRtfFormatSerials_p.h"
#include "runhelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

QByteArray listWith(const QByteArray& levels, const QByteArray& text = "x")
{
    return "{\\*\\listtable{\\list" + levels
        + "\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}\\ls1 " + text;
}

} // namespace

/*! Each limit below, at and above its value. */
class TestLimits : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(tabStops)
    {
        const Rows add([](int count, int kept) {
            const Reading reading = readBody(counted("\\tx#", count, 20) + " x");
            const QList<QTextOption::Tab> tabs = reading.blockFormat(0).tabPositions();
            QCOMPARE(int(tabs.size()), kept);
            QCOMPARE(tabs.last().position, double(kept));
        });
        add("below", 255, 255);
        add("at", 256, 256);
        add("above", 257, 256);
    }

    /*! Only the first thousand are looked for among the installed fonts; the others keep their names too. */
    ORV_ROWS(fonts)
    {
        const Rows add([](int number, bool known) {
            const QByteArray table = "{\\fonttbl" + counted("{\\f# Quibble #;}", number) + "}";
            const Reading reading = readBody(table + "\\f" + QByteArray::number(number) + " x");
            QCOMPARE(reading.status, 0);
            const QString family = propertiesOf(reading.format("x"_s)).value(Family).toString();
            QCOMPARE(family == "Quibble %1"_s.arg(number), known);
        });
        add("below", 9999, true);
        add("at", 10000, true);
        add("above", 10001, false);
    }

    ORV_ROWS(listLevels)
    {
        const Rows add([](int count, int kept) {
            QByteArray levels;
            for (int i = 0; i < count; ++i)
                levels += "{\\listlevel\\levelnfc0{\\leveltext\\'01" + QByteArray(1, char('a' + i)) + ";}\\li"
                    + QByteArray::number(20 * i) + "}";
            const QList<ORVTextListLevel> read = levelsOf(readBody(listWith(levels)));
            QCOMPARE(int(read.size()), kept);
            QCOMPARE(read.last().text(), QString(QLatin1Char(char('a' + kept - 1))));
            QCOMPARE(read.last().indent(), kept - 1.0);
        });
        add("below", 8, 8);
        add("at", 9, 9);
        add("above", 10, 9);
    }

    /*! The length of a level's text is one byte; a Unicode character as the length can say more. */
    ORV_ROWS(levelText)
    {
        const Rows add([](int length, int kept) {
            const QByteArray text = "\\u" + QByteArray::number(length) + "?" + QByteArray(length, 'a');
            const Reading reading = readBody(listWith("{\\listlevel{\\leveltext" + text + ";}}"));
            QCOMPARE(levelsOf(reading).value(0).text(), QString(kept, QLatin1Char('a')));
        });
        add("below", 254, 254);
        add("at", 255, 255);
        add("above", 256, 255);
        add("far above", 5000, 255);
    }

    /*! The limit is that of the text as the file has it; each placeholder becomes two characters. */
    void levelTextOfPlaceholders()
    {
        const QByteArray placeholders = "\\'ff" + "\\'00"_b.repeated(255);
        const Reading reading = readBody(listWith("{\\listlevel{\\leveltext" + placeholders + "}}"));
        QCOMPARE(levelsOf(reading).value(0).text(), "%0"_s.repeated(255));
    }

    ORV_ROWS(fieldInstruction)
    {
        const Rows add([](int length, bool isLink) {
            const QByteArray target(length - int(qstrlen("HYPERLINK \"\"")), 'a');
            const Reading reading =
                readBody("{\\field{\\*\\fldinst HYPERLINK \"" + target + "\"}{\\fldrslt x}}");
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), "x"_s);
            const QString href = reading.format("x"_s).anchorHref();
            QCOMPARE(href, isLink ? QString::fromLatin1(target) : QString());
        });
        add("below", 8191, true);
        add("at", 8192, true);
        add("above", 8193, false);
        add("far above", 20000, false);
    }

    /*!
        Rows below a much wider one stay one table up to 100,000 cells that the file does not have; no text is
        lost.
    */
    ORV_ROWS(tableCells)
    {
        const Rows add([](int shortRows, int tables) {
            const Reading reading = readBody(rawRow(counted("\\cellx#", 256, 10), "\\cell"_b.repeated(256))
                                             + row("2560", "x").repeated(shortRows) + "\\pard after");
            QCOMPARE(reading.status, 0);
            const QList<QTextTable*> found = tablesOf(*reading.document);
            QCOMPARE(int(found.size()), tables);
            int rows = 0;
            for (const QTextTable* table : found)
                rows += table->rows();
            QCOMPARE(rows, shortRows + 1);
            QCOMPARE(found.first()->columns(), 256);
            QCOMPARE(found.last()->columns(), tables == 1 ? 256 : 1);
            QCOMPARE(int(reading.text().count(QLatin1Char('x'))), shortRows);
            QVERIFY(reading.text().endsWith("after"_s));
        });
        // 256 cells a row; the file has 256 and one for each short row. Room is kept for one more boundary.
        add("below", 300, 1);
        add("above", 500, 2);
    }

    /*! Beyond the last column text goes on in the last cell, and columns stay however many rows there are. */
    ORV_ROWS(bigTables)
    {
        const Rows add(
            [](const QByteArray& rtf, const QSize& size, const QString& first, const QString& last) {
                const Reading reading = readBody(rtf);
                QCOMPARE(reading.status, 0);
                const QTextTable* const table = firstTable(reading);
                QVERIFY(table);
                QCOMPARE(QSize(table->columns(), table->rows()), size);
                QCOMPARE(cellShape(table->cellAt(size.height() - 1, 0)), first);
                QCOMPARE(cellShape(table->cellAt(size.height() - 1, size.width() - 1)), last);
            });
        add("row of many cells", "\\intbl " + "x\\cell "_b.repeated(20000) + "\\row", QSize(256, 1), "x",
            "x "_s.repeated(20000 - 255).trimmed());
        for (const int rows : {2000, 4000})
            add("vertical merge of " + QByteArray::number(rows),
                row("4320 8640", "A B") + row("4320v 8640", "- C").repeated(rows - 1) + "\\pard after",
                QSize(2, rows), "A(r%1)"_s.arg(rows), "C");
        const QByteArray outer = "\\trowd\\cellx8640\\pard\\intbl\\itap2 N\\nestcell"
                                 "{\\*\\nesttableprops\\cellx900\\nestrow}\\pard\\intbl o\\cell\\row\n";
        add("many nested tables", outer.repeated(2000) + "\\pard after", QSize(1, 2000), "|{1: N}||o",
            "|{1: N}||o");
    }

    /*!
        The first 256 different tab stops carry no number, and all paragraphs of equal ones have equal
        formats.
    */
    void numberedTabLists()
    {
        const Reading reading = readBody(counted("\\pard\\tx# x\\par ", 258).repeated(2) + "\\pard x");
        const int id = ORVRtfFormatSerials::property;
        QVERIFY(!reading.blockFormat(255).hasProperty(id));
        QCOMPARE(reading.blockFormat(256).property(id), QVariant(256));
        QCOMPARE(reading.blockFormat(257).property(id), QVariant(257));
        for (int i = 0; i < 258; ++i)
            QCOMPARE(propertiesOf(reading.blockFormat(i)), propertiesOf(reading.blockFormat(258 + i)));
        QCOMPARE(propertiesOf(reading.blockFormat(516)), Properties());
    }

    void numberedColumnWidths()
    {
        const Reading reading =
            readBody(counted("\\trowd\\cellx#\\lastrow\\intbl x\\cell\\row\n", 258) + "\\pard x");
        const QList<QTextTable*> tables = tablesOf(*reading.document);
        QCOMPARE(int(tables.size()), 258);
        const int id = ORVRtfFormatSerials::property;
        QVERIFY(!tables.at(255)->format().hasProperty(id));
        QCOMPARE(tables.at(256)->format().property(id), QVariant(256));
    }

    /*! A document is the same whatever its reader has read before. */
    void numbersBeginAnewWithEachRead()
    {
        const QByteArray first =
            counted("\\pard\\tx# x\\par\\trowd\\cellx#\\lastrow\\intbl x\\cell\\row\n", 300);
        const QByteArray second = "{\\rtf1\\trowd\\cellx999\\lastrow\\intbl x\\cell\\row\\pard\\tx999 x}";
        QBuffer buffer;
        buffer.setData("{\\rtf1" + first + "\\tqr}");
        buffer.open(QIODevice::ReadOnly);
        QTextDocument document;
        ORVTextRtfReader reader(&buffer);
        QVERIFY(reader.read(&document));
        buffer.close();
        buffer.setData(second);
        reader.setDevice(&buffer);
        QVERIFY(reader.read(&document));

        const Reading fresh = read(second);
        QCOMPARE(propertiesOf(document.lastBlock().blockFormat()),
                 propertiesOf(fresh.document->lastBlock().blockFormat()));
        QCOMPARE(propertiesOf(tablesOf(document).value(0)->format()),
                 propertiesOf(tablesOf(*fresh.document).value(0)->format()));
        QVERIFY(!document.lastBlock().blockFormat().hasProperty(ORVRtfFormatSerials::property));
    }
};

ORV_TEST("limits", TestLimits, QGuiApplication)
#include "limits.moc"
