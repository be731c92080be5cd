#include "ORVTextPage.h"
#include "writerhelpers.h"

using namespace rtftest;

namespace {

typedef QSharedPointer<QTextDocument> Document;

ORVTextPage textPage(const QString& text, const QFont& font = QFont("Quibble Head"_s, 10),
                     Qt::Alignment alignment = Qt::AlignLeft)
{
    ORVTextPage page;
    page.option.setAlignment(alignment);
    page.text = text;
    page.font = font;
    return page;
}

/*! An empty document with a page header or footer, or something else, under \a property. */
Document documentWith(const char* property, const QVariant& value)
{
    const Document document = newDocument();
    document->setProperty(property, value);
    return document;
}

Document documentWith(const char* property, const ORVTextPage& page)
{
    return documentWith(property, QVariant::fromValue(page));
}

QByteArray emptyBody()
{
    return firstParagraph() + emptyRun();
}

QByteArray headFont()
{
    return fontEntry(1, "Quibble Head");
}

} // namespace

class TestPageSetup : public QObject {
    Q_OBJECT

private slots:
    void pageIsAnEmptyValueAtFirst()
    {
        const ORVTextPage page;
        QVERIFY(page.text.isEmpty());
        QCOMPARE(page.option.alignment(), QTextOption().alignment());
        QCOMPARE(page.font, QFont());
        ORVTextPage copy = textPage("x"_s, QFont("Quibble Head"_s, 10), Qt::AlignRight);
        const ORVTextPage other(copy);
        copy = page;
        QVERIFY(copy.text.isEmpty());
        QCOMPARE(other.text, "x"_s);
        QCOMPARE(int(other.option.alignment()), int(Qt::AlignRight));
        QCOMPARE(other.font, QFont("Quibble Head"_s, 10));
    }

    void pageInAVariant()
    {
        const QVariant variant = QVariant::fromValue(textPage("x"_s));
        QCOMPARE(variant.typeName(), "ORVTextPage");
        const ORVTextPage page = qvariant_cast<ORVTextPage>(variant);
        QCOMPARE(page.text, "x"_s);
        QCOMPARE(page.font, QFont("Quibble Head"_s, 10));
        QVERIFY(qvariant_cast<ORVTextPage>(QVariant()).text.isEmpty());
        QVERIFY(qvariant_cast<ORVTextPage>(QVariant("x"_s)).text.isEmpty());
    }

    void defaultPaperSize()
    {
        QCOMPARE(ORVTextRtfWriter::defaultPaperSize(false), QSize(12240, 15840));
        QCOMPARE(ORVTextRtfWriter::defaultPaperSize(true), QSize(8640, 12960));
        QCOMPARE(ORVTextRtfWriter::paperSizeForDocument(nullptr), QSize(12240, 15840));
    }

    ORV_ROWS(paperSizeOfADocument)
    {
        const Rows add([](const QVariant& value, const QSize& twips) {
            const Document document = documentWith("paperSize", value);
            QCOMPARE(ORVTextRtfWriter::paperSizeForDocument(document.data()), twips);
            ORV_CONTAINS(write(*document),
                         "}\n\\paperw" + QByteArray::number(twips.width()) + "\\paperh"
                             + QByteArray::number(twips.height()) + "\\margl1800");
            document->setProperty("leftMargin", 10.0);
            document->setProperty("topMargin", 20.0);
            QCOMPARE(ORVTextRtfWriter::paperSizeForDocument(document.data()), twips);
        });
        const QSize letter(12240, 15840);
        add("none", QVariant(), letter);
        add("A4", QSizeF(595.3, 841.9), QSize(11906, 16838));
        add("half twips go away from zero", QSizeF(0.025, -0.025), QSize(1, -1));
        add("more halves", QSizeF(0.125, -0.075), QSize(3, -2));
        add("less than half", QSizeF(0.0249, 0.0749), QSize(0, 1));
        add("zero", QSizeF(0, 0), QSize(0, 0));
        add("beyond every integer", QSizeF(1e300, qQNaN()), QSize(2147483647, 0));
        add("text", "A4"_s, letter);
        add("number", 595.3, letter);
    }

    ORV_ROWS(margins)
    {
        const Rows add([](const QVariant& value, const QByteArray& twips) {
            const char* const names[] = {"leftMargin", "rightMargin", "topMargin", "bottomMargin"};
            const QList<QByteArray> words = {"\\margl", "\\margr", "\\margt", "\\margb"};
            const QList<QByteArray> defaults = {"1800", "1800", "1440", "1440"};
            for (int changed = 0; changed < 4; ++changed) {
                QByteArray expected = "\\paperw12240\\paperh15840";
                for (int i = 0; i < 4; ++i)
                    expected += words.at(i) + (i == changed ? twips : defaults.at(i));
                ORV_CONTAINS(write(*documentWith(names[changed], value)),
                             expected + "\\fet2\\ftnbj\\aenddoc\n");
            }
        });
        add("one inch", 72.0, "1440");
        add("zero", 0.0, "0");
        add("half a twip", 0.025, "1");
        add("less than half a twip", 0.02499, "0");
        add("minus half a twip", -0.025, "-1");
        add("minus one and a half twips", -0.075, "-2");
        add("integer", 36, "720");
        add("number as text", "36.5"_s, "730");
        add("no number", "wide"_s, "0");
        add("not a number", qQNaN(), "0");
        add("infinite", qInf(), "2147483647");
        add("below every integer", -1e300, "-2147483648");
    }

    ORV_ROWS(pageNumbering)
    {
        const Rows add(
            [](const QVariant& notOnFirstPage, const QVariant& countFirstPage, const QByteArray& words) {
                const Document document = documentWith("notOnFirstPage", notOnFirstPage);
                document->setProperty("countFirstPage", countFirstPage);
                ORV_CONTAINS(write(*document), "\\aenddoc\n" + words + '\n');
            });
        add("nothing said", QVariant(), QVariant(), "\\pgnrestart\\pgnstarts0");
        add("both false", false, false, "\\pgnrestart\\pgnstarts0");
        add("first page counted", QVariant(), true, "\\pgnrestart\\pgnstarts1");
        add("not on first page", true, QVariant(), "\\titlepg\\pgnrestart\\pgnstarts0");
        add("both", true, true, "\\titlepg\\pgnrestart\\pgnstarts1");
        add("integers", 1, 1, "\\titlepg\\pgnrestart\\pgnstarts1");
    }

    void pageSetupIsTheSameInPlace()
    {
        const Document document = documentWith("topMargin", 10.0);
        document->setProperty("notOnFirstPage", true);
        const QByteArray copied = write(*document);
        ORV_CONTAINS(copied, "\\margt200\\margb1440\\fet2\\ftnbj\\aenddoc\n\\titlepg");
        WriteSettings inPlace;
        inPlace.inPlace = true;
        QCOMPARE(write(*document, inPlace), copied);
    }

    ORV_ROWS(alignment)
    {
        const Rows add([](Qt::Alignment alignment, const QByteArray& word) {
            const ORVTextPage page = textPage("x"_s, QFont("Quibble Head"_s, 10), alignment);
            QCOMPARE(writeBody(*documentWith("header", page)),
                     "{\\header{\\pard" + word + "{\\f1\\fs20 x\\par}}}\n" + emptyBody());
        });
        add("left", Qt::AlignLeft, "\\ql");
        add("right", Qt::AlignRight, "\\qr");
        add("centre", Qt::AlignHCenter, "\\qc");
        add("justified", Qt::AlignJustify, QByteArray());
        add("none", Qt::Alignment(), QByteArray());
        add("vertical only", Qt::AlignVCenter, QByteArray());
        add("centre both ways", Qt::AlignCenter, "\\qc");
        add("right and absolute", Qt::Alignment(Qt::AlignRight | Qt::AlignAbsolute), "\\qr");
        add("left and right", Qt::Alignment(Qt::AlignLeft | Qt::AlignRight), QByteArray());
    }

    ORV_ROWS(headersAndFooters)
    {
        const Rows add([](const Document& document, const QByteArray& fonts, const QByteArray& groups) {
            QCOMPARE(write(*document), documentHead(defaultFontEntry() + fonts) + groups + emptyBody() + '}');
        });
        // The escapes name the default font, whatever the font of the text is.
        const ORVTextPage special = textPage("a {\xc3\xa9\xe2\x80\x94\t\\}"_s);
        const QByteArray escaped = "{\\pard\\ql{\\f1\\fs20 a \\{" + preamble()
            + "\\u233\\'E9\\hich\\f0 \\emdash \\loch\\f0 \\tab \\\\\\}\\par}}}\n";
        add("groupIsWrittenForBoth: header", documentWith("header", special), headFont(),
            "{\\header" + escaped);
        add("groupIsWrittenForBoth: footer", documentWith("footer", special), headFont(),
            "{\\footer" + escaped);
        // The default font of the document is not entered twice, whatever the size.
        const QFont large(QLatin1String(DefaultFamily), 30);
        add("fontOfTheHeader", documentWith("header", textPage("x"_s, large)), "",
            "{\\header{\\pard\\ql{\\f0\\fs60 x\\par}}}\n");
        const Document both = documentWith("header", textPage("x"_s));
        QFont larger("Quibble Head"_s);
        larger.setPointSizeF(10.5);
        both->setProperty("footer", QVariant::fromValue(textPage("y"_s, larger)));
        add("headerAndFooterShareAFont", both, headFont(),
            "{\\header{\\pard\\ql{\\f1\\fs20 x\\par}}}\n{\\footer{\\pard\\ql{\\f1\\fs22 y\\par}}}\n");
        QFont fixedPitch(QLatin1String(DefaultFamily), 10);
        fixedPitch.setFixedPitch(true);
        add("fixedPitchIsAnotherFont", documentWith("footer", textPage("x"_s, fixedPitch)),
            fontEntry(1, DefaultFamily, 1), "{\\footer{\\pard\\ql{\\f1\\fs20 x\\par}}}\n");
        QFont inPixels("Quibble Head"_s);
        inPixels.setPixelSize(20);
        const int points = QFontInfo(inPixels).pointSize();
        QVERIFY(points > 0);
        add("sizeInPixels", documentWith("header", textPage("x"_s, inPixels)), headFont(),
            "{\\header{\\pard\\ql{\\f1\\fs" + QByteArray::number(2 * points) + " x\\par}}}\n");
        add("blankIsText", documentWith("header", textPage(" "_s)), headFont(),
            "{\\header{\\pard\\ql{\\f1\\fs20  \\par}}}\n");
        add("lineFeedIsEscaped", documentWith("header", textPage("a\nb"_s)), headFont(),
            "{\\header{\\pard\\ql{\\f1\\fs20 a\\'0Ab\\par}}}\n");
        add("emptyTextWritesNothing: header", documentWith("header", textPage(QString())), "", "");
        add("emptyTextWritesNothing: footer", documentWith("footer", textPage(QString())), "", "");
        const auto addOther = [&add](const char* name, const QVariant& value) {
            const Document document = documentWith("header", value);
            document->setProperty("footer", value);
            add(name, document, "", "");
        };
        addOther("otherTypesWriteNothing: text", "Top"_s);
        addOther("otherTypesWriteNothing: number", 1);
        addOther("otherTypesWriteNothing: font", QFont("Quibble Head"_s));
        addOther("otherTypesWriteNothing: list", QVariantList({QVariant::fromValue(textPage("x"_s))}));
    }

    ORV_ROWS(placeholders)
    {
        const Rows add([](const QString& text, bool exportingMode, const QByteArray& rtf) {
            WriteSettings settings;
            settings.exportingMode = exportingMode;
            QCOMPARE(writeBody(*documentWith("footer", textPage(text)), settings),
                     "{\\footer{\\pard\\ql{\\f1\\fs20 " + rtf + "\\par}}}\n" + emptyBody());
        });
        const QString tags = "<$p>/<$pagecount>"_s;
        const QByteArray fields = "{\\chpgn}/{\\field{\\*\\fldinst{NUMPAGES}}{\\fldrslt 1}}";
        const QString characters = QString(QChar(0xe000)) + QLatin1Char('/') + QChar(0xe001);
        add("stored", tags, false, tags.toLatin1());
        add("exported", tags, true, fields);
        add("characters, stored", characters, false, fields);
        add("characters, exported", characters, true, fields);
    }

    void fontsOfHeaderAndFooterComeBeforeThoseOfTheText()
    {
        const Document document = runs({family("Quibble Serif")});
        document->setProperty("footer",
                              QVariant::fromValue(textPage("Bottom"_s, QFont("Quibble Foot"_s, 8))));
        document->setProperty("header", QVariant::fromValue(textPage("Top"_s)));
        QCOMPARE(write(*document),
                 documentHead(defaultFontEntry() + headFont() + fontEntry(2, "Quibble Foot")
                              + fontEntry(3, "Quibble Serif"))
                     + "{\\header{\\pard\\ql{\\f1\\fs20 Top\\par}}}\n"
                       "{\\footer{\\pard\\ql{\\f2\\fs16 Bottom\\par}}}\n"
                     + firstParagraph() + "{\\f3\\fs24 a}}");
    }
};

ORV_TEST("pagesetup", TestPageSetup, QGuiApplication)
#include "pagesetup.moc"
