#include "ORVStockFormats.h"
#include "ORVTextListFormat.h"
#include "interchangehelpers.h"
#include "paintedtext.h"
#include "testsupport.h"

using namespace rtftest;
using namespace viewtest;

namespace {

/*! A document in stock form with a list of one level; \a level are its words. */
QSharedPointer<QTextDocument> listDocument(const QByteArray& level, const QByteArray& body)
{
    const Reading reading = import(
        "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Quibble Serif;}}{\\*\\listtable{\\list{\\listlevel" + level
        + "\\fi-360\\li720}\\listid7}}{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}}" + body + "}");
    ORVStockFormats::toStock(reading.document.data());
    return reading.document;
}

const char numbers[] = "\\levelnfc0{\\leveltext\\'02\\'00.;}";

// The left edge of the text on the page, in pixels, and a point.
const double leftEdge = 120;
const double rightEdge = (612 - 90) * 96.0 / 72;
const double point = 96.0 / 72;

} // namespace

/*! Labels of list items on pages. */
class TestPageLabels : public QObject {
    Q_OBJECT

private slots:
    void labelsStandAtTheFirstLine()
    {
        const QList<Piece> pieces =
            piecesOf(*listDocument(numbers, "\\pard\\fi-360\\li720\\ls1 Item\\par Next"));
        QCOMPARE(textsOf(pieces), QStringList({"1."_s, "2."_s, "Item"_s, "Next"_s}));
        const Piece label = pieceOf(pieces, "1."_s);
        const Piece text = pieceOf(pieces, "Item"_s);
        QCOMPARE(label.left, leftEdge + 18 * point);
        QCOMPARE(text.left, leftEdge + 36 * point);
        QCOMPARE(label.baseline, text.baseline);
        QVERIFY(pieceOf(pieces, "2."_s).baseline > label.baseline);
        QCOMPARE(pieceOf(pieces, "Next"_s).left, text.left);
    }

    // Positions in points, from the margin.
    ORV_ROWS(textBegins)
    {
        const Rows add([](const QByteArray& level, const QByteArray& paragraph, const QString& label,
                          double labelLeft, double textLeft) {
            const QList<Piece> pieces =
                piecesOf(*listDocument(level, "\\pard\\fi-360\\li720\\ls1" + paragraph + " Item"));
            QCOMPARE(qRound(pieceOf(pieces, label).left), qRound(leftEdge + labelLeft * point));
            QCOMPARE(qRound(pieceOf(pieces, "Item"_s).left), qRound(leftEdge + textLeft * point));
        });
        const QByteArray wide = "\\levelnfc0{\\leveltext\\'0dA wide label\\'00;}";
        add("at the indent", numbers, "", "1.", 18, 36);
        add("wide hanging indent", numbers, "\\fi-1000\\li1440", "1.", 22, 72);
        add("behind a wide label", wide, "\\fi-360\\li720\\fs20", "A wide label1", 18, 108);
        add("at a tab stop", numbers, "\\fi-1000\\li1440\\tx900", "1.", 22, 45);
        add("at a tab stop behind a wide label", wide, "\\fi-360\\li720\\tx3000", "A wide label1", 18, 150);
        add("at the tab stop behind the first line", numbers, "\\fi0\\li400", "1.", 20, 36);
        add("first line beyond the indent", numbers, "\\fi500\\li400", "1.", 45, 72);
        add("bullet", "\\levelnfc23{\\leveltext\\'01\\'95;}", "", u8"\u2022", 18, 36);
        add("paragraph in the middle of the page", numbers, "\\li0\\fi0", "1.", 0, 36);
    }

    void textBeginsBehindTheLabel()
    {
        const QByteArray number = "{\\leveltext\\'02\\'00.;}";
        const QList<Piece> nothing =
            piecesOf(*listDocument("\\levelfollow2" + number, "\\pard\\fi-360\\li720\\ls1 Item"));
        const QList<Piece> space =
            piecesOf(*listDocument("\\levelfollow1" + number, "\\pard\\fi-360\\li720\\ls1 Item"));
        const double labelEnd = pieceOf(nothing, "1."_s).right;
        QVERIFY(qAbs(pieceOf(nothing, "Item"_s).left - labelEnd) < 1);
        const double gap = pieceOf(space, "Item"_s).left - labelEnd;
        QVERIFY2(gap > 1 && gap < 10, QByteArray::number(gap).constData());
    }

    void justifiedLabels()
    {
        const QByteArray number = "{\\leveltext\\'02\\'00.;}";
        const double position = leftEdge + 18 * point;
        const Piece right = pieceOf(
            piecesOf(*listDocument("\\leveljc2" + number, "\\pard\\fi-360\\li720\\ls1 Item")), "1."_s);
        QVERIFY(qAbs(right.right - position) < 1);
        const Piece center = pieceOf(
            piecesOf(*listDocument("\\leveljc1" + number, "\\pard\\fi-360\\li720\\ls1 Item")), "1."_s);
        QVERIFY(qAbs((center.left + center.right) / 2 - position) < 1);
    }

    void fromRightToLeft()
    {
        const QList<Piece> pieces =
            piecesOf(*listDocument(numbers, "\\pard\\rtlpar\\fi-360\\li720\\ls1 \\u1488 ?\\u1489 ?"));
        const Piece text = pieceOf(pieces, u8"\u05d0\u05d1"_s);
        double labelRight = 0;
        for (const Piece& piece : pieces) {
            if (piece.text != text.text)
                labelRight = qMax(labelRight, piece.right);
        }
        QVERIFY(labelRight > text.right);
        QVERIFY(labelRight <= rightEdge + 1);
    }

    void eachPageHasItsLabels()
    {
        const QSharedPointer<QTextDocument> document =
            listDocument(numbers, "\\pard\\fi-360\\li720\\ls1 One\\page Two\\par Three");
        QCOMPARE(textsOf(piecesOf(*document, 0)), QStringList({"1."_s, "One"_s}));
        QCOMPARE(textsOf(piecesOf(*document, 1)), QStringList({"2."_s, "3."_s, "Three"_s, "Two"_s}));
    }

    void labelOfAnEmptyItem()
    {
        QCOMPARE(textsOf(piecesOf(*listDocument(numbers, "\\pard\\fi-360\\li720\\ls1\\par Item"))),
                 QStringList({"1."_s, "2."_s, "Item"_s}));
    }

    void itemsWithoutMarker()
    {
        QCOMPARE(textsOf(piecesOf(
                     *listDocument("\\levelnfc0{\\leveltext\\'00;}", "\\pard\\fi-360\\li720\\ls1 Item"))),
                 QStringList("Item"_s));
    }

    // Qt does not show such a paragraph.
    void emptyItemInFrontOfATable()
    {
        const QSharedPointer<QTextDocument> document = listDocument(
            numbers,
            "\\pard\\fi-360\\li720\\ls1 Item\\par\\trowd\\cellx2000\\pard\\intbl Cell\\cell\\row\\pard");
        const QTextBlock hidden = document->begin().next();
        QVERIFY(hidden.length() == 1 || !hidden.textList());
        QCOMPARE(textsOf(piecesOf(*document)), QStringList({"1."_s, "Cell"_s, "Item"_s}));
    }

    void labelsInTables()
    {
        const QList<Piece> pieces = piecesOf(*listDocument(
            numbers,
            "\\trowd\\cellx4000\\cellx8000\\pard\\intbl Cell\\cell\\pard\\intbl\\ls1 Item\\cell\\row\\pard"));
        QVERIFY(pieceOf(pieces, "1."_s).left > leftEdge + 200 * point);
        QCOMPARE(pieceOf(pieces, "1."_s).baseline, pieceOf(pieces, "Item"_s).baseline);
    }

    void deeperLevelsOfOneTextList()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.insertText("One"_s);
        QTextList* const list =
            cursor.createList(listFormatWith({makeLevel(ORVTextListLevel::Decimal, "%0."_s, 36, 18),
                                              makeLevel(ORVTextListLevel::LowerLetter, "%1.%0)"_s, 72, 54)}));
        cursor.insertBlock();
        cursor.insertText("Two"_s);
        ORVTextListFormat::setBlockLevel(list, cursor.block(), 1);
        ORVStockFormats::toStock(&document);
        const QList<Piece> pieces = piecesOf(document);
        QCOMPARE(textsOf(pieces), QStringList({"1."_s, "1.a)"_s, "One"_s, "Two"_s}));
        QCOMPARE(pieceOf(pieces, "1.a)"_s).left, leftEdge + 54 * point);
    }

    // Their text stands where Qt has it, with the label in front of it.
    void listsOfQt()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.insertText("Item"_s);
        cursor.createList(QTextListFormat::ListUpperRoman);
        const QList<Piece> pieces = piecesOf(document);
        QCOMPARE(textsOf(pieces), QStringList({"I."_s, "Item"_s}));
        QCOMPARE(pieceOf(pieces, "Item"_s).left, leftEdge + document.indentWidth());
        QVERIFY(pieceOf(pieces, "I."_s).right < pieceOf(pieces, "Item"_s).left);
    }

    void labelsKeepTheFormatOfTheText()
    {
        const QList<Piece> small = piecesOf(*listDocument(numbers, "\\pard\\fi-360\\li720\\ls1\\fs20 Item"));
        const QList<Piece> large =
            piecesOf(*listDocument(numbers, "\\pard\\fi-360\\li720\\ls1\\fs40\\caps Item"));
        const double width = pieceOf(small, "1."_s).right - pieceOf(small, "1."_s).left;
        QVERIFY(pieceOf(large, "1."_s).right - pieceOf(large, "1."_s).left > 1.8 * width);
    }
};

ORV_TEST("pagelabels", TestPageLabels, QGuiApplication)
#include "pagelabels.moc"
