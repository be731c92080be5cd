#include "ORVTextPage.h"
#include "interchangehelpers.h"
#include "rtfwritinghelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

ORVTextPage pageText(const QTextDocument& document, const char* property)
{
    return document.property(property).value<ORVTextPage>();
}

/*! Header and footer, separated by "|". */
QString pageTexts(const QTextDocument& document)
{
    return pageText(document, "header").text + QLatin1Char('|') + pageText(document, "footer").text;
}

QString pageOf(const QTextDocument& document)
{
    const QSizeF paper = document.property("paperSize").toSizeF();
    return QString::fromLatin1("%1x%2 %3 %4 %5 %6")
        .arg(paper.width())
        .arg(paper.height())
        .arg(document.property("leftMargin").toDouble())
        .arg(document.property("rightMargin").toDouble())
        .arg(document.property("topMargin").toDouble())
        .arg(document.property("bottomMargin").toDouble());
}

const QByteArray page = "{\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}";
const QByteArray pages = "{\\field{\\*\\fldinst { NUMPAGES \\\\* MERGEFORMAT }}{\\fldrslt{\\b 17}}}";

} // namespace

/*! Pages, their headers and footers, and the information about a document. */
class TestInterchangePages : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(headersAndFooters)
    {
        const Rows add([](const QByteArray& body, const QString& text, const QString& texts) {
            const Reading reading = importBody(body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), text);
            QCOMPARE(pageTexts(*reading.document), texts);
        });
        add("none", "a", "a", "|");
        add("both", "{\\header H}{\\footer F}a", "a", "H|F");
        add("right pages", "{\\headerr H}{\\footerr F}a", "a", "H|F");
        add("left pages", "{\\headerl H}{\\footerl F}a", "a", "H|F");
        add("first page", "{\\headerf H}{\\footerf F}a", "a", "H|F");
        add("all pages go first", "{\\headerf 1}{\\headerl 2}{\\headerr 3}{\\header 4}a", "a", "4|");
        add("then right ones", "{\\headerf 1}{\\headerl 2}{\\headerr 3}a", "a", "3|");
        add("then left ones", "{\\headerf 1}{\\headerl 2}a", "a", "2|");
        add("empty ones do not count", "{\\header\\pard\\par}{\\headerr  \\par}{\\headerl 2}a", "a", "2|");
        add("the first section goes first", "{\\header 1}a\\sect{\\header 2}b", "a\nb", "1|");
        add("of a later section", "a\\sect{\\header 2}b", "a\nb", "2|");
        add("end of the paragraph", "{\\header\\pard H\\par}a", "a", "H|");
        add("end of the paragraph in a group", "{\\header{\\pard H\\par}}a", "a", "H|");
        add("several paragraphs", "{\\header H\\par I\\par\\par J}a", "a", "H\u2028I\u2028\u2028J|");
        add("tabs", "{\\header H\\tab I\\tab J\\par}a", "a", "H\tI\tJ|");
        add("row", "{\\header\\trowd\\cellx500\\cellx900 H\\cell I\\cell\\row\\pard\\par}a", "a", "H\tI|");
        add("empty paragraphs around it", "{\\header\\pard\\par\\par H\\par\\par}a", "a", "H|");
        add("text box only", "{\\header{\\shp{\\*\\shpinst{\\shptxt B}}}\\par}a", "a", "B|");
        add("several formats", "{\\header H{\\b I}{\\i J}}a", "a", "HIJ|");
        add("hidden text", "{\\header H{\\v I}}a", "a", "H|");
        add("code page", "{\\fonttbl{\\f0\\fcharset204 A;}}{\\header\\f0\\'c0\\'c1}a", "a", "АБ|");
        add("within a paragraph", "a{\\header H}b", "ab", "H|");
        add("in a cell", "\\trowd\\cellx4000\\pard\\intbl a{\\header H\\par}b\\cell\\row\\pard c", "\nab\nc",
            "H|");
        add("in a note", "a{\\footnote N{\\header H}}b", "a1b", "|");
        add("in a header", "{\\header H{\\footer F}}a", "a", "H|");
        add("text box in it", "{\\header H{\\shp{\\*\\shpinst{\\shptxt B}}}\\par}a", "a", "H\u2028B|");
        add("picture only", "{\\header{\\pict\\wmetafile8 0100}\\par}a", "a", "|");

        add("page number", "{\\footer Page \\chpgn}a", "a", "|Page <$p>");
        add("page field", "{\\footer Page " + page + " of " + pages + "\\par}a", "a",
            "|Page <$p> of <$pagecount>");
        add("page field in small letters",
            "{\\footer{\\field{\\*\\fldinst page \\\\* arabic}{\\fldrslt 1}}}a", "a", "|<$p>");
        add("page field with a switch at once",
            "{\\footer{\\field{\\*\\fldinst PAGE\\\\* MERGEFORMAT}{\\fldrslt 1}}}a", "a", "|<$p>");
        add("page field without a result", "{\\footer{\\field{\\*\\fldinst PAGE}}}a", "a", "|<$p>");
        add("result of several groups", "{\\footer{\\field{\\*\\fldinst PAGE}{\\fldrslt{\\b 1}{\\i 2}}}x}a",
            "a", "|<$p>x");
        add("another field", "{\\footer{\\field{\\*\\fldinst DATE}{\\fldrslt today}}}a", "a", "|today");
        add("reference", "{\\footer{\\field{\\*\\fldinst PAGEREF x}{\\fldrslt 4}}}a", "a", "|4");
        add("page field of the text", "a" + page, "a1", "|");
        add("page number of the text", "a\\chpgn b", "ab", "|");
    }

    void lookOfAHeader()
    {
        const Reading reading = importBody("{\\fonttbl{\\f0 Quibble Sans;}}"
                                           "{\\header\\pard\\plain\\qc\\par{\\f0\\fs30\\b H\\i I}\\par}"
                                           "{\\footer\\pard\\qr F\\par\\qc G\\par}a");
        const ORVTextPage header = pageText(*reading.document, "header");
        QCOMPARE(header.option.alignment(), Qt::AlignHCenter);
        QCOMPARE(header.font.pointSize(), 15);
        QVERIFY(header.font.bold());
        QVERIFY(!header.font.italic());
        QCOMPARE(pageText(*reading.document, "footer").option.alignment(), Qt::AlignRight);
    }

    ORV_ROWS(pageNumbers)
    {
        const Rows add(
            [](const QByteArray& body, const QVariant& notOnFirstPage, const QVariant& countFirstPage) {
                const Reading reading = importBody(body);
                QCOMPARE(reading.document->property("notOnFirstPage"), notOnFirstPage);
                QCOMPARE(reading.document->property("countFirstPage"), countFirstPage);
            });
        add("nothing", "a", QVariant(), QVariant());
        add("header", "{\\header H}a", QVariant(), true);
        add("footer", "{\\footer H}a", QVariant(), true);
        add("special first page", "\\titlepg{\\header H}a", true, true);
        add("empty header of it", "\\titlepg{\\headerf\\par}{\\header H}a", true, true);
        add("header of it", "\\titlepg{\\headerf H}a", QVariant(), true);
        add("footer of it", "\\titlepg{\\footerf F}{\\header H}a", QVariant(), true);
        add("end of a section in a note", "{\\header H}a{\\footnote N\\sect}\\titlepg b", true, true);
        add("special page of a later section", "{\\header H}a\\sect\\titlepg b", QVariant(), true);
        add("start at 0", "\\pgnstarts0 a", QVariant(), false);
        add("start at 1", "\\pgnstarts1 a", QVariant(), true);
        add("start at 7", "\\pgnstarts7 a", QVariant(), true);
        add("of a later section", "a\\sect\\pgnstarts0 b", QVariant(), QVariant());
    }

    ORV_ROWS(paper)
    {
        const Rows add([](const QByteArray& body, const QString& page) {
            QCOMPARE(pageOf(*importBody(body).document), page);
        });
        add("nothing stated", "a", "612x792 90 90 72 72");
        add("document", "\\paperw10000\\paperh14000\\margl1000\\margr1200\\margt1400\\margb1600 a",
            "500x700 50 60 70 80");
        add("section",
            "\\sectd\\pgwsxn10000\\pghsxn14000\\marglsxn1000\\margrsxn1200\\margtsxn1400\\margbsxn1600 a",
            "500x700 50 60 70 80");
        add("document goes first", "\\paperw10000\\margl1000\\sectd\\pgwsxn9000\\marglsxn800\\margrsxn1200 a",
            "500x792 50 60 72 72");
        add("document behind the section", "\\sectd\\pgwsxn9000\\paperw10000 a", "500x792 90 90 72 72");
        add("later section", "a\\sect\\sectd\\pgwsxn10000\\marglsxn1000 b", "612x792 90 90 72 72");
    }

    /*! What an earlier text of the document had is gone. */
    void documentIsUsedAgain()
    {
        const QSharedPointer<QTextDocument> document = newDocument();
        const auto readInto = [&document](const QByteArray& rtf) {
            QBuffer buffer;
            buffer.setData(rtf);
            buffer.open(QIODevice::ReadOnly);
            ORVTextRtfReader reader(&buffer);
            reader.setInterchange(true);
            return reader.read(document.data());
        };
        QVERIFY(readInto(
            "{\\rtf1{\\info{\\title T}{\\author A}{\\creatim\\yr2020\\mo1\\dy2}}\\paperw10000\\titlepg"
            "{\\header H}{\\footer F}\\pgnstarts0 a}"));
        QCOMPARE(pageTexts(*document), QLatin1String("H|F"));
        QVERIFY(readInto("{\\rtf1 a}"));
        QCOMPARE(pageTexts(*document), QLatin1String("|"));
        QVERIFY(!document->property("header").isValid());
        QVERIFY(!document->property("footer").isValid());
        QVERIFY(!document->property("author").isValid());
        QVERIFY(!document->property("created").isValid());
        QCOMPARE(document->metaInformation(QTextDocument::DocumentTitle), QString());
        QVERIFY(!document->property("notOnFirstPage").isValid());
        QVERIFY(!document->property("countFirstPage").isValid());
        QCOMPARE(pageOf(*document), QLatin1String("612x792 90 90 72 72"));
    }

    void storageFormSetsNone()
    {
        const Reading reading = readBody("{\\info{\\title T}{\\author A}}\\paperw10000{\\header H}a");
        QCOMPARE(reading.document->dynamicPropertyNames(), newDocument()->dynamicPropertyNames());
        QCOMPARE(reading.document->metaInformation(QTextDocument::DocumentTitle), QString());
    }

    ORV_ROWS(information)
    {
        const Rows add([](const QByteArray& info, const char* property, const QVariant& value) {
            const Reading reading = importBody("{\\info" + info + "}a");
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), QLatin1String("a"));
            QCOMPARE(reading.document->property(property), value);
        });
        add("author", "{\\author A}", "author", QString("A"));
        add("operator", "{\\operator A}", "lastAuthor", QString("A"));
        add("subject", "{\\subject A}", "subject", QString("A"));
        add("keywords", "{\\keywords A, B}", "keywords", QString("A, B"));
        add("comment", "{\\doccomm A}", "comment", QString("A"));
        add("manager", "{\\manager A}", "manager", QString("A"));
        add("company", "{\\*\\company A}", "company", QString("A"));
        add("category", "{\\*\\category A}", "category", QString("A"));
        add("white space around it", "{\\author  A B \n}", "author", QString("A B"));
        add("nothing but white space", "{\\author  }", "author", QVariant());
        add("groups in it", "{\\author A{\\b B}C}", "author", QString("ABC"));
        add("escaped bytes", "{\\author J\\'f6rg}", "author", QString("Jörg"));
        add("code page of the document", "{\\author\\ansicpg1251\\'c0}", "author", QString("А"));
        add("not the page of the default font", "}{\\fonttbl{\\f0\\fcharset204 A;}}{\\info{\\author\\'e9}",
            "author", QString("é"));
        add("Unicode", "{\\author\\u1040?}", "author", QString("А"));
        add("twice", "{\\author A}{\\author B}", "author", QString("B"));
        add("paragraphs", "{\\doccomm A\\par B\\sect C}", "comment", QString::fromUtf8("A\u2028B\u2028C"));
        add("ends of pages and cells", "{\\doccomm A\\page B\\cell C\\row D}", "comment", QString("ABCD"));
        add("nothing said", "{\\title A}", "author", QVariant());
        add("time", "{\\creatim\\yr2020\\mo2\\dy3\\hr4\\min5\\sec6}", "created",
            QDateTime(QDate(2020, 2, 3), QTime(4, 5, 6)));
        add("day", "{\\revtim\\yr2020\\mo2\\dy3}", "lastModified", QDateTime(QDate(2020, 2, 3), QTime(0, 0)));
        add("printed", "{\\printim\\yr2020\\mo2\\dy3\\hr23\\min59}", "printed",
            QDateTime(QDate(2020, 2, 3), QTime(23, 59)));
        add("no day", "{\\creatim\\yr2020\\mo2\\dy30}", "created", QVariant());
        add("no time of day", "{\\creatim\\yr2020\\mo2\\dy3\\hr24}", "created", QVariant());
        add("zeros", "{\\creatim\\yr0\\mo0\\dy0\\hr0\\min0}", "created", QVariant());
        add("parts are not those before", "{\\creatim\\yr2020\\mo2\\dy3}{\\revtim\\hr4}", "lastModified",
            QVariant());
    }

    void title()
    {
        const Reading reading = importBody("{\\info{\\title A \\'22B\\'22 <b>}}a");
        QCOMPARE(reading.document->metaInformation(QTextDocument::DocumentTitle),
                 QLatin1String("A \"B\" <b>"));
    }

    void informationIsThatOfItsGroup()
    {
        const Reading reading = importBody("{\\author A}{\\title T}a");
        QCOMPARE(reading.text(), QLatin1String("ATa"));
        QVERIFY(!reading.document->property("author").isValid());
    }

    /*! Header, footer and page are written as they were read. */
    void written()
    {
        const QByteArray body =
            "\\paperw10000\\paperh14000\\margl1000\\margr1200\\margt1400\\margb1600\\titlepg"
            "{\\header\\pard\\qr H\\par}{\\footer\\pard\\qc Page "
            + page + " of " + pages + "\\par}\\pgnstarts0 a";
        const Reading reading = importBody(body);
        const QByteArray rtf = write(*reading.document, exporting());
        QVERIFY2(rtf.contains("{\\footer{\\pard\\qc{\\f0\\fs24 Page {\\chpgn} of "
                              "{\\field{\\*\\fldinst{NUMPAGES}}{\\fldrslt 1}}\\par}}}"),
                 rtf.constData());
        const Reading again = import(rtf);
        QCOMPARE(pageTexts(*again.document), pageTexts(*reading.document));
        QCOMPARE(pageText(*again.document, "header").option.alignment(), Qt::AlignRight);
        QCOMPARE(pageOf(*again.document), pageOf(*reading.document));
        QCOMPARE(again.document->property("notOnFirstPage"), QVariant(true));
        QCOMPARE(again.document->property("countFirstPage"), QVariant(false));
    }

    void longTexts()
    {
        const QByteArray text(200000, 'x');
        const Reading reading = importBody("{\\info{\\author " + text + "}}{\\header " + text + "}a");
        QCOMPARE(reading.document->property("author").toString().size(), 65536);
        QCOMPARE(pageText(*reading.document, "header").text.size(), 65536);
        QCOMPARE(reading.text(), QLatin1String("a"));
    }
};

ORV_TEST("interchange_pages", TestInterchangePages, QGuiApplication)
#include "pages.moc"
