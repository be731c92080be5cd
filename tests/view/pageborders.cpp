#include "ORVPagePainter.h"
#include "ORVStockFormats.h"
#include "ORVTextBorder.h"
#include "tabletesthelpers.h"
#include "testsupport.h"

namespace {

// 192 × 288 pixels; the text is 120 pixels wide and begins at (24, 72).
ORVPageSetup smallPage()
{
    ORVPageSetup setup;
    setup.page = {QSizeF(144, 216), 18, 36, 54, 45};
    return setup;
}

// Behind the squares that stand for text, and between the lines at the sides.
const int clearColumn = 120;

ORVTextBorder line(double width, double spacing = 0,
                   QTextFrameFormat::BorderStyle style = QTextFrameFormat::BorderStyle_Solid)
{
    ORVTextBorder border;
    border.style = style;
    border.width = width;
    border.spacing = spacing;
    return border;
}

QTextBlockFormat withLines(const ORVTextBorder& border, const QList<int>& sides)
{
    QTextBlockFormat format;
    for (const int side : sides)
        border.setToParagraph(format, ORVTextBorder::Side(side));
    return format;
}

QTextBlockFormat boxed(double width, double spacing)
{
    return withLines(line(width, spacing),
                     {ORVTextBorder::Top, ORVTextBorder::Bottom, ORVTextBorder::Left, ORVTextBorder::Right});
}

/*! A paragraph of \a format at \a cursor, with a square for its text. */
void insertParagraph(QTextCursor& cursor, const QTextBlockFormat& format)
{
    if (cursor.block().length() > 1)
        cursor.insertBlock();
    cursor.setBlockFormat(format);
    QImage square(20, 20, QImage::Format_RGB32);
    square.fill(Qt::black);
    cursor.document()->addResource(QTextDocument::ImageResource, QUrl("square"_s), square);
    cursor.insertImage("square"_s);
}

struct Pages {
    explicit Pages(const QTextDocument& document) : painter(&document, smallPage(), 96) { }

    QImage image(int page) const
    {
        QImage image(192, 288, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter imagePainter(&image);
        painter.paintPage(&imagePainter, page);
        return image;
    }

    ORVPagePainter painter;
};

/*! The lines that cross a column or row of pixels, as their first and last pixels. */
QList<QPair<int, int>> runs(const QImage& image, int x, int y)
{
    QList<QPair<int, int>> result;
    const int length = x >= 0 ? image.height() : image.width();
    bool isDark = false;
    for (int i = 0; i < length; ++i) {
        const bool wasDark = isDark;
        isDark = qGray(x >= 0 ? image.pixel(x, i) : image.pixel(i, y)) < 128;
        if (isDark && !wasDark)
            result.append(qMakePair(i, i));
        else if (isDark)
            result.last().second = i;
    }
    return result;
}

QList<QPair<int, int>> inColumn(const QImage& image, int x = clearColumn)
{
    return runs(image, x, -1);
}

QList<QPair<int, int>> inRow(const QImage& image, int y)
{
    return runs(image, -1, y);
}

/*! A document whose font takes no room beside the squares. */
struct Document {
    Document() : cursor(&document)
    {
        QFont font;
        font.setPixelSize(1);
        document.setDefaultFont(font);
    }

    QTextDocument document;
    QTextCursor cursor;
};

} // namespace

/*! Lines around paragraphs, and tables to the left of the text, on pages. */
class TestPageBorders : public QObject {
    Q_OBJECT

private slots:
    // 2 pixels wide, 4 pixels from the text. Qt does not move the text at the beginning of a page.
    void linesStandOutsideTheText()
    {
        Document text;
        insertParagraph(text.cursor, boxed(1.5, 3));
        const QImage image = Pages(text.document).image(0);
        const auto rows = inColumn(image);
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows.at(0), qMakePair(66, 67));
        QVERIFY(rows.at(1).first >= 72 + 20 + 4 && rows.at(1).first <= 72 + 20 + 4 + 2);
        const auto columns = inRow(image, 72 + 10);
        QCOMPARE(columns.size(), 3);
        QCOMPARE(columns.at(0), qMakePair(18, 19));
        QCOMPARE(columns.at(1), qMakePair(24, 43));
        QCOMPARE(columns.at(2), qMakePair(148, 149));
    }

    ORV_ROWS(boxes)
    {
        const Rows add([](const QTextBlockFormat& second, int lines) {
            Document text;
            insertParagraph(text.cursor, boxed(0.75, 3));
            insertParagraph(text.cursor, second);
            const auto rows = inColumn(Pages(text.document).image(0));
            QCOMPARE(int(rows.size()), lines);
        });
        QTextBlockFormat indented = boxed(0.75, 3);
        indented.setLeftMargin(10);
        QTextBlockFormat aligned = boxed(0.75, 3);
        aligned.setAlignment(Qt::AlignHCenter);
        add("equal neighbours share one", boxed(0.75, 3), 2);
        add("alignment does not matter", aligned, 2);
        // The lower line of the one box touches the upper line of the other.
        add("other indents", indented, 3);
        add("other lines", boxed(2.25, 3), 3);
        add("no lines", QTextBlockFormat(), 2);
    }

    void rulerIsPaintedOnce()
    {
        Document text;
        QTextBlockFormat format = withLines(line(1.5), {ORVTextBorder::Bottom});
        format.setProperty(QTextFormat::BlockTrailingHorizontalRulerWidth,
                           QTextLength(QTextLength::PercentageLength, 100));
        text.cursor.setBlockFormat(format);
        const auto rows = inColumn(Pages(text.document).image(0));
        QCOMPARE(rows.size(), 1);
        QCOMPARE(rows.first().second - rows.first().first, 1);
    }

    void boxesGoOverPages()
    {
        Document text;
        insertParagraph(text.cursor, boxed(0.75, 3));
        QTextBlockFormat format = boxed(0.75, 3);
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        insertParagraph(text.cursor, format);
        const Pages pages(text.document);
        QCOMPARE(pages.painter.pageCount(), 2);
        for (int page = 0; page < 2; ++page) {
            QCOMPARE(inColumn(pages.image(page)).size(), 1);
            QCOMPARE(inRow(pages.image(page), 72 + 10).size(), 3);
        }
    }

    void boxesInCells()
    {
        Document text;
        QTextTableFormat format;
        format.setBorder(0);
        format.setCellSpacing(0);
        format.setCellPadding(10);
        format.setColumnWidthConstraints({QTextLength(QTextLength::PercentageLength, 100)});
        QTextTable* const table = text.cursor.insertTable(2, 1, format);
        for (int row = 0; row < 2; ++row) {
            QTextCursor cursor = table->cellAt(row, 0).firstCursorPosition();
            insertParagraph(cursor, boxed(0.75, 3));
        }
        const QImage image = Pages(text.document).image(0);
        const auto rows = inColumn(image);
        QCOMPARE(rows.size(), 4);
        // The padding of both cells.
        QVERIFY(rows.at(2).first - rows.at(1).first >= 20);
        const auto columns = inRow(image, 72 + 10 + 10);
        QCOMPARE(columns.first().first, 24 + 10 - 5);
        QCOMPARE(columns.last().second, 24 + 120 - 10 + 4);
    }

    ORV_ROWS(styles)
    {
        const Rows add([](int style, int strokes, bool isBroken) {
            Document text;
            const ORVTextBorder top = line(6.75, 3, QTextFrameFormat::BorderStyle(style));
            insertParagraph(text.cursor, withLines(top, {ORVTextBorder::Top}));
            const QImage image = Pages(text.document).image(0);
            QCOMPARE(inRow(image, 72 - 12).size() > 1, isBroken);
            if (!isBroken)
                QCOMPARE(int(inColumn(image).size()), strokes);
        });
        add("solid", int(QTextFrameFormat::BorderStyle_Solid), 1, false);
        add("double", int(QTextFrameFormat::BorderStyle_Double), 2, false);
        add("groove", int(QTextFrameFormat::BorderStyle_Groove), 1, false);
        add("dotted", int(QTextFrameFormat::BorderStyle_Dotted), 0, true);
        add("dashed", int(QTextFrameFormat::BorderStyle_Dashed), 0, true);
        add("dots and dashes", int(QTextFrameFormat::BorderStyle_DotDash), 0, true);
        add("two dots and dashes", int(QTextFrameFormat::BorderStyle_DotDotDash), 0, true);
    }

    void colors()
    {
        Document text;
        ORVTextBorder border = line(3);
        border.color = Qt::red;
        QTextBlockFormat format = withLines(border, {ORVTextBorder::Top});
        line(3).setToParagraph(format, ORVTextBorder::Bottom);
        insertParagraph(text.cursor, format);
        text.cursor.select(QTextCursor::Document);
        text.cursor.setBlockCharFormat(
            rtftest::charFormat({{QTextFormat::ForegroundBrush, QBrush(Qt::blue)}}));
        const QImage image = Pages(text.document).image(0);
        QCOMPARE(QColor(image.pixel(clearColumn, 70)), QColor(Qt::red));
        QCOMPARE(QColor(image.pixel(clearColumn, inColumn(image).last().first)), QColor(Qt::blue));
    }

    // A view cuts off what stands to the left of its margin; paper has room for it.
    void tablesToTheLeftOfTheText()
    {
        Document text;
        QTextTableFormat format;
        format.setBorder(0);
        format.setCellSpacing(0);
        format.setCellPadding(0);
        format.setLeftMargin(-9);
        format.setColumnWidthConstraints(
            {QTextLength(QTextLength::PercentageLength, 50), QTextLength(QTextLength::PercentageLength, 50)});
        QTextTable* const table = text.cursor.insertTable(1, 2, format);
        for (int column = 0; column < 2; ++column) {
            QTextCursor cursor = table->cellAt(0, column).firstCursorPosition();
            insertParagraph(cursor, QTextBlockFormat());
        }
        text.document.setProperty("paperSize", QSizeF(144, 216));
        ORVStockFormats::toStock(&text.document);
        const auto columns = inRow(Pages(text.document).image(0), 80);
        QCOMPARE(columns.size(), 2);
        QCOMPARE(columns.at(0).first, 24 - 12);
        QCOMPARE(columns.at(1).first, 24 - 12 + 60);
    }

    // A quarter of 120 pixels is less than the half inch that is accepted; 72 points are 96 pixels.
    void paddingOfCellsIsLimited()
    {
        Document text;
        QTextTableFormat format;
        format.setBorder(0);
        format.setCellSpacing(0);
        QTextTable* const table = text.cursor.insertTable(1, 1, format);
        QTextTableCell cell = table->cellAt(0, 0);
        QTextCharFormat cellFormat = cell.format();
        cellFormat.setProperty(QTextFormat::TableCellLeftPadding, 1e8);
        cellFormat.setProperty(QTextFormat::TableCellTopPadding, 1e8);
        cell.setFormat(cellFormat);
        QTextCursor cursor = cell.firstCursorPosition();
        insertParagraph(cursor, QTextBlockFormat());
        const QImage image = Pages(text.document).image(0);
        QCOMPARE(inColumn(image, 24 + 48 + 5).value(0).first, 72 + 96);
        QCOMPARE(inRow(image, 72 + 96 + 5).value(0).first, 24 + 48);
    }
};

ORV_TEST("pageborders", TestPageBorders, QGuiApplication)
#include "pageborders.moc"
