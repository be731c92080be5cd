#include "ORVPagePainter.h"
#include "ORVPagePdf.h"
#include "ORVTextPage.h"
#include "ORVTextRtfReader.h"
#include "paintedtext.h"
#include "testsupport.h"

namespace {

QVariant marginText(const char* text, Qt::Alignment alignment, const char* family)
{
    ORVTextPage page;
    page.text = QString::fromLatin1(text);
    page.option.setAlignment(alignment);
    page.font = QFont(QString::fromLatin1(family));
    return QVariant::fromValue(page);
}

QMarginsF marginsOf(const ORVPageGeometry& page)
{
    return {page.leftMargin, page.topMargin, page.rightMargin, page.bottomMargin};
}

ORVPageSetup smallPage()
{
    ORVPageSetup setup;
    setup.page = {QSizeF(144, 216), 18, 36, 54, 45};
    return setup;
}

/*! Inserts a black square of so many pixels (96 to the inch). */
void insertSquare(QTextCursor cursor, int side)
{
    QImage square(side, side, QImage::Format_RGB32);
    square.fill(Qt::black);
    cursor.document()->addResource(QTextDocument::ImageResource, QUrl("square"_s), square);
    cursor.insertImage("square"_s);
}

const QTextBlockFormat pageBreak =
    rtftest::blockFormat({{QTextFormat::PageBreakPolicy, int(QTextFormat::PageBreak_AlwaysBefore)}});

/*! Has each paragraph but the first begin a page. */
void breakParagraphs(QTextDocument* document)
{
    for (QTextBlock block = document->begin().next(); block.isValid(); block = block.next())
        QTextCursor(block).mergeBlockFormat(pageBreak);
}

QImage painted(const ORVPagePainter& pages, const ORVPageSetup& setup, int resolution, int page)
{
    QImage image((setup.page.usablePaperSize() * resolution / 72).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    pages.paintPage(&painter, page);
    return image;
}

QImage painted(const QTextDocument& document, const ORVPageSetup& setup = smallPage(), int page = 0)
{
    return painted(ORVPagePainter(&document, setup, 96), setup, 96, page);
}

/*! What is not white; null when all is. */
QRect darkArea(const QImage& image)
{
    QRect dark;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                dark |= QRect(x, y, 1, 1);
        }
    }
    return dark;
}

} // namespace

/*! Pages, and documents on them. Text is drawn as blocks of colour: pictures, whose edges are exact. */
class TestPagePainter : public QObject {
    Q_OBJECT

private slots:
    void pageOfReader()
    {
        QByteArray rtf("{\\rtf1\\paperw8400\\paperh11901\\margl1080\\margr720\\margt20\\margb-10 x}");
        QBuffer buffer(&rtf);
        QTextDocument document;
        ORVTextRtfReader reader(&buffer);
        QCOMPARE(ORVPageGeometry::of(reader).paperSize, QSizeF(612, 792));
        QVERIFY(reader.read(&document));
        QCOMPARE(ORVPageGeometry::of(reader).paperSize, QSizeF(420, 595.05));
        QCOMPARE(marginsOf(ORVPageGeometry::of(reader)), QMarginsF(54, 1, 36, -0.5));
    }

    /*! A twip is a twentieth of a point. */
    void pageInTwips()
    {
        const auto page = ORVPageGeometry::fromTwips(QSize(8400, 11901), QMargins(1080, 720, 20, -10));
        QCOMPARE(page.paperSize, QSizeF(420, 595.05));
        QCOMPARE(marginsOf(page), QMarginsF(54, 36, 1, -0.5));
    }

    void setupOfPlainDocument()
    {
        const QTextDocument document;
        const ORVPageSetup setup = ORVPageSetup::of(&document);
        QCOMPARE(setup.page.paperSize, QSizeF(612, 792));
        QCOMPARE(setup.header.text, QString());
        QCOMPARE(setup.footer.text, QString());
        QVERIFY(setup.firstPageHasMarginTexts);
        QCOMPARE(setup.firstNumber, 0);
    }

    void setupOfDocument()
    {
        QTextDocument document;
        document.setProperty("paperSize", QSizeF(300, 400));
        document.setProperty("topMargin", 36);
        document.setProperty("header", marginText("Head", Qt::AlignRight, "Quibble Head"));
        document.setProperty("footer", marginText("<$p>", Qt::AlignHCenter, "Quibble Foot"));
        document.setProperty("notOnFirstPage", true);
        document.setProperty("countFirstPage", true);
        const ORVPageSetup setup = ORVPageSetup::of(&document);
        QCOMPARE(setup.page.paperSize, QSizeF(300, 400));
        QCOMPARE(setup.page.topMargin, 36.0);
        QCOMPARE(setup.header.text, "Head"_s);
        QCOMPARE(setup.header.alignment, Qt::Alignment(Qt::AlignRight));
        QCOMPARE(setup.header.font.family(), "Quibble Head"_s);
        QCOMPARE(setup.footer.text, "<$p>"_s);
        QCOMPARE(setup.footer.alignment, Qt::Alignment(Qt::AlignHCenter));
        QCOMPARE(setup.footer.font.family(), "Quibble Foot"_s);
        QVERIFY(!setup.firstPageHasMarginTexts);
        QCOMPARE(setup.firstNumber, 1);
    }

    void setupOfNoDocument()
    {
        QCOMPARE(ORVPageGeometry::of(nullptr).paperSize, QSizeF(612, 792));
        QCOMPARE(ORVPageSetup::of(nullptr).page.paperSize, QSizeF(612, 792));
        QCOMPARE(ORVPageSetup::of(nullptr).firstNumber, ORVPageSetup().firstNumber);
    }

    void emptyAndNullDocumentsAreAnEmptyPage()
    {
        const QTextDocument empty;
        for (const QTextDocument* document : {&empty, static_cast<const QTextDocument*>(nullptr)}) {
            const ORVPagePainter pages(document, smallPage(), 72);
            QCOMPARE(pages.pageCount(), 1);
            QCOMPARE(darkArea(painted(pages, smallPage(), 72, 0)), QRect());
        }
    }

    void nothingIsPaintedWithoutPainterOrPage()
    {
        ORVPageSetup setup = smallPage();
        setup.header.text = "Header"_s;
        QTextDocument document("text"_s);
        const ORVPagePainter pages(&document, setup, 72);
        pages.paintPage(nullptr, 0);
        QCOMPARE(pages.pageCount(), 1);
        QCOMPARE(darkArea(painted(pages, setup, 72, 1)), QRect());
        QCOMPARE(darkArea(painted(pages, setup, 72, -1)), QRect());
    }

    // The margins are 18 and 54 points, so 24 and 72 pixels at 96 to the inch.
    ORV_ROWS(textStandsBetweenTheMargins)
    {
        const Rows add([](int resolution) {
            QTextDocument document;
            insertSquare(QTextCursor(&document), 30);
            const ORVPagePainter pages(&document, smallPage(), resolution);
            QCOMPARE(pages.pageCount(), 1);
            const int factor = resolution / 96;
            const QRect dark = darkArea(painted(pages, smallPage(), resolution, 0));
            QCOMPARE(dark, QRect(QPoint(24, 72) * factor, QSize(30, 30) * factor));
        });
        add("96", 96);
        add("192", 192);
        add("288", 288);
    }

    void pageBreaks()
    {
        QTextDocument document("one\ntwo\nthree"_s);
        breakParagraphs(&document);
        QCOMPARE(ORVPagePainter(&document, smallPage(), 96).pageCount(), 3);
    }

    /*! Not even beyond the text area, where nobody would see it: programs find it in PDF files. */
    void textOfOtherPagesIsNotPainted()
    {
        QTextDocument document("one\ntwo\nthree"_s);
        breakParagraphs(&document);
        const ORVPagePainter pages(&document, smallPage(), 96);
        const char* const texts[] = {"one", "two", "three"};
        for (int page = 0; page < 3; ++page) {
            viewtest::RecordedPaper paper;
            {
                QPainter painter(&paper);
                pages.paintPage(&painter, page);
            }
            QCOMPARE(viewtest::textsOf(paper.recorder.pieces), QStringList(QLatin1String(texts[page])));
        }
    }

    // 117 points of text are 156 pixels: three squares of 50 pixels, each in a line of its own.
    void longTextFillsPages()
    {
        QTextDocument document("\n\n\n\n\n\n"_s);
        QFont font;
        font.setPixelSize(1);
        document.setDefaultFont(font);
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
            insertSquare(QTextCursor(block), 48);
        const ORVPagePainter pages(&document, smallPage(), 96);
        QCOMPARE(pages.pageCount(), 3);
        const int counts[] = {3, 3, 1};
        for (int page = 0; page < 3; ++page) {
            const QRect dark = darkArea(painted(pages, smallPage(), 96, page));
            QCOMPARE(dark.top(), 72);
            QVERIFY(dark.height() >= 48 * counts[page]);
            QVERIFY(dark.height() < 48 * counts[page] + 12);
        }
    }

    // Pages of 156.493… pixels are laid out as 10015/64 of them; the rest would be two pixels after 200
    // pages.
    void pagesDoNotDrift()
    {
        QTextDocument document("\n"_s.repeated(200));
        breakParagraphs(&document);
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
            insertSquare(QTextCursor(block), 10);
        ORVPageSetup setup = smallPage();
        setup.page.paperSize.setHeight(216.37);
        const ORVPagePainter pages(&document, setup, 96);
        QCOMPARE(pages.pageCount(), 201);
        QCOMPARE(darkArea(painted(pages, setup, 96, 200)), QRect(24, 72, 10, 10));
    }

    ORV_ROWS(lengthsOfMilesAreLimited)
    {
        const Rows add([](int property) {
            int counts[2];
            // 22 inches are 2112 pixels, and 132 lines of 12 points.
            const double lengths[] = {1e7, 2112};
            for (int i = 0; i < 2; ++i) {
                QTextDocument document("x\n"_s.repeated(20));
                QTextBlockFormat format;
                if (property == QTextFormat::LineHeight)
                    format.setProperty(QTextFormat::LineHeightType, int(QTextBlockFormat::MinimumHeight));
                format.setProperty(property, lengths[i]);
                QTextCursor cursor(&document);
                cursor.select(QTextCursor::Document);
                cursor.mergeBlockFormat(format);
                counts[i] = ORVPagePainter(&document, smallPage(), 96).pageCount();
            }
            // 156 pixels a page; the space in front of the first paragraph or behind the last does not count.
            QVERIFY(counts[1] >= 19 * 2112 / 156);
            QCOMPARE(counts[0], counts[1]);
        });
        add("space before", int(QTextFormat::BlockTopMargin));
        add("space after", int(QTextFormat::BlockBottomMargin));
        add("least line height", int(QTextFormat::LineHeight));
    }

    /*!
        Qt's layout counts to 2^25 pixels. 45,000 pages or paragraphs that are as high would be more, and the
        layout would never end, or end with one page. They fill some 2^24 pixels, and what follows is close.
    */
    ORV_ROWS(emptySpaceIsLimited)
    {
        const Rows add([](const QTextBlockFormat& format) {
            QTextDocument document;
            QTextCursor cursor(&document);
            cursor.beginEditBlock();
            for (int i = 0; i < 45000; ++i)
                cursor.insertBlock(format);
            cursor.endEditBlock();
            const int count = ORVPagePainter(&document, ORVPageSetup(), 96).pageCount();
            const int most = (1 << 24) / 864; // a page of nine inches
            QVERIFY2(count > most / 2, qPrintable(QString::number(count)));
            QVERIFY2(count < 2 * most, qPrintable(QString::number(count)));
        });
        add("page breaks", pageBreak);
        add("space above", rtftest::blockFormat({{QTextFormat::BlockTopMargin, 2000.0}}));
        add("high lines",
            rtftest::blockFormat({{QTextFormat::LineHeight, 2000.0},
                                  {QTextFormat::LineHeightType, int(QTextBlockFormat::FixedHeight)}}));
    }

    ORV_ROWS(textStaysOnThePaper)
    {
        const Rows add([](int property, double pixels, int left) {
            QTextDocument document;
            insertSquare(QTextCursor(&document), 10);
            QTextCursor(&document).mergeBlockFormat(rtftest::blockFormat({{property, pixels}}));
            QCOMPARE(darkArea(painted(document)).left(), left);
        });
        // The text is 120 pixels wide, begins 24 pixels from the edge, and keeps 24.
        add("left margin", int(QTextFormat::BlockLeftMargin), 1e8, 24 + 120 - 24);
        add("first line", int(QTextFormat::TextIndent), 1e8, 24 + 120 - 24);
        add("first line to the left", int(QTextFormat::TextIndent), -1e8, 0);
        add("what fits", int(QTextFormat::BlockLeftMargin), 96.0, 24 + 96);
        add("what fits to the left", int(QTextFormat::TextIndent), -20.0, 4);
    }

    // (120 - 24) / 2 pixels on each side.
    void paddingLeavesRoomForText()
    {
        QTextTableFormat format;
        format.setBorder(0);
        format.setCellSpacing(0);
        format.setCellPadding(1e8);
        QTextDocument document;
        insertSquare(QTextCursor(&document).insertTable(1, 1, format)->cellAt(0, 0).firstCursorPosition(),
                     10);
        QCOMPARE(darkArea(painted(document)).left(), 24 + 48);
    }

    ORV_ROWS(largestFont)
    {
        const Rows add([](int property, const QVariant& size, const QVariant& largest) {
            ORVPageSetup setup;
            setup.page = {QSizeF(1584, 3168), 0, 0, 0, 0};
            QList<QImage> images;
            for (const QVariant& value : {size, largest}) {
                QTextDocument document;
                QTextCursor(&document).insertText("H"_s, rtftest::charFormat({{property, value}}));
                images << painted(ORVPagePainter(&document, setup, 72), setup, 72, 0);
            }
            QVERIFY(!darkArea(images.at(1)).isNull());
            QVERIFY(images.at(0) == images.at(1));
        });
        // 1638 points are 2184 pixels.
        add("points", int(QTextFormat::FontPointSize), 1e6, 1638.0);
        add("pixels", int(QTextFormat::FontPixelSize), 10000000, 2184);
    }

    void documentStaysAsItIs()
    {
        QTextDocument document("text"_s);
        const double margin = document.documentMargin();
        const QSizeF size = document.pageSize();
        QCOMPARE(ORVPagePainter(&document, smallPage(), 96).pageCount(), 1);
        QCOMPARE(document.documentMargin(), margin);
        QCOMPARE(document.pageSize(), size);
    }

    // 48 pixels behind the left margin, which is 24 pixels wide.
    void tabStopsAreHalfAnInchApart()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.insertText("\t"_s);
        insertSquare(cursor, 8);
        QCOMPARE(darkArea(painted(document)).left(), 24 + 48);
    }

    ORV_ROWS(marginTexts)
    {
        const Rows add([](bool isHeader, int alignment, bool onFirstPage, int page) {
            ORVPageSetup setup = smallPage();
            ORVPageSetup::MarginText& text = isHeader ? setup.header : setup.footer;
            text.text = "Mark"_s;
            text.font.setPointSize(6);
            text.alignment = Qt::Alignment(alignment);
            setup.firstPageHasMarginTexts = onFirstPage;
            QTextDocument document(" \n "_s);
            breakParagraphs(&document);
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
        });
        add("header, left", true, int(Qt::AlignLeft), true, 0);
        add("header, right", true, int(Qt::AlignRight), true, 1);
        add("footer, centre", false, int(Qt::AlignHCenter), true, 0);
        add("not on the first page", true, int(Qt::AlignLeft), false, 0);
        add("on the second page", false, int(Qt::AlignLeft), false, 1);
    }

    /*! A line with tabs is in three parts, whatever the alignment; other lines have that. */
    ORV_ROWS(tabsInMarginTexts)
    {
        const Rows add([](const QString& text, const std::vector<int>& places) {
            ORVPageSetup setup = smallPage();
            setup.header.text = text;
            setup.header.font.setPointSize(6);
            setup.header.alignment = Qt::AlignRight;
            const QImage image = painted(ORVPagePainter(nullptr, setup, 96), setup, 96, 0);
            // Narrow marks, of which some pixels are dark: of 120 pixels from 24 on.
            std::vector<int> dark;
            for (int x = 0; x < image.width(); ++x) {
                const bool isDark = !darkArea(image.copy(x, 0, 1, image.height())).isNull();
                if (isDark && (dark.empty() || x > dark.back() + 8))
                    dark.push_back(x);
            }
            QCOMPARE(dark.size(), places.size());
            for (std::size_t i = 0; i < dark.size(); ++i)
                QVERIFY2(qAbs(dark[i] - places[i]) <= 4, qPrintable(QString::number(dark[i])));
        });
        add("no tab", "I", {142});
        add("three parts", "I\tI\tI", {24, 84, 142});
        add("right part only", "\t\tI", {142});
        add("lines", "I\tI\u2028I", {24, 84, 142});
    }

    // What the placeholders give looks as if it had been written so.
    void placeholders()
    {
        QTextDocument document(" \n "_s);
        breakParagraphs(&document);
        ORVPageSetup setup = smallPage();
        setup.firstNumber = 6;
        setup.footer.text = "Page <$p> of <$pagecount>"_s;
        ORVPageSetup expected = setup;
        expected.footer.text = "Page 7 of 2"_s;
        const QImage image = painted(document, setup, 1);
        QCOMPARE(image, painted(document, expected, 1));
        QVERIFY(image != painted(document, expected, 2));
    }

    ORV_ROWS(unusablePaper)
    {
        const Rows add([](const QSizeF& paper, double margin, const QRectF& textArea) {
            ORVPageSetup setup;
            setup.page = {paper, margin, margin, margin, margin};
            QCOMPARE(setup.page.textArea(), textArea);
            QTextDocument document("text"_s);
            QVERIFY(ORVPagePainter(&document, setup, 96).pageCount() >= 1);
        });
        add("no paper", QSizeF(0, 0), 72.0, QRectF(72, 72, 468, 648));
        add("negative", QSizeF(-600, 800), 72.0, QRectF(72, 72, 468, 648));
        add("a mile", QSizeF(4561920, 800), 72.0, QRectF(72, 72, 468, 648));
        add("margins meet", QSizeF(118, 218), 100.0, QRectF(50, 100, 18, 18));
        add("infinite margins", QSizeF(200, 300), qInf(), QRectF(0, 0, 200, 300));
        add("margins that are no number", QSizeF(200, 300), qQNaN(), QRectF(0, 0, 200, 300));
        add("negative margins", QSizeF(200, 300), -10.0, QRectF(0, 0, 200, 300));
    }

    void pdfHasAllPages()
    {
        QTextDocument document("one\ntwo"_s);
        document.setMetaInformation(QTextDocument::DocumentTitle, "Numbers"_s);
        breakParagraphs(&document);
        QByteArray pdf = ORVPagePdf::make(&document, smallPage(), "test"_s);
        QVERIFY(pdf.startsWith("%PDF-"));
        QCOMPARE(pdf.count("/Type /Page\n"), 2);
        QVERIFY(pdf.contains("/MediaBox [0 0 144.000000 216.000000]"));
        // Texts are in UTF-16.
        pdf.replace('\0', "");
        QVERIFY(pdf.contains("Numbers"));
        QVERIFY(pdf.contains("test"));
    }

    void pdfOfNoDocumentIsAnEmptyPage()
    {
        const QByteArray pdf = ORVPagePdf::make(nullptr, smallPage());
        QVERIFY(pdf.startsWith("%PDF-"));
        QCOMPARE(pdf.count("/Type /Page\n"), 1);
    }
};

ORV_TEST("pagepainter", TestPagePainter, QGuiApplication)
#include "pagepainter.moc"
