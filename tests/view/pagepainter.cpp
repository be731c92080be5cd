#include <ORVPagePainter.h>
#include <ORVPagePdf.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <QtTest>

Q_DECLARE_METATYPE(QTextBlockFormat)

/*! Documents on pages. Text is drawn as blocks of colour: pictures, whose edges are exact. */
class tst_pagepainter : public QObject {
    Q_OBJECT

private slots:
    void emptyDocumentIsOnePage();
    void nullDocumentIsAnEmptyPage();
    void nullPainterPaintsNothing();
    void pagesThatDoNotExist();
    void textStandsBetweenTheMargins_data();
    void textStandsBetweenTheMargins();
    void pageBreaks();
    void longTextFillsPages();
    void pagesDoNotDrift();
    void lengthsOfMilesAreLimited_data();
    void lengthsOfMilesAreLimited();
    void emptySpaceIsLimited_data();
    void emptySpaceIsLimited();
    void textStaysOnThePaper_data();
    void textStaysOnThePaper();
    void paddingLeavesRoomForText();
    void largestFont_data();
    void largestFont();
    void documentStaysAsItIs();
    void tabStopsAreHalfAnInchApart();
    void marginTexts_data();
    void marginTexts();
    void placeholders();
    void unusablePaper_data();
    void unusablePaper();
    void pdfHasAllPages();
    void pdfOfNoDocumentIsAnEmptyPage();
};

namespace {

ORVPageSetup smallPage()
{
    ORVPageSetup setup;
    setup.page.paperSize = QSizeF(144, 216);
    setup.page.leftMargin = 18;
    setup.page.rightMargin = 36;
    setup.page.topMargin = 54;
    setup.page.bottomMargin = 45;
    return setup;
}

/*! Fills \a document with a black square of so many pixels (96 to the inch). */
void insertSquare(QTextDocument* document, int side)
{
    QImage square(side, side, QImage::Format_RGB32);
    square.fill(Qt::black);
    document->addResource(QTextDocument::ImageResource, QUrl(QStringLiteral("square")), square);
    QTextCursor(document).insertImage(QStringLiteral("square"));
}

QImage painted(const ORVPagePainter& pages, const ORVPageSetup& setup, int resolution, int page)
{
    QImage image((setup.page.usablePaperSize() * resolution / 72).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    pages.paintPage(&painter, page);
    return image;
}

/*! What is not white within \a area; null when all is. */
QRect darkArea(const QImage& image, const QRect& area)
{
    QRect dark;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                dark |= QRect(x, y, 1, 1);
        }
    }
    return dark;
}

QRect darkArea(const QImage& image)
{
    return darkArea(image, image.rect());
}

} // namespace

void tst_pagepainter::emptyDocumentIsOnePage()
{
    const QTextDocument document;
    const ORVPageSetup setup = smallPage();
    const ORVPagePainter pages(&document, setup, 72);
    QCOMPARE(pages.pageCount(), 1);
    QCOMPARE(darkArea(painted(pages, setup, 72, 0)), QRect());
}

void tst_pagepainter::nullDocumentIsAnEmptyPage()
{
    const ORVPageSetup setup = smallPage();
    const ORVPagePainter pages(nullptr, setup, 72);
    QCOMPARE(pages.pageCount(), 1);
    QCOMPARE(darkArea(painted(pages, setup, 72, 0)), QRect());
}

void tst_pagepainter::nullPainterPaintsNothing()
{
    QTextDocument document;
    document.setPlainText(QStringLiteral("text"));
    const ORVPagePainter pages(&document, smallPage(), 72);
    pages.paintPage(nullptr, 0);
    QCOMPARE(pages.pageCount(), 1);
}

void tst_pagepainter::pagesThatDoNotExist()
{
    ORVPageSetup setup = smallPage();
    setup.header.text = QStringLiteral("Header");
    QTextDocument document;
    document.setPlainText(QStringLiteral("text"));
    const ORVPagePainter pages(&document, setup, 72);
    QCOMPARE(darkArea(painted(pages, setup, 72, 1)), QRect());
    QCOMPARE(darkArea(painted(pages, setup, 72, -1)), QRect());
}

void tst_pagepainter::textStandsBetweenTheMargins_data()
{
    QTest::addColumn<int>("resolution");

    QTest::newRow("96") << 96;
    QTest::newRow("192") << 192;
    QTest::newRow("288") << 288;
}

// The margins are 18 and 54 points, so 24 and 72 pixels at 96 to the inch.
void tst_pagepainter::textStandsBetweenTheMargins()
{
    QFETCH(int, resolution);
    QTextDocument document;
    insertSquare(&document, 30);
    const ORVPageSetup setup = smallPage();
    const ORVPagePainter pages(&document, setup, resolution);
    QCOMPARE(pages.pageCount(), 1);
    const int factor = resolution / 96;
    const QRect dark = darkArea(painted(pages, setup, resolution, 0));
    QCOMPARE(dark.topLeft(), QPoint(24, 72) * factor);
    QCOMPARE(dark.size(), QSize(30, 30) * factor);
}

void tst_pagepainter::pageBreaks()
{
    QTextDocument document;
    document.setPlainText(QStringLiteral("one\ntwo\nthree"));
    QTextBlockFormat format;
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(document.findBlockByNumber(1)).mergeBlockFormat(format);
    QTextCursor(document.findBlockByNumber(2)).mergeBlockFormat(format);
    QCOMPARE(ORVPagePainter(&document, smallPage(), 96).pageCount(), 3);
}

// 117 points of text are 156 pixels: three squares of 50 pixels, each in a line of its own.
void tst_pagepainter::longTextFillsPages()
{
    QTextDocument document;
    QFont font;
    font.setPixelSize(1);
    document.setDefaultFont(font);
    for (int i = 0; i < 7; ++i) {
        insertSquare(&document, 48);
        if (i < 6)
            QTextCursor(&document).insertBlock();
    }
    const ORVPageSetup setup = smallPage();
    const ORVPagePainter pages(&document, setup, 96);
    QCOMPARE(pages.pageCount(), 3);
    const int counts[] = {3, 3, 1};
    for (int page = 0; page < 3; ++page) {
        const QRect dark = darkArea(painted(pages, setup, 96, page));
        QCOMPARE(dark.top(), 72);
        QVERIFY(dark.height() >= 48 * counts[page]);
        QVERIFY(dark.height() < 48 * counts[page] + 12);
    }
}

// Pages of 156.493… pixels are laid out as 10015/64 of them; the rest would be two pixels after 200 pages.
void tst_pagepainter::pagesDoNotDrift()
{
    QTextDocument document;
    QTextBlockFormat format;
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    for (int i = 0; i < 201; ++i) {
        if (i > 0)
            QTextCursor(&document).insertBlock();
        insertSquare(&document, 10);
        QTextCursor(&document).setBlockFormat(i < 200 ? format : QTextBlockFormat());
    }
    ORVPageSetup setup = smallPage();
    setup.page.paperSize.setHeight(216.37);
    const ORVPagePainter pages(&document, setup, 96);
    QCOMPARE(pages.pageCount(), 201);
    QCOMPARE(darkArea(painted(pages, setup, 96, 200)), QRect(24, 72, 10, 10));
}

void tst_pagepainter::lengthsOfMilesAreLimited_data()
{
    QTest::addColumn<int>("property");
    QTest::addColumn<double>("pixels");

    // 22 inches are 2112 pixels, and 132 lines of 12 points.
    QTest::newRow("space before") << int(QTextFormat::BlockTopMargin) << 2112.0;
    QTest::newRow("space after") << int(QTextFormat::BlockBottomMargin) << 2112.0;
    QTest::newRow("least line height") << int(QTextFormat::LineHeight) << 2112.0;
}

// Qt would never be done with these pages.
void tst_pagepainter::lengthsOfMilesAreLimited()
{
    QFETCH(int, property);
    QFETCH(double, pixels);
    const double lengths[] = {1e7, pixels};
    QTextDocument documents[2];
    for (int i = 0; i < 2; ++i) {
        documents[i].setPlainText(QStringLiteral("x\n").repeated(20));
        QTextBlockFormat format;
        if (property == QTextFormat::LineHeight)
            format.setProperty(QTextFormat::LineHeightType, int(QTextBlockFormat::MinimumHeight));
        format.setProperty(property, lengths[i]);
        QTextCursor cursor(&documents[i]);
        cursor.select(QTextCursor::Document);
        cursor.mergeBlockFormat(format);
    }
    const ORVPagePainter pages(&documents[0], smallPage(), 96);
    const int count = ORVPagePainter(&documents[1], smallPage(), 96).pageCount();
    // 156 pixels a page; the space in front of the first paragraph or behind the last does not count.
    QVERIFY(count >= 19 * 2112 / 156);
    QCOMPARE(pages.pageCount(), count);
}

void tst_pagepainter::emptySpaceIsLimited_data()
{
    QTextBlockFormat format;
    QTest::addColumn<QTextBlockFormat>("format");
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTest::newRow("page breaks") << format;
    format = QTextBlockFormat();
    format.setTopMargin(2000);
    QTest::newRow("space above") << format;
    format = QTextBlockFormat();
    format.setLineHeight(2000, QTextBlockFormat::FixedHeight);
    QTest::newRow("high lines") << format;
}

/*!
    Qt's layout counts to 2^25 pixels. 45,000 pages or paragraphs that are as high would be more, and the
    layout would never end, or end with one page. They fill some 2^24 pixels, and what follows is close.
*/
void tst_pagepainter::emptySpaceIsLimited()
{
    QFETCH(QTextBlockFormat, format);
    QTextDocument document;
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (int i = 0; i < 45000; ++i)
        cursor.insertBlock(format);
    cursor.endEditBlock();
    const ORVPageSetup setup;
    const ORVPagePainter pages(&document, setup, 96);
    const double pageHeight = 864; // nine inches
    const int most = int((1 << 24) / pageHeight);
    QVERIFY2(pages.pageCount() > most / 2, qPrintable(QString::number(pages.pageCount())));
    QVERIFY2(pages.pageCount() < 2 * most, qPrintable(QString::number(pages.pageCount())));
}

void tst_pagepainter::textStaysOnThePaper_data()
{
    QTest::addColumn<int>("property");
    QTest::addColumn<double>("pixels");
    QTest::addColumn<int>("left");

    // The text is 120 pixels wide, begins 24 pixels from the edge, and keeps 24.
    QTest::newRow("left margin") << int(QTextFormat::BlockLeftMargin) << 1e8 << 24 + 120 - 24;
    QTest::newRow("first line") << int(QTextFormat::TextIndent) << 1e8 << 24 + 120 - 24;
    QTest::newRow("first line to the left") << int(QTextFormat::TextIndent) << -1e8 << 0;
    QTest::newRow("what fits") << int(QTextFormat::BlockLeftMargin) << 96.0 << 24 + 96;
    QTest::newRow("what fits to the left") << int(QTextFormat::TextIndent) << -20.0 << 4;
}

void tst_pagepainter::textStaysOnThePaper()
{
    QFETCH(int, property);
    QFETCH(double, pixels);
    QTextDocument document;
    insertSquare(&document, 10);
    QTextBlockFormat format;
    format.setProperty(property, pixels);
    QTextCursor(&document).mergeBlockFormat(format);
    const ORVPageSetup setup = smallPage();
    QTEST(darkArea(painted(ORVPagePainter(&document, setup, 96), setup, 96, 0)).left(), "left");
}

// (120 - 24) / 2 pixels on each side.
void tst_pagepainter::paddingLeavesRoomForText()
{
    QTextDocument document;
    QTextTableFormat format;
    format.setBorder(0);
    format.setCellSpacing(0);
    format.setCellPadding(1e8);
    QTextCursor(&document).insertTable(1, 1, format);
    QImage square(10, 10, QImage::Format_RGB32);
    square.fill(Qt::black);
    document.addResource(QTextDocument::ImageResource, QUrl(QStringLiteral("square")), square);
    QTextCursor(document.begin().next()).insertImage(QStringLiteral("square"));
    const ORVPageSetup setup = smallPage();
    QCOMPARE(darkArea(painted(ORVPagePainter(&document, setup, 96), setup, 96, 0)).left(), 24 + 48);
}

void tst_pagepainter::largestFont_data()
{
    QTest::addColumn<int>("property");
    QTest::addColumn<double>("size");
    QTest::addColumn<double>("largest");

    // 1638 points are 2184 pixels.
    QTest::newRow("points") << int(QTextFormat::FontPointSize) << 1e6 << 1638.0;
    QTest::newRow("pixels") << int(QTextFormat::FontPixelSize) << 1e7 << 2184.0;
}

void tst_pagepainter::largestFont()
{
    QFETCH(int, property);
    QFETCH(double, size);
    QFETCH(double, largest);
    ORVPageSetup setup;
    setup.page = {QSizeF(1584, 3168), 0, 0, 0, 0};
    QImage images[2];
    const double sizes[] = {size, largest};
    for (int i = 0; i < 2; ++i) {
        QTextCharFormat format;
        if (property == QTextFormat::FontPixelSize)
            format.setProperty(property, int(sizes[i]));
        else
            format.setProperty(property, sizes[i]);
        QTextDocument document;
        QTextCursor(&document).insertText(QStringLiteral("H"), format);
        images[i] = painted(ORVPagePainter(&document, setup, 72), setup, 72, 0);
    }
    QVERIFY(!darkArea(images[1]).isNull());
    QVERIFY(images[0] == images[1]);
}

void tst_pagepainter::documentStaysAsItIs()
{
    QTextDocument document;
    document.setPlainText(QStringLiteral("text"));
    const double margin = document.documentMargin();
    const QSizeF size = document.pageSize();
    const ORVPagePainter pages(&document, smallPage(), 96);
    QCOMPARE(pages.pageCount(), 1);
    QCOMPARE(document.documentMargin(), margin);
    QCOMPARE(document.pageSize(), size);
}

// 48 pixels behind the left margin, which is 24 pixels wide.
void tst_pagepainter::tabStopsAreHalfAnInchApart()
{
    QTextDocument document;
    document.setPlainText(QStringLiteral("\t"));
    QImage square(8, 8, QImage::Format_RGB32);
    square.fill(Qt::black);
    document.addResource(QTextDocument::ImageResource, QUrl(QStringLiteral("square")), square);
    QTextCursor cursor(&document);
    cursor.movePosition(QTextCursor::End);
    cursor.insertImage(QStringLiteral("square"));
    const ORVPageSetup setup = smallPage();
    QCOMPARE(darkArea(painted(ORVPagePainter(&document, setup, 96), setup, 96, 0)).left(), 24 + 48);
}

void tst_pagepainter::marginTexts_data()
{
    QTest::addColumn<bool>("isHeader");
    QTest::addColumn<int>("alignment");
    QTest::addColumn<bool>("onFirstPage");
    QTest::addColumn<int>("page");

    QTest::newRow("header, left") << true << int(Qt::AlignLeft) << true << 0;
    QTest::newRow("header, right") << true << int(Qt::AlignRight) << true << 1;
    QTest::newRow("footer, centre") << false << int(Qt::AlignHCenter) << true << 0;
    QTest::newRow("not on the first page") << true << int(Qt::AlignLeft) << false << 0;
    QTest::newRow("on the second page") << false << int(Qt::AlignLeft) << false << 1;
}

// Between the edge of the paper and the text; half the margin away from the edge, where that is less than 36
// points.
void tst_pagepainter::marginTexts()
{
    QFETCH(bool, isHeader);
    QFETCH(int, alignment);
    QFETCH(bool, onFirstPage);
    QFETCH(int, page);
    ORVPageSetup setup = smallPage();
    ORVPageSetup::MarginText& text = isHeader ? setup.header : setup.footer;
    text.text = QStringLiteral("Mark");
    text.font.setPointSize(6);
    text.alignment = Qt::Alignment(alignment);
    setup.firstPageHasMarginTexts = onFirstPage;
    QTextDocument document;
    document.setPlainText(QStringLiteral(" \n "));
    QTextBlockFormat format;
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(document.lastBlock()).mergeBlockFormat(format);
    const ORVPagePainter pages(&document, setup, 96);
    QCOMPARE(pages.pageCount(), 2);

    // 144 × 216 points are 192 × 288 pixels, with 24 and 48 at the sides, 72 above and 60 below.
    const QRect dark = darkArea(painted(pages, setup, 96, page));
    QCOMPARE(dark.isNull(), page == 0 && !onFirstPage);
    if (dark.isNull())
        return;
    const QRect area = isHeader ? QRect(24, 36, 120, 36) : QRect(24, 228, 120, 30);
    QVERIFY(area.contains(dark));
    if (alignment == Qt::AlignLeft)
        QVERIFY(dark.right() < area.center().x());
    else if (alignment == Qt::AlignRight)
        QVERIFY(dark.left() > area.center().x());
    else
        QVERIFY(qAbs(dark.center().x() - area.center().x()) <= 2);
}

// What the placeholders give looks as if it had been written so.
void tst_pagepainter::placeholders()
{
    QTextDocument document;
    document.setPlainText(QStringLiteral(" \n "));
    QTextBlockFormat format;
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(document.lastBlock()).mergeBlockFormat(format);
    ORVPageSetup setup = smallPage();
    setup.firstNumber = 6;
    setup.footer.text = QStringLiteral("Page <$p> of <$pagecount>");
    ORVPageSetup expected = setup;
    expected.footer.text = QStringLiteral("Page 7 of 2");
    const QImage image = painted(ORVPagePainter(&document, setup, 96), setup, 96, 1);
    QCOMPARE(image, painted(ORVPagePainter(&document, expected, 96), expected, 96, 1));
    QVERIFY(image != painted(ORVPagePainter(&document, expected, 96), expected, 96, 2));
}

void tst_pagepainter::unusablePaper_data()
{
    QTest::addColumn<QSizeF>("paper");
    QTest::addColumn<double>("margin");
    QTest::addColumn<QRectF>("textArea");

    QTest::newRow("no paper") << QSizeF(0, 0) << 72.0 << QRectF(72, 72, 468, 648);
    QTest::newRow("negative") << QSizeF(-600, 800) << 72.0 << QRectF(72, 72, 468, 648);
    QTest::newRow("a mile") << QSizeF(4561920, 800) << 72.0 << QRectF(72, 72, 468, 648);
    QTest::newRow("margins meet") << QSizeF(118, 218) << 100.0 << QRectF(50, 100, 18, 18);
    QTest::newRow("infinite margins") << QSizeF(200, 300) << qInf() << QRectF(0, 0, 200, 300);
    QTest::newRow("margins that are no number") << QSizeF(200, 300) << qQNaN() << QRectF(0, 0, 200, 300);
    QTest::newRow("negative margins") << QSizeF(200, 300) << -10.0 << QRectF(0, 0, 200, 300);
}

void tst_pagepainter::unusablePaper()
{
    QFETCH(QSizeF, paper);
    QFETCH(double, margin);
    ORVPageSetup setup;
    setup.page = {paper, margin, margin, margin, margin};
    QTEST(setup.page.textArea(), "textArea");
    QTextDocument document;
    document.setPlainText(QStringLiteral("text"));
    QVERIFY(ORVPagePainter(&document, setup, 96).pageCount() >= 1);
}

void tst_pagepainter::pdfHasAllPages()
{
    QTextDocument document;
    document.setPlainText(QStringLiteral("one\ntwo"));
    document.setMetaInformation(QTextDocument::DocumentTitle, QStringLiteral("Numbers"));
    QTextBlockFormat format;
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(document.lastBlock()).mergeBlockFormat(format);
    QByteArray pdf = ORVPagePdf::make(&document, smallPage(), QStringLiteral("test"));
    QVERIFY(pdf.startsWith("%PDF-"));
    QCOMPARE(pdf.count("/Type /Page\n"), 2);
    QVERIFY(pdf.contains("/MediaBox [0 0 144.000000 216.000000]"));
    // Texts are in UTF-16.
    pdf.replace('\0', "");
    QVERIFY(pdf.contains("Numbers"));
    QVERIFY(pdf.contains("test"));
}

void tst_pagepainter::pdfOfNoDocumentIsAnEmptyPage()
{
    const QByteArray pdf = ORVPagePdf::make(nullptr, smallPage());
    QVERIFY(pdf.startsWith("%PDF-"));
    QCOMPARE(pdf.count("/Type /Page\n"), 1);
}

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    QGuiApplication application(argc, argv);
    tst_pagepainter test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_pagepainter.moc"
