#include "ORVNotes.h"
#include "ORVPagePdf.h"
#include "ORVRtfProperties.h"
#include "ORVStockFormats.h"
#include "interchangehelpers.h"
#include "paintedtext.h"
#include "testsupport.h"

using namespace rtftest;
using namespace viewtest;

namespace {

// Of a page as it is by default, in points: the margins, and the lower edge of the text.
const double leftMargin = 90;
const double topMargin = 72;
const double textBottom = 720;

QSharedPointer<QTextDocument> htmlDocument(const QString& html)
{
    QSharedPointer<QTextDocument> document(new QTextDocument);
    document->setHtml(html);
    return document;
}

/*! A document of \a rtf in stock form, its notes at the end and linked. */
QSharedPointer<QTextDocument> rtfDocument(const QByteArray& rtf)
{
    const Reading reading = import("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Quibble Serif;}}" + rtf + "}");
    ORVNotes::moveToEnd(reading.document.data(), ORVNotes::ApplicationForm, ORVNotes::LinkedMarks);
    ORVStockFormats::toStock(reading.document.data());
    return reading.document;
}

QVector<ORVPageLink> linksOf(const QTextDocument& document)
{
    return ORVPagePainter(&document, ORVPageSetup(), 96).links();
}

/*! The levels and titles of the headings, a line each. */
QString outlineOf(const QTextDocument& document)
{
    QStringList lines;
    const QVector<ORVPageHeading> headings = ORVPagePainter(&document, ORVPageSetup(), 96).headings();
    for (const ORVPageHeading& heading : headings)
        lines << QString::number(heading.level) + QLatin1Char(' ') + heading.title;
    return lines.join(QLatin1Char('\n'));
}

/*! Whether two lengths in points are one, but for what rounding to a pixel leaves. */
bool isNear(double left, double right)
{
    return qAbs(left - right) < 0.75;
}

void verifyPlace(const ORVPagePlace& place, int page, const QPointF& position)
{
    QCOMPARE(place.page, page);
    QVERIFY2(isNear(place.position.x(), position.x()) && isNear(place.position.y(), position.y()),
             qPrintable("%1, %2"_s.arg(place.position.x()).arg(place.position.y())));
}

/*! \a area, in points, is around the text of \a piece, in pixels, and not much larger. */
void verifyAround(const QRectF& area, const Piece& piece)
{
    const double scale = 72.0 / 96;
    const QString shown = "%1 to %2 for %3 to %4"_s.arg(area.left())
                              .arg(area.right())
                              .arg(piece.left * scale)
                              .arg(piece.right * scale);
    QVERIFY2(isNear(area.left(), piece.left * scale) && isNear(area.right(), piece.right * scale),
             qPrintable(shown));
    const double baseline = piece.baseline * scale;
    QVERIFY(area.top() < baseline - 4 && area.top() > baseline - 20);
    QVERIFY(area.bottom() > baseline + 1 && area.bottom() < baseline + 10);
}

QTextCharFormat linkTo(const QString& target)
{
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorHref(target);
    return format;
}

} // namespace

/*! Headings and links on pages. */
class TestPagePlaces : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(headings)
    {
        const Rows add([](const QString& html, const QString& outline) {
            QCOMPARE(outlineOf(*htmlDocument(html)), outline);
        });
        add("none", "<p>text</p>", "");
        add("levels", "<h1>One</h1><p>text</p><h3>Two</h3><h2>Three</h2>", "1 One\n3 Two\n2 Three");
        add("runs of text", "<h1>A <i>long</i> way</h1>", "1 A long way");
        add("lines", "<h2>Title<br>and  subtitle</h2>", "2 Title and subtitle");
        add("soft hyphen", u8"<h1>Hyphen\u00adated</h1>", "1 Hyphenated");
        add("empty", "<h1>One</h1><h1> </h1><h1>Two</h1>", "1 One\n1 Two");
        add("picture only", "<h1><img src='none.png'></h1>", "");
        add("in a table", "<table><tr><td><h4>Cell</h4></td></tr></table>", "4 Cell");
        add("beyond the plane of 16 bits", u8"<h1>\U0001F3BB</h1>", u8"1 \U0001F3BB");
    }

    ORV_ROWS(headingsOfRtf)
    {
        const Rows add([](const QByteArray& level, const QByteArray& body, const QString& outline) {
            const QByteArray lists = "{\\*\\listtable{\\list{\\listlevel" + level
                + "}\\listid7}}{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}}";
            QCOMPARE(outlineOf(*rtfDocument(lists + body)), outline);
        });
        const QByteArray number = "\\levelnfc0{\\leveltext\\'06Art. \\'00;}";
        const QByteArray bullet = "\\levelnfc23{\\leveltext\\'01\\'95;}";
        add("number", number, "\\pard\\ls1\\outlinelevel1 One\\par text\\par\\outlinelevel1 Two",
            "2 Art. 1 One\n2 Art. 2 text\n2 Art. 3 Two");
        add("bullet", bullet, "\\pard\\ls1\\outlinelevel0 One\\par", "1 One");
        add("line spacing", number, "\\pard\\sl480\\slmult0\\outlinelevel2 One\\par", "3 One");
        add("mark of a note", number,
            "\\pard\\outlinelevel0 One{\\super\\chftn{\\footnote \\pard {\\super\\chftn} note}} more\\par",
            "1 One more");
    }

    void placesOfHeadings()
    {
        const auto document = rtfDocument(
            "\\pard\\outlinelevel0 One\\par text\\par\\page\\outlinelevel1 Two\\par\\li720 Three");
        const QVector<ORVPageHeading> headings =
            ORVPagePainter(document.data(), ORVPageSetup(), 96).headings();
        QCOMPARE(headings.size(), 4);
        verifyPlace(headings.at(0).place, 0, {leftMargin, topMargin});
        verifyPlace(headings.at(2).place, 1, {leftMargin, topMargin});
        QCOMPARE(headings.at(3).place.page, 1);
        QVERIFY(isNear(headings.at(3).place.position.x(), leftMargin + 36));
        QVERIFY(headings.at(3).place.position.y() > topMargin + 6);
    }

    /*! The resolution is that of painting, and has no influence on places. */
    void placesOnOtherPaper()
    {
        ORVPageSetup setup;
        setup.page = {QSizeF(400, 200), 30, 30, 50, 50};
        const auto document = htmlDocument("<h1 style='margin:0'>One</h1>"_s);
        for (const int resolution : {96, 600}) {
            const ORVPagePainter pages(document.data(), setup, resolution);
            QCOMPARE(pages.resolution(), resolution);
            QCOMPARE(pages.paperSize(), QSizeF(400, 200));
            verifyPlace(pages.headings().value(0).place, 0, {30, 50});
        }
    }

    /*! The word "Link" is one piece of the painted text. */
    ORV_ROWS(areas)
    {
        const Rows add([](const QString& html) {
            const auto document = htmlDocument(QString(html).replace(
                QLatin1String("LINK"), QLatin1String("<a href='http://e.org'>Link</a>")));
            const QVector<ORVPageLink> links = linksOf(*document);
            QCOMPARE(links.size(), 1);
            QCOMPARE(links.at(0).page, 0);
            verifyAround(links.at(0).area, pieceOf(piecesOf(*document), "Link"_s));
        });
        add("alone", "LINK");
        add("in a sentence", "<p>What LINK is this?</p>");
        add("at the right", "<p align=right>text LINK</p>");
        add("justified",
            "<p align=justify>It stands in the LINK first of several lines, in which the blanks between "
            "all the words are wider than they are elsewhere.</p>");
        add("from right to left", u8"<p dir=rtl>\u05d0\u05d1 LINK \u05d2\u05d3</p>");
        add("in a list", "<ul><li>one<li>LINK</ul>");
        add("in a table", "<table border=1><tr><td>one<td>two<tr><td>three<td>see LINK</table>");
        add("in a nested table",
            "<table><tr><td>one<td><table cellpadding=9><tr><td>text<p>LINK</p></table></table>");
        add("larger than the text around", "<p>text <span style='font-size:14pt'>LINK</span> text</p>");
        add("in a line with a picture", "<p><img src='none.png' width=20 height=200> LINK</p>");
    }

    // The letters of the link stand in two places of a line: "c", then "b" from the right to the left, "a".
    void areaOfTextInBothDirections()
    {
        Story story;
        story.add(u8"\u05d0\u05d1\u05d2 "_s).add(u8"\u05d3 ab"_s, linkTo("http://e.org"_s)).add("cd"_s);
        const QVector<ORVPageLink> links = linksOf(*story.document());
        QCOMPARE(links.size(), 2);
        QVERIFY(links.at(0).area.right() < links.at(1).area.left());
        QVERIFY(isNear(links.at(0).area.top(), links.at(1).area.top()));
    }

    void runsOfTextAreOneLink()
    {
        const auto document =
            htmlDocument("<a href='http://e.org'>one <b>two</b> three</a><a href='http://f.org'>four</a>"_s);
        const QVector<ORVPageLink> links = linksOf(*document);
        QCOMPARE(links.size(), 2);
        QCOMPARE(links.at(0).uri, "http://e.org"_b);
        QCOMPARE(links.at(1).uri, "http://f.org"_b);
        QVERIFY(isNear(links.at(0).area.right(), links.at(1).area.left()));
    }

    /*! Every line that is painted has its area. */
    void linkOverLinesAndPages()
    {
        Story story;
        story.add("A "_s).add("considerable "_s.repeated(600).trimmed(), linkTo("http://e.org"_s));
        QTextDocument* const document = story.document();
        const QVector<ORVPageLink> links = linksOf(*document);
        const int pageCount = ORVPagePainter(document, ORVPageSetup(), 96).pageCount();
        QVERIFY(pageCount > 1);
        for (int page = 0; page < pageCount; ++page) {
            QSet<double> baselines;
            for (const Piece& piece : piecesOf(*document, page))
                baselines.insert(piece.baseline);
            int count = 0;
            for (const ORVPageLink& link : links) {
                if (link.page != page)
                    continue;
                ++count;
                QVERIFY(link.area.left() >= leftMargin - 0.1);
                QVERIFY(link.area.top() >= topMargin - 0.1 && link.area.bottom() <= textBottom + 0.1);
            }
            QCOMPARE(count, baselines.size());
        }
    }

    /*! A picture of 40 × 20 pixels begins 48 pixels behind the margin. */
    void areaOfPicture()
    {
        QImage image(40, 20, QImage::Format_RGB32);
        image.fill(Qt::black);
        Story story;
        QTextImageFormat picture;
        picture.setName("picture"_s);
        picture.setAnchor(true);
        picture.setAnchorHref("http://e.org"_s);
        story.addResource("picture"_s, image).add("\t"_s).addPicture(picture);
        const QVector<ORVPageLink> links = linksOf(*story.document());
        QCOMPARE(links.size(), 1);
        const QRectF area = links.at(0).area;
        QVERIFY(isNear(area.left(), leftMargin + 36) && isNear(area.width(), 30));
        QVERIFY(area.top() < topMargin + 1 && isNear(area.height(), 15));
    }

    ORV_ROWS(addresses)
    {
        const Rows add([](const QString& target, const QByteArray& uri) {
            Story story;
            story.add("Link"_s, linkTo(target));
            const QVector<ORVPageLink> links = linksOf(*story.document());
            QCOMPARE(links.value(0).uri, uri);
            QCOMPARE(links.size(), uri.isEmpty() ? 0 : 1);
        });
        add("plain", "https://example.org/a?b=1&c=%20#d", "https://example.org/a?b=1&c=%20#d");
        add("not ASCII", u8"https://example.org/\u00fc\u20ac\u4e2d",
            "https://example.org/%C3%BC%E2%82%AC%E4%B8%AD");
        add("host", u8"http://b\u00fccher.example/", "http://xn--bcher-kva.example/");
        add("blanks and brackets", "http://example.org/a (b) <c>.html",
            "http://example.org/a%20(b)%20%3Cc%3E.html");
        add("mail", "mailto:someone@example.org", "mailto:someone@example.org");
        add("relative", u8"folder/\u00fc.rtf", "folder/%C3%BC.rtf");
        add("backslashes", "\\\\server\\share\\a.doc", "//server/share/a.doc");
        add("no address", u8"http://[x/\u00e9", "http://[x/%C3%A9");
        add("none", "", "");
        for (const char* script :
             {"javascript:alert(1)", " Java\tScript :x", "vbscript:x", "data:text/html,x"})
            add(script, script, "");
    }

    ORV_ROWS(linksWithinTheDocument)
    {
        const Rows add([](const QString& target, bool isLink) {
            Story story;
            QTextCharFormat anchor;
            anchor.setAnchor(true);
            anchor.setAnchorNames({u8"\u00fc b"_s, "other"_s});
            story.add("Link"_s, linkTo(target)).paragraph();
            story.format(
                blockFormat({{QTextFormat::PageBreakPolicy, int(QTextFormat::PageBreak_AlwaysBefore)}}));
            story.add("Place"_s, anchor);
            const QVector<ORVPageLink> links = linksOf(*story.document());
            QCOMPARE(links.size(), isLink ? 1 : 0);
            if (!isLink)
                return;
            QCOMPARE(links.at(0).uri, QByteArray());
            QCOMPARE(links.at(0).page, 0);
            verifyPlace(links.at(0).target, 1, {leftMargin, topMargin});
        });
        add("name", u8"#\u00fc b", true);
        add("second name", "#other", true);
        add("escaped", "#%C3%BC%20b", true);
        add("another case", "#Other", false);
        add("unknown", "#missing", false);
        add("empty", "#", false);
    }

    /*! In the middle of a paragraph the line counts, and of two anchors of one name the first. */
    void placeOfAnchor()
    {
        Story story;
        QTextCharFormat anchor;
        anchor.setAnchorNames({"name"_s});
        story.add("Link "_s, linkTo("#name"_s)).add("considerable "_s.repeated(30)).add("Place"_s, anchor);
        story.paragraph().add("Place"_s, anchor);
        const QVector<ORVPageLink> links = linksOf(*story.document());
        QCOMPARE(links.size(), 1);
        const Piece place = pieceOf(piecesOf(*story.document()), "Place"_s);
        const double baseline = place.baseline * 72 / 96;
        QCOMPARE(links.at(0).target.page, 0);
        QVERIFY(links.at(0).target.position.y() < baseline);
        QVERIFY(links.at(0).target.position.y() > baseline - 20);
    }

    /*! From the mark to the note and back; so for the note within the note. */
    void notes()
    {
        const auto document = rtfDocument(
            "text{\\super\\chftn{\\footnote \\pard {\\super\\chftn} inner{\\super\\chftn{\\footnote "
            "\\pard {\\super\\chftn} last}}}}\\par text{\\chatn{\\*\\annotation \\pard {\\chatn} "
            "remark}}\\page\\par");
        const QVector<ORVPageLink> links = linksOf(*document);
        QCOMPARE(links.size(), 6);
        for (const ORVPageLink& link : links)
            QCOMPARE(link.uri, QByteArray());
        // In the order of the text: marks of the footnote and comment, notes with the mark of the inner one.
        const int partners[] = {2, 5, 0, 4, 3, 1};
        for (int i = 0; i < 6; ++i) {
            const ORVPageLink partner = links.at(partners[i]);
            QCOMPARE(links.at(i).page, i < 2 ? 0 : 1);
            QCOMPARE(links.at(i).target.page, partner.page);
            QVERIFY(links.at(i).target.position.y() <= partner.area.top() + 1);
            QVERIFY(links.at(i).target.position.y() > partner.area.top() - 10);
        }
    }

    /*! Only notes that are moved to be linked. */
    void otherMarksAreNoLinks()
    {
        const Reading reading = import("{\\rtf1 text{\\super\\chftn{\\footnote {\\super\\chftn} note}}}");
        ORVNotes::moveToEnd(reading.document.data());
        ORVStockFormats::toStock(reading.document.data());
        QCOMPARE(linksOf(*reading.document).size(), 0);
    }

    void linksOfOneLineAreLimited()
    {
        Story story;
        for (int i = 0; i < 300; ++i)
            story.add("i"_s,
                      charFormat({{QTextFormat::FontPixelSize, 1},
                                  {QTextFormat::IsAnchor, true},
                                  {QTextFormat::AnchorHref, "http://e.org/%1"_s.arg(i)}}));
        QCOMPARE(linksOf(*story.document()).size(), 250);
    }

    /*! The document keeps its links, of which Qt writes those to addresses. */
    void linksThatQtWrites()
    {
        Story story;
        QTextCharFormat anchor;
        anchor.setAnchor(true);
        anchor.setAnchorNames({"name"_s});
        story.add(u8"\u00fc"_s, linkTo(u8"http://e.org/\u00fc"_s)).add("inner"_s, linkTo("#name"_s));
        story.add("script"_s, linkTo("javascript:x"_s)).add("place"_s, anchor);
        const QByteArray pdf = ORVPagePdf::make(story.document(), ORVPageSetup());
        QCOMPARE(pdf.count("/Subtype /Link"), 1);
        QVERIFY(pdf.contains("/URI (http://e.org/%C3%BC)"));
        QTextCursor cursor(story.document());
        cursor.setPosition(1);
        QCOMPARE(cursor.charFormat().anchorHref(), u8"http://e.org/\u00fc"_s);
    }

    void noDocument()
    {
        const ORVPagePainter pages(nullptr, ORVPageSetup(), 96);
        QCOMPARE(pages.headings().size(), 0);
        QCOMPARE(pages.links().size(), 0);
    }
};

ORV_TEST("pageplaces", TestPagePlaces, QGuiApplication)
#include "pageplaces.moc"
