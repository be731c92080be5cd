#include "borderhelpers.h"
#include "interchangehelpers.h"
#include "tabletesthelpers.h"

using namespace rtftest;

/*! Lines around paragraphs, and their kinds. */
class TestInterchangeBorders : public QObject {
    Q_OBJECT

private slots:
    /*! Kind of the line, and its width with all strokes. */
    ORV_ROWS(kinds)
    {
        const Rows add([](const QByteArray& words, const QString& line) {
            const Reading reading = importBody("\\pard\\brdrt" + words + " A\\par");
            QCOMPARE(paragraphLines(reading.blockFormat(0)), line);
        });
        add("single", "\\brdrs\\brdrw20", "t: solid 1");
        add("width before kind", "\\brdrw20\\brdrs", "t: solid 1");
        add("no width", "\\brdrs", "t: solid 0.75");
        add("width of 0", "\\brdrs\\brdrw0", "t: solid 0.75");
        add("negative width", "\\brdrs\\brdrw-20", "t: solid 0.75");
        add("width beyond all pens", "\\brdrs\\brdrw2000000000", "t: solid 31");
        add("no kind", "\\brdrw20\\brdrcf1", "");
        add("none", "\\brdrs\\brdrw20\\brdrnone", "");
        add("nil", "\\brdrs\\brdrw20\\brdrnil", "");
        add("none of a table", "\\brdrs\\brdrw20\\brdrtbl", "");
        add("thick", "\\brdrth\\brdrw20", "t: solid 2");
        add("shadowed", "\\brdrsh\\brdrw20", "t: solid 1");
        add("double", "\\brdrdb\\brdrw20", "t: double 3");
        add("dotted", "\\brdrdot\\brdrw20", "t: dotted 1");
        add("dashed", "\\brdrdash\\brdrw20", "t: dashed 1");
        add("hair", "\\brdrhair\\brdrw5", "t: solid 0.25");
        add("small dashes", "\\brdrdashsm\\brdrw20", "t: dashed 1");
        add("dots and dashes", "\\brdrdashd\\brdrw20", "t: dotdash 1");
        add("two dots and dashes", "\\brdrdashdd\\brdrw20", "t: dotdotdash 1");
        add("inset", "\\brdrinset\\brdrw20", "t: inset 2.75");
        add("outset", "\\brdroutset\\brdrw20", "t: outset 2.75");
        add("triple", "\\brdrtriple\\brdrw20", "t: double 5");
        add("thin and thick, small", "\\brdrtnthsg\\brdrw20", "t: double 2.5");
        add("thick and thin, small", "\\brdrthtnsg\\brdrw20", "t: double 2.5");
        add("thin, thick and thin, small", "\\brdrtnthtnsg\\brdrw20", "t: double 4");
        add("thin and thick, medium", "\\brdrtnthmg\\brdrw20", "t: double 2");
        add("thick and thin, medium", "\\brdrthtnmg\\brdrw20", "t: double 2");
        add("thin, thick and thin, medium", "\\brdrtnthtnmg\\brdrw20", "t: double 3");
        add("thin and thick, large", "\\brdrtnthlg\\brdrw20", "t: double 3.25");
        add("thick and thin, large", "\\brdrthtnlg\\brdrw20", "t: double 3.25");
        add("thin, thick and thin, large", "\\brdrtnthtnlg\\brdrw20", "t: double 5");
        add("wavy", "\\brdrwavy\\brdrw20", "t: solid 1");
        add("double and wavy", "\\brdrwavydb\\brdrw20", "t: double 3");
        add("striped", "\\brdrdashdotstr\\brdrw20", "t: dotdash 1");
        add("embossed", "\\brdremboss\\brdrw20", "t: ridge 2");
        add("engraved", "\\brdrengrave\\brdrw20", "t: groove 2");
        add("frame", "\\brdrframe\\brdrw20", "t: solid 1");
    }

    ORV_ROWS(paragraphs)
    {
        const Rows add([](const QByteArray& words, const QString& lines) {
            const Reading reading = importBody(colorTable() + "\\pard" + words + " A\\par");
            QCOMPARE(paragraphLines(reading.blockFormat(0)), lines);
        });
        add("all of a line", "\\brdrl\\brdrs\\brdrw20\\brsp80\\brdrcf3", "l: solid 1 at 4 #0000ff");
        add("automatic colour", "\\brdrl\\brdrs\\brdrcf0", "l: solid 0.75");
        add("colour that is not there", "\\brdrl\\brdrs\\brdrcf9", "l: solid 0.75");
        add("box", "\\box\\brdrdot\\brdrw10", "t: dotted 0.5, b: dotted 0.5, l: dotted 0.5, r: dotted 0.5");
        add("sides",
            "\\brdrt\\brdrs\\brdrw10\\brdrb\\brdrs\\brdrw20\\brdrl\\brdrs\\brdrw30\\brdrr\\brdrs\\brdrw40",
            "t: solid 0.5, b: solid 1, l: solid 1.5, r: solid 2");
        add("other side of a box", "\\box\\brdrs\\brdrw10\\brdrb\\brdrnone",
            "t: solid 0.5, l: solid 0.5, r: solid 0.5");

        // Lines that are not shown.
        add("between paragraphs", "\\brdrb\\brdrs\\brdrw10\\brdrbtw\\brdrdb\\brdrw40", "b: solid 0.5");
        add("bar", "\\brdrb\\brdrs\\brdrw10\\brdrbar\\brdrdb\\brdrw40", "b: solid 0.5");
        add("text", "\\brdrb\\brdrs\\brdrw10\\chbrdr\\brdrdb\\brdrw40", "b: solid 0.5");
        add("page",
            "\\brdrb\\brdrs\\brdrw10\\pgbrdrt\\brdrdb\\pgbrdrb\\brdrdb\\pgbrdrl\\brdrdb\\pgbrdrr\\brdrdb",
            "b: solid 0.5");
        add("no side", "\\brdrs\\brdrw10", "");
    }

    void paragraphsKeepTheirLinesWithinGroups()
    {
        const Reading reading =
            importBody("\\pard\\brdrt\\brdrs {\\brdrb\\brdrs A\\par}B\\par\\pard\\brdrdb C");
        QCOMPARE(paragraphLines(reading.blockFormat(0)), "t: solid 0.75, b: solid 0.75"_s);
        QCOMPARE(paragraphLines(reading.blockFormat(1)), "t: solid 0.75"_s);
        QCOMPARE(paragraphLines(reading.blockFormat(2)), QString());
    }

    /*! Qt's view and HTML show an empty paragraph that is nothing but the line below it. */
    ORV_ROWS(rulers)
    {
        const Rows add([](const QByteArray& body, bool isRuler) {
            const Reading reading = importBody(body);
            QCOMPARE(reading.blockFormat(0).hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth),
                     isRuler);
            QCOMPARE(reading.document->toHtml().contains("<hr"_s), isRuler);
        });
        add("line below", "\\pard\\brdrb\\brdrs\\par", true);
        add("with text", "\\pard\\brdrb\\brdrs A\\par", false);
        add("line above as well", "\\pard\\brdrb\\brdrs\\brdrt\\brdrs\\par", false);
        add("box", "\\pard\\box\\brdrs\\par", false);
        add("no line", "\\pard\\brdrb\\brdrnone\\par", false);
    }

    void whatFollowsARulerIsNone()
    {
        const Reading reading = importBody("\\pard\\brdrb\\brdrs\\par A\\par\\par B");
        for (const int block : {1, 3})
            QVERIFY(!reading.blockFormat(block).hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth));
        QVERIFY(reading.blockFormat(2).hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth));
        QCOMPARE(paragraphLines(reading.blockFormat(3)), "b: solid 0.75"_s);
    }

    void rulersInCells()
    {
        const Reading reading = importBody(rawRow("\\cellx2000\\cellx4000", "\\brdrb\\brdrs\\cell A\\cell"));
        const QTextTable* const table = firstTable(reading);
        const auto isRuler = [table](int column) {
            const QTextBlock block = table->cellAt(0, column).firstCursorPosition().block();
            return block.blockFormat().hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth);
        };
        QVERIFY(isRuler(0));
        QVERIFY(!isRuler(1));
    }
};

ORV_TEST("interchange_borders", TestInterchangeBorders, QGuiApplication)
#include "borders.moc"
