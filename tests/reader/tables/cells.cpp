#include "ORVRtfProperties.h"
#include "tabletesthelpers.h"

#include <QtCore/QUrl>
#include <QtGui/QImage>
#include <QtGui/QTextList>
#include <QtTest/QtTest>

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
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return "{\\pict\\pngblip " + png.toHex() + "}";
}

/*! What the document holds under a picture's name. */
QImage resourceOf(const Reading& reading, const QTextImageFormat& format)
{
    const QVariant resource = reading.document->resource(QTextDocument::ImageResource, QUrl(format.name()));
    return resource.value<QImage>().convertToFormat(QImage::Format_RGB32);
}

QTextTable* firstTable(const Reading& reading)
{
    return tablesOf(*reading.document).value(0);
}

/*! The paragraphs of a cell of the document's first table. */
QList<QTextBlock> blocksAt(const Reading& reading, int row, int column)
{
    return blocksOf(firstTable(reading)->cellAt(row, column));
}

/*! Text and format of each run of a paragraph. */
QStringList runsOf(const QTextBlock& block)
{
    QStringList runs;
    const QList<QTextFragment> fragments = fragmentsOf(block);
    for (const QTextFragment& fragment : fragments)
        runs << fragment.text() + QLatin1String(" [") + dump(fragment.charFormat()) + QLatin1Char(']');
    return runs;
}

QString run(const char* text, const Properties& properties)
{
    return QString::fromLatin1(text) + QLatin1String(" [") + dump(properties) + QLatin1Char(']');
}

Properties with(int id, const QVariant& value, Properties properties = Properties())
{
    properties.insert(id, value);
    return properties;
}

const QChar object = QChar(QChar::ObjectReplacementCharacter);

} // namespace

/*! What cells hold: paragraphs, formatting, pictures, lists, notes. */
class TestTablesCells : public QObject {
    Q_OBJECT

private slots:
    void paragraphs_data();
    void paragraphs();
    void paragraphFormats();
    void paragraphFormatLastsAcrossCells();
    void paragraphFormatOfAnEmptyCell();
    void paragraphFormatOfTheCellBelowHalfOfAMergedCell();
    void paragraphsAroundTheTable();
    void runs();
    void runsDoNotTakeTheCellsFormat();
    void characterFormatLastsAcrossCellsAndRows();
    void formatsOfEmptyParagraphs();
    void tabs();
    void lists();
    void links();
    void pageBreak();
    void pageBreakAtTheEndOfACell();
    void notes_data();
    void notes();
    void picturesInCells();
    void pictureBetweenTexts();
    void pictureInANestedTable();
    void pictureInADroppedCell();
    void pictureBehindARowClosesTheTable_data();
    void pictureBehindARowClosesTheTable();
    void joinedCells();
};

void TestTablesCells::paragraphs_data()
{
    QTest::addColumn<QByteArray>("cell");
    QTest::addColumn<QString>("content");

    QTest::newRow("one") << QByteArray("A") << QStringLiteral("A");
    QTest::newRow("two") << QByteArray("A\\par B") << QStringLiteral("A|B");
    QTest::newRow("empty last") << QByteArray("A\\par") << QStringLiteral("A|");
    QTest::newRow("empty first") << QByteArray("\\par B") << QStringLiteral("|B");
    QTest::newRow("only empty ones") << QByteArray("\\par\\par") << QStringLiteral("||");
    QTest::newRow("empty between") << QByteArray("A\\par\\par B") << QStringLiteral("A||B");
    QTest::newRow("reset between") << QByteArray("A\\par\\pard\\intbl B") << QStringLiteral("A|B");
    QTest::newRow("tab and line break")
        << QByteArray("A\\tab B\\line C") << QStringLiteral("A\tB") + QChar(0x2028) + QLatin1Char('C');
    QTest::newRow("blanks") << QByteArray(" A  B ") << QStringLiteral(" A  B ");
    QTest::newRow("other scripts") << QByteArray("\\u1078?\\'e4") << QString(QChar(1078)) + QChar(0xe4);
    QTest::newRow("line feed written as a character") << QByteArray("A\\u10?B") << QStringLiteral("A|B");
}

void TestTablesCells::paragraphs()
{
    QFETCH(QByteArray, cell);
    QFETCH(QString, content);

    const Reading reading = readBody(rawRow(cellx("4320 8640"), cell + "\\cell Z\\cell") + "\\pard after");
    QCOMPARE(reading.status, 0);
    QCOMPARE(contentOf(*reading.document), QStringLiteral("|{2: %1, Z}||after").arg(content));
}

void TestTablesCells::paragraphFormats()
{
    const Reading reading =
        readBody(rawRow("\\cellx8640", "\\qc\\sb120 A\\par\\li720\\fi-360 B\\par\\pard\\intbl\\qr C\\cell")
                 + "\\pard after");
    const QList<QTextBlock> blocks = blocksAt(reading, 0, 0);
    QCOMPARE(blocks.size(), 3);
    Properties expected;
    expected.insert(QTextFormat::BlockAlignment, int(Qt::AlignHCenter));
    expected.insert(QTextFormat::BlockTopMargin, 6.0);
    QCOMPARE(dump(ownProperties(blocks[0].blockFormat())), dump(expected));
    expected.insert(ORVRtfProperty::LeftIndent, 36.0);
    expected.insert(QTextFormat::TextIndent, 18.0);
    QCOMPARE(dump(ownProperties(blocks[1].blockFormat())), dump(expected));
    QCOMPARE(dump(ownProperties(blocks[2].blockFormat())),
             dump(with(QTextFormat::BlockAlignment, int(Qt::AlignRight))));
}

void TestTablesCells::paragraphFormatLastsAcrossCells()
{
    const Reading reading =
        readBody(rawRow(cellx("4320 8640"), "\\qc A\\cell B\\cell")
                 + "\\trowd\\cellx4320\\cellx8640\\intbl C\\cell\\pard\\intbl D\\cell\\row");
    QCOMPARE(shapeOf(firstTable(reading)), QStringLiteral("2: A, B / C, D"));
    const QString centred = dump(with(QTextFormat::BlockAlignment, int(Qt::AlignHCenter)));
    QCOMPARE(dump(ownProperties(blocksAt(reading, 0, 0)[0].blockFormat())), centred);
    QCOMPARE(dump(ownProperties(blocksAt(reading, 0, 1)[0].blockFormat())), centred);
    QCOMPARE(dump(ownProperties(blocksAt(reading, 1, 0)[0].blockFormat())), centred);
    QCOMPARE(dump(ownProperties(blocksAt(reading, 1, 1)[0].blockFormat())), QString());
}

void TestTablesCells::paragraphFormatOfAnEmptyCell()
{
    const Reading reading =
        readBody(rawRow(cellx("4320 8640"), "\\qr\\cell\\pard\\intbl\\qc\\par\\pard\\intbl\\qj\\cell"));
    QCOMPARE(shapeOf(firstTable(reading)), QStringLiteral("2: -, |"));
    QCOMPARE(dump(ownProperties(blocksAt(reading, 0, 0)[0].blockFormat())),
             dump(with(QTextFormat::BlockAlignment, int(Qt::AlignRight))));
    QCOMPARE(dump(ownProperties(blocksAt(reading, 0, 1)[0].blockFormat())),
             dump(with(QTextFormat::BlockAlignment, int(Qt::AlignHCenter))));
    QCOMPARE(dump(ownProperties(blocksAt(reading, 0, 1)[1].blockFormat())),
             dump(with(QTextFormat::BlockAlignment, int(Qt::AlignJustify))));
}

/*! The text of the cell that joins brings its paragraph format along, and its cell format wins. */
void TestTablesCells::paragraphFormatOfTheCellBelowHalfOfAMergedCell()
{
    const Reading reading =
        readBody(colorTable() + rawRow("\\clcbpat1" + cellx("2000 4000h 6000"), "\\ql A\\cell\\cell C\\cell")
                 + rawRow("\\clvmrg\\cellx2000\\clcbpat2\\clvertalb\\cellx4000\\cellx6000",
                          "\\cell\\qr E\\cell F\\cell"));
    QCOMPARE(shapeOf(firstTable(reading)), QStringLiteral("3: AE(r2c2), C / F"));
    QCOMPARE(dump(ownProperties(blocksAt(reading, 0, 0)[0].blockFormat())),
             dump(with(QTextFormat::BlockAlignment, int(Qt::AlignRight))));
    const Properties expected =
        with(QTextFormat::BackgroundBrush, solidBrush(Qt::green), plainCell(QTextCharFormat::AlignBottom));
    QCOMPARE(dump(ownProperties(firstTable(reading)->cellAt(0, 0).format())), dump(expected));
}

void TestTablesCells::paragraphsAroundTheTable()
{
    const Reading reading = readBody("\\pard\\qr before\\par\\pard" + rawRow("\\cellx8640", "\\qj A\\cell")
                                     + "\\pard\\qc after\\par\\pard last");
    QCOMPARE(contentOf(*reading.document), QStringLiteral("before||{1: A}||after|last"));
    QStringList formats;
    const QTextFrame* root = reading.document->rootFrame();
    for (QTextFrame::iterator it = root->begin(); it != root->end(); ++it) {
        if (it.currentBlock().isValid())
            formats << dump(ownProperties(it.currentBlock().blockFormat()));
    }
    const QString none;
    QCOMPARE(formats,
             QStringList() << dump(with(QTextFormat::BlockAlignment, int(Qt::AlignRight))) << none << none
                           << dump(with(QTextFormat::BlockAlignment, int(Qt::AlignHCenter))) << none);
}

void TestTablesCells::runs()
{
    const Reading reading =
        readBody(rawRow("\\cellx8640", "\\b A\\b0\\i B{\\b C}D\\par\\i0 E\\b F\\cell") + "\\pard after");
    const QList<QTextBlock> blocks = blocksAt(reading, 0, 0);
    QCOMPARE(blocks.size(), 2);
    const Properties bold = with(QTextFormat::FontWeight, int(QFont::Bold));
    const Properties normal = with(QTextFormat::FontWeight, int(QFont::Normal));
    QCOMPARE(runsOf(blocks[0]),
             QStringList() << run("A", bold) << run("B", with(QTextFormat::FontItalic, true, normal))
                           << run("C", with(QTextFormat::FontItalic, true, bold))
                           << run("D", with(QTextFormat::FontItalic, true, normal)));
    QCOMPARE(runsOf(blocks[1]),
             QStringList() << run("E", with(QTextFormat::FontItalic, false, normal))
                           << run("F", with(QTextFormat::FontItalic, false, bold)));
}

void TestTablesCells::runsDoNotTakeTheCellsFormat()
{
    const Reading reading = readBody(
        colorTable() + rawRow("\\clcbpat1\\clvertalb\\cellx8640", "A{\\b B}\\par C\\cell") + "\\pard after");
    const QList<QTextBlock> blocks = blocksAt(reading, 0, 0);
    QCOMPARE(blocks.size(), 2);
    QCOMPARE(runsOf(blocks[0]),
             QStringList() << run("A", Properties())
                           << run("B", with(QTextFormat::FontWeight, int(QFont::Bold))));
    QCOMPARE(runsOf(blocks[1]), QStringList() << run("C", Properties()));
}

void TestTablesCells::characterFormatLastsAcrossCellsAndRows()
{
    const Reading reading =
        readBody(rawRow(cellx("4320 8640"), "\\b A\\cell B\\cell") + row("4320 8640", "C D") + "\\pard E");
    QCOMPARE(contentOf(*reading.document), QStringLiteral("|{2: A, B / C, D}||E"));
    const QString bold = dump(with(QTextFormat::FontWeight, int(QFont::Bold)));
    for (const char* text : {"A", "B", "C", "D", "E"})
        QCOMPARE(dump(reading.format(QLatin1String(text))), bold);
}

/*! An empty paragraph keeps the character format it was made with, for text that is typed there later. */
void TestTablesCells::formatsOfEmptyParagraphs()
{
    const Reading reading = readBody(rawRow("\\cellx8640", "A\\par\\b\\par B\\cell") + "\\pard\\plain after");
    const QList<QTextBlock> blocks = blocksAt(reading, 0, 0);
    QCOMPARE(blocks.size(), 3);
    QCOMPARE(blocks[1].text(), QString());
    QCOMPARE(dump(ownProperties(blocks[1].charFormat())),
             dump(with(QTextFormat::FontWeight, int(QFont::Bold))));
}

void TestTablesCells::tabs()
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
    QCOMPARE(blocks[0].text(), QStringLiteral("A\tB"));
}

/*! Paragraphs of one list may stand in several cells, in nested tables and outside. */
void TestTablesCells::lists()
{
    const Reading reading = readBody(
        "\\pard\\ls1 before\\par\\pard"
        + rawRow(cellx("4320 8640"), "\\ls1\\ilvl1 A\\par B\\cell\\pard\\intbl plain\\cell")
        + "\\trowd\\cellx8640\\pard\\intbl\\itap2\\ls1 N\\nestcell{\\*\\nesttableprops\\cellx900\\nestrow}"
          "\\pard\\intbl\\cell\\row\\pard\\ls2 after");
    QMap<QString, QTextList*> lists;
    QMap<QString, int> levels;
    for (QTextBlock block = reading.document->begin(); block.isValid(); block = block.next()) {
        lists[block.text()] = block.textList();
        levels[block.text()] = block.blockFormat().intProperty(ORVRtfProperty::ListLevel);
    }
    QTextList* list = lists.value(QStringLiteral("before"));
    QVERIFY(list);
    QCOMPARE(list->count(), 4);
    QCOMPARE(lists.value(QStringLiteral("A")), list);
    QCOMPARE(lists.value(QStringLiteral("B")), list);
    QCOMPARE(lists.value(QStringLiteral("N")), list);
    QVERIFY(!lists.value(QStringLiteral("plain")));
    QVERIFY(lists.value(QStringLiteral("after")));
    QVERIFY(lists.value(QStringLiteral("after")) != list);
    QCOMPARE(levels.value(QStringLiteral("before")), 0);
    QCOMPARE(levels.value(QStringLiteral("A")), 1);
    QCOMPARE(levels.value(QStringLiteral("B")), 1);
    QCOMPARE(levels.value(QStringLiteral("N")), 0);
}

void TestTablesCells::links()
{
    const Reading reading = readBody(
        rawRow("\\cellx8640", "A{\\field{\\*\\fldinst HYPERLINK \"notes/target\"}{\\fldrslt link}}B\\cell"));
    const QList<QTextBlock> blocks = blocksAt(reading, 0, 0);
    QCOMPARE(blocks.size(), 1);
    Properties link;
    link.insert(QTextFormat::IsAnchor, true);
    link.insert(QTextFormat::AnchorHref, QStringLiteral("notes/target"));
    QCOMPARE(runsOf(blocks[0]),
             QStringList() << run("A", Properties()) << run("link", link) << run("B", Properties()));
}

void TestTablesCells::pageBreak()
{
    const Reading reading =
        readBody(rawRow(cellx("4320 8640"), "A\\page B\\par C\\cell D\\cell") + "\\pard after");
    QCOMPARE(contentOf(*reading.document), QStringLiteral("|{2: A|B|C, D}||after"));
    const QList<QTextBlock> blocks = blocksAt(reading, 0, 0);
    QCOMPARE(int(blocks[0].blockFormat().pageBreakPolicy()), int(QTextFormat::PageBreak_Auto));
    QCOMPARE(int(blocks[1].blockFormat().pageBreakPolicy()), int(QTextFormat::PageBreak_AlwaysBefore));
    QCOMPARE(int(blocks[2].blockFormat().pageBreakPolicy()), int(QTextFormat::PageBreak_Auto));
    QCOMPARE(int(blocksAt(reading, 0, 1)[0].blockFormat().pageBreakPolicy()),
             int(QTextFormat::PageBreak_Auto));
}

void TestTablesCells::pageBreakAtTheEndOfACell()
{
    const Reading reading = readBody(rawRow(cellx("4320 8640"), "A\\page\\cell D\\cell") + "\\pard after");
    QCOMPARE(contentOf(*reading.document), QStringLiteral("|{2: A|, D}||after"));
    const QTextBlock next = blocksAt(reading, 0, 1)[0];
    QCOMPARE(int(next.blockFormat().pageBreakPolicy()), int(QTextFormat::PageBreak_Auto));
    QCOMPARE(int(blocksAt(reading, 0, 0)[0].blockFormat().pageBreakPolicy()),
             int(QTextFormat::PageBreak_Auto));
}

/*! The words of a note's paragraphs neither close the table nor format the cell. */
void TestTablesCells::notes_data()
{
    QTest::addColumn<QByteArray>("note");
    QTest::addColumn<int>("flag");

    QTest::newRow("footnote") << QByteArray("{\\footnote\\pard\\plain\\qc\\li720 F}")
                              << int(ORVRtfProperty::InFootnote);
    QTest::newRow("annotation") << QByteArray("{\\*\\annotation\\pard\\plain\\qc\\li720 F}")
                                << int(ORVRtfProperty::InAnnotation);
}

void TestTablesCells::notes()
{
    QFETCH(QByteArray, note);
    QFETCH(int, flag);

    const Reading reading =
        readBody(rawRow(cellx("4320 8640"), "A" + note + "B\\cell C\\cell") + "\\pard after");
    QCOMPARE(contentOf(*reading.document), QStringLiteral("|{2: AFB, C}||after"));
    const QTextBlock block = blocksAt(reading, 0, 0)[0];
    const QList<QTextFragment> fragments = fragmentsOf(block);
    QCOMPARE(fragments.size(), 3);
    QVERIFY(!fragments[0].charFormat().hasProperty(flag));
    QCOMPARE(fragments[1].charFormat().property(flag), QVariant(true));
    QVERIFY(!fragments[2].charFormat().hasProperty(flag));
    QCOMPARE(dump(ownProperties(block.blockFormat())), QString());
}

void TestTablesCells::picturesInCells()
{
    const QImage red = picture(Qt::red), blue = picture(Qt::blue, 4);
    const Reading reading =
        readBody(rawRow(cellx("4320 8640"), pict(red) + "\\cell " + pict(blue) + "\\cell") + "\\pard after");
    QCOMPARE(reading.status, 0);
    QCOMPARE(contentOf(*reading.document), QStringLiteral("|{2: %1, %1}||after").arg(object));
    const QList<QTextImageFormat> images = reading.images();
    QCOMPARE(images.size(), 2);
    QCOMPARE(resourceOf(reading, images[0]), red);
    QCOMPARE(resourceOf(reading, images[1]), blue);
    QCOMPARE(images[0].width(), 3.0);
    QCOMPARE(images[1].width(), 4.0);
    QCOMPARE(images[0].stringProperty(ORVRtfProperty::ImageType), QStringLiteral("PNG"));
    QCOMPARE(images[0].stringProperty(ORVRtfProperty::ImageFileName), QStringLiteral("Image1"));
    QCOMPARE(images[1].stringProperty(ORVRtfProperty::ImageFileName), QStringLiteral("Image2"));
}

void TestTablesCells::pictureBetweenTexts()
{
    const QImage red = picture(Qt::red);
    const Reading reading =
        readBody(rawRow("\\cellx8640", "A" + pict(red) + "B\\par C" + pict(red) + "\\cell"));
    QCOMPARE(contentOf(*reading.document), QStringLiteral("|{1: A%1B|C%1}|").arg(object));
    const QList<QTextImageFormat> images = reading.images();
    QCOMPARE(images.size(), 2);
    for (const QTextImageFormat& image : images)
        QCOMPARE(resourceOf(reading, image), red);
}

void TestTablesCells::pictureInANestedTable()
{
    const QImage red = picture(Qt::red), blue = picture(Qt::blue), green = picture(Qt::green);
    const Reading reading =
        readBody("\\trowd\\cellx8640\\pard\\intbl " + pict(red) + "\\par\\pard\\intbl\\itap3 " + pict(blue)
                 + "\\nestcell{\\*\\nesttableprops\\cellx900\\nestrow}\\pard\\intbl\\itap2 " + pict(green)
                 + "\\nestcell{\\*\\nesttableprops\\cellx1800\\nestrow}\\pard\\intbl\\cell\\row\\pard after");
    QCOMPARE(reading.status, 0);
    QCOMPARE(contentOf(*reading.document),
             QStringLiteral("|{1: %1||{1: |{1: %1}||%1}||}||after").arg(object));
    const QList<QTextImageFormat> images = reading.images();
    QCOMPARE(images.size(), 3);
    QCOMPARE(resourceOf(reading, images[0]), red);
    QCOMPARE(resourceOf(reading, images[1]), blue);
    QCOMPARE(resourceOf(reading, images[2]), green);
}

void TestTablesCells::pictureInADroppedCell()
{
    const Reading reading = readBody(
        rawRow(cellx("4320 8640h"), "A\\cell " + pict(picture(Qt::red)) + "\\cell") + "\\pard after");
    QCOMPARE(contentOf(*reading.document), QStringLiteral("|{2: A(c2)}||after"));
    QCOMPARE(reading.images().size(), 0);
}

/*! A picture commits its paragraph, as text does, even one that cannot be decoded. */
void TestTablesCells::pictureBehindARowClosesTheTable_data()
{
    QTest::addColumn<QByteArray>("picture");
    QTest::addColumn<QString>("content");

    QTest::newRow("picture") << pict(picture(Qt::red)) << QStringLiteral("|{1: A}||%1").arg(object);
    QTest::newRow("broken picture") << QByteArray("{\\pict\\pngblip 0011223344}")
                                    << QStringLiteral("|{1: A}||");
    QTest::newRow("picture without data") << QByteArray("{\\pict\\pngblip}") << QStringLiteral("|{1: A}|");
}

void TestTablesCells::pictureBehindARowClosesTheTable()
{
    QFETCH(QByteArray, picture);
    QFETCH(QString, content);

    const Reading reading = readBody(row("8640", "A") + picture);
    QCOMPARE(reading.status, 0);
    QCOMPARE(contentOf(*reading.document), content);
}

/*! A split that swallows its neighbour keeps the formatting of both. */
void TestTablesCells::joinedCells()
{
    const Reading reading =
        readBody(rawRow(cellx("4320 8640"), "\\qc\\b A\\cell\\qr\\b0\\i B\\par C\\cell")
                 + row("2000 4320 8640", "D E F") + row("1000 2000 4320 8640", "G H I J"));
    const QTextTable* table = firstTable(reading);
    QCOMPARE(table->columns(), 4);
    QCOMPARE(cellShape(table->cellAt(0, 0)), QStringLiteral("A B|C(c4)"));
    const QList<QTextBlock> blocks = blocksAt(reading, 0, 0);
    QCOMPARE(blocks[0].blockFormat().alignment(), Qt::AlignHCenter);
    QCOMPARE(blocks[1].blockFormat().alignment(), Qt::AlignRight);
    const Properties bold = with(QTextFormat::FontWeight, int(QFont::Bold));
    const Properties italic =
        with(QTextFormat::FontItalic, true, with(QTextFormat::FontWeight, int(QFont::Normal)));
    // The blank between them belongs to the text before it.
    QCOMPARE(runsOf(blocks[0]), QStringList() << run("A ", bold) << run("B", italic));
    QCOMPARE(runsOf(blocks[1]), QStringList(run("C", italic)));
}

QTEST_MAIN(TestTablesCells)
#include "tst_tables_cells.moc"
