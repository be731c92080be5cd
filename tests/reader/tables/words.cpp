#include "testsupport.h"

using namespace rtftest;

namespace {

/*! Opens a table, so that words that need an open one have their effect. */
const char* const open = "\\trgaph0";

Properties shaded(const QColor& color,
                  QTextCharFormat::VerticalAlignment alignment = QTextCharFormat::AlignTop)
{
    Properties properties = plainCell(alignment);
    properties.insert(QTextFormat::BackgroundBrush, solidBrush(color));
    return properties;
}

/*! The format of a table of which nothing is said: Qt's own border, and no space in and between cells. */
Properties plainTable()
{
    return {{QTextFormat::FrameBorder, 1.0},
            {QTextFormat::FrameBorderStyle, int(QTextFrameFormat::BorderStyle_Outset)},
            {QTextFormat::FrameBorderBrush, solidBrush(Qt::darkGray)},
            {QTextFormat::TableCellSpacing, 0.0},
            {QTextFormat::TableCellPadding, 0.0}};
}

Properties withPadding(double padding, Properties properties = plainTable())
{
    properties.insert(QTextFormat::TableCellPadding, padding);
    return properties;
}

Properties withBorder(double width)
{
    Properties properties = plainTable();
    properties.insert(QTextFormat::FrameBorder, width);
    properties.insert(QTextFormat::FrameBorderStyle, int(QTextFrameFormat::BorderStyle_Solid));
    return properties;
}

Properties withBorderColor(const QColor& color, double width = 1.0)
{
    Properties properties = withBorder(width);
    properties.insert(QTextFormat::FrameBorderBrush, solidBrush(color));
    return properties;
}

Properties withoutBorder()
{
    Properties properties = plainTable();
    properties.insert(QTextFormat::FrameBorderStyle, int(QTextFrameFormat::BorderStyle_None));
    properties.remove(QTextFormat::FrameBorder);
    properties.remove(QTextFormat::FrameBorderBrush);
    return properties;
}

QString tableFormat(const QTextTable* table)
{
    return dump(ownProperties(table->format()));
}

QString cellFormat(const QTextTable* table, int row, int column)
{
    return dump(ownProperties(table->cellAt(row, column).format()));
}

} // namespace

/*! What each table word does to cells and tables. */
class TestTablesWords : public QObject {
    Q_OBJECT

private slots:
    /*! Text behind a word that opens a table goes into a cell, and is lost with the row that never ends. */
    ORV_ROWS(wordsThatOpenATable)
    {
        const Rows add([](bool opens) {
            // The text before the word commits its paragraph, so that the text behind it closes nothing by
            // itself.
            const Reading reading =
                readBody(colorTable() + "before" + QTest::currentDataTag() + " behind\\pard\\plain after");
            QCOMPARE(reading.status, 0);
            QCOMPARE(contentOf(*reading.document), opens ? "before|after"_s : "beforebehindafter"_s);
        });
        for (const char* word :
             {"\\intbl", "\\itap1", "\\itap2", "\\cellx2000", "\\cellx", "\\clmrg", "\\clvmrg", "\\clcbpat1",
              "\\clcbpat99", "\\clcbpat-1", "\\clshdrawnil", "\\trgaph108"})
            add(word, true);
        const QByteArray others =
            "\\trowd \\nesttableprops \\trleft100 \\trautofit1 \\clmgf \\clvmgf \\clpadt50 \\clpadl50 "
            "\\clpadr50 \\clpadb50 \\clvertalt \\clvertalc \\clvertalb \\clbrdrt \\clbrdrl \\clbrdrr "
            "\\clbrdrb \\trbrdrt \\trbrdrl \\trbrdrr \\trbrdrb \\brdrs \\brdrw30 \\brdrcf1 \\brdrnil "
            "\\clbrdrt\\brdrs \\clbrdrt\\brdrw30 \\clbrdrt\\brdrcf1 \\clbrdrt\\brdrnil \\lastrow \\cell "
            "\\nestcell \\row \\nestrow \\itap0 \\itap-1 \\itap";
        for (const QByteArray& word : others.split(' '))
            add(word.constData(), false);
    }

    /*! Words without effect change neither cells nor the table. */
    ORV_ROWS(acceptedWords)
    {
        const Rows add([] {
            const QByteArray word = QTest::currentDataTag();
            const Reading reading = readBody(
                rawRow(open + word + "\\cellx4320" + word + "\\cellx8640", cells("A B")) + "\\pard after");
            QCOMPARE(reading.status, 0);
            QCOMPARE(contentOf(*reading.document), "|{2: A, B}||after"_s);
            const QTextTable* table = firstTable(reading);
            QCOMPARE(widthsOf(table), "50% 50%"_s);
            QCOMPARE(tableFormat(table), dump(plainTable()));
            for (int c = 0; c < 2; ++c)
                QCOMPARE(cellFormat(table, 0, c), dump(plainCell()));
        });
        const QByteArray words =
            "\\trowd \\nesttableprops \\trleft-108 \\trautofit1 \\clmgf \\clvmgf \\clpadt50 "
            "\\clpadl50 \\clpadr50 \\clpadb50 \\trbrdrt \\trbrdrl \\trbrdrr \\trbrdrb";
        for (const QByteArray& word : words.split(' '))
            add(word);
    }

    /*! One cell: its definition, its text, and the format of the cell that comes out. */
    ORV_ROWS(cellFormats)
    {
        const Rows add([](const QByteArray& definition, const QByteArray& text, const Properties& expected) {
            const Reading reading = readBody(
                colorTable() + rawRow(definition + "\\cellx4320", text + "\\cell") + "\\pard\\plain after");
            QCOMPARE(reading.status, 0);
            const QTextTable* table = firstTable(reading);
            QVERIFY(table);
            QCOMPARE(cellFormat(table, 0, 0), dump(expected));
        });
        const QByteArray o = open;

        add("nothing said", "", "A", plainCell());
        add("top", o + "\\clvertalt", "A", plainCell(QTextCharFormat::AlignTop));
        add("middle", o + "\\clvertalc", "A", plainCell(QTextCharFormat::AlignMiddle));
        add("bottom", o + "\\clvertalb", "A", plainCell(QTextCharFormat::AlignBottom));
        add("the last alignment counts", o + "\\clvertalb\\clvertalc", "A",
            plainCell(QTextCharFormat::AlignMiddle));
        add("alignment before a table is open", "\\clvertalb", "A", plainCell());
        add("alignment behind a word that opens the table", "\\clshdrawnil\\clvertalb", "A",
            plainCell(QTextCharFormat::AlignBottom));

        add("shading", "\\clcbpat1", "A", shaded(Qt::red));
        add("shading in the first colour", "\\clcbpat0", "A", shaded(Qt::black));
        add("shading without a number", "\\clcbpat", "A", shaded(Qt::black));
        add("shading in the last colour", "\\clcbpat4", "A", shaded(Qt::white));
        add("shading beyond the colour table", "\\clcbpat5", "A", plainCell());
        add("shading below 0", "\\clcbpat-1", "A", plainCell());
        add("wrong number keeps the shading", "\\clcbpat2\\clcbpat5\\clcbpat-1", "A", shaded(Qt::green));
        add("the last shading counts", "\\clcbpat2\\clcbpat3", "A", shaded(Qt::blue));
        add("no shading", "\\clcbpat2\\clshdrawnil", "A", plainCell());
        add("shading again", "\\clcbpat2\\clshdrawnil\\clcbpat1", "A", shaded(Qt::red));
        add("shading and alignment", "\\clcbpat3\\clvertalb", "A",
            shaded(Qt::blue, QTextCharFormat::AlignBottom));
        add("empty cell", "\\clcbpat3\\clvertalb", "", shaded(Qt::blue, QTextCharFormat::AlignBottom));

        Properties bold = plainCell();
        bold.insert(QTextFormat::FontWeight, int(QFont::Bold));
        add("format of the first text", "", "\\b A", bold);
        add("format of the first paragraph only", "", "\\b A\\par\\i B", bold);
        add("format at the begin of the paragraph only", "", "\\b A\\i B", bold);
        add("format of an empty cell", "", "\\b", bold);
        Properties both = shaded(Qt::red);
        both.insert(QTextFormat::FontWeight, int(QFont::Bold));
        add("format of the text beside the shading", "\\clcbpat1", "\\b A", both);
        add("background of the text covers the shading", "\\clcbpat1", "\\cb2 A", shaded(Qt::green));
        Properties raised = plainCell(QTextCharFormat::AlignSuperScript);
        add("position of the text replaces the alignment", o + "\\clvertalb", "\\super A", raised);
    }

    ORV_ROWS(cellFormatsOfRows)
    {
        const Rows add(
            [](const QByteArray& rtf, const QString& shape, int row, const QList<Properties>& formats) {
                const Reading reading = readBody(rtf);
                const QTextTable* table = firstTable(reading);
                QVERIFY(table);
                QCOMPARE(shapeOf(table), shape);
                for (int c = 0; c < formats.size(); ++c)
                    QCOMPARE(cellFormat(table, row, c), dump(formats.at(c)));
            });
        add("shading and alignment of each cell",
            colorTable()
                + rawRow("\\clcbpat1\\clvertalc\\cellx1000\\clvertalb\\cellx2000\\clcbpat3\\cellx3000"
                         "\\cellx4000\\clcbpat4",
                         cells("A B C D"))
                + "\\pard after",
            "4: A, B, C, D", 0,
            {shaded(Qt::red, QTextCharFormat::AlignMiddle), plainCell(QTextCharFormat::AlignBottom),
             shaded(Qt::blue), plainCell()});
        add("shading without a colour table", rawRow("\\clcbpat0\\cellx4320", "A\\cell"), "1: A", 0,
            {plainCell()});
        add("definitions end with their row",
            colorTable() + rawRow("\\clcbpat1\\clvertalb\\cellx4320\\cellx8640\\clcbpat2", cells("A B"))
                + row("4320 8640", "C D"),
            "2: A, B / C, D", 1, {plainCell(), plainCell()});
        add("cells without a definition",
            colorTable() + rawRow("\\clcbpat1\\cellx4320\\clcbpat2\\clvertalb", cells("A B C")), "3: A, B, C",
            0, {shaded(Qt::red), plainCell(), plainCell()});
        add("merged cells keep the format of the first",
            colorTable() + rawRow("\\clcbpat1\\cellx4320\\clmrg\\clcbpat2\\cellx8640", cells("A B"))
                + rawRow("\\clvmrg\\clcbpat3\\clvertalb\\cellx4320\\clvmrg\\cellx8640",
                         "\\b C\\cell D\\cell"),
            "2: A(r2c2) / ", 0, {shaded(Qt::red)});
    }

    /*! Words of a row's definition, and the format of the table that comes out. */
    ORV_ROWS(tableFormats)
    {
        const Rows add([](const QByteArray& words, const Properties& expected) {
            const Reading reading =
                readBody(colorTable() + rawRow(words + "\\cellx8640", cells("A")) + "\\pard after");
            QCOMPARE(reading.status, 0);
            const QTextTable* table = firstTable(reading);
            QVERIFY(table);
            QCOMPARE(tableFormat(table), dump(expected));
        });
        const QByteArray o = open;

        add("nothing said", "", plainTable());
        add("padding", "\\trgaph108", withPadding(5.4));
        add("odd padding", "\\trgaph1", withPadding(0.05));
        add("padding without a number", "\\trgaph108\\trgaph", withPadding(0.0));
        add("negative padding", "\\trgaph-20", withPadding(-1.0));
        add("the last padding counts", "\\trgaph20\\trgaph40", withPadding(2.0));

        add("width of the border", o + "\\clbrdrb\\brdrw30", withBorder(1.5));
        add("width without a number", o + "\\clbrdrb\\brdrw", withBorder(0.0));
        add("single border", o + "\\clbrdrb\\brdrs", withBorder(1.0));
        add("single border, then its width", o + "\\clbrdrb\\brdrs\\brdrw30", withBorder(1.5));
        add("a single border has width 1", o + "\\clbrdrb\\brdrw30\\brdrs", withBorder(1.0));
        add("top", o + "\\clbrdrt\\brdrw30", withBorder(1.5));
        add("left", o + "\\clbrdrl\\brdrw30", withBorder(1.5));
        add("right", o + "\\clbrdrr\\brdrw30", withBorder(1.5));
        add("the last border of all sides counts",
            o + "\\clbrdrt\\brdrw10\\clbrdrl\\brdrw20\\clbrdrr\\brdrw30\\clbrdrb\\brdrw40", withBorder(2.0));

        add("colour of the border", o + "\\clbrdrb\\brdrcf1", withBorderColor(Qt::red));
        add("first colour", o + "\\clbrdrb\\brdrcf0", withBorderColor(Qt::black));
        add("last colour", o + "\\clbrdrb\\brdrcf4", withBorderColor(Qt::white));
        add("colour beyond the table is the default", o + "\\clbrdrb\\brdrcf5", withBorderColor(Qt::black));
        add("colour below 0 is the default", o + "\\clbrdrb\\brdrcf-1", withBorderColor(Qt::black));
        add("colour without a number is the default", o + "\\clbrdrb\\brdrcf1\\brdrcf",
            withBorderColor(Qt::black));
        add("width and colour", o + "\\clbrdrb\\brdrs\\brdrw40\\brdrcf3", withBorderColor(Qt::blue, 2.0));

        add("no border", o + "\\clbrdrb\\brdrnil", withoutBorder());
        add("no border after one", o + "\\clbrdrt\\brdrs\\brdrw40\\brdrcf3\\clbrdrb\\brdrnil",
            withoutBorder());
        Properties again = withBorder(1.5);
        again.remove(QTextFormat::FrameBorderBrush);
        add("a border after none", o + "\\clbrdrb\\brdrnil\\brdrw30", again);

        static const char* const rowSides[] = {"\\trbrdrt", "\\trbrdrl", "\\trbrdrr", "\\trbrdrb"};
        for (const char* side : rowSides)
            add(side, o + side + "\\brdrs\\brdrw30\\brdrcf1", plainTable());
        add("no row border", o + "\\trbrdrb\\brdrnil", plainTable());
        add("neither cell nor row", o + "\\brdrs\\brdrw30\\brdrcf1\\brdrnil", plainTable());
        add("row border after a cell border", o + "\\clbrdrb\\brdrw30\\trbrdrb\\brdrw60\\brdrcf1\\brdrnil",
            withBorder(1.5));
        add("cell border after a row border", o + "\\trbrdrb\\brdrw60\\clbrdrb\\brdrw30", withBorder(1.5));
        add("before the table is open", "\\clbrdrb\\brdrs\\brdrw30\\brdrcf1", plainTable());
        add("behind the first cell's definition", "\\clbrdrb\\brdrw60\\cellx2000\\clbrdrb\\brdrw30",
            withBorder(1.5));
        add("a border word of a closed group", "{" + o + "\\clbrdrb}\\brdrw30", withBorder(1.5));
        add("padding and border", "\\trgaph108\\clbrdrb\\brdrnil\\trgaph20",
            withPadding(1.0, withoutBorder()));
    }

    /*! Rows, and the format of the last table that comes out. */
    ORV_ROWS(tableFormatsOfRows)
    {
        const Rows add([](const QByteArray& rows, const QString& content, const Properties& expected) {
            const Reading reading = readBody(rows + "\\pard after");
            QCOMPARE(contentOf(*reading.document), content);
            QCOMPARE(tableFormat(tablesOf(*reading.document).last()), dump(expected));
        });
        // The format of the last row counts.
        const auto two = [&add](const char* name, const QByteArray& first, const QByteArray& last,
                                const Properties& expected) {
            add(name, rawRow(first + "\\cellx8640", cells("A")) + rawRow(last + "\\cellx8640", cells("B")),
                "|{1: A / B}||after", expected);
        };
        const QByteArray solid = "\\trgaph0\\clbrdrb\\brdrw30";
        two("only the first row pads", "\\trgaph108", "", plainTable());
        two("only the last row pads", "", "\\trgaph108", withPadding(5.4));
        two("both pad", "\\trgaph20", "\\trgaph40", withPadding(2.0));
        two("only the first row has a border", solid, "", plainTable());
        two("only the last row has a border", "", solid, withBorder(1.5));

        // Whether border words speak of cells is remembered until a word says otherwise.
        const auto later = [&add](const char* name, const QByteArray& between, const Text& content,
                                  bool stays) {
            add(name, "\\clbrdrb" + between + rawRow("\\trgaph0\\brdrw30\\cellx8640", cells("B")), content,
                stays ? withBorder(1.5) : plainTable());
        };
        const QByteArray a = row("8640", "A");
        later("next row", a, "|{1: A / B}||after", true);
        later("next table", a + "\\pard text\\par", "|{1: A}||text||{1: B}||after", true);
        later("paragraph and default format", a + "\\pard\\plain text\\par", "|{1: A}||text||{1: B}||after",
              true);
        later("nested row",
              "\\trowd\\cellx8640\\pard\\intbl\\itap2 "
              "N\\nestcell{\\*\\nesttableprops\\trowd\\cellx900\\nestrow}"
              "\\pard\\intbl\\cell\\row\\pard text\\par",
              "|{1: |{1: N}||}||text||{1: B}||after", true);
        later("row border", a + "\\trbrdrl\\pard text\\par", "|{1: A}||text||{1: B}||after", false);

        const QByteArray bordered = rawRow("\\trgaph0\\clbrdrb\\brdrcf0\\cellx8640", cells("A"));
        add("border colour without a colour table", bordered, "|{1: A}||after", withBorderColor(Qt::black));
        add("border colour of another first colour", "{\\colortbl\\red255\\green0\\blue0;}" + bordered,
            "|{1: A}||after", withBorderColor(Qt::red));
    }

    void borderColorOfTheDefaultFormat()
    {
        const QSharedPointer<QTextDocument> document = newDocument();
        QTextCharFormat format = ORVTextFormat::defaultCharFormat(document.data());
        format.setForeground(QColor(Qt::darkGreen));
        ORVTextFormat::setDefaultCharFormat(document.data(), format);
        const QByteArray row = rawRow("\\trgaph0\\clbrdrb\\brdrcf\\cellx8640", cells("A"));
        const Reading reading = readInto(document, "{\\rtf1 " + row + "}");
        QCOMPARE(tableFormat(firstTable(reading)), dump(withBorderColor(Qt::darkGreen)));
    }

    void nestedTableHasItsOwnFormats()
    {
        const Reading reading = readBody(
            colorTable()
            + "\\trowd\\trgaph108\\clbrdrb\\brdrw30\\clcbpat1\\cellx8640\\pard\\intbl\\itap2 N1\\nestcell "
              "N2\\nestcell{\\*\\nesttableprops\\trowd\\trgaph40\\brdrw60\\clcbpat2\\clvertalb\\cellx2160"
              "\\cellx4320\\nestrow}\\pard\\intbl\\cell\\row\\pard after");
        QCOMPARE(contentOf(*reading.document), "|{1: |{2: N1, N2}||}||after"_s);
        const QTextTable* outer = firstTable(reading);
        QCOMPARE(tableFormat(outer), dump(withPadding(5.4, withBorder(1.5))));
        QCOMPARE(cellFormat(outer, 0, 0), dump(shaded(Qt::red)));
        QCOMPARE(widthsOf(outer), "100%"_s);
        const QTextTable* inner = tablesOf(outer->cellAt(0, 0)).value(0);
        QCOMPARE(tableFormat(inner), dump(withPadding(2.0, withBorder(3.0))));
        QCOMPARE(cellFormat(inner, 0, 0), dump(shaded(Qt::green, QTextCharFormat::AlignBottom)));
        QCOMPARE(cellFormat(inner, 0, 1), dump(plainCell()));
        QCOMPARE(widthsOf(inner), "25% 25%"_s);
    }

    /*! A table that is still open at the end has everything but its widths. */
    void formatsWhenTheInputEnds()
    {
        const Reading reading =
            readBody(colorTable() + rawRow("\\trgaph108\\clcbpat1\\cellx8640\\clbrdrb\\brdrw30", cells("A")));
        QCOMPARE(contentOf(*reading.document), "|{1: A}|"_s);
        const QTextTable* table = firstTable(reading);
        QCOMPARE(tableFormat(table), dump(withPadding(5.4, withBorder(1.5))));
        QCOMPARE(cellFormat(table, 0, 0), dump(shaded(Qt::red)));
    }
};

ORV_TEST("tables_words", TestTablesWords, QGuiApplication)
#include "words.moc"
