#include "runhelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

/*! \a image as an RTF picture. */
QByteArray pict(const QImage& image)
{
    return "{\\pict\\pngblip " + encoded(image).toHex() + "}";
}

/*! The paragraphs of a cell of the document's first table. */
QList<QTextBlock> blocksAt(const Reading& reading, int row, int column)
{
    return blocksOf(firstTable(reading)->cellAt(row, column));
}

/*! The format of a paragraph of which only the alignment is stated. */
QString aligned(Qt::AlignmentFlag alignment)
{
    return dump(with(QTextFormat::BlockAlignment, int(alignment)));
}

const Properties normalRun = with(QTextFormat::FontWeight, int(QFont::Normal));
const QChar object = QChar(QChar::ObjectReplacementCharacter);

/*! Opens a table, so that words that need an open one have their effect. */
const char* const open = "\\trgaph0";

Properties shaded(const QColor& color,
                  QTextCharFormat::VerticalAlignment alignment = QTextCharFormat::AlignTop)
{
    return with(QTextFormat::BackgroundBrush, solidBrush(color), plainCell(alignment));
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

Properties withPadding(double padding, const Properties& properties = plainTable())
{
    return with(QTextFormat::TableCellPadding, padding, properties);
}

Properties withBorder(double width)
{
    return with(QTextFormat::FrameBorder, width,
                with(QTextFormat::FrameBorderStyle, int(QTextFrameFormat::BorderStyle_Solid), plainTable()));
}

Properties withBorderColor(const QColor& color, double width = 1.0)
{
    return with(QTextFormat::FrameBorderBrush, solidBrush(color), withBorder(width));
}

Properties withoutBorder()
{
    Properties properties =
        with(QTextFormat::FrameBorderStyle, int(QTextFrameFormat::BorderStyle_None), plainTable());
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

/*! What cells hold, and what table words do to cells and tables. */
class TestTablesCells : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(paragraphs)
    {
        const Rows add([](const QByteArray& cell, const QString& content) {
            const Reading reading =
                readBody(rawRow(cellx("4320 8640"), cell + "\\cell Z\\cell") + "\\pard after");
            QCOMPARE(reading.status, 0);
            QCOMPARE(contentOf(*reading.document), "|{2: %1, Z}||after"_s.arg(content));
        });
        add("one", "A", "A");
        add("two", "A\\par B", "A|B");
        add("empty last", "A\\par", "A|");
        add("empty first", "\\par B", "|B");
        add("only empty ones", "\\par\\par", "||");
        add("empty between", "A\\par\\par B", "A||B");
        add("reset between", "A\\par\\pard\\intbl B", "A|B");
        add("tab and line break", "A\\tab B\\line C", "A\tB"_s + QChar(0x2028) + QLatin1Char('C'));
        add("blanks", " A  B ", " A  B ");
        add("other scripts", "\\u1078?\\'e4", QString(QChar(1078)) + QChar(0xe4));
        add("line feed written as a character", "A\\u10?B", "A|B");
    }

    /*! The formats of all paragraphs, those around the table as well. */
    ORV_ROWS(paragraphFormats)
    {
        const Rows add([](const QByteArray& rtf, const QString& content, const QStringList& formats) {
            const Reading reading = readBody(rtf);
            QCOMPARE(contentOf(*reading.document), content);
            QStringList actual;
            for (int i = 0; i < reading.blockCount(); ++i)
                actual << dump(ownProperties(reading.blockFormat(i)));
            QCOMPARE(actual, formats);
        });
        const QString none, right = aligned(Qt::AlignRight), centred = aligned(Qt::AlignHCenter),
                            justified = aligned(Qt::AlignJustify);
        const QByteArray halves = cellx("4320 8640");
        Properties spaced{{QTextFormat::BlockAlignment, int(Qt::AlignHCenter)},
                          {QTextFormat::BlockTopMargin, 6.0}};
        Properties indented = with(ORVRtfProperty::LeftIndent, 36.0, spaced);
        indented.insert(QTextFormat::TextIndent, 18.0);
        add("several in a cell",
            rawRow("\\cellx8640", "\\qc\\sb120 A\\par\\li720\\fi-360 B\\par\\pard\\intbl\\qr C\\cell"),
            "|{1: A|B|C}|", {none, dump(spaced), dump(indented), right, none});
        add("lasts across cells and rows",
            rawRow(halves, "\\qc A\\cell B\\cell")
                + "\\trowd\\cellx4320\\cellx8640\\intbl C\\cell\\pard\\intbl D\\cell\\row",
            "|{2: A, B / C, D}|", {none, centred, centred, centred, none, none});
        add("empty cells", rawRow(halves, "\\qr\\cell\\pard\\intbl\\qc\\par\\pard\\intbl\\qj\\cell"),
            "|{2: -, |}|", {none, right, centred, justified, none});
        const QString before =
            dump(with(QTextFormat::PageBreakPolicy, int(QTextFormat::PageBreak_AlwaysBefore)));
        add("page break", rawRow(halves, "A\\page B\\par C\\cell D\\cell"), "|{2: A|B|C, D}|",
            {none, none, before, none, none, none});
        add("page break at the end of a cell", rawRow(halves, "A\\page\\cell D\\cell"), "|{2: A|, D}|",
            {none, none, before, none, none});
        // A split that swallows its neighbour keeps the formats of both.
        add("joined cells",
            rawRow(halves, "\\qc A\\cell\\qr B\\par C\\cell") + row("2000 4320 8640", "D E F")
                + row("1000 2000 4320 8640", "G H I J"),
            "|{4: A B|C(c4) / D(c2), E, F / G, H, I, J}|",
            QStringList{none, centred, right, none, none, none, none, none, none, none, none});
        add("around the table",
            "\\pard\\qr before\\par\\pard" + rawRow("\\cellx8640", "\\qj A\\cell")
                + "\\pard\\qc after\\par\\pard last",
            "before||{1: A}||after|last", {right, none, justified, none, centred, none});
        // The words of a note's paragraphs neither close the table nor format the cell.
        for (const QByteArray& note : {"footnote"_b, "*\\annotation"_b})
            add("in a note: " + note,
                rawRow(halves, "A{\\" + note + "\\pard\\plain\\qc\\li720 F}B\\cell C\\cell"), "|{2: AFB, C}|",
                {none, none, none, none});
    }

    /*! The text of the cell that joins brings its paragraph format along, and its cell format wins. */
    void formatsOfTheCellBelowHalfOfAMergedCell()
    {
        const Reading reading = readBody(
            colorTable() + rawRow("\\clcbpat1" + cellx("2000 4000h 6000"), "\\ql A\\cell\\cell C\\cell")
            + rawRow("\\clvmrg\\cellx2000\\clcbpat2\\clvertalb\\cellx4000\\cellx6000",
                     "\\cell\\qr E\\cell F\\cell"));
        QCOMPARE(shapeOf(firstTable(reading)), "3: AE(r2c2), C / F"_s);
        QCOMPARE(dump(ownProperties(blocksAt(reading, 0, 0).first().blockFormat())), aligned(Qt::AlignRight));
        QCOMPARE(cellFormat(firstTable(reading), 0, 0),
                 dump(shaded(Qt::green, QTextCharFormat::AlignBottom)));
    }

    /*! The runs of the whole document, whatever paragraph or cell they stand in. */
    ORV_ROWS(runs)
    {
        const Rows add([](const QByteArray& body, const QString& content, const QStringList& expected) {
            const Reading reading = readBody(colorTable() + body);
            QCOMPARE(contentOf(*reading.document), content);
            QStringList runs = runsOf(reading);
            runs.removeAll("|"_s);
            QCOMPARE(runs, expected);
        });
        const auto cell = [](const QByteArray& text) { return rawRow("\\cellx8640", text + "\\cell"); };
        const int italic = QTextFormat::FontItalic;
        add("bold and italic", cell("\\b A\\b0\\i B{\\b C}D\\par\\i0 E\\b F"), "|{1: ABCD|EF}|",
            {run("A", boldRun), run("B", with(italic, true, normalRun)),
             run("C", with(italic, true, boldRun)), run("D", with(italic, true, normalRun)),
             run("E", with(italic, false, normalRun)), run("F", with(italic, false, boldRun))});
        add("without the cell's format", rawRow("\\clcbpat1\\clvertalb\\cellx8640", "A{\\b B}\\par C\\cell"),
            "|{1: AB|C}|", {run("A", plainRun), run("B", boldRun), run("C", plainRun)});
        add("footnote", cell("A{\\footnote F}B"), "|{1: AFB}|",
            {run("A", plainRun), run("F", with(ORVRtfProperty::InFootnote, true)), run("B", plainRun)});
        add("annotation", cell("A{\\*\\annotation F}B"), "|{1: AFB}|",
            {run("A", plainRun), run("F", with(ORVRtfProperty::InAnnotation, true)), run("B", plainRun)});
        add("link", cell("A{\\field{\\*\\fldinst HYPERLINK \"notes/target\"}{\\fldrslt link}}B"),
            "|{1: AlinkB}|",
            {run("A", plainRun),
             run("link", {{QTextFormat::IsAnchor, true}, {QTextFormat::AnchorHref, "notes/target"_s}}),
             run("B", plainRun)});
        add("across cells and rows",
            rawRow(cellx("4320 8640"), "\\b A\\cell B\\cell") + row("4320 8640", "C D") + "\\pard E",
            "|{2: A, B / C, D}||E",
            {run("A", boldRun), run("B", boldRun), run("C", boldRun), run("D", boldRun), run("E", boldRun)});
        // The blank between joined cells belongs to the text before it.
        const Properties italicRun = with(italic, true, normalRun);
        add("joined cells",
            rawRow(cellx("4320 8640"), "\\b A\\cell\\b0\\i B\\par C\\cell") + row("2000 4320 8640", "- - -")
                + row("1000 2000 4320 8640", "- - - -"),
            "|{4: A B|C(c4) / -(c2), -, - / -, -, -, -}|",
            {run("A ", boldRun), run("B", italicRun), run("C", italicRun)});
    }

    /*! An empty paragraph keeps the character format it was made with, for text that is typed there later. */
    void formatsOfEmptyParagraphs()
    {
        const Reading reading =
            readBody(rawRow("\\cellx8640", "A\\par\\b\\par B\\cell") + "\\pard\\plain after");
        const QList<QTextBlock> blocks = blocksAt(reading, 0, 0);
        QCOMPARE(blocks.size(), 3);
        QCOMPARE(blocks[1].text(), QString());
        QCOMPARE(dump(ownProperties(blocks[1].charFormat())), dump(boldRun));
    }

    void tabs()
    {
        const Reading reading = readBody(rawRow("\\cellx8640", "\\tx720\\tqr\\tx1440 A\\tab B\\par C\\cell"));
        QCOMPARE(contentOf(*reading.document), "|{1: A\tB|C}|"_s);
        for (const QTextBlock& block : blocksAt(reading, 0, 0))
            QCOMPARE(tabsOf(block.blockFormat()), "36 0, 72 1"_s);
    }

    /*! Paragraphs of one list may stand in several cells, in nested tables and outside. */
    void lists()
    {
        const Reading reading =
            readBody("\\pard\\ls1 before\\par\\pard"
                     + rawRow(cellx("4320 8640"), "\\ls1\\ilvl1 A\\par B\\cell\\pard\\intbl plain\\cell")
                     + "\\trowd\\cellx8640\\pard\\intbl\\itap2\\ls1 "
                       "N\\nestcell{\\*\\nesttableprops\\cellx900\\nestrow}"
                       "\\pard\\intbl\\cell\\row\\pard\\ls2 after");
        QCOMPARE(itemLines(*reading.document), "0 0 before\n0 1 A\n0 1 B\n0 0 N\n1 0 after"_s);
    }

    ORV_ROWS(pictures)
    {
        const Rows add([](const QByteArray& rtf, QString content, const QList<QImage>& images) {
            const Reading reading = readBody(rtf);
            QCOMPARE(reading.status, 0);
            QCOMPARE(contentOf(*reading.document), content.replace("%1"_s, object));
            const QList<QTextImageFormat> formats = reading.images();
            QCOMPARE(formats.size(), images.size());
            for (int i = 0; i < formats.size(); ++i) {
                QCOMPARE(reading.picture(formats.at(i)).convertToFormat(QImage::Format_RGB32), images.at(i));
                QCOMPARE(formats.at(i).width(), double(images.at(i).width()));
                QCOMPARE(formats.at(i).stringProperty(ORVRtfProperty::ImageType), "PNG"_s);
                QCOMPARE(formats.at(i).stringProperty(ORVRtfProperty::ImageFileName), "Image%1"_s.arg(i + 1));
            }
        });
        const QImage red = solidImage(3, 2, Qt::red), blue = solidImage(4, 2, Qt::blue),
                     green = solidImage(3, 2, Qt::green);
        const QByteArray after = "\\pard after";
        add("in cells", rawRow(cellx("4320 8640"), pict(red) + "\\cell " + pict(blue) + "\\cell") + after,
            "|{2: %1, %1}||after", {red, blue});
        add("between texts", rawRow("\\cellx8640", "A" + pict(red) + "B\\par C" + pict(red) + "\\cell"),
            "|{1: A%1B|C%1}|", {red, red});
        add("in a nested table",
            "\\trowd\\cellx8640\\pard\\intbl " + pict(red) + "\\par\\pard\\intbl\\itap3 " + pict(blue)
                + "\\nestcell{\\*\\nesttableprops\\cellx900\\nestrow}\\pard\\intbl\\itap2 " + pict(green)
                + "\\nestcell{\\*\\nesttableprops\\cellx1800\\nestrow}\\pard\\intbl\\cell\\row" + after,
            "|{1: %1||{1: |{1: %1}||%1}||}||after", {red, blue, green});
        add("in a dropped cell", rawRow(cellx("4320 8640h"), "A\\cell " + pict(red) + "\\cell") + after,
            "|{2: A(c2)}||after", {});
        // A picture commits its paragraph, as text does, even one that cannot be decoded.
        add("behind a row", row("8640", "A") + pict(red), "|{1: A}||%1", {red});
        add("broken, behind a row", row("8640", "A") + "{\\pict\\pngblip 0011223344}", "|{1: A}||", {});
        add("without data, behind a row", row("8640", "A") + "{\\pict\\pngblip}", "|{1: A}|", {});
    }

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
        addWords(
            add,
            "\\intbl \\itap1 \\itap2 \\cellx2000 \\cellx \\clmrg \\clvmrg \\clcbpat1 \\clcbpat99 \\clcbpat-1 "
            "\\clshdrawnil \\trgaph108",
            true);
        addWords(add,
                 "\\trowd \\nesttableprops \\trleft100 \\trautofit1 \\clmgf \\clvmgf \\clpadt50 \\clpadl50 "
                 "\\clpadr50 \\clpadb50 \\clvertalt \\clvertalc \\clvertalb \\clbrdrt \\clbrdrl \\clbrdrr "
                 "\\clbrdrb \\trbrdrt \\trbrdrl \\trbrdrr \\trbrdrb \\brdrs \\brdrw30 \\brdrcf1 \\brdrnil "
                 "\\clbrdrt\\brdrs \\clbrdrt\\brdrw30 \\clbrdrt\\brdrcf1 \\clbrdrt\\brdrnil \\lastrow \\cell "
                 "\\nestcell \\row \\nestrow \\itap0 \\itap-1 \\itap",
                 false);
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
        addWords(add,
                 "\\trowd \\nesttableprops \\trleft-108 \\trautofit1 \\clmgf \\clvmgf \\clpadt50 "
                 "\\clpadl50 \\clpadr50 \\clpadb50 \\trbrdrt \\trbrdrl \\trbrdrr \\trbrdrb");
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

        const Properties bold = with(QTextFormat::FontWeight, int(QFont::Bold), plainCell());
        add("format of the first text", "", "\\b A", bold);
        add("format of the first paragraph only", "", "\\b A\\par\\i B", bold);
        add("format at the begin of the paragraph only", "", "\\b A\\i B", bold);
        add("format of an empty cell", "", "\\b", bold);
        const Properties both = with(QTextFormat::FontWeight, int(QFont::Bold), shaded(Qt::red));
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

ORV_TEST("tables_cells", TestTablesCells, QGuiApplication)
#include "cells.moc"
