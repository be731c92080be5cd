#include "runhelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

QImage picture(const QColor& color, int width = 3)
{
    QImage image(width, 2, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

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

} // namespace

/*! What cells hold: paragraphs, formatting, pictures, lists, notes. */
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
        const Properties expected = with(QTextFormat::BackgroundBrush, solidBrush(Qt::green),
                                         plainCell(QTextCharFormat::AlignBottom));
        QCOMPARE(dump(ownProperties(firstTable(reading)->cellAt(0, 0).format())), dump(expected));
    }

    ORV_ROWS(runs)
    {
        const Rows add([](const QByteArray& definition, const QByteArray& cell, const QStringList& expected) {
            const Reading reading =
                readBody(colorTable() + rawRow(definition + "\\cellx8640", cell + "\\cell") + "\\pard after");
            QCOMPARE(runsOf(blocksAt(reading, 0, 0)), expected);
        });
        const int italic = QTextFormat::FontItalic;
        add("bold and italic", "", "\\b A\\b0\\i B{\\b C}D\\par\\i0 E\\b F",
            {run("A", boldRun), run("B", with(italic, true, normalRun)),
             run("C", with(italic, true, boldRun)), run("D", with(italic, true, normalRun)), "|",
             run("E", with(italic, false, normalRun)), run("F", with(italic, false, boldRun))});
        add("without the cell's format", "\\clcbpat1\\clvertalb", "A{\\b B}\\par C",
            {run("A", plainRun), run("B", boldRun), "|", run("C", plainRun)});
        add("footnote", "", "A{\\footnote F}B",
            {run("A", plainRun), run("F", with(ORVRtfProperty::InFootnote, true)), run("B", plainRun)});
        add("annotation", "", "A{\\*\\annotation F}B",
            {run("A", plainRun), run("F", with(ORVRtfProperty::InAnnotation, true)), run("B", plainRun)});
        add("link", "", "A{\\field{\\*\\fldinst HYPERLINK \"notes/target\"}{\\fldrslt link}}B",
            {run("A", plainRun),
             run("link", {{QTextFormat::IsAnchor, true}, {QTextFormat::AnchorHref, "notes/target"_s}}),
             run("B", plainRun)});
    }

    void characterFormatLastsAcrossCellsAndRows()
    {
        const Reading reading = readBody(rawRow(cellx("4320 8640"), "\\b A\\cell B\\cell")
                                         + row("4320 8640", "C D") + "\\pard E");
        QCOMPARE(contentOf(*reading.document), "|{2: A, B / C, D}||E"_s);
        for (const char* text : {"A", "B", "C", "D", "E"})
            QCOMPARE(dump(reading.format(QLatin1String(text))), dump(boldRun));
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
        const QList<QTextBlock> blocks = blocksAt(reading, 0, 0);
        QCOMPARE(blocks.size(), 2);
        for (const QTextBlock& block : blocks) {
            const QList<QTextOption::Tab> tabs = block.blockFormat().tabPositions();
            QCOMPARE(tabs.size(), 2);
            QCOMPARE(tabs[0].position, 36.0);
            QCOMPARE(int(tabs[0].type), int(QTextOption::LeftTab));
            QCOMPARE(tabs[1].position, 72.0);
            QCOMPARE(int(tabs[1].type), int(QTextOption::RightTab));
        }
        QCOMPARE(blocks[0].text(), "A\tB"_s);
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

    ORV_ROWS(pageBreaks)
    {
        const Rows add([](const QByteArray& cell, const QString& content, const QList<int>& policies) {
            const Reading reading =
                readBody(rawRow(cellx("4320 8640"), cell + "\\cell D\\cell") + "\\pard after");
            QCOMPARE(contentOf(*reading.document), "|{2: %1, D}||after"_s.arg(content));
            QList<int> actual;
            for (const QTextBlock& block : blocksAt(reading, 0, 0) + blocksAt(reading, 0, 1))
                actual << int(block.blockFormat().pageBreakPolicy());
            QCOMPARE(actual, policies);
        });
        const int before = QTextFormat::PageBreak_AlwaysBefore;
        add("between", "A\\page B\\par C", "A|B|C", {0, before, 0, 0});
        add("at the end of a cell", "A\\page", "A|", {0, before, 0});
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
        const QImage red = picture(Qt::red), blue = picture(Qt::blue, 4), green = picture(Qt::green);
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

    /*! A split that swallows its neighbour keeps the formatting of both. */
    void joinedCells()
    {
        const Reading reading =
            readBody(rawRow(cellx("4320 8640"), "\\qc\\b A\\cell\\qr\\b0\\i B\\par C\\cell")
                     + row("2000 4320 8640", "D E F") + row("1000 2000 4320 8640", "G H I J"));
        const QTextTable* table = firstTable(reading);
        QCOMPARE(table->columns(), 4);
        QCOMPARE(cellShape(table->cellAt(0, 0)), "A B|C(c4)"_s);
        const QList<QTextBlock> blocks = blocksAt(reading, 0, 0);
        QCOMPARE(blocks[0].blockFormat().alignment(), Qt::AlignHCenter);
        QCOMPARE(blocks[1].blockFormat().alignment(), Qt::AlignRight);
        const Properties italic = with(QTextFormat::FontItalic, true, normalRun);
        // The blank between them belongs to the text before it.
        QCOMPARE(runsOf(blocksAt(reading, 0, 0)),
                 (QStringList{run("A ", boldRun), run("B", italic), "|", run("C", italic)}));
    }
};

ORV_TEST("tables_cells", TestTablesCells, QGuiApplication)
#include "cells.moc"
