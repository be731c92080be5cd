#include "ORVStockFormats.h"
#include "interchangehelpers.h"
#include "paintedtext.h"
#include "testsupport.h"

using namespace rtftest;
using namespace viewtest;

namespace {

QSharedPointer<QTextDocument> pageDocument(const QByteArray& body)
{
    const Reading reading = importBody(body);
    ORVStockFormats::toStock(reading.document.data());
    return reading.document;
}

QList<Piece> paintedPieces(const QByteArray& body, int page = 0)
{
    return piecesOf(*pageDocument(body), page);
}

/*! The pieces that are nothing but leaders. */
QList<Piece> leadersOf(const QList<Piece>& pieces)
{
    QList<Piece> leaders;
    for (const Piece& piece : pieces) {
        if (piece.text.size() > 2 && piece.text.count(piece.text.at(0)) == piece.text.size())
            leaders.append(piece);
    }
    return leaders;
}

} // namespace

/*! What pages show of paragraphs, and views do not. */
class TestPageParagraphs : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(leaders)
    {
        const Rows add([](const QByteArray& words, const QString& characters) {
            const QList<Piece> pieces = paintedPieces("\\pard" + words + "\\tx4000 Left\\tab Right");
            const QList<Piece> leaders = leadersOf(pieces);
            QCOMPARE(leaders.size(), characters.isEmpty() ? 0 : 1);
            if (leaders.isEmpty())
                return;
            const Piece left = pieceOf(pieces, "Left"_s);
            const Piece right = pieceOf(pieces, "Right"_s);
            const Piece leader = leaders.first();
            QCOMPARE(leader.text.at(0), characters.at(0));
            QCOMPARE(leader.baseline, left.baseline);
            QVERIFY(leader.left > left.right && leader.left < left.right + 20);
            QVERIFY(leader.right < right.left && leader.right > right.left - 20);
        });
        add("none", "", "");
        add("dots", "\\tldot", ".");
        add("middle dots", "\\tlmdot", u8"\u00b7");
        add("hyphens", "\\tlhyph", "-");
        add("line", "\\tlul", "_");
        add("double line", "\\tleq", "=");
        add("of another tab stop", "\\tldot\\tx100", "");
        add("indented", "\\li700\\tldot", ".");
        add("behind a first line that stands out", "\\li1440\\fi-700\\tldot", ".");
        add("behind a first line further in", "\\li300\\fi700\\tldot", ".");
        add("in the middle", "\\qc\\tx1000\\tldot", "");
        add("at the right", "\\qr\\tldot", ".");
        add("in a cell", "\\trowd\\cellx5000\\intbl\\tldot", ".");
    }

    // So that the dots of a table of contents are in columns.
    void leadersOfLinesAreInColumns()
    {
        const QList<Piece> leaders =
            leadersOf(paintedPieces("\\pard\\tldot\\tqr\\tx6000 One\\tab 1\\par A longer line\\tab 12\\par"));
        QCOMPARE(leaders.size(), 2);
        const double width = (leaders[0].right - leaders[0].left) / leaders[0].text.size();
        const double steps = (leaders[1].left - leaders[0].left) / width;
        QVERIFY2(qAbs(steps - qRound(steps)) < 0.05, QByteArray::number(steps).constData());
    }

    void leadersOfTextFromRightToLeft()
    {
        const QList<Piece> pieces = paintedPieces(
            "\\pard\\rtlpar\\tldot\\tx3000\\tx6000\\tldot\\tx8000 One\\tab Two\\tab Three\\tab Four");
        const QList<Piece> leaders = leadersOf(pieces);
        QCOMPARE(leaders.size(), 2);
        QVERIFY(leaders[0].left > pieceOf(pieces, "Two"_s).right);
        QVERIFY(leaders[0].right < pieceOf(pieces, "One"_s).left);
        QVERIFY(leaders[1].left > pieceOf(pieces, "Four"_s).right);
        QVERIFY(leaders[1].right < pieceOf(pieces, "Three"_s).left);
    }

    void leadersInFrontOfTextOfTheOtherDirection()
    {
        const QList<Piece> pieces =
            paintedPieces("\\pard\\tldot\\tx4000 Left\\tab\\u1488?\\u1489?\\u1490?\\u1491?\\u1492?");
        const QList<Piece> leaders = leadersOf(pieces);
        QCOMPARE(leaders.size(), 1);
        const double tabStop = pieceOf(pieces, "Left"_s).left + 4000.0 * 96 / 1440;
        QVERIFY2(leaders[0].right <= tabStop, QByteArray::number(leaders[0].right - tabStop).constData());
    }

    // The second of two tabs begins at a tab stop, which lies between two of Qt's units.
    void leadersBehindOtherTabs()
    {
        const QList<Piece> pieces = paintedPieces("\\pard\\tx200\\tldot\\tx4000 \\tab\\tab Right");
        QCOMPARE(leadersOf(pieces).size(), 1);
        QCOMPARE(leadersOf(paintedPieces("\\pard\\tldot\\tx200\\tx4000 \\tab\\tab Right")).size(), 0);
    }

    void paragraphsOfManyTabsHaveNone()
    {
        const auto tabs = [](int count) {
            return "\\pard\\fs8\\tldot\\tx2000\\tldot\\tx4000 " + QByteArray("a\\tab ").repeated(count);
        };
        QVERIFY(!leadersOf(paintedPieces(tabs(250))).isEmpty());
        QVERIFY(leadersOf(paintedPieces(tabs(251))).isEmpty());
    }

    void leadersStandOnTheirPage()
    {
        const QByteArray body = "\\pard\\tldot\\tx4000 One\\tab 1\\page Two";
        QCOMPARE(leadersOf(paintedPieces(body, 0)).size(), 1);
        QCOMPARE(leadersOf(paintedPieces(body, 1)).size(), 0);
    }

    // Distances of the lines in points, 36 of them space.
    ORV_ROWS(contextualSpacing)
    {
        const Rows add([](const QByteArray& first, const QByteArray& second, bool hasSpace) {
            const QByteArray spacing = "\\sb360\\sa360";
            const QList<Piece> pieces = paintedPieces(
                "\\pard\\sl-240" + spacing + first + " One\\par\\pard\\sl-240" + spacing + second + " Two");
            const double distance =
                (pieceOf(pieces, "Two"_s).baseline - pieceOf(pieces, "One"_s).baseline) * 72 / 96;
            QCOMPARE(distance > 12 + 15, hasSpace);
        });
        add("none", "", "", true);
        add("equal styles", "\\s1\\contextualspace", "\\s1\\contextualspace", false);
        add("no styles", "\\contextualspace", "\\contextualspace", false);
        add("other styles", "\\s1\\contextualspace", "\\s2\\contextualspace", true);
        add("first only", "\\s1\\contextualspace", "\\s1", true);
        add("second only", "\\s1", "\\s1\\contextualspace", true);
    }

    void documentStaysAsItIs()
    {
        const QSharedPointer<QTextDocument> document =
            pageDocument("\\pard\\contextualspace\\sa200 One\\par Two");
        const QTextBlockFormat format = document->begin().blockFormat();
        piecesOf(*document);
        QCOMPARE(dump(document->begin().blockFormat()), dump(format));
    }
};

ORV_TEST("pageparagraphs", TestPageParagraphs, QGuiApplication)
#include "pageparagraphs.moc"
